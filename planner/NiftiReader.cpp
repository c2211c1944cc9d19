// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/NiftiReader.h>

#include <planner/ByteSource.h>
#include <planner/Elements.h>
#include <planner/Failure.h>
#include <planner/VolumeLimits.h>

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <nifti/nifti1_io.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <memory>
#include <optional>
#include <type_traits>
#include <vector>

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

template <typename Element>
bool isNoNumber(Element value)
{
    if constexpr (std::is_floating_point_v<Element>)
        return !std::isfinite(value);
    else
        return false;
}

struct Header
{
    nifti_1_header native{}; ///< in this machine's byte order
    bool swapped = false;    ///< the file is in the other one
    image::DataType type = image::UInt8;
    std::array<qint64, 3> counts{};
    qint64 offset = 0; ///< of the voxels
};

ByteSource sourceOf(const QString& path)
{
    const bool mayBeCompressed = path.endsWith(QLatin1String(".gz"), Qt::CaseInsensitive);
    return {path, mayBeCompressed ? ByteSource::codingOf(path) : ByteSource::Coding::Plain};
}

// Reads and checks the header before the library interprets it, as that prints its own complaints.
Header readHeader(const QString& path)
{
    Header header;
    nifti_1_header& read = header.native;
    const qint64 bytes = sourceOf(path).read(reinterpret_cast<char*>(&read), sizeof read);
    if (bytes == sizeof read && read.sizeof_hdr == qbswap<qint32>(sizeof read)) {
        swap_nifti_header(&read, 1);
        header.swapped = true;
    }
    if (bytes < qint64{sizeof read} || read.sizeof_hdr != int{sizeof read} ||
        (std::memcmp(read.magic, "n+1", 4) != 0 && std::memcmp(read.magic, "ni1", 4) != 0))
        throw Failure(path, QStringLiteral("this is not a NIfTI-1 file"));
    if (read.magic[1] == 'i')
        throw Failure(
            path, QStringLiteral(
                      "header and voxels are in two files, which is not supported; make it one .nii file"));
    if (read.dim[0] < 3 || read.dim[0] > 7)
        throw Failure(path, QStringLiteral("a volume has 3 dimensions, the header says %1").arg(read.dim[0]));
    header.counts = {read.dim[1], read.dim[2], read.dim[3]};
    checkVoxelCounts(path, header.counts);
    for (int axis = 4; axis <= read.dim[0]; ++axis) {
        if (read.dim[axis] > 1)
            throw Failure(
                path, QStringLiteral(
                          "this holds more than one volume (%1 along dimension %2), which is not supported")
                          .arg(read.dim[axis])
                          .arg(axis));
    }
    if (!(read.vox_offset >= 0.0F && read.vox_offset <= kLargestOffset))
        throw Failure(path, QStringLiteral("the header's offset of the voxels makes no sense"));
    header.offset = std::max(kSmallestOffset, static_cast<qint64>(read.vox_offset));
    const auto type = elementType(read.datatype);
    if (!type)
        throw Failure(
            path, QStringLiteral("voxels of the type %1 are not supported, only integers up to 32 bits and "
                                 "floating-point numbers up to 64 bits")
                      .arg(QString::fromLatin1(nifti_datatype_string(read.datatype))));
    header.type = *type;
    return header;
}

// Calls the visitor with the voxels as the file holds them, in this machine's byte order, some at a time, and with the
// index of the first of them. Refuses a file whose voxels end before or after the place that the header announces, or
// whose compressed bytes do not have the checksum that they should.
template <typename Visitor>
void visitVoxels(const QString& path, const Header& header, const Visitor& visitor)
{
    const std::size_t size = image::elementSize(header.type);
    const std::size_t voxels =
        static_cast<std::size_t>(header.counts[0] * header.counts[1] * header.counts[2]);
    const qint64 expected = header.offset + static_cast<qint64>(voxels * size);
    ByteSource source = sourceOf(path);
    std::vector<char> chunk(std::size_t{1} << 17);
    qint64 bytes = 0;
    const auto read = [&](qint64 count) {
        const qint64 done = source.read(chunk.data(), count);
        bytes += done;
        if (done < count)
            throw Failure(path,
                          QStringLiteral("the file is damaged or cut off: the header announces %1 bytes, "
                                         "%2 can be read")
                              .arg(expected)
                              .arg(bytes));
    };
    while (bytes < header.offset)
        read(std::min(static_cast<qint64>(chunk.size()), header.offset - bytes));
    for (std::size_t done = 0; done < voxels;) {
        const std::size_t count = std::min(chunk.size() / size, voxels - done);
        read(static_cast<qint64>(count * size));
        if (header.swapped && size > 1)
            nifti_swap_Nbytes(count, static_cast<int>(size), chunk.data());
        visitElementType(header.type, [&](auto zero) {
            auto* elements = reinterpret_cast<decltype(zero)*>(chunk.data());
            std::replace_if(elements, elements + count, isNoNumber<decltype(zero)>, zero);
            visitor(elements, count, done);
        });
        done += count;
    }
    char more = 0;
    if (source.read(&more, 1) > 0)
        throw Failure(
            path,
            QStringLiteral("the file is longer than the %1 bytes that its header announces").arg(expected));
    if (!source.endsHere())
        throw Failure(path,
                      QStringLiteral("the file is damaged or cut off: its checksum is wrong or missing"));
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

// The type of the voxels in memory: the file's, unless they are scaled.
image::DataType storedType(const QString& path, const Header& header, const Scaling& scaling)
{
    if (scaling.isIdentity())
        return header.type;
    double smallest = std::numeric_limits<double>::max();
    double largest = std::numeric_limits<double>::lowest();
    visitVoxels(path, header, [&](const auto* elements, std::size_t count, std::size_t) {
        const auto [low, high] = std::minmax_element(elements, elements + count);
        smallest = std::min(smallest, static_cast<double>(*low));
        largest = std::max(largest, static_cast<double>(*high));
    });
    return scaledType(scaling, header.type, smallest, largest);
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

    Volume volume;
    volume.worldFromVoxel = worldFromVoxel(*nifti);
    checkGeometry(path, volume.worldFromVoxel, header.counts);
    const qint64 voxels = header.counts[0] * header.counts[1] * header.counts[2];
    const auto checkBytes = [&](image::DataType type) {
        checkExpansion(path, voxels * static_cast<qint64>(image::elementSize(type)), QFileInfo(path).size());
    };
    checkBytes(header.type);
    const Scaling scaling =
        usableScaling(static_cast<double>(nifti->scl_slope), static_cast<double>(nifti->scl_inter));
    const image::DataType type = storedType(path, header, scaling);
    checkBytes(type);
    volume.image = VexelImage3D({nifti->nx, nifti->ny, nifti->nz}, spacing(volume.worldFromVoxel), type);
    if (volume.image.isEmpty())
        throw Failure(path, QStringLiteral("there is not enough memory for its voxels"));
    visitVoxels(path, header, [&](const auto* elements, std::size_t count, std::size_t first) {
        storeScaled(elements, count, scaling, volume.image, first);
    });

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
