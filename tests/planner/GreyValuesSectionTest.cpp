// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/report/Sections.h>

// Covered: what the section shows of the built-in patient, of a CT with teeth alone, and what it
// says of others.

#include <tests/planner/GuiTest.h>
#include <tests/planner/SilentProgress.h>

#include <phantom/Phantom.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>

namespace {

using planner::Case;
using planner::Section;

Case builtIn(float voxelSizeMm)
{
    phantom::Settings settings;
    settings.voxelSizeMm = voxelSizeMm;
    Case planned;
    const auto patient = std::make_shared<const phantom::Patient>(settings);
    planned.volume.image = patient->createVolume();
    planned.volume.worldFromVoxel.scale(voxelSizeMm);
    planned.landmarks = planner::landmarksOf(*patient);
    planned.patient = patient;
    return planned;
}

class GreyValuesSection : public test::GuiTest
{
protected:
    static Section create(const Case& planned)
    {
        test::SilentProgress progress;
        return planner::createGreyValuesSection(planned, progress);
    }

    static QStringList files(const Section& section)
    {
        QStringList names;
        for (const planner::SectionPicture& picture : section.pictures) {
            EXPECT_FALSE(picture.image.isNull()) << picture.fileName.toStdString();
            names.append(picture.fileName);
        }
        return names;
    }
};

TEST_F(GreyValuesSection, OfTheBuiltInPatientShowsAllRegionsAndTheTruth)
{
    const Section section = create(builtIn(0.8F));
    EXPECT_EQ(section.id, QStringLiteral("greyvalues"));
    EXPECT_EQ(
        files(section),
        QStringList({QStringLiteral("grey-regions.png"), QStringLiteral("grey-histogram-face.png"),
                     QStringLiteral("grey-histogram-skull.png"),
                     QStringLiteral("grey-histogram-teeth.png"), QStringLiteral("grey-windows.png"),
                     QStringLiteral("grey-drags.png")}));
    EXPECT_TRUE(section.detailsHtml.contains(u"from landmarks"));
    EXPECT_TRUE(section.detailsHtml.contains(u"<td>air -1000</td>"));
    EXPECT_TRUE(section.detailsHtml.contains(u"<td>cortical bone, for the landmarks 1300</td>"));
    EXPECT_TRUE(section.plainText.contains(u"T10"));
    EXPECT_TRUE(section.plainText.contains(u"Transfer"));
}

TEST_F(GreyValuesSection, OfACtWithTeethAloneEstimatesFromThem)
{
    Case planned = builtIn(0.8F);
    planned.patient.reset();
    const Section section = create(planned);
    EXPECT_EQ(
        files(section),
        QStringList({QStringLiteral("grey-regions.png"), QStringLiteral("grey-histogram-teeth.png"),
                     QStringLiteral("grey-windows.png"), QStringLiteral("grey-drags.png")}));
    EXPECT_FALSE(section.detailsHtml.contains(u"from landmarks"));
    EXPECT_FALSE(section.detailsHtml.contains(u"painted"));
    EXPECT_TRUE(section.pictures.first().captionHtml.contains(u"which this CT comes without"));
}

TEST_F(GreyValuesSection, OfACtWithoutLandmarksSaysThatThereIsNoEstimate)
{
    Case planned = builtIn(4.0F);
    planned.patient.reset();
    planned.landmarks.clear();
    const Section section = create(planned);
    EXPECT_EQ(files(section),
              QStringList({QStringLiteral("grey-windows.png"), QStringLiteral("grey-drags.png")}));
    EXPECT_TRUE(
        section.introductionHtml.contains(u"without landmarks of the skull and without teeth"));
    EXPECT_TRUE(section.plainText.contains(u"there is no estimate"));
}

TEST_F(GreyValuesSection, OfVoxelsWithoutPeaksSaysThatThereIsNoEstimate)
{
    Case planned = builtIn(4.0F);
    planned.patient.reset();
    planned.volume.image = VexelImage3D({38, 42, 33}, {4, 4, 4}, image::Float64);
    auto* voxels = static_cast<double*>(planned.volume.image.dataPtr());
    voxels[0] = -1000.0;
    const Section section = create(planned);
    EXPECT_TRUE(section.introductionHtml.contains(u"no two peaks"));
    EXPECT_TRUE(files(section).contains(QStringLiteral("grey-histogram-teeth.png")));
}

TEST_F(GreyValuesSection, OfVoxelsAllAlikeHasNoThresholdsForPulp)
{
    Case planned;
    planned.volume.image = VexelImage3D({6, 6, 6}, {4, 4, 4}, image::Int16);
    planned.volume.worldFromVoxel.scale(4);
    auto* voxels = static_cast<std::int16_t*>(planned.volume.image.dataPtr());
    std::fill_n(voxels, 6 * 6 * 6, std::int16_t(700));
    const Section section = create(planned);
    EXPECT_EQ(files(section),
              QStringList({QStringLiteral("grey-windows.png"), QStringLiteral("grey-drags.png")}));
    for (const QString& text : {section.detailsHtml, section.plainText}) {
        EXPECT_EQ(text.count(u"no range of grey values"), 2) << "before and after the drag";
        EXPECT_FALSE(text.contains(u"nan"));
        EXPECT_FALSE(text.contains(u"inf"));
    }
}

TEST_F(GreyValuesSection, OfALabelMapHasNothingToEstimate)
{
    Case planned;
    planned.volume.image = VexelImage3D({4, 4, 4}, {1, 1, 1}, image::UInt8);
    const Section section = create(planned);
    EXPECT_TRUE(section.pictures.isEmpty());
    EXPECT_TRUE(section.introductionHtml.contains(u"labels, not grey values"));
}

} // namespace
