#include "TablesInput.h"

#include <QDir>

namespace tremlo::cli {

std::optional<QString> LoadTables(CMorvaneDoc& doc) {
  auto failure = CheckTableFolders(doc.Folders());
  if (!failure) failure = doc.ResetDocument();
  if (!failure) return std::nullopt;
  return QDir::toNativeSeparators(failure->place) + QStringLiteral(": ") + failure->text;
}

}  // namespace tremlo::cli
