// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <QMatrix4x4>

class AlignableSurface;
class QVector3D;
struct SurfaceScanAlignment;

/// Places a surface scan in the patient and moves it from one of its placements to another. A
/// surface scan is a mesh of teeth and gums, recorded by a camera in the mouth or from a plaster
/// model, in a frame of its own.
///
/// An alignment holds the initial placement I, the user's freehand alignment F, the automatic
/// registration G, and the planning transform P that was in force when it was stored. M is the
/// planning transform in force now. These products map the raw scan into the world (mm):
///
///     freehand total       Tf = M * P^-1 * F * I
///     registration total   Tr = M * G * P^-1 * F * I, or the identity if I, F and G all are
///     current total        T  = Tf if the alignment is freehand-aligned, else Tr
///
/// Products associate from the left. A change of state moves the mesh by one relative matrix, the
/// new total times the inverse of the current placement; both are computed before the move. The
/// move is one edit bracket of the surface's model (setObjectTransform(), then refresh()), which is
/// closed even if the host throws.
///
/// Example (examples/align_a_surface_scan.cpp):
/// \code
/// SurfaceScan scan;
/// scan.setMesh(rawMesh);
/// SurfaceScanAlignment alignment;
/// alignment.initialTransform = initial;
/// alignment.freehandTransform = byHand;
/// alignment.registrationTransform = registration;
/// alignment.referenceTransform = planning;
/// alignment.freehandAligned = true;
/// SurfaceScanTransformations::setAlignment(&scan, alignment, planning);
/// const QVector3D placedByHand = scan.getMesh().getVertices().first();
/// SurfaceScanTransformations::freehandToRegistration(&scan, planning);
/// const QVector3D registered = scan.getMesh().getVertices().first();
/// \endcode
///
/// (1) freehandToRegistration() and registratedToFreehand() are inverse to each other on the mesh.
/// (2) After any sequence of changes, the mesh is at the total of its state.
/// (3) setAlignment() with the stored alignment leaves the mesh where it is.
/// They hold up to rounding: each move rounds every coordinate a few times to single precision. For
/// rigid matrices and coordinates below 512 mm, a walk of 50 moves ends within 0.005 mm.
///
/// Operations do nothing to a null surface. A surface without a model is not moved, but its flag
/// changes. A matrix without inverse is inverted to the identity, as QMatrix4x4::inverted() does; a
/// move by a singular matrix flattens the mesh permanently.
///
/// A call whose move is not finite changes nothing: the mesh, the flag and the record keep their
/// values, and nobody is notified. Only the matrix is checked. A finite matrix can still map a
/// vertex to w = 0 or beyond the range of a float; the coordinates of such a vertex become infinite
/// or NaN permanently, and the other vertices are moved normally.
class COREALGORITHMS_EXPORT SurfaceScanTransformations
{
public:
    SurfaceScanTransformations(const SurfaceScanTransformations&) = default;
    SurfaceScanTransformations& operator=(const SurfaceScanTransformations&) = default;

    /// Returns Tf of the alignment, or the identity if Tf is not finite.
    static QMatrix4x4 getTotalFreehandTransform(const SurfaceScanAlignment& alignment,
                                                const QMatrix4x4& m);
    /// Does the same for a surface's own alignment. A null surface gives the identity.
    static QMatrix4x4 getTotalFreehandTransform(const AlignableSurface* surface,
                                                const QMatrix4x4& m);
    /// Returns Tr of the alignment, or the identity if Tr is not finite. If I, F and G all are the
    /// identity, so is the result, whatever P and M are.
    static QMatrix4x4 getTotalRegistrationTransform(const SurfaceScanAlignment& alignment,
                                                    const QMatrix4x4& m);
    /// Does the same for a surface's own alignment. A null surface gives the identity.
    static QMatrix4x4 getTotalRegistrationTransform(const AlignableSurface* surface,
                                                    const QMatrix4x4& m);
    /// Returns T of the alignment, or the identity if T is not finite.
    static QMatrix4x4 getTotalTransform(const SurfaceScanAlignment& alignment, const QMatrix4x4& m);
    /// Does the same for a surface's own alignment. A null surface gives the identity.
    static QMatrix4x4 getTotalTransform(const AlignableSurface* surface, const QMatrix4x4& m);

    /// Moves the mesh by the matrix, relative to where it is. The flag is unchanged.
    static void applyTransform(AlignableSurface* surface, QMatrix4x4 matrix);

    /// Moves the raw scan to Tf and sets the freehand-aligned flag.
    static void applyTotalFreehandTransform(AlignableSurface* surface, const QMatrix4x4& m);
    /// Moves the raw scan to Tr and clears the flag.
    static void applyTotalRegistratedTransform(AlignableSurface* surface, const QMatrix4x4& m);
    /// Moves the mesh by T^-1, back to the raw scan, and clears the flag.
    static void removeTotalFreehandOrRegistrated(AlignableSurface* surface, const QMatrix4x4& m);

    /// Moves the mesh by Tf * I^-1 and sets the flag. The mesh must be at the initial placement,
    /// which is not checked.
    static void initialToFreehand(AlignableSurface* surface, const QMatrix4x4& m);
    /// Moves the mesh by Tr * I^-1 and leaves the flag unchanged. The mesh must be at the initial
    /// placement, which is not checked.
    static void initialToRegistrated(AlignableSurface* surface, const QMatrix4x4& m);
    /// Moves the mesh by Tr * Tf^-1 and clears the flag. Does nothing if the flag is clear.
    static void freehandToRegistration(AlignableSurface* surface, const QMatrix4x4& m);
    /// Moves the mesh by Tf * Tr^-1 and sets the flag. Does nothing if the flag is set.
    static void registratedToFreehand(AlignableSurface* surface, const QMatrix4x4& m);
    /// Clears the flag, then moves the mesh by I * T^-1. T is that of the flag before.
    static void freehandOrRegistratedToInitial(AlignableSurface* surface, const QMatrix4x4& m);

    /// Replaces the stored alignment. Refreshes the model once, moves the mesh back to the raw scan
    /// with the old alignment, stores the new one, and moves the mesh to its current total. Does
    /// nothing if either of the two moves is not finite. The arguments may be the surface's own
    /// record and its parts.
    static void setAlignment(AlignableSurface* surface, const SurfaceScanAlignment& alignment,
                             const QMatrix4x4& m);

    /// Returns how far the mesh reaches beyond its center of mass along the direction, plus the
    /// margin, in mm. All vertices and the center are rotated by the rotation that takes (0, 0, 1)
    /// to the direction; the reach is the absolute difference between the largest rotated z of a
    /// vertex and that of the center. For (0, 0, 1) and (0, 0, -1) it is the height above and the
    /// depth below the center.
    ///
    /// Rotated coordinates have the bits of QQuaternion::rotatedVector(). A vertex that becomes NaN
    /// is ignored. For a mesh without vertices the largest z is the lowest float, -3.4028235e38.
    /// Returns 0 for a null surface or one without a model.
    static float computeInitialHeightOffset(const AlignableSurface* surface, QVector3D direction,
                                            float margin);

private:
    SurfaceScanTransformations() = default;
    virtual ~SurfaceScanTransformations();
};
