#include "core/project/Archive.h"

#include "core/files/Cp932Text.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <bit>
#include <limits>

namespace tremlo {

namespace {

constexpr std::string_view kWideTag = "\xFF\xFE\xFF";
constexpr std::uint8_t kByteEscape = 0xFF;
constexpr std::uint16_t kWideMark = 0xFFFE;  // behind an escape byte: the text is wide, its length follows
constexpr std::uint16_t kWordEscape = 0xFFFF;
constexpr std::uint32_t kDoubleWordEscape = 0xFFFFFFFF;

// Lists of numbers pass through a block this large, which stays in the processor's first cache: a copy into
// it and a copy out of it cost less than clearing fresh memory before it is filled.
constexpr std::size_t kBlockBytes = 4096;

template <class T>
using Block = std::array<T, kBlockBytes / sizeof(T)>;

}  // namespace

const char* ArchiveReader::Take(std::size_t size) {
  if (m_failed || size > m_rest.size()) {
    m_failed = true;
    return nullptr;
  }
  const char* taken = m_rest.data();
  m_rest.remove_prefix(size);
  return taken;
}

template <class T>
T ArchiveReader::Number() {
  const char* bytes = Take(sizeof(T));
  return bytes ? qFromLittleEndian<T>(bytes) : T{};
}

void ArchiveReader::Value(bool& flag) {
  const auto byte = Number<std::uint8_t>();
  if (!m_failed) flag = byte != 0;
}

void ArchiveReader::Value(std::int32_t& number) {
  const auto read = Number<std::int32_t>();
  if (!m_failed) number = read;
}

void ArchiveReader::Value(double& number) {
  const auto bits = Number<std::uint64_t>();
  if (!m_failed) number = std::bit_cast<double>(bits);
}

std::uint32_t ArchiveReader::Count() {
  return Number<std::uint32_t>();
}

std::uint64_t ArchiveReader::StringLength(bool& wide) {
  const auto byte = Number<std::uint8_t>();
  if (byte != kByteEscape) return byte;
  const auto word = Number<std::uint16_t>();
  if (word == kWideMark) {
    // A second mark would be no length.
    if (wide) m_failed = true;
    if (m_failed) return 0;
    wide = true;
    return StringLength(wide);
  }
  if (word != kWordEscape) return word;
  const auto doubleWord = Number<std::uint32_t>();
  return doubleWord == kDoubleWordEscape ? Number<std::uint64_t>() : doubleWord;
}

void ArchiveReader::Value(QString& text) {
  bool wide = false;
  const std::uint64_t length = StringLength(wide);
  // Compared before it is doubled, so that no length can wrap around.
  if (length > m_rest.size() / (wide ? 2 : 1)) m_failed = true;
  if (m_failed) return;
  const auto size = static_cast<std::size_t>(length);
  if (wide) {
    QString units(static_cast<qsizetype>(size), Qt::Uninitialized);
    qFromLittleEndian<char16_t>(Take(2 * size), units.size(), units.data());
    text = units;
  } else {
    text = DecodeCp932({Take(size), size});
  }
}

void ArchiveReader::Value(std::vector<bool>& flags) {
  const std::size_t count = Count();
  const char* bytes = Take(count);
  if (!bytes) return;
  flags.resize(count);
  std::transform(bytes, bytes + count, flags.begin(), [](char byte) { return byte != 0; });
}

template <class T>
void ArchiveReader::NumberList(std::vector<T>& numbers) {
  const std::size_t count = Count();
  if (count > m_rest.size() / sizeof(T)) m_failed = true;
  const char* bytes = Take(m_failed ? 0 : count * sizeof(T));
  if (!bytes) return;
  numbers.clear();
  numbers.reserve(count);
  Block<T> block;
  while (numbers.size() < count) {
    const std::size_t size = std::min(block.size(), count - numbers.size());
    qFromLittleEndian<T>(bytes + numbers.size() * sizeof(T), static_cast<qsizetype>(size), block.data());
    numbers.insert(numbers.end(), block.data(), block.data() + size);
  }
}

void ArchiveReader::Value(std::vector<std::int32_t>& numbers) {
  NumberList(numbers);
}
void ArchiveReader::Value(std::vector<double>& numbers) {
  NumberList(numbers);
}

template <class T>
void ArchiveReader::List(std::vector<T>& values) {
  std::vector<T> list;
  for (std::uint32_t left = Count(); left > 0 && !m_failed; --left) Value(list.emplace_back());
  if (!m_failed) values = std::move(list);
}

void ArchiveReader::Value(std::vector<QString>& texts) {
  List(texts);
}
void ArchiveReader::Value(std::vector<std::vector<double>>& rows) {
  List(rows);
}

template <class T>
void ArchiveWriter::Numbers(const T* first, std::size_t count) {
  Block<T> block;
  for (std::size_t done = 0; done < count; done += block.size()) {
    const std::size_t size = std::min(block.size(), count - done);
    qToLittleEndian<T>(first + done, static_cast<qsizetype>(size), block.data());
    m_bytes.append(reinterpret_cast<const char*>(block.data()), size * sizeof(T));
  }
}

template <class T>
void ArchiveWriter::Number(T number) {
  const T stored = qToLittleEndian(number);
  m_bytes.append(reinterpret_cast<const char*>(&stored), sizeof(T));
}

void ArchiveWriter::Value(bool flag) {
  m_bytes += flag ? '\1' : '\0';
}
void ArchiveWriter::Value(std::int32_t number) {
  Number(number);
}
void ArchiveWriter::Value(double number) {
  Number(std::bit_cast<std::uint64_t>(number));
}

void ArchiveWriter::Value(const QString& text) {
  m_bytes += kWideTag;
  StringLength(static_cast<std::uint64_t>(text.size()));
  Numbers(text.utf16(), static_cast<std::size_t>(text.size()));
}

void ArchiveWriter::StringLength(std::uint64_t length) {
  if (length < kByteEscape) {
    Number(static_cast<std::uint8_t>(length));
    return;
  }
  Number(kByteEscape);
  if (length < kWideMark) {
    Number(static_cast<std::uint16_t>(length));
    return;
  }
  Number(kWordEscape);
  if (length < kDoubleWordEscape) {
    Number(static_cast<std::uint32_t>(length));
    return;
  }
  Number(kDoubleWordEscape);
  Number(length);
}

void ArchiveWriter::Count(std::size_t count) {
  if (count > std::numeric_limits<std::uint32_t>::max()) m_failed = true;
  Number(static_cast<std::uint32_t>(count));
}

void ArchiveWriter::Value(const std::vector<bool>& flags) {
  List(flags);
}

void ArchiveWriter::Value(const std::vector<std::int32_t>& numbers) {
  Count(numbers.size());
  Numbers(numbers.data(), numbers.size());
}

void ArchiveWriter::Value(const std::vector<double>& numbers) {
  Count(numbers.size());
  Numbers(numbers.data(), numbers.size());
}

template <class T>
void ArchiveWriter::List(const std::vector<T>& values) {
  Count(values.size());
  for (const auto& value : values) Value(value);
}

void ArchiveWriter::Value(const std::vector<QString>& texts) {
  List(texts);
}
void ArchiveWriter::Value(const std::vector<std::vector<double>>& rows) {
  List(rows);
}

void ArchiveSize::Value(const QString& text) {
  ArchiveWriter length;
  length.StringLength(static_cast<std::uint64_t>(text.size()));
  m_bytes += kWideTag.size() + length.TakeBytes().size() + 2 * static_cast<std::size_t>(text.size());
}

}  // namespace tremlo
