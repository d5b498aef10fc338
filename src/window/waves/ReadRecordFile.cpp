#include "window/waves/ReadRecordFile.h"

#include "core/files/FileFault.h"
#include "core/files/WholeFile.h"
#include "core/records/RecordArchive.h"
#include "core/records/RecordFilter.h"
#include "core/waves/WaveFile.h"
#include "window/graphs/WaitCursor.h"
#include "window/waves/DlgImportRecord.h"
#include "window/waves/DlgReadRecord.h"
#include "window/waves/DlgSelectMembers.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace tremlo {

namespace {

constexpr qint64 kSign = 512;  // bytes that show what an archive is

bool IsArchiveFile(const QString& path) {
  QFile file(path);
  return QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly) && IsArchive(file.peek(kSign));
}

/// Reads at once what says all, else asks. `ask`: whatever it says.
std::vector<ImportedWave> Finish(RecordImport& import, bool ask, const RecordDoor& door) {
  if (!ask) {
    const auto fault = import.Fault();
    if (fault && fault->field == ImportFault::Format) {
      door.prompt.Tell(fault->text);
      return {};
    }
    if (import.IsPlain()) return import.Waves();
  }
  CDlgImportRecord dialog(import, door.prompt, door.files, door.parent);
  if (dialog.exec() != QDialog::Accepted) return {};
  return import.Waves();
}

std::vector<ImportedWave> ReadLoneFile(const QString& path, const QByteArray& content, RecordFormat format,
                                       bool ask, const RecordDoor& door) {
  std::optional<RecordImport> import;
  const bool read = ReadBehindDialog(door.parent, [&](const GoOn&) {
    import.emplace(std::vector<RecordImport::File>{{ path, {}, content }}, door.onlyOne, format);
  });
  return read ? Finish(*import, ask, door) : std::vector<ImportedWave>();
}

/// The members to read; none when the user has given up.
std::vector<std::size_t> ChooseMembers(const MemberList& list, const RecordDoor& door) {
  const auto isRecord = [](const ListedMember& member) { return member.isRecord; };
  const auto& members = list.members;
  if (list.error.isEmpty() && std::count_if(members.begin(), members.end(), isRecord) == 1)
    return {
        static_cast<std::size_t>(std::find_if(members.begin(), members.end(), isRecord) - members.begin())};
  CDlgSelectMembers dialog(list, door.onlyOne, door.prompt, door.parent);
  return dialog.exec() == QDialog::Accepted ? dialog.Chosen() : std::vector<std::size_t>();
}

std::vector<ImportedWave> ReadArchive(const QString& path, const RecordDoor& door) {
  MemberList list;
  if (!ReadBehindDialog(door.parent, [&](const GoOn& goOn) { list = ListMembers(path, goOn); })) return {};
  if (std::none_of(list.members.begin(), list.members.end(),
                   [](const ListedMember& member) { return member.isRecord; })) {
    door.prompt.Tell(list.error.isEmpty() ? FileFault(path, QStringLiteral("記録が入っていません。"))
                                          : list.error);
    return {};
  }
  const std::vector<std::size_t> chosen = ChooseMembers(list, door);
  if (chosen.empty()) return {};
  LoadedMembers loaded;
  std::optional<RecordImport> import;
  const bool read = ReadBehindDialog(door.parent, [&](const GoOn& goOn) {
    loaded = LoadMembers(path, list, chosen, goOn);
    if (!loaded.files.empty()) import.emplace(std::move(loaded.files), door.onlyOne);
  });
  if (!read) return {};
  if (import) return Finish(*import, false, door);
  door.prompt.Tell(loaded.error);
  return {};
}

}  // namespace

std::vector<ImportedWave> ReadRecordFile(const FileChoice& choice, const RecordDoor& door) {
  if (IsArchiveFile(choice.path)) return ReadArchive(choice.path, door);
  QByteArray content;
  RecordFormat format = RecordFormat::Unknown;
  std::vector<ImportedWave> waves;
  bool opened = false;
  {
    const WaitCursor waiting;
    opened = ReadWholeFile(choice.path, content);
    if (opened) {
      format = FormatToRead(RecordText(content, choice.path), static_cast<RecordFilter>(choice.filter));
      if (format == RecordFormat::OwnWave) waves.push_back(ReadOwnImport(content, choice.path));
    }
  }
  if (!opened) door.prompt.Tell(CannotOpenText(choice.path));
  if (!opened || !waves.empty()) return waves;
  return ReadLoneFile(choice.path, content, format, false, door);
}

std::vector<ImportedWave> ReadRecordOtherwise(const QString& path, const RecordDoor& door) {
  QByteArray content;
  if (ReadWholeFile(path, content)) return ReadLoneFile(path, content, RecordFormat::FreeText, true, door);
  door.prompt.Tell(CannotOpenText(path));
  return {};
}

}  // namespace tremlo
