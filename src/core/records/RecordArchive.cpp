#include "core/records/RecordArchive.h"

#include "core/files/Cp932Text.h"

#include <QStringDecoder>

#include <algorithm>
#include <archive.h>
#include <archive_entry.h>
#include <array>
#include <memory>
#include <string_view>

namespace tremlo {

namespace {

struct CloseArchive {
  void operator()(archive* handle) const { archive_read_free(handle); }
};
using ArchiveHandle = std::unique_ptr<archive, CloseArchive>;

bool StartsWith(const QByteArray& content, std::string_view sign) {
  return std::string_view(content.constData(), static_cast<std::size_t>(content.size())).starts_with(sign);
}
bool IsGzip(const QByteArray& content) {
  return StartsWith(content, "\x1F\x8B");
}
bool IsZip(const QByteArray& content) {
  return StartsWith(content, "PK\x03\x04") || StartsWith(content, "PK\x05\x06");
}
bool IsTar(const QByteArray& content) {
  constexpr qsizetype kAt = 257;
  return content.size() >= kAt + 5 && content.mid(kAt, 5) == "ustar";
}

/// The bytes of a name as text; a bad character is replaced, never fatal.
QString DecodeName(const char* name) {
  if (!name) return {};
  const QByteArray bytes =
      QByteArray::fromRawData(name, static_cast<qsizetype>(std::char_traits<char>::length(name)));
  QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::Stateless);
  QString text = decoder.decode(bytes);
  if (!decoder.hasError()) return text;
  return DecodeCp932(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

class Walk {
 public:
  Walk(const std::function<bool(const QString&, const QByteArray&)>& take, const ArchiveBounds& bounds)
      : m_take(take), m_bounds(bounds) {}

  /// False when the walk is over: by the wish of the taker, or by m_error.
  bool Run(const QByteArray& content, const QString& prefix, int level) {
    const QString where = prefix.isEmpty() ? QString() : prefix + QStringLiteral("：");
    if (level > m_bounds.mostLevels)
      return Fail(where + QStringLiteral("書庫の入れ子が %1 段を超えています。").arg(m_bounds.mostLevels));
    const ArchiveHandle handle(archive_read_new());
    archive* const reader = handle.get();
    if (!reader) return Fail(where + QStringLiteral("書庫を読む用意ができません。"));
    archive_read_support_filter_gzip(reader);
    archive_read_support_format_tar(reader);
    archive_read_support_format_zip(reader);
    const bool zipped = IsGzip(content);
    if (zipped)
      archive_read_support_format_raw(reader);  // a lone .gz; what has a format is never taken for it
    if (archive_read_open_memory(reader, content.constData(), static_cast<std::size_t>(content.size())) !=
        ARCHIVE_OK)
      return Fail(where + Reason(reader));
    for (;;) {
      archive_entry* entry = nullptr;
      const int status = archive_read_next_header(reader, &entry);
      if (status == ARCHIVE_EOF) return true;
      if (status == ARCHIVE_FATAL || status == ARCHIVE_RETRY) return Fail(where + Reason(reader));
      // Empty members and folders count as well: an endless run of them must end.
      if (++m_members > m_bounds.mostMembers)
        return Fail(QStringLiteral("ファイルが %1 個を超えています。").arg(m_bounds.mostMembers));
      if (archive_entry_filetype(entry) != AE_IFREG || archive_entry_hardlink(entry)) continue;
      const bool raw = archive_format(reader) == ARCHIVE_FORMAT_RAW;
      const QString name = raw ? QString() : DecodeName(archive_entry_pathname(entry));
      const QString member =
          prefix.isEmpty() || name.isEmpty() ? prefix + name : prefix + QLatin1Char('/') + name;
      QByteArray bytes;
      if (!ReadMember(reader, member, bytes)) return false;
      if (IsArchive(bytes)) {
        if (!Run(bytes, member, level + 1)) return false;
      } else if (!m_take(member, bytes)) {
        return false;
      }
    }
  }

  const QString& Error() const { return m_error; }

 private:
  bool Fail(const QString& error) {
    m_error = error;
    return false;
  }

  static QString Reason(archive* reader) {
    const char* text = archive_error_string(reader);
    return QStringLiteral("書庫が壊れているか、途中で切れています（%1）。")
        .arg(text ? QString::fromLocal8Bit(text) : QStringLiteral("libarchive"));
  }

  bool ReadMember(archive* reader, const QString& member, QByteArray& bytes) {
    const QString where = member.isEmpty() ? QString() : member + QStringLiteral("：");
    std::array<char, 65536> block{};
    for (;;) {
      const la_ssize_t count = archive_read_data(reader, block.data(), block.size());
      if (count == 0) return true;
      if (count < 0) return Fail(where + Reason(reader));
      m_bytes += count;
      if (bytes.size() + count > m_bounds.mostMemberBytes)
        return Fail(where + QStringLiteral("展開すると %1 バイトを超えます。").arg(m_bounds.mostMemberBytes));
      if (m_bytes > m_bounds.mostBytes)
        return Fail(QStringLiteral("展開すると全体で %1 バイトを超えます。").arg(m_bounds.mostBytes));
      bytes.append(block.data(), static_cast<qsizetype>(count));
    }
  }

  const std::function<bool(const QString&, const QByteArray&)>& m_take;
  const ArchiveBounds& m_bounds;
  QString m_error;
  qint64 m_bytes = 0;
  int m_members = 0;
};

}  // namespace

bool IsArchive(const QByteArray& content) {
  return IsGzip(content) || IsZip(content) || IsTar(content);
}

ArchiveOutcome WalkArchive(const QByteArray& content,
                           const std::function<bool(const QString&, const QByteArray&)>& take,
                           const ArchiveBounds& bounds) {
  Walk walk(take, bounds);
  walk.Run(content, QString(), 1);
  return {walk.Error()};
}

}  // namespace tremlo
