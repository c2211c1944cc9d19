// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/input/VolumeReaders.h>

#include <planner/input/DicomSlices.h>
#include <planner/input/Elements.h>
#include <planner/input/Failure.h>
#include <planner/input/Rehearsal.h>
#include <planner/input/VolumeLimits.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QList>
#include <QVector3D>
#include <QVector4D>

#include <gdcmImageReader.h>
#include <gdcmTrace.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <exception>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

namespace planner {

namespace {

constexpr double kSpacingTolerance = 0.1; // relative; a missing slice makes it 1
constexpr double kTiltTolerance = 0.01; // sine of the angle between the stack's axis and the normal
constexpr double kEqualSpacingMm = 1e-4; // of pixels
constexpr qsizetype kMostFiles = 50'000; // in a folder; a study of a whole body has some thousands
constexpr qsizetype kNamedFiles = 3;     // of those left out
constexpr qsizetype kListedSeries = 20;  // in a message
constexpr qint64 kMemoryAnyway = 64'000'000; // that libraries take for the pixels of any file

// All of a folder and its subfolders, by path, or the file itself.
QStringList filesAt(const QString& path)
{
    if (!QFileInfo(path).isDir())
        return {path};
    QStringList files;
    QDirIterator entries(path, QDir::Files | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        files.append(entries.next());
        if (files.size() > kMostFiles)
            throw Failure(path, QStringLiteral("the folder and its subfolders hold more than %1 "
                                               "files; name the one with the DICOM series")
                                    .arg(kMostFiles));
    }
    files.sort();
    return files;
}

QString listed(const QList<DicomStack>& stacks)
{
    QStringList lines;
    for (const DicomStack& stack : stacks) {
        if (lines.size() == kListedSeries) {
            lines.append(QStringLiteral("..."));
            break;
        }
        const DicomSlice& first = stack.slices.first();
        lines.append(QStringLiteral("%1 = \"%2\" (%3 slices, %4 x %5)")
                         .arg(lines.size() + 1)
                         .arg(stack.description.isEmpty() ? stack.seriesUid : stack.description)
                         .arg(stack.slices.size())
                         .arg(first.columns)
                         .arg(first.rows));
    }
    return lines.join(QStringLiteral(", "));
}

// The stack that is asked for, by its number in the list or by its series' UID; the only one if
// none is.
const DicomStack& chosen(const QString& path, const QList<DicomStack>& stacks,
                         const QString& series)
{
    if (series.isEmpty()) {
        if (stacks.size() > 1)
            throw Failure(path,
                          QStringLiteral("there are %1 DICOM series; choose one with --series: %2")
                              .arg(stacks.size())
                              .arg(listed(stacks)));
        return stacks.first();
    }
    bool isNumber = false;
    const qlonglong number = series.toLongLong(&isNumber);
    if (isNumber && number >= 1 && number <= stacks.size())
        return stacks[number - 1];
    const auto byUid = std::ranges::find(stacks, series, &DicomStack::seriesUid);
    if (byUid == stacks.cend())
        throw Failure(path, QStringLiteral("there is no DICOM series %1; --series takes one of: %2")
                                .arg(series, listed(stacks)));
    return *byUid;
}

QString withFirst(const QStringList& skipped)
{
    QStringList named = skipped.mid(0, kNamedFiles);
    if (skipped.size() > kNamedFiles)
        named.append(QStringLiteral("..."));
    return named.join(QStringLiteral("; "));
}

QList<DicomSlice> findSlices(const QString& path, const QString& series, QStringList& remarks)
{
    const DicomStacks found = readDicomStacks(filesAt(path));
    if (found.stacks.isEmpty() && found.skipped.isEmpty())
        throw Failure(path, QStringLiteral("there is no DICOM picture"));
    if (found.stacks.isEmpty())
        throw Failure(path, QStringLiteral("no DICOM picture is a slice of a volume (%1)")
                                .arg(withFirst(found.skipped)));
    QList<DicomStack> volumes;
    std::ranges::copy_if(found.stacks, std::back_inserter(volumes),
                         [](const DicomStack& stack) { return stack.slices.size() > 1; });
    if (volumes.isEmpty())
        throw Failure(
            path, QStringLiteral("there are no two DICOM slices of one series, so no volume%1")
                      .arg(found.skipped.isEmpty()
                               ? QString()
                               : QStringLiteral("; left out: %1").arg(withFirst(found.skipped))));
    const DicomStack& stack = chosen(path, volumes, series);
    if (volumes.size() > 1)
        remarks.append(QStringLiteral("Of %1 DICOM series, \"%2\" with %3 slices was chosen.")
                           .arg(volumes.size())
                           .arg(stack.description.isEmpty() ? stack.seriesUid : stack.description)
                           .arg(stack.slices.size()));
    if (!found.skipped.isEmpty())
        remarks.append(QStringLiteral("DICOM pictures that are not slices were left out (%1).")
                           .arg(withFirst(found.skipped)));
    for (const DicomSlice& slice : stack.slices) {
        if (!slice.damage.isEmpty())
            throw Failure(slice.file, slice.damage);
    }
    return stack.slices;
}

double alongNormal(const DicomSlice& slice, const QVector3D& normal)
{
    const QVector3D& at = slice.position;
    return double(at.x()) * normal.x() + double(at.y()) * normal.y() + double(at.z()) * normal.z();
}

// Orders the slices along their normal and returns the step from each to the next.
QVector3D orderSlices(const QString& folder, QList<DicomSlice>& slices)
{
    const auto refuse = [&folder](const QString& why) { throw Failure(folder, why); };
    const QVector3D normal =
        QVector3D::crossProduct(slices.first().rowDirection, slices.first().columnDirection);
    std::ranges::sort(slices, {},
                      [&normal](const DicomSlice& slice) { return alongNormal(slice, normal); });
    const auto gaps = static_cast<double>(slices.size() - 1);
    const double mean =
        (alongNormal(slices.last(), normal) - alongNormal(slices.first(), normal)) / gaps;
    for (qsizetype i = 1; i < slices.size(); ++i) {
        const double gap = alongNormal(slices[i], normal) - alongNormal(slices[i - 1], normal);
        if (!(gap > 0.001))
            refuse(QStringLiteral("two slices of the DICOM series lie at the same place"));
        if (std::abs(gap - mean) > kSpacingTolerance * mean)
            refuse(QStringLiteral("the slices of the DICOM series are not evenly spaced (%1 "
                                  "mm and %2 mm on average); one may be missing")
                       .arg(gap, 0, 'f', 2)
                       .arg(mean, 0, 'f', 2));
    }
    const QVector3D step =
        (slices.last().position - slices.first().position) / static_cast<float>(gaps);
    for (qsizetype i = 1; i < slices.size(); ++i) {
        const QVector3D aside =
            slices[i].position - slices.first().position - step * static_cast<float>(i);
        const QVector3D within = aside - normal * QVector3D::dotProduct(aside, normal);
        if (within.length() > slices.first().columnSpacingMm)
            refuse(QStringLiteral("the slices of the DICOM series do not lie in a straight row"));
    }
    return step;
}

// Refuses slices of which one is not like the first.
void checkAlike(const QList<DicomSlice>& slices)
{
    const DicomSlice& first = slices.first();
    const auto differ = [](double a, double b) { return std::abs(a - b) > kEqualSpacingMm; };
    for (const DicomSlice& slice : slices) {
        const bool otherSize = slice.columns != first.columns || slice.rows != first.rows;
        if (otherSize || differ(slice.columnSpacingMm, first.columnSpacingMm) ||
            differ(slice.rowSpacingMm, first.rowSpacingMm))
            throw Failure(
                slice.file,
                QStringLiteral("this DICOM slice has another %1 than the first of its series")
                    .arg(otherSize ? QStringLiteral("size") : QStringLiteral("pixel spacing")));
    }
}

std::optional<image::DataType> elementType(const gdcm::PixelFormat& format)
{
    using gdcm::PixelFormat;
    static constexpr std::pair<PixelFormat::ScalarType, image::DataType> types[] = {
        {PixelFormat::UINT8, image::UInt8},     {PixelFormat::INT8, image::Int8},
        {PixelFormat::UINT16, image::UInt16},   {PixelFormat::INT16, image::Int16},
        {PixelFormat::UINT32, image::UInt32},   {PixelFormat::INT32, image::Int32},
        {PixelFormat::FLOAT32, image::Float32}, {PixelFormat::FLOAT64, image::Float64}};
    for (const auto& [stored, type] : types) {
        if (format.GetScalarType() == stored)
            return type;
    }
    return std::nullopt;
}

// The type that holds every value that the slices may hold, once scaled.
image::DataType storedType(const QList<DicomSlice>& slices, const gdcm::PixelFormat& format,
                           image::DataType type)
{
    const bool fitInt16 = std::ranges::all_of(slices, [&](const DicomSlice& slice) {
        return scaledType(slice.scaling, type, static_cast<double>(format.GetMin()),
                          static_cast<double>(format.GetMax())) == image::Int16;
    });
    return fitInt16 ? image::Int16 : image::Float32;
}

// The slices of a file by their numbers in the stack.
struct PixelFile
{
    QString path;
    QList<qsizetype> slices;
};

QList<PixelFile> filesOf(const QList<DicomSlice>& slices)
{
    QList<PixelFile> files;
    QHash<QString, qsizetype> places;
    for (qsizetype k = 0; k < slices.size(); ++k) {
        const QString& file = slices[k].file;
        if (!places.contains(file)) {
            places.insert(file, files.size());
            files.append({file, {}});
        }
        files[places[file]].slices.append(k);
    }
    return files;
}

// Reads the pixels of all slices into an image, which it creates when it has seen the first file.
class PixelReader
{
public:
    PixelReader(const QList<DicomSlice>& stack, const QVector3D& voxelSizeMm)
        : slices(stack), files(filesOf(stack)), spacingMm(voxelSizeMm)
    {
        for (const PixelFile& file : files)
            fileBytes += QFileInfo(file.path).size();
    }

