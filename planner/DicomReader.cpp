// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/DicomReader.h>

#include <planner/Elements.h>
#include <planner/Failure.h>

#include <QDir>
#include <QFile>
#include <QList>
#include <QMap>
#include <QVector3D>
#include <QtEndian>

#include <gdcmByteValue.h>
#include <gdcmImageReader.h>
#include <gdcmReader.h>
#include <gdcmTrace.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <exception>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace planner {

namespace {

// Of unit length and right angles; the tags are written with 4 to 6 digits.
constexpr double kOrientationTolerance = 1e-3;
constexpr double kSpacingTolerance = 0.1; // of the distance between slices; a missing slice makes it 1
constexpr double kTiltTolerance = 0.01;   // sine of the angle between the stack's axis and the normal

struct Slice
{
    QString file;
    QVector3D position; // of the centre of the first voxel
    QVector3D rowDirection;
    QVector3D columnDirection;
    double columnSpacingMm = 0.0; // between neighbours in a row
    double rowSpacingMm = 0.0;    // between rows
    Scaling scaling;
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
        if (!isNumber || !std::isfinite(values[i]))
            return std::nullopt;
    }
    return values;
}

QVector3D vectorFrom(double x, double y, double z)
{
    return {static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)};
}

bool areUnitAndPerpendicular(const QVector3D& a, const QVector3D& b)
{
    return std::abs(static_cast<double>(a.length()) - 1.0) < kOrientationTolerance &&
           std::abs(static_cast<double>(b.length()) - 1.0) < kOrientationTolerance &&
           std::abs(static_cast<double>(QVector3D::dotProduct(a, b))) < kOrientationTolerance;
}

// The slice in a file by its tags, and the key of the stack it belongs to; nothing if it is none.
std::optional<std::pair<QByteArray, Slice>> readTags(const QString& file)
{
    gdcm::Reader reader;
    reader.SetFileName(QFile::encodeName(file).constData());
    const std::set<gdcm::Tag> none;
    if (!reader.CanRead() || !reader.ReadUpToTag(gdcm::Tag(0x7fe0, 0x0010), none))
        return std::nullopt;
    const gdcm::DataSet& dataSet = reader.GetFile().GetDataSet();
    const auto position = numbers<3>(dataSet, gdcm::Tag(0x0020, 0x0032));
    const auto orientation = numbers<6>(dataSet, gdcm::Tag(0x0020, 0x0037));
    const auto spacing = numbers<2>(dataSet, gdcm::Tag(0x0028, 0x0030));
    if (!position || !orientation || !spacing || (*spacing)[0] <= 0.0 || (*spacing)[1] <= 0.0)
        return std::nullopt;

    Slice slice;
    slice.file = file;
    slice.position = vectorFrom((*position)[0], (*position)[1], (*position)[2]);
    slice.rowDirection = vectorFrom((*orientation)[0], (*orientation)[1], (*orientation)[2]);
    slice.columnDirection = vectorFrom((*orientation)[3], (*orientation)[4], (*orientation)[5]);
    if (!areUnitAndPerpendicular(slice.rowDirection, slice.columnDirection))
        return std::nullopt;
    slice.rowSpacingMm = (*spacing)[0];
    slice.columnSpacingMm = (*spacing)[1];
    slice.scaling.slope = numbers<1>(dataSet, gdcm::Tag(0x0028, 0x1053)).value_or(std::array{1.0})[0];
    slice.scaling.intercept = numbers<1>(dataSet, gdcm::Tag(0x0028, 0x1052)).value_or(std::array{0.0})[0];

    QByteArray key = text(dataSet, gdcm::Tag(0x0020, 0x000e));
    for (const double component : *orientation)
        key += ' ' + QByteArray::number(std::round(component * 1000.0) + 0.0); // + 0.0: no negative zero
    return std::pair(key, slice);
}

// The largest stack of slices in the folder; of equal ones that with the first key.
QList<Slice> findSlices(const QString& folder, QStringList& remarks)
{
    QMap<QByteArray, QList<Slice>> stacks;
    for (const QString& name : QDir(folder).entryList(QDir::Files, QDir::Name)) {
        if (auto found = readTags(QDir(folder).filePath(name)))
            stacks[found->first].append(found->second);
    }
    if (stacks.isEmpty())
        throw Failure(folder, QStringLiteral("the folder holds no DICOM slice with a position"));
    const auto largest = std::max_element(stacks.cbegin(), stacks.cend(),
                                          [](const auto& a, const auto& b) { return a.size() < b.size(); });
    if (largest->size() < 2)
        throw Failure(folder,
                      QStringLiteral("the folder holds no two DICOM slices of one series, so no volume"));
    if (stacks.size() > 1)
        remarks.append(QStringLiteral("The folder holds %1 DICOM series or orientations; the one with the "
                                      "most slices, %2, was taken.")
                           .arg(stacks.size())
                           .arg(largest->size()));
    return *largest;
}

