#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tremlo {

/// Reads a regular file whole. False for a file that is missing, unreadable, a folder, no regular file, or
/// larger than memory.
bool ReadWholeFile(const QString& path, QByteArray& content);

struct FileContent {
  QString path;
  std::string content;
};

/// Writes a file whole or not at all: the bytes go to a temporary file beside it, which takes its place only
/// once everything stands on disk. After false an older file of that name is as it was. Every file that a
/// user keeps is written by this function or the next.
bool WriteWholeFile(const QString& path, std::string_view content);

/// The same for files that belong together: none takes its place before all stand on disk, and when one
/// cannot take it, those before it give theirs back to the older files (unless the file system lets no second
/// name or copy of these be kept meanwhile). Returns the path of the file that could not be written.
std::optional<QString> WriteWholeFiles(const std::vector<FileContent>& files);

}  // namespace tremlo
