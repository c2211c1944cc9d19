// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT

// Covered: all readers of volumes on small files that are damaged at random: each of them is
// loaded, within the limits for volumes, or refused with a sentence, and memory stays bounded. The
// seed that a failure names makes the same file on every machine.

#include <planner/input/Failure.h>
#include <planner/input/VolumeLimits.h>
#include <planner/input/VolumeReaders.h>
#include <tests/planner/DicomFiles.h>
#include <tests/planner/TextVolumes.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <exception>
#include <functional>
#include <random>

#include <sys/resource.h>
#include <unistd.h>

using planner::Volume;

namespace {

// How much more memory the process may reserve than it has when the files are read. The address
// sanitizer keeps freed memory for a while, and memory of its own for each byte.
#ifdef __SANITIZE_ADDRESS__
constexpr rlim_t kMemoryBytes = 3'000'000'000;
#else
constexpr rlim_t kMemoryBytes = 300'000'000;
#endif

// Lets the process reserve no more than that as long as the object lives.
class MemoryLimit
{
public:
    MemoryLimit()
    {
        getrlimit(RLIMIT_AS, &before);
        QFile statistics(QStringLiteral("/proc/self/statm"));
        if (!statistics.open(QIODevice::ReadOnly))
            return;
        rlimit limit = before;
        limit.rlim_cur = statistics.readLine().split(' ').first().toULongLong() *
                             static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) +
                         kMemoryBytes;
        setrlimit(RLIMIT_AS, &limit);
    }
    ~MemoryLimit() { setrlimit(RLIMIT_AS, &before); }
    MemoryLimit(const MemoryLimit&) = delete;
    MemoryLimit& operator=(const MemoryLimit&) = delete;

private:
    rlimit before{};
};

// Numbers that headers do not expect.
const QList<QByteArray> kOddNumbers = {"0",          "-1",    "3",
                                       "65535",      "99999", "4294967295",
                                       "2147483648", "1e300", "-99999999999",
                                       "nan",        "1e-30", "1000000000000000000000"};

QByteArray damaged(QByteArray bytes, unsigned seed)
{
    std::mt19937 random(seed);
    const auto below = [&random](qsizetype end) {
        return static_cast<qsizetype>(random() % static_cast<std::mt19937::result_type>(end));
    };
    for (qsizetype changes = 1 + below(4); changes > 0 && !bytes.isEmpty(); --changes) {
        const qsizetype at = below(bytes.size());
        switch (below(7)) {
        case 0:
            bytes[at] = static_cast<char>(random());
            break;
        case 1:
            bytes[at] = static_cast<char>(bytes[at] ^ (1 << below(8)));
            break;
        case 2:
            bytes[at] = static_cast<char>(below(2) == 0 ? 0xff : 0x7f);
            break;
        case 3: // a number of 32 bits
            bytes.replace(at, 4, dicomfiles::littleEndian(static_cast<std::uint32_t>(random())));
            break;
        case 4:
            bytes.truncate(at);
            break;
        case 5:
            bytes.remove(at, 1 + below(8));
            break;
        default: { // one of the numbers in a text
            qsizetype digit = at;
            while (digit < bytes.size() && !(bytes[digit] >= '0' && bytes[digit] <= '9'))
                ++digit;
            bytes.replace(digit, 1, kOddNumbers[below(kOddNumbers.size())]);
        }
        }
    }
    return bytes;
}

class DamagedFiles : public textvolumes::Folder
{
protected:
    // Reads `count` damaged versions of the file, and expects that both outcomes occur.
    void readAll(const char* name, const QByteArray& good, unsigned count,
                 const std::function<Volume()>& read)
    {
        put(name, good);
        ASSERT_NO_THROW(read()) << "the good file";
        unsigned loaded = 0;
        const MemoryLimit limit;
        for (unsigned seed = 1; seed <= count; ++seed) {
            put(name, damaged(good, seed));
            SCOPED_TRACE(std::string(name) + ", seed " + std::to_string(seed));
            try {
                expectPlausible(read());
                ++loaded;
            } catch (const planner::Failure& failure) {
                EXPECT_STRNE(failure.what(), "");
                EXPECT_THAT(failure.what(), testing::Not(testing::HasSubstr("memory")));
            } catch (const std::exception& error) {
                ADD_FAILURE() << error.what();
            }
        }
        EXPECT_GT(loaded, 0U);
        EXPECT_LT(loaded, count);
    }

