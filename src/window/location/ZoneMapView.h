#pragma once

#include "core/location/DPoly.h"

#include <QSvgRenderer>
#include <QWidget>

#include <vector>

namespace tremlo {

/// The map of Japan with the areas of the plane zones, 500 pixels a side, on which a click picks a zone.
class ZoneMapView : public QWidget {
  Q_OBJECT
 public:
  /// `picture`: the map's file. Without it the areas alone are there to be picked; without areas nothing is.
  ZoneMapView(const QString& picture, std::vector<CDPoly> areas, QWidget* parent = nullptr);

  /// Marks the area of a zone, counted from 0; -1 for none.
  void MarkZone(int index);

 Q_SIGNALS:
  void Picked(int index);  ///< a click inside an area; one outside of all says nothing

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  QSvgRenderer m_picture;
  std::vector<CDPoly> m_areas;
  int m_marked = -1;
};

}  // namespace tremlo
