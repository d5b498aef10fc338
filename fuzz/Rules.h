#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tremlo::fuzz {

/// Ends the process, with `rule` on the error output, when it does not hold.
void Require(bool holds, const char* rule);

/// The input as a reader takes it, without a copy: a read behind its end is one behind the end of the input.
QByteArray Bytes(const std::uint8_t* data, std::size_t size);

/// The same bits, or both not a number.
bool SameNumber(double a, double b);
bool SameNumbers(const std::vector<double>& a, const std::vector<double>& b);

/// Lines behind the first `heading` ones.
std::size_t CountLines(const QByteArray& content, std::size_t heading);

/// The numbers of the lines behind the first `heading` ones, by column, taken apart by the C library's
/// strtod: a number that a line does not yield is that of the line before, or 0.
std::vector<std::vector<double>> ScanColumns(const QByteArray& content, std::size_t heading,
                                             std::size_t columns);

/// The same lines, each ended by carriage return and line feed.
QByteArray WithWindowsLineEnds(const QByteArray& content);

}  // namespace tremlo::fuzz
