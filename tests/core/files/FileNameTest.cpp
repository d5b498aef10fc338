#include "core/files/FileName.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

namespace tremlo {
namespace {

TEST(FileName, KeepsWhatEveryFileSystemTakes) {
  EXPECT_EQ(PlainFileName("HSES 2016 N80W 0.005s"), QString("HSES 2016 N80W 0.005s"));
  EXPECT_EQ(PlainFileName("  (1)(最短距離)断層帯 "), QString("(1)(最短距離)断層帯"));
  EXPECT_EQ(PlainFileName("a/b:c"), QString("a_b_c"));
  EXPECT_EQ(PlainFileName(".hidden"), QString("_hidden"));
}

/// Windows takes these names for devices, whatever ending stands behind them.
TEST(FileName, NamesOfDevicesAreMarked) {
  for (const char* name : {"CON", "nul", "Aux", "PRN", "com1", "LPT9", "COM³", "con.1", "NUL "})
    EXPECT_EQ(PlainFileName(QString::fromUtf8(name)), u'_' + QString::fromUtf8(name).trimmed()) << name;
  EXPECT_EQ(PlainFileName("CON .1"), QString("_CON .1"));
  for (const char* name : {"CONCRETE", "COM", "COM10", "LPT0", "EW.CON", "CON_1", "コンCON"})
    EXPECT_EQ(PlainFileName(QString::fromUtf8(name)), QString::fromUtf8(name));
}

TEST(FileName, LeavesRoomForAnEndingAndCutsNoCharacterInHalf) {
  const QString cut = PlainFileName(QString(300, u'波'));
  EXPECT_EQ(cut, QString(66, u'波'));
  EXPECT_EQ(PlainFileName(QString(199, u'a') + QStringLiteral("𠮷")), QString(199, u'a'));
}

TEST(FileName, OfBlanksThereIsNone) {
  EXPECT_EQ(PlainFileName("  \t"), QString());
  EXPECT_EQ(PlainFileName(QString()), QString());
}

}  // namespace
}  // namespace tremlo
