#pragma once

#include "core/graphs/TitledRows.h"
#include "core/records/RecordList.h"

namespace tremlo {

/// The grid of an archive's members, of which the user chooses those to be read: all of them, or those that
/// have every word of a search. What is chosen stays so while the search hides it.
class MemberRows : public TitledRows {
 public:
  static constexpr int kChosen = 1;

  /// Starts with nothing chosen. `onlyOne`: a single member is to be chosen.
  MemberRows(const MemberList& list, bool onlyOne);

  int RowCount() const override { return static_cast<int>(m_shown.size()); }
  CellFormat Format(int row, int column) const override;

  /// Words between blanks, whatever their case, in station, component, format or path.
  void Search(const QString& words);
  /// Every record among the rows.
  void ChooseShown(bool chosen);
  /// Places in the list, in rising order.
  std::vector<std::size_t> Chosen() const;

 protected:
  QString CellText(int row, int column) const override;
  void Take(int row, int column, const QString& text) override;

 private:
  const ListedMember& MemberOf(int row) const {
    return m_list.members[m_shown[static_cast<std::size_t>(row - 1)]];
  }

  const MemberList& m_list;
  bool m_onlyOne;
  std::vector<bool> m_chosen;
  std::vector<std::size_t> m_shown;  ///< places in the list
};

}  // namespace tremlo
