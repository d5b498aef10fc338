#include "window/report/ReportLines.h"

#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace tremlo {

namespace {

constexpr double kUnbounded = 1e6;  // wider than any paper, in units of any device

QTextOption Option() {
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  return option;
}

}  // namespace

ReportLines::ReportLines(const QString& text, const QFont& font, QPaintDevice& device)
    : m_layout(std::make_unique<QTextLayout>(QString(text).replace(u'\n', QChar(QChar::LineSeparator)), font,
                                             &device)) {
  m_layout->setTextOption(Option());
  m_layout->setCacheEnabled(true);  // what is measured is drawn as well
  Break(kUnbounded);
}

ReportLines::ReportLines(ReportLines&&) noexcept = default;
ReportLines& ReportLines::operator=(ReportLines&&) noexcept = default;
ReportLines::~ReportLines() = default;

double ReportLines::LeastWidth() const {
  return std::min(std::ceil(m_layout->minimumWidth()), NaturalWidth());
}

double ReportLines::NaturalWidth() const {
  double width = 0.0;
  for (int line = 0; line < Count(); ++line)
    width = std::max(width, m_layout->lineAt(line).naturalTextWidth());
  return std::ceil(width);
}

void ReportLines::Break(double width) {
  if (Count() > 0 && NaturalWidth() <= width) return;
  double top = 0.0;
  m_layout->beginLayout();
  for (QTextLine line = m_layout->createLine(); line.isValid(); line = m_layout->createLine()) {
    line.setLeadingIncluded(true);
    line.setLineWidth(width);
    line.setPosition({0.0, top});
    top += line.height();
  }
  m_layout->endLayout();
}

int ReportLines::Count() const {
  return m_layout->lineCount();
}

double ReportLines::Height(int line) const {
  return m_layout->lineAt(line).height();
}

void ReportLines::Draw(QPainter& painter, int line, double left, double top, double width,
                       Qt::Alignment alignment) const {
  const QTextLine text = m_layout->lineAt(line);
  const double free = width - text.naturalTextWidth();
  if (alignment.testFlag(Qt::AlignRight)) left += free;
  if (alignment.testFlag(Qt::AlignHCenter)) left += free / 2.0;
  text.draw(&painter, {left, top - text.y()});
}

}  // namespace tremlo
