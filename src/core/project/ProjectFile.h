#pragma once

#include "core/project/Archive.h"
#include "core/project/MorvaneDoc.h"

#include <QString>

#include <optional>
#include <string>
#include <string_view>

namespace tremlo {

/// Writes every stored field in file order.
void Serialize(ArchiveWriter& archive, const CMorvaneDoc& doc);

/// Resets the document and reads the same fields into it. After a failure of the archive the fields before it
/// keep what was read and those behind it their defaults: no roll-back. Bytes behind the last field are left
/// alone. Two records of one name in a set both get the later body, as by-name setters would give it to them;
/// copies that would hold far more than the file does fail the archive. Returns the failure of a system
/// table, if the reset met one: it ends the program, but the fields are read all the same.
std::optional<TableFailure> Serialize(ArchiveReader& archive, CMorvaneDoc& doc);

/// The project as the bytes of its file. Empty, which no project is, when memory runs out or a list is longer
/// than the file can say.
std::string ProjectBytes(const CMorvaneDoc& doc);

struct LoadOutcome {
  bool whole = false;  ///< every field was read
  std::optional<TableFailure> tableFailure;
};

/// Loads a project from the bytes of its file. Never throws; paths and the modified mark are left alone.
LoadOutcome LoadProject(CMorvaneDoc& doc, std::string_view bytes);

enum class OpenResult {
  kOpened,
  kUnreadable,  ///< no file, a folder, no rights: the document is as it was
  kBroken,      ///< cut short or no project: the document holds what was read
};

struct OpenOutcome {
  OpenResult result = OpenResult::kUnreadable;
  std::optional<TableFailure> tableFailure;  ///< ends the program, with the status that it carries
};

/// Opens a project file. The document is not modified then; it is named after `path` if every field was read,
/// and unnamed otherwise, so that half of a project cannot be saved over a whole one.
OpenOutcome OpenProject(CMorvaneDoc& doc, const QString& path);

/// Saves whole or not at all. After true the document is named after `path` and not modified; after false it
/// keeps both its name and its mark, and an older file is as it was.
bool SaveProject(CMorvaneDoc& doc, const QString& path);

/// What the user is told: the sentence, and the path on a second line.
QString OpenFailureText(const QString& path);
QString SaveFailureText(const QString& path);

/// The file name that a save dialog proposes for a document of this title (its file name, "無題" while
/// unnamed): the title without ".trml", cut at the first of :/\ and at 256 characters, plus ".trml".
QString ProposedFileName(const QString& title);

}  // namespace tremlo
