#include "window/sources/RelationPicture.h"

#include "window/sources/RelationTexts.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>

#include <array>
#include <cmath>

namespace tremlo {

namespace {

// In heights of a line of text.
constexpr double kMargin = 1.2;
constexpr QSizeF kSketch{19.0, 14.0};
constexpr double kFormulaWidth = 34.0;

const QString kLetterFonts = QStringLiteral("'Times New Roman', 'Liberation Serif', serif");
const QColor kFault(0xD0, 0x50, 0x20);  // stands out on a light and on a dark ground

/// Places of the sketch, as shares of its width and height.
constexpr double kGround = 0.22;
constexpr QPointF kSite{0.16, kGround};
constexpr QPointF kUpperEdge{0.50, 0.47};
constexpr QPointF kLowerEdge{0.84, 0.97};
constexpr int kCells = 4;

QPointF OnFault(double share) {
  return kUpperEdge + (kLowerEdge - kUpperEdge) * share;
}

void Fill(QTextDocument& document, const QFont& font, const QString& html, double width) {
  const double size = font.pointSizeF();
  document.setDocumentMargin(0.0);
  document.setDefaultFont(font);
  document.setDefaultStyleSheet(
      QStringLiteral("p { margin: 0 }"
                     "i { font-family: %4 }"
                     ".title { margin-top: %1px }"
                     ".formula { font-family: %4; font-size: %2pt; margin-left: %1px; margin-top: %3px }"
                     ".note { margin-left: %1px; margin-top: %3px }"
                     ".letter { padding-right: %1px }")
          .arg(size * 1.2)
          .arg(size * 1.25)
          .arg(size * 0.5)
          .arg(kLetterFonts));
  document.setHtml(html);
  document.setTextWidth(width);
}

void Draw(QPainter& painter, const QTextDocument& document, const QPointF& at, const QPalette& palette) {
  QAbstractTextDocumentLayout::PaintContext context;
  context.palette = palette;
  painter.save();
  painter.translate(at);
  document.documentLayout()->draw(&painter, context);
  painter.restore();
}

}  // namespace

RelationPicture::RelationPicture(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("picture"));
  setAccessibleName(QStringLiteral("距離減衰式について"));
  setAccessibleDescription(SpokenRelation());
  const double unit = QFontMetricsF(font()).height();
  const double width = (kSketch.width() + kMargin + kFormulaWidth) * unit;
  Fill(m_formulas, font(), RelationFormulas(), kFormulaWidth * unit);
  Fill(m_terms, font(), RelationTerms(), width);
  m_sketchArea = QRectF(QPointF(kMargin, kMargin) * unit, kSketch * unit);
  m_formulasAt = QPointF(m_sketchArea.right() + kMargin * unit, m_sketchArea.top());
  const double below = std::max(m_sketchArea.height(), m_formulas.size().height());
  m_termsAt = QPointF(m_sketchArea.left(), m_sketchArea.top() + below + kMargin * unit);
  setFixedSize(static_cast<int>(std::ceil(width + 2.0 * kMargin * unit)),
               static_cast<int>(std::ceil(m_termsAt.y() + m_terms.size().height() + kMargin * unit)));
}

void RelationPicture::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), palette().base());
  PaintSketch(painter, m_sketchArea);
  Draw(painter, m_formulas, m_formulasAt, palette());
  Draw(painter, m_terms, m_termsAt, palette());
}

void RelationPicture::PaintSketch(QPainter& painter, const QRectF& area) const {
  const double unit = QFontMetricsF(font()).height();
  const auto at = [&](const QPointF& share) {
    return QPointF(area.left() + area.width() * share.x(), area.top() + area.height() * share.y());
  };
  const auto word = [&](const QPointF& middle, const QString& text) {
    const QRectF box(middle - QPointF(6.0, 1.0) * unit, QSizeF(12.0, 2.0) * unit);
    painter.drawText(box, Qt::AlignCenter, text);
  };
  const auto letter = [&](const QPointF& middle, const QString& text) {
    QFont font = this->font();
    font.setFamilies(
        {QStringLiteral("Times New Roman"), QStringLiteral("Liberation Serif"), QStringLiteral("serif")});
    font.setItalic(true);
    font.setPointSizeF(font.pointSizeF() * 1.25);
    painter.setFont(font);
    word(middle, text);
    painter.setFont(this->font());
  };
  const QColor ink = palette().color(QPalette::Text);
  const QPointF site = at(kSite);
  const QPointF middle = at(OnFault(0.5));
  const QPointF above(middle.x(), at({0.0, kGround}).y());

  painter.setPen(QPen(ink, 1.5));
  painter.drawLine(at({0.0, kGround}), at({1.0, kGround}));
  word(at({0.90, kGround - 0.07}), QStringLiteral("地表"));
  word(site - QPointF(0.0, 1.8 * unit), QStringLiteral("現場"));
  painter.setBrush(ink);
  painter.drawPolygon(QPolygonF{site, site + QPointF(-0.5, -0.9) * unit, site + QPointF(0.5, -0.9) * unit});

  painter.setPen(QPen(ink, 1.0, Qt::DotLine));
  for (int cell = 0; cell < kCells; ++cell) painter.drawLine(site, at(OnFault((cell + 0.5) / kCells)));
  painter.setPen(QPen(ink, 1.5));
  painter.drawLine(site, at(kUpperEdge));
  painter.setPen(QPen(ink, 1.0, Qt::DashLine));
  painter.drawLine(above, middle);

  painter.setPen(QPen(kFault, 3.0));
  painter.drawLine(at(kUpperEdge), at(kLowerEdge));
  painter.setPen(Qt::NoPen);
  painter.setBrush(kFault);
  for (int cell = 0; cell < kCells; ++cell)
    painter.drawEllipse(at(OnFault((cell + 0.5) / kCells)), 0.3 * unit, 0.3 * unit);

  painter.setPen(ink);
  letter(at({0.37, 0.31}), QStringLiteral("X"));
  letter(at({0.40, 0.68}), QStringLiteral("rₖ"));
  letter(middle * 0.5 + above * 0.5 + QPointF(0.8 * unit, 0.0), QStringLiteral("D"));
  word(at({0.90, 0.80}), QStringLiteral("断層面"));
}

}  // namespace tremlo
