// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/input/DicomSlices.h>

#include <planner/input/DicomStructure.h>
#include <planner/input/Rehearsal.h>
#include <planner/input/VolumeLimits.h>

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QMap>

#include <gdcmByteValue.h>
#include <gdcmReader.h>
#include <gdcmSequenceOfItems.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <exception>
#include <optional>
#include <sstream>
#include <tuple>
#include <utility>

namespace planner {

namespace {

// How exact unit lengths and right angles are; the tags are written with 4 to 6 digits.
constexpr double kOrientationTolerance = 1e-3;
constexpr double kLargestNumber = 1e9; // of a tag; what follows is in single precision
// What the tags of a file may take in memory: a multiple of the file, and what libraries take
// anyway.
constexpr qint64 kMemoryPerByte = 8;
constexpr qint64 kMemoryAnyway = 64'000'000;

const gdcm::Tag kPosition(0x0020, 0x0032);
const gdcm::Tag kOrientation(0x0020, 0x0037);
const gdcm::Tag kSpacing(0x0028, 0x0030);
const gdcm::Tag kIntercept(0x0028, 0x1052);
const gdcm::Tag kSlope(0x0028, 0x1053);
const gdcm::Tag kFrames(0x0028, 0x0008);
const gdcm::Tag kSeries(0x0020, 0x000e);
// Files with several frames have sequences that hold one item for all frames, and one for each of
// them. Their items hold sequences of one item each, for each subject.
const gdcm::Tag kShared(0x5200, 0x9229);
const gdcm::Tag kPerFrame(0x5200, 0x9230);
const gdcm::Tag kPlanePosition(0x0020, 0x9113);
const gdcm::Tag kPlaneOrientation(0x0020, 0x9116);
const gdcm::Tag kPixelMeasures(0x0028, 0x9110);
const gdcm::Tag kPixelValues(0x0028, 0x9145);

// Why a picture is no slice of a volume.
struct NoSlice
{
    QString reason;
};

QByteArray text(const gdcm::DataSet& dataSet, const gdcm::Tag& tag)
{
    if (!dataSet.FindDataElement(tag))
        return {};
    const gdcm::ByteValue* bytes = dataSet.GetDataElement(tag).GetByteValue();
    if (!bytes)
        return {};
    QByteArray value(bytes->GetPointer(), static_cast<qsizetype>(bytes->GetLength()));
    while (value.endsWith('\0') || value.endsWith(' '))
        value.chop(1);
    return value;
}

// The decimal numbers of a tag, nothing if there are not exactly `count`.
template <std::size_t count>
std::optional<std::array<double, count>> numbers(const gdcm::DataSet& dataSet, const gdcm::Tag& tag)
{
    const QList<QByteArray> parts = text(dataSet, tag).split('\\');
    if (parts.size() != static_cast<qsizetype>(count))
        return std::nullopt;
    std::array<double, count> values{};
    for (std::size_t i = 0; i < count; ++i) {
        bool isNumber = false;
        values[i] = parts[static_cast<qsizetype>(i)].trimmed().toDouble(&isNumber);
        if (!isNumber || !(std::abs(values[i]) <= kLargestNumber))
            return std::nullopt;
    }
    return values;
}

// An unsigned 16-bit number; 0 if there is none.
int count(const gdcm::DataSet& dataSet, const gdcm::Tag& tag)
{
    if (!dataSet.FindDataElement(tag))
        return 0;
    const gdcm::ByteValue* bytes = dataSet.GetDataElement(tag).GetByteValue();
    std::uint16_t number = 0;
    if (!bytes || bytes->GetLength() < sizeof number)
        return 0;
    std::memcpy(&number, bytes->GetPointer(), sizeof number);
    return number;
}

gdcm::SmartPointer<gdcm::SequenceOfItems> sequence(const gdcm::DataSet& dataSet,
                                                   const gdcm::Tag& tag)
{
    if (!dataSet.FindDataElement(tag))
        return nullptr;
    return dataSet.GetDataElement(tag).GetValueAsSQ();
}

// The first item of a sequence; without one, a data set without elements.
gdcm::DataSet item(const gdcm::DataSet& dataSet, const gdcm::Tag& tag)
{
    const auto items = sequence(dataSet, tag);
    return items && items->GetNumberOfItems() > 0 ? items->GetItem(1).GetNestedDataSet()
                                                  : gdcm::DataSet();
}

// Where the tags of a frame may be: in the items for its own and for all frames, and in the file's
// data set.
class FrameTags
{
public:
    FrameTags(const gdcm::DataSet& frame, const gdcm::DataSet& allFrames, const gdcm::DataSet& file)
        : groups{&frame, &allFrames}, whole(&file)
    {}

