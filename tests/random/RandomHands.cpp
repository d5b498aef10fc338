#include "random/RandomHands.h"

#include "support/LocalService.h"
#include "window/graphs/Spread7.h"
#include "window/shell/MainFrame.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QComboBox>
#include <QFileDialog>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

namespace tremlo::test {

namespace {

const std::vector<Qt::Key> kKeys{
    Qt::Key_Tab,    Qt::Key_Tab,    Qt::Key_Backtab,  Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape,
    Qt::Key_Space,  Qt::Key_Left,   Qt::Key_Right,    Qt::Key_Up,     Qt::Key_Down,  Qt::Key_Home,
    Qt::Key_End,    Qt::Key_PageUp, Qt::Key_F2,       Qt::Key_Plus,   Qt::Key_Minus, Qt::Key_Delete,
    Qt::Key_Insert, Qt::Key_F10,    Qt::Key_PageDown, Qt::Key_1,      Qt::Key_A,     Qt::Key_Backspace};
const std::vector<Qt::Key> kCommandKeys{Qt::Key_A, Qt::Key_C,      Qt::Key_X,   Qt::Key_V,
                                        Qt::Key_Z, Qt::Key_N,      Qt::Key_O,   Qt::Key_S,
                                        Qt::Key_S, Qt::Key_Insert, Qt::Key_End, Qt::Key_Home};

QString KeyName(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  return (modifiers & Qt::ControlModifier ? QStringLiteral("Ctrl+") : QString()) +
         (modifiers & Qt::ShiftModifier ? QStringLiteral("Shift+") : QString()) +
         QString::fromLatin1(QMetaEnum::fromType<Qt::Key>().valueToKey(key));
}

}  // namespace

RandomHands::RandomHands(RandomSource& random, Diary& diary, SampleFolder& samples, RandomFiles& files,
                         LocalService& service)
    : m_random(random), m_diary(diary), m_samples(samples), m_files(files), m_service(service) {}

const std::vector<RandomHands::Choice>& RandomHands::Choices() {
  static const std::vector<Choice> kChoices{
      {22, &RandomHands::ClickSomeButton, false},
      {14, &RandomHands::TypeSomewhere, false},
      {4, &RandomHands::ChooseInCombo, false},
      {16, &RandomHands::WorkGrid, false},
      {8, &RandomHands::TickSomeCell, false},
      {6, &RandomHands::DragSomewhere, false},
      {3, &RandomHands::Wheel, false},
      {2, &RandomHands::OpenContextMenu, false},
      {10, &RandomHands::PressKey, false},
      {6, &RandomHands::UseBus, false},
      {2, &RandomHands::FillClipboard, false},
      {6, &RandomHands::TriggerEntry, true},
      {2, &RandomHands::DropSomeFile, true},
      {2, &RandomHands::HandleWindow, true},
      {2, &RandomHands::ChangeService, false},
      {4, &RandomHands::QueueBatch, false},
  };
  return kChoices;
}

void RandomHands::Act() {
  QWidget* const window = FrontmostWindow(m_frame);
  if (!window) return;
  if (window->windowType() == Qt::Popup) return WorkPopup(*window);
  if (qobject_cast<QFileDialog*>(window)) return WorkFileDialog(*window);
  // Its picker of colours takes the whole screen and waits for a click that nobody makes.
  if (qobject_cast<QColorDialog*>(window)) return Leave(*window);
  const bool onFrame = window == m_frame;
  int sum = 0;
  for (const Choice& choice : Choices()) sum += choice.onFrameOnly && !onFrame ? 0 : choice.weight;
  int drawn = m_random.Below(static_cast<std::size_t>(sum));
  for (const Choice& choice : Choices()) {
    if (choice.onFrameOnly && !onFrame) continue;
    if (drawn < choice.weight) return (this->*choice.action)(*window);
    drawn -= choice.weight;
  }
}

void RandomHands::Leave(QWidget& dialog) {
  const std::vector<QPushButton*> buttons = Workable<QPushButton>(dialog);
  const int way = m_random.Below(10);
  if (way < 7 && !buttons.empty() && !qobject_cast<QColorDialog*>(&dialog))
    return Click(*m_random.Pick(buttons));
  if (QAbstractButton* const ok = ButtonCalled(dialog, {QStringLiteral("OK"), QStringLiteral("Ok")});
      ok && way < 8)
    return Click(*ok);
  if (way < 9) {
    m_diary.Begin("key", QStringLiteral("Esc in ") + NameOf(dialog));
    QTest::keyClick(&dialog, Qt::Key_Escape);
  } else {
    m_diary.Begin("close", NameOf(dialog));
    dialog.close();
  }
}

void RandomHands::Click(QAbstractButton& button) {
  m_diary.Begin("click", NameOf(button));
  if (m_random.Percent(10)) {
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_Space);
  } else {
    QTest::mouseClick(&button, Qt::LeftButton, {}, {std::min(8, button.width() / 2), button.height() / 2});
  }
}

