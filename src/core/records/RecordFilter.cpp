#include "core/records/RecordFilter.h"

#include "core/records/DetectFormat.h"

namespace tremlo {

RecordFormat FormatToRead(const RecordText& text, RecordFilter filter) {
  QString sign;
  // A text beyond the bounds has no lines.
  const RecordFormat found = DetectFormat(text, sign);
  if (found != RecordFormat::OwnWave && found != RecordFormat::FreeText) return found;
  switch (filter) {
    case RecordFilter::OwnWave:
      return RecordFormat::OwnWave;
    case RecordFilter::FreeText:
      return RecordFormat::FreeText;
    case RecordFilter::All:
      break;
  }
  return found;
}

}  // namespace tremlo
