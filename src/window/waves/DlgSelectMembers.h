#pragma once

#include "core/ask/Prompt.h"
#include "core/records/RecordList.h"

#include <QDialog>

#include <memory>

class QLabel;

namespace tremlo {

class CExpEdit;
class CSpread7;
class MemberRows;

/// Asks which members of an archive are to be read. A search narrows the list.
class CDlgSelectMembers : public QDialog {
  Q_OBJECT
 public:
  /// `onlyOne`: a single member is to be chosen. List and prompt outlive the dialog.
  CDlgSelectMembers(const MemberList& list, bool onlyOne, Prompt& prompt, QWidget* parent);
  ~CDlgSelectMembers() override;

  /// Places in the list, in rising order; not empty once accepted.
  std::vector<std::size_t> Chosen() const;

  void accept() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QWidget* MakeSearch();
  void MakeGrid();
  QWidget* MakeChoice(bool onlyOne);
  void ShowRows();
  void ShowCount();

  const MemberList& m_list;
  Prompt& m_prompt;
  std::shared_ptr<MemberRows> m_rows;
  CExpEdit* m_searchEdit;
  CSpread7* m_grid;
  QLabel* m_count;
};

}  // namespace tremlo
