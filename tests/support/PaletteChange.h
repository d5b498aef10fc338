#pragma once

#include <QApplication>
#include <QPalette>

namespace tremlo::test {

/// The palette of the program, put back at the end.
class PaletteChange {
 public:
  PaletteChange() : m_before(QApplication::palette()) {}
  ~PaletteChange() { To(m_before); }
  PaletteChange(const PaletteChange&) = delete;
  PaletteChange& operator=(const PaletteChange&) = delete;

  void ToDark() { To(QPalette(QColor(0x35, 0x35, 0x35))); }
  void Back() { To(m_before); }

 private:
  static void To(const QPalette& palette) {
    QApplication::setPalette(palette);
    for (int i = 0; i < 4; ++i) QCoreApplication::processEvents();
  }

  QPalette m_before;
};

}  // namespace tremlo::test
