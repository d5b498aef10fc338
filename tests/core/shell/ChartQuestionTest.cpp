#include "core/shell/ChartQuestion.h"

#include <QString>

#include <gtest/gtest.h>
#include <set>
#include <vector>

namespace tremlo {
namespace {

struct Expected {
  const char* dialog;
  const char* title;
  const char* text;
  std::vector<const char*> buttons;  ///< yes, no, back
  const char* page;
  const char* notShown;
};

const std::vector<Expected> kExpected = {
    {"CDlgPhaseProperty1",
     "位相特性　Q1",
     "対象ダムに地震計は設置されていますか？",
     {"YES", "NO", ""},
     "18",
     "位相特性Q1"},
    {"CDlgPhaseProperty2",
     "位相特性　Q2",
     "地震計は加速度波形を記録していますか？",
     {"YES", "NO", "戻る"},
     "19",
     "位相特性Q2"},
    {"CDlgPhaseProperty3",
     "位相特性　Q3",
     "震度4以上、もしくはダム基礎地盤及び堤体底部で最大25gal以上の加速度波形が得られていますか？\n"
     "（YESの場合は原種波形として利用して下さい。）",
     {"YES", "NO", "戻る"},
     "20",
     "位相特性Q3"},
    {"CDlgPhaseProperty4",
     "位相特性　Q4",
     "ダム周辺の断層及び過去の地震動に関する資料収集してください。",
     {"YES", "", "戻る"},
     "21",
     "位相特性Q3"},
    {"CDlgAmplitudeProperty1",
     "振幅特性　Q1",
     "ダム周辺で地震の震源となりうる活断層やプレート境界がありますか？\n"
     "（後で検索する場合はYESを選択してください。）",
     {"YES", "NO", "戻る"},
     "26",
     "振幅特性Q1"},
    {"CDlgAmplitudeProperty2",
     "振幅特性　Q2",
     "ダム周辺の断層データがありますか？\n（後で検索する場合はYESを選択してください。）",
     {"YES", "NO", "戻る"},
     "28",
     "振幅特性Q2"},
    {"CDlgAmplitudeProperty3",
     "振幅特性　Q3",
     "ダム近隣および周辺で震度４以上の地震が発生し，利用可能な加速度時刻歴波形データが得られていますか？\n"
     "（YESを選択した場合、現場近隣地震波形の項目で設定が必要です。）",
     {"YES", "NO", "戻る"},
     "32",
     "振幅特性Q3"},
    {"CDlgQaEnd",
     "フローチャートの確認",
     "表示されているフローでよろしいですか？",
     {"OK", "やり直す", "戻る"},
     nullptr,
     "フローチャートの確認"},
};

QString TextOrNone(const char16_t* text) {
  return text ? QString::fromUtf16(text) : QString();
}

TEST(ChartQuestion, EachShowsItsTextsInItsPlace) {
  for (std::size_t i = 0; i < kExpected.size(); ++i) {
    const Expected& expected = kExpected[i];
    const ChartQuestionRow& row = RowOf(kChartQuestions[i]);
    EXPECT_EQ(row.question, kChartQuestions[i]);
    EXPECT_STREQ(row.dialog, expected.dialog);
    EXPECT_EQ(QString::fromUtf16(row.title), expected.title);
    EXPECT_EQ(QString::fromUtf16(row.text), expected.text);
    EXPECT_EQ(QString::fromUtf16(row.yes), expected.buttons[0]);
    EXPECT_EQ(TextOrNone(row.no), expected.buttons[1]);
    EXPECT_EQ(TextOrNone(row.back), expected.buttons[2]);
    const QString reference =
        expected.page
            ? QString("参考：国営造成農業用ダム耐震性能マニュアル（平成24年3月）　P.") + expected.page
            : QString();
    EXPECT_EQ(QString::fromUtf16(row.reference), reference);
    EXPECT_EQ(QString::fromUtf16(row.notShown),
              QString(expected.notShown) + "を表示させることができませんでした。");
  }
}

}  // namespace
}  // namespace tremlo
