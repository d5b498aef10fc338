#include "fuzz/PlainRecords.h"

#include <QList>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>

namespace tremlo::fuzz {

namespace {

using Components = std::optional<std::vector<PlainComponent>>;

/// Latin-1 keeps every byte for itself: the columns stay where they are.
QStringList Lines(const QByteArray& content) {
  QByteArray text = content;
  if (text.startsWith("\xEF\xBB\xBF")) text.remove(0, 3);
  text.replace("\r\n", "\n").replace('\r', '\n');
  QStringList lines = QString::fromLatin1(text).split(u'\n');
  while (!lines.isEmpty() && lines.back().trimmed().isEmpty()) lines.removeLast();
  return lines;
}

QString Line(const QStringList& lines, qsizetype index) {
  return index >= 0 && index < lines.size() ? lines[index] : QString();
}

/// A decimal number and nothing else.
bool Number(const QString& text, double& value) {
  static const QRegularExpression decimal(QStringLiteral(R"(^\s*[+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?\s*$)"),
                                          QRegularExpression::DontCaptureOption);
  bool sound = false;
  if (decimal.match(text).hasMatch()) value = text.trimmed().toDouble(&sound);
  return sound && std::isfinite(value);
}

double FactorOf(const QString& unit) {
  const QString plain = unit.toLower();
  if (plain == u"gal" || plain == u"cm/s2" || plain == u"cm/sec2" || plain == u"cm/s/s") return 1.0;
  if (plain == u"m/s2" || plain == u"m/s/s") return 100.0;
  if (plain == u"mm/s2") return 0.1;
  if (plain == u"in/s2") return 2.54;
  if (plain == u"mg") return 0.980665;
  return plain == u"g" ? 980.665 : 0.0;
}

/// Numbers of fixed width from line `at` on, which moves behind them.
bool Fields(const QStringList& lines, qsizetype& at, qsizetype count, qsizetype repeat, qsizetype width,
            std::vector<double>& values) {
  if (count < 0 || count > 100000 || repeat < 1 || width < 1) return false;
  for (; count > 0; ++at) {
    for (qsizetype i = 0; i < repeat && count > 0; ++i, --count) {
      double value = 0.0;
      if (!Number(Line(lines, at).mid(i * width, width), value)) return false;
      values.push_back(value);
    }
  }
  return true;
}

Components Knet(const QStringList& lines) {
  PlainComponent component;
  if (lines.size() < 18 || !lines[16].startsWith(u"Memo.")) return std::nullopt;
  static const QRegularExpression header(QStringLiteral("^[A-Z][A-Za-z]+[. (]"));
  static const QRegularExpression scale(QStringLiteral(R"(^Scale Factor\s+([\d.]+)\(gal\)/([\d.]+)\s*$)"));
  int scales = 0;
  for (qsizetype i = 0; i < 17; ++i) {
    if (!header.match(lines[i]).hasMatch()) return std::nullopt;
    // A second such line would be a matter of taste.
    if (i < 16 && lines[i].startsWith(u"Memo")) return std::nullopt;
    const auto match = scale.match(lines[i]);
    if (!match.hasMatch()) continue;
    ++scales;
    if (!Number(match.captured(1), component.numerator) || !Number(match.captured(2), component.denominator))
      return std::nullopt;
  }
  if (scales != 1) return std::nullopt;
  for (const QString& line : lines.mid(17))
    for (const QString& word : line.split(u' ', Qt::SkipEmptyParts)) {
      bool sound = false;
      component.values.push_back(static_cast<double>(word.toLongLong(&sound)));
      if (!sound) return std::nullopt;
    }
  return std::vector{component};
}

/// Rows of cells from a line on, the first `skipped` columns left out.
Components Rows(const QStringList& lines, qsizetype first, qsizetype skipped, const QList<double>& factors) {
  std::vector<PlainComponent> components(static_cast<std::size_t>(factors.size()));
  for (qsizetype i = 0; i < factors.size(); ++i)
    components[static_cast<std::size_t>(i)].numerator = factors[i];
  for (const QString& line : lines.mid(first)) {
    const QStringList cells = line.split(u',');
    for (qsizetype i = 0; i < factors.size(); ++i) {
      double value = 0.0;
      if (!Number(cells.value(i + skipped), value)) return std::nullopt;
      components[static_cast<std::size_t>(i)].values.push_back(value);
    }
  }
  return components;
}

Components KnetCsv(const QStringList& lines) {
  qsizetype first = 0;
  QString names;
  while (first < lines.size() && lines[first].startsWith(u'#')) {
    if (lines[first].startsWith(u"#Time,RelativeTime")) names = lines[first];
    ++first;
  }
  static const QRegularExpression named(QStringLiteral(R"(^[^()]+\(([^()]+)\)$)"));
  QList<double> factors;
  for (const QString& name : names.split(u',').mid(2)) {
    const double factor = FactorOf(named.match(name).captured(1));
    if (factor == 0.0) return std::nullopt;
    factors << factor;
  }
  return Rows(lines, first, 2, factors);
}

Components JmaCsv(const QStringList& lines) {
  double factor = 0.0;
  static const QRegularExpression unit(QStringLiteral(R"(^ *UNIT *= *([a-zA-Z0-9/]+) *[(,]?)"));
  for (qsizetype i = 0; i < std::min<qsizetype>(lines.size(), 12); ++i) {
    const auto match = unit.match(lines[i]);
    if (match.hasMatch()) factor = FactorOf(match.captured(1));
    QStringList names;
    for (const QString& cell : lines[i].split(u',', Qt::SkipEmptyParts)) names << cell.trimmed();
    names.removeAll(QString());
    const bool directions =
        !names.isEmpty() && std::all_of(names.begin(), names.end(), [](const QString& name) {
          return name == u"NS" || name == u"EW" || name == u"UD";
        });
    if (!directions) continue;
    if (factor == 0.0) return std::nullopt;
    return Rows(lines, i + 1, 0, QList<double>(names.size(), factor));
  }
  return std::nullopt;
}

Components At2(const QStringList& lines) {
  static const QRegularExpression counted(
      QStringLiteral(R"(^\s*NPTS\s*=\s*(\d{1,6})\s*,\s*DT\s*=\s*([\d.]+)\s*SEC)"));
  static const QRegularExpression unit(QStringLiteral(R"(^ACCELERATION[A-Z ]* IN UNITS OF ([A-Z0-9/]+)\b)"));
  const auto isOdd = [](const QString& line) {
    return line.contains(u"NPTS", Qt::CaseInsensitive) || line.contains(u"UNITS OF", Qt::CaseInsensitive);
  };
  if (lines.size() < 5 || isOdd(lines[0]) || isOdd(lines[1])) return std::nullopt;
  const auto count = counted.match(lines[3]);
  const auto stated = unit.match(lines[2]);
  if (!count.hasMatch() || !stated.hasMatch()) return std::nullopt;
  PlainComponent component;
  component.numerator = FactorOf(stated.captured(1));
  if (component.numerator == 0.0) return std::nullopt;
  static const QRegularExpression blanks(QStringLiteral("[ \t]+"));
  for (const QString& line : lines.mid(4))
    for (const QString& word : line.split(blanks, Qt::SkipEmptyParts)) {
      double value = 0.0;
      if (!Number(word, value)) return std::nullopt;
      component.values.push_back(value);
    }
  const std::size_t announced = count.captured(1).toULongLong();
  if (announced == 0) return std::nullopt;
  component.values.resize(std::min(announced, component.values.size()));
  return std::vector{component};
}

Components Cosmos(const QStringList& lines) {
  static const QRegularExpression block(QStringLiteral(
      R"(^ *100 (Integer|Real)-header values follow on +\d+ lines, Format *= *\((\d+)[IF](\d+)[.)])"));
  static const QRegularExpression comment(QStringLiteral(R"(^ *(\d{1,3}) Comment line)"));
  static const QRegularExpression data(
      QStringLiteral(R"(^ *(\d{1,6}) [^=]*units=[^(]*\((\d+)\),Format=\((\d+)[FEI](\d+)[.)])"));
  static const std::array<double, 12> factors = {0, 0, 980.665, 0, 1, 0, 0, 2.54, 0, 0, 1, 0.980665};
  std::vector<PlainComponent> components;
  for (qsizetype at = 0; at < lines.size(); ++at) {
    if (!lines[at].contains(u" with 13 text lines")) return std::nullopt;
    at += 13;
    for (const char* kind : {"Integer", "Real"}) {
      const auto match = block.match(Line(lines, at));
      std::vector<double> header;
      if (!match.hasMatch() || match.captured(1) != QLatin1String(kind)) return std::nullopt;
      if (!Fields(lines, ++at, 100, match.captured(2).toInt(), match.captured(3).toInt(), header))
        return std::nullopt;
    }
    const auto comments = comment.match(Line(lines, at));
    if (comments.hasMatch()) at += comments.captured(1).toInt() + 1;
    const auto match = data.match(Line(lines, at));
    if (!match.hasMatch()) return std::nullopt;
    const std::size_t code = match.captured(2).toULongLong();
    PlainComponent component;
    component.numerator = code < factors.size() ? factors[code] : 0.0;
    if (component.numerator == 0.0 ||
        !Fields(lines, ++at, match.captured(1).toInt(), match.captured(3).toInt(), match.captured(4).toInt(),
                component.values))
      return std::nullopt;
    const QString end = Line(lines, at).trimmed();
    if (!end.startsWith(u"End-of-data") && !end.startsWith(u"/&")) return std::nullopt;
    components.push_back(component);
  }
  return components;
}

Components Csmip(const QStringList& lines) {
  static const QRegularExpression data(
      QStringLiteral(R"(^ *(\d{1,6}) points of (accel|veloc|displ) data equally spaced at +[\d.]+ sec, in )"
                     R"(([a-z0-9/]+)\. +\((\d+)f(\d+)\.)"));
  std::vector<PlainComponent> components;
  for (qsizetype at = 0; at < lines.size(); ++at) {
    at += 45;
    for (const char* kind : {"accel", "veloc", "displ"}) {
      const auto match = data.match(Line(lines, at));
      PlainComponent component;
      if (!match.hasMatch() || match.captured(2) != QLatin1String(kind) ||
          !Fields(lines, ++at, match.captured(1).toInt(), match.captured(4).toInt(),
                  match.captured(5).toInt(), component.values))
        return std::nullopt;
      if (match.captured(2) != u"accel") continue;
      component.numerator = FactorOf(match.captured(3));
      if (component.numerator == 0.0) return std::nullopt;
      components.push_back(component);
    }
    if (!Line(lines, at).trimmed().startsWith(u"/&")) return std::nullopt;
  }
  return components;
}

Components GeoNet(const QStringList& lines) {
  std::vector<PlainComponent> components;
  for (qsizetype at = 0; at < lines.size();) {
    if (lines[at].trimmed().isEmpty() || !lines[at].contains(u"ccelerogram")) return std::nullopt;
    at += 16;
    std::vector<double> whole;
    std::vector<double> real;
    if (!Fields(lines, at, 40, 10, 8, whole) || !Fields(lines, at, 60, 10, 8, real)) return std::nullopt;
    PlainComponent component;
    component.numerator = 0.1;
    for (std::size_t i = 33; i < 36; ++i) {
      if (whole[i] < 0.0 || whole[i] > 1e5 || whole[i] != std::floor(whole[i])) return std::nullopt;
      std::vector<double> rest;
      if (!Fields(lines, at, static_cast<qsizetype>(whole[i]), 10, 8, i == 33 ? component.values : rest))
        return std::nullopt;
    }
    components.push_back(component);
  }
  return components;
}

/// Header lines with a letter each, the last of them titles of columns; rows of plain numbers to the end.
Components FreeText(const QStringList& lines) {
  static const QRegularExpression blanks(QStringLiteral("[ \t]+"));
  const auto numbers = [](const QString& line, std::vector<double>& values) {
    for (const QString& word : line.split(blanks, Qt::SkipEmptyParts)) {
      double value = 0.0;
      if (!Number(word, value)) return false;
      values.push_back(value);
    }
    return !values.empty();
  };
  static const QRegularExpression letter(QStringLiteral("[a-df-zA-DF-Z]"));
  static const QRegularExpression unit(QStringLiteral(R"(\bgal\b)"));
  static const QRegularExpression otherUnit(QStringLiteral(R"(/s|\bg\b|mg|[\x80-\xFF(\[])"),
                                            QRegularExpression::CaseInsensitiveOption);
  qsizetype first = 0;
  bool gal = false;
  while (first < lines.size() && letter.match(lines[first]).hasMatch()) {
    if (otherUnit.match(lines[first]).hasMatch()) return std::nullopt;
    gal = gal || unit.match(lines[first]).hasMatch();
    ++first;
  }
  if (!gal || first == 0 || lines.size() - first < 10) return std::nullopt;
  std::vector<PlainComponent> components;
  for (const QString& line : lines.mid(first)) {
    std::vector<double> values;
    // Markers and short rows are matters of their own.
    if (line.contains(u'9') || !numbers(line, values)) return std::nullopt;
    if (components.empty()) components.resize(values.size());
    if (values.size() != components.size() || values.size() > 2) return std::nullopt;
    for (std::size_t i = 0; i < values.size(); ++i) components[i].values.push_back(values[i]);
  }
  if (components.size() == 2) components.erase(components.begin());  // times
  return components;
}

}  // namespace

Components ReadPlainly(const QByteArray& content, RecordFormat format) {
  if (content.contains('\0') || content.startsWith("\xFF\xFE") || content.startsWith("\xFE\xFF"))
    return std::nullopt;
  const QStringList lines = Lines(content);
  switch (format) {
    case RecordFormat::KnetAscii:
    case RecordFormat::KikNetAscii:
      return Knet(lines);
    case RecordFormat::KnetCsv:
      return KnetCsv(lines);
    case RecordFormat::JmaCsv:
      return JmaCsv(lines);
    case RecordFormat::Cosmos:
      return Cosmos(lines);
    case RecordFormat::Csmip:
      return Csmip(lines);
    case RecordFormat::GeoNet:
      return GeoNet(lines);
    case RecordFormat::At2:
      return At2(lines);
    case RecordFormat::FreeText:
      return FreeText(lines);
    case RecordFormat::OwnWave:
    case RecordFormat::Unknown:
      break;
  }
  return std::nullopt;
}

}  // namespace tremlo::fuzz
