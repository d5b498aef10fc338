#pragma once

#include "core/ask/FileDialogs.h"

namespace tremlo {

/// The questions for a wave or spectrum file to read, and for one to write.
inline FileQuestion WaveFileToRead(const QString& title) {
  return {.title = title,
          .nameFilters = QStringLiteral("CSVファイル (*.csv);;All Files (*.*)"),
          .suffix = QStringLiteral("csv"),
          .proposedName = {}};
}

/// The same for a record of any format, with a filter more: in the order of RecordFilter.
inline FileQuestion RecordFileToRead(const QString& title) {
  FileQuestion question = WaveFileToRead(title);
  question.nameFilters += QStringLiteral(";;テキスト形式の記録 (*.*)");
  return question;
}

inline FileQuestion WaveFileToWrite(const QString& title, const QString& proposedName) {
  return {.title = title,
          .nameFilters = QStringLiteral("CSVファイル (*.csv)"),
          .suffix = QStringLiteral("csv"),
          .proposedName = proposedName};
}

}  // namespace tremlo
