#pragma once

#include <QDialog>
#include <QSvgRenderer>

namespace tremlo {

/// The picture that opens the program; closes itself.
class CDlgSplash : public QDialog {
  Q_OBJECT
 public:
  explicit CDlgSplash(int shownMs);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  QSvgRenderer m_picture;
  int m_shownMs;
};

}  // namespace tremlo
