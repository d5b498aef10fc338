#include "core/records/RecordArchive.h"

#include "core/files/Cp932Text.h"
#include "core/records/Gunzip.h"

#include <QBuffer>
#include <QStringDecoder>

#include <algorithm>
#include <archive.h>
#include <archive_entry.h>
#include <cerrno>
#include <memory>
#include <string_view>
#include <vector>

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

/// What an archive begins with: enough for every sign.
constexpr qsizetype kHead = 512;
constexpr qsizetype kBlock = 65536;

/// Reads a file as it goes.
class DeviceSource : public ByteSource {
 public:
  explicit DeviceSource(QIODevice& device) : m_device(device) {}
  qint64 Read(char* to, qint64 most) override {
    const qint64 count = m_device.read(to, most);
    return count < 0 ? Fail(QStringLiteral("ファイルを読めません")) : count;
  }

 private:
  QIODevice& m_device;
};

/// The entry of an archive at which its reader stands.
class EntrySource : public ByteSource {
 public:
  explicit EntrySource(archive* reader) : m_reader(reader) {}
  qint64 Read(char* to, qint64 most) override {
    const la_ssize_t count = archive_read_data(m_reader, to, static_cast<std::size_t>(most));
    if (count >= 0) return count;
    const char* text = archive_error_string(m_reader);
    return Fail(text ? QString::fromUtf8(text) : QStringLiteral("libarchive"));
  }

 private:
  archive* m_reader;
};

/// Counts what comes out of a source, and fails beyond the bound.
class CountedSource : public ByteSource {
 public:
  CountedSource(ByteSource& source, qint64& total, qint64 most)
      : m_source(source), m_total(total), m_most(most) {}
  qint64 Read(char* to, qint64 most) override {
    const qint64 count = m_source.Read(to, most);
    if (count < 0) return Fail(m_source.Error());
    m_total += count;
    return m_total > m_most ? Fail(QStringLiteral("全体の上限 %1 バイト").arg(m_most)) : count;
  }

 private:
  ByteSource& m_source;
  qint64& m_total;
  qint64 m_most;
};

/// A source whose first bytes can be seen before they are read.
class PeekedSource : public ByteSource {
 public:
  explicit PeekedSource(ByteSource& source) : m_source(source), m_head(kHead, '\0') {
    qint64 size = 0;
    qint64 count = 0;
    while (size < kHead && (count = m_source.Read(m_head.data() + size, kHead - size)) > 0) size += count;
    m_head.truncate(size);
  }
  const QByteArray& Head() const { return m_head; }
  qint64 Read(char* to, qint64 most) override {
    const qint64 left = std::min(most, m_head.size() - m_given);
    if (left > 0) {
      std::copy_n(m_head.constData() + m_given, left, to);
      m_given += left;
      return left;
    }
    const qint64 count = m_source.Read(to, most);
    return count < 0 ? Fail(m_source.Error()) : count;
  }

 private:
  ByteSource& m_source;
  QByteArray m_head;
  qint64 m_given = 0;
};

/// Whether the entry of a zip is deflated or as it was. Other packings ask for as much memory as the file
/// likes, hundreds of MiB for a few bytes; the name of the format tells which it is.
bool IsUsualPacking(archive* reader) {
  if ((archive_format(reader) & ARCHIVE_FORMAT_BASE_MASK) != ARCHIVE_FORMAT_ZIP) return true;
  const std::string_view name = archive_format_name(reader);
  return name.ends_with("(deflation)") || name.ends_with("(uncompressed)");
}

/// What libarchive reads from.
struct Feed {
  ByteSource& source;
  std::vector<char> block = std::vector<char>(kBlock);

  static la_ssize_t Give(archive* reader, void* data, const void** buffer) {
    Feed& feed = *static_cast<Feed*>(data);
    *buffer = feed.block.data();
    const qint64 count = feed.source.Read(feed.block.data(), kBlock);
    if (count >= 0) return count;
    archive_set_error(reader, EIO, "%s", feed.source.Error().toUtf8().constData());
    return ARCHIVE_FATAL;
  }
};

class Walk {
 public:
  Walk(const std::function<bool(const QString&, const QByteArray&)>& take, const ArchiveBounds& bounds)
      : m_take(take), m_bounds(bounds) {}

  void Run(ByteSource& file) {
    PeekedSource bytes(file);
    if (IsArchive(bytes.Head())) {
      Open(bytes, QString(), 1, false);
    } else {
      Broken(QString(), QStringLiteral("書庫の形式ではありません"));
    }
  }

  const QString& Error() const { return m_error; }

 private:
  // Each is false when the walk is over: by the wish of the taker, or by Error().

  /// What the bytes are: gzip, an archive or a file. Gzip around an archive is one level with it, around gzip
  /// one more.
  bool Open(PeekedSource& bytes, const QString& path, int level, bool unpacked) {
    const bool gzip = IsGzip(bytes.Head());
    if (!IsArchive(bytes.Head())) return TakeFile(bytes, path);
    if (gzip && unpacked) ++level;
    if (level > m_bounds.mostLevels)
      return Fail(Where(path) +
                  QStringLiteral("書庫の入れ子が %1 段を超えています。").arg(m_bounds.mostLevels));
    if (!gzip) return OpenEntries(bytes, path, level) && PassOver(bytes, path);
    Gunzip unpack(bytes);
    CountedSource counted(unpack, m_unpacked, m_bounds.mostBytes);
    PeekedSource inner(counted);
    // The rest as well: the checksum stands at the end.
    return Open(inner, path, level, true) && PassOver(inner, path);
  }

