// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/input/VolumeReaders.h>

// Covered: readMetaImage(): positions, element types, where the voxels may be, and files that are
// no volume.

#include <planner/input/Failure.h>
#include <tests/planner/TextVolumes.h>

#include <gmock/gmock.h>

using planner::readMetaImage;
using planner::Volume;
using textvolumes::countingVoxels;
using textvolumes::metaHeader;

namespace {

class MetaImageReader : public textvolumes::Folder
{
protected:
    Volume read(const QByteArray& header, const QByteArray& voxels = countingVoxels()) const
    {
        put("volume.mha", header + voxels);
        return readMetaImage(path("volume.mha"));
    }

    std::string refusal(const QByteArray& header, const QByteArray& voxels = countingVoxels()) const
    {
        put("volume.mha", header + voxels);
        return refusalBy(readMetaImage, "volume.mha");
    }
};

TEST_F(MetaImageReader, TakesDirectionsOfTheAxesOneAfterTheOther)
{
    const Volume volume = read(metaHeader({{"TransformMatrix", "0 1 0 0 0 1 1 0 0"},
                                           {"ElementSpacing", "0.5 2 3"},
                                           {"Offset", "10 20 30"}}));
    EXPECT_EQ(volume.worldFromVoxel.map(QVector3D(0, 0, 0)), QVector3D(10, 20, 30));
    EXPECT_EQ(volume.worldFromVoxel.map(QVector3D(1, 0, 0)), QVector3D(10, 20.5F, 30));
    EXPECT_EQ(volume.worldFromVoxel.map(QVector3D(0, 1, 0)), QVector3D(10, 20, 32));
    EXPECT_EQ(volume.worldFromVoxel.map(QVector3D(0, 0, 1)), QVector3D(13, 20, 30));
    EXPECT_EQ(volume.image.voxelSize(), QVector3D(0.5F, 2, 3));
    EXPECT_EQ(volume.image.value(1, 1, 1), 7.0);
    EXPECT_TRUE(volume.orientationKnown);
    EXPECT_TRUE(volume.remarks.isEmpty());
}

TEST_F(MetaImageReader, SaysWhenTheOrientationIsUnknown)
{
    const Volume volume = read(metaHeader({{"TransformMatrix", ""}}));
    EXPECT_FALSE(volume.orientationKnown);
    EXPECT_EQ(volume.remarks.size(), 1);
    EXPECT_EQ(volume.worldFromVoxel.map(QVector3D(1, 1, 1)), QVector3D(1, 1, 1));
}

TEST_F(MetaImageReader, ReadsElementTypesOfEitherByteOrder)
{
    using niftifiles::bytesOf;
    EXPECT_EQ(read(metaHeader({{"ElementType", "MET_UCHAR"}}), QByteArray(8, '\xff'))
                  .image.value(0, 0, 0),
              255.0);
    EXPECT_EQ(read(metaHeader({{"ElementType", "MET_USHORT"}, {"ElementByteOrderMSB", "True"}}),
                   QByteArray("\x12\x34", 2).repeated(8))
                  .image.value(1, 1, 1),
              double{0x1234});
    EXPECT_EQ(read(metaHeader({{"ElementType", "MET_FLOAT"}, {"BinaryDataByteOrderMSB", "True"}}),
                   QByteArray("\xbf\x00\x00\x00", 4).repeated(8))
                  .image.value(1, 1, 1),
              -0.5);
    EXPECT_EQ(read(metaHeader({{"ElementType", "MET_DOUBLE"}}),
                   bytesOf<double>({0, 1, 2, 3, 4, 5, 6, 1e-9}))
                  .image.value(1, 1, 1),
              1e-9);
}

TEST_F(MetaImageReader, ReadsCompressedVoxels)
{
    const QByteArray header = metaHeader({{"CompressedData", "True"}});
    const QByteArray compressed = textvolumes::deflated(countingVoxels());
    EXPECT_EQ(read(header, compressed).image.value(1, 1, 1), 7.0);
    for (qsizetype length = 0; length < compressed.size(); ++length)
        EXPECT_NE(refusal(header, compressed.first(length)), "") << length << " bytes";
    QByteArray wrong = compressed;
    wrong.back() = static_cast<char>(wrong.back() ^ 1);
    EXPECT_THAT(refusal(header, wrong), testing::HasSubstr("checksum"));
}

TEST_F(MetaImageReader, ReadsVoxelsFromAFileBesideOrBelowTheHeader)
{
    for (const char* name : {"volume.raw", "below/volume.raw"}) {
        put(name, countingVoxels());
        put("volume.mhd", metaHeader({{"ElementDataFile", name}}));
        EXPECT_EQ(readMetaImage(path("volume.mhd")).image.value(1, 1, 1), 7.0) << name;
    }
    ASSERT_TRUE(niftifiles::writeCompressed(path("volume.raw.gz"), countingVoxels()));
    put("volume.mhd",
        metaHeader({{"CompressedData", "True"}, {"ElementDataFile", "volume.raw.gz"}}));
    EXPECT_EQ(readMetaImage(path("volume.mhd")).image.value(1, 1, 1), 7.0);
}

TEST_F(MetaImageReader, SkipsBytesBeforeTheVoxelsOfAnotherFile)
{
    put("volume.raw", "head" + countingVoxels());
    for (const char* bytes : {"4", "-1"}) {
        put("volume.mhd", metaHeader({{"HeaderSize", bytes}, {"ElementDataFile", "volume.raw"}}));
        EXPECT_EQ(readMetaImage(path("volume.mhd")).image.value(1, 1, 1), 7.0) << bytes;
    }
    for (const char* bytes : {"-2", "21", "9223372036854775807"}) {
        put("volume.mhd", metaHeader({{"HeaderSize", bytes}, {"ElementDataFile", "volume.raw"}}));
        EXPECT_THAT(refusalBy(readMetaImage, "volume.mhd"), testing::HasSubstr("offset")) << bytes;
    }
    put("volume.raw", "head");
    put("volume.mhd", metaHeader({{"HeaderSize", "-1"}, {"ElementDataFile", "volume.raw"}}));
    EXPECT_THAT(refusalBy(readMetaImage, "volume.mhd"), testing::HasSubstr("offset"));
}

TEST_F(MetaImageReader, RefusesVoxelsInAnotherFolder)
{
    put("volume.raw", countingVoxels());
    const QString outside = path("volume.raw");
    put("below/volume.mhd", {});
    ASSERT_TRUE(QFile::link(outside, path("below/link.raw")));
    for (const QString& name :
         {QStringLiteral("../volume.raw"), outside, QStringLiteral("link.raw")}) {
        put("below/volume.mhd", metaHeader({{"ElementDataFile", name.toUtf8()}}));
        EXPECT_THAT(refusalBy(readMetaImage, "below/volume.mhd"),
                    testing::HasSubstr("in another folder"))
            << name.toStdString();
    }
    put("below/volume.mhd", metaHeader({{"ElementDataFile", "volume.raw"}}));
    EXPECT_THAT(refusalBy(readMetaImage, "below/volume.mhd"), testing::HasSubstr("is not there"));
}

TEST_F(MetaImageReader, RefusesWhatIsNoVolumeOfNumbers)
{
    struct Row
    {
        const char* field;
        const char* value; ///< empty: the field is not there
        const char* sentence;
    };
    const Row rows[] = {
        {"ObjectType", "Tube", "not a MetaImage file"},
        {"NDims", "", "not a MetaImage file"},
        {"NDims", "2", "a volume has 3 dimensions, the header says 2"},
        {"NDims", "-3", "a volume has 3 dimensions"},
        {"NDims", "3.5", "should be 1 numbers and is \"3.5\""},
        {"DimSize", "", "number of voxels"},
        {"DimSize", "2 2", "should be 3 numbers"},
        {"DimSize", "2 2 2 2", "should be 3 numbers"},
        {"DimSize", "2 2 -2", "at least 2 voxels"},
        {"DimSize", "2 2 99999999999999999999", "should be 3 numbers"},
        {"DimSize", "5000000000 2 2", "too large"},
        {"DimSize", "400 400 2", "cut off"},
        {"ElementSpacing", "", "no spacing of the voxels"},
        {"ElementSpacing", "1 1 nan", "should be 3 numbers"},
        {"ElementSpacing", "1 1 180", "a voxel edge of 180 mm"},
        {"ElementSpacing", "1 1 0", "orientation matrix"},
        {"Offset", "1e9 0 0", "from the scanner's origin"},
        {"TransformMatrix", "1 0 0 1 0 0 0 0 1", "orientation matrix"},
        {"TransformMatrix", "1 0 0 0 1 0 0 0", "should be 9 numbers"},
        {"ElementType", "MET_LONG_LONG", "MET_LONG_LONG"},
        {"ElementType", "", "not supported"},
        {"ElementNumberOfChannels", "3", "several channels"},
        {"BinaryData", "False", "written as text"},
        {"HeaderSize", "4", "offset"},
        {"ElementDataFile", "LIST", "several files"},
        {"ElementDataFile", "slice%03d.raw 1 9 1", "several files"},
        {"ElementDataFile", "", "does not name the file"},
        {"NDims", "3\nNDims = 3", "two fields \"ndims\""},
    };
    for (const Row& row : rows)
        EXPECT_THAT(refusal(metaHeader({{row.field, row.value}})), testing::HasSubstr(row.sentence))
            << row.field << " = " << row.value;
    EXPECT_THAT(refusal(metaHeader({}), countingVoxels().chopped(1)),
                testing::HasSubstr("cut off"));
    EXPECT_THAT(refusal(metaHeader({}), countingVoxels() + 'x'), testing::HasSubstr("longer"));
    EXPECT_THAT(refusal("Comment = " + QByteArray(70'000, 'x')),
                testing::HasSubstr("does not end within"));
}

} // namespace
