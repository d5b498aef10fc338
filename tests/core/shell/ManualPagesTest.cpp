#include "core/project/FlowStep.h"
#include "core/shell/ManualPages.h"

#include <QFile>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

const QByteArray kTable =
    "first-wave\t3\nguideline\t9\nguideline/可視化\t21\nbroken\tx\nzero\t0\nfar\t100001\nno tab 4\n";

QString Chapter(const char* name) {
  QFile file(QStringLiteral(TREMLO_SOURCE_DIR "/docs/manual/") + QLatin1String(name));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
  return QString::fromUtf8(file.readAll());
}

TEST(ManualPages, ASectionHasItsPageElseThatOfItsChapter) {
  EXPECT_EQ(ManualPageOf(kTable, {"guideline", "可視化"}), 21);
  EXPECT_EQ(ManualPageOf(kTable, {"guideline", "現場設定"}), 9);
  EXPECT_EQ(ManualPageOf(kTable, {"guideline", {}}), 9);
  EXPECT_EQ(ManualPageOf(kTable, {"messages", {}}), std::nullopt);
}

TEST(ManualPages, WhatIsNoPageCountsAsMissing) {
  for (const char* chapter : {"broken", "zero", "far", "no tab 4", "no tab", ""})
    EXPECT_EQ(ManualPageOf(kTable, {QString::fromUtf8(chapter), {}}), std::nullopt) << chapter;
  EXPECT_EQ(ManualPageOf({}, {"guideline", {}}), std::nullopt);
  EXPECT_EQ(ManualPageOf(QByteArray(1000, '\0'), {"guideline", {}}), std::nullopt);
  EXPECT_EQ(ManualPageOf("guideline\t99999999999999999999\n", {"guideline", {}}), std::nullopt);
  EXPECT_EQ(ManualPageOf("guideline\t12\r\n", {"guideline", {}}), 12);
}

TEST(ManualPages, EveryScreenHasASectionOfTheManual) {
  for (int number = static_cast<int>(kFirstScreen); number <= static_cast<int>(kLastScreen); ++number) {
    const ManualPlace place = ManualPlaceOf(static_cast<ScreenId>(number));
    const bool isShort = place.chapter == u"first-wave";
    EXPECT_TRUE(isShort || place.chapter == u"guideline") << number;
    EXPECT_FALSE(place.section.isEmpty()) << number;
    const QString text = Chapter(isShort ? "01-first-wave.md" : "02-guideline.md");
    EXPECT_TRUE(text.contains(QStringLiteral("\n## ") + place.section + u'\n'))
        << number << place.section.toStdString();
  }
  EXPECT_EQ(ManualPlaceOf(std::nullopt), (ManualPlace{"first-wave", {}}));
}

}  // namespace
}  // namespace tremlo
