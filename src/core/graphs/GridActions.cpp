#include "core/graphs/GridActions.h"

#include "core/graphs/CellNumber.h"
#include "core/graphs/ColorText.h"

#include <algorithm>

namespace tremlo {

namespace {

using Reason = GridRefusal::Reason;

constexpr qsizetype kLongestQuotation = 60;

QString ReasonText(Reason reason) {
  switch (reason) {
    case Reason::TooLarge:
      return QStringLiteral("数値が大きすぎます。");
    case Reason::NoNumber:
      return QStringLiteral("数値として読めません。");
    case Reason::NoChoice:
      return QStringLiteral("選択肢にない値です。");
    case Reason::PastColumns:
      return QStringLiteral("貼り付ける列が表に入りきりません。");
    case Reason::PastRows:
      return QStringLiteral("貼り付ける行が表に入りきりません。");
    case Reason::UnclearComma:
      break;
  }
  return QStringLiteral(
      "コンマが桁区切りか列の区切りか判断できません。\n"
      "（桁区切りのコンマを除くか、列をタブで区切ってください。）");
}

QString TitleOr(const QString& title, int number) {
  return title.isEmpty() ? QString::number(number) : title;
}

bool IsLineEnd(QChar c) {
  return c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

/// A text without its line ends, those within it being blanks: a cell shows one line.
QString OneLine(const QString& text) {
  if (std::none_of(text.begin(), text.end(), IsLineEnd)) return text;
  QString line;
  bool behindLine = false;
  for (const QChar c : text) {
    if (IsLineEnd(c)) {
      behindLine = true;
      continue;
    }
    if (behindLine && !line.isEmpty()) line += u' ';
    behindLine = false;
    line += c;
  }
  return line;
}

CellAnswer NumberAnswer(const QString& text) {
  const NumberReading reading = ReadNumber(text);
  switch (reading.fault) {
    case NumberFault::TooLarge:
      return {{}, Reason::TooLarge};
    case NumberFault::Unclear:
      return {{}, Reason::NoNumber};
    case NumberFault::None:
      break;
  }
  return {reading.text, {}};
}

}  // namespace

QString RefusalText(const GridData& data, const GridRefusal& refusal) {
  const bool known = refusal.row <= data.RowCount();
  QString text = ReasonText(refusal.reason) + QStringLiteral("\n\n行：") +
                 TitleOr(known ? data.Text(refusal.row, 0) : QString(), refusal.row);
  if (refusal.column > 0)
    text += QStringLiteral("\n列：") + TitleOr(data.Text(0, refusal.column), refusal.column);
  const bool isLong = refusal.text.size() > kLongestQuotation;
  text += QStringLiteral("\n内容：") + refusal.text.left(kLongestQuotation).simplified();
  return isLong ? text + u'…' : text;
}

CellAnswer AnswerOfCell(const GridData& data, int row, int column, const QString& text) {
  const CellFormat format = data.Format(row, column);
  if (format.locked) return {};
  const auto ifTaken = [&](bool takes) -> CellAnswer {
    if (takes) return {text, {}};
    return text.isEmpty() ? CellAnswer() : CellAnswer{{}, Reason::NoChoice};
  };
  switch (format.type) {
    case CellType::Text:
      return {OneLine(text), {}};
    case CellType::Number:
      return NumberAnswer(text);
    case CellType::List:
      return ifTaken(format.choices.contains(text));
    case CellType::Check:
      return ifTaken(text == QStringLiteral("1") || text == QStringLiteral("0"));
    case CellType::Color:
      return ifTaken(TextToColor(text).has_value());
  }
  return {};
}

GridText CopyCells(const GridData& data, const GridBlock& block) {
  GridText lines;
  if (block.IsEmpty()) return lines;
  lines.reserve(static_cast<std::size_t>(block.RowCount()));
  for (int row = block.top; row <= block.bottom; ++row) {
    QStringList fields;
    for (int column = block.left; column <= block.right; ++column) fields.append(data.ExactText(row, column));
    lines.push_back(std::move(fields));
  }
  return lines;
}

bool HasClearableCell(const GridData& data, const GridBlock& block) {
  if (block.IsEmpty()) return false;
  for (int row = block.top; row <= block.bottom; ++row)
    for (int column = block.left; column <= block.right; ++column)
      if (AnswerOfCell(data, row, column, QString()).text) return true;
  return false;
}

void ClearCells(GridData& data, const GridBlock& block) {
  if (block.IsEmpty()) return;
  for (int row = block.top; row <= block.bottom; ++row)
    for (int column = block.left; column <= block.right; ++column)
      if (AnswerOfCell(data, row, column, QString()).text) data.SetText(row, column, QString());
}

int FirstOpenColumn(const GridData& data) {
  for (int column = 1; column <= data.ColumnCount(); ++column)
    if (!data.Format(data.RowCount() + 1, column).locked) return column;
  return 1;
}

}  // namespace tremlo