    VexelImage3D read(const std::function<void(double)>& progress)
    {
        for (qsizetype done = 0; done < files.size(); ++done) {
            readFile(files[done]);
            if (progress)
                progress(static_cast<double>(done + 1) / static_cast<double>(files.size()));
        }
        return std::move(image);
    }

private:
    void readFile(const PixelFile& file)
    {
        const DicomSlice& first = slices[file.slices.first()];
        const std::size_t pixelCount = std::size_t(first.columns) * first.rows;
        const std::size_t frames = first.framesInFile;
        // GDCM holds the file, its decoded pixels and, of some codecs, 32 bits of each; the image
        // has its own limit.
        allowMemory(kMemoryAnyway + 2 * QFileInfo(file.path).size() +
                    8 * static_cast<qint64>(pixelCount * frames) +
                    (image.isEmpty() ? std::max(kFreeVoxelBytes, kMostExpansion * fileBytes) : 0));
        gdcm::ImageReader reader;
        reader.SetFileName(QFile::encodeName(file.path).constData());
        const Failure unreadable(
            file.path, QStringLiteral("the pixels of this DICOM picture cannot be read; they are "
                                      "damaged or compressed in a way that is not supported"));
        if (!reader.Read())
            throw unreadable;
        const gdcm::Image& picture = reader.GetImage();
        const gdcm::PixelFormat& format = picture.GetPixelFormat();
        const auto found = elementType(format);
        if (!found || format.GetSamplesPerPixel() != 1)
            throw Failure(file.path,
                          QStringLiteral("this DICOM picture does not hold plain grey values"));
        if (image.isEmpty())
            createImage(format, *found);
        if (*found != type)
            throw Failure(
                file.path,
                QStringLiteral(
                    "this DICOM slice has pixels of another type than the first of its series"));
        const std::size_t frameBytes = pixelCount * image::elementSize(type);
        if (picture.GetColumns() != static_cast<unsigned>(first.columns) ||
            picture.GetRows() != static_cast<unsigned>(first.rows) ||
            picture.GetBufferLength() != frameBytes * frames)
            throw unreadable;
        std::vector<char> pixels(frameBytes * frames);
        if (!picture.GetBuffer(pixels.data()))
            throw unreadable;
        for (const qsizetype k : file.slices)
            store(pixels.data() + frameBytes * slices[k].frame, pixelCount, k);
    }

