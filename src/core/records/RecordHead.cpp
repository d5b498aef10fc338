#include "core/records/RecordHead.h"

#include "core/records/RecordText.h"

#include <algorithm>

namespace tremlo {

namespace {

constexpr std::size_t kLines = 40;
constexpr std::size_t kMostLines = 240;  // longer than the header of every named format
constexpr std::size_t kDataLines = 8;    // that are shown at least, if there are as many
constexpr std::size_t kLongestLine = 200;
constexpr qsizetype kMostBytes = qsizetype{1024} * 1024;

}  // namespace

std::vector<HeadLine> HeadOf(const QByteArray& content, const std::vector<LineRange>& data) {
  QByteArray head = content.left(kMostBytes);
  // Half a character at the end would make another encoding of the text.
  if (head.size() < content.size()) head.truncate(head.lastIndexOf('\n') + 1);
  const RecordText text(head, {});
  std::size_t count = kLines;
  if (!data.empty()) count = std::clamp(data.front().first + kDataLines, kLines, kMostLines);
  std::vector<HeadLine> lines;
  for (std::size_t i = 0; i < std::min(count, text.Size()); ++i) {
    HeadLine line;
    line.text = text.Decode(text.Line(i).substr(0, kLongestLine));
    for (QChar& unit : line.text)
      if (unit < u' ' && unit != u'\t') unit = QChar::ReplacementCharacter;
    line.data = std::any_of(data.begin(), data.end(),
                            [i](const LineRange& range) { return i >= range.first && i < range.behind; });
    lines.push_back(std::move(line));
  }
  return lines;
}

}  // namespace tremlo
