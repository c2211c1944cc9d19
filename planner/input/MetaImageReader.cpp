// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/input/VolumeReaders.h>

#include <planner/input/Failure.h>
#include <planner/input/TextHeader.h>
#include <planner/input/VolumeLimits.h>
#include <planner/input/VoxelFile.h>

#include <QFileInfo>
#include <QSysInfo>

#include <array>
#include <cstddef>
#include <optional>
#include <utility>

namespace planner {

namespace {

image::DataType elementType(const TextHeader& header)
{
    static const std::array<std::pair<const char*, image::DataType>, 10> names = {{
        {"MET_CHAR", image::Int8},
        {"MET_UCHAR", image::UInt8},
        {"MET_SHORT", image::Int16},
        {"MET_USHORT", image::UInt16},
        {"MET_INT", image::Int32},
        {"MET_UINT", image::UInt32},
        {"MET_LONG", image::Int32},
        {"MET_ULONG", image::UInt32},
        {"MET_FLOAT", image::Float32},
        {"MET_DOUBLE", image::Float64},
    }};
    const QByteArray name = header.value({"elementtype"}).value_or(QByteArray());
    for (const auto& [known, type] : names) {
        if (name == known)
            return type;
    }
    throw header.unsupportedType(name);
}

bool flag(const TextHeader& header, const QList<QByteArray>& names, bool otherwise)
{
    const auto value = header.value(names);
    return value ? value->startsWith('T') || value->startsWith('t') || value->startsWith('1')
                 : otherwise;
}

// Where the voxels are and how they are written.
VoxelFile voxelsOf(const TextHeader& header)
{
    const QString& path = header.path();
    const std::array<qint64, 3> counts = header.voxelCounts("ndims", "DimSize");
    if (header.wholeNumber({"elementnumberofchannels"}, 1) != 1)
        throw Failure(path, QStringLiteral("voxels of several channels are not supported"));
    if (!flag(header, {"binarydata"}, true))
        throw Failure(path, QStringLiteral("voxels that are written as text are not supported"));

    VoxelFile voxels;
    voxels.counts = counts;
    voxels.type = elementType(header);
    const bool bigEndian = flag(header, {"elementbyteordermsb", "binarydatabyteordermsb"}, false);
    voxels.swapped = bigEndian != (QSysInfo::ByteOrder == QSysInfo::BigEndian);
    const bool compressed = flag(header, {"compresseddata"}, false);
    voxels.coding = compressed ? ByteSource::Coding::Deflated : ByteSource::Coding::Plain;

    const QString name =
        QString::fromUtf8(header.value({"elementdatafile"}).value_or(QByteArray()));
    const bool local = name.compare(QLatin1String("LOCAL"), Qt::CaseInsensitive) == 0;
    if (name.isEmpty())
        throw Failure(
            path,
            QStringLiteral("the header does not name the file with the voxels (ElementDataFile)"));
    if (name.startsWith(QLatin1String("LIST")) || name.contains(u'%'))
        throw Failure(path, QStringLiteral("voxels in several files are not supported"));
    voxels.path = local ? path : header.dataFile(name);
    voxels.start = local ? header.size() : 0;
    const qint64 skipped = header.wholeNumber({"headersize"}, 0);
    const qint64 fileBytes = QFileInfo(voxels.path).size();
    if (skipped == -1 && !local && !compressed)
        voxels.start = fileBytes - voxels.bytes(voxels.type);
    else if (!local)
        voxels.start = skipped;
    if (voxels.start < 0 || voxels.start > fileBytes || (local && skipped > 0))
        throw Failure(path, QStringLiteral("the header's offset of the voxels makes no sense"));
    return voxels;
}

} // namespace

Volume readMetaImage(const QString& path)
{
    const TextHeader header(path, "=", "elementdatafile");
    if (!header.value({"ndims"}) || header.value({"objecttype"}).value_or("Image") != "Image")
        throw Failure(path, QStringLiteral("this is not a MetaImage file"));
    const VoxelFile voxels = voxelsOf(header);
    const auto spacing = header.numbers({"elementspacing", "elementsize"}, 3);
    if (!spacing)
        throw Failure(
            path, QStringLiteral("the header states no spacing of the voxels (ElementSpacing)"));
    const auto directions = header.numbers({"transformmatrix", "rotation", "orientation"}, 9);
    const auto origin =
        header.numbers({"offset", "position", "origin"}, 3).value_or(QList<double>{0.0, 0.0, 0.0});

    QMatrix4x4 worldFromVoxel;
    for (int axis = 0; axis < 3; ++axis) {
        for (int row = 0; row < 3; ++row) { // the directions of the axes, one after the other
            const double direction =
                directions ? (*directions)[3 * axis + row] : (axis == row ? 1.0 : 0.0);
            worldFromVoxel(row, axis) = static_cast<float>(direction * (*spacing)[axis]);
        }
        worldFromVoxel(axis, 3) = static_cast<float>(origin[axis]);
    }
    checkGeometry(path, worldFromVoxel, voxels.counts);
    return readVolume(voxels, {}, worldFromVoxel, directions.has_value(),
                      QStringLiteral("MetaImage file %1").arg(QFileInfo(path).fileName()));
}

} // namespace planner
