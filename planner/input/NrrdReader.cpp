// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/input/VolumeReaders.h>

#include <planner/input/Failure.h>
#include <planner/input/TextHeader.h>
#include <planner/input/VolumeLimits.h>
#include <planner/input/VoxelFile.h>

#include <QFileInfo>
#include <QRegularExpression>
#include <QSysInfo>

#include <array>
#include <cmath>
#include <cstddef>
#include <optional>

namespace planner {

namespace {

struct Type
{
    image::DataType type;
    QList<QByteArray> names;
};

image::DataType elementType(const TextHeader& header)
{
    static const QList<Type> types = {
        {image::Int8, {"signed char", "int8", "int8_t"}},
        {image::UInt8, {"uchar", "unsigned char", "uint8", "uint8_t"}},
        {image::Int16,
         {"short", "short int", "signed short", "signed short int", "int16", "int16_t"}},
        {image::UInt16, {"ushort", "unsigned short", "unsigned short int", "uint16", "uint16_t"}},
        {image::Int32, {"int", "signed int", "int32", "int32_t"}},
        {image::UInt32, {"uint", "unsigned int", "uint32", "uint32_t"}},
        {image::Float32, {"float"}},
        {image::Float64, {"double"}},
    };
    const QByteArray name = header.value({"type"}).value_or(QByteArray()).simplified().toLower();
    for (const Type& known : types) {
        if (known.names.contains(name))
            return known.type;
    }
    throw header.unsupportedType(name);
}

ByteSource::Coding codingOf(const TextHeader& header)
{
    const QByteArray name = header.value({"encoding"}).value_or(QByteArray()).toLower();
    if (name == "raw")
        return ByteSource::Coding::Plain;
    if (name == "gzip" || name == "gz")
        return ByteSource::Coding::Deflated;
    throw Failure(
        header.path(),
        QStringLiteral("the encoding \"%1\" of the voxels is not supported, only raw and gzip")
            .arg(QString::fromLatin1(name.left(40))));
}

bool isSwapped(const TextHeader& header, image::DataType type)
{
    const QByteArray order = header.value({"endian"}).value_or(QByteArray()).toLower();
    if (order != "little" && order != "big" && image::elementSize(type) > 1)
        throw Failure(header.path(),
                      QStringLiteral("the header does not state the order of bytes (endian)"));
    return (order == "big") != (QSysInfo::ByteOrder == QSysInfo::BigEndian);
}

// Where the voxels are and how they are written.
VoxelFile voxelsOf(const TextHeader& header)
{
    const QString& path = header.path();
    VoxelFile voxels;
    voxels.counts = header.voxelCounts("dimension", "sizes");
    voxels.type = elementType(header);
    voxels.swapped = isSwapped(header, voxels.type);
    voxels.coding = codingOf(header);

    const auto name = header.value({"data file", "datafile"});
    if (name && (name->startsWith("LIST") || name->contains('%')))
        throw Failure(path, QStringLiteral("voxels in several files are not supported"));
    voxels.path = name ? header.dataFile(QString::fromUtf8(*name)) : path;
    voxels.start = name ? 0 : header.size();
    const qint64 lines = header.wholeNumber({"line skip", "lineskip"}, 0);
    const qint64 skipped = header.wholeNumber({"byte skip", "byteskip"}, 0);
    const qint64 fileBytes = QFileInfo(voxels.path).size();
    const bool plain = voxels.coding == ByteSource::Coding::Plain;
    if (lines != 0 || (skipped != 0 && !plain))
        throw Failure(
            path, QStringLiteral("lines or compressed bytes before the voxels are not supported"));
    if (skipped == -1)
        voxels.start = fileBytes - voxels.bytes(voxels.type);
    else if (skipped >= 0 && skipped <= fileBytes)
        voxels.start += skipped;
    if (skipped < -1 || skipped > fileBytes || voxels.start < 0 || voxels.start > fileBytes)
        throw Failure(path, QStringLiteral("the header's offset of the voxels makes no sense"));
    return voxels;
}

// Factors from the axes of the header's space to LPS; nothing without a space that is known.
std::optional<std::array<double, 3>> lpsFromSpace(const TextHeader& header)
{
    const QByteArray space = header.value({"space"}).value_or(QByteArray()).toLower();
    if (space == "left-posterior-superior" || space == "lps")
        return std::array{1.0, 1.0, 1.0};
    if (space == "right-anterior-superior" || space == "ras")
        return std::array{-1.0, -1.0, 1.0};
    if (space == "left-anterior-superior" || space == "las")
        return std::array{1.0, -1.0, 1.0};
    return std::nullopt;
}

// Refuses units other than mm; without any, mm are assumed.
void checkUnits(const TextHeader& header)
{
    const QByteArray stated = header.value({"space units", "units"}).value_or(QByteArray());
    for (const QByteArray& unit : QByteArray(stated).replace('"', ' ').simplified().split(' ')) {
        if (!unit.isEmpty() && unit != "mm")
            throw Failure(header.path(), QStringLiteral("the units %1 are not supported, only mm")
                                             .arg(QString::fromLatin1(stated.left(40))));
    }
}

// Vectors of three numbers: "(1,0,0) (0,1,0) (0,0,1)".
std::optional<QList<double>> vectors(const TextHeader& header, const QByteArray& field, int count)
{
    const auto value = header.value({field});
    if (!value)
        return std::nullopt;
    static const QRegularExpression vector(QStringLiteral(R"(\(([^(),]*),([^(),]*),([^(),]*)\))"));
    QString rest = QString::fromLatin1(*value);
    QList<double> numbers;
    bool good = true;
    auto matches = vector.globalMatch(rest);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        for (int i = 1; i <= 3; ++i) {
            bool isNumber = false;
            numbers.append(match.captured(i).trimmed().toDouble(&isNumber));
            good = good && isNumber && std::isfinite(numbers.last());
        }
    }
    if (!good || numbers.size() != qsizetype{3} * count || !rest.remove(vector).trimmed().isEmpty())
        throw Failure(header.path(),
                      QStringLiteral("the header's field \"%1\" should be %2 vectors and is \"%3\"")
                          .arg(QString::fromLatin1(field))
                          .arg(count)
                          .arg(QString::fromLatin1(value->left(60))));
    return numbers;
}

} // namespace

