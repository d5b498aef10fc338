#pragma once

#include <picojson.h>
#include <string>
#include <string_view>

namespace tremlo {

/// Reads a JSON text; what stands behind its value is ignored. False for a text that is none, is nested more
/// than 100 deep, or holds more than 500,000 values, each array and object counted as one: what an answer
/// makes in memory stays in proportion. Throws the library's exception for a number without a double.
bool ParseJson(std::string_view text, picojson::value& value);

/// The string `key` of an object; empty when it is missing or null. Throws the library's exception when
/// `object` is no object or the value is of another type.
std::string StringOf(const picojson::value& object, const std::string& key);

}  // namespace tremlo
