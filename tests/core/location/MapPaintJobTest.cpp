#include "core/location/MapPaintJob.h"
#include "core/location/TileStore.h"
#include "support/TestFolder.h"

#include <QStringList>

#include <gtest/gtest.h>
#include <vector>

namespace tremlo {
namespace {

using Kind = MapPaintStep::Kind;
using test::TestFolder;

/// Zoom 1 about its middle: in 512 x 256 pixels the four tiles of the level show.
MapView ViewOf(std::int32_t width, std::int32_t height) {
  MapView view;
  view.zoom = 1;
  view.centerLon = 0.0;
  view.centerLat = 0.0;
  view.clientRect = {0, 0, width, height};
  return view;
}

std::vector<Kind> KindsOf(MapPaintJob& job) {
  std::vector<Kind> kinds;
  while (job.IsRunning()) kinds.push_back(job.Next().kind);
  return kinds;
}

TEST(MapPaintJob, WithoutAStartThereIsNothingToDo) {
  MapPaintJob job;
  EXPECT_FALSE(job.IsRunning());
  EXPECT_EQ(job.Next(), MapPaintStep{});
}

TEST(MapPaintJob, PaintsTileByTileThenTheRest) {
  MapPaintJob job;
  job.Start(ViewOf(512, 256), true);
  EXPECT_EQ(job.Next(), (MapPaintStep{Kind::Tile, {{1, 0, 0}, {0, -128, 256, 128}}}));
  EXPECT_EQ(job.Next(), (MapPaintStep{Kind::Tile, {{1, 0, 1}, {0, 128, 256, 384}}}));
  EXPECT_EQ(KindsOf(job), (std::vector{Kind::Tile, Kind::Tile, Kind::Completion}));
  EXPECT_EQ(job.Next().kind, Kind::Nothing);
}

TEST(MapPaintJob, OfflineTheOfflinePictureIsAll) {
  MapPaintJob job;
  job.Start(ViewOf(512, 256), false);
  EXPECT_EQ(KindsOf(job), std::vector{Kind::OfflinePicture});
  EXPECT_EQ(job.Next().kind, Kind::Nothing);
}

TEST(MapPaintJob, AWindowWithoutWidthIsDoneAtOnce) {
  MapPaintJob job;
  job.Start(ViewOf(0, 256), true);
  EXPECT_EQ(KindsOf(job), std::vector{Kind::Completion});
}

TEST(MapPaintJob, ANewRequestBeginsAgainAtTheFirstTile) {
  MapPaintJob job;
  job.Start(ViewOf(512, 256), true);
  const MapPaintStep first = job.Next();
  job.Next();
  job.Start(ViewOf(512, 256), true);
  EXPECT_EQ(job.Next(), first);
  EXPECT_EQ(KindsOf(job), (std::vector{Kind::Tile, Kind::Tile, Kind::Tile, Kind::Completion}));
}

TEST(MapPaintJob, ANewSizeDropsTheTilesOfTheOld) {
  MapPaintJob job;
  job.Start(ViewOf(512, 256), true);
  job.Next();
  job.Start(ViewOf(512, 512), true);
  EXPECT_EQ(job.Next(), (MapPaintStep{Kind::Tile, {{1, 0, 0}, {0, 0, 256, 256}}}));
}

TEST(MapPaintJob, GoingOfflineReplacesARunningPainting) {
  MapPaintJob job;
  job.Start(ViewOf(512, 256), true);
  job.Next();
  job.Start(ViewOf(512, 256), false);
  EXPECT_EQ(KindsOf(job), std::vector{Kind::OfflinePicture});
}

TEST(MapPaintJob, AnAbandonedPaintingDrawsAndShowsNothingMore) {
  MapPaintJob job;
  job.Start(ViewOf(512, 256), true);
  job.Next();
  job.Abandon();
  EXPECT_FALSE(job.IsRunning());
  EXPECT_EQ(job.Next().kind, Kind::Nothing);
}

TEST(MapPaintJob, WhileItRunsMouseMovesAreForADragAlone) {
  MapPaintJob job;
  EXPECT_FALSE(job.DropsMouseMove(false));
  job.Start(ViewOf(512, 256), true);
  EXPECT_TRUE(job.DropsMouseMove(false));
  EXPECT_FALSE(job.DropsMouseMove(true));
  KindsOf(job);
  EXPECT_FALSE(job.DropsMouseMove(false));
}

/// Runs a painting as the control does, without pixels.
void Paint(MapPaintJob& job, TileStore<int>& store) {
  while (job.IsRunning()) {
    const MapPaintStep step = job.Next();
    if (step.kind != Kind::Tile || store.Find(step.placement.tile)) continue;
    store.TakeAnswer(step.placement.tile, store.Cache().Download(step.placement.tile, {}));
  }
}

struct Painting {
  TestFolder folder;
  QStringList asked;
  TileStore<int> store{TileCache(folder.Path(), QString(),
                                 [this](const QString& url, QByteArray&, const std::stop_token&) {
                                   asked << url;
                                   return TileOutcome::Failed;
                                 }),
                       [](const QString&) { return std::optional<int>(); }};
  MapPaintJob job;
};

TEST(MapPaintJob, OfflineNeitherTheNetworkNorTheCacheIsTouched) {
  Painting painting;
  painting.job.Start(ViewOf(512, 256), false);
  Paint(painting.job, painting.store);
  EXPECT_TRUE(painting.asked.isEmpty());
  EXPECT_TRUE(painting.folder.Names().isEmpty());
}

TEST(MapPaintJob, RepaintingAsksForNoTileASecondTimeEvenOfADeadService) {
  Painting painting;
  for (int i = 0; i < 3; ++i) {
    painting.job.Start(ViewOf(512, 256), true);
    Paint(painting.job, painting.store);
  }
  EXPECT_EQ(painting.asked, (QStringList{"/xyz/std/1/0/0.png", "/xyz/std/1/0/1.png", "/xyz/std/1/1/0.png",
                                         "/xyz/std/1/1/1.png"}));
}

}  // namespace
}  // namespace tremlo
