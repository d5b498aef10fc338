#include "window/shell/FileDialogBoxes.h"

#include "window/graphs/FrontWindow.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QStandardPaths>

#include <algorithm>

namespace tremlo {

namespace {

/// "*.*" means every file, but Qt's dialog would leave out those without a point in their name.
void ShowAllFiles(QFileDialog& dialog) {
  auto* const files = dialog.findChild<QFileSystemModel*>();
  if (!files) return;
  QObject::connect(&dialog, &QFileDialog::filterSelected, files, [files](const QString& filter) {
    if (filter.endsWith(QStringLiteral("(*.*)"))) files->setNameFilters({QStringLiteral("*")});
  });
}

/// A name without an ending gets that of the kind of file that is chosen. One that has an ending Qt itself
/// gives another when another kind is chosen.
void FollowKind(QFileDialog& dialog) {
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString& filter) {
    static const QRegularExpression kOnePattern(QStringLiteral("\\(\\*\\.([A-Za-z0-9]+)\\)$"));
    const QRegularExpressionMatch match = kOnePattern.match(filter);
    if (match.hasMatch()) dialog.setDefaultSuffix(match.captured(1));
  });
}

/// Qt adds its suffix to a name without a point alone, but "0.02s" is part of a name.
class SaveDialog : public QFileDialog {
 public:
  using QFileDialog::QFileDialog;

 protected:
  void accept() override {
    // Before Qt looks whether the file is there.
    auto* const edit = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (edit && LacksExtension(edit->text())) edit->setText(edit->text() + u'.' + defaultSuffix());
    QFileDialog::accept();
  }

 private:
  bool LacksExtension(const QString& text) const {
    static const QRegularExpression kExtension(QStringLiteral("^[A-Za-z][A-Za-z0-9]{0,4}$"));
    const QFileInfo file(directory().filePath(text));
    return file.fileName().contains(u'.') && !file.isDir() && !kExtension.match(file.suffix()).hasMatch();
  }
};

}  // namespace

QString FileDialogBoxes::AskOpenPath(const FileQuestion& question) {
  return AskOpenFile(question).path;
}

FileChoice FileDialogBoxes::AskOpenFile(const FileQuestion& question) {
  QFileDialog dialog(FrontWindow());
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  dialog.setFileMode(QFileDialog::ExistingFile);
  return Ask(dialog, question);
}

QString FileDialogBoxes::AskSavePath(const FileQuestion& question) {
  SaveDialog dialog(FrontWindow());
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  FollowKind(dialog);
  return Ask(dialog, question).path;
}

QString FileDialogBoxes::StartFolder() const {
  QStringList candidates;
  if (!m_doc.PathName().isEmpty()) candidates << QFileInfo(m_doc.PathName()).absolutePath();
  if (!m_lastFolder.isEmpty()) candidates << m_lastFolder;
  candidates << QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  for (const QString& folder : candidates)
    if (QFileInfo(folder).isDir()) return folder;
  return QDir::homePath();
}

FileChoice FileDialogBoxes::Ask(QFileDialog& dialog, const FileQuestion& question) {
  dialog.setObjectName(QStringLiteral("fileDialog"));
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setWindowTitle(question.title);
  const QStringList filters = question.nameFilters.split(QStringLiteral(";;"));
  dialog.setNameFilters(filters);
  ShowAllFiles(dialog);
  dialog.setDefaultSuffix(question.suffix);
  dialog.setDirectory(StartFolder());
  if (!question.proposedName.isEmpty()) dialog.selectFile(question.proposedName);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  FileChoice choice{dialog.selectedFiles().front()};
  choice.filter = std::max(0, static_cast<int>(filters.indexOf(dialog.selectedNameFilter())));
  m_lastFolder = QFileInfo(choice.path).absolutePath();
  return choice;
}

}  // namespace tremlo
