#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tremlo {

/// The primitives of the project file, whatever the machine's own byte order: numbers are little-endian, a
/// flag is one byte, a list is a 32-bit count and its elements. A string is the tag FF FE FF, its length in
/// UTF-16 units and the units. The length takes one of four forms: a byte below FF; FF and a word below FFFE;
/// FF, FFFF and a double word below FFFFFFFF; FF, FFFF, FFFFFFFF and eight bytes.

/// Reads from bytes in memory, which must outlive it. A value that the bytes left cannot hold fails the
/// archive for good: that value and all later ones stay as they were. No memory is taken by a count or a
/// length alone.
class ArchiveReader {
 public:
  explicit ArchiveReader(std::string_view bytes) : m_rest(bytes), m_size(bytes.size()) {}

  bool Failed() const { return m_failed; }
  void Fail() { m_failed = true; }
  std::size_t Size() const { return m_size; }  ///< of all the bytes, read or not

  void Value(bool& flag);  ///< any byte but 0 is true
  void Value(std::int32_t& number);
  void Value(double& number);  ///< bit for bit, also NaNs
  /// Units are taken as they come, halves of surrogate pairs too. Without the tag the length is one of bytes,
  /// which are CP932 text.
  void Value(QString& text);
  void Value(std::vector<bool>& flags);
  void Value(std::vector<std::int32_t>& numbers);
  void Value(std::vector<double>& numbers);
  void Value(std::vector<QString>& texts);
  void Value(std::vector<std::vector<double>>& rows);
  std::uint32_t Count();  ///< 0 on failure

 private:
  const char* Take(std::size_t size);  ///< nullptr on failure
  template <class T>
  T Number();
  std::uint64_t StringLength(bool& wide);
  template <class T>
  void NumberList(std::vector<T>& numbers);
  template <class T>
  void List(std::vector<T>& values);

  std::string_view m_rest;
  std::size_t m_size = 0;
  bool m_failed = false;
};

/// Appends to bytes in memory. The one failure is a list that a 32-bit count cannot tell.
class ArchiveWriter {
 public:
  /// `expectedSize` spares copies of what is written already; any value is right.
  explicit ArchiveWriter(std::size_t expectedSize = 0) { m_bytes.reserve(expectedSize); }

  bool Failed() const { return m_failed; }
  std::string TakeBytes() { return std::move(m_bytes); }

  void Value(bool flag);
  void Value(std::int32_t number);
  void Value(double number);
  void Value(const QString& text);
  void Value(const std::vector<bool>& flags);
  void Value(const std::vector<std::int32_t>& numbers);
  void Value(const std::vector<double>& numbers);
  void Value(const std::vector<QString>& texts);
  void Value(const std::vector<std::vector<double>>& rows);
  void Count(std::size_t count);
  void StringLength(std::uint64_t length);  ///< the length alone, behind the tag

 private:
  template <class T>
  void Number(T number);
  template <class T>
  void Numbers(const T* first, std::size_t count);
  template <class T>
  void List(const std::vector<T>& values);

  std::string m_bytes;
  bool m_failed = false;
};

/// Adds up what an ArchiveWriter would append, at no cost per sample.
class ArchiveSize {
 public:
  std::size_t Bytes() const { return m_bytes; }

  void Value(bool) { m_bytes += 1; }
  void Value(std::int32_t) { m_bytes += 4; }
  void Value(double) { m_bytes += 8; }
  void Value(const QString& text);
  void Value(const std::vector<bool>& flags) { m_bytes += 4 + flags.size(); }
  void Value(const std::vector<std::int32_t>& numbers) { m_bytes += 4 + 4 * numbers.size(); }
  void Value(const std::vector<double>& numbers) { m_bytes += 4 + 8 * numbers.size(); }
  template <class T>
  void Value(const std::vector<T>& values) {
    Count(values.size());
    for (const T& value : values) Value(value);
  }
  void Count(std::size_t) { m_bytes += 4; }

 private:
  std::size_t m_bytes = 0;
};

}  // namespace tremlo
