// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/DicomReader.h>

// Covered: readDicomFolder(): order of slices, geometry, rescaling, and folders that make no volume.

#include <planner/Failure.h>

#include <gmock/gmock.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gdcmPixmapWriter.h>
#include <gdcmTrace.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

using planner::readDicomFolder;
using planner::Volume;

namespace {

struct SliceFile
{
    std::string name;
    std::string series = "1.2.3.4";
    std::array<double, 3> position = {0.0, 0.0, 0.0};
    std::array<double, 6> orientation = {1.0, 0.0, 0.0, 0.0, 1.0, 0.0};
    double slope = 1.0;
    double intercept = 0.0;
    unsigned columns = 3;
    std::uint16_t firstValue = 0; ///< the others count on from it
};

void setText(gdcm::DataSet& dataSet, const gdcm::Tag& tag, const gdcm::VR& vr, std::string text)
{
    if (text.size() % 2 != 0)
        text += vr == gdcm::VR::UI ? '\0' : ' ';
    gdcm::DataElement element(tag);
    element.SetVR(vr);
    element.SetByteValue(text.data(), static_cast<std::uint32_t>(text.size()));
    dataSet.Replace(element);
}

template <std::size_t count>
std::string decimals(const std::array<double, count>& numbers)
{
    std::string text;
    for (const double number : numbers)
        text += (text.empty() ? "" : "\\") + QByteArray::number(number).toStdString();
    return text;
}

// 2 rows of `columns` pixels, 12 bits stored; columns 0.5 mm and rows 0.25 mm apart.
bool writeSlice(const QString& folder, const SliceFile& slice)
{
    gdcm::PixmapWriter writer;
    gdcm::Pixmap& image = writer.GetPixmap();
    image.SetNumberOfDimensions(2);
    image.SetDimension(0, slice.columns);
    image.SetDimension(1, 2);
    gdcm::PixelFormat format(gdcm::PixelFormat::UINT16);
    format.SetBitsStored(12);
    image.SetPixelFormat(format);
    image.SetPhotometricInterpretation(gdcm::PhotometricInterpretation::MONOCHROME2);
    image.SetTransferSyntax(gdcm::TransferSyntax::ExplicitVRLittleEndian);
    std::vector<std::uint16_t> pixels;
    for (unsigned i = 0; i < slice.columns * 2; ++i)
        pixels.push_back(static_cast<std::uint16_t>(slice.firstValue + i));
    gdcm::DataElement pixelData(gdcm::Tag(0x7fe0, 0x0010));
    pixelData.SetByteValue(reinterpret_cast<const char*>(pixels.data()),
                           static_cast<std::uint32_t>(pixels.size() * 2));
    image.SetDataElement(pixelData);

    gdcm::DataSet& dataSet = writer.GetFile().GetDataSet();
    setText(dataSet, gdcm::Tag(0x0008, 0x0016), gdcm::VR::UI, "1.2.840.10008.5.1.4.1.1.2"); // CT image
    setText(dataSet, gdcm::Tag(0x0020, 0x000e), gdcm::VR::UI, slice.series);
    setText(dataSet, gdcm::Tag(0x0020, 0x0032), gdcm::VR::DS, decimals(slice.position));
    setText(dataSet, gdcm::Tag(0x0020, 0x0037), gdcm::VR::DS, decimals(slice.orientation));
    setText(dataSet, gdcm::Tag(0x0028, 0x0030), gdcm::VR::DS, "0.25\\0.5"); // rows, columns
    setText(dataSet, gdcm::Tag(0x0028, 0x1052), gdcm::VR::DS, decimals(std::array{slice.intercept}));
    setText(dataSet, gdcm::Tag(0x0028, 0x1053), gdcm::VR::DS, decimals(std::array{slice.slope}));
    writer.SetFileName(
        QFile::encodeName(QDir(folder).filePath(QString::fromStdString(slice.name))).constData());
    return writer.Write();
}

class DicomReader : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        gdcm::Trace::WarningOff();
        gdcm::Trace::ErrorOff();
    }

    void write(const SliceFile& slice) { ASSERT_TRUE(writeSlice(folder.path(), slice)); }

    void put(const char* name, const QByteArray& bytes)
    {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    std::string refusal() const
    {
        try {
            readDicomFolder(folder.path());
        } catch (const planner::Failure& failure) {
            return failure.what();
        }
        return {};
    }

    QTemporaryDir folder;
};

