#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace tremlo {

/// The name on the first line of a wave or spectrum file: the text up to the first comma, at least one and at
/// most 260 UTF-16 units. `rest` becomes what is behind it, from the comma on unless the name was cut.
QString ScanWaveName(const QString& line, QString& rest);

/// What the program makes of the content of a wave file, CP932 (UTF-8 behind a UTF-8 mark): line 1 name, time
/// step (s) and 1, each further line time and acceleration (s, gal). The time column is ignored. The scan of
/// a line is not tested: a line without a second number, a blank one included, repeats the sample before it
/// (0 before any). A first line that does not scan leaves `name` empty or `timeStep` at 0.
void ParseWave(const QByteArray& content, QString& name, double& timeStep, std::vector<double>& acc);

/// Whether the first line scans as that of a wave file. A name that is itself a number counts only before a
/// third number: a table without a heading begins with two numbers as well.
bool StartsAsWave(const QByteArray& content);

}  // namespace tremlo
