#pragma once

#include "core/location/MapPaintJob.h"
#include "core/location/TileMap.h"
#include "core/location/TileStore.h"
#include "core/location/TileWorker.h"
#include "core/project/MorvaneDoc.h"
#include "window/location/MapSurface.h"

#include <QTimer>
#include <QWidget>

#include <functional>

namespace tremlo {

/// The map of a screen. It is painted outside the paint event, a step at a time from the event loop, on a
/// surface that is shown when the painting is done; of one that is dropped nothing is seen. A tile that is
/// neither in memory nor in the cache is asked for on a worker, and the painting goes on when its answer
/// comes. What the map shows beside the tiles, and what a drag on it moves, is the screen's own.
class MapControl : public QWidget {
  Q_OBJECT
 public:
  /// Whether the program is online; asked at the beginning of each painting.
  using OnlineFlag = std::function<bool()>;

  /// Zoom and scale are the document's; a turn of the wheel writes them.
  MapControl(CMorvaneDoc& doc, OnlineFlag online, TileCache tiles, QWidget* parent = nullptr);
  ~MapControl() override;

  TileMap& Map() { return m_map; }
  const TileMap& Map() const { return m_map; }

  /// A press and a drag, and the arrow keys, move the view. Without this they are told to the screen alone.
  void SetMovesView(bool moves) { m_movesView = moves; }
  void SetShowsOverlays(bool shows) { m_showsOverlays = shows; }

  /// Centres the map on a place and paints it.
  void CenterOn(const GeoPoint& place);
  /// A paint request: a painting with what the document and the map hold now. One that runs is dropped. While
  /// the map is not visible the painting waits until it is.
  void Repaint();
  /// A command begins or the screen is left: drops the painting. Its request is broken off and the worker has
  /// ended on return.
  void Abandon();
  bool IsPainting() const { return m_job.IsRunning(); }

  std::size_t TileCount() const { return m_tiles.Count(); }  ///< in memory, gaps too

 Q_SIGNALS:
  void Pressed(const tremlo::PixelPoint& pixel);  ///< by the left button, as all three
  void Moved(const tremlo::PixelPoint& pixel, bool buttonDown);
  void Released(const tremlo::PixelPoint& pixel);
  void PointerAt(const tremlo::GeoPoint& place);  ///< also while a painting waits for the service
  void PointerLeft();
  void Painted();  ///< a painting is on display

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void TakeDocument();
  void Step();
  bool PaintTile(const TilePlacement& placement);
  void Await(const TilePlacement& placement);
  void TakeAnswer(const TileNumber& tile, TileOutcome outcome);
  void PaintOffline();
  void Complete();
  void Show();
  void Turn(int delta);
  bool ShiftByKey(int key);
  void DescribeView();
  void PaintShown(QPainter& painter);

  CMorvaneDoc& m_doc;
  OnlineFlag m_online;
  TileMap m_map;
  TileStore<QImage> m_tiles;
  TileWorker m_worker;
  MapPaintJob m_job;
  TileNumber m_asked;       ///< the tile that the worker was asked for last
  TilePlacement m_awaited;  ///< the tile without which the painting cannot go on
  bool m_waiting = false;   ///< it is not there yet
  MapSurface m_surface;     ///< of the painting that runs
  MapSurface m_shown;       ///< the last that was finished
  bool m_hasShown = false;
  QTimer m_steps;
  bool m_due = true;  ///< a painting waits for the map to be visible
  bool m_movesView = false;
  bool m_showsOverlays = false;
  PixelPoint m_pointer;  ///< where it was seen last
  int m_wheel = 0;       ///< of a turn that is not whole yet, in eighths of a degree
};

}  // namespace tremlo
