// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/input/Case.h>

#include <planner/input/Failure.h>
#include <planner/input/Progress.h>
#include <planner/input/VolumeReaders.h>

#include <phantom/Phantom.h>

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

namespace planner {

namespace {

constexpr float kFarthestOutsideMm = 100.0F; // of a landmark that is used

QString sizeAndSpacing(const VexelImage3D& image)
{
    const math::Ivec3 size = image.imageSize();
    const QVector3D spacing = image.voxelSize();
    return QStringLiteral("%1 × %2 × %3 voxels of %4 × %5 × %6 mm")
        .arg(size.x)
        .arg(size.y)
        .arg(size.z)
        .arg(spacing.x(), 0, 'g', 4)
        .arg(spacing.y(), 0, 'g', 4)
        .arg(spacing.z(), 0, 'g', 4);
}

Case paintBuiltInPatient(float voxelSizeMm, Progress& progress)
{
    progress.step(QStringLiteral("Painting the built-in patient"));
    phantom::Settings settings;
    settings.voxelSizeMm = voxelSizeMm;
    const auto patient = std::make_shared<const phantom::Patient>(settings);
    Case built;
    built.title = QStringLiteral("Built-in patient");
    built.volume.image = patient->createVolume(progress.onFraction());
    if (built.volume.image.isEmpty())
        throw Failure(QStringLiteral("There is not enough memory for the built-in patient"));
    built.volume.worldFromVoxel.scale(built.volume.image.voxelSize());
    built.volume.description = QStringLiteral("painted from formulas");
    built.landmarks = landmarksOf(*patient);
    built.patient = patient;
    built.canals = canalsOf(*patient);
    built.source = QStringLiteral("A synthetic patient that is painted from formulas; no person "
                                  "was scanned. Its landmarks are known exactly.");
    return built;
}

Volume openVolume(const QString& path, const QString& series, Progress& progress)
{
    const QFileInfo info(path);
    if (!info.exists())
        throw Failure(path, QStringLiteral("there is no such file or folder"));
    progress.step(
        QStringLiteral("Reading %1").arg(info.fileName().isEmpty() ? path : info.fileName()));
    if (info.isDir() || isDicomFile(path))
        return readDicom(path, series, progress.onFraction());
    if (!series.isEmpty())
        throw Failure(
            path,
            QStringLiteral("--series chooses a DICOM series, and this is no DICOM file or folder"));
    struct Format
    {
        const char* suffix;
        Volume (*read)(const QString&);
    };
    static constexpr Format formats[] = {{".nii", readNifti},     {".nii.gz", readNifti},
                                         {".mha", readMetaImage}, {".mhd", readMetaImage},
                                         {".nrrd", readNrrd},     {".nhdr", readNrrd}};
    const auto* format =
        std::find_if(std::begin(formats), std::end(formats), [&path](const Format& known) {
            return path.endsWith(QLatin1String(known.suffix), Qt::CaseInsensitive);
        });
    if (format == std::end(formats))
        throw Failure(
            path, QStringLiteral("a CT is a NIfTI file (.nii, .nii.gz), a MetaImage file (.mha, "
                                 ".mhd), an NRRD file (.nrrd, .nhdr), or a DICOM file or folder"));
    if (!info.isFile() || !info.isReadable())
        throw Failure(path, QStringLiteral("the file cannot be read"));
    return format->read(path);
}

// The largest distance in mm, along one axis of the volume, by which the position is outside; 0
// inside.
float distanceOutside(const Volume& volume, const QVector3D& position)
{
    const QVector3D voxel = volume.worldFromVoxel.inverted().map(position);
    float largest = 0.0F;
    for (int axis = 0; axis < 3; ++axis) {
        const float beyond =
            std::max(-0.5F - voxel[axis], voxel[axis] - (volume.counts()[axis] - 0.5F));
        largest = std::max(largest, beyond * volume.image.voxelSize()[axis]);
    }
    return largest;
}

// Warns of landmarks outside the volume, and leaves out what is so far away that no view could show
// it.
void checkPlaces(const QString& path, LandmarkFile& file, const Volume& volume)
{
    const auto outside = [&volume](const QVector3D& position) {
        return distanceOutside(volume, position) > 0.0F;
    };
    const auto farOutside = [&volume](const QVector3D& position) {
        return !(distanceOutside(volume, position) <= kFarthestOutsideMm);
    };
    const auto count = file.landmarks.size();
    QStringList names;
    for (const Landmark& landmark : std::as_const(file.landmarks)) {
        if (outside(landmark.position))
            names.append(landmark.name);
    }
    if (!names.isEmpty())
        file.warnings.append(QStringLiteral("%1 of the %2 landmarks are outside the volume, the "
                                            "first is \"%3\": they may be voxels of another grid.")
                                 .arg(names.size())
                                 .arg(count)
                                 .arg(names.first()));
    const auto removed = file.landmarks.removeIf([&](const Landmark& landmark) {
        return farOutside(landmark.position);
    }) + file.canals.removeIf([&](const CanalLine& canal) {
        return std::ranges::any_of(canal.points, farOutside);
    });
    if (removed > 0)
        file.warnings.append(
            QStringLiteral(
                "%1 landmarks or canals are more than %2 mm outside the volume and left out.")
                .arg(removed)
                .arg(kFarthestOutsideMm));
    if (names.size() == count)
        throw Failure(
            path,
            QStringLiteral("every landmark is outside the volume, so they are not of this CT"));
}

// A file that the user named must be good; one that merely lies beside the CT may be something
// else.
void addLandmarks(Case& opened, const CaseFiles& files)
{
    const QFileInfo ct(files.ctPath);
    const QString beside =
        QDir(ct.isDir() ? ct.filePath() : ct.path()).filePath(QStringLiteral("landmarks.json"));
    const bool named = !files.landmarksPath.isEmpty();
    const QString path = named ? files.landmarksPath : beside;
    if (!named && !QFileInfo::exists(path)) {
        opened.remarks.append(QStringLiteral("No landmarks were given, so the views are at the "
                                             "middle of the volume and nothing is marked."));
        return;
    }
    try {
        LandmarkFile file = readLandmarks(path, opened.volume.worldFromVoxel);
        checkPlaces(path, file, opened.volume);
        opened.landmarks = std::move(file.landmarks);
        opened.canals = std::move(file.canals);
        opened.warnings += file.warnings;
        opened.source += QStringLiteral(" Landmarks: %1.").arg(QFileInfo(path).fileName());
    } catch (const Failure& why) {
        if (named)
            throw;
        opened.remarks.append(QStringLiteral("Not used: %1.").arg(QString::fromUtf8(why.what())));
    }
}

} // namespace

Case openCase(const CaseFiles& files, Progress& progress)
{
    if (files.ctPath.isEmpty()) {
        Case built = paintBuiltInPatient(files.voxelSizeMm, progress);
        built.volume.description += QStringLiteral(", ") + sizeAndSpacing(built.volume.image);
        return built;
    }
    Case opened;
    opened.volume = openVolume(files.ctPath, files.series, progress);
    opened.volume.description += QStringLiteral(", ") + sizeAndSpacing(opened.volume.image);
    opened.title = QFileInfo(QDir::cleanPath(files.ctPath)).fileName();
    opened.source = QStringLiteral("A CT that was given to the program.");
    opened.remarks = opened.volume.remarks;
    addLandmarks(opened, files);
    return opened;
}

} // namespace planner
