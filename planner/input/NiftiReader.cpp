// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/input/VolumeReaders.h>

#include <planner/input/Failure.h>
#include <planner/input/VolumeLimits.h>
#include <planner/input/VoxelFile.h>

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <nifti/nifti1_io.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <optional>

namespace planner {

namespace {

// The voxels lie behind the header and its extensions, of which no file has megabytes.
constexpr qint64 kSmallestOffset = sizeof(nifti_1_header);
constexpr float kLargestOffset = 16'777'216.0F;

struct FreeNifti
{
    void operator()(nifti_image* nifti) const { nifti_image_free(nifti); }
};

std::optional<image::DataType> elementType(int niftiType)
{
    switch (niftiType) {
    case DT_UINT8:
        return image::UInt8;
    case DT_INT8:
        return image::Int8;
    case DT_UINT16:
        return image::UInt16;
    case DT_INT16:
        return image::Int16;
    case DT_UINT32:
        return image::UInt32;
    case DT_INT32:
        return image::Int32;
    case DT_FLOAT32:
        return image::Float32;
    case DT_FLOAT64:
        return image::Float64;
    default:
        return std::nullopt;
    }
}

struct Header
{
    nifti_1_header native{}; ///< in this machine's byte order
    VoxelFile voxels;
};

// Reads and checks the header before the library interprets it, as that prints its own complaints.
Header readHeader(const QString& path)
{
    Header header;
    VoxelFile& voxels = header.voxels;
    voxels.path = path;
    if (path.endsWith(QLatin1String(".gz"), Qt::CaseInsensitive))
        voxels.coding = ByteSource::codingOf(path);
    nifti_1_header& read = header.native;
    const qint64 bytes =
        ByteSource(path, voxels.coding).read(reinterpret_cast<char*>(&read), sizeof read);
    if (bytes == sizeof read && read.sizeof_hdr == qbswap<qint32>(sizeof read)) {
        swap_nifti_header(&read, 1);
        voxels.swapped = true;
    }
    if (bytes < qint64{sizeof read} || read.sizeof_hdr != int{sizeof read} ||
        (std::memcmp(read.magic, "n+1", 4) != 0 && std::memcmp(read.magic, "ni1", 4) != 0))
        throw Failure(path, QStringLiteral("this is not a NIfTI-1 file"));
    if (read.magic[1] == 'i')
        throw Failure(path, QStringLiteral("header and voxels are in two files, which is not "
                                           "supported; make it one .nii file"));
    if (read.dim[0] < 3 || read.dim[0] > 7)
        throw Failure(
            path, QStringLiteral("a volume has 3 dimensions, the header says %1").arg(read.dim[0]));
    voxels.counts = {read.dim[1], read.dim[2], read.dim[3]};
    checkVoxelCounts(path, voxels.counts);
    for (int axis = 4; axis <= read.dim[0]; ++axis) {
        if (read.dim[axis] > 1)
            throw Failure(path, QStringLiteral("this holds more than one volume (%1 along "
                                               "dimension %2), which is not supported")
                                    .arg(read.dim[axis])
                                    .arg(axis));
    }
    if (!(read.vox_offset >= 0.0F && read.vox_offset <= kLargestOffset))
        throw Failure(path, QStringLiteral("the header's offset of the voxels makes no sense"));
    voxels.skip = std::max(kSmallestOffset, static_cast<qint64>(read.vox_offset));
    const auto type = elementType(read.datatype);
    if (!type)
        throw Failure(path, QStringLiteral("voxels of the type %1 are not supported, only integers "
                                           "up to 32 bits and floating-point numbers up to 64 bits")
                                .arg(QString::fromLatin1(nifti_datatype_string(read.datatype))));
    voxels.type = *type;
    return header;
}

float millimetersPerUnit(int unit)
{
    switch (unit) {
    case NIFTI_UNITS_METER:
        return 1000.0F;
    case NIFTI_UNITS_MICRON:
        return 0.001F;
    default: // millimeters, or not stated
        return 1.0F;
    }
}

// Maps voxel indices to LPS mm.
QMatrix4x4 worldFromVoxel(const nifti_image& nifti)
{
    const mat44& ras =
        nifti.sform_code > 0 ? nifti.sto_xyz : nifti.qto_xyz; // without a qform: the bare spacing
    const float scale = millimetersPerUnit(nifti.xyz_units);
    QMatrix4x4 matrix;
    for (int row = 0; row < 3; ++row) {
        const float sign = row < 2 ? -scale : scale; // RAS to LPS
        for (int column = 0; column < 4; ++column)
            matrix(row, column) = sign * ras.m[row][column];
    }
    return matrix;
}

} // namespace

Volume readNifti(const QString& path)
{
    nifti_set_debug_level(0); // its complaints are replaced by sentences
    const Header header = readHeader(path);
    const std::unique_ptr<nifti_image, FreeNifti> nifti(
        nifti_convert_nhdr2nim(header.native, QFile::encodeName(path).constData()));
    if (!nifti)
        throw Failure(path, QStringLiteral("the NIfTI header is damaged"));

    const QMatrix4x4 placement = worldFromVoxel(*nifti);
    checkGeometry(path, placement, header.voxels.counts);
    QString description = QStringLiteral("NIfTI file %1").arg(QFileInfo(path).fileName());
    const QString statement =
        QString::fromUtf8(nifti->descrip, qstrnlen(nifti->descrip, sizeof nifti->descrip))
            .simplified();
    if (!statement.isEmpty())
        description += QStringLiteral(" (\"%1\")").arg(statement);
    return readVolume(header.voxels, usableScaling(nifti->scl_slope, nifti->scl_inter), placement,
                      nifti->sform_code > 0 || nifti->qform_code > 0, description);
}

} // namespace planner