void RandomHands::ClickSomeButton(QWidget& window) {
  const std::vector<QAbstractButton*> buttons = Workable<QAbstractButton>(window);
  if (!buttons.empty()) return Click(*m_random.Pick(buttons));
  PressKey(window);
}

QString RandomHands::AnyText() {
  switch (m_random.Below(16)) {
    case 0:
      return {};
    case 1:
      return QStringLiteral("１２．５");
    case 2:
      return QStringLiteral("1e400");
    case 3:
      return QStringLiteral("-1.5e-3");
    case 4:
      return QStringLiteral("abc");
    case 5:
      return QString(300, u'9');
    case 6:
      return QStringLiteral("波, \"&[*]\" ①髙～");
    case 7:
      return QStringLiteral("1,234.5");
    case 8:
      return QStringLiteral("0");
    case 9:
      return QStringLiteral("-");
    case 10:
      return QStringLiteral(" ");
    case 11:
      return QStringLiteral("0.005");
    default:
      return QString::number(m_random.Between(-200, 20000) / 100.0);
  }
}

QString RandomHands::AnyTable() {
  const QString end = m_random.Pick({QStringLiteral("\n"), QStringLiteral("\r\n")});
  QString table;
  const int rows = m_random.Pick({1, 1, 2, 3, 40}), columns = m_random.Between(1, 3);
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      if (column > 0) table += u'\t';
      table += m_random.Percent(80) ? QString::number(m_random.Between(-999, 999) / 10.0) : AnyText();
    }
    if (row + 1 < rows || m_random.Percent(50)) table += end;
  }
  return table;
}

void RandomHands::TypeInto(QWidget& target, const QString& text) {
  // What keys cannot give comes from an input method.
  const bool byKeys = std::all_of(text.begin(), text.end(), [](QChar sign) { return sign.unicode() < 128; });
  if (byKeys && text.size() < 20) {
    QTest::keyClicks(&target, text);
    return;
  }
  QInputMethodEvent typed;
  typed.setCommitString(text);
  QCoreApplication::sendEvent(&target, &typed);
}

void RandomHands::LeaveField(QWidget& field) {
  QWidget* const at = QApplication::focusWidget() ? QApplication::focusWidget() : &field;
  const int way = m_random.Below(8);
  m_diary.Note(QStringLiteral("leaves it, way %1").arg(way));
  switch (way) {
    case 0:
    case 1:
    case 2:
      QTest::keyClick(at, Qt::Key_Tab);
      break;
    case 3:
      QTest::keyClick(at, Qt::Key_Backtab);
      break;
    case 4:
    case 5:
      QTest::keyClick(at, Qt::Key_Return);
      break;
    case 6:
      QTest::keyClick(at, Qt::Key_Escape);
      break;
    default:
      break;  // the entry stays open
  }
}

void RandomHands::TypeSomewhere(QWidget& window) {
  std::vector<QLineEdit*> fields = Workable<QLineEdit>(window);
  if (fields.empty()) return WorkGrid(window);
  QLineEdit* const field = m_random.Pick(fields);
  const QString text = AnyText();
  m_diary.Begin("type", NameOf(*field) + QStringLiteral(" <") + text + u'>');
  const QPointer<QLineEdit> alive(field);
  QTest::mouseClick(field, Qt::LeftButton);
  if (!alive || QApplication::focusWidget() != field) return;  // a refused entry keeps the focus elsewhere
  if (m_random.Percent(70)) QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
  if (text.isEmpty()) {
    QTest::keyClick(field, Qt::Key_Delete);
  } else if (m_random.Percent(15)) {
    QApplication::clipboard()->setText(text);
    QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
  } else {
    TypeInto(*field, text);
  }
  if (alive) LeaveField(*field);
}

