#include "window/graphs/ExpEdit.h"

#include "window/graphs/EntryGate.h"
#include "window/graphs/ModalWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QScopedValueRollback>

namespace tremlo {

namespace {

/// Whether a key brings text into a line, as opposed to a command like Ctrl+C.
bool BringsText(const QKeyEvent& event) {
  const QString text = event.text();
  if (text.isEmpty()) return false;
  const auto keys = event.modifiers();
  if (keys == Qt::ControlModifier || keys == (Qt::ControlModifier | Qt::ShiftModifier)) return false;
  return text[0].isPrint() || text[0].isSurrogate();
}

}  // namespace

CExpEdit::CExpEdit(QWidget* parent)
    : QLineEdit(parent), m_gate(new EntryGate(this, [this] { return !m_dirty || FinishEntry(); })) {
  connect(this, &QLineEdit::textChanged, this, [this] {
    // The accessibility bus writes anywhere.
    if (!m_setting && (isReadOnly() || IsBehindModalWindow(this))) {
      SetText(QString(m_savedText));
      return;
    }
    m_dirty = true;
    m_cancelling = false;
    // Where the focus is elsewhere nobody will leave the field.
    if (!m_setting && !hasFocus())
      QMetaObject::invokeMethod(this, &CExpEdit::TakeWritten, Qt::QueuedConnection);
  });
}

void CExpEdit::TakeWritten() {
  if (!m_dirty || hasFocus()) return;
  if (IsBehindModalWindow(this)) {
    SetText(QString(m_savedText));
  } else {
    FinishEntry();
  }
}

void CExpEdit::SetLimits(double low, double high) {
  m_rule.minValue = low;
  m_rule.maxValue = high;
}

void CExpEdit::SetColors(const QColor& text, const QColor& back) {
  m_textColor = text;
  m_backColor = back;
  UpdateLook();
}

void CExpEdit::SetCancelButton(QWidget* button) {
  m_gate->SetCancelButton(button);
}

void CExpEdit::SetText(const QString& text) {
  const QScopedValueRollback setting(m_setting, true);
  setText(text);
  setCursorPosition(0);  // of a number too long for the field, the end alone would be another number
  m_savedText = text;
  m_dirty = false;
}

EntryState CExpEdit::State() const {
  if (hasSelectedText()) return {text(), selectionStart(), selectionLength()};
  return {text(), cursorPosition(), 0};
}

CExpEdit::Refusal CExpEdit::Check() const {
  const EntryFault fault = CheckEntry(m_rule, text());
  if (fault != EntryFault::None) return {QStringLiteral("入力確認"), EntryFaultText(m_rule, fault)};
  return {QStringLiteral("Tremlo"), m_ownerCheck ? m_ownerCheck(text()) : QString()};
}

bool CExpEdit::FinishEntry() {
  if (m_refusing) return false;
  const bool changed = m_dirty;
  const bool checked = m_dirty && !m_cancelling;
  m_dirty = false;
  if (checked) {
    Refusal refusal = Check();
    if (!refusal.text.isEmpty()) {
      Refuse(std::move(refusal));
      return false;
    }
  }
  if (m_rule.kind == EntryKind::Decimal) SetNumber(GetNumber());
  m_cancelling = false;
  m_savedText = text();
  if (checked)
    m_gate->RunBeforePress([this] { Q_EMIT Entered(); });
  else if (changed)
    Q_EMIT Abandoned();
  return true;
}

void CExpEdit::Refuse(Refusal refusal) {
  m_refusal = std::move(refusal);
  m_refusing = true;
  m_gate->SwallowPress();
  QMetaObject::invokeMethod(this, &CExpEdit::TellRefusal, Qt::QueuedConnection);
}

void CExpEdit::TellRefusal() {
  const QPointer<CExpEdit> self(this);
  if (isVisible()) m_show(window(), m_refusal.title, m_refusal.text);
  if (!self) return;
  SetText(m_savedText);
  if (isVisible()) setFocus(Qt::OtherFocusReason);
  m_refusing = false;
}

void CExpEdit::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  if (isReadOnly()) {
    focusNextPrevChild(event->reason() != Qt::BacktabFocusReason);
    return;
  }
  m_gate->SetOpen(true);
  if (event->reason() == Qt::PopupFocusReason) return;
  m_selectOnRelease = m_selectAllOnFocus && event->reason() == Qt::MouseFocusReason;
  if (m_selectAllOnFocus) selectAll();
  if (m_refusing) return;
  m_savedText = text();
  m_dirty = false;
  m_enterPressed = false;
}

void CExpEdit::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (event->reason() == Qt::PopupFocusReason || isReadOnly()) return;
  m_gate->SetOpen(false);
  if (m_refusing) return;
  if (m_gate->IsCancel(QApplication::focusWidget())) m_cancelling = true;
  FinishEntry();
}

void CExpEdit::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) m_cancelling = true;
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    m_enterPressed = true;
    if (!FinishEntry()) return;
  }
  if (isReadOnly() || !FilterKey(event)) QLineEdit::keyPressEvent(event);
}

bool CExpEdit::FilterKey(QKeyEvent* event) {
  if (event->matches(QKeySequence::Paste)) {
    PasteFrom(QClipboard::Clipboard);
    return true;
  }
  if (!BringsText(*event)) return false;
  const QString passed = FilterTyped(m_rule, State(), event->text());
  if (passed == event->text()) return false;
  if (!passed.isEmpty()) insert(passed);
  return true;
}

