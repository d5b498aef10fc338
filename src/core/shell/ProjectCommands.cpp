#include "core/shell/ProjectCommands.h"

#include "core/project/ProjectFile.h"
#include "core/shell/TitleText.h"

#include <QFileInfo>

namespace tremlo {

namespace {

const QString kFilters = QStringLiteral("Tremlo files (*.trml);;All Files (*.*)");
const QString kSuffix = QStringLiteral("trml");

}  // namespace

bool ProjectCommands::StartNew() {
  if (!ResetDocument()) return false;
  m_parts.procedure.ResetPane();
  return true;
}

bool ProjectCommands::StartWithFile(const QString& path) {
  const QString absolute = QFileInfo(path).absoluteFilePath();
  const OpenOutcome outcome = OpenProject(m_parts.doc, absolute);
  if (outcome.tableFailure) {
    EndAfter(*outcome.tableFailure);
    return false;
  }
  if (outcome.result != OpenResult::kOpened) {
    m_parts.prompt.Tell(OpenFailureText(absolute));
    return false;
  }
  m_parts.recent.Add(absolute);
  m_parts.procedure.ApplyStepSwitches();
  return true;
}

void ProjectCommands::New() {
  if (!m_parts.procedure.BeginReplaceProject() || !MayLeaveProject()) return;
  if (!ResetDocument()) return;
  m_parts.shell.ProjectChanged();
  m_parts.procedure.ResetPane();
  const TopChoice choice = m_parts.shell.AskRoute();
  if (choice == TopChoice::NotShown) {
    m_parts.prompt.Tell(QStringLiteral("トップ画面を表示させることができませんでした。"));
    m_parts.procedure.RefreshActiveScreen();
    return;
  }
  if (choice == TopChoice::Cancelled) {
    m_parts.shell.EndProgram(0);
    return;
  }
  m_parts.doc.guidelineRoute = choice == TopChoice::GuidelineRoute;
  Follow(m_parts.procedure.ShowProject());
  m_parts.shell.ProjectChanged();
}

void ProjectCommands::Open() {
  if (!m_parts.procedure.BeginReplaceProject()) return;
  const QString path = m_parts.files.AskOpenPath(
      {.title = QStringLiteral("開く"), .nameFilters = kFilters, .suffix = kSuffix, .proposedName = {}});
  if (!path.isEmpty()) OpenFile(path);
}

void ProjectCommands::OpenRecent(const QString& path) {
  if (!m_parts.procedure.BeginReplaceProject()) return;
  if (OpenFile(path) != OpenEnd::Failed) return;
  m_parts.recent.Remove(path);
  m_parts.shell.ProjectChanged();
}

void ProjectCommands::OpenDropped(const QString& path) {
  if (m_parts.procedure.BeginReplaceProject()) OpenFile(path);
}

bool ProjectCommands::Save() {
  return m_parts.doc.PathName().isEmpty() ? SaveAs() : SaveTo(m_parts.doc.PathName());
}

bool ProjectCommands::SaveAs() {
  const QString path =
      m_parts.files.AskSavePath({.title = QStringLiteral("名前を付けて保存"),
                                 .nameFilters = kFilters,
                                 .suffix = kSuffix,
                                 .proposedName = ProposedFileName(ProjectTitle(m_parts.doc.PathName()))});
  return !path.isEmpty() && SaveTo(QFileInfo(path).absoluteFilePath());
}

bool ProjectCommands::MayLeaveProject() {
  if (!m_parts.doc.IsModified()) return true;
  const QString text = QStringLiteral("「") + ProjectTitle(m_parts.doc.PathName()) +
                       QStringLiteral("」は変更されています。保存しますか？");
  const PromptAnswer answer = m_parts.prompt.Show({.text = text, .buttons = PromptButtons::YesNoCancel});
  if (answer == PromptAnswer::Yes) return Save();
  return answer == PromptAnswer::No;
}

ProjectCommands::OpenEnd ProjectCommands::OpenFile(const QString& path) {
  const QString absolute = QFileInfo(path).absoluteFilePath();
  if (!MayLeaveProject()) return OpenEnd::Declined;
  const OpenOutcome outcome = OpenProject(m_parts.doc, absolute);
  if (outcome.tableFailure) {
    EndAfter(*outcome.tableFailure);
    return OpenEnd::Declined;  // no fault of the file
  }
  const bool opened = outcome.result == OpenResult::kOpened;
  if (!opened) m_parts.prompt.Tell(OpenFailureText(absolute));
  if (opened) m_parts.recent.Add(absolute);
  // A file that could not even be read has left the document alone.
  if (outcome.result != OpenResult::kUnreadable) {
    Follow(m_parts.procedure.ShowOpenedProject());
    m_parts.shell.ProjectChanged();
  }
  return opened ? OpenEnd::Opened : OpenEnd::Failed;
}

bool ProjectCommands::ResetDocument() {
  const std::optional<TableFailure> failure = m_parts.doc.ResetDocument();
  if (failure) {
    EndAfter(*failure);
    return false;
  }
  m_parts.doc.SetPathName({});
  m_parts.doc.SetModified(false);
  return true;
}

bool ProjectCommands::SaveTo(const QString& path) {
  if (!SaveProject(m_parts.doc, path)) {
    m_parts.prompt.Tell(SaveFailureText(path));
    return false;
  }
  m_parts.recent.Add(path);
  m_parts.shell.ProjectChanged();
  return true;
}

void ProjectCommands::EndAfter(const TableFailure& failure) {
  m_parts.prompt.Tell(failure.text, PromptIcon::None);
  m_parts.shell.EndProgram(failure.exitStatus);
}

void ProjectCommands::Follow(SwitchOutcome outcome) {
  if (outcome == SwitchOutcome::EndProgram) m_parts.shell.EndProgram(1);
}

}  // namespace tremlo
