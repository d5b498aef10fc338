#include "core/shell/ChartLook.h"

namespace tremlo {

namespace {

struct BoxTexts {
  const char16_t* characteristic;
  const char16_t* number;
  const char16_t* text;
};

/// By ChartBox.
constexpr std::array<BoxTexts, kChartBoxes.size()> kTexts = {{
    {u"位相特性", u"Q1", u"対象ダムに地震計が\n設置されている"},
    {u"位相特性", u"Q2", u"地震計が加速度波形を\n記録している"},
    {u"位相特性", u"Q3", u"震度4以上または最大25gal以上の\n加速度波形が得られている"},
    {u"位相特性", u"Q4", u"ダム周辺の断層・過去の地震動の\n資料を収集する"},
    {u"振幅特性", u"Q1・Q2", u"ダム周辺に震源となりうる断層・\nプレート境界とそのデータがある"},
    {u"振幅特性", u"Q3", u"ダム近隣・周辺の震度4以上の\n加速度波形が得られている"},
    {u"", u"", u"原種波形"},
    {u"", u"", u"基準スペクトル"},
    {u"", u"", u"振幅調整"},
}};

const BoxTexts& TextsOf(ChartBox box) {
  return kTexts[static_cast<std::size_t>(box)];
}

BoxLook TakenOrNot(bool taken) {
  return taken ? BoxLook::Normal : BoxLook::Dimmed;
}

BoxLooks AllNormal() {
  BoxLooks looks;
  looks.fill(BoxLook::Normal);
  return looks;
}

}  // namespace

BoxLooks LooksOf(const QuestionChartState& state) {
  BoxLooks looks = AllNormal();
  for (std::size_t i = 0; i < state.focus.size(); ++i)
    looks[i] = state.focus[i] ? BoxLook::Lit : TakenOrNot(state.yesPath[i]);
  return looks;
}

BoxLooks LooksOf(const ChartAnswers& answers) {
  BoxLooks looks = AllNormal();
  const auto set = [&looks](ChartBox box, bool taken) {
    looks[static_cast<std::size_t>(box)] = TakenOrNot(taken);
  };
  set(ChartBox::PhaseQ2, answers.q1Yes);
  set(ChartBox::PhaseQ3, answers.q2Yes);
  set(ChartBox::PhaseQ4, answers.collect);
  set(ChartBox::Amplitude1, answers.faultSource);
  set(ChartBox::Amplitude2, answers.neighbourWave);
  return looks;
}

QString NumberOf(ChartBox box) {
  return QString::fromUtf16(TextsOf(box).number);
}

QString TextOf(ChartBox box) {
  return QString::fromUtf16(TextsOf(box).text);
}

QString SpokenName(ChartBox box) {
  QString text = TextOf(box).remove(u'\n');
  if (NumberOf(box).isEmpty()) return text;
  return QString::fromUtf16(TextsOf(box).characteristic) + u'　' + NumberOf(box) + u'　' + text;
}

QString SpokenState(ChartBox box, BoxLook look) {
  if (NumberOf(box).isEmpty()) return {};
  switch (look) {
    case BoxLook::Lit:
      return QStringLiteral("現在の質問");
    case BoxLook::Normal:
      return QStringLiteral("採用中");
    default:
      return QStringLiteral("未採用");
  }
}

}  // namespace tremlo
