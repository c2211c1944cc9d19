// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/input/VolumeReaders.h>

// Covered: readNifti(): element types, positions, scaling, and files that are no volume.

#include <planner/input/Failure.h>

#include <tests/planner/NiftiFiles.h>

#include <gmock/gmock.h>

#include <QTemporaryDir>

#include <cmath>
#include <limits>

using niftifiles::bytesOf;
using niftifiles::countingVolume;
using niftifiles::volumeOf;
using planner::readNifti;
using planner::Volume;

namespace {

class NiftiReader : public testing::Test
{
protected:
    QString path(const char* name) const { return folder.filePath(QString::fromLatin1(name)); }

    Volume readBytes(const QByteArray& bytes) const
    {
        EXPECT_TRUE(niftifiles::writeBytes(path("volume.nii"), bytes));
        return readNifti(path("volume.nii"));
    }

    Volume read(const niftifiles::File& file) const { return readBytes(bytesOf(file)); }

    // The sentence with which reading is refused; empty if it is not.
    std::string refusal(const QByteArray& bytes) const
    {
        EXPECT_TRUE(niftifiles::writeBytes(path("volume.nii"), bytes));
        return refusalOf("volume.nii");
    }

    std::string refusalOf(const char* name) const
    {
        try {
            readNifti(path(name));
        } catch (const planner::Failure& failure) {
            return failure.what();
        }
        return {};
    }

