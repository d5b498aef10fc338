#include "core/records/RecordArchive.h"

#include "core/files/Cp932Text.h"

#include <QBuffer>
#include <QStringDecoder>

#include <algorithm>
#include <archive.h>
#include <archive_entry.h>
#include <array>
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

class Walk {
 public:
  Walk(const std::function<bool(const QString&, const QByteArray&)>& take, const ArchiveBounds& bounds)
      : m_take(take), m_bounds(bounds) {}

  /// Walks over the archive that `open` opens. False when the walk is over: by the wish of the taker, or by
  /// Error().
  template <class Open>
  bool Run(bool gzip, Open open, const QString& prefix, int level) {
    const QString where = prefix.isEmpty() ? QString() : prefix + QStringLiteral("：");
    if (level > m_bounds.mostLevels)
      return Fail(where + QStringLiteral("書庫の入れ子が %1 段を超えています。").arg(m_bounds.mostLevels));
    const ArchiveHandle handle(archive_read_new());
    archive* const reader = handle.get();
    if (!reader) return Fail(where + QStringLiteral("書庫を読む用意ができません。"));
    // One filter alone: the library would unpack gzip in gzip by itself, and no bound would count what lies
    // between.
    if (gzip) archive_read_append_filter(reader, ARCHIVE_FILTER_GZIP);
    archive_read_support_format_tar(reader);
    archive_read_support_format_zip_streamable(reader);
    if (gzip) archive_read_support_format_raw(reader);  // a lone .gz; what has a format is never taken for it
    // What gzip gives is a member at least, be it raw: there it gave nothing, whatever the library says.
    if (open(reader) != ARCHIVE_OK)
      return Fail(where + (gzip ? Broken(QStringLiteral("gzip を展開できません")) : Reason(reader)));
    for (;;) {
      archive_entry* entry = nullptr;
      const int status = archive_read_next_header(reader, &entry);
      if (status == ARCHIVE_EOF) return true;
      if (status == ARCHIVE_FATAL || status == ARCHIVE_RETRY) return Fail(where + Reason(reader));
      // Empty members and folders count as well: an endless run of them must end.
      if (++m_members > m_bounds.mostMembers)
        return Fail(QStringLiteral("ファイルが %1 個を超えています。").arg(m_bounds.mostMembers));
      if (archive_entry_filetype(entry) != AE_IFREG || archive_entry_hardlink(entry)) {
        if (!PassOver(reader)) return false;
        continue;
      }
      const bool raw = archive_format(reader) == ARCHIVE_FORMAT_RAW;
      const QString name = raw ? QString() : DecodeName(archive_entry_pathname(entry));
      const QString member =
          prefix.isEmpty() || name.isEmpty() ? prefix + name : prefix + QLatin1Char('/') + name;
      if (!RunMember(reader, member, level)) return false;
    }
  }

  const QString& Error() const { return m_error; }

 private:
  /// An archive within, read as its bytes come out of the outer one.
  struct Inner {
    Walk* walk;
    archive* outer;
    QByteArray head;
    bool headGiven = false;
    std::vector<char> block = std::vector<char>(kBlock);
  };

  static la_ssize_t GiveInner(archive* reader, void* data, const void** buffer) {
    Inner& inner = *static_cast<Inner*>(data);
    if (!inner.headGiven) {
      inner.headGiven = true;
      *buffer = inner.head.constData();
      return inner.head.size();
    }
    *buffer = inner.block.data();
    const la_ssize_t count = archive_read_data(inner.outer, inner.block.data(), inner.block.size());
    if (count < 0) {
      const char* text = archive_error_string(inner.outer);
      archive_set_error(reader, EIO, "%s", text ? text : "outer archive");
      return ARCHIVE_FATAL;
    }
    if (inner.walk->Count(count)) return count;
    archive_set_error(reader, EIO, "too large");
    return ARCHIVE_FATAL;
  }

  bool RunMember(archive* reader, const QString& member, int level) {
    const QString where = member.isEmpty() ? QString() : member + QStringLiteral("：");
    // The memory of the member before; whoever kept its bytes has them for himself.
    QByteArray& bytes = m_member;
    bytes.resize(0);
    for (;;) {
      const qsizetype used = bytes.size();
      const qsizetype room = used < kHead ? kHead - used : kBlock;
      bytes.resize(used + room);
      const la_ssize_t count = archive_read_data(reader, bytes.data() + used, static_cast<std::size_t>(room));
      bytes.resize(used + std::max<qsizetype>(count, 0));
      if (count == 0) break;
      if (count < 0) return Fail(where + Reason(reader));
      if (!Count(count)) return false;
      if (bytes.size() > m_bounds.mostMemberBytes)
        return Fail(where + QStringLiteral("展開すると %1 バイトを超えます。").arg(m_bounds.mostMemberBytes));
      if (bytes.size() == kHead && IsArchive(bytes)) break;
    }
    if (!IsArchive(bytes)) return m_take(member, bytes);
    Inner inner{this, reader, bytes};
    const auto open = [&](archive* within) {
      return archive_read_open(within, &inner, nullptr, GiveInner, nullptr);
    };
    return Run(IsGzip(bytes), open, member, level + 1) && PassOver(reader);
  }

  /// Reads the rest of an entry, which counts too: passing over it inside the library would know no bound.
  bool PassOver(archive* reader) {
    std::array<char, kBlock> block;
    la_ssize_t count = 0;
    while ((count = archive_read_data(reader, block.data(), block.size())) > 0)
      if (!Count(count)) return false;
    return count == 0 || Fail(Reason(reader));
  }

  /// False once more than the bound has come out.
  bool Count(la_ssize_t bytes) {
    m_bytes += bytes;
    if (m_bytes <= m_bounds.mostBytes) return true;
    return Fail(QStringLiteral("展開すると全体で %1 バイトを超えます。").arg(m_bounds.mostBytes));
  }

  /// The first reason stands: those after it are its consequences.
  bool Fail(const QString& error) {
    if (m_error.isEmpty()) m_error = error;
    return false;
  }

  QString Reason(archive* reader) const {
    const char* text = archive_error_string(reader);
    return Broken(text ? QString::fromLocal8Bit(text) : QStringLiteral("libarchive"));
  }

  /// An archive has no lines: the place is the count of files and bytes that came out before.
  QString Broken(const QString& reason) const {
    return QStringLiteral(
               "書庫が %1 個目のファイル（展開して %2 バイト）の後で壊れているか、"
               "途中で切れています（「%3」）。")
        .arg(m_members)
        .arg(m_bytes)
        .arg(reason);
  }

  const std::function<bool(const QString&, const QByteArray&)>& m_take;
  const ArchiveBounds& m_bounds;
  QString m_error;
  QByteArray m_member;
  qint64 m_bytes = 0;
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
  struct Source {
    QIODevice& device;
    std::vector<char> block = std::vector<char>(kBlock);
  } source{device};
  const auto give = [](archive* reader, void* data, const void** buffer) -> la_ssize_t {
    Source& from = *static_cast<Source*>(data);
    *buffer = from.block.data();
    const qint64 count = from.device.read(from.block.data(), static_cast<qint64>(from.block.size()));
    if (count < 0) archive_set_error(reader, EIO, "read error");
    return count < 0 ? ARCHIVE_FATAL : static_cast<la_ssize_t>(count);
  };
  Walk walk(take, bounds);
  walk.Run(
      IsGzip(device.peek(kHead)),
      [&](archive* reader) { return archive_read_open(reader, &source, nullptr, give, nullptr); }, QString(),
      1);
  return {walk.Error()};
}

}  // namespace tremlo
