#include "SvgWriter.h"

#include <QBuffer>
#include <QIODevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>

namespace {

QString Number(double value) {
  return QString::number(value, 'g', 9);
}

QString Matrix(const QTransform& matrix) {
  QStringList numbers;
  for (const double value :
       {matrix.m11(), matrix.m12(), matrix.m21(), matrix.m22(), matrix.dx(), matrix.dy()})
    numbers << Number(value);
  return QStringLiteral(" transform=\"matrix(%1)\"").arg(numbers.join(u' '));
}

QString PathData(const QPainterPath& path) {
  QString data;
  for (int i = 0; i < path.elementCount(); ++i) {
    const QPainterPath::Element element = path.elementAt(i);
    if (element.isMoveTo()) data += u'M';
    if (element.isLineTo()) data += u'L';
    if (element.isCurveTo()) data += u'C';
    data += Number(element.x) + u' ' + Number(element.y) + u' ';
  }
  return data.trimmed();
}

/// ` fill="#112233" fill-opacity="0.5"`, or the same of a stroke.
QString Paint(const char* what, const QColor& colour) {
  const QString name = QString::fromLatin1(what);
  QString text = QStringLiteral(" %1=\"%2\"").arg(name, colour.name());
  if (colour.alpha() < 255) text += QStringLiteral(" %1-opacity=\"%2\"").arg(name, Number(colour.alphaF()));
  return text;
}

}  // namespace

class SvgEngine : public QPaintEngine {
 public:
  explicit SvgEngine(const QSvgGenerator& device)
      : QPaintEngine(PrimitiveTransform | PixmapTransform | AlphaBlend | PainterPaths | Antialiasing |
                     ConstantOpacity | PaintOutsidePaintEvent),
        m_device(device) {}

  Type type() const override { return SVG; }

  bool begin(QPaintDevice*) override {
    const double inches = 1.0 / m_device.m_dotsPerInch;
    const QRect box = m_device.m_viewBox;
    m_text = QStringLiteral(
                 "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                 "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\""
                 " width=\"%1in\" height=\"%2in\" viewBox=\"%3 %4 %5 %6\">\n<title>%7</title>\n")
                 .arg(Number(m_device.m_size.width() * inches), Number(m_device.m_size.height() * inches))
                 .arg(box.x())
                 .arg(box.y())
                 .arg(box.width())
                 .arg(box.height())
                 .arg(m_device.m_title.toHtmlEscaped());
    return m_device.m_device->open(QIODevice::WriteOnly);
  }

  bool end() override {
    m_device.m_device->write((m_text + QStringLiteral("</svg>\n")).toUtf8());
    m_device.m_device->close();
    return true;
  }

  void updateState(const QPaintEngineState& now) override { m_matrix = now.transform(); }

  void drawPath(const QPainterPath& path) override { Put(path, painter()->brush()); }

  void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override {
    QPainterPath path(points[0]);
    for (int i = 1; i < count; ++i) path.lineTo(points[i]);
    if (mode != PolylineMode) path.closeSubpath();
    if (mode != WindingMode) path.setFillRule(Qt::OddEvenFill);
    Put(path, mode == PolylineMode ? QBrush() : painter()->brush());
  }
  void drawPolygon(const QPoint* points, int count, PolygonDrawMode mode) override {
    QPolygonF polygon;
    for (int i = 0; i < count; ++i) polygon << points[i];
    drawPolygon(polygon.constData(), count, mode);
  }

  void drawTextItem(const QPointF& place, const QTextItem& item) override {
    const QFont font = item.font();
    const double size =
        font.pixelSize() > 0 ? font.pixelSize() : font.pointSizeF() * m_device.m_dotsPerInch / 72.0;
    Put(QStringLiteral("<text x=\"%1\" y=\"%2\" font-family=\"%3\" font-size=\"%4\" font-weight=\"%5\""
                       " font-style=\"%6\" xml:space=\"preserve\"%7>%8</text>")
            .arg(Number(place.x()), Number(place.y()), font.family().toHtmlEscaped(), Number(size))
            .arg(font.weight())
            .arg(font.italic() ? QStringLiteral("italic") : QStringLiteral("normal"),
                 Paint("fill", painter()->pen().color()) + Matrix(m_matrix), item.text().toHtmlEscaped()));
  }

