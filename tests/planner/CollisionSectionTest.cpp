// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/report/Sections.h>

// Covered: createCollisionSection(): table, pictures and text of the built-in patient, and of a CT
// whose canals are known, known in part, or not known.

#include <planner/CommandLine.h>
#include <tests/planner/GuiTest.h>
#include <tests/planner/SilentProgress.h>

#include <phantom/Phantom.h>

#include <gtest/gtest.h>

#include <cstdint>
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
    EXPECT_GT(builtIn().pictures[2].image.width(),
              3 * builtIn().pictures[2].image.height()); // a strip
}

TEST_F(CollisionSection, OfTheBuiltInPatientPaintsCollidingObjectsRed)
{
    for (const auto& picture : builtIn().pictures) {
        int red = 0;
        for (int y = 0; y < picture.image.height(); ++y) {
            for (int x = 0; x < picture.image.width(); ++x) {
                const QColor color = picture.image.pixelColor(x, y);
                red += color.red() > 180 && color.green() < 90 && color.blue() < 90 ? 1 : 0;
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
    EXPECT_TRUE(builtIn().plainText.startsWith(
        QStringLiteral("8 implants, 2 nerves and 4 anchor pins: 3 of 76 pairs collide (32 and pin "
                       "3; 33 and 34; 36 and "
                       "left nerve).\nImplant 46, pushed deeper in steps of 0.8 mm, collides with "
                       "the right nerve from 3.2 "
                       "mm on")));
    EXPECT_TRUE(builtIn().plainText.endsWith(
        QStringLiteral("In 6 steps the detector notified its observer of a change once.\n")));
}

// A CT of few voxels with the built-in patient's landmarks and canals, as read from files.
planner::Case readCt()
{
    const phantom::Patient known;
    planner::Case planned;
    planned.volume.image = VexelImage3D({32, 32, 32}, {5, 5, 5}, image::Int16);
    planned.volume.worldFromVoxel.scale(5);
    planned.landmarks = planner::landmarksOf(known);
    planned.canals = planner::canalsOf(known);
    return planned;
}

TEST_F(CollisionSection, OfACtWithoutKnownNervesSaysSo)
{
    planner::Case planned = readCt();
    planned.canals.clear();
    const planner::Section section = sectionOf(planned);
    EXPECT_TRUE(section.pictures.isEmpty());
    EXPECT_TRUE(
        section.introductionHtml.contains(QStringLiteral("the course of the nerves is not known")));
    EXPECT_EQ(section.plainText,
              QStringLiteral("No collisions are tested: the course of the nerves is not known.\n"));
}

TEST_F(CollisionSection, OfACtWithoutAToothToReplaceSaysSo)
{
    planner::Case planned = readCt();
    planned.landmarks.removeIf([](const planner::Landmark& landmark) {
        return landmark.kind == planner::LandmarkKind::Apex;
    });
    const planner::Section section = sectionOf(planned);
    EXPECT_TRUE(section.pictures.isEmpty());
    EXPECT_TRUE(
        section.plainText.contains(QStringLiteral("of neither are crown and apex both known")));
}

TEST_F(CollisionSection, OfACtWithKnownCanalsTestsImplantsAgainstThem)
{
    const planner::Section section = sectionOf(readCt());
    ASSERT_EQ(section.pictures.size(), 3);
    for (const auto& picture : section.pictures)
        EXPECT_FALSE(picture.image.isNull()) << picture.fileName.toStdString();
    EXPECT_TRUE(section.plainText.startsWith(QStringLiteral("2 implants and 2 nerves: ")));
    EXPECT_EQ(section.detailsHtml.count(QStringLiteral(">clear ")) +
                  section.detailsHtml.count(QStringLiteral(">collision ")),
              5)
        << "a pair of implants, four with a nerve";
    EXPECT_FALSE(section.introductionHtml.contains(QStringLiteral("not known")));
    EXPECT_FALSE(section.introductionHtml.contains(QStringLiteral("eight implants")));
    EXPECT_FALSE(section.introductionHtml.contains(QStringLiteral("anchor pin</li>")));
}

TEST_F(CollisionSection, OfACtSaysWhichCanalAndWhichRadiusIsNotKnown)
{
    planner::Case planned = readCt();
    planned.canals.removeFirst();
    planned.canals.first().radiusMm.reset();
    const planner::Section section = sectionOf(planned);
    EXPECT_TRUE(section.plainText.startsWith(QStringLiteral("2 implants and 1 nerve: ")));
    EXPECT_TRUE(section.introductionHtml.contains(QStringLiteral(
        "The course of the right nerve is not known: nothing is tested against it.")));
    EXPECT_TRUE(section.introductionHtml.contains(
        QStringLiteral("The radius of the left canal is not known: 1.2 mm are assumed.")));
}

TEST_F(CollisionSection, OfACtShowsTheBoneWhereTheValuesTellIt)
{
    const auto captionWithValue = [](std::int16_t value) {
        planner::Case planned = readCt();
        *static_cast<std::int16_t*>(planned.volume.image.dataPtr()) = value;
        return sectionOf(planned).pictures.first().captionHtml;
    };
    EXPECT_TRUE(captionWithValue(-1000).contains(QStringLiteral("the bone as glass")))
        << "Hounsfield units";
    EXPECT_TRUE(captionWithValue(5).contains(QStringLiteral("the bone as glass"))) << "labels";
    EXPECT_TRUE(captionWithValue(2000).contains(QStringLiteral("without the bone")))
        << "a scanner's own";
}

// The canals are moved up to the implants, or far below them.
TEST_F(CollisionSection, OfACtTellsWhereTheDragCollides)
{
    const auto textWithCanalsRaisedBy = [](float heightMm) {
        planner::Case planned = readCt();
        for (planner::CanalLine& canal : planned.canals) {
            for (QVector3D& point : canal.points)
                point += QVector3D(0.0F, 0.0F, heightMm);
        }
        return sectionOf(planned).plainText;
    };
    EXPECT_TRUE(textWithCanalsRaisedBy(8.0F).contains(
        QStringLiteral("Implant 46 collides with the right nerve already where it is planned")));
    EXPECT_TRUE(textWithCanalsRaisedBy(-20.0F).contains(QStringLiteral(
        "Implant 46, pushed deeper in steps of 0.8 mm, stays clear of the right nerve")));
}

} // namespace