void CExpEdit::inputMethodEvent(QInputMethodEvent* event) {
  if (isReadOnly() || event->commitString().isEmpty()) {
    QLineEdit::inputMethodEvent(event);
    return;
  }
  EntryState state = State();
  if (event->replacementLength() > 0)
    state = {text(), cursorPosition() + event->replacementStart(), event->replacementLength()};
  const QString passed = FilterTyped(m_rule, state, event->commitString());
  QInputMethodEvent filtered(event->preeditString(), event->attributes());
  if (!passed.isEmpty())
    filtered.setCommitString(passed, event->replacementStart(), event->replacementLength());
  QLineEdit::inputMethodEvent(&filtered);
}

void CExpEdit::PasteFrom(QClipboard::Mode mode) {
  const QString pasted = PastedText(m_rule, QApplication::clipboard()->text(mode));
  if (pasted.isEmpty() || !FitsInto(m_rule, State(), pasted))
    QApplication::beep();
  else
    insert(pasted);
}

void CExpEdit::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::MiddleButton) {
    if (isReadOnly() || !QApplication::clipboard()->supportsSelection()) return;
    deselect();
    PasteFrom(QClipboard::Selection);
    return;
  }
  QLineEdit::mouseReleaseEvent(event);
  // The press that brought the focus has put the caret where it was.
  if (m_selectOnRelease && !hasSelectedText()) selectAll();
  m_selectOnRelease = false;
}

void CExpEdit::contextMenuEvent(QContextMenuEvent* event) {
  auto* const menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->setObjectName(QStringLiteral("menu"));
  menu->setAccessibleName(QStringLiteral("編集"));
  const auto add = [&](const QString& title, bool enabled, auto command) {
    menu->addAction(title, this, command)->setEnabled(enabled);
  };
  const bool writes = !isReadOnly();
  add(QStringLiteral("元に戻す(&U)"), writes && isUndoAvailable(), &CExpEdit::undo);
  menu->addSeparator();
  add(QStringLiteral("切り取り(&T)"), writes && hasSelectedText(), &CExpEdit::cut);
  add(QStringLiteral("コピー(&C)"), hasSelectedText(), &CExpEdit::copy);
  add(QStringLiteral("貼り付け(&P)"), writes, [this] { PasteFrom(QClipboard::Clipboard); });
  add(QStringLiteral("削除(&D)"), writes && hasSelectedText(), &CExpEdit::del);
  menu->addSeparator();
  add(QStringLiteral("すべて選択(&A)"), !text().isEmpty(), &CExpEdit::selectAll);
  menu->popup(event->globalPos());
}

void CExpEdit::dragEnterEvent(QDragEnterEvent* event) {
  // While the text is dragged over the field its selection goes.
  if (event->source() == this && hasSelectedText()) m_draggedFrom = selectionStart();
  QLineEdit::dragEnterEvent(event);
}

void CExpEdit::dropEvent(QDropEvent* event) {
  if (event->source() == this && !event->modifiers().testFlag(Qt::ControlModifier) && !isReadOnly()) {
    MoveText(m_draggedFrom, event->mimeData()->text(), cursorPositionAt(event->position().toPoint()));
    event->acceptProposedAction();
    return;
  }
  const QString dropped = PastedText(m_rule, event->mimeData()->text());
  if (isReadOnly() || dropped.isEmpty() || !FitsInto(m_rule, {text(), 0, 0}, dropped)) {
    QApplication::beep();
    event->ignore();
    return;
  }
  // Text that comes while the focus is elsewhere would never be checked.
  setFocus(Qt::OtherFocusReason);
  QMimeData carried;
  carried.setText(dropped);
  QDropEvent taken(event->position(), event->possibleActions(), &carried, event->buttons(),
                   event->modifiers());
  taken.setDropAction(event->dropAction());
  QLineEdit::dropEvent(&taken);
  event->setDropAction(taken.dropAction());
  event->setAccepted(taken.isAccepted());
}

/// Moved text counts once towards the limit: it is taken out before it is put back in.
void CExpEdit::MoveText(int from, const QString& moved, int to) {
  const int length = static_cast<int>(moved.size());
  const bool outside = to < from || to > from + length;
  if (from < 0 || text().mid(from, length) != moved) return;
  const int place = !outside ? from : to > from ? to - length : to;
  setSelection(from, length);
  if (outside) {
    del();
    setCursorPosition(place);
    insert(moved);
  }
  setSelection(place, length);
}

void CExpEdit::changeEvent(QEvent* event) {
  QLineEdit::changeEvent(event);
  const bool palette = event->type() == QEvent::PaletteChange && !m_updatingLook;
  if (palette || event->type() == QEvent::ReadOnlyChange) UpdateLook();
}

void CExpEdit::UpdateLook() {
  const QScopedValueRollback updating(m_updatingLook, true);
  QPalette colors;
  const QPalette standard = QApplication::palette(this);
  if (isReadOnly()) {
    colors.setBrush(QPalette::Base, standard.brush(QPalette::Window));
    colors.setBrush(QPalette::Text, standard.brush(QPalette::WindowText));
  } else if (m_backColor.isValid()) {
    colors.setColor(QPalette::Base, m_backColor);
  }
  if (m_textColor.isValid()) colors.setColor(QPalette::Text, m_textColor);
  setPalette(colors);
  setCursor(isReadOnly() ? Qt::ArrowCursor : Qt::IBeamCursor);
  setFocusPolicy(isReadOnly() ? Qt::NoFocus : Qt::StrongFocus);
}

}  // namespace tremlo
