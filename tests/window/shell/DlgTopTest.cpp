#include "window/shell/DlgTop.h"
#include "window/shell/RoutePictureButton.h"
#include "window/shell/ShellParts.h"

#include <QLabel>
#include <QTableWidget>
#include <QTest>

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using test::WhenModal;

template <class Control>
Control* Find(const QWidget* window, const char* name) {
  Control* control = window->findChild<Control*>(QLatin1String(name));
  EXPECT_NE(control, nullptr) << name;
  return control;
}

void Click(QWidget* window, const char* name) {
  QTest::mouseClick(Find<QWidget>(window, name), Qt::LeftButton);
}

TEST(DlgTop, GuidelineRouteIsChosenFirst) {
  WhenModal(QStringLiteral("dlgTop"), [](QWidget* window) { Click(window, "ok"); });
  EXPECT_EQ(CDlgTop::Ask(nullptr), TopChoice::GuidelineRoute);
}

TEST(DlgTop, ClickOnThePictureChoosesItsRoute) {
  WhenModal(QStringLiteral("dlgTop"), [](QWidget* window) {
    Click(window, "response");
    Click(window, "ok");
  });
  EXPECT_EQ(CDlgTop::Ask(nullptr), TopChoice::ResponseRoute);
  WhenModal(QStringLiteral("dlgTop"), [](QWidget* window) {
    Click(window, "response");
    Click(window, "guideline");
    Click(window, "ok");
  });
  EXPECT_EQ(CDlgTop::Ask(nullptr), TopChoice::GuidelineRoute);
}

TEST(DlgTop, KeyboardAloneChoosesAndConfirms) {
  WhenModal(QStringLiteral("dlgTop"), [](QWidget* window) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    EXPECT_TRUE(Find<QWidget>(window, "guideline")->hasFocus());
    QTest::keyClick(window->focusWidget(), Qt::Key_Right);
    QTest::keyClick(window->focusWidget(), Qt::Key_Space);
    QTest::keyClick(window->focusWidget(), Qt::Key_Return);
  });
  EXPECT_EQ(CDlgTop::Ask(nullptr), TopChoice::ResponseRoute);
}

TEST(DlgTop, EscapeAndCloseBoxCancel) {
  WhenModal(QStringLiteral("dlgTop"), [](QWidget* window) { QTest::keyClick(window, Qt::Key_Escape); });
  EXPECT_EQ(CDlgTop::Ask(nullptr), TopChoice::Cancelled);
  WhenModal(QStringLiteral("dlgTop"), [](QWidget* window) { window->close(); });
  EXPECT_EQ(CDlgTop::Ask(nullptr), TopChoice::Cancelled);
}

TEST(DlgTop, TextsOfBothRoutesStandUnderTheHeading) {
  const CDlgTop dialog;
  EXPECT_EQ(dialog.windowTitle(), u"Tremlo");
  EXPECT_TRUE(dialog.CanBeShown());
  const auto* table = Find<QTableWidget>(&dialog, "descriptions");
  EXPECT_EQ(table->horizontalHeaderItem(0)->text(), QStringLiteral("作成方法"));
  QStringList rows;
  for (int row = 0; row < table->rowCount(); ++row) rows << table->item(row, 0)->text();
  EXPECT_THAT(
      rows,
      testing::ElementsAre(
          QStringLiteral("指針に沿って解析波形を作成"),
          QStringLiteral(
              "本機能は、国営造成農業用ダム耐震性能照査マニュアルに基づいて解析波形の作成する機能です。"),
          QStringLiteral(
              "原種波形の設定、下限スペクトルの設定、断層パラメータからの距離減衰式による応答加速度スペクト"
              "ル作成が行えます。"),
          QStringLiteral("（参考資料）"),
          QStringLiteral("1）国営造成農業用ダム耐震性能照査マニュアル　H24年"),
          QStringLiteral("2）大規模地震に対するダム耐震性能照査指針(案)・同解説"),
          QStringLiteral("加速度応答スペクトルへの調整"),
          QStringLiteral(
              "本機能は、任意の加速度応答スペクトルに対して、加速度応答スペクトルに適合した波形を作成する"
              "ものです。"),
          QStringLiteral("地震波形登録、スペクトル設定をするだけで波形調整ができます。"),
          QStringLiteral("指針の指定、距離減衰式による加速度応答スペクトルを設定することはできません。")));
}

TEST(DlgTop, PictureThatIsMissingIsNoChoice) {
  EXPECT_FALSE(RoutePictureButton(QStringLiteral(":/shell/none.svg"), QString()).IsValid());
}

}  // namespace
}  // namespace tremlo
