#pragma once

#include "core/records/RecordImport.h"

#include <functional>

namespace tremlo {

/// Is asked while an archive is read, member by member; false ends the reading. So far `done` members were
/// met and that share of the file, 0 to 1, was read.
using GoOn = std::function<bool(int done, double share)>;

/// A member of an archive as its first lines show it.
struct ListedMember {
  QString path;
  RecordFormat format = RecordFormat::Unknown;
  QString station;     ///< may be empty
  QString components;  ///< names of those that the first lines show
  qint64 bytes = 0;
  bool isRecord = false;  ///< nothing in the first lines speaks against it
};

struct MemberList {
  std::vector<ListedMember> members;  ///< in their order
  QString error;                      ///< why the archive could not be read to its end; empty when it was
  bool ended = false;                 ///< by `goOn`
};

/// Lists the members of an archive on disk; keeps nothing of their content.
MemberList ListMembers(const QString& path, const GoOn& goOn);

/// Content of all chosen members together, as much as a single file may have.
inline constexpr qint64 kMostChosenBytes = qint64{64} * 1024 * 1024;

struct LoadedMembers {
  std::vector<RecordImport::File> files;
  QString error;  ///< no files then
  bool ended = false;
};

/// Reads the content of the members at the given places of the list, in rising order.
LoadedMembers LoadMembers(const QString& path, const MemberList& list, const std::vector<std::size_t>& chosen,
                          const GoOn& goOn);

}  // namespace tremlo
