// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/Picture.h>

// Covered: paintPicture(): marks lie on the pixels that they mark.

#include <tests/planner/GuiTest.h>

#include <gtest/gtest.h>

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
    EXPECT_EQ(QColor(paint(true).pixel(390, 100)), planner::markColour(LandmarkKind::Tooth));
}

TEST_F(Picture, LeavesMarksOutsideTheSlabHollow)
{
    EXPECT_EQ(QColor(paint(false).pixel(390, 100)), QColor(Qt::black));
}

TEST_F(Picture, FillsMarksOfAProjection)
{
    EXPECT_EQ(QColor(paint(std::nullopt).pixel(390, 100)), planner::markColour(LandmarkKind::Tooth));
}

TEST_F(Picture, EnlargesFewSamplesByAWholeNumber)
{
    planner::PictureContent content;
    content.samples = QImage(300, 10, QImage::Format_Grayscale8);
    content.samples.fill(0);
    content.sampleSizeMm = {1, 1, 1};
    EXPECT_EQ(planner::paintPicture(content).size(), QSize(3 * 300 + 80, 3 * 10 + 80));
}

} // namespace
