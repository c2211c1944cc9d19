// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Describes surface scans, scan setups and occlusions.

#include <CoreAlgorithms/model/contract/Requirements.h>

#include <QList>
#include <QMatrix4x4>
#include <QString>
#include <QVector3D>

#include <concepts>
#include <map>

namespace hostcontract {

// One requirement per line.
// clang-format off

/// Describes SurfaceScanAlignment.
template <typename Alignment>
concept AlignmentValue = std::copyable<Alignment> && requires(const Alignment& alignment)
{
    { alignment.initialTransform } -> Exactly<QMatrix4x4>;
    { alignment.freehandTransform } -> Exactly<QMatrix4x4>;
    { alignment.registrationTransform } -> Exactly<QMatrix4x4>;
    { alignment.referenceTransform } -> Exactly<QMatrix4x4>;
    { alignment.freehandAligned } -> std::convertible_to<bool>;
};

/// Describes AlignableSurface, whose model may be null.
template <typename Surface, typename Alignment, typename Model, typename JawType>
concept AlignableSurfaceFamily =
    requires(const Surface& surface, Surface& changeable, const Alignment& alignment, bool aligned)
{
    { surface.getSurfaceModel() } -> std::convertible_to<const Model*>;
    { changeable.getSurfaceModel() } -> std::convertible_to<Model*>;
    changeable.setSurfaceScanAlignment(alignment);
    { surface.getReferenceTransform() } -> Exactly<QMatrix4x4>;
    { surface.getInitialTransform() } -> Exactly<QMatrix4x4>;
    { surface.getRegistrationTransform() } -> Exactly<QMatrix4x4>;
    { surface.isFreehandAligned() } -> std::convertible_to<bool>;
    changeable.setFreehandAligned(aligned);
    { surface.getFreehandTransform() } -> Exactly<QMatrix4x4>;
    { surface.getJawType() } -> Exactly<JawType>;
};

/// Describes SurfaceScan, a surface model and an alignable surface at once. DentalScan is an
/// alignable surface too.
template <typename Scan, typename Model, typename Surface>
concept SurfaceScanFamily = TypedObject<Scan> && std::derived_from<Scan, Model> &&
    std::derived_from<Scan, Surface> &&
    requires(const Scan& scan, Scan& changeable, const QMatrix4x4& matrix)
{
    { scan.getCenterOfMass() } -> Exactly<QVector3D>;
    changeable.setInitialTransform(matrix);
    changeable.setFreehandTransform(matrix);
    changeable.startEditing();
    changeable.stopEditing();
    changeable.setObjectTransform(matrix);
    changeable.refresh();
};

/// Describes OcclusionScan.
template <typename Scan>
concept OcclusionScanFamily = requires(const Scan& scan)
{
    { scan.isCalculated() } -> std::convertible_to<bool>;
    { scan.getUpperTransformation() } -> Exactly<QMatrix4x4>;
    { scan.getLowerTransformation() } -> Exactly<QMatrix4x4>;
    { scan.getVestibularTransformation() } -> Exactly<QMatrix4x4>;
};

/// Describes ScannableRegion.
template <typename Region, typename SurfaceObject, typename Tooth>
concept ScannableRegionFamily = std::convertible_to<const Region*, const SurfaceObject*> &&
    requires(const Region& region)
{
    { region.getRegionStart() } -> Exactly<Tooth>;
};

/// Describes QuarnRawScanData, whose intermediate surface may be null.
template <typename Data, typename SurfaceObject, typename Tooth>
concept RawScanDataFamily = std::convertible_to<const Data*, const SurfaceObject*> &&
    requires(const Data& data)
{
    { data.hasOnlyIntermediateMesh() } -> std::convertible_to<bool>;
    { data.getIntermediateSurface() } -> std::convertible_to<const SurfaceObject*>;
    { data.getScannedTeeth() } -> Exactly<QList<Tooth>>;
};

/// Describes ScanSetup and the lists to which it leads. Their entries may be null.
template <typename Setup, typename OcclusionScan, typename Region, typename Data>
concept ScanSetupFamily = requires(const Setup& setup, bool includeEmpty)
{
    { setup.getOcclusionScan() } -> std::convertible_to<const OcclusionScan*>;
    { setup.getScannableRegions().isEmpty() } -> std::convertible_to<bool>;
    { *setup.getScannableRegions().begin() } -> std::convertible_to<const Region*>;
    { setup.getQuarnRawScanData(includeEmpty).isEmpty() } -> std::convertible_to<bool>;
    { *setup.getQuarnRawScanData(includeEmpty).begin() } -> std::convertible_to<const Data*>;
};

/// Describes Occlusion and dataobject::VirtualOcclusion.
template <typename Occlusion>
concept OcclusionFamily = requires(const Occlusion& occlusion)
{
    { occlusion.getTransformations() } -> Exactly<std::map<QString, QMatrix4x4>>;
    { occlusion.isSegmental() } -> std::convertible_to<bool>;
};

// clang-format on

} // namespace hostcontract
