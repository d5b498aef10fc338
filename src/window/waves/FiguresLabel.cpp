#include "window/waves/FiguresLabel.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QToolTip>

#include <algorithm>
#include <numeric>

namespace tremlo {

namespace {

constexpr int kLeading = 2;  // the lines are read across

/// The title, then the figures.
QStringList PartsOf(const FiguresLine& line) {
  QStringList parts(line.title);
  for (const FigureText& figure : line.figures) parts << figure.Text();
  return parts;
}

}  // namespace

FiguresLabel::FiguresLabel(QWidget* parent) : QLabel(parent) {
  setObjectName(QStringLiteral("figuresLabel"));
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  setFocusPolicy(Qt::TabFocus);
  hide();
}

void FiguresLabel::TellWave(const CSeismicWave* wave) {
  m_wave = wave ? wave->name : QString();
  m_lines = wave ? FiguresOf(*wave) : std::vector<FiguresLine>();
  QStringList lines, tips;
  for (const FiguresLine& line : m_lines) lines << line.Text();
  if (wave)
    for (std::size_t i = 0; i < m_lines.front().figures.size(); ++i) tips << TipOf(i);
  setText(lines.join(u'\n'));
  setToolTip(tips.join(u'\n'));
  setAccessibleName(QStringLiteral("地震動指標 「%1」 ").arg(m_wave) + text());
  setVisible(wave != nullptr);
  update();
}

std::vector<int> FiguresLabel::Edges() const {
  std::vector<int> widths;
  for (const FiguresLine& line : m_lines) {
    const QStringList parts = PartsOf(line);
    widths.resize(static_cast<std::size_t>(parts.size()));
    for (std::size_t i = 0; i < widths.size(); ++i)
      widths[i] = std::max(widths[i], fontMetrics().horizontalAdvance(parts[static_cast<qsizetype>(i)]));
  }
  if (widths.empty()) return {0};
  const int digit = fontMetrics().horizontalAdvance(u'0');
  const int gaps = static_cast<int>(widths.size()) - 1;
  const int spare = contentsRect().width() - std::accumulate(widths.begin(), widths.end(), 0);
  const int gap = std::clamp(spare / gaps, digit * 4 / 3, digit * 3);
  std::vector<int> edges{0};
  for (const int width : widths) edges.push_back(edges.back() + width + gap);
  edges.back() -= gap;
  return edges;
}

int FiguresLabel::LineHeight() const {
  return fontMetrics().lineSpacing() + kLeading;
}

QSize FiguresLabel::sizeHint() const {
  return {QLabel::sizeHint().width(), static_cast<int>(m_lines.size()) * LineHeight()};
}

bool FiguresLabel::IsElided() const {
  return Edges().back() > contentsRect().width();
}

bool FiguresLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || IsElided()) return QLabel::event(event);
  TellDefinition(*static_cast<QHelpEvent*>(event));
  return true;
}

/// Of the figure below the pointer; at the title whose figures they are.
void FiguresLabel::TellDefinition(const QHelpEvent& pointer) {
  const std::vector<int> edges = Edges();
  const QRect room = contentsRect();
  const auto next = std::upper_bound(edges.begin(), edges.end(), pointer.pos().x() - room.left());
  if (next == edges.begin() || next == edges.end()) return QToolTip::hideText();
  const auto part = static_cast<std::size_t>(next - edges.begin()) - 1;
  const QString tip =
      part == 0 ? QStringLiteral("<qt>「%1」</qt>").arg(m_wave.toHtmlEscaped()) : TipOf(part - 1);
  const QRect place(room.left() + edges[part], room.top(), edges[part + 1] - edges[part], room.height());
  QToolTip::showText(pointer.globalPos(), tip, this, place);
}

QString FiguresLabel::TipOf(std::size_t figure) const {
  QStringList values;
  for (const FiguresLine& line : m_lines) values << line.title + u' ' + line.figures[figure].value;
  const FigureText& text = m_lines.front().figures[figure];
  return text.label + u'：' + values.join(u'、') + QStringLiteral("\n　") + text.definition;
}

void FiguresLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const std::vector<int> edges = Edges();
  QRect room = contentsRect();
  for (const FiguresLine& line : m_lines) {
    PaintLine(painter, room, PartsOf(line), edges);
    room.translate(0, LineHeight());
  }
  if (!hasFocus()) return;
  QStyleOptionFocusRect option;
  option.initFrom(this);
  style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

void FiguresLabel::PaintLine(QPainter& painter, const QRect& room, const QStringList& parts,
                             const std::vector<int>& edges) const {
  const bool elided = edges.back() > room.width();
  const int ellipsis = fontMetrics().horizontalAdvance(u'…');
  for (qsizetype i = 0; i < parts.size(); ++i) {
    const int left = edges[static_cast<std::size_t>(i)];
    const int next = edges[static_cast<std::size_t>(i) + 1];
    const bool fits = !elided || next + ellipsis <= room.width();
    const QString text =
        fits ? parts[i]
             : fontMetrics().elidedText(parts.mid(i).join(u'　'), Qt::ElideRight, room.width() - left);
    style()->drawItemText(&painter, room.adjusted(left, 0, 0, 0), Qt::AlignLeft | Qt::AlignTop, palette(),
                          isEnabled(), text, foregroundRole());
    if (!fits) return;
  }
}

void FiguresLabel::contextMenuEvent(QContextMenuEvent* event) {
  const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
  auto* const menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->setObjectName(QStringLiteral("menu"));
  menu->setAccessibleName(QStringLiteral("編集"));
  menu->addAction(QStringLiteral("コピー\tCtrl+C"), this, &FiguresLabel::Copy);
  menu->popup(byKey ? mapToGlobal(rect().bottomLeft()) : event->globalPos());
}

void FiguresLabel::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return Copy();
  QLabel::keyPressEvent(event);
}

void FiguresLabel::Copy() const {
  QGuiApplication::clipboard()->setText(text());
}

}  // namespace tremlo