    void createImage(const gdcm::PixelFormat& format, image::DataType found)
    {
        type = found;
        const DicomSlice& first = slices.first();
        const image::DataType stored = storedType(slices, format, type);
        checkExpansion(first.file,
                       static_cast<qint64>(image::elementSize(stored)) * first.columns *
                           first.rows * slices.size(),
                       fileBytes);
        image = VexelImage3D({first.columns, first.rows, static_cast<int>(slices.size())},
                             spacingMm, stored);
        if (image.isEmpty())
            throw Failure(first.file, QStringLiteral("there is not enough memory for the series"));
    }

    void store(const char* pixels, std::size_t count, qsizetype k)
    {
        visitElementType(type, [&](auto zero) { // bits beyond those that are in use may be set
            storeScaled(reinterpret_cast<const decltype(zero)*>(pixels), count, slices[k].scaling,
                        image, count * k);
        });
    }

    const QList<DicomSlice>& slices;
    const QList<PixelFile> files;
    const QVector3D spacingMm;
    qint64 fileBytes = 0;
    VexelImage3D image;
    image::DataType type = image::UInt8; ///< of the pixels
};

Volume readSeries(const QString& path, const QString& series,
                  const std::function<void(double)>& progress)
{
    Volume volume;
    QList<DicomSlice> slices = findSlices(path, series, volume.remarks);
    const QVector3D step = orderSlices(path, slices);
    checkAlike(slices);
    const DicomSlice& first = slices.first();
    const QVector3D normal = QVector3D::crossProduct(first.rowDirection, first.columnDirection);

    const auto columnMm = static_cast<float>(first.columnSpacingMm);
    const auto rowMm = static_cast<float>(first.rowSpacingMm);
    volume.worldFromVoxel.setColumn(0, QVector4D(first.rowDirection * columnMm, 0.0F));
    volume.worldFromVoxel.setColumn(1, QVector4D(first.columnDirection * rowMm, 0.0F));
    volume.worldFromVoxel.setColumn(2, QVector4D(step, 0.0F));
    volume.worldFromVoxel.setColumn(3, QVector4D(first.position, 1.0F));
    const std::array<qint64, 3> counts = {first.columns, first.rows, slices.size()};
    checkVoxelCounts(path, counts);
    checkGeometry(path, volume.worldFromVoxel, counts);
    volume.image = PixelReader(slices, {columnMm, rowMm, step.length()}).read(progress);
    if (QVector3D::crossProduct(step.normalized(), normal).length() > kTiltTolerance)
        volume.remarks.append(QStringLiteral("The gantry was tilted: the slices are shifted "
                                             "against each other, which is accounted for."));
    volume.description = (QFileInfo(path).isDir() ? QStringLiteral("DICOM series in the folder %1")
                                                  : QStringLiteral("DICOM file %1"))
                             .arg(QFileInfo(QDir::cleanPath(path)).fileName());
    return volume;
}

} // namespace

bool isDicomFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.seek(128) && file.read(4) == "DICM";
}

Volume readDicom(const QString& path, const QString& series,
                 const std::function<void(double)>& progress)
{
    gdcm::Trace::DebugOff(); // its complaints are replaced by sentences
    gdcm::Trace::WarningOff();
    gdcm::Trace::ErrorOff();
    const Failure damaged(path, QStringLiteral("the DICOM files are damaged"));
    // GDCM as packaged checks assertions, and some damaged files fail them, which ends the program.
    rehearse([&] { readSeries(path, series, {}); }, damaged);
    try {
        return readSeries(path, series, progress);
    } catch (const Failure&) {
        throw;
    } catch (const std::exception&) { // GDCM throws for some damaged files
        throw damaged;
    }
}

} // namespace planner
