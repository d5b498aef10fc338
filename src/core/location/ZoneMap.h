#pragma once

#include "core/files/ProgramFolders.h"
#include "core/location/DPoly.h"

#include <QString>

#include <optional>
#include <vector>

namespace tremlo {

/// Reads the zone polygons of the 500 x 500 map from keiarea.csv in SystemData: one per zone, in the order of
/// the zones, each a line that starts with "KEI" and the lines of its points (pixels from the left, pixels up
/// from the bottom edge). `polygons` is replaced; it becomes empty when the file cannot be opened. Returns
/// the user's message for a point with fewer than two fields; `polygons` is then as it was.
std::optional<QString> LoadZonePolygons(const ProgramFolders& folders, std::vector<CDPoly>& polygons);
/// The same for the file's content.
std::optional<QString> ParseZonePolygons(const QByteArray& content, std::vector<CDPoly>& polygons);

/// The index of the first polygon that contains a pixel of the map (y from the top edge); -1 when none does.
int PickZone(const std::vector<CDPoly>& polygons, double x, double y);

}  // namespace tremlo
