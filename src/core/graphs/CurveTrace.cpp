#include "core/graphs/CurveTrace.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numeric>
#include <optional>

namespace tremlo {
namespace {

/// Gathers the points of a polyline column by column.
class ColumnWriter {
 public:
  explicit ColumnWriter(std::vector<TracePiece>& pieces) : m_pieces(pieces) {}
  ~ColumnWriter() { End(); }
  ColumnWriter(const ColumnWriter&) = delete;
  ColumnWriter& operator=(const ColumnWriter&) = delete;

  void MoveTo(int x, int y) {
    End();
    Begin(x, y, y, false);
  }

  void LineTo(int x, int y) {
    if (x == m_x) {
      Cover(y);
      m_y = y;
      m_crowded = m_solid = true;
      return;
    }
    if (m_crowded && std::abs(x - m_x) == 1) {
      // Between crowded neighbours the connecting line is upright: half of it in either column.
      const int middle = std::midpoint(m_y, y);
      Cover(middle);
      End();
      Begin(x, y, middle, true);
      return;
    }
    const TracePiece line{m_x, m_y, x, y};
    End();
    m_pieces.push_back(line);
    Begin(x, y, y, false);
  }

 private:
  void Begin(int x, int y, int from, bool solid) {
    m_open = true;
    m_x = x;
    m_y = y;
    m_top = std::min(y, from);
    m_bottom = std::max(y, from);
    m_crowded = false;
    m_solid = solid;
  }

  void Cover(int y) {
    m_top = std::min(m_top, y);
    m_bottom = std::max(m_bottom, y);
  }

  void End() {
    if (m_open && m_solid) m_pieces.push_back({m_x, m_top, m_x, m_bottom});
    m_open = false;
  }

  std::vector<TracePiece>& m_pieces;
  bool m_open = false;
  int m_x = 0, m_y = 0;         ///< the last point
  int m_top = 0, m_bottom = 0;  ///< what its column covers
  bool m_crowded = false;       ///< the column holds more than one point
  bool m_solid = false;         ///< the column has to be drawn itself: no line ends in it
};

/// A point on its way to pixels.
struct Place : CurveTracer::XPlace {
  int row = 0;
};

/// Walks along one curve.
class Walk {
 public:
  explicit Walk(std::vector<TracePiece>& pieces) : m_writer(pieces) {}

  void Add(const CurveTracer::XPlace& x, int row) {
    const Place place{x, row};
    place.inside ? Enter(place) : Leave(place);
    m_previous = place;
  }

 private:
  void Enter(const Place& place) {
    if (m_previous && m_previous->inside) {
      m_writer.LineTo(place.column, place.row);
    } else if (const auto row = RowAtEdge(m_previous, place)) {
      m_writer.MoveTo(m_previous->column, *row);
      m_writer.LineTo(place.column, place.row);
    } else {
      m_writer.MoveTo(place.column, place.row);
    }
  }

  void Leave(const Place& place) {
    if (!m_previous) return;
    if (!m_previous->inside && m_previous->column == place.column) return;
    const auto exit = RowAtEdge(place, *m_previous);
    if (!exit) return;
    if (!m_previous->inside) {
      const auto entry = RowAtEdge(m_previous, place);
      if (!entry) return;
      m_writer.MoveTo(m_previous->column, *entry);
    }
    m_writer.LineTo(place.column, *exit);
  }

  /// Where the line from a point outside to another one crosses the frame's edge.
  static std::optional<int> RowAtEdge(const std::optional<Place>& outside, const Place& other) {
    if (!outside) return std::nullopt;
    const double part = (outside->column - outside->position) / (other.position - outside->position);
    const double row = outside->row + part * (other.row - outside->row);
    if (!std::isfinite(row)) return std::nullopt;
    return static_cast<int>(std::lround(row));
  }

  ColumnWriter m_writer;
  std::optional<Place> m_previous;
};

}  // namespace

std::vector<TracePiece> CurveTracer::Trace(const std::vector<double>& x, const std::vector<double>& y) {
  std::vector<TracePiece> pieces;
  if (!m_xAxis.IsUsable() || !m_yAxis.IsUsable()) return pieces;
  const std::vector<XPlace>& places = PlacesOf(x);
  Walk walk(pieces);
  const std::size_t count = std::min(x.size(), y.size());
  for (std::size_t i = 0; i < count; ++i) {
    if (!places[i].exists) continue;
    if (const std::optional<int> row = m_yAxis.Pixel(y[i])) walk.Add(places[i], *row);
  }
  return pieces;
}

const std::vector<CurveTracer::XPlace>& CurveTracer::PlacesOf(const std::vector<double>& x) {
  if (x == m_x) return m_xPlaces;
  m_x = x;
  m_xPlaces.assign(x.size(), {});
  for (std::size_t i = 0; i < x.size(); ++i) {
    const std::optional<int> column = m_xAxis.Pixel(x[i]);
    if (!column) continue;
    const bool inside = m_xAxis.Contains(x[i]);
    m_xPlaces[i] = {*column, true, inside, inside ? *column : m_xAxis.Position(x[i])};
  }
  return m_xPlaces;
}

}  // namespace tremlo
