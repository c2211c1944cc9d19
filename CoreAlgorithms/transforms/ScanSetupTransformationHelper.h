// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <CoreAlgorithms/model/fundamentals/ToothChart.h>
#include <CoreAlgorithms/transforms/OcclusionTransformation.h>

#include <QMatrix4x4>

class ScanSetup;
class SurfaceTree;

namespace primitives {
class BoundingBox;
} // namespace primitives

/// Finds the bite in which the scans of a scan setup are: a scan setup lists what is to be scanned
/// in the mouth and what has been scanned.
///
/// If the setup's occlusion scan (a scan of the closed bite) is calculated, its matrices are the
/// bite. If not, a bite is synthesized: the upper jaw's surfaces are turned by 180 degrees about a
/// vertical line (along y) through the center of all surfaces and lifted, so that 20 mm stay
/// between the jaws; everything else stays where it is. With the boxes U and L of the jaws and the
/// center c of the box around all surfaces (mm), the upper jaw's matrix is
///
///     T(c) * R(180 degrees about y) * T(-c) * T(0, 0, dz)
///
///     dz = U.min.z - L.max.z - 20                neither box is null
///          -U.height - 20                        only L is null
///          L.center.z + L.height / 2 - 20        only U is null
///          0                                     both are null
///
/// The host decides which boxes are null; in the bundled model the box of six zeros is. A surface
/// belongs to the upper jaw if the arch of its first tooth is UpperArch (0), to the lower jaw
/// otherwise. Missing input gives identity matrices or the bite synthesized from what there is. A
/// synthesized matrix that is not finite is replaced by the identity.
class COREALGORITHMS_EXPORT ScanSetupTransformationHelper
{
public:
    /// Returns the bite of the setup, recorded or synthesized. A null setup gives three identity
    /// matrices.
    static OcclusionTransformation getOcclusionTransformation(const ScanSetup* setup);
    /// Does the same with a tree of surfaces for the upper jaw: where a bite is synthesized and the
    /// setup's box of the upper jaw is null or invalid, the tree's box is used for U. The center c
    /// stays that of the setup's own surfaces. If either argument is null, returns three identity
    /// matrices.
    static OcclusionTransformation getOcclusionTransformation(const SurfaceTree* tree,
                                                              const ScanSetup* setup);

    /// Returns the synthesized matrix of the upper jaw for two boxes. The center c is that of the
    /// union of both with a box of six zeros, which adds nothing where such a box is null.
    static QMatrix4x4
    getFakeOcclusionTransformationForUpperJaw(const primitives::BoundingBox& upper,
                                              const primitives::BoundingBox& lower);

    /// Returns the relative matrix for exporting one jaw together with its antagonist (the jaw that
    /// it bites on): lower^-1 * upper for UpperArch, upper^-1 * lower for LowerArch, the identity
    /// for any other value. Without an occlusion scan, returns the identity; for an occlusion scan
    /// that is not calculated, uses the synthesized bite. A result that is not finite is replaced
    /// by the identity.
    static QMatrix4x4 getAntagonistExportTransformation(ToothChart::ArchType archType,
                                                        const ScanSetup* setup);

private:
    friend struct ScanSetupTransformationHelperTestAccess;

    // Returns true and sets `out` to the recorded bite if there is one that is calculated.
    // Otherwise returns false and leaves `out` unchanged.
    static bool getOcclusionScanTransformations(const ScanSetup* setup,
                                                OcclusionTransformation& out);
    static QMatrix4x4
    calculateFakeOcclusionTransformationForUpperJaw(const primitives::BoundingBox& upper,
                                                    const primitives::BoundingBox& lower,
                                                    const primitives::BoundingBox& combined);
};
