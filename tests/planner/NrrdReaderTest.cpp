// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/input/VolumeReaders.h>

// Covered: readNrrd(): spaces and positions, element types, where the voxels may be, and files that
// are no volume.

#include <planner/input/Failure.h>
#include <tests/planner/TextVolumes.h>

#include <gmock/gmock.h>

using planner::readNrrd;
using planner::Volume;
using textvolumes::countingVoxels;
using textvolumes::nrrdHeader;

namespace {

class NrrdReader : public textvolumes::Folder
{
protected:
    Volume read(const QByteArray& header, const QByteArray& voxels = countingVoxels()) const
    {
        put("volume.nrrd", header + voxels);
        return readNrrd(path("volume.nrrd"));
    }

    std::string refusal(const QByteArray& header, const QByteArray& voxels = countingVoxels()) const
    {
        put("volume.nrrd", header + voxels);
        return refusalBy(readNrrd, "volume.nrrd");
    }
};

TEST_F(NrrdReader, TakesDirectionsAndOriginOfItsSpaceToLps)
{
    struct Row
    {
        const char* space;
        QVector3D origin;
        QVector3D second; ///< a step along the second axis
    };
    const Row rows[] = {
        {"left-posterior-superior", {10, 20, 30}, {1, 2, 3}},
        {"LPS", {10, 20, 30}, {1, 2, 3}},
        {"right-anterior-superior", {-10, -20, 30}, {-1, -2, 3}},
        {"RAS", {-10, -20, 30}, {-1, -2, 3}},
        {"left-anterior-superior", {10, -20, 30}, {1, -2, 3}},
    };
    for (const Row& row : rows) {
        const Volume volume = read(nrrdHeader({{"space", row.space},
                                               {"space directions", "(0,0,2) (1, 2, 3) (3,0,0)"},
                                               {"space origin", "(10,20,30)"}}));
        EXPECT_EQ(volume.worldFromVoxel.map(QVector3D(0, 0, 0)), row.origin) << row.space;
        EXPECT_EQ(volume.worldFromVoxel.map(QVector3D(0, 1, 0)), row.origin + row.second)
            << row.space;
        EXPECT_TRUE(volume.orientationKnown) << row.space;
        EXPECT_EQ(volume.image.value(1, 1, 1), 7.0);
    }
}

TEST_F(NrrdReader, SaysWhenTheOrientationIsUnknown)
{
    for (const char* space : {"", "scanner-xyz"}) {
        const Volume volume = read(nrrdHeader({{"space", space}}));
        EXPECT_FALSE(volume.orientationKnown) << space;
        EXPECT_EQ(volume.remarks.size(), 1);
    }
    const Volume volume = read(nrrdHeader({{"space directions", ""}, {"spacings", "1 2 3"}}));
    EXPECT_FALSE(volume.orientationKnown);
    EXPECT_EQ(volume.image.voxelSize(), QVector3D(1, 2, 3));
}

TEST_F(NrrdReader, ReadsElementTypesOfEitherByteOrder)
{
    EXPECT_EQ(read(nrrdHeader({{"type", "unsigned char"}, {"endian", ""}}), QByteArray(8, '\xff'))
                  .image.value(0, 0, 0),
              255.0);
    EXPECT_EQ(read(nrrdHeader({{"type", "uint16"}, {"endian", "big"}}),
                   QByteArray("\x12\x34", 2).repeated(8))
                  .image.value(1, 1, 1),
              double{0x1234});
    EXPECT_EQ(read(nrrdHeader({{"type", "float"}}),
                   niftifiles::bytesOf<float>({0, 1, 2, 3, 4, 5, 6, -0.5F}))
                  .image.value(1, 1, 1),
              -0.5);
}

TEST_F(NrrdReader, ReadsCompressedVoxels)
{
    const QByteArray header = nrrdHeader({{"encoding", "gzip"}});
    ASSERT_TRUE(niftifiles::writeCompressed(path("voxels.gz"), countingVoxels()));
    QFile file(path("voxels.gz"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray compressed = file.readAll();
    EXPECT_EQ(read(header, compressed).image.value(1, 1, 1), 7.0);
    for (qsizetype length = 0; length < compressed.size(); ++length)
        EXPECT_NE(refusal(header, compressed.first(length)), "") << length << " bytes";
    put("volume.nhdr", nrrdHeader({{"encoding", "gzip"}, {"data file", "voxels.gz"}}));
    EXPECT_EQ(readNrrd(path("volume.nhdr")).image.value(1, 1, 1), 7.0);
}

TEST_F(NrrdReader, ReadsVoxelsFromAFileBesideOrBelowTheHeader)
{
    for (const char* name : {"volume.raw", "below/volume.raw"}) {
        put(name, countingVoxels());
        put("volume.nhdr", nrrdHeader({{"data file", name}}));
        EXPECT_EQ(readNrrd(path("volume.nhdr")).image.value(1, 1, 1), 7.0) << name;
        put("volume.nhdr", nrrdHeader({{"data file", name}}).chopped(1)); // without the empty line
        EXPECT_EQ(readNrrd(path("volume.nhdr")).image.value(1, 1, 1), 7.0) << name;
    }
    put("below/volume.nhdr", nrrdHeader({{"data file", "../volume.raw"}}));
    EXPECT_THAT(refusalBy(readNrrd, "below/volume.nhdr"), testing::HasSubstr("in another folder"));
}

TEST_F(NrrdReader, SkipsBytesBeforeTheVoxels)
{
    EXPECT_EQ(
        read(nrrdHeader({{"byte skip", "4"}}), "head" + countingVoxels()).image.value(1, 1, 1),
        7.0);
    EXPECT_EQ(
        read(nrrdHeader({{"byte skip", "-1"}}), "head" + countingVoxels()).image.value(1, 1, 1),
        7.0);
    for (const char* bytes : {"-2", "9223372036854775807"})
        EXPECT_THAT(refusal(nrrdHeader({{"byte skip", bytes}})), testing::HasSubstr("offset"))
            << bytes;
    EXPECT_THAT(refusal(nrrdHeader({{"byte skip", "4"}, {"encoding", "gzip"}})),
                testing::HasSubstr("before the voxels"));
}

TEST_F(NrrdReader, IgnoresCommentsAndKeys)
{
    EXPECT_EQ(read(nrrdHeader({{"content", "a head\n# type: nothing\nsizes:=9 9 9"}}))
                  .image.value(1, 1, 1),
              7.0);
}

TEST_F(NrrdReader, RefusesWhatIsNoVolumeOfNumbers)
{
    struct Row
    {
        const char* field;
        const char* value; ///< empty: the field is not there
        const char* sentence;
    };
    const Row rows[] = {
        {"dimension", "4", "a volume has 3 dimensions, the header says 4"},
        {"dimension", "", "a volume has 3 dimensions"},
        {"sizes", "", "number of voxels"},
        {"sizes", "2 2", "should be 3 numbers"},
        {"sizes", "2 2 -2", "at least 2 voxels"},
        {"sizes", "5000000000 2 2", "too large"},
        {"sizes", "400 400 2", "cut off"},
        {"type", "block", "\"block\" are not supported"},
        {"type", "int64", "\"int64\" are not supported"},
        {"encoding", "bzip2", "\"bzip2\" of the voxels is not supported"},
        {"encoding", "ascii", "not supported"},
        {"encoding", "", "not supported"},
        {"endian", "", "order of bytes"},
        {"space directions", "", "no spacing of the voxels"},
        {"space directions", "none (1,0,0) (0,1,0)", "should be 3 vectors"},
        {"space directions", "(1,0,0) (0,1,0) (0,0,x)", "should be 3 vectors"},
        {"space directions", "(1,0,0) (0,1,0) (0,0,nan)", "should be 3 vectors"},
        {"space directions", "(1,0,0) (0,1,0) (0,0,180)", "a voxel edge of 180 mm"},
        {"space directions", "(1,0,0) (0,1,0) (0,1,0)", "orientation matrix"},
        {"space origin", "(1,2)", "should be 1 vectors"},
        {"space origin", "(1e9,0,0)", "from the scanner's origin"},
        {"space units", "\"mm\" \"mm\" \"m\"", "only mm"},
        {"line skip", "1", "not supported"},
        {"data file", "LIST", "several files"},
        {"data file", "slice%03d.raw 1 9 1", "several files"},
        {"data file", "nowhere.raw", "is not there"},
    };
    for (const Row& row : rows)
        EXPECT_THAT(refusal(nrrdHeader({{row.field, row.value}})), testing::HasSubstr(row.sentence))
            << row.field << ": " << row.value;
    EXPECT_THAT(refusal("NRRX0004\n\n"), testing::HasSubstr("not an NRRD file"));
    EXPECT_THAT(refusal(nrrdHeader({}), countingVoxels().chopped(1)),
                testing::HasSubstr("cut off"));
    EXPECT_THAT(refusal(nrrdHeader({}), countingVoxels() + 'x'), testing::HasSubstr("longer"));
}

} // namespace
