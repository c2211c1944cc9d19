// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

#include <QMatrix4x4>
#include <QVector3D>

class SurfaceScan;

/// Places a freshly imported jaw scan under the Trelo 3D acquisition protocol, before anyone has
/// aligned it.
///
/// Three landmarks a, b, c (world mm) span the plane between the jaws. The scan's center of mass,
/// as placed by the initial matrix, is moved to the target point
///
///     t = (b.x, (a.y + c.y) / 2, (a.z + b.z + c.z) / 3)
///
/// with these changes, so that the scan clears the plane by a margin:
///
///     lower jaw (1)    5 mm further along y; down by its height above the center + 3 mm
///     upper jaw (2)    up by its depth below the center + 1 mm
///
/// No other jaw changes t. Heights are those of the raw scan; see
/// SurfaceScanTransformations::computeInitialHeightOffset(), also for a scan without vertices,
/// whose target is 3.4e38 mm away.
class COREALGORITHMS_EXPORT Trelo3DProtocolTransformations
{
public:
    // NOLINTBEGIN(readability-identifier-naming): names that callers know
    /// Clearance in mm between the plane of the landmarks and a lower jaw scan.
    static constexpr float INITIAL_HEIGHT_OFFSET_MARGIN_LOWER = 3.0F;
    /// Clearance in mm between the plane of the landmarks and an upper jaw scan.
    static constexpr float INITIAL_HEIGHT_OFFSET_MARGIN_UPPER = 1.0F;
    // NOLINTEND(readability-identifier-naming)

    Trelo3DProtocolTransformations(const Trelo3DProtocolTransformations&) = default;
    Trelo3DProtocolTransformations& operator=(const Trelo3DProtocolTransformations&) = default;

    /// Stores `initial` as the scan's initial transform and the translation X from there to the
    /// target as its freehand transform. Moves the mesh by `initial` and then by X, each in an edit
    /// bracket of its own, so that it ends at X * initial. The freehand-aligned flag is unchanged.
    /// Does nothing for a null scan, or if either matrix is not finite.
    static void calculateAndApplyInitialSurfaceScanTransformation(SurfaceScan* scan, JawType jaw,
                                                                  const QVector3D& a,
                                                                  const QVector3D& b,
                                                                  const QVector3D& c,
                                                                  const QMatrix4x4& initial);

private:
    friend struct Trelo3DProtocolTransformationsTestAccess;

    Trelo3DProtocolTransformations() = default;
    virtual ~Trelo3DProtocolTransformations();

    // Returns the translation that takes the center of mass, as placed by `initial`, to the target
    // point. Returns the identity for a null scan.
    static QMatrix4x4 calculateInitialTransform(const SurfaceScan* scan, JawType jaw,
                                                const QVector3D& a, const QVector3D& b,
                                                const QVector3D& c, const QMatrix4x4& initial);
    // Returns the target point. A null scan gets no height and no clearance.
    static QVector3D toTargetPosition(const SurfaceScan* scan, JawType jaw, const QVector3D& a,
                                      const QVector3D& b, const QVector3D& c);
    static void applyInitialTransform(SurfaceScan* scan, const QMatrix4x4& matrix);
    static void applyFreehandAlignmentTransform(SurfaceScan* scan, const QMatrix4x4& matrix);
};
