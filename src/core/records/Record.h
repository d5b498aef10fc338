#pragma once

#include <QString>

#include <cstddef>
#include <limits>
#include <optional>
#include <string_view>
#include <vector>

namespace tremlo {

/// The layouts in which records come.
enum class RecordFormat {
  Unknown,
  KnetAscii,
  KikNetAscii,
  KnetCsv,
  JmaCsv,
  Cosmos,
  Csmip,
  GeoNet,
  At2,
  OwnWave,   ///< the program's own wave file
  FreeText,  ///< none of the above: numbers in columns
};

/// The format as the user knows it.
QString FormatName(RecordFormat format);

/// A unit of acceleration: what stands for it, and what one of it is in gal.
struct RecordUnit {
  QString name;
  double gal = 1.0;

  bool operator==(const RecordUnit&) const = default;
};

/// How the numbers of a line without a time column are meant.
enum class RecordLayout { Columns, Across };

/// What only the user can know. What a file says itself is overridden by an answer, with a finding.
struct RecordAnswers {
  std::optional<RecordUnit> unit;
  std::optional<double> timeStep;  ///< s
  std::optional<RecordLayout> layout;
  bool fillMissing = false;  ///< samples marked as missing lie on a straight line between their neighbours
  std::optional<bool> decimalComma;      ///< whether a comma between digits is a decimal point
  std::optional<std::size_t> firstLine;  ///< of the data in free text, from 1
  std::optional<std::size_t> lastLine;
  bool allSamples = false;  ///< samples behind the announced count (RecordReading::leftOut) are read too
};

enum class RecordAsk { Unit, TimeStep, Layout, Missing, DecimalComma, Lines };

/// What has to be answered before the samples can be used.
struct RecordQuestion {
  RecordAsk ask = RecordAsk::Unit;
  QString text;
};

/// One direction of a record.
struct RecordComponent {
  QString name;                                                ///< NS, UD2, 090; may be empty
  double timeStep = std::numeric_limits<double>::quiet_NaN();  ///< s; NaN while it is asked
  QString unit;                                                ///< in the file; empty while it is asked
  double factor = std::numeric_limits<double>::quiet_NaN();    ///< gal for one unit; NaN while it is asked
  QString factorText;                                          ///< as the file writes it, where it does
  std::vector<double> acc;  ///< gal, offset not removed; as in the file while the unit is asked
};

/// Lines of a file, counted from 0.
struct LineRange {
  std::size_t first = 0;
  std::size_t behind = 0;  ///< the first that is no longer among them

  bool operator==(const LineRange&) const = default;
};

/// What one file, or one member of an archive, holds.
struct RecordReading {
  QString file;    ///< its path
  QString member;  ///< its path in the archive; empty outside one
  RecordFormat format = RecordFormat::Unknown;
  QString sign;  ///< by what the format was recognised
  QString station;
  QString start;           ///< of the record, with its zone; empty when the file does not say
  bool corrected = false;  ///< the file says that its offset has been dealt with
  std::vector<RecordComponent> components;
  std::vector<LineRange> dataLines;  ///< from which the samples come
  std::vector<QString> warnings;
  std::size_t doubtsFrom =
      0;  ///< the first of the warnings that the samples give rise to, as opposed to the text
  std::vector<QString> notes;  ///< worth knowing, no cause for doubt
  std::vector<RecordQuestion> questions;
  std::size_t leftOut = 0;  ///< samples behind the announced count that were not read
  QString error;  ///< why the file is refused, with file, line and value; no component is there then

  bool IsRefused() const { return !error.isEmpty(); }
  bool Asks(RecordAsk ask) const;
  void Ask(RecordAsk ask, const QString& text);  ///< each question once
  void Warn(const QString& text);                ///< each warning once
};

/// Mean of the samples and largest absolute rest; NaN without samples.
struct RecordPeak {
  double mean = std::numeric_limits<double>::quiet_NaN();
  double pga = std::numeric_limits<double>::quiet_NaN();
  std::size_t at = 0;  ///< of the peak, from 0
};
RecordPeak PeakOf(const std::vector<double>& acc);

/// A name for the wave: station and component, or the file's own name where the record has neither.
QString ProposedName(const RecordReading& reading, const RecordComponent& component);

/// Text from a file as it may be shown: control characters become "_", a tab a blank.
QString WithoutControls(QString text);

/// Samples, announced and found, as every format tells that they differ; with the component where a file has
/// several.
QString CountsDiffer(std::size_t announced, std::size_t found, const QString& component = {});

}  // namespace tremlo