double alongNormal(const Slice& slice, const QVector3D& normal)
{
    return static_cast<double>(slice.position.x()) * static_cast<double>(normal.x()) +
           static_cast<double>(slice.position.y()) * static_cast<double>(normal.y()) +
           static_cast<double>(slice.position.z()) * static_cast<double>(normal.z());
}

// Orders the slices along their normal and returns the step from each to the next.
QVector3D orderSlices(const QString& folder, QList<Slice>& slices)
{
    const QVector3D normal =
        QVector3D::crossProduct(slices.first().rowDirection, slices.first().columnDirection);
    std::sort(slices.begin(), slices.end(), [&normal](const Slice& a, const Slice& b) {
        return alongNormal(a, normal) < alongNormal(b, normal);
    });
    const auto gaps = static_cast<double>(slices.size() - 1);
    const double mean = (alongNormal(slices.last(), normal) - alongNormal(slices.first(), normal)) / gaps;
    for (qsizetype i = 1; i < slices.size(); ++i) {
        const double gap = alongNormal(slices[i], normal) - alongNormal(slices[i - 1], normal);
        if (!(gap > 0.001))
            throw Failure(folder, QStringLiteral("two slices of the DICOM series lie at the same place"));
        if (std::abs(gap - mean) > kSpacingTolerance * mean)
            throw Failure(folder, QStringLiteral(
                                      "the slices of the DICOM series are not evenly spaced (%1 mm and %2 mm "
                                      "on average); one may be missing")
                                      .arg(gap, 0, 'f', 2)
                                      .arg(mean, 0, 'f', 2));
    }
    return (slices.last().position - slices.first().position) / static_cast<float>(gaps);
}

std::optional<image::DataType> elementType(const gdcm::PixelFormat& format)
{
    switch (format.GetScalarType()) {
    case gdcm::PixelFormat::UINT8:
        return image::UInt8;
    case gdcm::PixelFormat::INT8:
        return image::Int8;
    case gdcm::PixelFormat::UINT16:
        return image::UInt16;
    case gdcm::PixelFormat::INT16:
        return image::Int16;
    case gdcm::PixelFormat::UINT32:
        return image::UInt32;
    case gdcm::PixelFormat::INT32:
        return image::Int32;
    case gdcm::PixelFormat::FLOAT32:
        return image::Float32;
    case gdcm::PixelFormat::FLOAT64:
        return image::Float64;
    default:
        return std::nullopt;
    }
}

// The type that holds every value that the slices may hold, once scaled.
image::DataType storedType(const QList<Slice>& slices, const gdcm::PixelFormat& format, image::DataType type)
{
    const bool fitInt16 = std::all_of(slices.cbegin(), slices.cend(), [&](const Slice& slice) {
        return scaledType(slice.scaling, type, static_cast<double>(format.GetMin()),
                          static_cast<double>(format.GetMax())) == image::Int16;
    });
    return fitInt16 ? image::Int16 : image::Float32;
}

void store(image::DataType type, const std::vector<char>& pixels, const Scaling& scaling,
           VexelImage3D& target, std::size_t firstVoxel)
{
    visitElementType(type, [&](auto raw) {
        const std::size_t count = pixels.size() / sizeof raw;
        for (std::size_t i = 0; i < count; ++i) {
            std::memcpy(&raw, pixels.data() + i * sizeof raw, sizeof raw);
            const double value = scaling.scaled(static_cast<double>(raw));
            if (target.dataType() == image::Int16) // bits beyond those stored may be set
                static_cast<std::int16_t*>(target.dataPtr())[firstVoxel + i] =
                    static_cast<std::int16_t>(std::clamp(value, -32768.0, 32767.0));
            else
                static_cast<float*>(target.dataPtr())[firstVoxel + i] = static_cast<float>(value);
        }
    });
}

// Whether the file ends before its pixels do, which GDCM lets pass: looks for the head of the pixel element,
// its tag and its length, and whether so many bytes follow. Compressed pixels do not state a length; what is
// not found passes.
bool isCutOff(const Slice& slice, std::size_t pixelBytes)
{
    QFile file(slice.file);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray bytes = file.readAll();
    const QByteArray tag("\xe0\x7f\x10\x00", 4);
    for (qsizetype at = bytes.indexOf(tag); at >= 0 && at + 12 <= bytes.size();
         at = bytes.indexOf(tag, at + 1)) {
        const bool explicitType = bytes[at + 4] == 'O'; // OB or OW, two empty bytes, then the length
        const qsizetype lengthAt = at + (explicitType ? 8 : 4);
        const auto length = qFromLittleEndian<quint32>(bytes.constData() + lengthAt);
        if (length == pixelBytes || length == pixelBytes + 1)
            return lengthAt + 4 + static_cast<qsizetype>(pixelBytes) > bytes.size();
    }
    return false;
}