void RandomHands::ChooseInCombo(QWidget& window) {
  const std::vector<QComboBox*> combos = Workable<QComboBox>(window);
  if (combos.empty()) return TickSomeCell(window);
  QComboBox* const combo = m_random.Pick(combos);
  const int way = m_random.Below(3);
  m_diary.Begin("combo", NameOf(*combo) + QStringLiteral(" way %1").arg(way));
  if (way == 0) {
    QTest::mouseClick(combo, Qt::LeftButton, {}, {combo->width() - 8, combo->height() / 2});
    return;
  }
  combo->setFocus();
  QTest::keyClick(combo, m_random.Pick({Qt::Key_Down, Qt::Key_Up, Qt::Key_End, Qt::Key_Home}));
  if (way == 2) LeaveField(*combo);
}

void RandomHands::PressCell(CSpread7& grid, const Cell& cell) {
  m_diary.Begin("cell", NameOf(grid) + QStringLiteral(" press %1, %2").arg(cell.row).arg(cell.column));
  const QPoint place = PlaceOf(grid, cell);
  QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, place);
}

void RandomHands::TickSomeCell(QWidget& window) {
  std::vector<CSpread7*> grids;
  for (CSpread7* grid : Workable<CSpread7>(window))
    if (!CheckCells(*grid, false).empty()) grids.push_back(grid);
  if (grids.empty()) return ClickSomeButton(window);
  CSpread7* const grid = m_random.Pick(grids);
  PressCell(*grid, m_random.Pick(CheckCells(*grid, m_random.Percent(40))));
}

void RandomHands::WorkGrid(QWidget& window) {
  const std::vector<CSpread7*> grids = Workable<CSpread7>(window);
  if (grids.empty()) return PressKey(window);
  CSpread7* const grid = m_random.Pick(grids);
  if (grid->RowCount() == 0 || grid->ColumnCount() == 0) return PressKey(window);
  // Mostly the rows that are on display, now and then the last.
  const int rows = m_random.Percent(85) ? std::min(grid->RowCount(), 12) : grid->RowCount();
  const Cell cell{1 + m_random.Below(static_cast<std::size_t>(rows)),
                  1 + m_random.Below(static_cast<std::size_t>(grid->ColumnCount()))};
  const int way = m_random.Below(12);
  m_diary.Begin("grid",
                NameOf(*grid) + QStringLiteral(" way %1 at %2, %3").arg(way).arg(cell.row).arg(cell.column));
  const QPointer<CSpread7> alive(grid);
  const QPoint place = PlaceOf(*grid, cell);
  if (way == 0) {
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, place);
    return;
  }
  QTest::mouseClick(grid->viewport(), Qt::LeftButton,
                    m_random.Percent(15) ? Qt::ShiftModifier : Qt::NoModifier, place);
  if (!alive || FrontmostWindow(m_frame) != &window) return;
  const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    if (QWidget* const at = QApplication::focusWidget(); at && FrontmostWindow(m_frame) == &window)
      QTest::keyClick(at, key, modifiers);
  };
  switch (way) {
    case 1:
    case 2:
    case 3:
    case 4: {
      QWidget* const at = QApplication::focusWidget();
      if (!at || !grid->isAncestorOf(at)) {
        if (at != grid) return;
      }
      if (m_random.Percent(50)) press(Qt::Key_F2);
      if (QWidget* const now = QApplication::focusWidget()) TypeInto(*now, AnyText());
      if (alive) LeaveField(*grid);
      break;
    }
    case 5:
      press(m_random.Pick({Qt::Key_Insert, Qt::Key_Delete}));
      break;
    case 6:
      press(Qt::Key_Insert, Qt::ControlModifier);
      break;
    case 7:
      QApplication::clipboard()->setText(AnyTable());
      press(Qt::Key_V, Qt::ControlModifier);
      break;
    case 8:
      press(m_random.Pick({Qt::Key_X, Qt::Key_C, Qt::Key_A}), Qt::ControlModifier);
      break;
    case 9:
      press(Qt::Key_Down, Qt::ShiftModifier);
      press(Qt::Key_Down, Qt::ShiftModifier);
      press(m_random.Pick({Qt::Key_Delete, Qt::Key_Insert, Qt::Key_C}));
      break;
    case 10:
      press(Qt::Key_Space);
      break;
    default:
      break;
  }
}

