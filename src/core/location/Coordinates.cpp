#include "core/location/Coordinates.h"

#include "core/location/PlaneZone.h"

#include <QByteArray>

#include <cmath>
#include <memory>
#include <proj.h>

namespace tremlo {

namespace {

struct ContextCloser {
  void operator()(PJ_CONTEXT* context) const { proj_context_destroy(context); }
};
struct ProjectionCloser {
  void operator()(PJ* projection) const { proj_destroy(projection); }
};

const PlaneZone& ZoneOrFirst(int number) {
  const bool known = number >= 1 && number <= static_cast<int>(kPlaneZoneCount);
  return PlaneZones()[known ? static_cast<std::size_t>(number - 1) : 0];
}

/// The origin takes 17 digits: with fewer the meridians on thirds and sixths of a degree move by centimetres.
QByteArray Definition(const PlaneZone& zone) {
  return "+proj=tmerc +lat_0=" + QByteArray::number(zone.latOrigin, 'g', 17) +
         " +lon_0=" + QByteArray::number(zone.lonOrigin, 'g', 17) +
         " +k=0.9999 +x_0=0 +y_0=0 +ellps=GRS80 +units=m +no_defs";
}

/// The projection of a zone. To make one takes as long as a request to a service near by, and the conversions
/// of one work all go to one zone.
class ZoneProjection {
 public:
  /// Null without memory for it.
  PJ* Of(int zone) {
    if (m_projection && m_zone == zone) return m_projection.get();
    const QByteArray definition = Definition(ZoneOrFirst(zone));
    m_projection.reset(proj_create(m_context.get(), definition.constData()));
    m_zone = zone;
    return m_projection.get();
  }

 private:
  static PJ_CONTEXT* MakeContext() {
    PJ_CONTEXT* const context = proj_context_create();
    // Without its database, which the projection does not need, the library would print a line for each
    // projection: the level alone does not hold it back.
    proj_log_level(context, PJ_LOG_NONE);
    proj_log_func(context, nullptr, [](void*, int, const char*) {});
    return context;
  }

  std::unique_ptr<PJ_CONTEXT, ContextCloser> m_context{MakeContext()};
  std::unique_ptr<PJ, ProjectionCloser> m_projection;
  int m_zone = 0;
};

}  // namespace

PlanePoint ToPlaneRectangular(int zone, double latDegrees, double lonDegrees) {
  // A context serves one thread at a time, so each thread has its own.
  thread_local ZoneProjection projections;
  PJ* const projection = projections.Of(zone);
  if (!projection) return {HUGE_VAL, HUGE_VAL};

  const double pi = 2.0 * std::acos(0.0);
  const PJ_COORD place = proj_coord(lonDegrees / 180.0 * pi, latDegrees / 180.0 * pi, 0.0, 0.0);
  const PJ_COORD point = proj_trans(projection, PJ_FWD, place);
  return {point.xy.y, point.xy.x};
}

double DecimalDegrees(double degrees, double minutes, double seconds) {
  return minutes / 60.0 + degrees + seconds / 3600.0;
}

double SiteLatitude(const SiteRecord& site) {
  return DecimalDegrees(site.latDeg, site.latMin, site.latSec);
}

double SiteLongitude(const SiteRecord& site) {
  return DecimalDegrees(site.lonDeg, site.lonMin, site.lonSec);
}

SplitDegrees SplitDecimalDegrees(double decimalDegrees) {
  constexpr double kThousandthsPerDegree = 3600000.0;
  constexpr double kThousandthsPerMinute = 60000.0;
  const double thousandths = std::floor(std::fabs(decimalDegrees) * kThousandthsPerDegree + 1e-6);
  const double sign = decimalDegrees < 0.0 ? -1.0 : 1.0;
  // Adding 0 turns a negative zero, which would be shown with its sign, into zero.
  return {sign * std::floor(thousandths / kThousandthsPerDegree) + 0.0,
          sign * std::fmod(std::floor(thousandths / kThousandthsPerMinute), 60.0) + 0.0,
          sign * std::fmod(thousandths, kThousandthsPerMinute) / 1000.0 + 0.0};
}

}  // namespace tremlo
