// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/report/Sections.h>

// Covered: the section on jaw scans, with the built-in patient and without, and the surface of the
// crowns.

#include <planner/planning/JawScans.h>
#include <tests/planner/GuiTest.h>
#include <tests/planner/SilentProgress.h>

#include <phantom/Phantom.h>

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <memory>

namespace {

using ScansSection = test::GuiTest;

TEST_F(ScansSection, WithoutThePatientSaysThatThereAreNoScansAndShowsNothing)
{
    test::SilentProgress progress;
    const planner::Section section = planner::createScansSection(planner::Case(), progress);
    EXPECT_TRUE(
        section.introductionHtml.contains(QStringLiteral("The planner reads no surface scans")));
    EXPECT_TRUE(section.pictures.isEmpty());
    EXPECT_TRUE(section.detailsHtml.isEmpty());
    EXPECT_EQ(section.plainText,
              QStringLiteral("The planner reads no surface scans: none was aligned.\n"));
}

TEST_F(ScansSection, TakesTheScanThroughAllPlacementsAndIntoTheBite)
{
    planner::Case planned;
    planned.patient = std::make_shared<const phantom::Patient>();
    test::SilentProgress progress;
    const planner::Section section = planner::createScansSection(planned, progress);
    ASSERT_EQ(section.pictures.size(), 3);
    for (const planner::SectionPicture& picture : section.pictures)
        EXPECT_FALSE(picture.image.isNull()) << picture.fileName.toStdString();
    // Every line of the table: placement, deviation, distance from the crowns.
    const QRegularExpression line(QStringLiteral("^(.+?) +\\S+ +([0-9.]+) +([0-9.]+)$"));
    QStringList placements;
    for (const QString& text : section.plainText.split(u'\n').mid(1)) {
        const auto match = line.match(text);
        if (!match.hasMatch())
            continue;
        placements << match.captured(1);
        EXPECT_LT(match.captured(2).toDouble(), 0.005) << text.toStdString();
        const bool atHome = match.captured(1).startsWith(QStringLiteral("registration"));
        EXPECT_EQ(match.captured(3).toDouble() < 0.005, atHome) << text.toStdString();
    }
    EXPECT_EQ(placements, QStringList({"as scanned", "imported", "freehand", "registration",
                                       "freehand again", "initial", "registration again",
                                       "as scanned again", "registration, at last"}));
    EXPECT_TRUE(section.pictures[2].captionHtml.contains(QStringLiteral("20.000 mm")));
}

TEST(CrownScan, LiesOnTheBorderOfItsOwnTeethAndFacesOutwards)
{
    const phantom::Patient patient;
    const auto toothOf = [&patient](const QVector3D& place, ToothChart::ArchType arch) {
        const ToothChart::Tooth tooth = patient.toothAt(place);
        return tooth != ToothChart::NoTooth && ToothChart::getArchTypeOfTooth(tooth) == arch;
    };
    for (const auto arch : {ToothChart::UpperArch, ToothChart::LowerArch}) {
        const geometry::Mesh mesh = planner::scanCrowns(patient, arch);
        const QList<QVector3D>& vertices = mesh.getVertices();
        const QList<int>& indices = mesh.getIndices();
        ASSERT_GT(vertices.size(), 10000);
        int triangles = 0;
        int facingOutwards = 0;
        for (qsizetype t = 0; t + 3 < indices.size(); t += 4) {
            for (int corner = 0; corner < 3; ++corner)
                ASSERT_TRUE(indices[t + corner] >= 0 && indices[t + corner] < vertices.size());
            const QVector3D& a = vertices[indices[t]];
            const QVector3D& b = vertices[indices[t + 1]];
            const QVector3D& c = vertices[indices[t + 2]];
            const QVector3D normal = QVector3D::crossProduct(b - a, c - a).normalized();
            const QVector3D middle = (a + b + c) / 3.0F;
            ++triangles;
            facingOutwards +=
                toothOf(middle - normal * 0.8F, arch) && !toothOf(middle + normal * 0.8F, arch) ? 1
                                                                                                : 0;
        }
        // Fissures and the gaps between neighbours are narrower than the probe.
        EXPECT_GT(facingOutwards, triangles * 4 / 5) << "arch " << arch;
    }
}

} // namespace
