// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/drawing/GreyPictures.h>

// Covered: cuts and projections along the axes of the world, windows, boxes on cuts, tiles, plots.

#include <planner/drawing/Sampling.h>
#include <tests/planner/GuiTest.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

namespace {

using planner::GreyCut;
using planner::Sampler;
using planner::Volume;

// 10 x 8 x 6 voxels of 1 mm; the value is 100 z + 10 y + x. The faces of the volume lie half a
// voxel further out.
Volume numbered()
{
    Volume volume;
    volume.image = VexelImage3D({10, 8, 6}, {1, 1, 1}, image::Int16);
    auto* voxel = static_cast<std::int16_t*>(volume.image.dataPtr());
    for (int z = 0; z < 6; ++z) {
        for (int y = 0; y < 8; ++y) {
            for (int x = 0; x < 10; ++x)
                *voxel++ = std::int16_t(100 * z + 10 * y + x);
        }
    }
    return volume;
}

class GreyPictures : public test::GuiTest
{
protected:
    Volume volume = numbered();
    Sampler sampler{volume};
};

TEST_F(GreyPictures, AxialCutHasAnteriorUpAndThePatientsRightOnTheLeft)
{
    const GreyCut cut = planner::cutAcross(volume, sampler, 2, 3.0F, 1.0F);
    ASSERT_EQ(cut.columns, 10);
    ASSERT_EQ(cut.rows, 8);
    EXPECT_EQ(cut.values[0], 300.0F);
    EXPECT_EQ(cut.values[9], 309.0F) << "x, to the patient's left, runs to the right";
    EXPECT_EQ(cut.values[70], 370.0F) << "y, to posterior, runs down";
}

TEST_F(GreyPictures, SagittalCutHasSuperiorUpAndTheFaceToTheRight)
{
    const GreyCut cut = planner::cutAcross(volume, sampler, 0, 4.0F, 1.0F);
    ASSERT_EQ(cut.columns, 8);
    ASSERT_EQ(cut.rows, 6);
    EXPECT_EQ(cut.values[0], 574.0F) << "posterior and superior";
    EXPECT_EQ(cut.values[7], 504.0F) << "anterior";
    EXPECT_EQ(cut.values[40], 74.0F) << "inferior";
}

TEST_F(GreyPictures, ProjectionTakesTheLargestValueFromAnteriorToPosterior)
{
    double done = 0.0;
    const GreyCut cut =
        planner::maximumIntensity(volume, sampler, 1.0F, [&done](double part) { done = part; });
    ASSERT_EQ(cut.columns, 10);
    ASSERT_EQ(cut.rows, 6);
    EXPECT_EQ(cut.values[0], 570.0F);
    EXPECT_EQ(cut.values[59], 79.0F);
    EXPECT_EQ(done, 1.0);
}

TEST_F(GreyPictures, CropShowsTheBoxAndNoMoreThanThereIs)
{
    const GreyCut cut = planner::cutAcross(volume, sampler, 2, 3.0F, 1.0F);
    const GreyCut part =
        planner::cropped(cut, {QVector3D(1.5F, 2.5F, 0.0F), QVector3D(4.5F, 4.5F, 0.0F)});
    ASSERT_EQ(part.columns, 3);
    ASSERT_EQ(part.rows, 2);
    EXPECT_EQ(part.values, QList<float>({332, 333, 334, 342, 343, 344}));
    const GreyCut all =
        planner::cropped(cut, {QVector3D(-99.0F, -99.0F, 0.0F), QVector3D(99.0F, 99.0F, 0.0F)});
    EXPECT_EQ(all.values, cut.values);
}

TEST_F(GreyPictures, ShadeIsLinearFromBlackToWhiteAndBlackOutside)
{
    GreyCut cut;
    cut.columns = 5;
    cut.rows = 1;
    cut.values = {-50.0F, 100.0F, 150.0F, 300.0F, std::numeric_limits<float>::quiet_NaN()};
    const QImage image = planner::shade(cut, {100.0F, 200.0F});
    EXPECT_EQ(qRed(image.pixel(0, 0)), 0);
    EXPECT_EQ(qRed(image.pixel(1, 0)), 0);
    EXPECT_EQ(qRed(image.pixel(2, 0)), 128);
    EXPECT_EQ(qRed(image.pixel(3, 0)), 255);
    EXPECT_EQ(qRed(image.pixel(4, 0)), 0);
    EXPECT_EQ(qRed(planner::shade(cut, {200.0F, 200.0F}).pixel(3, 0)), 0)
        << "a window without width";
}

TEST_F(GreyPictures, BoxesAreOutlinedWhereTheCutMeetsThem)
{
    const GreyCut cut = planner::cutAcross(volume, sampler, 2, 3.0F, 0.1F);
    const QImage black = planner::shade(cut, {1e6F, 2e6F});
    const QColor red(255, 0, 0);
    const primitives::BoundingBox met(QVector3D(1.0F, 2.0F, 2.0F), QVector3D(4.0F, 5.0F, 4.0F));
    const primitives::BoundingBox above(QVector3D(6.0F, 2.0F, 4.0F), QVector3D(8.0F, 5.0F, 5.0F));
    const QImage image = planner::drawBoxes(cut, black, {{{met, above}, red}});
    ASSERT_EQ(image.size(), black.size() * 2);
    // The corner of the picture is (-0.5, -0.5), a millimeter 20 pixels.
    EXPECT_GT(qRed(image.pixel(30, 80)), 200) << "left edge, x = 1";
    EXPECT_GT(qRed(image.pixel(60, 50)), 200) << "upper edge, y = 2";
    EXPECT_GT(qRed(image.pixel(60, 80)), 20) << "inside";
    EXPECT_LT(qRed(image.pixel(60, 80)), 90);
    EXPECT_EQ(qRed(image.pixel(130, 80)), 0) << "the one above is not met";
    EXPECT_EQ(qRed(image.pixel(150, 80)), 0);
}

TEST_F(GreyPictures, TilesStandInRowsScaledToOneWidth)
{
    QImage white(10, 20, QImage::Format_RGB32);
    white.fill(Qt::white);
    const QImage image = planner::montage(
        {{QStringLiteral("a"), white}, {QStringLiteral("b"), white}, {{}, white}}, 2, 50);
    EXPECT_EQ(image.width(), 18 + 2 * (50 + 18));
    EXPECT_EQ(image.height(), 18 + 2 * (34 + 100 + 18));
    EXPECT_EQ(image.pixelColor(18 + 25, 18 + 34 + 50), QColor(Qt::white));
    EXPECT_NE(image.pixelColor(18 + 68 + 25, 18 + 152 + 34 + 50), QColor(Qt::white))
        << "there is no fourth tile";
}

TEST_F(GreyPictures, TilesAreAtMostTwiceAsHighAsWide)
{
    const QImage sliver(1, 3000, QImage::Format_RGB32);
    EXPECT_EQ(planner::montage({{{}, sliver}}, 1, 50).height(), 18 + 34 + 100 + 18);
}

TEST_F(GreyPictures, CutsOfALargeVolumeHaveAtMost1000PixelsAndProjections400AlongASide)
{
    Volume large;
    large.image = VexelImage3D({10, 2, 100}, {10, 10, 10}, image::UInt8);
    large.worldFromVoxel.scale(10);
    const Sampler values(large);
    const GreyCut cut = planner::cutAcross(large, values, 0, 0.0F, 0.4F);
    EXPECT_EQ(cut.spacingMm, 1.0F);
    EXPECT_EQ(cut.columns, 20);
    EXPECT_EQ(cut.rows, 1000);
    const GreyCut projection = planner::maximumIntensity(large, values, 0.05F, [](double) {});
    EXPECT_EQ(projection.rows, 400);
    EXPECT_EQ(projection.spacingMm, 2.5F);
}

TEST_F(GreyPictures, PlotShowsBinsAndPeaks)
{
    const TissueEstimationHistogram histogram({0, 0, 0, 500, 500, 900}, 50);
    const QColor green(0, 255, 0);
    const QImage plain = planner::plot(histogram, {}, green);
    const QImage marked = planner::plot(histogram, {{525, QStringLiteral("T3")}}, green);
    EXPECT_EQ(plain.size(), marked.size());
    EXPECT_NE(plain, marked);
    int greenPixels = 0;
    for (int x = 0; x < plain.width(); ++x) {
        const QColor pixel = plain.pixelColor(x, plain.height() - 60);
        greenPixels += pixel.green() > 100 && pixel.red() < 60 ? 1 : 0;
    }
    // Three bins of the 21 bins' width that the plot shows in 840 pixels.
    EXPECT_NEAR(greenPixels, 120, 12);
}

TEST_F(GreyPictures, PlotOfNoBinsSaysSo)
{
    EXPECT_FALSE(planner::plot(TissueEstimationHistogram({}, 50), {}, QColor(Qt::green)).isNull());
}

} // namespace