TEST_F(DicomReader, OrdersSlicesByPositionWhateverTheirNames)
{
    write({.name = "a.dcm", .position = {0, 0, 4}, .firstValue = 200});
    write({.name = "b.dcm", .position = {0, 0, 0}, .firstValue = 0});
    write({.name = "c.dcm", .position = {0, 0, 2}, .firstValue = 100});
    const Volume volume = readDicomFolder(folder.path());
    EXPECT_EQ(volume.image.imageSize(), (math::Ivec3{3, 2, 3}));
    EXPECT_EQ(volume.image.value(0, 0, 0), 0.0);
    EXPECT_EQ(volume.image.value(0, 0, 1), 100.0);
    EXPECT_EQ(volume.image.value(0, 0, 2), 200.0);
    EXPECT_EQ(volume.image.value(2, 1, 2), 205.0);
}

TEST_F(DicomReader, TakesPositionsSpacingAndOrientationFromTheTags)
{
    write({.name = "a", .position = {10, 20, 30}});
    write({.name = "b", .position = {10, 20, 32}});
    const Volume volume = readDicomFolder(folder.path());
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
    write({.name = "a", .position = {0, 6, 0}, .orientation = coronal, .firstValue = 100});
    write({.name = "b", .position = {0, 5, 0}, .orientation = coronal});
    const Volume volume = readDicomFolder(folder.path());
    EXPECT_EQ(volume.image.value(0, 0, 0), 0.0);
    EXPECT_EQ(volume.worldFromVoxel.map(QVector3D(0, 1, 1)), QVector3D(0, 6, -0.25F));
}

TEST_F(DicomReader, RescalesEachSliceByItsOwnTags)
{
    write({.name = "a", .position = {0, 0, 0}, .slope = 1, .intercept = -1024, .firstValue = 24});
    write({.name = "b", .position = {0, 0, 1}, .slope = 2, .intercept = -1000, .firstValue = 24});
    const Volume volume = readDicomFolder(folder.path());
    EXPECT_EQ(volume.image.dataType(), image::Int16);
    EXPECT_EQ(volume.image.value(0, 0, 0), -1000.0);
    EXPECT_EQ(volume.image.value(0, 0, 1), -952.0);
    EXPECT_EQ(volume.image.value(1, 0, 1), -950.0);
}

TEST_F(DicomReader, KeepsFractionsOfRescaledValues)
{
    write({.name = "a", .position = {0, 0, 0}, .slope = 0.5, .firstValue = 3});
    write({.name = "b", .position = {0, 0, 1}, .slope = 0.5, .firstValue = 3});
    const Volume volume = readDicomFolder(folder.path());
    EXPECT_EQ(volume.image.dataType(), image::Float32);
    EXPECT_EQ(volume.image.value(0, 0, 0), 1.5);
}

TEST_F(DicomReader, TakesTheLargestSeriesAndSaysSo)
{
    write({.name = "a", .series = "1.2.9", .position = {0, 0, 0}, .firstValue = 500});
    write({.name = "b", .series = "1.2.9", .position = {0, 0, 1}, .firstValue = 500});
    for (int i = 0; i < 3; ++i)
        write({.name = "c" + std::to_string(i),
               .series = "1.2.5",
               .position = {0, 0, static_cast<double>(i)},
               .firstValue = 7});
    const Volume volume = readDicomFolder(folder.path());
    EXPECT_EQ(volume.image.imageSize().z, 3);
    EXPECT_EQ(volume.image.value(0, 0, 0), 7.0);
    ASSERT_EQ(volume.remarks.size(), 1);
    EXPECT_TRUE(volume.remarks.first().contains(u"2 DICOM series"));
}

