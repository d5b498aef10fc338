#pragma once

#include <QPaintDevice>
#include <QRect>
#include <QSize>
#include <QString>

#include <memory>

class QIODevice;
class SvgEngine;

/// What the program asks of Qt's class of this name: a device whose painter writes an SVG file, text as text
/// and lines as lines. As there, clips are not written.
class QSvgGenerator : public QPaintDevice {
 public:
  QSvgGenerator();
  ~QSvgGenerator() override;

  void setOutputDevice(QIODevice* device) { m_device = device; }
  void setResolution(int dotsPerInch) { m_dotsPerInch = dotsPerInch; }
  void setSize(const QSize& pixels) { m_size = pixels; }
  void setViewBox(const QRect& box) { m_viewBox = box; }
  void setTitle(const QString& title) { m_title = title; }

  QPaintEngine* paintEngine() const override;

 protected:
  int metric(PaintDeviceMetric metric) const override;

 private:
  friend class SvgEngine;

  std::unique_ptr<SvgEngine> m_engine;
  QIODevice* m_device = nullptr;
  int m_dotsPerInch = 96;
  QSize m_size;
  QRect m_viewBox;
  QString m_title;
};
