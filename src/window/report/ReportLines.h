#pragma once

#include <QString>

#include <memory>

class QFont;
class QPaintDevice;
class QPainter;
class QTextLayout;

namespace tremlo {

/// A text broken into lines of a width. Widths and heights in units of the device for which it is laid out.
class ReportLines {
 public:
  /// In one line but for its own breaks.
  ReportLines(const QString& text, const QFont& font, QPaintDevice& device);
  ReportLines(ReportLines&&) noexcept;
  ReportLines& operator=(ReportLines&&) noexcept;
  ~ReportLines();

  double LeastWidth() const;    ///< of the longest word
  double NaturalWidth() const;  ///< of the longest line
  /// Breaks lines that are longer; a word that is longer still is parted.
  void Break(double width);

  int Count() const;
  double Height(int line) const;
  /// Draws one line with its upper edge at `top`, aligned between `left` and `left` + `width`.
  void Draw(QPainter& painter, int line, double left, double top, double width,
            Qt::Alignment alignment) const;

 private:
  std::unique_ptr<QTextLayout> m_layout;
};

}  // namespace tremlo
