// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/Case.h>

#include <planner/CommandLine.h>
#include <planner/DicomReader.h>
#include <planner/Failure.h>
#include <planner/NiftiReader.h>
#include <planner/Progress.h>

#include <phantom/Phantom.h>

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <memory>
#include <utility>

namespace planner {

namespace {

QString sizeAndSpacing(const VexelImage3D& image)
{
    const math::Ivec3 size = image.imageSize();
    const QVector3D spacing = image.voxelSize();
    return QStringLiteral("%1 × %2 × %3 voxels of %4 × %5 × %6 mm")
        .arg(size.x)
        .arg(size.y)
        .arg(size.z)
        .arg(static_cast<double>(spacing.x()), 0, 'g', 4)
        .arg(static_cast<double>(spacing.y()), 0, 'g', 4)
        .arg(static_cast<double>(spacing.z()), 0, 'g', 4);
}

Case paintBuiltInPatient(float voxelSizeMm, Progress& progress)
{
    progress.step(QStringLiteral("Painting the built-in patient"));
    phantom::Settings settings;
    settings.voxelSizeMm = voxelSizeMm;
    const auto patient = std::make_shared<const phantom::Patient>(settings);
    Case built;
    built.title = QStringLiteral("Built-in patient");
    built.volume.image = patient->createVolume([&progress](double done) { progress.fraction(done); });
    if (built.volume.image.isEmpty())
        throw Failure(QStringLiteral("There is not enough memory for the built-in patient"));
    built.volume.worldFromVoxel.scale(built.volume.image.voxelSize());
    built.volume.description = QStringLiteral("painted from formulas");
    built.landmarks = landmarksOf(*patient);
    built.patient = patient;
    built.canals = canalsOf(*patient);
    built.source = QStringLiteral(
        "A synthetic patient that is painted from formulas; no person was scanned. Its landmarks "
        "are known exactly.");
    return built;
}

Volume readVolume(const QString& path, Progress& progress)
{
    const QFileInfo info(path);
    if (!info.exists())
        throw Failure(path, QStringLiteral("there is no such file or folder"));
    progress.step(QStringLiteral("Reading %1").arg(info.fileName().isEmpty() ? path : info.fileName()));
    if (info.isDir())
        return readDicomFolder(path, [&progress](double done) { progress.fraction(done); });
    const QString name = info.fileName().toLower();
    if (!name.endsWith(u".nii") && !name.endsWith(u".nii.gz"))
        throw Failure(path,
                      QStringLiteral("a CT is a NIfTI file (.nii, .nii.gz) or a folder with DICOM files"));
    if (!info.isFile() || !info.isReadable())
        throw Failure(path, QStringLiteral("the file cannot be read"));
    return readNifti(path);
}

bool isInside(const Volume& volume, const QVector3D& position)
{
    const QVector3D voxel = volume.worldFromVoxel.inverted().map(position);
    const math::Ivec3 size = volume.image.imageSize();
    return voxel.x() >= -0.5F && voxel.y() >= -0.5F && voxel.z() >= -0.5F &&
           voxel.x() <= static_cast<float>(size.x) - 0.5F && voxel.y() <= static_cast<float>(size.y) - 0.5F &&
           voxel.z() <= static_cast<float>(size.z) - 0.5F;
}

// A file that the user named must be good; one that merely lies beside the CT may be something else.
void addLandmarks(Case& opened, const Options& options)
{
    const QFileInfo ct(options.ctPath);
    const QString beside =
        QDir(ct.isDir() ? ct.filePath() : ct.path()).filePath(QStringLiteral("landmarks.json"));
    const bool named = !options.landmarksPath.isEmpty();
    const QString path = named ? options.landmarksPath : beside;
    if (!named && !QFileInfo::exists(path)) {
        opened.remarks.append(QStringLiteral(
            "No landmarks were given, so the views lie at the middle of the volume and nothing is marked."));
        return;
    }
    try {
        QList<Landmark> landmarks = readLandmarks(path, opened.volume.worldFromVoxel);
        const auto outside =
            std::count_if(landmarks.cbegin(), landmarks.cend(),
                          [&opened](const Landmark& l) { return !isInside(opened.volume, l.position); });
        if (outside == landmarks.size())
            throw Failure(
                path, QStringLiteral("every landmark lies outside the volume, so they are not of this CT"));
        if (outside > 0)
            opened.remarks.append(QStringLiteral("%1 of the %2 landmarks lie outside the volume.")
                                      .arg(outside)
                                      .arg(landmarks.size()));
        opened.canals = readCanals(path, opened.volume.worldFromVoxel);
        opened.landmarks = std::move(landmarks);
        opened.source += QStringLiteral(" Landmarks: %1.").arg(QFileInfo(path).fileName());
    } catch (const Failure& why) {
        if (named)
            throw;
        opened.remarks.append(QStringLiteral("Not used: %1.").arg(QString::fromUtf8(why.what())));
    }
}

} // namespace

Case openCase(const Options& options, Progress& progress)
{
    if (options.ctPath.isEmpty()) {
        Case built = paintBuiltInPatient(options.voxelSizeMm, progress);
        built.volume.description += QStringLiteral(", ") + sizeAndSpacing(built.volume.image);
        return built;
    }
    Case opened;
    opened.volume = readVolume(options.ctPath, progress);
    opened.volume.description += QStringLiteral(", ") + sizeAndSpacing(opened.volume.image);
    opened.title = QFileInfo(QDir::cleanPath(options.ctPath)).fileName();
    opened.source = QStringLiteral("A CT that was given to the program.");
    opened.remarks = opened.volume.remarks;
    addLandmarks(opened, options);
    return opened;
}

} // namespace planner
