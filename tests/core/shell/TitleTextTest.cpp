#include "core/shell/ProgramIdentity.h"
#include "core/shell/TitleText.h"
#include "support/CommaLocale.h"
#include "support/TestFolder.h"

#include <QDir>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

TEST(TitleText, VersionIsWrittenInHundredths) {
  EXPECT_EQ(VersionText(1, 6), u"1.06");
  EXPECT_EQ(VersionText(1, 0), u"1.00");
  EXPECT_EQ(VersionText(12, 34), u"12.34");
}

TEST(TitleText, VersionHasAPointInEveryLocale) {
  const test::CommaLocale comma;
  EXPECT_EQ(VersionText(1, 6), u"1.06");
}

TEST(TitleText, NothingStandsBetweenVersionAndNumber) {
  EXPECT_EQ(ApplicationTitle(), QStringLiteral("Tremlo Version") + VersionText(kVersionMajor, kVersionMinor));
}

TEST(TitleText, UnnamedProjectOnlineEndsInASingleBlank) {
  EXPECT_EQ(WindowTitle({}, {}), QStringLiteral("無題 - ") + ApplicationTitle() + u' ');
}

TEST(TitleText, OfflineMarkTakesTheBlanksPlace) {
  EXPECT_EQ(WindowTitle(QStringLiteral("/a/b c.trml"), QStringLiteral("　(オフライン)")),
            QStringLiteral("b c.trml - ") + ApplicationTitle() + QStringLiteral("　(オフライン)"));
}

TEST(TitleText, AboutBoxHasTwoDigitsBehindThePoint) {
  EXPECT_EQ(AboutVersionText(1, 6), u"Version 1.06");
  EXPECT_EQ(AboutVersionText(2, 10), u"Version 2.10");
}

TEST(TitleText, CommitStandsBehindTheVersionWhereItIsKnown) {
  EXPECT_EQ(VersionAndCommit("1.0", "0123456789ab"), u"1.0 (0123456789ab)");
  EXPECT_EQ(VersionAndCommit("1.0", {}), u"1.0");
}

TEST(TitleText, PlacesOfTheTablesAreThoseInUse) {
  const test::TestFolder own, shared;
  own.Write(QStringLiteral("LowSpec/h17.csv"), "");
  for (const char* name : {"DamCoef", "LowSpec"})
    shared.Write(QLatin1String(name) + QStringLiteral("/a.csv"), "");
  EXPECT_EQ(TablePlacesText({own.Path(), {shared.Path()}}),
            QStringLiteral("DamCoef：") + QDir::toNativeSeparators(shared.Path("DamCoef")) +
                QStringLiteral("\nLowSpec：") + QDir::toNativeSeparators(own.Path("LowSpec")) +
                QStringLiteral("\nSystemData：") + QDir::toNativeSeparators(own.Path("SystemData")));
}

TEST(TitleText, LegalLineNamesProgramAndYear) {
  EXPECT_TRUE(LegalLine().contains(QStringLiteral("Tremlo")));
  EXPECT_TRUE(LegalLine().contains(QString::number(kLegalYear)));
}

}  // namespace
}  // namespace tremlo
