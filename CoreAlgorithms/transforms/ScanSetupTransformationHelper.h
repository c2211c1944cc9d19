// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <CoreAlgorithms/model/fundamentals/ToothChart.h>
#include <CoreAlgorithms/transforms/OcclusionTransformation.h>

#include <QList>
#include <QMatrix4x4>

class ScanSetup;
class SurfaceTree;

namespace dataobject {
class SurfaceObject;
} // namespace dataobject

namespace primitives {
class BoundingBox;
} // namespace primitives

/// In which bite do the scans of a scan setup stand?
///
/// If the setup's occlusion scan is calculated, in the bite that it holds. If not, in one that is
/// made up: the upper jaw's surfaces are turned by 180 degrees about a vertical line (along y)
/// through the centre of all surfaces and lifted, so that 20 mm stay between the jaws; everything
/// else stays where it is. With the boxes U and L of the jaws and the centre c of the box round all
/// surfaces (mm):
///
///     T(c) * R(180 degrees about y) * T(-c) * T(0, 0, dz)
///
///     dz = U.min.z - L.max.z - 20                neither box is null
///          -U.height - 20                        only U is there
///          L.center.z + L.height / 2 - 20        only L is there
///          0                                     both are null
///
/// Whether a box is null is the host's rule; in the bundled model the box of six zeros is. A
/// surface belongs to the upper jaw if the arch of its first tooth is UpperArch (0), to the lower
/// jaw otherwise.
///
/// Missing input gives identity matrices or the bite made up from what is there; a made-up matrix
/// that is not finite, as from boxes that are not, is the identity.
class COREALGORITHMS_EXPORT ScanSetupTransformationHelper
{
public:
    /// The bite of the setup, recorded or made up. A null setup gives three identity matrices.
    static OcclusionTransformation getOcclusionTransformation(const ScanSetup* setup);
    /// The same; where a bite is made up and the setup has no usable box of the upper jaw (null or
    /// not valid), that of the tree stands for it, but the centre stays that of the setup's own
    /// surfaces. Identity matrices if either is null.
    static OcclusionTransformation getOcclusionTransformation(const SurfaceTree* tree,
                                                              const ScanSetup* setup);

    /// The made-up matrix of the upper jaw for two boxes. The centre is that of the union of both
    /// with a box of six zeros, which adds nothing where such a box is null.
    static QMatrix4x4
    getFakeOcclusionTransformationForUpperJaw(const primitives::BoundingBox& upper,
                                              const primitives::BoundingBox& lower);

    /// The relative matrix for exporting one jaw together with its antagonist: lower^-1 * upper for
    /// UpperArch, upper^-1 * lower for LowerArch, the identity for any other value. The identity
    /// too without an occlusion scan; one that is not calculated counts with the bite that is made
    /// up.
    static QMatrix4x4 getAntagonistExportTransformation(ToothChart::ArchType archType,
                                                        const ScanSetup* setup);

private:
    friend struct ScanSetupTransformationHelperTestAccess;

    using Surfaces = QList<const dataobject::SurfaceObject*>;

    /// True and the bite in `out` if the setup has one that is calculated; else `out` is left
    /// alone.
    static bool getOcclusionScanTransformations(const ScanSetup* setup,
                                                OcclusionTransformation& out);
    /// Appends the setup's surfaces to those of the upper (first) and the lower jaw (second).
    static void collectJawSurfaces(const ScanSetup& setup, Surfaces& first, Surfaces& second);
    /// Boxes of the upper jaw, of the lower jaw and of both. False for a setup without regions and
    /// raw scan data; the boxes are left alone then.
    static bool getJawBoundingBoxes(const ScanSetup& setup, primitives::BoundingBox& firstBox,
                                    primitives::BoundingBox& secondBox,
                                    primitives::BoundingBox& combinedBox);
    static QMatrix4x4
    calculateFakeOcclusionTransformationForUpperJaw(const primitives::BoundingBox& upper,
                                                    const primitives::BoundingBox& lower,
                                                    const primitives::BoundingBox& combined);
};