  void drawPixmap(const QRectF& to, const QPixmap& picture, const QRectF& from) override {
    drawImage(to, picture.toImage(), from, Qt::AutoColor);
  }
  void drawImage(const QRectF& to, const QImage& picture, const QRectF& from,
                 Qt::ImageConversionFlags) override {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.copy(from.toRect()).save(&buffer, "PNG");
    Put(QStringLiteral("<image x=\"%1\" y=\"%2\" width=\"%3\" height=\"%4\" preserveAspectRatio=\"none\""
                       "%5 xlink:href=\"data:image/png;base64,%6\"/>")
            .arg(Number(to.x()), Number(to.y()), Number(to.width()), Number(to.height()), Matrix(m_matrix),
                 QString::fromLatin1(bytes.toBase64())));
  }

 private:
  void Put(const QString& element) {
    const double opacity = painter()->opacity();
    m_text += opacity < 1.0 ? QStringLiteral("<g opacity=\"%1\">%2</g>\n").arg(Number(opacity), element)
                            : element + u'\n';
  }

  void Put(const QPainterPath& path, const QBrush& brush) {
    QString look = QStringLiteral(" fill=\"none\"");
    if (brush.style() != Qt::NoBrush) look = Paint("fill", brush.color());
    if (path.fillRule() == Qt::OddEvenFill) look += QStringLiteral(" fill-rule=\"evenodd\"");
    Put(QStringLiteral("<path d=\"%1\"%2/>").arg(PathData(path), look + Stroke() + Matrix(m_matrix)));
  }

  QString Stroke() const {
    const QPen pen = painter()->pen();
    if (pen.style() == Qt::NoPen) return {};
    const double width = pen.widthF() > 0.0 ? pen.widthF() : 1.0;
    QString look = Paint("stroke", pen.color()) + QStringLiteral(" stroke-width=\"%1\"").arg(Number(width));
    if (pen.isCosmetic()) look += QStringLiteral(" vector-effect=\"non-scaling-stroke\"");
    if (pen.capStyle() == Qt::RoundCap) look += QStringLiteral(" stroke-linecap=\"round\"");
    if (pen.capStyle() == Qt::SquareCap) look += QStringLiteral(" stroke-linecap=\"square\"");
    if (pen.joinStyle() == Qt::RoundJoin) look += QStringLiteral(" stroke-linejoin=\"round\"");
    if (pen.joinStyle() == Qt::BevelJoin) look += QStringLiteral(" stroke-linejoin=\"bevel\"");
    QStringList dashes;
    for (const double length : pen.dashPattern()) dashes << Number(length * width);
    if (!dashes.isEmpty()) look += QStringLiteral(" stroke-dasharray=\"%1\"").arg(dashes.join(u','));
    return look;
  }

  const QSvgGenerator& m_device;
  QString m_text;
  QTransform m_matrix;
};

QSvgGenerator::QSvgGenerator() : m_engine(std::make_unique<SvgEngine>(*this)) {}
QSvgGenerator::~QSvgGenerator() = default;

QPaintEngine* QSvgGenerator::paintEngine() const {
  return m_engine.get();
}

int QSvgGenerator::metric(PaintDeviceMetric metric) const {
  constexpr double kMillimetresPerInch = 25.4;
  switch (metric) {
    case PdmWidth:
      return m_viewBox.width();
    case PdmHeight:
      return m_viewBox.height();
    case PdmWidthMM:
      return qRound(m_viewBox.width() * kMillimetresPerInch / m_dotsPerInch);
    case PdmHeightMM:
      return qRound(m_viewBox.height() * kMillimetresPerInch / m_dotsPerInch);
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
      return m_dotsPerInch;
    case PdmNumColors:
      return 0xFFFFFF;
    case PdmDepth:
      return 24;
    case PdmDevicePixelRatio:
      return 1;
    case PdmDevicePixelRatioScaled:
      return static_cast<int>(devicePixelRatioFScale());
  }
  return 0;
}
