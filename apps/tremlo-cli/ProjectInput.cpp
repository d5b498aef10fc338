#include "ProjectInput.h"

#include "Command.h"
#include "Output.h"
#include "core/files/FileFault.h"
#include "core/project/ProjectFile.h"

namespace tremlo::cli {

int OpenInput(CMorvaneDoc& doc, const QString& path) {
  switch (OpenProject(doc, path).result) {
    case OpenResult::kOpened:
      return kDone;
    case OpenResult::kBroken:
      return Fail(kBadFile, FileFault(path, QStringLiteral("プロジェクトファイルとして読めません。"
                                                           "途中で切れているか、壊れています。")));
    case OpenResult::kUnreadable:
      break;
  }
  return Fail(kBadFile, FileFault(path, QStringLiteral("ファイルを開けませんでした。")));
}

}  // namespace tremlo::cli
