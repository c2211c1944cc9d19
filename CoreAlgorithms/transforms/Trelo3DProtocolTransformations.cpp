// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/transforms/Trelo3DProtocolTransformations.h>

#include <CoreAlgorithms/model/Finite_p.h>
#include <CoreAlgorithms/model/HostValues_p.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceScans.h>
#include <CoreAlgorithms/transforms/SurfaceScanTransformations.h>

namespace {

// How far a lower jaw scan is put behind the center of the landmarks, in mm: its landmarks are on
// the front teeth.
constexpr float kShiftOfLowerJaw = 5.0F;

// Brackets an edit by the scan's own operations; closed even if the host throws.
class EditBracket
{
public:
    explicit EditBracket(SurfaceScan& scanToEdit) : scan(scanToEdit) { scan.startEditing(); }
    EditBracket(const EditBracket&) = delete;
    EditBracket& operator=(const EditBracket&) = delete;
    ~EditBracket() { scan.stopEditing(); }

private:
    SurfaceScan& scan;
};

void move(SurfaceScan& scan, const QMatrix4x4& matrix)
{
    const EditBracket bracket(scan);
    scan.setObjectTransform(matrix);
    scan.refresh();
}

} // namespace

Trelo3DProtocolTransformations::~Trelo3DProtocolTransformations() = default;

void Trelo3DProtocolTransformations::calculateAndApplyInitialSurfaceScanTransformation(
    SurfaceScan* scan, JawType jaw, const QVector3D& a, const QVector3D& b, const QVector3D& c,
    const QMatrix4x4& initial)
{
    if (!scan)
        return;
    const QMatrix4x4 freehand = calculateInitialTransform(scan, jaw, a, b, c, initial);
    if (!finiteness::isFinite(initial) || !finiteness::isFinite(freehand))
        return;
    applyInitialTransform(scan, initial);
    applyFreehandAlignmentTransform(scan, freehand);
}

QMatrix4x4 Trelo3DProtocolTransformations::calculateInitialTransform(
    const SurfaceScan* scan, JawType jaw, const QVector3D& a, const QVector3D& b,
    const QVector3D& c, const QMatrix4x4& initial)
{
    QMatrix4x4 matrix;
    if (!scan)
        return matrix;
    matrix.translate(toTargetPosition(scan, jaw, a, b, c));
    matrix.translate(-initial.map(scan->getCenterOfMass()));
    return matrix;
}

QVector3D Trelo3DProtocolTransformations::toTargetPosition(const SurfaceScan* scan, JawType jaw,
                                                           const QVector3D& a, const QVector3D& b,
                                                           const QVector3D& c)
{
    QVector3D target(b.x(), (a.y() + c.y()) * 0.5F, (a.z() + b.z() + c.z()) / 3.0F);
    if (jaw == JawType(hostvalues::kLowerJaw)) {
        target.setY(target.y() + kShiftOfLowerJaw);
        target.setZ(target.z() -
                    SurfaceScanTransformations::computeInitialHeightOffset(
                        scan, QVector3D(0.0F, 0.0F, 1.0F), INITIAL_HEIGHT_OFFSET_MARGIN_LOWER));
    } else if (jaw == JawType(hostvalues::kUpperJaw)) {
        target.setZ(target.z() +
                    SurfaceScanTransformations::computeInitialHeightOffset(
                        scan, QVector3D(0.0F, 0.0F, -1.0F), INITIAL_HEIGHT_OFFSET_MARGIN_UPPER));
    }
    return target;
}

void Trelo3DProtocolTransformations::applyInitialTransform(SurfaceScan* scan,
                                                           const QMatrix4x4& matrix)
{
    scan->setInitialTransform(matrix);
    move(*scan, matrix);
}

void Trelo3DProtocolTransformations::applyFreehandAlignmentTransform(SurfaceScan* scan,
                                                                     const QMatrix4x4& matrix)
{
    scan->setFreehandTransform(matrix);
    move(*scan, matrix);
}
