#include "core/batch/BatchText.h"

#include "core/files/Cp932Text.h"
#include "core/files/TextScan.h"

#include <QUtf8StringView>

#include <algorithm>
#include <string_view>

namespace tremlo {

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

std::string_view BytesOf(const QByteArray& content) {
  return {content.constData(), static_cast<std::size_t>(content.size())};
}

QString CellText(QString text) {
  for (QChar& unit : text)
    if (unit == u'\n' || unit == u'\r') unit = u' ';
  const bool quoted =
      text.contains(u',') || text.contains(u'"') || (!text.isEmpty() && text.trimmed().size() != text.size());
  if (!quoted) return text;
  text.replace(u'"', QStringLiteral("\"\""));
  return u'"' + text + u'"';
}

/// The cell in quotes that begins at `place`, which moves behind the closing one.
std::optional<QString> QuotedCell(const QString& line, qsizetype& place) {
  QString cell;
  for (++place; place < line.size(); ++place) {
    if (line[place] != u'"') {
      cell += line[place];
    } else if (place + 1 < line.size() && line[place + 1] == u'"') {
      cell += line[++place];
    } else {
      ++place;
      return cell;
    }
  }
  return std::nullopt;
}

void SkipBlanks(const QString& line, qsizetype& place) {
  while (place < line.size() && line[place].isSpace()) ++place;
}

}  // namespace

BatchEncoding EncodingOf(const QByteArray& content) {
  if (BytesOf(content).starts_with(kUtf8Mark)) return BatchEncoding::Utf8WithMark;
  return QUtf8StringView(content.constData(), content.size()).isValidUtf8() ? BatchEncoding::Utf8
                                                                            : BatchEncoding::Cp932;
}

QStringList LinesOf(const QByteArray& content) {
  const BatchEncoding encoding = EncodingOf(content);
  std::string_view bytes = BytesOf(content);
  if (encoding == BatchEncoding::Utf8WithMark) bytes.remove_prefix(kUtf8Mark.size());
  LineReader reader(bytes);
  QStringList lines;
  for (std::string_view line; reader.Next(line);)
    lines << (encoding == BatchEncoding::Cp932
                  ? DecodeCp932(line)
                  : QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size())));
  return lines;
}

std::string Encoded(const QString& text, BatchEncoding encoding) {
  return encoding == BatchEncoding::Cp932 ? EncodeCp932(text) : text.toStdString();
}

std::string MarkOf(BatchEncoding encoding) {
  return encoding == BatchEncoding::Utf8WithMark ? std::string(kUtf8Mark) : std::string();
}

std::optional<QStringList> CellsOf(const QString& line) {
  QStringList cells;
  for (qsizetype place = 0;; ++place) {
    SkipBlanks(line, place);
    if (place < line.size() && line[place] == u'"') {
      const std::optional<QString> cell = QuotedCell(line, place);
      SkipBlanks(line, place);
      if (!cell || (place < line.size() && line[place] != u',')) return std::nullopt;
      cells << *cell;
    } else {
      const qsizetype comma = line.indexOf(u',', place);
      const qsizetype end = comma < 0 ? line.size() : comma;
      cells << line.mid(place, end - place).trimmed();
      place = end;
    }
    if (place >= line.size()) return cells;
  }
}

QString LineOf(const QStringList& cells) {
  QStringList texts;
  for (const QString& cell : cells) texts << CellText(cell);
  return texts.join(u',');
}

}  // namespace tremlo
