// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <QMatrix4x4>

class AlignableSurface;
class QVector3D;
struct SurfaceScanAlignment;

/// Where does a surface scan stand in the patient, and how is it moved from one of its placements
/// to another?
///
/// An alignment holds the initial placement I, the user's freehand alignment F, the automatic
/// registration G, and the planning transform P that was in force when it was stored; M is the
/// planning transform in force now. From the frame of the raw scan into the world (mm) lead
///
///     freehand total       Tf = M * P^-1 * F * I
///     registration total   Tr = M * G * P^-1 * F * I, or the identity if I, F and G all are
///     current total        T  = Tf if the alignment is freehand-aligned, else Tr
///
/// Products associate from the left. The mesh always stands where the alignment has put it, so
/// every change of state moves it by one relative matrix: the new total times the inverse of the
/// current placement. All totals are those before the move. The move is made within an edit bracket
/// of the surface's model (setObjectTransform(), then refresh()), which is closed also if the host
/// throws. Flags are set after the move, except in freehandOrRegistratedToInitial().
///
/// (1) freehandToRegistration() and registratedToFreehand() are inverse to each other on the mesh.
/// (2) Whatever states a scan went through, its mesh stands at the total of its state.
/// (3) setAlignment() with the stored alignment leaves the mesh where it is.
/// These hold within rounding: each move rounds every coordinate a few times to single precision.
/// For rigid matrices and coordinates below 512 mm a walk of 50 moves ends within 0.005 mm.
///
/// A null surface has identity totals and nothing is done to it. A surface without a model is not
/// moved, but its flags are set. A matrix without inverse is inverted to the identity, as
/// QMatrix4x4::inverted() does; a move by one flattens the mesh permanently. A total that is not
/// finite is returned as the identity.
///
/// A call whose move is not finite changes nothing: the mesh, the flag and the record keep their
/// values, and nobody is notified. Only the matrix is checked. A finite matrix whose fourth row is
/// not (0, 0, 0, 1) can map a vertex to w = 0, and one with huge entries can map it beyond the
/// range of a float. Coordinates of such a vertex become infinite or NaN, and no later move
/// restores them; the other vertices are moved normally.
class COREALGORITHMS_EXPORT SurfaceScanTransformations
{
public:
    SurfaceScanTransformations(const SurfaceScanTransformations&) = default;
    SurfaceScanTransformations& operator=(const SurfaceScanTransformations&) = default;

    static QMatrix4x4 getTotalFreehandTransform(const SurfaceScanAlignment& alignment,
                                                const QMatrix4x4& m);
    static QMatrix4x4 getTotalFreehandTransform(const AlignableSurface* surface,
                                                const QMatrix4x4& m);
    /// The identity if I, F and G all are (P is not looked at), whatever M is.
    static QMatrix4x4 getTotalRegistrationTransform(const SurfaceScanAlignment& alignment,
                                                    const QMatrix4x4& m);
    static QMatrix4x4 getTotalRegistrationTransform(const AlignableSurface* surface,
                                                    const QMatrix4x4& m);
    static QMatrix4x4 getTotalTransform(const SurfaceScanAlignment& alignment, const QMatrix4x4& m);
    static QMatrix4x4 getTotalTransform(const AlignableSurface* surface, const QMatrix4x4& m);

    /// Moves the surface relative to where it stands; the flag stays.
    static void applyTransform(AlignableSurface* surface, QMatrix4x4 matrix);

    /// From the raw scan to Tf, freehand-aligned then.
    static void applyTotalFreehandTransform(AlignableSurface* surface, const QMatrix4x4& m);
    /// From the raw scan to Tr, not freehand-aligned then.
    static void applyTotalRegistratedTransform(AlignableSurface* surface, const QMatrix4x4& m);
    /// Back to the raw scan: by T^-1. Not freehand-aligned then.
    static void removeTotalFreehandOrRegistrated(AlignableSurface* surface, const QMatrix4x4& m);

    /// By Tf * I^-1, from the initial placement, which is not checked. Freehand-aligned then.
    static void initialToFreehand(AlignableSurface* surface, const QMatrix4x4& m);
    /// By Tr * I^-1, from the initial placement, which is not checked. The flag stays as it is.
    static void initialToRegistrated(AlignableSurface* surface, const QMatrix4x4& m);
    /// By Tr * Tf^-1, only if the surface is freehand-aligned; it is not, then.
    static void freehandToRegistration(AlignableSurface* surface, const QMatrix4x4& m);
    /// By Tf * Tr^-1, only if the surface is not freehand-aligned; it is, then.
    static void registratedToFreehand(AlignableSurface* surface, const QMatrix4x4& m);
    /// By I * T^-1. The flag is cleared before the move.
    static void freehandOrRegistratedToInitial(AlignableSurface* surface, const QMatrix4x4& m);

    /// Replaces the stored alignment: refreshes the model once, moves the mesh back to the raw scan
    /// with the old alignment, stores the new one, and moves the mesh to the total that is in force
    /// there. Does nothing if either of the two moves is not finite. The arguments may be the
    /// surface's own record and its parts.
    static void setAlignment(AlignableSurface* surface, const SurfaceScanAlignment& alignment,
                             const QMatrix4x4& m);

    /// How far the surface reaches beyond its centre of mass along a direction, in mm, plus the
    /// margin: of the rotation that takes the direction from (0, 0, 1), the largest third
    /// coordinate of a rotated vertex minus that of the centre, as an absolute value. For (0, 0, 1)
    /// and (0, 0, -1), the height above and the depth below the centre.
    ///
    /// With the bits of QQuaternion::rotatedVector() for every vertex, but about four times as
    /// fast. A vertex that becomes NaN counts for nothing. For a mesh without vertices the largest
    /// coordinate is the lowest float, -3.4028235e38. 0 for a null surface or one without a model.
    static float computeInitialHeightOffset(const AlignableSurface* surface, QVector3D direction,
                                            float margin);

private:
    SurfaceScanTransformations() = default;
    virtual ~SurfaceScanTransformations();
};
