#pragma once

#include "core/graphs/NumericText.h"
#include "window/graphs/MessageBox.h"

#include <QClipboard>
#include <QColor>
#include <QLineEdit>

namespace tremlo {

class EntryGate;

/// The entry field of every dialog and screen: text, whole number or decimal. It drops what its kind does not
/// take while it is typed, and checks a changed text when it is left, by the focus or by Return. A refused
/// entry is told in one box, then the old text and the focus come back, and the press that left the field has
/// no effect.
///
/// What the program sets by SetText and SetNumber is never checked and tells nothing.
class CExpEdit : public QLineEdit {
  Q_OBJECT
 public:
  /// Why the owner refuses a changed text that has passed the field's own check; empty if it does not.
  using OwnerCheck = std::function<QString(const QString& text)>;

  explicit CExpEdit(QWidget* parent = nullptr);

  const EntryRule& Rule() const { return m_rule; }
  void SetRule(const EntryRule& rule) { m_rule = rule; }
  void SetKind(EntryKind kind) { m_rule.kind = kind; }
  void SetMaxBytes(std::int32_t bytes) { m_rule.maxBytes = bytes; }
  void SetLimits(double low, double high);
  void SetEmptyValue(double value) { m_rule.emptyValue = value; }
  void SetDecimals(std::int32_t decimals) { m_rule.decimals = decimals; }
  void SetSelectAllOnFocus(bool on) { m_selectAllOnFocus = on; }
  /// A color that is not valid leaves the palette's own.
  void SetColors(const QColor& text, const QColor& back);
  void SetOwnerCheck(OwnerCheck check) { m_ownerCheck = std::move(check); }
  void SetShowWarning(ShowWarning show) { m_show = std::move(show); }
  /// The button that leaves the field without a check. One that rejects its QDialogButtonBox is known as
  /// such.
  void SetCancelButton(QWidget* button);

  void SetText(const QString& text);
  QString GetText() const { return text(); }
  void SetNumber(double value) { SetText(EntryText(m_rule, value)); }
  double GetNumber() const { return EntryNumber(m_rule, text()); }

  bool IsDirty() const { return m_dirty; }  ///< changed since the focus came
  bool EnterPressed() const { return m_enterPressed; }
  void SetEnterPressed(bool pressed) { m_enterPressed = pressed; }

  /// Does what leaving the field does: for commands that can come without it. False after a refusal, which is
  /// told from the event loop.
  bool FinishEntry();

 Q_SIGNALS:
  void Entered();    ///< a changed text has passed the check
  void Abandoned();  ///< a changed text was left without a check: the owner's value still holds

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  struct Refusal {
    QString title, text;
  };

  EntryState State() const;
  /// Enters what the accessibility bus has written without bringing the focus.
  void TakeWritten();
  bool FilterKey(QKeyEvent* event);
  Refusal Check() const;
  void Refuse(Refusal refusal);
  void TellRefusal();
  void PasteFrom(QClipboard::Mode mode);
  void MoveText(int from, const QString& moved, int to);
  void UpdateLook();

  EntryRule m_rule;
  QColor m_textColor, m_backColor;
  OwnerCheck m_ownerCheck;
  ShowWarning m_show = ShowWarningBox;
  EntryGate* m_gate;
  QString m_savedText;
  Refusal m_refusal;
  bool m_setting = false;  ///< the program sets the text
  bool m_dirty = false;
  bool m_cancelling = false;  ///< the focus goes to the cancel button, or Esc was pressed last
  bool m_enterPressed = false;
  bool m_selectAllOnFocus = true;
  bool m_selectOnRelease = false;
  bool m_updatingLook = false;
  int m_draggedFrom = -1;   ///< where the selection began that is dragged
  bool m_refusing = false;  ///< from a refusal until text and focus are back
};

}  // namespace tremlo
