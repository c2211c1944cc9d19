// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/drawing/Picture.h>

// Covered: paintPicture(): marks lie on the pixels that they mark.

#include <tests/planner/GuiTest.h>

#include <gtest/gtest.h>

#include <algorithm>

using planner::LandmarkKind;
using planner::MappedLandmark;

namespace {

class Picture : public test::GuiTest
{
protected:
    // 700 x 100 black samples of 0.5 mm with a mark in the middle of sample (350, 60).
    static QImage paint(std::optional<bool> inPlane)
    {
        planner::PictureContent content;
        content.samples = QImage(700, 100, QImage::Format_Grayscale8);
        content.samples.fill(0);
        content.sampleSizeMm = {0.5F, 0.5F, 1.0F};
        MappedLandmark mark{};
        mark.landmark.kind = LandmarkKind::Tooth;
        mark.inView = {175.25, 30.25};
        mark.inPlane = inPlane;
        content.marks.append(mark);
        return planner::paintPicture(content);
    }
};

TEST_F(Picture, HasAFrameOf40PixelsAroundTheSamples)
{
    EXPECT_EQ(paint(true).size(), QSize(780, 180));
}

TEST_F(Picture, FillsMarksInTheSlab)
{
    EXPECT_EQ(QColor(paint(true).pixel(390, 100)), planner::markColor(LandmarkKind::Tooth));
}

TEST_F(Picture, LeavesMarksOutsideTheSlabHollow)
{
    EXPECT_EQ(QColor(paint(false).pixel(390, 100)), QColor(Qt::black));
}

TEST_F(Picture, FillsMarksOfAProjection)
{
    EXPECT_EQ(QColor(paint(std::nullopt).pixel(390, 100)), planner::markColor(LandmarkKind::Tooth));
}

TEST_F(Picture, EnlargesFewSamplesByAWholeNumber)
{
    planner::PictureContent content;
    content.samples = QImage(300, 10, QImage::Format_Grayscale8);
    content.samples.fill(0);
    content.sampleSizeMm = {1, 1, 1};
    EXPECT_EQ(planner::paintPicture(content).size(), QSize(3 * 300 + 80, 3 * 10 + 80));
}

// 700 x 100 black samples of 0.5 mm: the view point (x, y) lies on pixel (40 + 2 x, 40 + 2 y).
planner::PictureContent blank()
{
    planner::PictureContent content;
    content.samples = QImage(700, 100, QImage::Format_Grayscale8);
    content.samples.fill(0);
    content.sampleSizeMm = {0.5F, 0.5F, 1.0F};
    return content;
}

TEST_F(Picture, PaintsCurvesThroughTheirPoints)
{
    planner::PictureContent content = blank();
    content.curves.append({{{10.25, 20.25}, {200.25, 20.25}}, QColor(200, 10, 20), 3.0, false});
    const QImage image = planner::paintPicture(content);
    EXPECT_EQ(QColor(image.pixel(160, 80)), QColor(200, 10, 20));
    EXPECT_EQ(QColor(image.pixel(460, 80)), QColor(Qt::black)) << "beyond the end";
}

TEST_F(Picture, PaintsDotsAndRingsOfNotes)
{
    planner::PictureContent content = blank();
    content.notes.append({{50.25, 25.25}, planner::PictureNote::Dot, {}, QColor(10, 200, 20)});
    content.notes.append({{150.25, 25.25}, planner::PictureNote::Ring, {}, QColor(10, 20, 200)});
    const QImage image = planner::paintPicture(content);
    EXPECT_EQ(QColor(image.pixel(140, 90)), QColor(10, 200, 20));
    EXPECT_EQ(QColor(image.pixel(340, 90)), QColor(Qt::black)) << "hollow";
    EXPECT_GT(QColor(image.pixel(348, 90)).blue(), 100) << "8 pixels from the center";
}

TEST_F(Picture, CentersTheTextOfANote)
{
    planner::PictureContent content = blank();
    content.notes.append(
        {{100.0, 25.0}, planner::PictureNote::NoSymbol, QStringLiteral("HH"), QColor(Qt::white)});
    const QImage image = planner::paintPicture(content);
    int left = image.width();
    int right = 0;
    for (int y = 80; y < 100; ++y) {
        for (int x = 200; x < 280; ++x) {
            if (QColor(image.pixel(x, y)).lightness() > 128) {
                left = std::min(left, x);
                right = std::max(right, x);
            }
        }
    }
    EXPECT_GT(right - left, 10);
    EXPECT_NEAR((left + right) / 2.0, 240.0, 2.0);
}

} // namespace