    template <std::size_t count>
    std::optional<std::array<double, count>> find(const gdcm::Tag& group,
                                                  const gdcm::Tag& tag) const
    {
        for (const gdcm::DataSet* part : groups) {
            if (const auto values = numbers<count>(item(*part, group), tag))
                return values;
        }
        return numbers<count>(*whole, tag);
    }

private:
    std::array<const gdcm::DataSet*, 2> groups;
    const gdcm::DataSet* whole;
};

QVector3D vectorFrom(double x, double y, double z)
{
    return {static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)};
}

bool areUnitAndPerpendicular(const QVector3D& a, const QVector3D& b)
{
    return std::abs(a.length() - 1.0) < kOrientationTolerance &&
           std::abs(b.length() - 1.0) < kOrientationTolerance &&
           std::abs(QVector3D::dotProduct(a, b)) < kOrientationTolerance;
}

// Sets where the slice lies.
void place(DicomSlice& slice, const FrameTags& tags)
{
    const auto position = tags.find<3>(kPlanePosition, kPosition);
    if (!position)
        throw NoSlice{QStringLiteral("it states no usable position (0020,0032)")};
    const auto orientation = tags.find<6>(kPlaneOrientation, kOrientation);
    if (!orientation)
        throw NoSlice{QStringLiteral("it states no usable orientation (0020,0037)")};
    const auto spacing = tags.find<2>(kPixelMeasures, kSpacing);
    if (!spacing)
        throw NoSlice{QStringLiteral("it states no usable pixel spacing (0028,0030)")};
    if ((*spacing)[0] <= 0.0 || (*spacing)[1] <= 0.0)
        throw NoSlice{QStringLiteral("its pixel spacing (0028,0030) is not positive")};
    slice.position = vectorFrom((*position)[0], (*position)[1], (*position)[2]);
    slice.rowDirection = vectorFrom((*orientation)[0], (*orientation)[1], (*orientation)[2]);
    slice.columnDirection = vectorFrom((*orientation)[3], (*orientation)[4], (*orientation)[5]);
    if (!areUnitAndPerpendicular(slice.rowDirection, slice.columnDirection))
        throw NoSlice{QStringLiteral(
            "its orientation (0020,0037) is not two directions of length 1 at right angles")};
    slice.rowSpacingMm = (*spacing)[0];
    slice.columnSpacingMm = (*spacing)[1];
    slice.scaling =
        usableScaling(tags.find<1>(kPixelValues, kSlope).value_or(std::array{1.0})[0],
                      tags.find<1>(kPixelValues, kIntercept).value_or(std::array{0.0})[0]);
}

// What is wrong with the pixels, for a message; empty if nothing is known to be.
QString damageOf(const DicomStructure& structure, const gdcm::DataSet& dataSet,
                 const DicomSlice& slice, qint64 frames)
{
    if (!structure.damage.isEmpty() || structure.compressed)
        return structure.damage;
    const qint64 samples = std::max(1, count(dataSet, gdcm::Tag(0x0028, 0x0002)));
    const qint64 bits = samples * count(dataSet, gdcm::Tag(0x0028, 0x0100));
    const qint64 expected = (bits * slice.columns * slice.rows * frames + 7) / 8;
    if (structure.pixelBytes >= expected)
        return {};
    return QStringLiteral(
               "the file is damaged or cut off: its pixels should take %1 bytes and take %2")
        .arg(expected)
        .arg(std::max(qint64{0}, structure.pixelBytes));
}

// The slices of a file, one for each frame; none if it holds no picture.
QList<DicomSlice> slicesOf(const DicomStructure& structure, const gdcm::DataSet& dataSet,
                           DicomSlice slice)
{
    slice.columns = count(dataSet, gdcm::Tag(0x0028, 0x0011));
    slice.rows = count(dataSet, gdcm::Tag(0x0028, 0x0010));
    if (slice.columns == 0 || slice.rows == 0)
        return {};
    const auto frames = numbers<1>(dataSet, kFrames).value_or(std::array{1.0})[0];
    const gdcm::DataSet allFrames = item(dataSet, kShared);
    const auto perFrame = sequence(dataSet, kPerFrame);
    if (!perFrame) {
        if (frames != 1.0)
            throw NoSlice{
                QStringLiteral("it holds %1 frames without the position of each").arg(frames)};
        slice.damage = damageOf(structure, dataSet, slice, 1);
        place(slice, FrameTags(gdcm::DataSet(), allFrames, dataSet));
        return {slice};
    }
    const auto described = static_cast<qint64>(perFrame->GetNumberOfItems());
    if (static_cast<double>(described) != frames || described > kMostVoxelsAlongAxis)
        throw NoSlice{
            QStringLiteral("it holds %1 frames and describes %2").arg(frames).arg(described)};
    QList<DicomSlice> slices;
    slice.framesInFile = static_cast<int>(described);
    slice.damage = damageOf(structure, dataSet, slice, described);
    for (slice.frame = 0; slice.frame < slice.framesInFile; ++slice.frame) {
        const gdcm::Item& own =
            perFrame->GetItem(static_cast<gdcm::SequenceOfItems::SizeType>(slice.frame) + 1);
        place(slice, FrameTags(own.GetNestedDataSet(), allFrames, dataSet));
        slices.append(slice);
    }
    return slices;
}

// Says where in the list, and whether with another, a slice belongs.
using Key = std::tuple<int, QByteArray, std::array<double, 6>>;

Key keyOf(const DicomStack& stack, const DicomSlice& slice)
{
    const auto rounded = [](float component) { // + 0.0: no negative zero
        return std::round(component * 1000.0) + 0.0;
    };
    const QVector3D& row = slice.rowDirection;
    const QVector3D& column = slice.columnDirection;
    return {stack.seriesNumber,
            stack.seriesUid.toLatin1(),
            {rounded(row.x()), rounded(row.y()), rounded(row.z()), rounded(column.x()),
             rounded(column.y()), rounded(column.z())}};
}

void readFile(const QString& path, QMap<Key, DicomStack>& stacks)
{
    const DicomStructure structure = examineDicom(path);
    if (!structure.isDicom)
        return;
    if (structure.pixelsAt < 0) {
        if (!structure.damage.isEmpty())
            throw NoSlice{structure.damage};
        return;
    }
    // GDCM would read the pixels, too.
    QFile file(path);
    std::istringstream beforePixels(
        (file.open(QIODevice::ReadOnly) ? file.read(structure.pixelsAt) : QByteArray())
            .toStdString());
    allowMemory(kMemoryAnyway + kMemoryPerByte * structure.pixelsAt);
    gdcm::Reader reader;
    reader.SetStream(beforePixels);
    if (!reader.Read())
        throw NoSlice{QStringLiteral("its tags cannot be read")};
    const gdcm::DataSet& dataSet = reader.GetFile().GetDataSet();

    DicomStack stack;
    stack.seriesUid = QString::fromLatin1(text(dataSet, kSeries));
    stack.description =
        QString::fromLatin1(text(dataSet, gdcm::Tag(0x0008, 0x103e))).simplified().left(64);
    stack.seriesNumber = text(dataSet, gdcm::Tag(0x0020, 0x0011)).trimmed().toInt();
    DicomSlice slice;
    slice.file = path;
    for (const DicomSlice& found : slicesOf(structure, dataSet, slice)) {
        DicomStack& target = stacks[keyOf(stack, found)];
        if (target.slices.isEmpty())
            target = stack;
        target.slices.append(found);
    }
}

} // namespace

DicomStacks readDicomStacks(const QStringList& files)
{
    QMap<Key, DicomStack> stacks;
    DicomStacks found;
    for (const QString& file : files) {
        try {
            readFile(file, stacks);
        } catch (const NoSlice& no) {
            found.skipped.append(
                QStringLiteral("%1: %2").arg(QFileInfo(file).fileName(), no.reason));
        } catch (const std::exception&) { // of GDCM, for some damaged files
            found.skipped.append(
                QStringLiteral("%1: its tags cannot be read").arg(QFileInfo(file).fileName()));
        }
    }
    found.stacks = stacks.values();
    return found;
}

} // namespace planner
