#include "core/records/RecordList.h"

#include "core/files/FileFault.h"
#include "core/records/ReadRecord.h"
#include "core/records/RecordArchive.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>

namespace tremlo {

namespace {

constexpr qsizetype kHead = qsizetype{16} * 1024;  // holds the header of every named format

/// The whole lines at the start of a member.
QByteArray HeadLines(const QByteArray& bytes) {
  if (bytes.size() <= kHead) return bytes;
  const qsizetype end = bytes.lastIndexOf('\n', kHead - 1);
  return end < 0 ? bytes.left(kHead) : bytes.left(end + 1);
}

ListedMember Listed(const QString& path, const QByteArray& bytes) {
  ListedMember member;
  member.path = path;
  member.bytes = bytes.size();
  const QByteArray head = HeadLines(bytes);
  const RecordReading reading = ReadRecord(head, path, {});
  member.format = reading.format;
  // What the first lines lack, the rest may have; a format is not known of what is no text.
  const bool whole = head.size() == bytes.size();
  member.isRecord = reading.format != RecordFormat::Unknown && (!reading.IsRefused() || !whole);
  member.station = reading.station;
  QStringList names;
  for (const RecordComponent& component : reading.components)
    if (!component.name.isEmpty()) names << component.name;
  member.components = names.join(u' ');
  return member;
}

double ShareOf(const QFile& file) {
  return file.size() > 0 ? static_cast<double>(file.pos()) / static_cast<double>(file.size()) : 1.0;
}

QString CannotOpen(const QString& path) {
  return FileFault(path, QStringLiteral("ファイルを開けません。"));
}

}  // namespace

MemberList ListMembers(const QString& path, const GoOn& goOn) {
  MemberList list;
  QFile file(path);
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
    list.error = CannotOpen(path);
    return list;
  }
  const ArchiveOutcome outcome = WalkArchive(file, [&](const QString& member, const QByteArray& bytes) {
    list.members.push_back(Listed(member, bytes));
    list.ended = !goOn(static_cast<int>(list.members.size()), ShareOf(file));
    return !list.ended;
  });
  if (!outcome.error.isEmpty()) list.error = FileFault(path, outcome.error);
  if (list.error.isEmpty() && list.members.empty())
    list.error = FileFault(path, QStringLiteral("記録が入っていません。"));
  return list;
}

LoadedMembers LoadMembers(const QString& path, const MemberList& list, const std::vector<std::size_t>& chosen,
                          const GoOn& goOn) {
  LoadedMembers loaded;
  qint64 bytesOfAll = 0;
  for (const std::size_t place : chosen) bytesOfAll += list.members.at(place).bytes;
  const auto refuse = [&](const QString& error) {
    loaded.files.clear();
    loaded.error = FileFault(path, error);
    return loaded;
  };
  if (bytesOfAll > kMostChosenBytes)
    return refuse(QStringLiteral("選んだファイルが大きすぎます（合わせて %1 バイト、上限 %2 バイト）。")
                      .arg(bytesOfAll)
                      .arg(kMostChosenBytes));
  QFile file(path);
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
    loaded.error = CannotOpen(path);
    return loaded;
  }
  std::size_t place = 0;
  bool changed = false;
  WalkArchive(file, [&](const QString& member, const QByteArray& bytes) {
    const std::size_t here = place++;
    if (std::binary_search(chosen.begin(), chosen.end(), here)) {
      const ListedMember& listed = list.members[here];
      changed = listed.path != member || listed.bytes != bytes.size();
      loaded.files.push_back({path, member, bytes});
    }
    loaded.ended = !goOn(static_cast<int>(place), ShareOf(file));
    return !changed && !loaded.ended && loaded.files.size() < chosen.size();
  });
  if (loaded.ended)
    loaded.files.clear();
  else if (changed || loaded.files.size() < chosen.size())
    return refuse(QStringLiteral("一覧を作った後に書庫の内容が変わりました。"));
  return loaded;
}

}  // namespace tremlo
