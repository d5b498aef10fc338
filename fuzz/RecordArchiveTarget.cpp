#include "core/records/RecordArchive.h"
#include "fuzz/FuzzTargets.h"
#include "fuzz/Rules.h"

#include <QList>

#include <algorithm>

namespace tremlo::fuzz {

namespace {

struct Members {
  QList<QString> names;
  QList<QByteArray> contents;
  QString error;
};

/// The bounds hold while the archive is walked over, not only at its end.
class Taker {
 public:
  Taker(const ArchiveBounds& bounds, Members& members) : m_bounds(bounds), m_members(members) {}

  bool operator()(const QString& name, const QByteArray& bytes) {
    m_bytes += bytes.size();
    Require(bytes.size() <= m_bounds.mostMemberBytes, "a member keeps its bound");
    Require(m_bytes <= m_bounds.mostBytes, "all members together keep their bound");
    Require(m_members.names.size() < m_bounds.mostMembers, "the number of members keeps its bound");
    m_members.names << name;
    m_members.contents << bytes;
    return true;
  }

 private:
  const ArchiveBounds& m_bounds;
  Members& m_members;
  qint64 m_bytes = 0;
};

constexpr ArchiveBounds kBounds{200000, 1000000, 100, 3};

Members WalkOver(const QByteArray& content) {
  Members members;
  members.error = WalkArchive(content, Taker(kBounds, members), kBounds).error;
  return members;
}

/// The number that a header of a tar holds in octal digits up to a zero byte, as writers write them; below 0
/// for anything else, which a reader may take or not.
qint64 Octal(const QByteArray& field) {
  const QByteArray digits = field.chopped(1);
  const bool plain = field.endsWith('\0') &&
                     std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '7'; });
  return plain ? digits.toLongLong(nullptr, 8) : -1;
}

/// The files at the start of a tar that a plain reading of its blocks of 512 bytes finds: regular ones with
/// short names alone. Nothing more is read from the first block on that is not as plain as that.
Members PlainTar(const QByteArray& content) {
  constexpr qsizetype kBlock = 512;
  Members members;
  for (qsizetype at = 0; at + kBlock <= content.size();) {
    const QByteArray header = content.mid(at, kBlock);
    qint64 sum = 0;
    for (qsizetype i = 0; i < kBlock; ++i)
      sum += i >= 148 && i < 156 ? ' ' : static_cast<unsigned char>(header[i]);
    const qint64 size = Octal(header.mid(124, 12));
    const QByteArray name = header.left(header.indexOf('\0'));
    const bool isName = !name.isEmpty() && name.size() < 100 && !name.endsWith('/');
    const bool numbers = Octal(header.mid(100, 8)) >= 0 && Octal(header.mid(108, 8)) >= 0 &&
                         Octal(header.mid(116, 8)) >= 0 && Octal(header.mid(136, 12)) >= 0 &&
                         (header.mid(329, 16) == QByteArray(16, '\0') ||
                          (Octal(header.mid(329, 8)) >= 0 && Octal(header.mid(337, 8)) >= 0));
    const bool checked = Octal(header.mid(148, 7)) == sum && header[155] == ' ';
    const bool file = header.mid(156, 101) == '0' + QByteArray(100, '\0') &&
                      header.mid(257, 8) == QByteArray("ustar\00000", 8) &&
                      header.mid(345) == QByteArray(kBlock - 345, '\0');
    const bool plain = numbers && checked && file && isName && size >= 0 && size <= content.size();
    const qint64 blocks = (size + kBlock - 1) / kBlock * kBlock;
    if (!plain || blocks > content.size() - at - kBlock) break;  // the last block is filled up
    const QByteArray bytes = content.mid(at + kBlock, size);
    if (IsArchive(bytes)) break;
    members.names << QString::fromUtf8(name);
    members.contents << bytes;
    at += kBlock + blocks;
  }
  return members;
}

/// The bytes behind a header of gzip, packed by the simplest of ways: not at all.
QByteArray StoredGzip(const QByteArray& content) {
  QByteArray packed("\x1F\x8B\x08\0\0\0\0\0\0\x03", 10);
  quint32 crc = 0xFFFFFFFF;
  for (const char c : content) {
    crc ^= static_cast<unsigned char>(c);
    for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1U) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
  }
  const auto append = [&](quint32 value, int bytes) {
    for (int i = 0; i < bytes; ++i)
      packed.append(static_cast<char>((value >> (8U * static_cast<unsigned>(i))) & 0xFFU));
  };
  for (qsizetype at = 0; at < content.size();) {
    const QByteArray block = content.mid(at, 65535);
    at += block.size();
    packed.append(at == content.size() ? '\x01' : '\0');
    append(static_cast<quint32>(block.size()), 2);
    append(~static_cast<quint32>(block.size()), 2);
    packed.append(block);
  }
  append(~crc, 4);
  append(static_cast<quint32>(content.size()), 4);
  return packed;
}

}  // namespace

void FuzzRecordArchive(const std::uint8_t* data, std::size_t size) {
  const QByteArray content = Bytes(data, size);
  const Members members = WalkOver(content);

  const Members plain = PlainTar(content);
  Require(members.names.mid(0, plain.names.size()) == plain.names &&
              members.contents.mid(0, plain.names.size()) == plain.contents,
          "a plain tar gives its files");

  // Text that is packed comes out as it was; an archive within one more gives the same files.
  const bool text = !content.isEmpty() && !content.contains('\0') && !content.startsWith("PK");
  if (!text && !IsArchive(content)) return;
  const Members packed = WalkOver(StoredGzip(content));
  if (!IsArchive(content)) {
    Require(packed.contents == QList<QByteArray>{content} && packed.error.isEmpty(),
            "what is packed comes out as it was");
  } else if (members.error.isEmpty() && packed.error.isEmpty() && content.size() >= 512) {
    Require(packed.contents == members.contents, "an archive within gives the same files");
  }
}

}  // namespace tremlo::fuzz
