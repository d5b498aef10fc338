#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

#include <ostream>

// GoogleTest prints wide text readably.
inline void PrintTo(const QString& text, std::ostream* out) {
  *out << '"' << text.toStdString() << '"';
}

namespace tremlo::test {

/// A folder of one test's own, with a blank and Japanese letters in its name, gone after it.
class TestFolder {
 public:
  TestFolder();
  QString Path(const QString& name) const { return m_dir.filePath(name); }
  QString Path() const { return m_dir.path(); }
  /// Writes a file, making its folders, and returns its path.
  QString Write(const QString& name, const QByteArray& content) const;
  QStringList Names() const;  ///< files and folders in it, sorted

 private:
  QTemporaryDir m_dir;
};

QByteArray ReadAll(const QString& path);

/// A file of the source tree.
QString SourcePath(const QString& name);

/// Copies the table folders that the project ships into `folder`.
void CopyTables(const TestFolder& folder);

}  // namespace tremlo::test
