#pragma once

#include "core/shell/QuestionRound.h"

#include <QDialog>
#include <QSvgRenderer>

#include <functional>

class QHBoxLayout;
class QLabel;

namespace tremlo {

class CExpButton;

/// The dialog of a question of the chart. All of them have the same size, so that one takes the place of the
/// other; their names for programs are those of ChartQuestionRow.
class CPropertyQa : public QDialog {
  Q_OBJECT
 public:
  /// `mayCancel` asks whether the dialog may be cancelled.
  CPropertyQa(ChartQuestion question, std::function<bool()> mayCancel, QWidget* parent = nullptr);

  /// The picture is there.
  bool CanBeShown() const { return m_picture.isValid(); }
  /// How the dialog was closed, and where it stood then.
  QuestionEnd End() const;
  QPoint Place() const { return m_place; }

  /// Shows the dialog at `place`, with which it is closed, and waits for it.
  static QuestionEnd Ask(ChartQuestion question, const std::function<bool()>& mayCancel, QPoint& place,
                         QWidget* parent);
  /// The size of all of them, without the window manager's frame.
  static QSize DialogSize();

  void done(int result) override;
  void reject() override;

 private:
  QWidget* MakeBody(const ChartQuestionRow& row);
  QHBoxLayout* MakeButtons(const ChartQuestionRow& row);
  CExpButton* AddButton(const char* name, const char16_t* text, QRgb face, void (CPropertyQa::*press)());
  void PressYes();
  void PressNo();
  void PressBack();

  std::function<bool()> m_mayCancel;
  QSvgRenderer m_picture;
  QPoint m_place;
  bool m_answerYes = false;
  bool m_wentBack = false;
};

}  // namespace tremlo
