#pragma once

#include <QTextDocument>
#include <QWidget>

namespace tremlo {

/// The picture that explains the attenuation relation: a section through site and fault plane, both forms of
/// the formula, and what their letters mean. Drawn as text and lines in the colours of the palette, sharp at
/// any scale; of the size that its font needs.
class RelationPicture : public QWidget {
 public:
  explicit RelationPicture(QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void PaintSketch(QPainter& painter, const QRectF& area) const;

  QTextDocument m_formulas;
  QTextDocument m_terms;
  QRectF m_sketchArea;
  QPointF m_formulasAt, m_termsAt;
};

}  // namespace tremlo
