#include "core/project/LastAcquisition.h"

#include <gtest/gtest.h>

namespace tremlo {
namespace {

class LastAcquisitionTest : public testing::Test {
 protected:
  LastAcquisitionTest() {
    AcquisitionReport report;
    report.activityVersion = 15;
    for (int i = 1; i <= 7; ++i) report.unread.push_back(QStringLiteral("断層%1").arg(i));
    doc.lastAcquisition = report;
  }
  CMorvaneDoc doc{QString()};
};

TEST_F(LastAcquisitionTest, NamesTheServiceTheVersionAndTheFirstSources) {
  const QString line = LastAcquisitionLine(doc);
  EXPECT_TRUE(line.contains(u"J-SHIS")) << line.toStdString();
  EXPECT_TRUE(line.contains(u"2021年版"));
  EXPECT_TRUE(line.endsWith(u"断層1、断層2、断層3、断層4、断層5、他 2"));
}

TEST_F(LastAcquisitionTest, TheLongLineNamesMore) {
  EXPECT_TRUE(LongLastAcquisitionLine(doc).endsWith(u"、断層6、断層7"));
}

TEST_F(LastAcquisitionTest, OutlivesTheFaultsButNotTheProject) {
  doc.ClearFaults();
  EXPECT_FALSE(LastAcquisitionLine(doc).isEmpty());
  doc.ResetDocument();
  EXPECT_TRUE(LastAcquisitionLine(doc).isEmpty());
  EXPECT_TRUE(LongLastAcquisitionLine(doc).isEmpty());
}

}  // namespace
}  // namespace tremlo