QWidget* RandomHands::AnyControl(QWidget& window) {
  const std::vector<QWidget*> all = Workable<QWidget>(window);
  return all.empty() ? &window : m_random.Pick(all);
}

QPoint RandomHands::AnyPlace(const QWidget& widget) {
  return {m_random.Below(static_cast<std::size_t>(std::max(widget.width(), 1))),
          m_random.Below(static_cast<std::size_t>(std::max(widget.height(), 1)))};
}

void RandomHands::Mouse(QWidget& target, QEvent::Type type, const QPoint& place, Qt::MouseButtons held) {
  const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
  QMouseEvent event(type, place, target.mapToGlobal(place), button, held, Qt::NoModifier);
  QCoreApplication::sendEvent(&target, &event);
}

void RandomHands::DragSomewhere(QWidget& window) {
  // What has left the display, or stands behind a dialog by now, hears of no release.
  if (m_dragged && (!m_dragged->isVisible() || m_dragged->window() != &window)) m_dragged = nullptr;
  if (m_dragged && m_random.Percent(60)) {
    m_diary.Begin("release", NameOf(*m_dragged));
    Mouse(*std::exchange(m_dragged, nullptr), QEvent::MouseButtonRelease, QPoint(5, 5), Qt::NoButton);
    return;
  }
  QWidget* const control = AnyControl(window);
  m_diary.Begin("drag", NameOf(*control));
  const QPointer<QWidget> alive(control);
  Mouse(*control, QEvent::MouseButtonPress, AnyPlace(*control), Qt::LeftButton);
  for (int move = m_random.Below(3); move >= 0; --move) {
    if (!alive || FrontmostWindow(m_frame) != &window) return;  // something came up: the rest goes there
    Mouse(*control, QEvent::MouseMove, AnyPlace(*control), Qt::LeftButton);
  }
  if (!alive || FrontmostWindow(m_frame) != &window) return;
  if (m_random.Percent(25)) {
    m_dragged = control;  // held down over the next actions
    return;
  }
  Mouse(*control, QEvent::MouseButtonRelease, AnyPlace(*control), Qt::NoButton);
}

