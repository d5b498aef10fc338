#include "core/graphs/MemberRows.h"

#include "core/graphs/CellNumber.h"

#include <algorithm>

namespace tremlo {

namespace {

enum Columns { kChosenColumn = MemberRows::kChosen, kStation, kComponents, kFormat, kPath };

QString FormatOf(const ListedMember& member) {
  return member.isRecord ? FormatName(member.format) : QStringLiteral("記録ではありません");
}

}  // namespace

MemberRows::MemberRows(const MemberList& list, bool onlyOne)
    : TitledRows({{u"読込", CellType::Check}, {u"観測点"}, {u"成分"}, {u"形式"}, {u"ファイル"}}),
      m_list(list),
      m_onlyOne(onlyOne),
      m_chosen(list.members.size(), false) {
  Search({});
}

CellFormat MemberRows::Format(int row, int column) const {
  CellFormat format = TitledRows::Format(row, column);
  if (column == kChosen && row >= 1 && row <= RowCount() && !MemberOf(row).isRecord) format.locked = true;
  return format;
}

void MemberRows::Search(const QString& words) {
  const QStringList wanted = words.split(u' ', Qt::SkipEmptyParts);
  m_shown.clear();
  for (std::size_t i = 0; i < m_list.members.size(); ++i) {
    const ListedMember& member = m_list.members[i];
    const QString text =
        QStringList{member.station, member.components, FormatOf(member), member.path}.join(u'\n');
    if (std::all_of(wanted.begin(), wanted.end(),
                    [&](const QString& word) { return text.contains(word, Qt::CaseInsensitive); }))
      m_shown.push_back(i);
  }
}

void MemberRows::ChooseShown(bool chosen) {
  for (const std::size_t place : m_shown)
    if (m_list.members[place].isRecord) m_chosen[place] = chosen;
}

std::vector<std::size_t> MemberRows::Chosen() const {
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < m_chosen.size(); ++i)
    if (m_chosen[i]) places.push_back(i);
  return places;
}

QString MemberRows::CellText(int row, int column) const {
  const ListedMember& member = MemberOf(row);
  switch (column) {
    case kChosenColumn:
      return CheckText(m_chosen[m_shown[static_cast<std::size_t>(row - 1)]]);
    case kStation:
      return member.station;
    case kComponents:
      return member.components;
    case kFormat:
      return FormatOf(member);
    case kPath: {
      QString shown = member.path;
      for (QChar& unit : shown)
        if (unit < u' ') unit = u'_';
      return shown;
    }
    default:
      return {};
  }
}

void MemberRows::Take(int row, int /*column*/, const QString& text) {
  const std::size_t place = m_shown[static_cast<std::size_t>(row - 1)];
  if (m_onlyOne) std::fill(m_chosen.begin(), m_chosen.end(), false);
  m_chosen[place] = IsCheckedText(text);
}

}  // namespace tremlo
