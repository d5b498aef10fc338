#include "core/files/Cp932Text.h"

#include <algorithm>
#include <array>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#else
#include <cerrno>
#include <iconv.h>
#endif

namespace tremlo {

namespace {

bool IsAscii(std::string_view bytes) {
  return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

#ifndef _WIN32

/// A conversion descriptor of the C library for the life of one call.
class Converter {
 public:
  Converter(const char* to, const char* from) : m_handle(iconv_open(to, from)) {}
  ~Converter() {
    if (IsOpen()) iconv_close(m_handle);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  bool IsOpen() const { return m_handle != reinterpret_cast<iconv_t>(-1); }

  /// Converts all of `input`. Where it cannot go on it calls `skip` with what is left; that function appends
  /// the stand-in to the output and returns how many bytes to pass over.
  template <class Skip>
  void Run(std::string_view input, std::string& output, Skip skip) {
    std::array<char, 4096> block{};
    std::vector<char> source(input.begin(), input.end());
    char* in = source.data();
    std::size_t left = source.size();
    while (left > 0) {
      char* out = block.data();
      std::size_t room = block.size();
      const std::size_t result = iconv(m_handle, &in, &left, &out, &room);
      const int reason = errno;
      output.append(block.data(), block.size() - room);
      if (result != static_cast<std::size_t>(-1)) continue;
      if (reason == E2BIG) continue;
      iconv(m_handle, nullptr, nullptr, nullptr, nullptr);
      const std::size_t passed = std::min(left, skip(std::string_view(in, left), output));
      in += passed;
      left -= passed;
    }
  }

 private:
  iconv_t m_handle;
};

#endif

}  // namespace

#ifdef _WIN32

QString DecodeCp932(std::string_view bytes) {
  if (IsAscii(bytes)) return QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
  const int length = static_cast<int>(bytes.size());
  std::wstring wide(static_cast<std::size_t>(length), L'\0');
  const int written = MultiByteToWideChar(932, 0, bytes.data(), length, wide.data(), length);
  wide.resize(static_cast<std::size_t>(std::max(written, 0)));
  return QString::fromStdWString(wide);
}

std::string EncodeCp932(const QString& text) {
  const std::wstring wide = text.toStdWString();
  std::string bytes(wide.size() * 2, '\0');
  const int written =
      WideCharToMultiByte(932, WC_NO_BEST_FIT_CHARS, wide.data(), static_cast<int>(wide.size()), bytes.data(),
                          static_cast<int>(bytes.size()), "?", nullptr);
  bytes.resize(static_cast<std::size_t>(std::max(written, 0)));
  return bytes;
}

#else

QString DecodeCp932(std::string_view bytes) {
  if (IsAscii(bytes)) return QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
  Converter converter("UTF-8", "CP932");
  if (!converter.IsOpen()) return QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
  std::string utf8;
  converter.Run(bytes, utf8, [](std::string_view, std::string& output) {
    output += "\xEF\xBF\xBD";
    return std::size_t{1};
  });
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::string EncodeCp932(const QString& text) {
  Converter converter("CP932", "UTF-16LE");
  if (!converter.IsOpen()) return text.toLatin1().toStdString();
  std::string units;
  units.reserve(static_cast<std::size_t>(text.size()) * 2);
  for (const QChar unit : text) {
    units += static_cast<char>(unit.unicode() & 0xFF);
    units += static_cast<char>(unit.unicode() >> 8);
  }
  std::string bytes;
  converter.Run(units, bytes, [](std::string_view rest, std::string& output) {
    output += '?';
    const auto unitAt = [&](std::size_t index) {
      return static_cast<char16_t>(static_cast<unsigned char>(rest[index]) |
                                   static_cast<unsigned char>(rest[index + 1]) << 8);
    };
    const bool pair =
        rest.size() >= 4 && QChar::isHighSurrogate(unitAt(0)) && QChar::isLowSurrogate(unitAt(2));
    return std::size_t{pair ? 4U : 2U};
  });
  return bytes;
}

#endif

}  // namespace tremlo
