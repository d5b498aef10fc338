#include "core/location/JsonAnswer.h"

namespace tremlo {

namespace {

constexpr int kDeepest = 100;

/// The library counts the depth of arrays alone: an answer made of "{" would take the stack down to its end.
bool IsTooDeep(std::string_view text) {
  int depth = 0;
  bool inString = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (inString) {
      if (c == '\\') ++i;
      if (c == '"') inString = false;
    } else if (c == '"') {
      inString = true;
    } else if (c == '{' || c == '[') {
      if (++depth > kDeepest) return true;
    } else if ((c == '}' || c == ']') && --depth <= 0) {
      return false;  // the end of the value, or no value at all
    }
  }
  return false;
}

}  // namespace

bool ParseJson(std::string_view text, picojson::value& value) {
  if (IsTooDeep(text)) return false;
  std::string error;
  picojson::parse(value, text.begin(), text.end(), &error);
  return error.empty();
}

std::string StringOf(const picojson::value& object, const std::string& key) {
  const picojson::value& value = object.get(key);
  return value.is<picojson::null>() ? std::string() : value.get<std::string>();
}

}  // namespace tremlo
