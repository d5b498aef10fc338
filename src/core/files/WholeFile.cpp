#include "core/files/WholeFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <memory>
#include <new>

namespace tremlo {

namespace {

/// Puts the content into the temporary file that `file` keeps beside `path`; only commit() replaces the old
/// one.
bool Stage(QSaveFile& file, const QString& path, std::string_view content) {
  if (path.isEmpty()) return false;
  file.setFileName(path);
  // Writing straight into the old file, Qt's fallback for a folder without rights, would cut it first.
  file.setDirectWriteFallback(false);
  if (!file.open(QIODevice::WriteOnly)) return false;
  // On a full disk a short write raises no error by itself, and commit() alone would put the stump in place.
  const auto size = static_cast<qint64>(content.size());
  if (file.write(content.data(), size) == size && file.flush() && file.error() == QFileDevice::NoError)
    return true;
  file.cancelWriting();
  return false;
}

}  // namespace

bool ReadWholeFile(const QString& path, QByteArray& content) {
  // A device would be read without end, and a folder not at all.
  if (!QFileInfo(path).isFile()) return false;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return false;
  try {
    content = file.readAll();
  } catch (const std::bad_alloc&) {
    return false;
  }
  return file.error() == QFileDevice::NoError;
}

bool WriteWholeFile(const QString& path, std::string_view content) {
  QSaveFile file;
  return Stage(file, path, content) && file.commit();
}

std::optional<QString> WriteWholeFiles(const std::vector<FileContent>& files) {
  std::vector<std::unique_ptr<QSaveFile>> staged;
  for (const FileContent& file : files) {
    staged.push_back(std::make_unique<QSaveFile>());
    if (!Stage(*staged.back(), file.path, file.content)) return file.path;
  }
  for (const auto& file : staged)
    if (!file->commit()) return file->fileName();
  return std::nullopt;
}

}  // namespace tremlo
