#include "core/shell/ManualPages.h"

#include "core/project/FlowStep.h"

#include <QList>

namespace tremlo {

namespace {

constexpr int kMostPages = 100000;
const QString kShortRoute = QStringLiteral("first-wave");
const QString kGuidelineRoute = QStringLiteral("guideline");

/// The section of the guideline route bears the name of the step that leads to the screen.
QString SectionOf(ScreenId screen) {
  switch (screen) {
    case ScreenId::Flowchart1:
    case ScreenId::Flowchart2:
    case ScreenId::Flowchart3:
      return SectionOf(ScreenId::FlowCheck);
    case ScreenId::MakeSeismicWave2:
      return SectionOf(ScreenId::MakeSeismicWave1);
    default:
      break;
  }
  for (int step = 0; step <= static_cast<int>(FlowStep::Visualization); ++step) {
    const FlowStepRow& row = RowOf(static_cast<FlowStep>(step));
    if (row.screen == screen) return QString::fromUtf16(row.title);
  }
  return {};
}

/// Of the line that begins with the key and a tab.
std::optional<int> PageBehind(const QByteArray& table, const QString& key) {
  const QByteArray head = key.toUtf8() + '\t';
  for (const QByteArray& line : table.split('\n')) {
    if (!line.startsWith(head)) continue;
    bool sound = false;
    const int page = line.mid(head.size()).trimmed().toInt(&sound);
    if (sound && page >= 1 && page <= kMostPages) return page;
  }
  return std::nullopt;
}

}  // namespace

ManualPlace ManualPlaceOf(std::optional<ScreenId> screen) {
  if (!screen) return {kShortRoute, {}};
  switch (*screen) {
    case ScreenId::RespOrigSeismicWave:
      return {kShortRoute, QStringLiteral("記録を読み込む")};
    case ScreenId::RespAdjustSpectrum:
      return {kShortRoute, QStringLiteral("目標スペクトルを読み込む")};
    case ScreenId::RespVisualization:
      return {kShortRoute, QStringLiteral("調整して書き出す")};
    default:
      return {kGuidelineRoute, SectionOf(*screen)};
  }
}

std::optional<int> ManualPageOf(const QByteArray& table, const ManualPlace& place) {
  if (!place.section.isEmpty())
    if (const auto page = PageBehind(table, place.chapter + u'/' + place.section)) return page;
  return PageBehind(table, place.chapter);
}

}  // namespace tremlo
