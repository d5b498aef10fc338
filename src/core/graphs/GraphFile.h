#pragma once

#include "core/ask/FileDialogs.h"
#include "core/graphs/GraphRange.h"
#include "core/graphs/GraphSeries.h"

#include <optional>

namespace tremlo {

/// The files that a graph's picture is saved to.
enum class PictureFormat { Png, Svg, Pdf };

/// By the ending of the file's name; none for another ending.
std::optional<PictureFormat> PictureFormatOf(const QString& path);

/// The questions for the file of a graph's picture, and of its curves. The name that they propose is that of
/// the graph, behind that of its curve where one curve alone has points.
FileQuestion PictureToWrite(GraphKind kind, const std::vector<GraphSeries>& curves);
FileQuestion CurvesToWrite(GraphKind kind, const std::vector<GraphSeries>& curves);

/// What is told of a name whose ending is none of a picture.
QString UnknownPictureText(const QString& path);

}  // namespace tremlo
