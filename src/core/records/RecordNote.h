#pragma once

#include "core/records/Record.h"

#include <QString>

#include <cstddef>
#include <vector>

namespace tremlo {

/// What was read from where, as it is told below a wave that came from a file. It is of the open document
/// alone: the project file has no place for it.
struct RecordNote {
  QString file;    ///< its path
  QString member;  ///< its path in an archive; empty outside one
  RecordFormat format = RecordFormat::Unknown;
  QString station;    ///< may be empty, as the next two
  QString component;  ///< as the file names it
  QString start;      ///< of the record in the file
  std::size_t count = 0;
  double timeStep = 0.0;  ///< s
  QString unit;
  QString factor;                 ///< gal for one unit; as the file writes it, where it does
  double offset = 0.0;            ///< gal, taken off
  bool corrected = false;         ///< the file says that its offset has been dealt with
  bool cut = false;               ///< less than the whole record: from `from` to `to`
  double from = 0.0, to = 0.0;    ///< s from the start of the record in the file
  std::vector<QString> warnings;  ///< in sentences

  bool operator==(const RecordNote&) const = default;
};

/// In one line.
QString NoteLine(const RecordNote& note);

/// What each part of both texts is, a line each.
QString NoteDefinitions();

/// The text of NoteLine a line each, with file, start and the name of the source to be given.
QString NoteDetails(const RecordNote& note);

}  // namespace tremlo
