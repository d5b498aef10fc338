#include "core/graphs/SiteRows.h"
#include "core/location/PositionTexts.h"
#include "core/location/SitePosition.h"
#include "core/project/WorkProcedure.h"
#include "core/report/ReportParts.h"
#include "core/shell/ChartLook.h"

namespace tremlo {

namespace {

/// The texts that were filled in.
void AddFilled(std::vector<QStringList>& rows, const std::vector<TextRows::Row>& texts) {
  for (const TextRows::Row& row : texts)
    if (!row.text->isEmpty()) rows.push_back({row.title, *row.text});
}

}  // namespace

std::vector<ReportSection> SiteSections(const CMorvaneDoc& doc) {
  SiteRecord site = doc.site;
  std::vector<QStringList> rows;
  AddFilled(rows, JobRows(site));
  // The other route knows no site.
  if (doc.guidelineRoute) {
    AddFilled(rows, SiteRows(site));
    rows.push_back({QStringLiteral("位置"), PlaceText(PlaceOf(PositionOf(site)))});
    rows.push_back({QStringLiteral("平面直角座標系"), site.planeZone});
    rows.push_back({QStringLiteral("平面直角座標"), PlaneText(site)});
  }
  if (rows.empty()) return {};
  ReportSection section{QStringLiteral("業務とダム地点"), {PropertyTable({}, std::move(rows))}};
  if (doc.guidelineRoute) {
    if (IsFarFromZone(site)) section.blocks.emplace_back(ZoneHintText(site.planeZone));
    section.blocks.emplace_back(ReportFigure{ReportPicture::Map, QStringLiteral("ダム地点")});
  } else {
    section.title = QStringLiteral("業務");
  }
  return {section};
}

std::vector<ReportSection> ProcedureSections(const CMorvaneDoc& doc) {
  if (!doc.guidelineRoute || !doc.flowFixed) return {};
  ReportTable answers{{}, {QStringLiteral("判断"), QStringLiteral("経路")}, {}, {false, false}};
  const BoxLooks looks = LooksOf(FixedAnswers(doc));
  for (const ChartBox box : kChartBoxes)
    if (!NumberOf(box).isEmpty())
      answers.rows.push_back({SpokenName(box), SpokenState(box, looks[static_cast<std::size_t>(box)])});
  return {{QStringLiteral("作業手順"),
           {ReportFigure{ReportPicture::Chart, QStringLiteral("確定した作業手順")}, answers}}};
}

std::vector<ReportSection> CommentSections(const CMorvaneDoc& doc) {
  if (!doc.guidelineRoute) return {};
  ReportSection section{QStringLiteral("備考"), {}};
  for (const QString& comment : doc.site.comments)
    if (!comment.isEmpty()) section.blocks.emplace_back(comment);
  if (section.blocks.empty()) return {};
  return {section};
}

}  // namespace tremlo
