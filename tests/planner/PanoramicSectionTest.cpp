// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/report/Sections.h>

// Covered: createPanoramicSection(): which nerves the view shows and what the section says of them
// and of implants, as far as the case knows them.

#include <tests/planner/GuiTest.h>
#include <tests/planner/SilentProgress.h>

#include <phantom/Phantom.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <utility>

using planner::Case;

namespace {

class PanoramicSection : public test::GuiTest
{
protected:
    // A CT of few voxels with the built-in patient's landmarks and canals, as read from files.
    static Case readCt()
    {
        const phantom::Patient known;
        Case planned;
        planned.volume.image = VexelImage3D({32, 32, 32}, {5, 5, 5}, image::Int16);
        auto* voxels = static_cast<std::int16_t*>(planned.volume.image.dataPtr());
        std::fill(voxels, voxels + std::ptrdiff_t{32} * 32 * 16,
                  std::int16_t{1000}); // the lower half
        planned.volume.worldFromVoxel.scale(5);
        planned.landmarks = planner::landmarksOf(known);
        planned.canals = planner::canalsOf(known);
        return planned;
    }

    static planner::Section section(const Case& planned)
    {
        test::SilentProgress progress;
        return planner::createPanoramicSection(planned, progress);
    }

    // Pixels in the color of nerves, in the patient's right and left half of the view.
    static std::pair<int, int> nervePixels(const planner::Section& made)
    {
        const QImage& view = made.pictures.first().image;
        std::pair<int, int> counts;
        for (int y = 0; y < view.height(); ++y) {
            for (int x = 0; x < view.width(); ++x) {
                const QColor color = view.pixelColor(x, y);
                if (color.red() > 220 && std::abs(color.green() - 210) < 25 && color.blue() < 110)
                    ++(x < view.width() / 2 ? counts.first : counts.second);
            }
        }
        return counts;
    }
};

TEST_F(PanoramicSection, ShowsKnownCanalsAlsoOfAReadCt)
{
    const planner::Section made = section(readCt());
    ASSERT_EQ(made.pictures.first().fileName, QStringLiteral("panoramic.png"));
    const auto [right, left] = nervePixels(made);
    EXPECT_GT(right, 500);
    EXPECT_GT(left, 500);
    EXPECT_TRUE(made.plainText.contains(QStringLiteral("The right mandibular nerve is ")));
    EXPECT_TRUE(made.plainText.contains(QStringLiteral("The left mandibular nerve is ")));
    EXPECT_FALSE(made.plainText.contains(QStringLiteral("not known")));
}

TEST_F(PanoramicSection, SaysOfEachNerveWhetherItsCourseIsKnown)
{
    Case planned = readCt();
    planned.canals.removeLast();
    const planner::Section made = section(planned);
    const auto [right, left] = nervePixels(made);
    EXPECT_GT(right, 500);
    EXPECT_LT(left, 100);
    EXPECT_TRUE(made.plainText.contains(QStringLiteral("The right mandibular nerve is ")));
    EXPECT_TRUE(made.plainText.contains(QStringLiteral(
        "The course of the left mandibular nerve is not known, so it is not drawn.")));
}

TEST_F(PanoramicSection, SaysOfEachSiteWhyNoImplantIsPlaced)
{
    Case planned = readCt();
    planned.landmarks.removeIf([](const planner::Landmark& landmark) {
        return landmark.name == QStringLiteral("tooth 46");
    });
    const planner::Section made = section(planned);
    EXPECT_TRUE(made.plainText.contains(QStringLiteral(
        "Of tooth 46, crown and apex are not both known, so no implant takes its place.")));
    EXPECT_FALSE(made.plainText.contains(QStringLiteral("Of tooth 36")));
    EXPECT_TRUE(made.plainText.contains(QStringLiteral("The implant at 36 turns by")));
}

TEST_F(PanoramicSection, SaysWhyThereIsNoView)
{
    Case planned = readCt();
    planned.landmarks.clear();
    const planner::Section made = section(planned);
    EXPECT_TRUE(made.plainText.startsWith(QStringLiteral("A panoramic view needs")));
    EXPECT_EQ(made.introductionHtml, QString()) << "nothing is unrolled";
    EXPECT_EQ(made.pictures.size(), 2) << "the cuts";
}

} // namespace