Volume readNrrd(const QString& path)
{
    const TextHeader header(path, ":");
    if (!header.firstLine().startsWith("NRRD000"))
        throw Failure(path, QStringLiteral("this is not an NRRD file"));
    const VoxelFile voxels = voxelsOf(header);
    const auto directions = vectors(header, "space directions", 3);
    const auto spacings = header.numbers({"spacings"}, 3);
    if (!directions && !spacings)
        throw Failure(
            path, QStringLiteral(
                      "the header states no spacing of the voxels (space directions or spacings)"));
    checkUnits(header);
    const auto space = lpsFromSpace(header);
    const auto factors = space.value_or(std::array{1.0, 1.0, 1.0});
    const auto origin = vectors(header, "space origin", 1).value_or(QList<double>{0.0, 0.0, 0.0});

    QMatrix4x4 worldFromVoxel;
    for (int row = 0; row < 3; ++row) {
        const double factor = factors[row];
        for (int axis = 0; axis < 3; ++axis) {
            const double step = directions ? (*directions)[3 * axis + row]
                                           : (axis == row ? (*spacings)[axis] : 0.0);
            worldFromVoxel(row, axis) = static_cast<float>(factor * step);
        }
        worldFromVoxel(row, 3) = static_cast<float>(factor * origin[row]);
    }
    checkGeometry(path, worldFromVoxel, voxels.counts);
    return readVolume(voxels, {}, worldFromVoxel, directions && space,
                      QStringLiteral("NRRD file %1").arg(QFileInfo(path).fileName()));
}

} // namespace planner
