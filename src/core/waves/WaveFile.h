#pragma once

#include "core/files/WholeFile.h"
#include "core/records/OwnWave.h"
#include "core/waves/SeismicWaveSet.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <string>
#include <vector>

namespace tremlo {

/// Wave and spectrum files: text in CP932 (UTF-8 behind a UTF-8 mark). Line 1 holds name, time step and 1;
/// each further line a pair of numbers, in a wave file time and acceleration (s, gal), in a spectrum file
/// period and response (s, gal).

/// The user's message about a file that cannot be opened to be read.
QString CannotOpenText(const QString& path);

/// Reads a wave file. The time column is ignored. The scan of a line is not tested: a line without a second
/// number, a blank one included, repeats the sample before it (0 before any). A first line that does not scan
/// leaves `name` empty or `timeStep` at 0. Returns the user's message when the file cannot be opened; the
/// arguments are then as they were.
std::optional<QString> ReadWaveFile(const QString& path, QString& name, double& timeStep,
                                    std::vector<double>& acc);

/// Reads a spectrum file: of line 1 the name only, of every further line both numbers, each repeated where
/// missing. `pairs`, if given, becomes the number of lines that really held both.
std::optional<QString> ReadSpectrumFile(const QString& path, QString& name, std::vector<double>& periods,
                                        std::vector<double>& values, std::size_t* pairs = nullptr);

/// Writes `name`, time step and pairs, six significant digits. False, with nothing written, when `path` or
/// `name` is empty, `timeStep` is 0, `x` is empty or `y` is shorter than `x`; false too when the file cannot
/// be written (an older file is then as it was).
bool WriteCsv(const QString& path, const QString& name, double timeStep, const std::vector<double>& x,
              const std::vector<double>& y);

/// What the reader of a spectrum file makes of its content; returns the number of lines that held both
/// numbers.
std::size_t ParseSpectrum(const QByteArray& content, QString& name, std::vector<double>& periods,
                          std::vector<double>& values);

/// A chosen path without its extension, and the extension with its point; both empty for an empty path.
struct SavePath {
  QString base;
  QString extension;
};
SavePath SplitSavePath(const QString& path);

/// The name to propose for a file of the wave: its own, an ending, ".csv". Characters that a system refuses
/// in names become "_", and a long name is cut; empty for a name of blanks alone.
QString FileNameOfWave(const QString& waveName, const QString& ending);

/// The text that WriteCsv writes; empty where it would write nothing.
std::string CsvContent(const QString& name, double timeStep, const std::vector<double>& x,
                       const std::vector<double>& y);

/// What the names of exported spectra end in.
QString AccSpecName(const QString& waveName);
QString FourierName(const QString& waveName);

/// The three files of an export: the wave, `_AccSpec` (the spectrum handed in) and `_FFT` (computed here). A
/// file of which there is nothing to write has an empty content. Blank samples stay in the first as "inf" and
/// count as 0 in the Fourier spectrum.
std::vector<FileContent> ExportFiles(const SavePath& path, const QString& name, double timeStep,
                                     const std::vector<double>& acc, const std::vector<double>& periods,
                                     const std::vector<double>& accSpec);

/// Writes the three files. The failure of one does not stop the following ones, and an empty `path`, a
/// cancelled dialog, stops only the first: the two others then have the bare names "_AccSpec" and "_FFT" in
/// the current folder.
void ExportWave(const SavePath& path, const QString& name, double timeStep, const std::vector<double>& acc,
                const std::vector<double>& periods, const std::vector<double>& accSpec);

/// Adds a wave that was read: under the first free name, current, its spectrum not valid. Returns that name.
QString AddImportedWave(CSeismicWaveSet& waves, const QString& name, double timeStep,
                        const std::vector<double>& acc);

}  // namespace tremlo
