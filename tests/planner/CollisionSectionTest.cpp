// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/CollisionSection.h>

// Covered: createCollisionSection(): table, pictures and text of the built-in patient, and a CT without nerves.

#include <planner/CommandLine.h>
#include <tests/planner/GuiTest.h>
#include <tests/planner/SilentProgress.h>

#include <gtest/gtest.h>

#include <optional>

namespace {

class CollisionSection : public test::GuiTest
{
protected:
    static planner::Section sectionOf(const planner::Case& planned)
    {
        test::SilentProgress progress;
        return planner::createCollisionSection(planned, progress);
    }

    static const planner::Section& builtIn()
    {
        static std::optional<planner::Section> once;
        if (!once) {
            test::SilentProgress progress;
            once = sectionOf(planner::openCase({{}, {}, {}, 4.0F}, progress));
        }
        return *once;
    }
};

TEST_F(CollisionSection, OfTheBuiltInPatientShowsTheJawTheCutsAndTheDrag)
{
    ASSERT_EQ(builtIn().pictures.size(), 3);
    EXPECT_EQ(builtIn().pictures[0].fileName, QStringLiteral("collisions-jaw.png"));
    EXPECT_EQ(builtIn().pictures[1].fileName, QStringLiteral("collisions-cuts.png"));
    EXPECT_EQ(builtIn().pictures[2].fileName, QStringLiteral("collisions-drag.png"));
    for (const auto& picture : builtIn().pictures)
        EXPECT_FALSE(picture.image.isNull());
    EXPECT_GT(builtIn().pictures[2].image.width(), 3 * builtIn().pictures[2].image.height()); // a strip
}

TEST_F(CollisionSection, OfTheBuiltInPatientPaintsCollidingObjectsRed)
{
    for (const auto& picture : builtIn().pictures) {
        int red = 0;
        for (int y = 0; y < picture.image.height(); ++y) {
            for (int x = 0; x < picture.image.width(); ++x) {
                const QColor colour = picture.image.pixelColor(x, y);
                red += colour.red() > 180 && colour.green() < 90 && colour.blue() < 90 ? 1 : 0;
            }
        }
        EXPECT_GT(red, 1000) << picture.fileName.toStdString();
    }
}

TEST_F(CollisionSection, OfTheBuiltInPatientHasAVerdictForEachOf76Pairs)
{
    // 28 pairs of implants, 16 with a nerve, 32 with a pin.
    EXPECT_EQ(builtIn().detailsHtml.count(QStringLiteral(">clear ")), 73);
    EXPECT_EQ(builtIn().detailsHtml.count(QStringLiteral(">collision ")), 3);
}

TEST_F(CollisionSection, OfTheBuiltInPatientSaysWhatCollides)
{
    EXPECT_TRUE(builtIn().plainText.startsWith(QStringLiteral(
        "8 implants, 2 nerves and 4 anchor pins: 3 of 76 pairs collide (32 and pin 3; 33 and 34; 36 and "
        "left nerve).\nImplant 46, pushed deeper in steps of 0.8 mm, collides with the nerve from 3.2 "
        "mm on")));
    EXPECT_TRUE(builtIn().plainText.endsWith(
        QStringLiteral("In 6 steps the detector told its observer of a change once.\n")));
}

TEST_F(CollisionSection, OfACtWithoutKnownNervesSaysSo)
{
    const planner::Section section = sectionOf(planner::Case());
    EXPECT_TRUE(section.pictures.isEmpty());
    EXPECT_TRUE(section.introductionHtml.contains(QStringLiteral("the course of the nerves is not known")));
    EXPECT_TRUE(section.plainText.isEmpty());
}

} // namespace
