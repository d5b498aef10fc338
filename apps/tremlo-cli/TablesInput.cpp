#include "TablesInput.h"

#include "core/files/FileFault.h"

namespace tremlo::cli {

std::optional<QString> LoadTables(CMorvaneDoc& doc) {
  auto failure = CheckTableFolders(doc.Folders());
  if (!failure) failure = doc.ResetDocument();
  if (!failure) return std::nullopt;
  return FileFault(failure->place, failure->text);
}

}  // namespace tremlo::cli
