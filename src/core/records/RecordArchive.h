#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

class QIODevice;

namespace tremlo {

/// The bounds of an archive: whatever it holds, reading ends within them.
struct ArchiveBounds {
  qint64 mostMemberBytes = qint64{64} * 1024 * 1024;  ///< of one that is no archive
  qint64 mostBytes = qint64{4} * 1024 * 1024 * 1024;  ///< of all files together, and out of all gzip together
  int mostMembers = 20000;
  int mostLevels = 3;  ///< an archive in an archive in an archive
};

/// Whether the bytes begin as gzip, zip or tar.
bool IsArchive(const QByteArray& content);

struct ArchiveOutcome {
  QString error;  ///< why reading ended before the end of the archive; empty when it did not
};

/// Hands the regular files in a .tar, .tar.gz, .gz or .zip to `take`, one after the other, each with its path
/// in the archive ("inner.tar.gz/NAME" in an archive within); a false of it ends the walk. All in memory:
/// nothing is written, and names are for show only. Folders and links are passed over. What stands before a
/// fault or a bound has been handed out by then. The member of a lone .gz has an empty name.
ArchiveOutcome WalkArchive(const QByteArray& content,
                           const std::function<bool(const QString& member, const QByteArray& bytes)>& take,
                           const ArchiveBounds& bounds = {});

/// The same for an archive that is read as it goes: an open file of any size takes no more memory than its
/// largest member.
ArchiveOutcome WalkArchive(QIODevice& device,
                           const std::function<bool(const QString& member, const QByteArray& bytes)>& take,
                           const ArchiveBounds& bounds = {});

}  // namespace tremlo
