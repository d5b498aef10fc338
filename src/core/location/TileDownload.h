#pragma once

#include "core/location/ServiceSettings.h"
#include "core/location/TileCache.h"

namespace tremlo {

/// The download of a map's tile cache over the network, with the options and certificates that `settings`
/// hold for the tiles. An error page of any status is an answer; a failed connection, a refused certificate,
/// silence, a body that is cut off or longer than allowed is none. Keeps its connection from one tile to the
/// next, also in its copies, which therefore belong to one thread; each call blocks it.
TileDownload MakeTileDownload(const ServiceSettings& settings);

}  // namespace tremlo
