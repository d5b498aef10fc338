#include "support/TestFolder.h"
#include "window/waves/NoteLabel.h"

#include <gtest/gtest.h>

namespace tremlo {
namespace {

TEST(NoteLabel, TakesTheHeightThatItsTextNeedsAtItsWidth) {
  NoteLabel label("note", QStringLiteral("適合度"), nullptr);
  EXPECT_FALSE(label.isVisible());
  label.resize(100, 30);
  label.Tell(QStringLiteral("偏差（RMS） 4.98 %　目標を上回る最大 12.00 %（周期 0.35 秒）"));
  const int twoLines = 2 * label.fontMetrics().height();
  EXPECT_TRUE(label.isVisible());
  EXPECT_GE(label.height(), twoLines);
  label.resize(900, label.height());
  EXPECT_LT(label.height(), twoLines);
  label.resize(100, label.height());
  EXPECT_GE(label.height(), twoLines);
  EXPECT_FALSE(label.hasHeightForWidth());
}

TEST(NoteLabel, IsReadOutWithItsTextAsItIsAndGoesWithIt) {
  NoteLabel label("note", QStringLiteral("適合度"), nullptr);
  label.Tell(QStringLiteral("<b>5</b> & 6"));
  EXPECT_EQ(label.textFormat(), Qt::PlainText);
  EXPECT_EQ(label.accessibleName(), QStringLiteral("適合度 <b>5</b> & 6"));
  label.Tell({});
  EXPECT_FALSE(label.isVisible());
}

TEST(NoteLabel, DefinesWhatItTellsBehindATextThatIsCut) {
  NoteLabel label("note", QStringLiteral("適合度"), nullptr);
  label.SetMostLines(1);
  label.SetDefinitions(QStringLiteral("偏差（RMS）：二乗平均の平方根。"));
  label.resize(900, 30);
  label.Tell(QStringLiteral("偏差（RMS） 4.98 %"));
  EXPECT_EQ(label.toolTip(), QStringLiteral("偏差（RMS）：二乗平均の平方根。"));
  label.resize(60, label.height());
  EXPECT_EQ(label.toolTip(), QStringLiteral("偏差（RMS） 4.98 %\n\n偏差（RMS）：二乗平均の平方根。"));
}

}  // namespace
}  // namespace tremlo
