#pragma once

#include <QColor>
#include <QIcon>
#include <QPushButton>

namespace tremlo {

/// Colours of a button that draws itself. One that is not valid is taken from the palette, that of the text
/// being readable on the face.
struct ExpButtonColors {
  QColor pressedFace, flash, face, disabledFace, highlight, shadow, line, text;
};

/// The box of the flow charts and of the flow pane, and the picture button of the screens. It draws itself in
/// one of eight styles:
///
/// 0 and 1: a raised edge on the system's face colour; 2, 4, 5, 6: a box, with sharp, round or half-round
/// corners, or without a line; 3: a box that can flash; 7: a picture stretched over the button, another one
/// while it is down.
class CExpButton : public QPushButton {
  Q_OBJECT
 public:
  static constexpr int kEdgeStyle = 0;
  static constexpr int kFlowStyle = 3;
  static constexpr int kPictureStyle = 7;

  explicit CExpButton(QWidget* parent = nullptr);

  int Style() const { return m_style; }
  void SetStyle(int style);  ///< 0 to 7; others are not taken
  /// A click flips the pressed state. Only styles 0 and 7 do.
  void SetToggles(bool toggles);
  bool IsPressed() const { return m_pressed; }
  void SetPressed(bool pressed);  ///< the button stays down
  bool IsFlashing() const { return m_flash; }
  void SetFlash(bool flash);  ///< style 3: drawn in the flash colour until the button has been pressed
  void SetTextAlign(Qt::Alignment align);
  void SetColors(const ExpButtonColors& colors);
  void SetPictures(const QIcon& up, const QIcon& down);  ///< of style 7

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void nextCheckState() override;

 private:
  bool CanToggle() const { return m_toggles && (m_style == kEdgeStyle || m_style == kPictureStyle); }
  bool IsIn() const { return isDown() || m_pressed; }
  void FollowState();
  void ClickIfToggledFromOutside(bool checked);
  QColor ColorOr(const QColor& color, QPalette::ColorRole role) const;
  QColor FaceColor() const;
  QColor TextColor() const;
  void PaintEdge(QPainter& painter) const;
  void PaintBox(QPainter& painter) const;
  void PaintPicture(QPainter& painter) const;
  void PaintText(QPainter& painter) const;
  void PaintFocus(QPainter& painter) const;

  int m_style = kEdgeStyle;
  bool m_toggles = false;
  bool m_pressed = false;
  bool m_flash = false;
  Qt::Alignment m_align = Qt::AlignCenter;
  ExpButtonColors m_colors;
  QIcon m_up, m_down;
};

}  // namespace tremlo
