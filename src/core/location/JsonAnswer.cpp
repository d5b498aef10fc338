#include "core/location/JsonAnswer.h"

#include <cstddef>
#include <utility>

namespace tremlo {

namespace {

constexpr int kDeepest = 100;
constexpr int kMostValues = 500000;

/// Builds one value and, through contexts of their own, those in it. The library's own context counts the
/// depth of arrays alone and no values: an answer made of "{" would take the stack down to its end, one made
/// of "{}," thirty times its size of memory.
class BoundedContext {
 public:
  BoundedContext(picojson::value& value, int depth, int& valuesLeft)
      : m_value(value), m_depth(depth), m_valuesLeft(valuesLeft) {}

  bool set_null() { return Set(picojson::value()); }
  bool set_bool(bool boolean) { return Set(picojson::value(boolean)); }
  bool set_number(double number) { return Set(picojson::value(number)); }

  template <class Iterator>
  bool parse_string(picojson::input<Iterator>& in) {
    return Set(picojson::value(picojson::string_type, false)) &&
           picojson::_parse_string(m_value.get<std::string>(), in);
  }

  bool parse_array_start() { return Begin(picojson::array_type); }
  template <class Iterator>
  bool parse_array_item(picojson::input<Iterator>& in, std::size_t) {
    if (m_valuesLeft <= 0) return false;
    auto& items = m_value.get<picojson::array>();
    items.emplace_back();
    return ParseInner(items.back(), in);
  }
  bool parse_array_stop(std::size_t) { return true; }

  bool parse_object_start() { return Begin(picojson::object_type); }
  template <class Iterator>
  bool parse_object_item(picojson::input<Iterator>& in, const std::string& key) {
    return m_valuesLeft > 0 && ParseInner(m_value.get<picojson::object>()[key], in);
  }
  bool parse_object_stop() { return true; }

 private:
  bool Set(picojson::value&& value) {
    if (--m_valuesLeft < 0) return false;
    m_value = std::move(value);
    return true;
  }
  bool Begin(int type) { return m_depth < kDeepest && Set(picojson::value(type, false)); }

  template <class Iterator>
  bool ParseInner(picojson::value& value, picojson::input<Iterator>& in) {
    BoundedContext inner(value, m_depth + 1, m_valuesLeft);
    return picojson::_parse(inner, in);
  }

  picojson::value& m_value;
  int m_depth;        ///< of arrays and objects around the value
  int& m_valuesLeft;  ///< for the whole text
};

}  // namespace

bool ParseJson(std::string_view text, picojson::value& value) {
  int valuesLeft = kMostValues;
  BoundedContext context(value, 0, valuesLeft);
  picojson::input<std::string_view::const_iterator> in(text.begin(), text.end());
  return picojson::_parse(context, in);
}

std::string StringOf(const picojson::value& object, const std::string& key) {
  const picojson::value& value = object.get(key);
  return value.is<picojson::null>() ? std::string() : value.get<std::string>();
}

}  // namespace tremlo