// Reads the pixels of all slices into the volume's image, which it creates for the first one.
void readPixels(const QList<Slice>& slices, const QVector3D& spacingMm, VexelImage3D& image,
                const std::function<void(double)>& progress)
{
    for (qsizetype k = 0; k < slices.size(); ++k) {
        const Slice& slice = slices[k];
        gdcm::ImageReader reader;
        reader.SetFileName(QFile::encodeName(slice.file).constData());
        if (!reader.Read())
            throw Failure(slice.file, QStringLiteral("the pixels of this DICOM slice cannot be read"));
        const gdcm::Image& picture = reader.GetImage();
        const gdcm::PixelFormat& format = picture.GetPixelFormat();
        const auto type = elementType(format);
        if (!type || format.GetSamplesPerPixel() != 1)
            throw Failure(slice.file, QStringLiteral("this DICOM slice does not hold plain grey values"));
        if (picture.GetNumberOfDimensions() > 2 && picture.GetDimension(2) > 1)
            throw Failure(
                slice.file,
                QStringLiteral("this DICOM file holds many slices at once, which is not supported"));
        const auto columns = static_cast<int>(picture.GetColumns());
        const auto rows = static_cast<int>(picture.GetRows());
        if (k == 0) {
            const image::DataType stored = storedType(slices, format, *type);
            image = VexelImage3D({columns, rows, static_cast<int>(slices.size())}, spacingMm, stored);
            if (image.isEmpty())
                throw Failure(slice.file, QStringLiteral("there is not enough memory for the series"));
        }
        const std::size_t pixelCount = static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows);
        std::vector<char> pixels(picture.GetBufferLength());
        if (columns != image.imageSize().x || rows != image.imageSize().y)
            throw Failure(slice.file,
                          QStringLiteral("this DICOM slice has another size than the first of its series"));
        if (isCutOff(slice, pixels.size()))
            throw Failure(slice.file, QStringLiteral("this DICOM slice is cut off"));
        if (pixels.size() != pixelCount * image::elementSize(*type) || !picture.GetBuffer(pixels.data()))
            throw Failure(slice.file, QStringLiteral("the pixels of this DICOM slice cannot be read"));
        store(*type, pixels, slice.scaling, image, pixelCount * static_cast<std::size_t>(k));
        if (progress)
            progress(static_cast<double>(k + 1) / static_cast<double>(slices.size()));
    }
}

Volume readLargestSeries(const QString& folder, const std::function<void(double)>& progress)
{
    Volume volume;
    QList<Slice> slices = findSlices(folder, volume.remarks);
    const QVector3D step = orderSlices(folder, slices);
    const Slice& first = slices.first();
    const QVector3D normal = QVector3D::crossProduct(first.rowDirection, first.columnDirection);

    volume.worldFromVoxel.setColumn(
        0, QVector4D(first.rowDirection * static_cast<float>(first.columnSpacingMm), 0.0F));
    volume.worldFromVoxel.setColumn(
        1, QVector4D(first.columnDirection * static_cast<float>(first.rowSpacingMm), 0.0F));
    volume.worldFromVoxel.setColumn(2, QVector4D(step, 0.0F));
    volume.worldFromVoxel.setColumn(3, QVector4D(first.position, 1.0F));
    readPixels(
        slices,
        {static_cast<float>(first.columnSpacingMm), static_cast<float>(first.rowSpacingMm), step.length()},
        volume.image, progress);
    if (static_cast<double>(QVector3D::crossProduct(step.normalized(), normal).length()) > kTiltTolerance)
        volume.remarks.append(
            QStringLiteral("The gantry was tilted: the slices are shifted against each other, which is "
                           "accounted for."));
    volume.description = QStringLiteral("DICOM series in the folder %1").arg(QDir(folder).dirName());
    return volume;
}

// Whether reading comes to an end, good or bad. GDCM as packaged checks assertions, and some damaged files
// fail them, which ends the program. So reading is first tried in a child process, whose end does no harm.
bool comesToAnEnd(const QString& folder)
{
    const pid_t child = fork();
    if (child < 0)
        return true; // no process to be had; it may still go well
    if (child == 0) {
        const rlimit noCore{0, 0};
        setrlimit(RLIMIT_CORE, &noCore);
        const int nowhere = open("/dev/null", O_WRONLY);
        dup2(nowhere, STDERR_FILENO);
        try {
            readLargestSeries(folder, {});
        } catch (...) { // the parent finds out what
        }
        _exit(0);
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace

Volume readDicomFolder(const QString& folder, const std::function<void(double)>& progress)
{
    gdcm::Trace::DebugOff(); // its complaints are replaced by sentences
    gdcm::Trace::WarningOff();
    gdcm::Trace::ErrorOff();
    const Failure damaged(folder, QStringLiteral("the DICOM files are damaged"));
    if (!comesToAnEnd(folder))
        throw damaged;
    try {
        return readLargestSeries(folder, progress);
    } catch (const Failure&) {
        throw;
    } catch (const std::exception&) { // GDCM throws for some damaged files
        throw damaged;
    }
}

} // namespace planner
