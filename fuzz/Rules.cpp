#include "fuzz/Rules.h"

#include <QList>

#include <algorithm>
#include <bit>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace tremlo::fuzz {

namespace {

QList<QByteArray> Lines(const QByteArray& content) {
  QList<QByteArray> lines = content.split('\n');
  if (lines.back().isEmpty()) lines.removeLast();
  return lines;
}

/// Where text ends that begins with a NaN, by the C standard: some libraries take more than letters, digits
/// and the underscore between the brackets.
const char* EndOfNan(const char* at) {
  while (*at != 'n' && *at != 'N') ++at;
  at += 3;
  if (*at != '(') return at;
  const char* inside = at + 1;
  while ((*inside >= '0' && *inside <= '9') || (*inside >= 'A' && *inside <= 'Z') ||
         (*inside >= 'a' && *inside <= 'z') || *inside == '_')
    ++inside;
  return *inside == ')' ? inside + 1 : at;
}

/// Overwrites the values that the line yields.
void ScanLine(const QByteArray& line, std::vector<double>& values) {
  const char* at = line.constData();
  for (double& value : values) {
    char* scanned = nullptr;
    const double number = std::strtod(at, &scanned);
    if (scanned == at) return;
    value = number;
    const char* const end = std::isnan(number) ? EndOfNan(at) : scanned;
    if (*end != ',') return;
    at = end + 1;
  }
}

}  // namespace

void Require(bool holds, const char* rule) {
  if (holds) return;
  std::fprintf(stderr, "Broken rule: %s\n", rule);
  std::abort();
}

QByteArray Bytes(const std::uint8_t* data, std::size_t size) {
  return QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
}

bool SameNumber(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) ||
         (std::isnan(a) && std::isnan(b));
}

bool SameNumbers(const std::vector<double>& a, const std::vector<double>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), SameNumber);
}

std::size_t CountLines(const QByteArray& content, std::size_t heading) {
  const auto lines = static_cast<std::size_t>(Lines(content).size());
  return lines - std::min(lines, heading);
}

std::vector<std::vector<double>> ScanColumns(const QByteArray& content, std::size_t heading,
                                             std::size_t columns) {
  // strtod follows the locale, which Qt takes from the user.
  [[maybe_unused]] static const char* const classic = std::setlocale(LC_NUMERIC, "C");
  std::vector<std::vector<double>> table(columns);
  std::vector<double> values(columns);
  for (const QByteArray& line : Lines(content).mid(static_cast<qsizetype>(heading))) {
    ScanLine(line, values);
    for (std::size_t i = 0; i < columns; ++i) table[i].push_back(values[i]);
  }
  return table;
}

QByteArray WithWindowsLineEnds(const QByteArray& content) {
  QByteArray changed;
  char before = '\0';
  for (const char byte : content) {
    if (byte == '\n' && before != '\r') changed += '\r';
    changed += byte;
    before = byte;
  }
  return changed;
}

}  // namespace tremlo::fuzz
