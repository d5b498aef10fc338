#include "core/records/Record.h"

#include <QFileInfo>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace tremlo {

QString FormatName(RecordFormat format) {
  switch (format) {
    case RecordFormat::KnetAscii:
      return QStringLiteral("K-NET ASCII");
    case RecordFormat::KikNetAscii:
      return QStringLiteral("KiK-net ASCII");
    case RecordFormat::KnetCsv:
      return QStringLiteral("K-NET CSV");
    case RecordFormat::JmaCsv:
      return QStringLiteral("気象庁 CSV");
    case RecordFormat::Cosmos:
      return QStringLiteral("COSMOS");
    case RecordFormat::Csmip:
      return QStringLiteral("CSMIP");
    case RecordFormat::GeoNet:
      return QStringLiteral("GeoNet");
    case RecordFormat::At2:
      return QStringLiteral("AT2");
    case RecordFormat::OwnWave:
      return QStringLiteral("Tremlo CSV");
    case RecordFormat::FreeText:
      return QStringLiteral("テキスト");
    case RecordFormat::Unknown:
      break;
  }
  return QStringLiteral("不明");
}

bool RecordReading::Asks(RecordAsk ask) const {
  return std::any_of(questions.begin(), questions.end(),
                     [&](const RecordQuestion& question) { return question.ask == ask; });
}

void RecordReading::Ask(RecordAsk ask, const QString& text) {
  if (!Asks(ask)) questions.push_back({ask, text});
}

void RecordReading::Warn(const QString& text) {
  if (std::find(warnings.begin(), warnings.end(), text) == warnings.end()) warnings.push_back(text);
}

RecordPeak PeakOf(const std::vector<double>& acc) {
  RecordPeak peak;
  if (acc.empty()) return peak;
  // About the first sample: a large offset then costs no digits.
  double sum = 0.0;
  for (const double a : acc) sum += a - acc.front();
  peak.mean = acc.front() + sum / static_cast<double>(acc.size());
  peak.pga = 0.0;
  for (std::size_t i = 0; i < acc.size(); ++i) {
    const double rest = std::fabs(acc[i] - peak.mean);
    if (rest <= peak.pga) continue;
    peak.pga = rest;
    peak.at = i;
  }
  return peak;
}

QString ProposedName(const RecordReading& reading, const RecordComponent& component) {
  QStringList parts;
  for (const QString& part : {reading.station, component.name})
    if (!part.isEmpty()) parts << part;
  if (reading.station.isEmpty())
    parts.prepend(QFileInfo(reading.member.isEmpty() ? reading.file : reading.member).completeBaseName());
  QString name = parts.join(u' ').simplified();
  // The name ends at the first comma of a wave file.
  name.replace(u',', u' ');
  return name;
}

QString WithoutControls(QString text) {
  for (QChar& unit : text)
    if (unit.category() == QChar::Other_Control) unit = unit == u'\t' ? u' ' : u'_';
  return text;
}

QString CountsDiffer(std::size_t announced, std::size_t found, const QString& component) {
  const QString which = component.isEmpty() ? QString() : component + QStringLiteral("：");
  return which + QStringLiteral("点数：ファイルの記載は %1 点、実際は %2 点です。").arg(announced).arg(found);
}

}  // namespace tremlo
