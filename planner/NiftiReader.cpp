// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/NiftiReader.h>

#include <planner/Elements.h>
#include <planner/Failure.h>

#include <QFile>
#include <QFileInfo>

#include <nifti/nifti1_io.h>
#include <zlib.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace planner {

namespace {

struct FreeNifti
{
    void operator()(nifti_image* nifti) const { nifti_image_free(nifti); }
    void operator()(nifti_1_header* header) const { std::free(header); }
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

// Reads and checks the header before the library interprets it, as that prints its own complaints.
image::DataType checkHeader(const QString& path)
{
    int swapped = 0;
    const std::unique_ptr<nifti_1_header, FreeNifti> header(
        nifti_read_header(QFile::encodeName(path).constData(), &swapped, 0));
    if (!header || (std::memcmp(header->magic, "n+1", 4) != 0 && std::memcmp(header->magic, "ni1", 4) != 0) ||
        header->sizeof_hdr != 348)
        throw Failure(path, QStringLiteral("this is not a NIfTI-1 file"));
    if (header->magic[1] == 'i')
        throw Failure(
            path, QStringLiteral(
                      "header and voxels are in two files, which is not supported; make it one .nii file"));
    if (header->dim[0] < 3 || header->dim[0] > 7)
        throw Failure(path,
                      QStringLiteral("a volume has 3 dimensions, the header says %1").arg(header->dim[0]));
    for (int axis = 1; axis <= 3; ++axis) {
        if (header->dim[axis] < 2)
            throw Failure(
                path,
                QStringLiteral("a volume has at least 2 voxels along each axis, the header says %1 x %2 x %3")
                    .arg(header->dim[1])
                    .arg(header->dim[2])
                    .arg(header->dim[3]));
    }
    for (int axis = 4; axis <= header->dim[0]; ++axis) {
        if (header->dim[axis] > 1)
            throw Failure(
                path, QStringLiteral(
                          "this holds more than one volume (%1 along dimension %2), which is not supported")
                          .arg(header->dim[axis])
                          .arg(axis));
    }
    if (!std::isfinite(header->vox_offset) || header->vox_offset < 0.0F || header->vox_offset > 1e9F)
        throw Failure(path, QStringLiteral("the header's offset of the voxels makes no sense"));
    const auto type = elementType(header->datatype);
    if (!type)
        throw Failure(
            path, QStringLiteral("voxels of the type %1 are not supported, only integers up to 32 bits and "
                                 "floating-point numbers up to 64 bits")
                      .arg(QString::fromLatin1(nifti_datatype_string(header->datatype))));
    return *type;
}

// Refuses a file whose voxels end before or after the place that the header announces; reads all of it.
void checkLength(const QString& path, qint64 expectedBytes)
{
    // gzopen() reads files that are not compressed as they are.
    const gzFile file = gzopen(QFile::encodeName(path).constData(), "rb");
    if (!file)
        throw Failure(path, QStringLiteral("the file cannot be read"));
    std::vector<char> buffer(1 << 20);
    qint64 bytes = 0;
    int count = 0;
    while (bytes <= expectedBytes &&
           (count = gzread(file, buffer.data(), static_cast<unsigned>(buffer.size()))) > 0)
        bytes += count;
    gzclose(file);
    if (count < 0 || bytes < expectedBytes)
        throw Failure(
            path,
            QStringLiteral("the file is damaged or cut off: the header announces %1 bytes, %2 can be read")
                .arg(expectedBytes)
                .arg(bytes));
    if (bytes > expectedBytes)
        throw Failure(path, QStringLiteral("the file is longer than the %1 bytes that its header announces")
                                .arg(expectedBytes));
}

float millimetresPerUnit(int unit)
{
    switch (unit) {
    case NIFTI_UNITS_METER:
        return 1000.0F;
    case NIFTI_UNITS_MICRON:
        return 0.001F;
    default: // millimetres, or not stated
        return 1.0F;
    }
}

// From voxel index to LPS mm.
QMatrix4x4 worldFromVoxel(const nifti_image& nifti)
{
    const mat44& ras =
        nifti.sform_code > 0 ? nifti.sto_xyz : nifti.qto_xyz; // without a qform: the bare spacing
    const float scale = millimetresPerUnit(nifti.xyz_units);
    QMatrix4x4 matrix;
    for (int row = 0; row < 3; ++row) {
        const float sign = row < 2 ? -scale : scale; // RAS to LPS
        for (int column = 0; column < 4; ++column)
            matrix(row, column) = sign * ras.m[row][column];
    }
    return matrix;
}

QVector3D spacing(const QMatrix4x4& matrix)
{
    return {matrix.column(0).toVector3D().length(), matrix.column(1).toVector3D().length(),
            matrix.column(2).toVector3D().length()};
}

void checkMatrix(const QString& path, const QMatrix4x4& matrix)
{
    bool usable = std::isfinite(matrix.determinant()) && std::abs(matrix.determinant()) > 1e-12;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 4; ++column)
            usable = usable && std::isfinite(matrix(row, column)) && std::abs(matrix(row, column)) < 1e6F;
    }
    if (!usable)
        throw Failure(path, QStringLiteral("the header's orientation matrix is not usable"));
}