    std::string refusal(const niftifiles::File& file) const { return refusal(bytesOf(file)); }

private:
    QTemporaryDir folder;
};

TEST_F(NiftiReader, ReadsEveryElementTypeAsItIs)
{
    struct Row
    {
        QByteArray voxels;
        double last;
        image::DataType expected;
        short niftiType;
        short bits;
    };
    const Row rows[] = {
        {bytesOf<unsigned char>({0, 1, 2, 3, 4, 5, 6, 255}), 255.0, image::UInt8, DT_UINT8, 8},
        {bytesOf<signed char>({0, 1, 2, 3, 4, 5, 6, -128}), -128.0, image::Int8, DT_INT8, 8},
        {bytesOf<unsigned short>({0, 1, 2, 3, 4, 5, 6, 65535}), 65535.0, image::UInt16, DT_UINT16,
         16},
        {bytesOf<short>({0, 1, 2, 3, 4, 5, 6, -32768}), -32768.0, image::Int16, DT_INT16, 16},
        {bytesOf<unsigned>({0, 1, 2, 3, 4, 5, 6, 4294967295U}), 4294967295.0, image::UInt32,
         DT_UINT32, 32},
        {bytesOf<int>({0, 1, 2, 3, 4, 5, 6, -2147483647}), -2147483647.0, image::Int32, DT_INT32,
         32},
        {bytesOf<float>({0, 1, 2, 3, 4, 5, 6, -0.5F}), -0.5, image::Float32, DT_FLOAT32, 32},
        {bytesOf<double>({0, 1, 2, 3, 4, 5, 6, 1e-9}), 1e-9, image::Float64, DT_FLOAT64, 64},
    };
    for (const Row& row : rows) {
        const Volume volume = read(volumeOf(row.niftiType, row.bits, row.voxels));
        EXPECT_EQ(volume.image.dataType(), row.expected);
        EXPECT_EQ(volume.image.value(1, 0, 0), 1.0) << row.expected;
        EXPECT_EQ(volume.image.value(0, 1, 0), 2.0) << row.expected;
        EXPECT_EQ(volume.image.value(0, 0, 1), 4.0) << row.expected;
        EXPECT_EQ(volume.image.value(1, 1, 1), row.last) << row.expected;
    }
}

TEST_F(NiftiReader, ReadsACompressedFileLikeAPlainOne)
{
    ASSERT_TRUE(niftifiles::writeCompressed(path("volume.nii.gz"), bytesOf(countingVolume())));
    EXPECT_EQ(readNifti(path("volume.nii.gz")).image.value(1, 1, 1), 7.0);
}

TEST_F(NiftiReader, ReadsAFileOfTheOtherByteOrder)
{
    // A big-endian file by its parts: every header field that matters, swapped by hand.
    niftifiles::File file = countingVolume();
    const auto swap = [](auto& field) {
        auto* bytes = reinterpret_cast<char*>(&field);
        std::reverse(bytes, bytes + sizeof field);
    };
    swap(file.header.sizeof_hdr);
    for (short& dimension : file.header.dim)
        swap(dimension);
    for (float& spacing : file.header.pixdim)
        swap(spacing);
    swap(file.header.datatype);
    swap(file.header.bitpix);
    swap(file.header.vox_offset);
    swap(file.header.sform_code);
    swap(file.header.srow_x[0]);
    swap(file.header.srow_y[1]);
    swap(file.header.srow_z[2]);
    for (qsizetype i = 0; i < file.voxels.size(); i += 2)
        std::swap(file.voxels[i], file.voxels[i + 1]);
    const Volume volume = read(file);
    EXPECT_EQ(volume.image.value(1, 1, 1), 7.0);
    EXPECT_EQ(volume.worldFromVoxel.map(QVector3D(1, 0, 0)), QVector3D(-1, 0, 0));
}

TEST_F(NiftiReader, TurnsRightToLeftAndAnteriorToPosterior)
{
    niftifiles::File file = countingVolume();
    file.header.srow_x[3] = 10.0F; // mm to the right
    file.header.srow_y[3] = 20.0F; // mm to anterior
    file.header.srow_z[3] = 30.0F; // mm to superior
    const Volume volume = read(file);
    EXPECT_EQ(volume.worldFromVoxel.map(QVector3D(0, 0, 0)), QVector3D(-10, -20, 30));
    EXPECT_EQ(volume.worldFromVoxel.map(QVector3D(1, 0, 0)), QVector3D(-11, -20, 30));
    EXPECT_EQ(volume.worldFromVoxel.map(QVector3D(0, 1, 0)), QVector3D(-10, -21, 30));
    EXPECT_EQ(volume.worldFromVoxel.map(QVector3D(0, 0, 1)), QVector3D(-10, -20, 31));
    EXPECT_TRUE(volume.orientationKnown);
}

TEST_F(NiftiReader, FollowsAnObliqueSform)
{
    niftifiles::File file = countingVolume();
    // Columns: 5 mm along (0.6, 0.8, 0), 2 mm along (0, 0, 1), 10 mm along (0.8, -0.6, 0); origin
    // (1, 2, 3).
    const float rows[3][4] = {
        {3.0F, 0.0F, 8.0F, 1.0F}, {4.0F, 0.0F, -6.0F, 2.0F}, {0.0F, 2.0F, 0.0F, 3.0F}};
    std::memcpy(file.header.srow_x, rows[0], sizeof rows[0]);
    std::memcpy(file.header.srow_y, rows[1], sizeof rows[1]);
    std::memcpy(file.header.srow_z, rows[2], sizeof rows[2]);
    const Volume volume = read(file);
    EXPECT_EQ(volume.worldFromVoxel.map(QVector3D(1, 1, 1)), QVector3D(-12, 0, 5));
    EXPECT_EQ(volume.image.voxelSize(), QVector3D(5, 2, 10));
}

TEST_F(NiftiReader, PrefersTheSformToTheQform)
{
    niftifiles::File file = countingVolume();
    file.header.qform_code = NIFTI_XFORM_SCANNER_ANAT;
    file.header.qoffset_x = 99.0F;
    EXPECT_EQ(read(file).worldFromVoxel.map(QVector3D(0, 0, 0)), QVector3D(0, 0, 0));
}

TEST_F(NiftiReader, TakesTheQformWithoutAnSform)
{
    niftifiles::File file = countingVolume();
    file.header.sform_code = 0;
    file.header.qform_code = NIFTI_XFORM_SCANNER_ANAT;
    file.header.pixdim[0] = 1.0F;
    file.header.pixdim[3] = 2.0F;
    file.header.quatern_d = 1.0F; // half a turn about z
    file.header.qoffset_z = 5.0F;
    const Volume volume = read(file);
    EXPECT_EQ(volume.worldFromVoxel.map(QVector3D(1, 0, 1)), QVector3D(1, 0, 7));
    EXPECT_TRUE(volume.orientationKnown);
}

TEST_F(NiftiReader, SaysWhenTheOrientationIsUnknown)
{
    niftifiles::File file = countingVolume();
    file.header.sform_code = 0;
    file.header.pixdim[1] = 0.5F;
    const Volume volume = read(file);
    EXPECT_FALSE(volume.orientationKnown);
    EXPECT_EQ(volume.image.voxelSize(), QVector3D(0.5F, 1, 1));
    ASSERT_EQ(volume.remarks.size(), 1);
    EXPECT_TRUE(volume.remarks.first().contains(u"orientation"));
}

TEST_F(NiftiReader, ConvertsMetersToMillimeters)
{
    niftifiles::File file = countingVolume();
    file.header.xyzt_units = NIFTI_UNITS_METER;
    file.header.srow_x[0] = file.header.srow_y[1] = file.header.srow_z[2] = 0.0078125F;
    EXPECT_EQ(read(file).image.voxelSize(), QVector3D(7.8125F, 7.8125F, 7.8125F));
}

TEST_F(NiftiReader, ConvertsMicrometersToMillimeters)
{
    niftifiles::File file = countingVolume();
    file.header.xyzt_units = NIFTI_UNITS_MICRON;
    file.header.srow_x[0] = file.header.srow_y[1] = file.header.srow_z[2] = 250.0F;
    EXPECT_EQ(read(file).image.voxelSize(), QVector3D(0.25F, 0.25F, 0.25F));
}

TEST_F(NiftiReader, ScalesToIntegersIfTheseHoldEveryValue)
{
    niftifiles::File file =
        volumeOf(DT_UINT16, 16, bytesOf<unsigned short>({0, 1, 2, 3, 4, 5, 6, 4095}));
    file.header.scl_slope = 1.0F;
    file.header.scl_inter = -1024.0F;
    const Volume volume = read(file);
    EXPECT_EQ(volume.image.dataType(), image::Int16);
    EXPECT_EQ(volume.image.value(0, 0, 0), -1024.0);
    EXPECT_EQ(volume.image.value(1, 1, 1), 3071.0);
}

TEST_F(NiftiReader, ScalesToSinglePrecisionOtherwise)
{
    niftifiles::File file = countingVolume();
    file.header.scl_slope = 0.5F;
    file.header.scl_inter = 0.25F;
    const Volume volume = read(file);
    EXPECT_EQ(volume.image.dataType(), image::Float32);
    EXPECT_EQ(volume.image.value(1, 1, 1), 3.75);
}

TEST_F(NiftiReader, IgnoresASlopeOfZero)
{
    niftifiles::File file = countingVolume();
    file.header.scl_slope = 0.0F;
    file.header.scl_inter = 100.0F;
    EXPECT_EQ(read(file).image.value(1, 1, 1), 7.0);
}

TEST_F(NiftiReader, SkipsHeaderExtensions)
{
    niftifiles::File file = countingVolume();
    file.header.vox_offset = 384.0F;
    QByteArray bytes(reinterpret_cast<const char*>(&file.header), sizeof file.header);
    bytes += QByteArray("\1\0\0\0", 4) + bytesOf<int>({32, 6}) + QByteArray(24, 'x');
    EXPECT_EQ(readBytes(bytes + file.voxels).image.value(1, 1, 1), 7.0);
}

TEST_F(NiftiReader, RefusesVoxelsThatEndEarlyOrLate)
{
    const QByteArray whole = bytesOf(countingVolume());
    EXPECT_THAT(refusal(whole.chopped(1)), testing::HasSubstr("368 bytes, 367 can be read"));
    EXPECT_THAT(refusal(whole + 'x'), testing::HasSubstr("longer than the 368 bytes"));
}

TEST_F(NiftiReader, RefusesEveryBeginningOfAFile)
{
    const QByteArray whole = bytesOf(countingVolume());
    for (qsizetype length = 0; length < whole.size(); ++length)
        EXPECT_NE(refusal(whole.first(length)), "") << length << " bytes";
}

TEST_F(NiftiReader, RefusesEveryBeginningOfACompressedFile)
{
    ASSERT_TRUE(niftifiles::writeCompressed(path("whole.nii.gz"), bytesOf(countingVolume())));
    QFile file(path("whole.nii.gz"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    // The last eight bytes are a checksum and a length, behind the last voxel.
    for (qsizetype length = 0; length < whole.size(); ++length) {
        ASSERT_TRUE(niftifiles::writeBytes(path("part.nii.gz"), whole.first(length)));
        EXPECT_THROW(readNifti(path("part.nii.gz")), planner::Failure) << length << " bytes";
    }
}

TEST_F(NiftiReader, RefusesACompressedFileWithAWrongChecksum)
{
    ASSERT_TRUE(niftifiles::writeCompressed(path("whole.nii.gz"), bytesOf(countingVolume())));
    QFile file(path("whole.nii.gz"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray bytes = file.readAll();
    bytes[bytes.size() - 8] = static_cast<char>(bytes[bytes.size() - 8] ^ 1);
    ASSERT_TRUE(niftifiles::writeBytes(path("wrong.nii.gz"), bytes));
    EXPECT_THAT(refusalOf("wrong.nii.gz"), testing::HasSubstr("checksum"));
}

TEST_F(NiftiReader, ReadsACompressedFileInTwoParts)
{
    const QByteArray whole = bytesOf(countingVolume());
    QByteArray parts;
    for (const QByteArray& part : {whole.first(360), whole.sliced(360)}) {
        ASSERT_TRUE(niftifiles::writeCompressed(path("part.gz"), part));
        QFile file(path("part.gz"));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        parts += file.readAll();
    }
    ASSERT_TRUE(niftifiles::writeBytes(path("parts.nii.gz"), parts));
    EXPECT_EQ(readNifti(path("parts.nii.gz")).image.value(1, 1, 1), 7.0);
}

TEST_F(NiftiReader, RefusesFarMoreVoxelsThanTheFileCanHoldBeforeItLooksForThem)
{
    niftifiles::File file = volumeOf(DT_UINT8, 8, {});
    file.header.dim[1] = file.header.dim[2] = file.header.dim[3] = 500;
    ASSERT_TRUE(niftifiles::writeCompressed(path("bomb.nii.gz"), bytesOf(file)));
    EXPECT_THAT(refusalOf("bomb.nii.gz"), testing::HasSubstr("125 million bytes of voxels"));
}

TEST_F(NiftiReader, RefusesVoxelsThatGrowTooLargeWhenScaled)
{
    niftifiles::File file = volumeOf(DT_UINT8, 8, QByteArray(300 * 300 * 300, '\1'));
    file.header.dim[1] = file.header.dim[2] = file.header.dim[3] = 300;
    file.header.scl_slope = 0.5F;
    ASSERT_TRUE(niftifiles::writeCompressed(path("bomb.nii.gz"), bytesOf(file)));
    EXPECT_THAT(refusalOf("bomb.nii.gz"), testing::HasSubstr("108 million bytes of voxels"));
}

TEST_F(NiftiReader, TakesValuesThatAreNoNumbersForZero)
{
    const float nan = std::nanf("");
    const float infinite = std::numeric_limits<float>::infinity();
    const Volume volume =
        read(volumeOf(DT_FLOAT32, 32, bytesOf<float>({1, 1, 1, 1, 1, nan, infinite, -infinite})));
    EXPECT_EQ(volume.image.value(0, 0, 1), 1.0);
    EXPECT_EQ(volume.image.value(1, 0, 1), 0.0);
    EXPECT_EQ(volume.image.value(0, 1, 1), 0.0);
    EXPECT_EQ(volume.image.value(1, 1, 1), 0.0);
}

TEST_F(NiftiReader, RefusesWhatIsNoVolumeOfNumbers)
{
    struct Row
    {
        const char* what;
        void (*damage)(nifti_1_header&);
        const char* sentence;
    };
    const Row rows[] = {
        {"magic", [](nifti_1_header& h) { h.magic[0] = 'x'; }, "not a NIfTI-1 file"},
        {"header and voxels apart", [](nifti_1_header& h) { h.magic[1] = 'i'; }, "two files"},
        {"two dimensions", [](nifti_1_header& h) { h.dim[0] = 2; }, "a volume has 3 dimensions"},
        {"no voxels", [](nifti_1_header& h) { h.dim[3] = 0; }, "the header says 2 x 2 x 0"},
        {"fewer than none", [](nifti_1_header& h) { h.dim[1] = -2; }, "the header says -2 x 2 x 2"},
        {"frames",
         [](nifti_1_header& h) {
             h.dim[0] = 4;
             h.dim[4] = 2;
         },
         "more than one volume"},
        {"complex", [](nifti_1_header& h) { h.datatype = DT_COMPLEX64; }, "COMPLEX64"},
        {"color", [](nifti_1_header& h) { h.datatype = DT_RGBA32; }, "RGBA32"},
        {"64-bit integers", [](nifti_1_header& h) { h.datatype = DT_INT64; }, "INT64"},
        {"no type at all", [](nifti_1_header& h) { h.datatype = 12345; }, "not supported"},
        {"singular matrix", [](nifti_1_header& h) { h.srow_z[2] = 0.0F; }, "orientation matrix"},
        {"matrix of NaN", [](nifti_1_header& h) { h.srow_x[3] = std::nanf(""); },
         "orientation matrix"},
        {"axes in one plane", [](nifti_1_header& h) { h.srow_x[2] = 200.0F; },
         "a voxel edge of 200.0"},
        {"axes nearly in one plane",
         [](nifti_1_header& h) {
             h.srow_x[2] = 9.0F;
             h.srow_z[2] = 0.05F;
         },
         "orientation matrix"},
        {"no offset", [](nifti_1_header& h) { h.vox_offset = std::nanf(""); }, "offset"},
        {"offset behind every file", [](nifti_1_header& h) { h.vox_offset = 2e7F; }, "offset"},
        {"an axis that is too long", [](nifti_1_header& h) { h.dim[1] = 4097; },
         "up to 4096 along"},
        {"too many voxels", [](nifti_1_header& h) { h.dim[1] = h.dim[2] = h.dim[3] = 1025; },
         "too large"},
        {"far more than there is", [](nifti_1_header& h) { h.dim[1] = h.dim[2] = 400; }, "cut off"},
        {"meters", [](nifti_1_header& h) { h.xyzt_units = NIFTI_UNITS_METER; },
         "a voxel edge of 1000 mm"},
        {"micrometers", [](nifti_1_header& h) { h.xyzt_units = NIFTI_UNITS_MICRON; },
         "a voxel edge of 0.001 mm"},
        {"a giant",
         [](nifti_1_header& h) {
             h.dim[3] = 126;
             h.srow_z[2] = 8.0F;
         },
         "an extent of 1008 mm"},
        {"far away", [](nifti_1_header& h) { h.srow_y[3] = -10001.0F; }, "at 10001 mm from"},
    };
    for (const Row& row : rows) {
        niftifiles::File file = countingVolume();
        row.damage(file.header);
        EXPECT_THAT(refusal(file), testing::HasSubstr(row.sentence)) << row.what;
    }
}

} // namespace
