#include "window/graphs/JapaneseFont.h"

#include <QApplication>
#include <QFontInfo>
#include <QFontMetrics>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

TEST(JapaneseFont, BothNamesLeadToAFontWithKanji) {
  InstallJapaneseFonts();
  for (const QString& name : {QStringLiteral("MS Gothic"), QStringLiteral("MS ゴシック")}) {
    const QFont font(name, 9);
    EXPECT_TRUE(QFontMetrics(font).inFont(QChar(u'震'))) << QFontInfo(font).family().toStdString();
  }
  EXPECT_EQ(QApplication::font().pointSize(), 9);
}

}  // namespace
}  // namespace tremlo
