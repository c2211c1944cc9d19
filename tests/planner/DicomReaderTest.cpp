// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/input/VolumeReaders.h>

// Covered: readDicom(): order of slices, geometry, rescaling, frames of one file, the choice of a
// series, and files that make no volume.

#include <planner/input/Failure.h>
#include <tests/planner/DicomFiles.h>

#include <gmock/gmock.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <array>
#include <string>
#include <vector>

using dicomfiles::Frames;
using dicomfiles::Slice;
using planner::readDicom;
using planner::Volume;

namespace {

class DicomReader : public testing::Test
{
protected:
    QString path(const std::string& name) const
    {
        return folder.filePath(QString::fromStdString(name));
    }

    void put(const std::string& name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    void write(const std::string& name, const Slice& slice) const { put(name, bytesOf(slice)); }

    Volume read(const QString& series = {}) const { return readDicom(folder.path(), series); }

    std::string refusal(const QString& series = {}) const
    {
        try {
            read(series);
        } catch (const planner::Failure& failure) {
            return failure.what();
        }
        return {};
    }

    // Three slices of one series and two of another.
    void writeTwoSeries() const
    {
        for (int i = 0; i < 3; ++i)
            write("c" + std::to_string(i), {.series = "1.2.5",
                                            .seriesNumber = "7",
                                            .description = "Soft tissue",
                                            .position = {{0, 0, static_cast<double>(i)}},
                                            .firstValue = 7});
        for (int i = 0; i < 2; ++i)
            write("a" + std::to_string(i), {.series = "1.2.9",
                                            .seriesNumber = "12",
                                            .position = {{0, 0, static_cast<double>(i)}},
                                            .firstValue = 500});
    }

    QTemporaryDir folder;
};

TEST_F(DicomReader, OrdersSlicesByPositionWhateverTheirNames)
{
    write("a.dcm", {.position = {{0, 0, 4}}, .firstValue = 200});
    write("b.dcm", {.position = {{0, 0, 0}}, .firstValue = 0});
    write("c.dcm", {.position = {{0, 0, 2}}, .firstValue = 100});
    const Volume volume = read();
    EXPECT_EQ(volume.image.imageSize(), (math::Ivec3{3, 2, 3}));
    EXPECT_EQ(volume.image.value(0, 0, 0), 0.0);
    EXPECT_EQ(volume.image.value(0, 0, 1), 100.0);
    EXPECT_EQ(volume.image.value(0, 0, 2), 200.0);
    EXPECT_EQ(volume.image.value(2, 1, 2), 205.0);
}

TEST_F(DicomReader, ReadsElementsWithoutTypesAndCompressedPixels)
{
    for (const auto form : {Slice::Untyped, Slice::InRuns}) {
        write("a", {.position = {{0, 0, 0}}, .firstValue = 300, .form = form});
        write("b", {.position = {{0, 0, 1}}, .firstValue = 700, .form = form});
        const Volume volume = read();
        EXPECT_EQ(volume.image.value(0, 0, 0), 300.0);
        EXPECT_EQ(volume.image.value(2, 1, 1), 705.0);
    }
}

TEST_F(DicomReader, TakesPositionsSpacingAndOrientationFromTheTags)
{
    write("a", {.position = {{10, 20, 30}}});
    write("b", {.position = {{10, 20, 32}}});
    const Volume volume = read();
    EXPECT_EQ(volume.image.voxelSize(), QVector3D(0.5F, 0.25F, 2));
    EXPECT_EQ(volume.worldFromVoxel.map(QVector3D(0, 0, 0)), QVector3D(10, 20, 30));
    EXPECT_EQ(volume.worldFromVoxel.map(QVector3D(2, 1, 1)), QVector3D(11, 20.25F, 32));
    EXPECT_TRUE(volume.orientationKnown);
    EXPECT_TRUE(volume.remarks.isEmpty());
}

TEST_F(DicomReader, FollowsACoronalStack)
{
    // Columns to the left, rows to inferior: slices follow each other to posterior.
    const std::array<double, 6> coronal = {1, 0, 0, 0, 0, -1};
    write("a", {.position = {{0, 6, 0}}, .orientation = coronal, .firstValue = 100});
    write("b", {.position = {{0, 5, 0}}, .orientation = coronal});
    const Volume volume = read();
    EXPECT_EQ(volume.image.value(0, 0, 0), 0.0);
    EXPECT_EQ(volume.worldFromVoxel.map(QVector3D(0, 1, 1)), QVector3D(0, 6, -0.25F));
}

TEST_F(DicomReader, RescalesEachSliceByItsOwnTags)
{
    write("a", {.position = {{0, 0, 0}}, .slope = 1, .intercept = -1024, .firstValue = 24});
    write("b", {.position = {{0, 0, 1}}, .slope = 2, .intercept = -1000, .firstValue = 24});
    const Volume volume = read();
    EXPECT_EQ(volume.image.dataType(), image::Int16);
    EXPECT_EQ(volume.image.value(0, 0, 0), -1000.0);
    EXPECT_EQ(volume.image.value(0, 0, 1), -952.0);
    EXPECT_EQ(volume.image.value(1, 0, 1), -950.0);
}

TEST_F(DicomReader, KeepsFractionsOfRescaledValues)
{
    write("a", {.position = {{0, 0, 0}}, .slope = 0.5, .firstValue = 3});
    write("b", {.position = {{0, 0, 1}}, .slope = 0.5, .firstValue = 3});
    const Volume volume = read();
    EXPECT_EQ(volume.image.dataType(), image::Float32);
    EXPECT_EQ(volume.image.value(0, 0, 0), 1.5);
}

TEST_F(DicomReader, DoesNotScaleByASlopeOfZero)
{
    write("a", {.position = {{0, 0, 0}}, .slope = 0, .intercept = -1024, .firstValue = 24});
    write("b", {.position = {{0, 0, 1}}, .slope = 0, .intercept = -1024, .firstValue = 24});
    const Volume volume = read();
    EXPECT_EQ(volume.image.value(0, 0, 0), 24.0);
    EXPECT_EQ(volume.image.value(2, 1, 1), 29.0);
}

TEST_F(DicomReader, ListsSeveralSeriesByTheirNumbers)
{
    writeTwoSeries();
    EXPECT_THAT(refusal(),
                testing::HasSubstr("there are 2 DICOM series; choose one with --series: 1 = \"Soft "
                                   "tissue\" (3 slices, 3 x 2), 2 = \"1.2.9\" (2 slices, 3 x 2)"));
}

TEST_F(DicomReader, TakesTheSeriesThatIsChosenAndSaysSo)
{
    writeTwoSeries();
    EXPECT_EQ(read(QStringLiteral("1")).image.value(0, 0, 0), 7.0);
    const Volume second = read(QStringLiteral("2"));
    EXPECT_EQ(second.image.value(0, 0, 0), 500.0);
    ASSERT_EQ(second.remarks.size(), 1);
    EXPECT_TRUE(second.remarks.first().contains(u"Of 2 DICOM series, \"1.2.9\" with 2 slices"));
    EXPECT_EQ(read(QStringLiteral("1.2.9")).image.value(0, 0, 0), 500.0);
}

TEST_F(DicomReader, RefusesASeriesThatIsNotThere)
{
    writeTwoSeries();
    for (const char* series : {"0", "3", "-1", "1.2", "Soft tissue"})
        EXPECT_THAT(refusal(QString::fromLatin1(series)),
                    testing::HasSubstr("--series takes one of: 1 = "));
}

TEST_F(DicomReader, ReadsSubfolders)
{
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("disc/series")));
    write("a", {.position = {{0, 0, 0}}});
    write("disc/a", {.position = {{0, 0, 1}}});
    write("disc/series/a", {.position = {{0, 0, 2}}});
    EXPECT_EQ(read().image.imageSize().z, 3);
}

