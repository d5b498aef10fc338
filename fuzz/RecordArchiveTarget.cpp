#include "core/records/RecordArchive.h"
#include "fuzz/FuzzTargets.h"
#include "fuzz/Rules.h"

#include <QBuffer>
#include <QList>

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

}  // namespace

void FuzzRecordArchive(const std::uint8_t* data, std::size_t size) {
  const QByteArray content = Bytes(data, size);
  const ArchiveBounds bounds{200000, 1000000, 100, 3};
  Members members;
  members.error = WalkArchive(content, Taker(bounds, members), bounds).error;

  // As a file of the disk it gives the same.
  Members streamed;
  QByteArray copy = content;
  QBuffer device(&copy);
  Require(device.open(QIODevice::ReadOnly), "a buffer opens");
  streamed.error = WalkArchive(device, Taker(bounds, streamed), bounds).error;
  Require(members.names == streamed.names && members.contents == streamed.contents,
          "from memory and from a device come the same members");
  Require(members.error.isEmpty() == streamed.error.isEmpty(),
          "from memory and from a device comes the same end");
}

}  // namespace tremlo::fuzz