template <typename Target>
void copyScaled(const VexelImage3D& from, VexelImage3D& to, const Scaling& scaling)
{
    visitElementType(from.dataType(), [&](auto zero) {
        const auto* source = static_cast<const decltype(zero)*>(from.dataPtr());
        auto* target = static_cast<Target*>(to.dataPtr());
        for (std::size_t i = 0; i < from.voxelCount(); ++i)
            target[i] = static_cast<Target>(scaling.scaled(static_cast<double>(source[i])));
    });
}

VexelImage3D scaled(VexelImage3D original, const Scaling& scaling)
{
    // As the format says: a slope of 0 means that values are not scaled.
    if (!std::isfinite(scaling.slope) || !std::isfinite(scaling.intercept) || scaling.slope == 0.0 ||
        (scaling.slope == 1.0 && scaling.intercept == 0.0))
        return original;
    const math::Range<float> range = original.getValueRange();
    const image::DataType type = scaledType(scaling, original.dataType(), static_cast<double>(range.min),
                                            static_cast<double>(range.max));
    VexelImage3D result(original.imageSize(), original.voxelSize(), type);
    if (result.isEmpty())
        return result;
    if (type == image::Int16)
        copyScaled<std::int16_t>(original, result, scaling);
    else
        copyScaled<float>(original, result, scaling);
    return result;
}

} // namespace

Volume readNifti(const QString& path)
{
    nifti_set_debug_level(0); // its complaints are replaced by sentences
    const image::DataType type = checkHeader(path);
    const std::unique_ptr<nifti_image, FreeNifti> nifti(
        nifti_image_read(QFile::encodeName(path).constData(), 0));
    if (!nifti)
        throw Failure(path, QStringLiteral("the NIfTI header is damaged"));
    const qint64 voxelBytes = qint64{nifti->nx} * nifti->ny * nifti->nz * nifti->nbyper;
    checkLength(path, qint64{nifti->iname_offset} + voxelBytes);

    Volume volume;
    volume.worldFromVoxel = worldFromVoxel(*nifti);
    checkMatrix(path, volume.worldFromVoxel);
    volume.image = VexelImage3D({nifti->nx, nifti->ny, nifti->nz}, spacing(volume.worldFromVoxel), type);
    if (volume.image.isEmpty())
        throw Failure(path, QStringLiteral("there is not enough memory for its voxels"));
    if (nifti_image_load(nifti.get()) != 0)
        throw Failure(path, QStringLiteral("the voxels cannot be read"));
    std::memcpy(volume.image.dataPtr(), nifti->data, static_cast<std::size_t>(voxelBytes));
    nifti_image_unload(nifti.get());
    volume.image = scaled(std::move(volume.image),
                          {static_cast<double>(nifti->scl_slope), static_cast<double>(nifti->scl_inter)});
    if (volume.image.isEmpty())
        throw Failure(path, QStringLiteral("there is not enough memory for its scaled voxels"));

    volume.orientationKnown = nifti->sform_code > 0 || nifti->qform_code > 0;
    volume.description = QStringLiteral("NIfTI file %1").arg(QFileInfo(path).fileName());
    const QString statement =
        QString::fromUtf8(nifti->descrip, qstrnlen(nifti->descrip, sizeof nifti->descrip)).simplified();
    if (!statement.isEmpty())
        volume.description += QStringLiteral(" (\"%1\")").arg(statement);
    if (!volume.orientationKnown)
        volume.remarks.append(
            QStringLiteral("The file does not state its orientation: right and left, front and back are "
                           "assumed, not known."));
    return volume;
}

} // namespace planner
