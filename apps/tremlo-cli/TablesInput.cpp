#include "TablesInput.h"

#include <QDir>

namespace tremlo::cli {

std::optional<QString> LoadTables(CMorvaneDoc& doc) {
  auto failure = CheckTableFolders(doc.ProgramFolder());
  if (!failure) failure = doc.ResetDocument();
  if (!failure) return std::nullopt;
  return QDir::toNativeSeparators(doc.ProgramFolder()) + QStringLiteral(": ") + failure->text;
}

}  // namespace tremlo::cli
