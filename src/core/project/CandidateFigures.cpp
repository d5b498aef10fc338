#include "core/project/CandidateFigures.h"

#include "core/files/NumberText.h"
#include "numeric/waves/SpectrumFigures.h"

#include <QStringList>

namespace tremlo {

namespace {

constexpr std::size_t kMostStretches = 3;
constexpr qsizetype kLongestName = 40;

QString PeriodText(double period) {
  return QString::number(period, 'g', 4);
}

QString StretchText(const PeriodStretch& stretch) {
  const QString from = PeriodText(stretch.shortest), to = PeriodText(stretch.longest);
  return (from == to ? from : from + u'～' + to) + QStringLiteral(" s");
}

/// Of a long name both ends: names of one kind differ there.
QString Shortened(const QString& name) {
  if (name.size() <= kLongestName) return name;
  QString front = name.left(kLongestName / 2);
  QString back = name.right(kLongestName - front.size() - 1);
  if (front.back().isHighSurrogate()) front.chop(1);
  if (back.front().isLowSurrogate()) back.remove(0, 1);
  return front + u'…' + back;
}

}  // namespace

EntryRule DamPeriodRule() {
  EntryRule rule;
  rule.kind = EntryKind::Decimal;
  rule.minValue = 0.02;
  rule.maxValue = 5.0;
  rule.decimals = 3;
  return rule;
}

QString ResponseAtText(const CMorvaneDoc& doc, const BaseItem& item, std::optional<double> period) {
  const SpectrumView spectrum = SpectrumOf(doc, item);
  const auto value =
      period ? ValueAtPeriod(spectrum.periods, spectrum.values, *period) : std::optional<double>();
  return value ? FixedText(*value, 2) + QStringLiteral(" gal") : QStringLiteral("-");
}

QString BelowLimitText(const CMorvaneDoc& doc, const BaseItem& item) {
  const SpectrumView spectrum = SpectrumOf(doc, item);
  const SpectrumView limit = SpectrumOf(doc, BaseItem{BaseSource::LowerLimit, 0, 0});
  const auto stretches = StretchesBelow(spectrum.periods, spectrum.values, limit.periods, limit.values);
  if (!stretches) return QStringLiteral("-");
  if (stretches->empty()) return QStringLiteral("なし");
  QStringList texts;
  for (std::size_t i = 0; i < stretches->size() && i < kMostStretches; ++i)
    texts << StretchText((*stretches)[i]);
  if (stretches->size() > kMostStretches)
    texts << QStringLiteral("他 %1").arg(stretches->size() - kMostStretches);
  return texts.join(u'、');
}

QString CandidateText(const CMorvaneDoc& doc, const BaseItem& item, std::optional<double> damPeriod) {
  return QStringLiteral("%1　ダムの固有周期での応答：%2\n下限スペクトルを下回る周期：%3")
      .arg(Shortened(LabelOf(doc, item)), ResponseAtText(doc, item, damPeriod), BelowLimitText(doc, item));
}

}  // namespace tremlo
