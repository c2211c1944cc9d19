// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/planning/JawScans.h>

#include <planner/planning/Vectors.h>

#include <CoreAlgorithms/model/dataobjects/JawParts.h>
#include <CoreAlgorithms/model/dataobjects/Occlusions.h>
#include <CoreAlgorithms/model/dataobjects/ScanSetups.h>
#include <CoreAlgorithms/transforms/OcclusionTransformCalculator.h>
#include <CoreAlgorithms/transforms/ScanSetupTransformationHelper.h>
#include <CoreAlgorithms/transforms/SurfaceScanTransformations.h>
#include <CoreAlgorithms/transforms/Trelo3DProtocolTransformations.h>

#include <phantom/Phantom.h>

#include <Eigen/Geometry>

#include <algorithm>

namespace planner {

namespace {

using Operations = SurfaceScanTransformations;

QMatrix4x4 rigid(float degrees, const QVector3D& axis, const QVector3D& shift)
{
    QMatrix4x4 matrix;
    matrix.translate(shift);
    matrix.rotate(degrees, axis);
    return matrix;
}

geometry::Mesh moved(geometry::Mesh mesh, const QMatrix4x4& matrix)
{
    mesh.applyTransformation(matrix);
    return mesh;
}

// Largest distance of a vertex from the place to which the matrix takes the raw one, worked out in
// double precision.
double deviation(const geometry::Mesh& mesh, const geometry::Mesh& raw,
                 const Eigen::Matrix4d& placement)
{
    double largest = 0.0;
    for (int i = 0; i < raw.getNumVertices(); ++i) {
        const Eigen::Vector3d expected =
            (placement * toEigen(raw.getVertices()[i]).homogeneous()).head<3>();
        largest = std::max(largest, (toEigen(mesh.getVertices()[i]) - expected).norm());
    }
    return largest;
}

// The crowns around the origin, turned.
QMatrix4x4 scannerOf(const geometry::Mesh& crowns, float degrees, const QVector3D& axis,
                     const QVector3D& shift)
{
    QMatrix4x4 matrix = rigid(degrees, axis, shift);
    matrix.translate(-crowns.getBoundingBox().center());
    return matrix;
}

} // namespace

JawScan::JawScan(const geometry::Mesh& mesh, const QMatrix4x4& matrix, JawType jaw)
    : crowns(mesh),
      raw(moved(mesh, matrix)),
      scannerFromWorld(matrix),
      scan(std::make_shared<DentalScan>())
{
    scan->setMesh(raw);
    scan->setJawType(jaw);
}

double JawScan::distanceFromCrowns() const
{
    const geometry::Mesh& mesh = scan->getMesh();
    double sum = 0.0;
    for (int i = 0; i < crowns.getNumVertices(); ++i)
        sum += (toEigen(mesh.getVertices()[i]) - toEigen(crowns.getVertices()[i])).norm();
    return crowns.getNumVertices() > 0 ? sum / crowns.getNumVertices() : 0.0;
}

JawScans::JawScans(const geometry::Mesh& lowerCrowns, const geometry::Mesh& upperCrowns)
    : middle((lowerCrowns.getBoundingBox().center() + upperCrowns.getBoundingBox().center()) *
             0.5F),
      lower(lowerCrowns,
            scannerOf(lowerCrowns, 50.0F, {0.2F, 0.3F, 1.0F},
                      middle + QVector3D(-28.0F, -5.0F, -24.0F)),
            LowerJaw),
      upper(upperCrowns, scannerOf(upperCrowns, -115.0F, {1.0F, 0.1F, -0.3F}, {12.0F, 4.0F, 9.0F}),
            UpperJaw)
{}

void moveThroughPlacements(JawScan& lower, const phantom::Patient& patient,
                           const std::function<void(const ScanStep&)>& placed)
{
    const auto record = [&](const QString& what, const QString& operation,
                            const Eigen::Matrix4d& placement) {
        placed({what, operation, deviation(lower.scan->getMesh(), lower.raw, placement),
                lower.distanceFromCrowns()});
    };
    DentalScan* scan = lower.scan.get();
    const QMatrix4x4 planning;
    const QMatrix4x4 upright = rigid(-42.0F, {0.3F, 0.25F, 1.0F}, {}); // only roughly
    record(QStringLiteral("as scanned"), QStringLiteral("-"), Eigen::Matrix4d::Identity());

    Trelo3DProtocolTransformations::calculateAndApplyInitialSurfaceScanTransformation(
        scan, LowerJaw, patient.tooth(4).value().occlusalPoint,
        patient.tooth(8).value().occlusalPoint, patient.tooth(13).value().occlusalPoint, upright);
    record(QStringLiteral("imported"),
           QStringLiteral("calculateAndApplyInitialSurfaceScanTransformation"),
           toEigen(scan->getFreehandTransform()) * toEigen(upright));

    // The hand is off by 5 mm and 6 degrees, and the registration takes that back.
    const QVector3D pivot = patient.tooth(24).value().occlusalPoint;
    QMatrix4x4 error = rigid(6.0F, {0.4F, 1.0F, 0.3F}, pivot + QVector3D(3.0F, -2.0F, -3.5F));
    error.translate(-pivot);
    SurfaceScanAlignment alignment = scan->getSurfaceScanAlignment();
    alignment.freehandTransform = error * lower.scannerFromWorld.inverted() * upright.inverted();
    alignment.registrationTransform = error.inverted();
    alignment.freehandAligned = true;
    const Eigen::Matrix4d initial = toEigen(upright);
    const Eigen::Matrix4d freehand = toEigen(alignment.freehandTransform) * initial;
    const Eigen::Matrix4d registered = toEigen(alignment.registrationTransform) * freehand;

    Operations::setAlignment(scan, alignment, planning);
    record(QStringLiteral("freehand"), QStringLiteral("setAlignment"), freehand);
    Operations::freehandToRegistration(scan, planning);
    record(QStringLiteral("registration"), QStringLiteral("freehandToRegistration"), registered);
    Operations::registratedToFreehand(scan, planning);
    record(QStringLiteral("freehand again"), QStringLiteral("registratedToFreehand"), freehand);
    Operations::freehandOrRegistratedToInitial(scan, planning);
    record(QStringLiteral("initial"), QStringLiteral("freehandOrRegistratedToInitial"), initial);
    Operations::initialToRegistrated(scan, planning);
    record(QStringLiteral("registration again"), QStringLiteral("initialToRegistrated"),
           registered);
    Operations::removeTotalFreehandOrRegistrated(scan, planning);
    record(QStringLiteral("as scanned again"), QStringLiteral("removeTotalFreehandOrRegistrated"),
           Eigen::Matrix4d::Identity());
    Operations::applyTotalRegistratedTransform(scan, planning);
    record(QStringLiteral("registration, at last"),
           QStringLiteral("applyTotalRegistratedTransform"), registered);
}

void openMouth(JawScans& scans)
{
    const QMatrix4x4 planning;
    SurfaceScanAlignment alignment;
    alignment.initialTransform = scans.upper.scannerFromWorld.inverted();
    Operations::setAlignment(scans.upper.scan.get(), alignment, planning);

    // About an axis through the jaw joints, some 60 mm behind and 35 mm above.
    const QVector3D joints = scans.middle + QVector3D(0.0F, 60.0F, 35.0F);
    QMatrix4x4 open = rigid(14.0F, {1.0F, 0.0F, 0.0F}, joints);
    open.translate(-joints);
    alignment.initialTransform = open * scans.lower.scannerFromWorld.inverted();
    Operations::setAlignment(scans.lower.scan.get(), alignment, planning);
}

void closeMouth(JawScans& scans)
{
    // The articulator has a frame of its own.
    const QMatrix4x4 articulator = rigid(40.0F, {0.0F, 1.0F, 1.0F}, {-20.0F, 10.0F, 300.0F});
    Occlusion occlusion;
    occlusion.setTransformations(
        {{Maxilla::getClassTypeId(), articulator * scans.upper.scannerFromWorld.inverted()},
         {Mandibula::getClassTypeId(), articulator * scans.lower.scannerFromWorld.inverted()}});
    const QMatrix4x4 planning;
    const auto moves =
        OcclusionTransformCalculator(occlusion, *scans.upper.scan, *scans.lower.scan, planning)
            .calculateTransformations(OcclusionTransformCalculator::MandibulaToMaxilla);
    for (const auto& [part, move] : moves)
        Operations::applyTransform(scans.lower.scan.get(), move);
}

SynthesizedBite synthesizeBite(const geometry::Mesh& upperCrowns, const geometry::Mesh& lowerCrowns)
{
    const auto centered = [](const geometry::Mesh& mesh) {
        QMatrix4x4 matrix;
        matrix.translate(-mesh.getBoundingBox().center());
        return moved(mesh, matrix);
    };
    QMatrix4x4 crownsUp;
    crownsUp.rotate(180.0F, 0.0F, 1.0F, 0.0F);
    const auto upper = std::make_shared<ScannableRegion>();
    upper->setRegion(ToothChart::Tooth(2), ToothChart::Tooth(15));
    upper->setMesh(moved(centered(upperCrowns), crownsUp));
    const auto lower = std::make_shared<ScannableRegion>();
    lower->setRegion(ToothChart::Tooth(18), ToothChart::Tooth(31));
    lower->setMesh(centered(lowerCrowns));
    ScanSetup setup;
    setup.addScannableRegion(upper);
    setup.addScannableRegion(lower);

    SynthesizedBite bite{upper->getMesh(), lower->getMesh(), {}};
    bite.upperInBite = moved(
        bite.upper,
        ScanSetupTransformationHelper::getOcclusionTransformation(&setup).upperTransformation);
    bite.gapMm = double(bite.upperInBite.getBoundingBox().min().z()) -
                 double(bite.lower.getBoundingBox().max().z());
    return bite;
}

} // namespace planner
