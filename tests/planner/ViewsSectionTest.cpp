// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/report/Sections.h>

// Covered: createViewsSection(): the three views, the table of mapped landmarks and the legend.

#include <tests/planner/GuiTest.h>
#include <tests/planner/SilentProgress.h>

#include <gtest/gtest.h>

namespace {

using planner::Landmark;
using planner::LandmarkKind;

class ViewsSection : public test::GuiTest
{
protected:
    // A CT of 16 voxels of 4 mm along each axis, all of one value.
    static planner::Section sectionWith(const QList<Landmark>& landmarks)
    {
        planner::Case planned;
        planned.volume.image = VexelImage3D({16, 16, 16}, {4, 4, 4}, image::Int16);
        planned.volume.worldFromVoxel.scale(4);
        planned.landmarks = landmarks;
        test::SilentProgress progress;
        return planner::createViewsSection(planned, progress);
    }

    const Landmark foramen{QStringLiteral("mental foramen, right"), QStringLiteral("mental"),
                           LandmarkKind::Foramen, QVector3D(20, 24, 20)};
    const Landmark tooth{QStringLiteral("tooth 36"), QStringLiteral("36"), LandmarkKind::Tooth,
                         QVector3D(40, 32, 28)};
};

TEST_F(ViewsSection, ShowsThreeViewsOfACtWithoutLandmarksAndNoTable)
{
    const planner::Section section = sectionWith({});
    ASSERT_EQ(section.pictures.size(), 3);
    EXPECT_EQ(section.pictures[0].fileName, QStringLiteral("axial.png"));
    EXPECT_EQ(section.pictures[1].fileName, QStringLiteral("oblique.png"));
    EXPECT_EQ(section.pictures[2].fileName, QStringLiteral("cephalogram.png"));
    EXPECT_FALSE(section.introductionHtml.contains(QStringLiteral("legend")));
    EXPECT_TRUE(section.detailsHtml.isEmpty());
    EXPECT_TRUE(section.plainText.isEmpty());
}

TEST_F(ViewsSection, ListsEveryLandmarkInEveryView)
{
    const planner::Section section = sectionWith({foramen, tooth});
    EXPECT_EQ(section.detailsHtml.count(QStringLiteral("<td>mental foramen, right</td>")), 3);
    EXPECT_EQ(section.detailsHtml.count(QStringLiteral("<td>tooth 36</td>")), 3);
    EXPECT_TRUE(section.detailsHtml.contains(QStringLiteral("6 positions were mapped")));
}

TEST_F(ViewsSection, NamesTheKindsOfItsLandmarksInTheLegend)
{
    const planner::Section section = sectionWith({tooth});
    EXPECT_TRUE(section.introductionHtml.contains(QStringLiteral("tooth, with its FDI number")));
    EXPECT_TRUE(section.introductionHtml.contains(QStringLiteral("hollow")));
    EXPECT_FALSE(section.introductionHtml.contains(QStringLiteral("foramen</li>")));
    EXPECT_FALSE(section.introductionHtml.contains(QStringLiteral("root apex")));
}

TEST_F(ViewsSection, PrintsForaminaOfEveryViewAndWhatElseIsInASlice)
{
    const QString text = sectionWith({foramen, tooth}).plainText;
    EXPECT_EQ(text.count(QStringLiteral("mental foramen, right")), 3);
    EXPECT_EQ(text.count(QStringLiteral("tooth 36")), 1); // the axial view is at its height
}

} // namespace