TEST_F(DicomReader, LeavesOutASurveyPictureOfTheSameSeries)
{
    write({.name = "survey", .position = {0, 50, 0}, .orientation = {1, 0, 0, 0, 0, -1}});
    write({.name = "a", .position = {0, 0, 0}});
    write({.name = "b", .position = {0, 0, 1}});
    EXPECT_EQ(readDicomFolder(folder.path()).image.imageSize().z, 2);
}

TEST_F(DicomReader, PassesOverOtherFiles)
{
    put("readme.txt", "not DICOM");
    put("empty", "");
    put("liar.dcm", QByteArray(128, '\0') + "DICM and nothing else");
    write({.name = "a", .position = {0, 0, 0}});
    write({.name = "b", .position = {0, 0, 1}});
    EXPECT_EQ(readDicomFolder(folder.path()).image.imageSize().z, 2);
}

TEST_F(DicomReader, AccountsForATiltedGantry)
{
    write({.name = "a", .position = {0, 0, 0}});
    write({.name = "b", .position = {0, 1, 2}});
    write({.name = "c", .position = {0, 2, 4}});
    const Volume volume = readDicomFolder(folder.path());
    EXPECT_EQ(volume.worldFromVoxel.map(QVector3D(0, 0, 2)), QVector3D(0, 2, 4));
    EXPECT_EQ(volume.remarks.size(), 1);
}

TEST_F(DicomReader, TellsItsProgress)
{
    write({.name = "a", .position = {0, 0, 0}});
    write({.name = "b", .position = {0, 0, 1}});
    std::vector<double> told;
    readDicomFolder(folder.path(), [&told](double done) { told.push_back(done); });
    EXPECT_EQ(told, (std::vector<double>{0.5, 1.0}));
}

TEST_F(DicomReader, RefusesAFolderWithoutSlices)
{
    put("readme.txt", "not DICOM");
    EXPECT_THAT(refusal(), testing::HasSubstr("no DICOM slice"));
}

TEST_F(DicomReader, RefusesASingleSlice)
{
    write({.name = "a"});
    EXPECT_THAT(refusal(), testing::HasSubstr("no two DICOM slices"));
}

TEST_F(DicomReader, RefusesAMissingSlice)
{
    for (const double z : {0.0, 1.0, 3.0})
        write({.name = std::to_string(z), .position = {0, 0, z}});
    EXPECT_THAT(refusal(), testing::HasSubstr("not evenly spaced"));
}

TEST_F(DicomReader, RefusesTwoSlicesAtOnePlace)
{
    for (const char* name : {"a", "b"})
        write({.name = name});
    EXPECT_THAT(refusal(), testing::HasSubstr("same place"));
}

TEST_F(DicomReader, RefusesSlicesOfUnequalSize)
{
    write({.name = "a", .position = {0, 0, 0}});
    write({.name = "b", .position = {0, 0, 1}, .columns = 5});
    EXPECT_THAT(refusal(), testing::HasSubstr("another size"));
}

TEST_F(DicomReader, RefusesASliceThatIsCutOff)
{
    write({.name = "a", .position = {0, 0, 0}});
    write({.name = "b", .position = {0, 0, 1}});
    QFile file(folder.filePath(QStringLiteral("b")));
    ASSERT_TRUE(file.resize(file.size() - 6));
    EXPECT_THAT(refusal(), testing::HasSubstr("cut off"));
}

TEST_F(DicomReader, NeverFailsOtherwiseThanWithASentence)
{
    write({.name = "a", .position = {0, 0, 0}});
    write({.name = "b", .position = {0, 0, 1}});
    QFile file(folder.filePath(QStringLiteral("b")));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    unsigned seed = 1;
    for (int round = 0; round < 30; ++round) {
        QByteArray damaged = whole;
        for (int i = 0; i < 3; ++i) {
            seed = seed * 1664525U + 1013904223U;
            damaged[static_cast<qsizetype>((seed >> 8U) % static_cast<unsigned>(whole.size()))] =
                static_cast<char>(seed >> 24U);
        }
        put("b", damaged);
        try {
            readDicomFolder(folder.path());
        } catch (const planner::Failure& failure) {
            EXPECT_STRNE(failure.what(), "") << "round " << round;
        }
    }
}

} // namespace
