#include "core/location/SitePosition.h"
#include "core/location/TileCache.h"
#include "core/report/ReportBlocks.h"
#include "numeric/location/TileGrid.h"
#include "support/SoundProject.h"
#include "support/TestFolder.h"
#include "window/report/MapPicture.h"
#include "window/report/ReportFigures.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

constexpr QSize kSize(320, 200);

/// Puts the tile of the test data under the number of every tile that the picture takes, and returns their
/// paths.
QStringList FillCache(const CMorvaneDoc& doc, QSize size) {
  const GeoPoint place = PlaceOf(PositionOf(doc.site));
  MapView view;
  view.zoom = doc.site.mapZoom;
  view.scale = doc.site.mapScale;
  view.centerLon = place.lon;
  view.centerLat = place.lat;
  view.clientRect = {0, 0, size.width(), size.height()};
  TileGrid grid(view);
  QStringList paths;
  while (const auto placement = grid.Next()) {
    paths << TileFilePath(doc.Folders().Own(), placement->tile);
    QDir().mkpath(QFileInfo(paths.last()).path());
    QFile::copy(test::SourcePath("tests/data/tiles/tile.png"), paths.last());
  }
  return paths;
}

class MapPictureTest : public testing::Test {
 protected:
  MapPictureTest() { test::CopyTables(folder); }

  test::TestFolder folder;
};

TEST_F(MapPictureTest, ThereIsNoneWithoutTheTiles) {
  const CMorvaneDoc doc = test::SoundProject(folder.Path());
  EXPECT_FALSE(MapPicture(doc, kSize, 1.0));
  EXPECT_FALSE(FigureHeight(doc, ReportPicture::Map));
}

TEST_F(MapPictureTest, TheTilesOfTheCacheMakeIt) {
  const CMorvaneDoc doc = test::SoundProject(folder.Path());
  const QStringList tiles = FillCache(doc, kSize);
  const std::optional<QImage> picture = MapPicture(doc, kSize, 2.0);
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->size(), 2 * kSize);
  // The cross marks the site.
  EXPECT_EQ(picture->pixel(320, 20), QColor(Qt::black).rgb());
  EXPECT_EQ(picture->pixel(20, 200), QColor(Qt::black).rgb());

  ASSERT_TRUE(QFile::remove(tiles.last()));
  EXPECT_FALSE(MapPicture(doc, kSize, 2.0));
}

TEST_F(MapPictureTest, ATileThatIsNoPictureMakesNone) {
  const CMorvaneDoc doc = test::SoundProject(folder.Path());
  const QStringList tiles = FillCache(doc, kSize);
  QFile file(tiles.first());
  ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
  file.write("an error page");
  file.close();
  EXPECT_FALSE(MapPicture(doc, kSize, 1.0));
}

}  // namespace
}  // namespace tremlo
