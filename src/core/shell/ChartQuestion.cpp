#include "core/shell/ChartQuestion.h"

#include <cstddef>

namespace tremlo {

namespace {

using enum ChartQuestion;

#define TREMLO_MANUAL u"参考：国営造成農業用ダム耐震性能マニュアル（平成24年3月）　P."

constexpr char16_t kYes[] = u"YES";
constexpr char16_t kNo[] = u"NO";
constexpr char16_t kBack[] = u"戻る";

/// In the order of ChartQuestion. The message of the fourth names the third, on purpose.
constexpr std::array<ChartQuestionRow, 8> kRows = {{
    {PhaseQ1, "CDlgPhaseProperty1", u"位相特性　Q1", u"対象ダムに地震計は設置されていますか？", kYes, kNo,
     nullptr, TREMLO_MANUAL u"18", u"位相特性Q1を表示させることができませんでした。"},
    {PhaseQ2, "CDlgPhaseProperty2", u"位相特性　Q2", u"地震計は加速度波形を記録していますか？", kYes, kNo,
     kBack, TREMLO_MANUAL u"19", u"位相特性Q2を表示させることができませんでした。"},
    {PhaseQ3, "CDlgPhaseProperty3", u"位相特性　Q3",
     u"震度4以上、もしくはダム基礎地盤及び堤体底部で最大25gal以上の加速度波形が得られていますか？\n"
     u"（YESの場合は原種波形として利用して下さい。）",
     kYes, kNo, kBack, TREMLO_MANUAL u"20", u"位相特性Q3を表示させることができませんでした。"},
    {PhaseQ4, "CDlgPhaseProperty4", u"位相特性　Q4",
     u"ダム周辺の断層及び過去の地震動に関する資料収集してください。", kYes, nullptr, kBack,
     TREMLO_MANUAL u"21", u"位相特性Q3を表示させることができませんでした。"},
    {AmpQ1, "CDlgAmplitudeProperty1", u"振幅特性　Q1",
     u"ダム周辺で地震の震源となりうる活断層やプレート境界がありますか？\n"
     u"（後で検索する場合はYESを選択してください。）",
     kYes, kNo, kBack, TREMLO_MANUAL u"26", u"振幅特性Q1を表示させることができませんでした。"},
    {AmpQ2, "CDlgAmplitudeProperty2", u"振幅特性　Q2",
     u"ダム周辺の断層データがありますか？\n（後で検索する場合はYESを選択してください。）", kYes, kNo, kBack,
     TREMLO_MANUAL u"28", u"振幅特性Q2を表示させることができませんでした。"},
    {AmpQ3, "CDlgAmplitudeProperty3", u"振幅特性　Q3",
     u"ダム近隣および周辺で震度４以上の地震が発生し，利用可能な加速度時刻歴波形データが得られていますか？\n"
     u"（YESを選択した場合、現場近隣地震波形の項目で設定が必要です。）",
     kYes, kNo, kBack, TREMLO_MANUAL u"32", u"振幅特性Q3を表示させることができませんでした。"},
    {QaEnd, "CDlgQaEnd", u"フローチャートの確認", u"表示されているフローでよろしいですか？", u"OK",
     u"やり直す", kBack, u"", u"フローチャートの確認を表示させることができませんでした。"},
}};

#undef TREMLO_MANUAL

}  // namespace

const ChartQuestionRow& RowOf(ChartQuestion question) {
  return kRows[static_cast<std::size_t>(question)];
}

}  // namespace tremlo
