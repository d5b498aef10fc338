#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace tremlo {

/// Text of a colour cell, "#RRGGBB", for a colour 0x00BBGGRR.
QString ColorToText(std::int32_t bgr);

/// The colour 0x00BBGGRR of a text "#RRGGBB"; nothing for any other text.
std::optional<std::int32_t> TextToColor(const QString& text);

/// What a screen reader says of a colour.
QString SpokenColor(std::int32_t bgr);

}  // namespace tremlo
