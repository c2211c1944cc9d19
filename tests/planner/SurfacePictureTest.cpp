// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/drawing/SurfacePicture.h>

// Covered: from where the camera looks, what is written onto a scene, and tiles.

#include <planner/drawing/PictureStyle.h>
#include <tests/planner/GuiTest.h>

#include <gtest/gtest.h>

namespace {

using SurfacePicture = test::GuiTest;

TEST_F(SurfacePicture, CameraFromTheFrontHasSuperiorUpAndThePatientsRightOnTheLeft)
{
    const planner::Camera camera = planner::cameraFromTheFront({10, 20, 30}, 100.0, {200, 120});
    EXPECT_EQ(camera.project({10, 20, 30}), QPointF(100, 60));
    EXPECT_LT(camera.project({10, 20, 40}).y(), 60.0);
    EXPECT_LT(camera.project({0, 20, 30}).x(), 100.0);
    EXPECT_GT(camera.project({10, 10, 30}).y(), 60.0) << "what is nearer to the eye appears below";
    EXPECT_DOUBLE_EQ(camera.mmPerPixel, 0.5);
}

// Two squares round the middle, the red one nearer to the eye, which looks from anterior (-y).
TEST_F(SurfacePicture, NearerSurfacesHideFartherOnes)
{
    const auto square = [](float y, float half) {
        return geometry::Mesh(
            {{-half, y, -half}, {half, y, -half}, {half, y, half}, {-half, y, half}},
            {0, 1, 2, -1, 0, 2, 3, -1});
    };
    const planner::Camera camera{{}, {0, 1, 0}, {0, 0, 1}, 0.5, {200, 200}};
    for (const bool redFirst : {true, false}) {
        QList<planner::ShownMesh> surfaces{{square(-5.0F, 10.0F), Qt::red},
                                           {square(5.0F, 20.0F), Qt::blue}};
        if (!redFirst)
            surfaces.swapItemsAt(0, 1);
        const QImage image = planner::paintSurfaces(camera, surfaces, {});
        const QColor middle = image.pixelColor(100, 100);
        EXPECT_GT(middle.red(), middle.blue() + 100);
        const QColor beside = image.pixelColor(130, 100); // 15 mm to the right
        EXPECT_GT(beside.blue(), beside.red() + 100);
        EXPECT_EQ(image.pixelColor(150, 100), planner::kGroundColor)
            << "25 mm to the right is nothing";
    }
}

// 20 mm are 80 pixels, from the tenth on, in rows 86 to 88 of 100.
TEST_F(SurfacePicture, HasABarOfTwentyMillimeters)
{
    const planner::Camera camera{{}, {0, 1, 0}, {0, 0, 1}, 0.25, {200, 100}};
    const QImage image = planner::paintSurfaces(camera, {}, {});
    for (int x = 0; x < image.width(); ++x) {
        const bool onBar = x >= 10 && x < 90;
        ASSERT_EQ(image.pixelColor(x, 87), onBar ? planner::kTextColor : planner::kGroundColor)
            << x;
    }
}

TEST_F(SurfacePicture, HasItsLabelInTheUpperLeftCorner)
{
    const planner::Camera camera{{}, {0, 1, 0}, {0, 0, 1}, 0.25, {200, 100}};
    const QImage with = planner::paintSurfaces(camera, {}, QStringLiteral("1  before"));
    const QImage without = planner::paintSurfaces(camera, {}, {});
    int written = 0;
    for (int y = 0; y < with.height(); ++y) {
        for (int x = 0; x < with.width(); ++x) {
            if (with.pixel(x, y) == without.pixel(x, y))
                continue;
            ++written;
            ASSERT_TRUE(x >= 10 && x < 110 && y >= 8 && y < 32) << x << ' ' << y;
        }
    }
    EXPECT_GT(written, 50);
}

TEST_F(SurfacePicture, TilesStandInRowsSixPixelsApart)
{
    QImage tile(10, 20, QImage::Format_RGB32);
    tile.fill(Qt::red);
    EXPECT_EQ(planner::tile({tile, tile, tile}, 2).size(), QSize(26, 46));
    EXPECT_TRUE(planner::tile({}, 2).isNull());
    EXPECT_TRUE(planner::tile({tile}, 0).isNull());
}

} // namespace
