#include "core/sources/AcquisitionReport.h"

#include "core/location/HazardTables.h"

#include <QStringList>

namespace tremlo {

namespace {

/// The address of a request tells which of the two interfaces of the service it was for.
bool IsActivityRequest(const QString& url) {
  return url.contains(u"/pshm/");
}

/// A name as a line has room for it: nothing keeps the service from sending a page.
QString ShortName(const QString& name) {
  constexpr qsizetype kMostLetters = 40;
  return name.size() <= kMostLetters ? name : name.left(kMostLetters) + u'…';
}

QString NamesText(const std::vector<QString>& names, std::size_t most) {
  QStringList shown;
  for (std::size_t i = 0; i < names.size() && i < most; ++i) shown << ShortName(names[i]);
  QString text = shown.join(u'、');
  if (names.size() > most)
    text += QStringLiteral("%1他 %2")
                .arg(text.isEmpty() ? QString() : QStringLiteral("、"))
                .arg(names.size() - most);
  return text;
}

}  // namespace

AcquisitionReport ReportOf(const FaultAcquisitionInput& input, const FaultAcquisitionResult& result) {
  AcquisitionReport report;
  // A request that failed was asked too; without an address nothing was.
  const bool isWhole = result.changed && result.outcome == ServiceOutcome::Done;
  if (input.mode != kAcquireRange && (isWhole || !result.url.isEmpty()))
    report.searchVersion = input.parameters.versionIndex;
  if (isWhole || IsActivityRequest(result.url))
    report.activityVersion = input.parameters.activityVersionIndex;
  report.searchUnread = report.searchVersion && !report.activityVersion &&
                        result.outcome != ServiceOutcome::Done &&
                        result.outcome != ServiceOutcome::NothingFound;
  for (const std::vector<SourceName>* const sources : {&result.unread, &result.withoutPlanes})
    for (const SourceName& source : *sources) report.unread.push_back(source.name);
  return report;
}

QString AcquisitionLine(const AcquisitionReport& report, std::size_t mostNames) {
  QStringList versions;
  if (report.searchVersion)
    versions << QStringLiteral("被害地検索 ") + SearchVersionLabel(*report.searchVersion);
  if (report.activityVersion)
    versions << QStringLiteral("地震活動モデル ") + ActivityVersionLabel(*report.activityVersion);
  if (versions.isEmpty()) return {};
  QString line =
      QStringLiteral("出典：防災科学技術研究所 J-SHIS 地震ハザードステーション（地図バージョン：") +
      versions.join(u'、') + u'）';
  if (report.searchUnread) line += QStringLiteral("　断層の順位を取得できませんでした。");
  if (!report.unread.empty())
    line += QStringLiteral("　断層面を取得できなかった断層：") + NamesText(report.unread, mostNames);
  return line;
}

}  // namespace tremlo
