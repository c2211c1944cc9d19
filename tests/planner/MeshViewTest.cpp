// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/drawing/MeshView.h>

// Covered: Camera::project() and paintScene(): where things are shown, what hides what.

#include <planner/drawing/Sampling.h>
#include <planner/input/Volume.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace {

// Looks from the front, so that x is to the right and z up.
planner::Camera camera()
{
    planner::Camera result;
    result.center = {10, 20, 30};
    result.direction = {0, 1, 0};
    result.up = {0, 0, 1};
    result.mmPerPixel = 0.5;
    result.pixels = {60, 40};
    return result;
}

// A square of 10 mm around the camera's center, facing it, `y` mm behind.
planner::ShownMesh square(float y, const QColor& color, double opacity = 1.0)
{
    geometry::Mesh mesh({{5, 20 + y, 25}, {15, 20 + y, 25}, {15, 20 + y, 35}, {5, 20 + y, 35}}, {});
    mesh.addTriangle(0, 1, 2);
    mesh.addTriangle(0, 2, 3);
    return {mesh, color, opacity};
}

QColor middle(const QImage& image)
{
    return image.pixelColor(30, 20);
}

TEST(Camera, ShowsItsCenterInTheMiddle)
{
    EXPECT_EQ(camera().project({10, 20, 30}), QPointF(30, 20));
    EXPECT_EQ(camera().project({10, -50, 30}), QPointF(30, 20));
}

TEST(Camera, ShowsUpUpwardsAndRightToTheRight)
{
    EXPECT_EQ(camera().project({13, 20, 30}), QPointF(36, 20));
    EXPECT_EQ(camera().project({10, 20, 34}), QPointF(30, 12));
}

TEST(Scene, CoversTheProjectionOfAMeshAndNoMore)
{
    const QImage image = paintScene(camera(), {square(0, Qt::red)});
    ASSERT_EQ(image.size(), QSize(60, 40));
    const QRgb background = image.pixel(0, 0);
    for (int y = 0; y < 40; ++y) {
        for (int x = 0; x < 60; ++x) {
            const bool inside = x >= 20 && x < 40 && y >= 10 && y < 30;
            ASSERT_EQ(image.pixel(x, y) != background, inside) << x << ' ' << y;
        }
    }
    EXPECT_GT(middle(image).red(), 200);
    EXPECT_LT(middle(image).green(), 60);
}

TEST(Scene, HidesWhatIsBehindSomethingSolid)
{
    const auto front = square(-3, Qt::green);
    const auto back = square(3, Qt::red);
    const QColor expected = middle(paintScene(camera(), {front}));
    EXPECT_EQ(middle(paintScene(camera(), {front, back})), expected);
    EXPECT_EQ(middle(paintScene(camera(), {back, front})), expected);
}

TEST(Scene, ShowsWhatIsBehindGlass)
{
    const auto glass = square(-3, Qt::green, 0.3);
    const auto back = square(3, Qt::red);
    const QColor seen = middle(paintScene(camera(), {back, glass}));
    EXPECT_GT(seen.red(), 120);
    EXPECT_GT(seen.green(), middle(paintScene(camera(), {back})).green() + 20);
    EXPECT_EQ(seen, middle(paintScene(camera(), {glass, back})));
}

TEST(Scene, LeavesOutTrianglesWithoutVertices)
{
    auto damaged = square(0, Qt::red);
    damaged.mesh.setIndices({0, 1, 9, -1, -5, 1, 2, -1, 0, 1});
    const QImage image = paintScene(camera(), {damaged});
    EXPECT_EQ(image.pixel(30, 20), image.pixel(0, 0));
}

TEST(Scene, LeavesOutTrianglesWithACornerThatIsNotFinite)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float infinity = std::numeric_limits<float>::infinity();
    planner::Camera oblique = camera();
    oblique.direction = {0.4F, 0.8F, -0.3F};
    for (const planner::Camera& from : {camera(), oblique}) {
        const QImage empty = paintScene(from, {});
        for (const QVector3D& odd :
             {QVector3D(nan, 20, 30), QVector3D(10, nan, 30), QVector3D(infinity, 20, 30),
              QVector3D(10, infinity, 30), QVector3D(10, 20, -infinity),
              QVector3D(infinity, infinity, infinity)}) {
            const geometry::Mesh mesh({{5, 20, 25}, {15, 20, 25}, odd}, {0, 1, 2, -1, 0, 0, 1, -1});
            EXPECT_EQ(paintScene(from, {{mesh, Qt::red}}), empty)
                << odd.x() << ' ' << odd.y() << ' ' << odd.z();
        }
    }
}

TEST(Scene, ShowsBoneWhereItIsNotCutAway)
{
    // 20 mm of bone, 1 mm a voxel, from x = -0.5; the picture shows x from -5 to 25 and z from 20
    // to 40.
    planner::Volume volume;
    volume.image = VexelImage3D({20, 20, 20}, {1, 1, 1}, image::Int16);
    auto* voxels = static_cast<std::int16_t*>(volume.image.dataPtr());
    for (int i = 0; i < 20 * 20 * 20; ++i)
        voxels[i] = 1000;
    volume.worldFromVoxel.translate(0.0F, 10.0F, 20.0F);
    const planner::Sampler sampler(volume);
    planner::ShownBone bone;
    bone.sampler = &sampler;
    bone.threshold = 200.0;
    bone.isShown = [](const QVector3D& p) { return p.x() < 10.0F; };
    bone.low = {-5, 0, 15};
    bone.high = {25, 40, 45};
    bone.color = Qt::white;
    QList<double> told;
    const QImage image =
        paintScene(camera(), {}, bone, [&told](double done) { told.append(done); });
    const QRgb background = image.pixel(0, 20);
    EXPECT_NE(image.pixel(15, 20), background); // x = 2.75
    EXPECT_NE(image.pixel(28, 20), background); // x = 9.25
    EXPECT_EQ(image.pixel(32, 20), background); // x = 11.25, cut away
    EXPECT_EQ(told.last(), 1.0);
}

} // namespace
