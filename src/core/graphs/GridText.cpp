#include "core/graphs/GridText.h"

namespace tremlo {

namespace {

constexpr QChar kQuote = u'"';

bool IsLineEnd(QChar c) {
  return c == u'\n' || c == u'\r';
}

class GridTextReader {
 public:
  GridTextReader(const QString& text, QChar separator) : m_text(text), m_separator(separator) {}

  GridText Read() {
    GridText lines;
    while (m_at < m_text.size()) lines.push_back(ReadLine());
    return lines;
  }

 private:
  bool AtFieldEnd(qsizetype at) const {
    return at >= m_text.size() || m_text[at] == m_separator || IsLineEnd(m_text[at]);
  }

  QStringList ReadLine() {
    QStringList fields{ReadField()};
    while (m_at < m_text.size() && m_text[m_at] == m_separator) {
      ++m_at;
      fields.append(ReadField());
    }
    SkipLineEnd();
    return fields;
  }

  void SkipLineEnd() {
    const bool twoCharacters = m_at + 1 < m_text.size() && m_text[m_at] == u'\r' && m_text[m_at + 1] == u'\n';
    m_at += twoCharacters ? 2 : 1;
  }

  QString ReadField() {
    QString quoted;
    if (ReadQuoted(quoted)) return quoted;
    const qsizetype start = m_at;
    while (!AtFieldEnd(m_at)) ++m_at;
    return m_text.mid(start, m_at - start);
  }

  /// Takes a field between quotation marks; false, and nothing taken, if what stands here is none.
  bool ReadQuoted(QString& field) {
    if (m_at >= m_text.size() || m_text[m_at] != kQuote) return false;
    for (qsizetype at = m_at + 1; at < m_text.size(); ++at) {
      if (m_text[at] == kQuote) {
        if (at + 1 >= m_text.size() || m_text[at + 1] != kQuote) {
          if (!AtFieldEnd(at + 1)) return false;
          m_at = at + 1;
          return true;
        }
        ++at;
      }
      field.append(m_text[at]);
    }
    return false;
  }

  const QString& m_text;
  QChar m_separator;
  qsizetype m_at = 0;
};

void AppendField(QString& text, const QString& field) {
  const bool plain =
      !field.startsWith(kQuote) && !field.contains(u'\t') && !field.contains(u'\n') && !field.contains(u'\r');
  if (plain) {
    text += field;
    return;
  }
  QString inner = field;
  text += kQuote + inner.replace(kQuote, QStringLiteral("\"\"")) + kQuote;
}

}  // namespace

GridText ParseGridText(const QString& text, FieldSeparator separator) {
  const bool commas = separator == FieldSeparator::TabOrComma && !text.contains(u'\t');
  return GridTextReader(text, commas ? u',' : u'\t').Read();
}

QString FormatGridText(const GridText& lines) {
  QString text;
  for (const QStringList& fields : lines) {
    for (qsizetype i = 0; i < fields.size(); ++i) {
      if (i > 0) text += u'\t';
      AppendField(text, fields[i]);
    }
    text += u'\n';
  }
  const bool singleField = lines.size() == 1 && lines.front().size() == 1;
  if (singleField && text.size() > 1) text.chop(1);
  return text;
}

}  // namespace tremlo
