#include "core/records/RecordTerms.h"

#include <QStringList>

namespace tremlo {

// The terms as their owners published them; they may have changed since.

QString CreditOf(RecordFormat format) {
  switch (format) {
    case RecordFormat::KnetAscii:
    case RecordFormat::KikNetAscii:
    case RecordFormat::KnetCsv:
      return QStringLiteral("防災科学技術研究所 (2019) 防災科研K-NET・KiK-net. doi:10.17598/NIED.0004");
    case RecordFormat::JmaCsv:
      return QStringLiteral("気象庁と、記録を提供したすべての機関（地方公共団体など）の名");
    case RecordFormat::At2:
      return QStringLiteral("PEER（Pacific Earthquake Engineering Research Center）と、記録した観測網の名");
    case RecordFormat::Cosmos:
    case RecordFormat::Csmip:
      return QStringLiteral("CESMD（Center for Engineering Strong Motion Data）と、記録した観測網の名");
    case RecordFormat::GeoNet:
      return QStringLiteral("GNS Science / GeoNet");
    case RecordFormat::OwnWave:
    case RecordFormat::FreeText:
    case RecordFormat::Unknown:
      break;
  }
  return {};
}

QString RecordTerms() {
  const auto credit = [](RecordFormat format) { return QStringLiteral("出典の表示：") + CreditOf(format); };
  return QStringList{
      QStringLiteral(
          "防災科研 K-NET・KiK-net：利用登録が必要です。波形データのファイルの再配布、販売、改変は禁じられて"
          "います。"),
      credit(RecordFormat::KnetAscii),
      QString(),
      QStringLiteral(
          "気象庁：第三者への提供は禁じられています。地方公共団体の記録を使ったときは、使用したことを気象庁へ"
          "報告してください。"),
      credit(RecordFormat::JmaCsv),
      QString(),
      QStringLiteral("PEER（AT2）：利用条件は配布元で確かめてください。再配布はしないでください。"),
      credit(RecordFormat::At2),
      QString(),
      QStringLiteral("COSMOS・CESMD：公開されています。"),
      credit(RecordFormat::Cosmos),
      QString(),
      QStringLiteral("GeoNet：CC BY 3.0 NZ で利用できます。"),
      credit(RecordFormat::GeoNet),
      QString(),
      QStringLiteral(
          "読み込んだ記録はプロジェクトのファイルに含まれます。プロジェクトを渡すときも、記録の利用条件に"
          "従ってください。")}
      .join(u'\n');
}

}  // namespace tremlo
