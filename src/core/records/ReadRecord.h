#pragma once

#include "core/records/Record.h"

#include <QByteArray>

#include <functional>

namespace tremlo {

/// Reads the content of one record that is no archive. `file` and `member` name it; with `format` it is read
/// as that, else as what its content shows. Never throws for what stands in the file.
RecordReading ReadRecord(const QByteArray& content, const QString& file, const QString& member,
                         const RecordAnswers& answers = {}, RecordFormat format = RecordFormat::Unknown);

/// Reads a file of the disk, an archive or not, and hands over one reading a record, in their order. What
/// cannot be read is a reading with an error. An archive is read in memory within the bounds of
/// RecordArchive.h, one member at a time; `answers` hold for all of its members. A member for whose path
/// `wants` is false is passed over unread.
void WalkRecords(const QString& path, const RecordAnswers& answers,
                 const std::function<void(RecordReading&&)>& take,
                 const std::function<bool(const QString& member)>& wants = {});

/// All of them at once.
std::vector<RecordReading> ReadRecordFile(const QString& path, const RecordAnswers& answers = {});

}  // namespace tremlo
