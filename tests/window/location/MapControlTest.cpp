#include "TileServer.h"
#include "support/TestFolder.h"
#include "window/location/MapControl.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <cmath>
#include <gtest/gtest.h>
#include <memory>

namespace tremlo {
namespace {

using test::ColorOfTile;
using test::TestFolder;
using test::TileServer;

constexpr QSize kSize{512, 384};

class MapControlTest : public testing::Test {
 protected:
  void SetUp() override {
    doc.site.mapZoom = 6;
    doc.site.mapScale = 1.0;
  }

  /// A map in a window, centred on the corner of four tiles, its first painting begun.
  MapControl& Open() {
    MakeMap();
    map->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(map.get()));
    return *map;
  }
  void MakeMap() {
    map = std::make_unique<MapControl>(
        doc, [this] { return online; },
        TileCache(folder.Path(), QStringLiteral("http://tiles.example"), server.Download()));
    map->resize(kSize);
    const GeoPoint corner = TileToLonLat(6, 57.0, 25.0);
    map->CenterOn(corner);
  }
  /// Runs the event loop until a painting is on display.
  bool WaitForPainting() {
    return QTest::qWaitFor([this] { return !map->IsPainting(); }, 20000);
  }
  bool WaitForRequests(int count) {
    return QTest::qWaitFor([&] { return server.Asked().size() >= count; }, 20000);
  }
  QColor PixelAt(int x, int y) const { return map->grab().toImage().pixelColor(x, y); }
  void Wheel(int delta) {
    QWheelEvent event({256, 192}, map->mapToGlobal(QPointF(256, 192)), {}, {0, delta}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(map.get(), &event);
    EXPECT_TRUE(event.isAccepted());
  }
  void WriteOfflinePicture() {
    QImage picture(2, 1, QImage::Format_RGB32);
    picture.setPixelColor(0, 0, Qt::red);
    picture.setPixelColor(1, 0, Qt::blue);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    picture.save(&buffer, "BMP");
    folder.Write(QStringLiteral("SystemData/OffLine.bmp"), bytes);
  }

  TestFolder folder;
  CMorvaneDoc doc{folder.Path()};
  TileServer server;
  bool online = true;
  std::unique_ptr<MapControl> map;
};

TEST_F(MapControlTest, TilesStandWhereTheViewPutsThem) {
  Open();
  ASSERT_TRUE(WaitForPainting());
  EXPECT_EQ(PixelAt(200, 100), ColorOfTile({6, 56, 24}));
  EXPECT_EQ(PixelAt(300, 100), ColorOfTile({6, 57, 24}));
  EXPECT_EQ(PixelAt(200, 300), ColorOfTile({6, 56, 25}));
  EXPECT_EQ(PixelAt(300, 300), ColorOfTile({6, 57, 25}));
}

TEST_F(MapControlTest, TheCrosshairRunsThroughTheMiddleFromEdgeToEdge) {
  Open();
  ASSERT_TRUE(WaitForPainting());
  for (const int y : {10, 100, 373}) EXPECT_EQ(PixelAt(256, y), QColor(Qt::black)) << y;
  for (const int x : {3, 100, 508}) EXPECT_EQ(PixelAt(x, 192), QColor(Qt::black)) << x;
  EXPECT_NE(PixelAt(255, 100), QColor(Qt::black));
  EXPECT_NE(PixelAt(100, 193), QColor(Qt::black));
}

TEST_F(MapControlTest, TheScaleBarStandsAtTheBottomLeft) {
  Open();
  ASSERT_TRUE(WaitForPainting());
  const auto bar = MakeScaleBar(map->Map().view);
  ASSERT_TRUE(bar);
  for (const int y : {372, 373, 374})
    EXPECT_EQ(PixelAt(10 + bar->pixelLength / 4, y), QColor(Qt::black)) << y;
  EXPECT_NE(PixelAt(10 + bar->pixelLength / 4, 376), QColor(Qt::black));
  EXPECT_NE(PixelAt(12 + bar->pixelLength, 374), QColor(Qt::black));
}

TEST_F(MapControlTest, TilesAreAskedForInTheOrderOfThePainting) {
  Open();
  ASSERT_TRUE(WaitForPainting());
  const QStringList asked = server.Asked();
  ASSERT_GE(asked.size(), 4);
  EXPECT_EQ(asked[0], u"http://tiles.example/xyz/std/6/56/24.png");
  EXPECT_EQ(asked[1], u"http://tiles.example/xyz/std/6/56/25.png");
  EXPECT_EQ(asked[2], u"http://tiles.example/xyz/std/6/57/24.png");
}

TEST_F(MapControlTest, WhatIsInMemoryIsNotAskedForAgain) {
  Open();
  ASSERT_TRUE(WaitForPainting());
  const auto count = server.Asked().size();
  map->Repaint();
  ASSERT_TRUE(WaitForPainting());
  EXPECT_EQ(server.Asked().size(), count);
}

TEST_F(MapControlTest, AMapThatIsNotVisibleAsksForNothing) {
  MakeMap();
  map->Repaint();
  EXPECT_FALSE(map->IsPainting());
  QTest::qWait(0);
  EXPECT_TRUE(server.Asked().isEmpty());
  map->show();
  EXPECT_TRUE(WaitForRequests(1));
}

TEST_F(MapControlTest, OfflineThePictureCoversAllAndNeitherNetworkNorCacheIsTouched) {
  online = false;
  WriteOfflinePicture();
  folder.Write(QStringLiteral("_cache/6/56/24.png"), test::TilePng(Qt::green));
  Open();
  ASSERT_TRUE(WaitForPainting());
  EXPECT_EQ(PixelAt(5, 5), QColor(Qt::red));
  EXPECT_EQ(PixelAt(5, 378), QColor(Qt::red));
  EXPECT_EQ(PixelAt(506, 378), QColor(Qt::blue));
  EXPECT_NE(PixelAt(256, 100), QColor(Qt::black));  // no crosshair
  EXPECT_TRUE(server.Asked().isEmpty());
  EXPECT_EQ(map->TileCount(), 0u);
}

TEST_F(MapControlTest, WithoutTheOfflinePictureTheAreaStaysUnpainted) {
  online = false;
  Open();
  ASSERT_TRUE(WaitForPainting());
  for (const QPoint point : {QPoint(5, 5), QPoint(256, 192), QPoint(11, 373)})
    EXPECT_EQ(PixelAt(point.x(), point.y()), QColor(MapSurface::kGap));
}

TEST_F(MapControlTest, GoingOfflineReplacesThePaintingThatWaits) {
  WriteOfflinePicture();
  server.SetDead(true);
  Open();
  ASSERT_TRUE(WaitForRequests(1));
  online = false;
  map->Repaint();
  ASSERT_TRUE(WaitForPainting());
  EXPECT_EQ(PixelAt(5, 5), QColor(Qt::red));
  EXPECT_TRUE(QTest::qWaitFor([&] { return server.BrokenOff() == 1; }));
  EXPECT_EQ(server.Asked().size(), 1);
}

TEST_F(MapControlTest, AFailedTileIsAGapForTheLifeOfTheMap) {
  server.SetOutcome(TileOutcome::Failed);
  Open();
  ASSERT_TRUE(WaitForPainting());
  EXPECT_EQ(PixelAt(200, 100), QColor(MapSurface::kGap));
  EXPECT_EQ(PixelAt(256, 100), QColor(Qt::black));  // the rest is painted
  const auto count = server.Asked().size();
  server.SetOutcome(TileOutcome::Done);
  map->Repaint();
  ASSERT_TRUE(WaitForPainting());
  EXPECT_EQ(server.Asked().size(), count);
  EXPECT_EQ(PixelAt(200, 100), QColor(MapSurface::kGap));
}

TEST_F(MapControlTest, GarbageIsAGap) {
  server.SetContent("<html><body>404</body></html>");
  Open();
  ASSERT_TRUE(WaitForPainting());
  EXPECT_EQ(PixelAt(200, 100), QColor(MapSurface::kGap));
}

TEST_F(MapControlTest, WhileATileIsWaitedForNothingIsShownAndThePointerIsStillRead) {
  Open();
  ASSERT_TRUE(WaitForPainting());
  server.SetDead(true);
  map->CenterOn(TileToLonLat(6, 50.0, 20.0));
  ASSERT_TRUE(WaitForRequests(5));
  EXPECT_TRUE(map->IsPainting());
  EXPECT_EQ(PixelAt(200, 100), ColorOfTile({6, 56, 24}));  // the last painting stays

  QSignalSpy places(map.get(), &MapControl::PointerAt);
  QSignalSpy moves(map.get(), &MapControl::Moved);
  QTest::mouseMove(map.get(), {256, 192});
  ASSERT_FALSE(places.isEmpty());
  const auto place = places.back().front().value<GeoPoint>();
  EXPECT_NEAR(place.lon, TileToLonLat(6, 50.0, 20.0).lon, 1e-9);
  EXPECT_TRUE(moves.isEmpty());

  server.SetDead(false);
  ASSERT_TRUE(WaitForPainting());
  EXPECT_EQ(PixelAt(200, 100), ColorOfTile({6, 49, 19}));
}

TEST_F(MapControlTest, AnAbandonedPaintingIsNeverShownAndItsRequestBrokenOffAtOnce) {
  Open();
  ASSERT_TRUE(WaitForPainting());
  server.SetDead(true);
  map->CenterOn(TileToLonLat(6, 50.0, 20.0));
  ASSERT_TRUE(WaitForRequests(5));
  QSignalSpy painted(map.get(), &MapControl::Painted);
  QElapsedTimer timer;
  timer.start();
  map->Abandon();
  EXPECT_LT(timer.elapsed(), 100);
  EXPECT_EQ(server.BrokenOff(), 1);
  EXPECT_FALSE(map->IsPainting());
  server.SetDead(false);
  QTest::qWait(0);
  EXPECT_TRUE(painted.isEmpty());
  EXPECT_EQ(PixelAt(200, 100), ColorOfTile({6, 56, 24}));

  const QString brokenOff = server.Asked().back();
  map->Repaint();
  ASSERT_TRUE(WaitForPainting());
  EXPECT_EQ(server.Asked().count(brokenOff), 2);  // no gap: asked for again
  EXPECT_EQ(PixelAt(200, 100), ColorOfTile({6, 49, 19}));
}

TEST_F(MapControlTest, AbandonedBetweenTwoStepsItIsNotShown) {
  Open();
  ASSERT_TRUE(WaitForPainting());
  map->CenterOn(TileToLonLat(6, 56.5, 24.5));
  map->Abandon();
  QSignalSpy painted(map.get(), &MapControl::Painted);
  QTest::qWait(0);
  EXPECT_TRUE(painted.isEmpty());
}

TEST_F(MapControlTest, ANewPaintRequestKeepsTheRequestThatItNeedsItself) {
  server.SetDead(true);
  Open();
  ASSERT_TRUE(WaitForRequests(1));
  const GeoPoint corner = TileToLonLat(6, 57.0, 25.0);
  for (int i = 1; i <= 5; ++i) {
    map->CenterOn({corner.lon + i * 0.01, corner.lat});
    QTest::qWait(0);
  }
  EXPECT_EQ(server.Asked().size(), 1);
  EXPECT_EQ(server.BrokenOff(), 0);
  server.SetDead(false);
  EXPECT_TRUE(WaitForPainting());
  EXPECT_EQ(server.Asked().removeDuplicates(), 0);
}

TEST_F(MapControlTest, AnotherTileBreaksTheOldRequestOff) {
  server.SetDead(true);
  Open();
  ASSERT_TRUE(WaitForRequests(1));
  map->CenterOn(TileToLonLat(6, 40.0, 25.0));
  ASSERT_TRUE(WaitForRequests(2));
  EXPECT_EQ(server.BrokenOff(), 1);
}

TEST_F(MapControlTest, ANewSizeBreaksTheRequestOffAndPaintsTheNewSize) {
  server.SetDead(true);
  Open();
  ASSERT_TRUE(WaitForRequests(1));
  map->resize(500, 380);  // the first tile is the same one
  ASSERT_TRUE(WaitForRequests(2));
  EXPECT_EQ(server.BrokenOff(), 1);
  server.SetDead(false);
  ASSERT_TRUE(WaitForPainting());
  EXPECT_EQ(PixelAt(250, 50), QColor(Qt::black));
}

TEST_F(MapControlTest, ItsEndBreaksTheRequestOff) {
  server.SetDead(true);
  Open();
  ASSERT_TRUE(WaitForRequests(1));
  QElapsedTimer timer;
  timer.start();
  map.reset();
  EXPECT_LT(timer.elapsed(), 100);
  EXPECT_EQ(server.BrokenOff(), 1);
}

TEST_F(MapControlTest, TheWheelWritesZoomAndScaleToTheDocument) {
  Open();
  Wheel(120);
  EXPECT_EQ(doc.site.mapZoom, 6);
  EXPECT_DOUBLE_EQ(doc.site.mapScale, 1.1);
  EXPECT_TRUE(doc.IsModified());
  Wheel(-120);
  EXPECT_DOUBLE_EQ(doc.site.mapScale, 1.1 * 0.9);
  doc.site.mapScale = 1.4;
  Wheel(120);
  EXPECT_EQ(doc.site.mapZoom, 7);
  EXPECT_DOUBLE_EQ(doc.site.mapScale, 0.77);
  ASSERT_TRUE(WaitForPainting());
  EXPECT_EQ(map->accessibleDescription(), QStringLiteral("ズーム 7"));
}

TEST_F(MapControlTest, TheWheelLeavesTheCentreWhereItIs) {
  Open();
  const GeoPoint before{map->Map().view.centerLon, map->Map().view.centerLat};
  for (int i = 0; i < 20; ++i) Wheel(120);
  EXPECT_NEAR(map->Map().view.centerLon, before.lon, 1e-9);
  EXPECT_NEAR(map->Map().view.centerLat, before.lat, 1e-9);
}

TEST_F(MapControlTest, AZoomTellsWhatPlaceHasComeUnderThePointer) {
  Open();
  QTest::mouseMove(map->windowHandle(), QPoint(100, 100));
  ASSERT_TRUE(QTest::qWaitFor([&] { return map->underMouse(); }));
  QSignalSpy places(map.get(), &MapControl::PointerAt);
  Wheel(120);
  ASSERT_EQ(places.size(), 1);
  EXPECT_EQ(places.front().front().value<GeoPoint>(), GeoAt(map->Map().view, {100, 100}));
}

TEST_F(MapControlTest, TheZoomStaysBetweenFourAndSixteen) {
  Open();
  doc.site.mapZoom = 16;
  doc.site.mapScale = 1.4;
  Wheel(120);
  EXPECT_EQ(doc.site.mapZoom, 16);
  EXPECT_EQ(doc.site.mapScale, 1.4);
  EXPECT_FALSE(doc.IsModified());
  doc.site.mapZoom = 4;
  doc.site.mapScale = 0.8;
  Wheel(-120);
  EXPECT_EQ(doc.site.mapZoom, 4);
  EXPECT_EQ(doc.site.mapScale, 0.8);
}

TEST_F(MapControlTest, SmallTurnsOfAFineWheelMakeOneNotch) {
  Open();
  for (int i = 0; i < 7; ++i) Wheel(15);
  EXPECT_EQ(doc.site.mapScale, 1.0);
  Wheel(15);
  EXPECT_DOUBLE_EQ(doc.site.mapScale, 1.1);
  Wheel(105);
  Wheel(-15);  // the other way begins anew
  EXPECT_DOUBLE_EQ(doc.site.mapScale, 1.1);
}

TEST_F(MapControlTest, PlusAndMinusAreTurnsOfTheWheelAlsoOnTheKeypad) {
  Open();
  map->activateWindow();
  for (const Qt::KeyboardModifiers keys : {Qt::NoModifier, Qt::ShiftModifier, Qt::KeypadModifier}) {
    doc.site.mapScale = 1.0;
    QTest::keyClick(map.get(), Qt::Key_Plus, keys);
    EXPECT_DOUBLE_EQ(doc.site.mapScale, 1.1);
    QTest::keyClick(map.get(), Qt::Key_Minus, keys);
    EXPECT_DOUBLE_EQ(doc.site.mapScale, 1.1 * 0.9);
  }
}

TEST_F(MapControlTest, ArrowsAndDragsMoveTheViewOnlyWhereTheyAreMeantTo) {
  Open();
  const MapView before = map->Map().view;
  QTest::keyClick(map.get(), Qt::Key_Right);
  QTest::mousePress(map.get(), Qt::LeftButton, {}, {100, 100});
  QTest::mouseMove(map.get(), {150, 120});
  QTest::mouseRelease(map.get(), Qt::LeftButton, {}, {150, 120});
  EXPECT_EQ(map->Map().view, before);

  map->SetMovesView(true);
  QTest::keyClick(map.get(), Qt::Key_Right);
  EXPECT_NEAR(map->Map().view.centerLon, GeoAt(before, {256 + 51, 192}).lon, 1e-9);
  QTest::keyClick(map.get(), Qt::Key_Left);
  EXPECT_NEAR(map->Map().view.centerLon, before.centerLon, 1e-9);
  QTest::keyClick(map.get(), Qt::Key_Down);
  EXPECT_NEAR(map->Map().view.centerLat, GeoAt(before, {256, 192 + 38}).lat, 1e-9);
  QTest::keyClick(map.get(), Qt::Key_Up);
  EXPECT_NEAR(map->Map().view.centerLat, before.centerLat, 1e-9);
}

TEST_F(MapControlTest, ADragOfTheViewKeepsThePointUnderThePointer) {
  Open();
  map->SetMovesView(true);
  ASSERT_TRUE(WaitForPainting());
  const GeoPoint grabbed = GeoAt(map->Map().view, {100, 100});
  QTest::mousePress(map->windowHandle(), Qt::LeftButton, {}, QPoint(100, 100));
  QTest::mouseMove(map->windowHandle(), QPoint(150, 120));
  EXPECT_NEAR(GeoAt(map->Map().view, {150, 120}).lon, grabbed.lon, 1e-9);
  EXPECT_NEAR(GeoAt(map->Map().view, {150, 120}).lat, grabbed.lat, 0.02);
  QTest::mouseRelease(map->windowHandle(), Qt::LeftButton, {}, QPoint(150, 120));
  const MapView after = map->Map().view;
  QTest::mouseMove(map->windowHandle(), QPoint(300, 300));
  EXPECT_EQ(map->Map().view, after);
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(MapControlTest, ACommandEndsADragOfTheView) {
  Open();
  map->SetMovesView(true);
  QTest::mousePress(map->windowHandle(), Qt::LeftButton, {}, QPoint(100, 100));
  map->Abandon();
  EXPECT_FALSE(map->Map().IsDragging());
  QTest::mouseRelease(map->windowHandle(), Qt::LeftButton, {}, QPoint(100, 100));
}

TEST_F(MapControlTest, OverlaysAreBlendedInTwoPassesUnderTheCrosshair) {
  Open();
  const GeoPoint west = GeoAt(map->Map().view, {150, 50});
  const GeoPoint east = GeoAt(map->Map().view, {350, 150});
  map->Map().AddOverlay({west, {east.lon, west.lat}, east, {west.lon, east.lat}, west});
  map->Repaint();
  ASSERT_TRUE(WaitForPainting());
  EXPECT_EQ(PixelAt(200, 100), ColorOfTile({6, 56, 24}));  // this map shows none

  map->SetShowsOverlays(true);
  map->Repaint();
  ASSERT_TRUE(WaitForPainting());
  const auto blended = [](const QColor& under, int passes) {
    double red = under.red(), green = under.green();
    for (int i = 0; i < passes; ++i) {
      red += (255.0 - red) * 100.0 / 255.0;
      green -= green * 100.0 / 255.0;
    }
    return std::pair(red, green);
  };
  const auto expect = [&](const QColor& seen, const std::pair<double, double>& wanted) {
    EXPECT_NEAR(seen.red(), wanted.first, 2.0);
    EXPECT_NEAR(seen.green(), wanted.second, 2.0);
  };
  const QColor under = ColorOfTile({6, 56, 24});
  expect(PixelAt(200, 100), blended(under, 1));
  expect(PixelAt(200, 50), blended(under, 2));  // the outline
  EXPECT_EQ(PixelAt(200, 40), under);
  EXPECT_EQ(PixelAt(256, 100), QColor(Qt::black));
}

TEST_F(MapControlTest, OverlaysFarOutsideAndWithoutAPlaceAreHarmless) {
  Open();
  map->SetShowsOverlays(true);
  const double nan = std::nan("");
  map->Map().AddOverlay({GeoPoint{nan, nan}, {nan, 36.0}, {1e300, -1e300}, {0.0, 0.0}, {nan, nan}});
  doc.site.mapZoom = 16;
  map->Map().AddOverlay({GeoPoint{130.0, 30.0}, {140.0, 30.0}, {140.0, 40.0}, {130.0, 40.0}, {130.0, 30.0}});
  map->Repaint();
  ASSERT_TRUE(WaitForPainting());
  EXPECT_EQ(PixelAt(256, 100), QColor(Qt::black));
}

}  // namespace
}  // namespace tremlo