void RandomHands::Wheel(QWidget& window) {
  QWidget* const control = AnyControl(window);
  const int turn = m_random.Pick({120, -120, 15, -360});
  m_diary.Begin("wheel", NameOf(*control) + QStringLiteral(" %1").arg(turn));
  const QPoint place = AnyPlace(*control);
  QWheelEvent event(place, control->mapToGlobal(place), {}, {0, turn}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(control, &event);
}

void RandomHands::OpenContextMenu(QWidget& window) {
  QWidget* const control = AnyControl(window);
  m_diary.Begin("context menu", NameOf(*control));
  const QPoint place = AnyPlace(*control);
  QContextMenuEvent event(QContextMenuEvent::Mouse, place, control->mapToGlobal(place));
  QCoreApplication::sendEvent(control, &event);
}

void RandomHands::PressKey(QWidget& window) {
  QWidget* const at = QApplication::focusWidget() ? QApplication::focusWidget() : &window;
  Qt::KeyboardModifiers modifiers;
  Qt::Key key = m_random.Pick(kKeys);
  if (m_random.Percent(20)) {
    modifiers = Qt::ControlModifier;
    key = m_random.Pick(kCommandKeys);
  } else if (m_random.Percent(10)) {
    modifiers = Qt::ShiftModifier;
  }
  m_diary.Begin("key", KeyName(key, modifiers) + QStringLiteral(" in ") + NameOf(*at));
  QTest::keyClick(at, key, modifiers);
}

void RandomHands::UseBusOn(QWidget& control) {
  QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(&control);
  if (!heard || !heard->isValid()) return;
  // A cell, an entry of a list or of the menu.
  for (int depth = m_random.Below(3); depth > 0 && heard->childCount() > 0; --depth) {
    QAccessibleInterface* const child =
        heard->child(m_random.Below(static_cast<std::size_t>(heard->childCount())));
    if (!child || !child->isValid()) break;
    heard = child;
  }
  if (m_random.Percent(15) && heard->editableTextInterface()) {
    const QString text = AnyText();
    m_diary.Note(QStringLiteral("by the bus, text <") + text + u'>');
    heard->setText(QAccessible::Value, text);
    return;
  }
  QAccessibleActionInterface* const actions = heard->actionInterface();
  if (!actions || actions->actionNames().isEmpty()) return;
  const QStringList names = actions->actionNames();
  const QString& name = names[m_random.Below(static_cast<std::size_t>(names.size()))];
  m_diary.Note(QStringLiteral("by the bus, ") + name + QStringLiteral(" of <") +
               heard->text(QAccessible::Name) + u'>');
  actions->doAction(name);
}

void RandomHands::UseBus(QWidget& window) {
  QWidget* const control = AnyControl(window);
  m_diary.Begin("bus", NameOf(*control));
  UseBusOn(*control);
}

void RandomHands::ActBehind() {
  if (!m_frame || !m_frame->isVisible()) return;
  switch (m_random.Below(6)) {
    case 0:
      m_diary.Begin("behind", QStringLiteral("close"));
      m_frame->close();
      return;
    case 1: {
      const QString path = m_samples.Project(m_random);
      m_diary.Begin("behind", QStringLiteral("drop ") + path);
      Drop(path);
      return;
    }
    case 2: {
      const QList<QAction*> entries = m_frame->Menu()->findChildren<QAction*>();
      QAction* const entry = entries[m_random.Below(static_cast<std::size_t>(entries.size()))];
      m_diary.Begin("behind", QStringLiteral("entry ") + entry->text());
      if (entry->isEnabled() && !entry->menu()) entry->trigger();
      return;
    }
    default: {
      QWidget* const control = AnyControl(*m_frame);
      m_diary.Begin("behind", NameOf(*control));
      UseBusOn(*control);
    }
  }
}

void RandomHands::FillClipboard(QWidget&) {
  const QString table = AnyTable();
  m_diary.Begin("clipboard", table);
  QApplication::clipboard()->setText(table);
}

void RandomHands::TriggerEntry(QWidget&) {
  std::vector<QAction*> entries;
  for (QAction* entry : m_frame->Menu()->findChildren<QAction*>())
    if (entry->isEnabled() && entry->isVisible() && !entry->menu() && !entry->isSeparator())
      entries.push_back(entry);
  QAction* const entry = m_random.Pick(entries);
  // Whoever ends the program begins again: seldom.
  if (entry == m_frame->Menu()->exitProgram && m_random.Percent(80)) return TriggerEntry(*m_frame);
  m_diary.Begin("entry", entry->text());
  entry->trigger();
}

void RandomHands::Drop(const QString& path) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(path)});
  QDragEnterEvent enter(QPoint(4, 4), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(m_frame, &enter);
  if (!enter.isAccepted()) return;
  QDropEvent drop(QPoint(4, 4), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(m_frame, &drop);
}

void RandomHands::DropSomeFile(QWidget&) {
  const QString path = m_samples.Project(m_random);
  m_diary.Begin("drop", path);
  Drop(path);
}

void RandomHands::HandleWindow(QWidget& window) {
  const int way = m_random.Below(9);
  m_diary.Begin("window", QStringLiteral("way %1").arg(way));
  switch (way) {
    case 0:
      window.showMinimized();
      break;
    case 1:
      window.showMaximized();
      break;
    case 2:
      window.resize(m_random.Between(200, 1600), m_random.Between(150, 1200));
      break;
    case 3:
      if (m_random.Percent(30)) window.close();
      break;
    default:
      window.showNormal();
      window.activateWindow();
      break;
  }
}

void RandomHands::Misbehave(bool honest) {
  static const std::vector<QString> kWishes{
      QStringLiteral("all=garbage"),
      QStringLiteral("all=drop"),
      QStringLiteral("all=stall"),
      QStringLiteral("all=empty"),
      QStringLiteral("all=close"),
      QStringLiteral("all=trickle:0"),
      QStringLiteral("all=huge-length"),
      QStringLiteral("all=nohttp"),
      QStringLiteral("all=redirect"),
      QStringLiteral("ranking=cut"),
      QStringLiteral("ranking=file:fltsearch_missing_keys.json"),
      QStringLiteral("ranking=file:fltsearch_error.json"),
      QStringLiteral("ranking=file:fltsearch_none.json"),
      QStringLiteral("ranking=file:fltsearch_broken.json"),
      QStringLiteral("ranking=file:fltsearch_empty_texts.json"),
      QStringLiteral("model=status:503"),
      QStringLiteral("model=half"),
      QStringLiteral("F005501=drop"),
      QStringLiteral("tile=status:404"),
      QStringLiteral("tile=garbage"),
      QStringLiteral("tile=stall"),
  };
  const QString wishes = honest ? QString() : m_random.Pick(kWishes);
  m_diary.Begin("service", wishes.isEmpty() ? QStringLiteral("honest") : wishes);
  m_service.Behave(wishes);
}

void RandomHands::ChangeService(QWidget&) {
  Misbehave(m_random.Percent(55));
}

/// Input as it comes from the system, several at once: what the first of it opens stands in front of the
/// rest.
void RandomHands::QueueBatch(QWidget& window) {
  QWindow* const handle = window.windowHandle();
  if (!handle) return PressKey(window);
  // One event of the queue each: what a dialog finds waiting that the first of them opens.
  const auto queue = [handle](auto event) { QMetaObject::invokeMethod(handle, event, Qt::QueuedConnection); };
  QString told;
  const bool twice = m_random.Percent(40);
  QWidget* control = nullptr;
  for (int count = m_random.Between(2, 5); count > 0; --count) {
    if (m_random.Percent(30)) {
      const Qt::Key key = m_random.Pick(kKeys);
      told += KeyName(key, {}) + QStringLiteral("; ");
      for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
        queue([handle, type, key] { qt_handleKeyEvent(handle, type, key, Qt::NoModifier, QString()); });
      continue;
    }
    if (!control || !twice) {
      const std::vector<QAbstractButton*> buttons = Workable<QAbstractButton>(window);
      control = !buttons.empty() && m_random.Percent(70) ? m_random.Pick(buttons) : AnyControl(window);
    }
    told += NameOf(*control) + QStringLiteral("; ");
    const QPoint inside(std::min(8, control->width() / 2), control->height() / 2);
    const QPoint place = control->mapTo(&window, inside), global = control->mapToGlobal(inside);
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
      queue([=] {
        qt_handleMouseEvent(handle, place, global,
                            type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::LeftButton,
                            type, {}, 0);
      });
  }
  m_diary.Begin("batch", told);
}

void RandomHands::WorkPopup(QWidget& popup) {
  auto* const menu = qobject_cast<QMenu*>(&popup);
  if (menu && m_random.Percent(60)) {
    std::vector<QAction*> entries;
    for (QAction* entry : menu->actions())
      if (entry->isEnabled() && !entry->isSeparator()) entries.push_back(entry);
    if (!entries.empty()) {
      QAction* const entry = m_random.Pick(entries);
      m_diary.Begin("menu", entry->text());
      QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(entry).center());
      return;
    }
  }
  const Qt::Key key =
      m_random.Pick({Qt::Key_Down, Qt::Key_Up, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Escape});
  m_diary.Begin("popup", KeyName(key, {}));
  QTest::keyClick(QApplication::focusWidget() && popup.isAncestorOf(QApplication::focusWidget())
                      ? QApplication::focusWidget()
                      : &popup,
                  key);
}

void RandomHands::WorkFileDialog(QWidget& dialog) {
  auto* const field = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
  if (!field || m_random.Percent(25)) {
    m_diary.Begin("key", QStringLiteral("Esc in ") + NameOf(dialog));
    QTest::keyClick(&dialog, Qt::Key_Escape);
    return;
  }
  const QString path = m_files.Choice();
  m_diary.Begin("file dialog", path);
  field->setText(path);
  QTest::keyClick(field, Qt::Key_Return);
}

}  // namespace tremlo::test