TEST_F(DicomReader, LeavesOutASurveyPictureOfTheSameSeries)
{
    write("survey", {.position = {{0, 50, 0}}, .orientation = {{1, 0, 0, 0, 0, -1}}});
    write("a", {.position = {{0, 0, 0}}});
    write("b", {.position = {{0, 0, 1}}});
    EXPECT_EQ(read().image.imageSize().z, 2);
}

TEST_F(DicomReader, IgnoresOtherFiles)
{
    put("readme.txt", "not DICOM");
    put("empty", "");
    put("liar.dcm", QByteArray(128, '\0') + "DICM and nothing else");
    write("a", {.position = {{0, 0, 0}}});
    write("b", {.position = {{0, 0, 1}}});
    EXPECT_EQ(read().image.imageSize().z, 2);
}

TEST_F(DicomReader, AccountsForATiltedGantry)
{
    write("a", {.position = {{0, 0, 0}}});
    write("b", {.position = {{0, 1, 2}}});
    write("c", {.position = {{0, 2, 4}}});
    const Volume volume = read();
    EXPECT_EQ(volume.worldFromVoxel.map(QVector3D(0, 0, 2)), QVector3D(0, 2, 4));
    EXPECT_EQ(volume.remarks.size(), 1);
}

TEST_F(DicomReader, TellsItsProgress)
{
    write("a", {.position = {{0, 0, 0}}});
    write("b", {.position = {{0, 0, 1}}});
    std::vector<double> told;
    readDicom(folder.path(), {}, [&told](double done) { told.push_back(done); });
    EXPECT_EQ(told, (std::vector<double>{0.5, 1.0}));
}