    static void expectPlausible(const Volume& volume)
    {
        const math::Ivec3 size = volume.image.imageSize();
        const std::array<int, 3> counts = {size.x, size.y, size.z};
        for (int axis = 0; axis < 3; ++axis) {
            const auto count = static_cast<double>(counts[static_cast<std::size_t>(axis)]);
            const auto voxelMm =
                static_cast<double>(volume.worldFromVoxel.column(axis).toVector3D().length());
            EXPECT_GE(count, 2.0);
            EXPECT_LE(count, static_cast<double>(planner::kMostVoxelsAlongAxis));
            EXPECT_GE(voxelMm, planner::kSmallestVoxelMm);
            EXPECT_LE(voxelMm * count, planner::kLargestExtentMm);
        }
        EXPECT_LE(static_cast<qint64>(volume.image.voxelCount()), planner::kFreeVoxelBytes);
        EXPECT_TRUE(volume.worldFromVoxel.isIdentity() ||
                    volume.worldFromVoxel.inverted() != QMatrix4x4());
    }
};

TEST_F(DamagedFiles, OfNiftiAreLoadedOrRefused)
{
    const QByteArray good = niftifiles::bytesOf(niftifiles::countingVolume());
    readAll("a.nii", good, 1200, [this] { return planner::readNifti(path("a.nii")); });
    niftifiles::File scaled = niftifiles::countingVolume();
    scaled.header.scl_slope = 0.5F;
    readAll("b.nii", niftifiles::bytesOf(scaled), 400,
            [this] { return planner::readNifti(path("b.nii")); });
    ASSERT_TRUE(niftifiles::writeCompressed(path("c.nii.gz"), good));
    QFile file(path("c.nii.gz"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    readAll("c.nii.gz", file.readAll(), 400,
            [this] { return planner::readNifti(path("c.nii.gz")); });
}

TEST_F(DamagedFiles, OfMetaImageAndNrrdAreLoadedOrRefused)
{
    using textvolumes::countingVoxels;
    readAll("a.mha", textvolumes::metaHeader({}) + countingVoxels(), 600,
            [this] { return planner::readMetaImage(path("a.mha")); });
    readAll("b.mha",
            textvolumes::metaHeader({{"CompressedData", "True"}}) +
                textvolumes::deflated(countingVoxels()),
            400, [this] { return planner::readMetaImage(path("b.mha")); });
    readAll("c.nrrd", textvolumes::nrrdHeader({}) + countingVoxels(), 600,
            [this] { return planner::readNrrd(path("c.nrrd")); });
}

TEST_F(DamagedFiles, OfDicomAreLoadedOrRefused)
{
    using dicomfiles::Slice;
    for (const auto form : {Slice::Typed, Slice::Untyped, Slice::InRuns}) {
        for (int k = 0; k < 2; ++k)
            put(k == 0 ? "dicom/a" : "dicom/b",
                bytesOf(Slice{.position = {{0.0, 0.0, static_cast<double>(k)}}, .form = form}));
        readAll("dicom/c", bytesOf(Slice{.position = {{0.0, 0.0, 2.0}}, .form = form}), 400,
                [this] { return planner::readDicom(path("dicom")); });
    }
    for (const bool marks : {false, true})
        readAll("frames.dcm", bytesOf(dicomfiles::Frames{.marks = marks}), 400,
                [this] { return planner::readDicom(path("frames.dcm")); });
}

} // namespace
