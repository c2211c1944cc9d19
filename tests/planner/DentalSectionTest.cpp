// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/report/Sections.h>

// Covered: which pictures the section holds and what it says, with and without landmarks and known
// canals.

#include <tests/planner/GuiTest.h>
#include <tests/planner/SilentProgress.h>

#include <phantom/Phantom.h>

#include <gtest/gtest.h>

#include <algorithm>

using planner::Case;

namespace {

class DentalSection : public test::GuiTest
{
protected:
    // The built-in patient's landmarks in a volume of few voxels.
    static Case patient()
    {
        const phantom::Patient known;
        Case planned;
        planned.volume.image = VexelImage3D({32, 32, 32}, {5, 5, 5}, image::Int16);
        planned.volume.worldFromVoxel.scale(5);
        planned.landmarks = planner::landmarksOf(known);
        planned.canals = planner::canalsOf(known);
        return planned;
    }

    static planner::Section section(const Case& planned)
    {
        test::SilentProgress progress;
        return planner::createDentalSection(planned, progress);
    }

    static QStringList pictures(const planner::Section& made)
    {
        QStringList names;
        for (const auto& picture : made.pictures) {
            EXPECT_FALSE(picture.image.isNull()) << picture.fileName.toStdString();
            names.append(picture.fileName);
        }
        return names;
    }
};

TEST_F(DentalSection, ShowsBothArchesAndBothNervesFromBelowAndFromTheSide)
{
    const auto made = section(patient());
    EXPECT_EQ(pictures(made),
              (QStringList{QStringLiteral("arch-upper.png"), QStringLiteral("arch-lower.png"),
                           QStringLiteral("nerves-axial.png"), QStringLiteral("nerve-right.png"),
                           QStringLiteral("nerve-left.png")}));
    EXPECT_TRUE(made.plainText.contains(QStringLiteral("28 teeth labeled on two arches")));
    EXPECT_TRUE(made.plainText.contains(QStringLiteral("Tooth 30 (FDI 46)")));
    EXPECT_TRUE(made.plainText.contains(QStringLiteral("right nerve: mean")));
    EXPECT_TRUE(made.plainText.contains(QStringLiteral("left nerve: mean")));
}

TEST_F(DentalSection, ListsEveryToothInBothNumberings)
{
    const auto made = section(patient());
    EXPECT_TRUE(made.detailsHtml.contains(QStringLiteral("<td>30</td><td>46</td>")));
    EXPECT_TRUE(made.detailsHtml.contains(QStringLiteral("<td>2</td><td>17</td>")));
    EXPECT_EQ(made.detailsHtml.count(QStringLiteral("<tr>")), 1 + 28 + 1 + 2)
        << "two tables with headings";
}

TEST_F(DentalSection, SaysThatTheCanalsAreNotKnownWhereTheyAreNot)
{
    Case planned = patient();
    planned.canals.clear();
    const auto made = section(planned);
    EXPECT_EQ(made.pictures.size(), 5);
    EXPECT_TRUE(made.plainText.contains(QStringLiteral(
        "Nerves proposed from the foramina. The course of the canals is not known.\n")));
    EXPECT_FALSE(made.detailsHtml.contains(QStringLiteral("mean mm")));
    for (const auto& picture : made.pictures) {
        EXPECT_FALSE(picture.captionHtml.contains(QStringLiteral("otted")))
            << "nothing dotted is drawn";
        EXPECT_FALSE(picture.captionHtml.contains(QStringLiteral("sags")));
    }
}

TEST_F(DentalSection, SaysOfEachSideWhetherItsCanalIsKnown)
{
    Case planned = patient();
    planned.canals.removeIf([](const planner::CanalLine& canal) { return canal.right; });
    const auto made = section(planned);
    EXPECT_TRUE(made.plainText.contains(QStringLiteral("Proposed left nerve: mean")));
    EXPECT_TRUE(
        made.plainText.contains(QStringLiteral("The course of the right canal is not known.\n")));
    const auto caption = [&made](const char* fileName) {
        return std::find_if(made.pictures.cbegin(), made.pictures.cend(),
                            [fileName](const auto& picture) {
                                return picture.fileName == QLatin1String(fileName);
                            })
            ->captionHtml;
    };
    EXPECT_TRUE(caption("nerves-axial.png")
                    .contains(QStringLiteral("known center line. The course of the right")));
    EXPECT_TRUE(caption("nerve-right.png")
                    .contains(QStringLiteral("The course of the canal is not known.")));
    EXPECT_TRUE(
        caption("nerve-left.png").contains(QStringLiteral("The canal (dotted) sags up to")));
}

TEST_F(DentalSection, NeverSaysOfKnownCanalsThatTheyAreNot)
{
    const auto made = section(patient());
    EXPECT_FALSE(made.plainText.contains(QStringLiteral("not known")));
    for (const auto& picture : made.pictures)
        EXPECT_FALSE(picture.captionHtml.contains(QStringLiteral("not known")))
            << picture.fileName.toStdString();
}

TEST_F(DentalSection, SaysWhatIsNeededWhereThereIsNothingToDraw)
{
    Case planned = patient();
    planned.landmarks.clear();
    const auto made = section(planned);
    EXPECT_TRUE(made.pictures.isEmpty());
    EXPECT_TRUE(made.detailsHtml.isEmpty());
    EXPECT_EQ(made.plainText,
              QStringLiteral("No arch is drawn: four tooth landmarks of one jaw are needed.\n"
                             "No nerve is proposed: both foramina of a side are needed.\n"));
}

TEST_F(DentalSection, ShowsTheNerveOfOneSideAlone)
{
    Case planned = patient();
    planned.landmarks.removeIf([](const planner::Landmark& landmark) {
        return landmark.name == QString::fromUtf16(planner::kLeftMentalForamen);
    });
    EXPECT_EQ(pictures(section(planned)).filter(QStringLiteral("nerve")),
              (QStringList{QStringLiteral("nerves-axial.png"), QStringLiteral("nerve-right.png")}));
}

} // namespace
