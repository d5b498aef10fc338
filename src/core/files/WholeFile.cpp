#include "core/files/WholeFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <filesystem>
#include <memory>
#include <new>
#include <system_error>

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

/// The file that a write to the path replaces: at the end of its symbolic links.
QString TargetOf(const QString& path) {
  constexpr int kMostLinks = 40;
  QFileInfo file(path);
  for (int i = 0; i < kMostLinks && file.isSymLink(); ++i) file.setFile(file.symLinkTarget());
  return file.filePath();
}

/// For the standard library. On Windows in the form that may have more than 260 characters, as Qt gives it to
/// the system.
std::filesystem::path SystemPath(const QString& path) {
#ifdef Q_OS_WIN
  const QString native = QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath());
  const QString mark = QStringLiteral(R"(\\?\)");
  if (native.startsWith(mark)) return native.toStdWString();
  const bool isShare = native.startsWith(QStringLiteral(R"(\\)"));
  return (isShare ? mark + QStringLiteral("UNC") + native.mid(1) : mark + native).toStdWString();
#else
  return QFileInfo(path).filesystemFilePath();
#endif
}

/// Puts a file back as it was before it was replaced. What it keeps for that is gone with it.
class Undo {
 public:
  /// Keeps the older file, if there is one, under a second name beside it.
  explicit Undo(const QString& path) : m_target(TargetOf(path)), m_existed(QFileInfo::exists(m_target)) {
    if (!m_existed) return;
    int number = 0;
    do {
      m_kept = m_target + QStringLiteral(".old") + QString::number(number);
    } while ((QFileInfo::exists(m_kept) || QFileInfo(m_kept).isSymLink()) && ++number < 1000);
    std::error_code error;
    std::filesystem::create_hard_link(SystemPath(m_target), SystemPath(m_kept), error);
    if (error && !QFile::copy(m_target, m_kept)) m_kept.clear();
  }
  ~Undo() {
    if (!m_kept.isEmpty()) QFile::remove(m_kept);
  }
  Undo(const Undo&) = delete;
  Undo& operator=(const Undo&) = delete;

  void Run() {
    if (!m_existed) QFile::remove(m_target);
    if (m_kept.isEmpty()) return;
    std::error_code ignored;
    std::filesystem::rename(SystemPath(m_kept), SystemPath(m_target), ignored);
    m_kept.clear();  // where that failed, what is kept is all that is left of the older file
  }

 private:
  QString m_target;
  QString m_kept;  ///< empty: nothing is kept
  bool m_existed;
};

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
  std::vector<std::unique_ptr<Undo>> undos;  // of the files that have taken their place
  for (const auto& file : staged) {
    // Behind the last file nothing can fail.
    auto undo = file == staged.back() ? nullptr : std::make_unique<Undo>(file->fileName());
    if (!file->commit()) {
      for (const auto& done : undos) done->Run();
      return file->fileName();
    }
    undos.push_back(std::move(undo));
  }
  return std::nullopt;
}

}  // namespace tremlo