TEST_F(DicomReader, RefusesAFolderWithoutSlices)
{
    put("readme.txt", "not DICOM");
    EXPECT_THAT(refusal(), testing::HasSubstr("no DICOM picture"));
}

TEST_F(DicomReader, RefusesASingleSlice)
{
    write("a", {});
    EXPECT_THAT(refusal(), testing::HasSubstr("no two DICOM slices"));
}

TEST_F(DicomReader, RefusesAMissingSlice)
{
    for (const double z : {0.0, 1.0, 3.0})
        write(std::to_string(z), {.position = {{0, 0, z}}});
    EXPECT_THAT(refusal(), testing::HasSubstr("not evenly spaced"));
}

TEST_F(DicomReader, RefusesTwoSlicesAtOnePlace)
{
    for (const char* name : {"a", "b"})
        write(name, {});
    EXPECT_THAT(refusal(), testing::HasSubstr("same place"));
}

TEST_F(DicomReader, RefusesSlicesOfUnequalSize)
{
    write("a", {.position = {{0, 0, 0}}});
    write("b", {.position = {{0, 0, 1}}, .columns = 5});
    EXPECT_THAT(refusal(), testing::HasSubstr("another size"));
}

TEST_F(DicomReader, RefusesASliceThatIsCutOff)
{
    write("a", {.position = {{0, 0, 0}}});
    write("b", {.position = {{0, 0, 1}}});
    QFile file(folder.filePath(QStringLiteral("b")));
    ASSERT_TRUE(file.resize(file.size() - 6));
    EXPECT_THAT(refusal(), testing::HasSubstr("cut off"));
}

TEST_F(DicomReader, RefusesSlicesOfUnequalSpacing)
{
    write("a", {.position = {{0, 0, 0}}});
    write("b", {.position = {{0, 0, 1}}, .spacing = "0.25\\0.6"});
    EXPECT_THAT(refusal(), testing::HasSubstr("another pixel spacing"));
}

TEST_F(DicomReader, RefusesASliceBesideTheRowOfTheOthers)
{
    for (const double z : {0.0, 1.0, 2.0})
        write(std::to_string(z), {.position = {{z == 1.0 ? 3.0 : 0.0, 0, z}}});
    EXPECT_THAT(refusal(), testing::HasSubstr("straight row"));
}

TEST_F(DicomReader, NamesWhatASliceLacks)
{
    struct Row
    {
        const char* sentence;
        Slice slice;
    };
    const Row rows[] = {
        {"b: it states no usable position", {.position = std::nullopt}},
        {"b: it states no usable orientation", {.orientation = std::nullopt}},
        {"b: its orientation (0020,0037) is not two directions",
         {.orientation = {{1, 0, 0, 1, 0, 0}}}},
        {"b: it states no usable pixel spacing", {.spacing = ""}},
        {"b: it states no usable pixel spacing", {.spacing = "0.5"}},
        {"b: it states no usable pixel spacing", {.spacing = "1e300\\1"}},
        {"b: its pixel spacing (0028,0030) is not positive", {.spacing = "0\\1"}},
        {"b: it holds 5 frames without the position of each", {.frames = "5"}},
    };
    for (const Row& row : rows) {
        write("b", row.slice);
        EXPECT_THAT(refusal(), testing::HasSubstr(row.sentence));
    }
}

TEST_F(DicomReader, SaysWhichPicturesWereLeftOut)
{
    write("a", {.position = {{0, 0, 0}}});
    write("b", {.position = {{0, 0, 1}}});
    write("survey", {.position = std::nullopt});
    const Volume volume = read();
    ASSERT_EQ(volume.remarks.size(), 1);
    EXPECT_TRUE(volume.remarks.first().contains(u"survey: it states no usable position"));
}

TEST_F(DicomReader, RefusesASliceWhosePixelLengthIsDamaged)
{
    write("a", {.position = {{0, 0, 0}}});
    write("b", {.position = {{0, 0, 1}}, .statedPixelBytes = 0x7ffffffe});
    EXPECT_THAT(refusal(),
                testing::HasSubstr(
                    "b: the file is damaged or cut off: its element (7fe0,0010) states 2147483646 "
                    "bytes, 12 are left"));
    write("b", {.position = {{0, 0, 1}}, .statedPixelBytes = 10});
    EXPECT_THAT(refusal(), testing::HasSubstr("its pixels should take 12 bytes and take 10"));
}

