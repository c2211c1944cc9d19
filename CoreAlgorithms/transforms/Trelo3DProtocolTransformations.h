// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

#include <QMatrix4x4>
#include <QVector3D>

class SurfaceScan;

/// Where is a freshly imported jaw scan put, under the Trelo 3D acquisition protocol, before anyone
/// has aligned it?
///
/// Three landmarks a, b, c (world mm) span the plane between the jaws. The scan's centre of mass,
/// placed by the initial matrix, goes to the target point
///
///     t = (b.x, (a.y + c.y) / 2, (a.z + b.z + c.z) / 3)
///
/// with these changes, so that the scan clears the plane by a margin:
///
///     lower jaw (1)    5 mm further along y; down by the scan's height above its centre of mass +
///     3 mm upper jaw (2)    up by the scan's depth below its centre of mass + 1 mm
///
/// Any other jaw keeps t as it is. Heights are those of the raw scan; see
/// SurfaceScanTransformations::computeInitialHeightOffset(), also for a scan without vertices,
/// whose target lies 3.4e38 mm away.
class COREALGORITHMS_EXPORT Trelo3DProtocolTransformations
{
public:
    /// Clearance in mm between the plane of the landmarks and the scan.
    // NOLINTBEGIN(readability-identifier-naming): names that callers know
    static constexpr float INITIAL_HEIGHT_OFFSET_MARGIN_LOWER = 3.0F;
    static constexpr float INITIAL_HEIGHT_OFFSET_MARGIN_UPPER = 1.0F;
    // NOLINTEND(readability-identifier-naming)

    Trelo3DProtocolTransformations(const Trelo3DProtocolTransformations&) = default;
    Trelo3DProtocolTransformations& operator=(const Trelo3DProtocolTransformations&) = default;

    /// Stores `initial` as the scan's initial transform and the way from there to the target as its
    /// freehand transform X, and moves the mesh by one after the other, each in an edit bracket of
    /// its own: it stands at X * initial then. The flag of the alignment is left alone. Nothing is
    /// done for a null scan, or if a matrix would not be finite.
    static void calculateAndApplyInitialSurfaceScanTransformation(SurfaceScan* scan, JawType jaw,
                                                                  const QVector3D& a,
                                                                  const QVector3D& b,
                                                                  const QVector3D& c,
                                                                  const QMatrix4x4& initial);

private:
    friend struct Trelo3DProtocolTransformationsTestAccess;

    Trelo3DProtocolTransformations() = default;
    virtual ~Trelo3DProtocolTransformations();

    /// The translation that takes the centre of mass, as placed by `initial`, to the target point.
    /// The identity for a null scan.
    static QMatrix4x4 calculateInitialTransform(const SurfaceScan* scan, JawType jaw,
                                                const QVector3D& a, const QVector3D& b,
                                                const QVector3D& c, const QMatrix4x4& initial);
    /// The target point. For a null scan without clearance.
    static QVector3D toTargetPosition(const SurfaceScan* scan, JawType jaw, const QVector3D& a,
                                      const QVector3D& b, const QVector3D& c);
    static void applyInitialTransform(SurfaceScan* scan, const QMatrix4x4& matrix);
    static void applyFreehandAlignmentTransform(SurfaceScan* scan, const QMatrix4x4& matrix);
};