  bool OpenEntries(ByteSource& bytes, const QString& path, int level) {
    const ArchiveHandle handle(archive_read_new());
    archive* const reader = handle.get();
    if (!reader) return Fail(Where(path) + QStringLiteral("書庫を読む用意ができません。"));
    archive_read_support_format_tar(reader);
    archive_read_support_format_zip_streamable(reader);
    Feed feed{bytes};
    const auto fault = [&] {
      const char* text = archive_error_string(reader);
      return Broken(path, !bytes.Error().isEmpty() ? bytes.Error()
                          : text                   ? QString::fromUtf8(text)
                                                   : QStringLiteral("libarchive"));
    };
    if (archive_read_open(reader, &feed, nullptr, Feed::Give, nullptr) != ARCHIVE_OK) return fault();
    for (;;) {
      archive_entry* entry = nullptr;
      const int status = archive_read_next_header(reader, &entry);
      if (status == ARCHIVE_EOF) return true;
      if (status == ARCHIVE_FATAL || status == ARCHIVE_RETRY) return fault();
      // Empty members and folders count as well: an endless run of them must end.
      if (++m_members > m_bounds.mostMembers)
        return Fail(QStringLiteral("ファイルが %1 個を超えています。").arg(m_bounds.mostMembers));
      const bool isFile = archive_entry_filetype(entry) == AE_IFREG && !archive_entry_hardlink(entry);
      const QString name = DecodeName(archive_entry_pathname(entry));
      const QString member = path.isEmpty() ? name : path + QLatin1Char('/') + name;
      if (!IsUsualPacking(reader))
        return Fail(Where(member) + QStringLiteral("この圧縮方式の ZIP は読めません（「%1」）。")
                                        .arg(QString::fromLatin1(archive_format_name(reader))));
      EntrySource data(reader);
      CountedSource counted(data, m_bytes, m_bounds.mostBytes);
      PeekedSource inner(counted);
      // Passing over the rest inside the library would know no bound.
      if ((isFile && !Open(inner, member, level + 1, false)) || !PassOver(inner, member)) return false;
    }
  }

  bool TakeFile(ByteSource& file, const QString& path) {
    // The memory of the member before; whoever kept its bytes has them for himself.
    QByteArray& bytes = m_member;
    bytes.resize(0);
    for (;;) {
      const qsizetype used = bytes.size();
      bytes.resize(used + kBlock);
      const qint64 count = file.Read(bytes.data() + used, kBlock);
      bytes.resize(used + std::max<qint64>(count, 0));
      if (count == 0) return m_take(path, bytes);
      if (count < 0) return Broken(path, file.Error());
      if (bytes.size() > m_bounds.mostMemberBytes)
        return Fail(Where(path) +
                    QStringLiteral("展開すると %1 バイトを超えます。").arg(m_bounds.mostMemberBytes));
    }
  }

  /// Reads the rest of a source.
  bool PassOver(ByteSource& rest, const QString& path) {
    qint64 count = 0;
    while ((count = rest.Read(m_passed.data(), kBlock)) > 0) continue;
    return count == 0 || Broken(path, rest.Error());
  }

  static QString Where(const QString& path) {
    return path.isEmpty() ? QString() : path + QStringLiteral("：");
  }

  /// The first reason stands: those after it are its consequences.
  bool Fail(const QString& error) {
    if (m_error.isEmpty()) m_error = error;
    return false;
  }

  /// An archive has no lines: the place is the count of files and bytes that came out before.
  bool Broken(const QString& path, const QString& reason) {
    if (std::max(m_bytes, m_unpacked) > m_bounds.mostBytes)
      return Fail(QStringLiteral("展開すると全体で %1 バイトを超えます。").arg(m_bounds.mostBytes));
    return Fail(Where(path) +
                QStringLiteral("書庫が %1 個目のファイル（展開して %2 バイト）の後で壊れているか、"
                               "途中で切れています（「%3」）。")
                    .arg(m_members)
                    .arg(m_bytes)
                    .arg(reason));
  }

  const std::function<bool(const QString&, const QByteArray&)>& m_take;
  const ArchiveBounds& m_bounds;
  QString m_error;
  QByteArray m_member;
  std::vector<char> m_passed = std::vector<char>(kBlock);
  qint64 m_bytes = 0;     ///< out of entries
  qint64 m_unpacked = 0;  ///< out of gzip
  int m_members = 0;
};

}  // namespace

bool IsArchive(const QByteArray& content) {
  return IsGzip(content) || IsZip(content) || IsTar(content);
}

ArchiveOutcome WalkArchive(const QByteArray& content,
                           const std::function<bool(const QString& member, const QByteArray& bytes)>& take,
                           const ArchiveBounds& bounds) {
  QBuffer device;
  device.setData(content);
  device.open(QIODevice::ReadOnly);
  return WalkArchive(device, take, bounds);
}

ArchiveOutcome WalkArchive(QIODevice& device,
                           const std::function<bool(const QString& member, const QByteArray& bytes)>& take,
                           const ArchiveBounds& bounds) {
  DeviceSource file(device);
  Walk walk(take, bounds);
  walk.Run(file);
  return {walk.Error()};
}

}  // namespace tremlo
