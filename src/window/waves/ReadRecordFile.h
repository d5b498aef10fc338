#pragma once

#include "core/ask/FileDialogs.h"
#include "core/ask/Prompt.h"
#include "core/records/RecordImport.h"

class QWidget;

namespace tremlo {

/// What the reading of a chosen file takes. The prompt tells refusals; dialogs come up before `parent`; the
/// graph of what will be read is saved through the files.
struct RecordDoor {
  Prompt& prompt;
  FileDialogs& files;
  QWidget* parent;
  bool onlyOne;  ///< a single component is to be read
};

/// Reads the file of a record, asking what has to be asked. Nothing when nothing is to be read: the file was
/// refused, or the user has given up.
std::vector<ImportedWave> ReadRecordFile(const FileChoice& choice, const RecordDoor& door);

/// The same for a file that was read as the program's own: the user says as what else.
std::vector<ImportedWave> ReadRecordOtherwise(const QString& path, const RecordDoor& door);

}  // namespace tremlo
