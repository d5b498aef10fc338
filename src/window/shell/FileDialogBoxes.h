#pragma once

#include "core/ask/FileDialogs.h"
#include "core/project/MorvaneDoc.h"

class QFileDialog;

namespace tremlo {

/// Questions about files as dialogs of Qt's own, which look and can be driven alike on every desktop.
class FileDialogBoxes : public FileDialogs {
 public:
  explicit FileDialogBoxes(const CMorvaneDoc& doc) : m_doc(doc) {}

  QString AskOpenPath(const FileQuestion& question) override;
  FileChoice AskOpenFile(const FileQuestion& question) override;
  QString AskSavePath(const FileQuestion& question) override;

 private:
  QString StartFolder() const;
  FileChoice Ask(QFileDialog& dialog, const FileQuestion& question);

  const CMorvaneDoc& m_doc;
  QString m_lastFolder;  ///< of this run
};

}  // namespace tremlo