TEST_F(DicomReader, RefusesALengthBeyondTheEndInASequence)
{
    // Behind the pixels, where nothing is needed of it.
    const QByteArray nested = dicomfiles::element(0x00081150, "UN", {}, 0x40000000);
    write("a", {.position = {{0, 0, 0}}});
    for (const QByteArray& sequence : {dicomfiles::sequence(0xfffc0010, {nested}),
                                       dicomfiles::sequenceWithMarks(0xfffc0010, {nested})}) {
        write("b", {.position = {{0, 0, 1}}, .behindPixels = sequence});
        EXPECT_THAT(refusal(),
                    testing::HasSubstr("its element (0008,1150) states 1073741824 bytes"));
    }
}

TEST_F(DicomReader, IgnoresPaddingBehindThePixels)
{
    write("a", {.position = {{0, 0, 0}}, .behindPixels = QByteArray(64, '\0')});
    write("b",
          {.position = {{0, 0, 1}}, .behindPixels = dicomfiles::element(0xfffcfffc, "OB", "1234")});
    EXPECT_EQ(read().image.imageSize().z, 2);
}

TEST_F(DicomReader, RefusesSlicesThatNoPatientHas)
{
    write("a", {.position = {{0, 0, 0}}});
    write("b", {.position = {{0, 0, 180}}});
    EXPECT_THAT(refusal(), testing::HasSubstr("a voxel edge of 180 mm"));
    write("a", {.position = {{0, 0, 0}}, .spacing = "0.25\\180"});
    write("b", {.position = {{0, 0, 1}}, .spacing = "0.25\\180"});
    EXPECT_THAT(refusal(), testing::HasSubstr("a voxel edge of 180 mm"));
}

TEST_F(DicomReader, RefusesAFileThatIsCompressedAsAWhole)
{
    put("a", dicomfiles::wholeFile("nothing", "1.2.840.10008.1.2.1.99"));
    EXPECT_THAT(refusal(), testing::HasSubstr("compressed as a whole"));
}

class DicomFrames : public DicomReader
{
protected:
    Volume readFrames(const Frames& frames) const
    {
        put("frames.dcm", bytesOf(frames));
        return readDicom(path("frames.dcm"));
    }
};

TEST_F(DicomFrames, OfAFileAreItsSlices)
{
    for (const bool marks : {false, true}) {
        const Volume volume =
            readFrames({.positions = {{5, 6, 12}, {5, 6, 10}, {5, 6, 8}}, .marks = marks});
        EXPECT_EQ(volume.image.imageSize().z, 3);
        EXPECT_EQ(volume.image.voxelSize(), QVector3D(0.5F, 0.25F, 2));
        EXPECT_EQ(volume.worldFromVoxel.map(QVector3D(0, 0, 0)), QVector3D(5, 6, 8));
        EXPECT_EQ(volume.image.value(0, 0, 0), 200.0);
        EXPECT_EQ(volume.image.value(2, 1, 0), 205.0);
        EXPECT_EQ(volume.image.value(0, 0, 2), 0.0);
    }
}

TEST_F(DicomFrames, AreRescaledEachByItsOwnTags)
{
    const Volume volume = readFrames({.intercepts = {-1000, -2000, -3000}});
    EXPECT_EQ(volume.image.value(0, 0, 0), -1000.0);
    EXPECT_EQ(volume.image.value(0, 0, 1), -1900.0);
    EXPECT_EQ(volume.image.value(0, 0, 2), -2800.0);
}

TEST_F(DicomFrames, AreFoundInAFolder)
{
    put("frames.dcm", bytesOf(Frames()));
    EXPECT_EQ(read().image.value(0, 0, 1), 100.0);
}

TEST_F(DicomFrames, AreRefusedForWhatTheyLack)
{
    put("frames.dcm", bytesOf(Frames{.stated = "4"}));
    EXPECT_THAT(refusal(), testing::HasSubstr("it holds 4 frames and describes 3"));
    put("frames.dcm", bytesOf(Frames{.spacing = ""}));
    EXPECT_THAT(refusal(), testing::HasSubstr("no usable pixel spacing"));
    put("frames.dcm", bytesOf(Frames{.positions = {{0, 0, 0}, {0, 0, 0}, {0, 0, 1}}}));
    EXPECT_THAT(refusal(), testing::HasSubstr("same place"));
}

} // namespace
