#pragma once

#include <QString>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace tremlo::cli {

/// Builds one JSON text with its keys in the order of the calls, in UTF-8. Numbers have 17 significant digits, so
/// that they read back to the same double; one that is not finite is the string "nan", "inf" or "-inf".
class JsonWriter {
 public:
  void BeginObject() { Open('{'); }
  void EndObject() { Close('}'); }
  void BeginArray() { Open('['); }
  void EndArray() { Close(']'); }
  void Key(std::string_view name);

  void Value(const QString& text);
  void Value(double number);
  void Value(int number);
  void Value(bool flag);
  void Value(const std::vector<double>& numbers) { ValueList(numbers); }
  void Value(const std::vector<int>& numbers) { ValueList(numbers); }
  void Value(const std::vector<QString>& texts) { ValueList(texts); }
  void Value(const std::vector<bool>& flags);
  void Value(const std::vector<std::vector<double>>& rows) { ValueList(rows); }
  template <class T, std::size_t N>
  void Value(const std::array<T, N>& values) {
    ValueList(values);
  }

  template <class T>
  void Member(std::string_view name, const T& value) {
    Key(name);
    Value(value);
  }

  const std::string& Text() const { return m_text; }

 private:
  void Open(char bracket);
  void Close(char bracket);
  void Separate();
  template <class List>
  void ValueList(const List& values) {
    BeginArray();
    for (const auto& value : values) Value(value);
    EndArray();
  }

  std::string m_text;
  bool m_needsComma = false;
};

}  // namespace tremlo::cli
