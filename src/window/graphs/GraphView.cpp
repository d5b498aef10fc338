#include "window/graphs/GraphView.h"

#include "core/graphs/GraphTexts.h"
#include "window/graphs/GraphPicture.h"
#include "window/graphs/GraphSurface.h"

#include <QAccessibleWidget>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace tremlo {
namespace {

constexpr int kMarkRadius = 4;

/// A chart with a context menu.
class GraphAccess : public QAccessibleWidget {
 public:
  explicit GraphAccess(GraphView* graph) : QAccessibleWidget(graph, QAccessible::Chart), m_graph(graph) {}

  QStringList actionNames() const override { return QAccessibleWidget::actionNames() << showMenuAction(); }
  void doAction(const QString& action) override {
    if (action != showMenuAction()) return QAccessibleWidget::doAction(action);
    if (m_graph->isEnabled()) m_graph->AskForMenu();
  }

 private:
  GraphView* m_graph;
};

QAccessibleInterface* MakeAccessibleGraph(const QString& className, QObject* object) {
  if (className != QLatin1String("tremlo::GraphView")) return nullptr;
  return new GraphAccess(qobject_cast<GraphView*>(object));
}

QString Described(const CDrawGraph& graph) {
  const QString axes = DescribeAxes(graph.Kind(), graph.Range());
  const QString curves = DescribeCurves(graph.Series());
  return curves.isEmpty() ? axes : axes + QStringLiteral("、") + curves;
}

void PaintFocus(QPainter& painter, const QRect& area) {
  const GraphSurface surface(painter, area);
  const int width = surface.LineWidth(1);
  const double before = PenCentre(width);
  const double behind = width - before;
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(QPen(Qt::black, width, Qt::DotLine));
  painter.drawRect(QRectF(surface.Area()).adjusted(before, before, -behind, -behind));
}

}  // namespace

GraphView::GraphView(QWidget* parent) : QWidget(parent) {
  static const bool installed = [] {
    QAccessible::installFactory(MakeAccessibleGraph);
    return true;
  }();
  static_cast<void>(installed);
  setAccessibleName(QStringLiteral("グラフ"));
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

GraphView::~GraphView() = default;

void GraphView::SetSource(GraphSource source) {
  m_source = std::move(source);
  Refresh();
}

void GraphView::Refresh() {
  m_graph.reset();
  m_made = false;
  m_painted = QImage();
  PointNowhere();
  update();
}

void GraphView::MakeGraph() {
  if (m_made) return;
  if (m_source) m_graph = m_source();
  m_made = true;  // only now: what the source computes may lead to a Refresh()
  if (m_graph) m_graph->ComputeRange();
  setAccessibleDescription(m_graph ? Described(*m_graph) : QString());
}

std::shared_ptr<CDrawGraph> GraphView::Graph() {
  MakeGraph();
  return m_graph;
}

QImage GraphView::Picture(double devicePixelRatio) {
  return GraphPicture(Graph().get(), size(), devicePixelRatio);
}

void GraphView::CopyPicture() {
  QGuiApplication::clipboard()->setImage(Picture(devicePixelRatioF()));
}

void GraphView::PaintOn(QPainter& painter) {
  const GraphSurface surface(painter, rect());
  const QSize pixels = surface.Area().size();
  MakeGraph();
  if (m_painted.size() != pixels || m_paintedRatio != surface.Scale()) {
    m_painted = PaintedGraph(m_graph.get(), pixels, surface.Scale());
    m_paintedRatio = surface.Scale();
  }
  painter.drawImage(surface.Area().topLeft(), m_painted);
}

void GraphView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintOn(painter);
  painter.setPen(Qt::black);
  painter.setRenderHint(QPainter::Antialiasing);
  if (m_picked) painter.drawEllipse(QPoint(m_picked->pixelX, m_picked->pixelY), kMarkRadius, kMarkRadius);
  if (hasFocus()) PaintFocus(painter, rect());
}

void GraphView::PointTo(const QPoint& position) {
  MakeGraph();
  if (!m_graph) return;
  m_pointer = position;
  m_picked = m_graph->PointAt(rect(), position);
  update();
  if (!m_picked) return Tell({});
  Tell(DescribePoint(m_graph->Kind(), m_graph->Series()[m_picked->series].name, m_picked->x, m_picked->y));
}

void GraphView::PointNowhere() {
  if (m_picked) update();
  m_picked.reset();
  Tell({});
}

void GraphView::Tell(const QString& values) {
  if (values == m_told) return;
  m_told = values;
  Q_EMIT PointedAt(values);
}

void GraphView::mouseMoveEvent(QMouseEvent* event) {
  PointTo(event->position().toPoint());
}

void GraphView::mousePressEvent(QMouseEvent* event) {
  PointTo(event->position().toPoint());
}

void GraphView::leaveEvent(QEvent*) {
  PointNowhere();
}

void GraphView::contextMenuEvent(QContextMenuEvent* event) {
  event->reason() == QContextMenuEvent::Keyboard ? AskForMenu() : Q_EMIT MenuAsked(event->globalPos());
}

void GraphView::AskForMenu() {
  Q_EMIT MenuAsked(mapToGlobal(rect().center()));
}

void GraphView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) return AskForMenu();
  const PlotFrame frame = FrameIn(rect(), 1.0);
  const int step = event->modifiers().testFlag(Qt::ShiftModifier) ? 10 : 1;
  QPoint target = m_pointer;
  switch (event->key()) {
    case Qt::Key_Left:
      target.rx() -= step;
      break;
    case Qt::Key_Right:
      target.rx() += step;
      break;
    case Qt::Key_Up:
      target.ry() -= step;
      break;
    case Qt::Key_Down:
      target.ry() += step;
      break;
    case Qt::Key_Home:
      target.setX(frame.plotLeft);
      break;
    case Qt::Key_End:
      target.setX(frame.plotRight);
      break;
    default:
      QWidget::keyPressEvent(event);
      return;
  }
  if (frame.IsEmpty()) return;
  PointTo({qBound(frame.plotLeft, target.x(), frame.plotRight),
           qBound(frame.plotTop, target.y(), frame.plotBottom)});
}

void GraphView::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  update();
}

void GraphView::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  PointNowhere();
  update();
}

}  // namespace tremlo
