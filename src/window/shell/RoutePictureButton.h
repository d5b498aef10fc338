#pragma once

#include <QAbstractButton>
#include <QSvgRenderer>

namespace tremlo {

/// A picture with its title, one of several of which exactly one is chosen. The card keeps its light colours
/// in a dark theme.
class RoutePictureButton : public QAbstractButton {
  Q_OBJECT
 public:
  RoutePictureButton(const QString& picture, const QString& title, QWidget* parent = nullptr);

  /// The picture is there.
  bool IsValid() const { return m_picture.isValid(); }
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QSvgRenderer m_picture;
};

}  // namespace tremlo
