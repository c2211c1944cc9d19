// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <QList>
#include <QMatrix4x4>
#include <QString>

#include <map>

class DataObject;
class DentalScan;
class Mandibula;
class MaxillofacialSurgery;
class PolyLine;
class SurfaceScan;
class SurgeryPlanningPart;

/// Carries a whole plan into a new scanner frame: every planned object follows the matrix M in the
/// way that fits its kind. docs/transforms.md has the table of the kinds. Positions are mapped.
/// Surfaces and trees of surfaces are moved relative to where they are, each surface in an editing
/// bracket. Implants, pins and templates, whose placement is absolute, get M times their placement.
///
/// Example (examples/move_a_plan.cpp):
/// \code
/// PlanningApplyTransform planning;
/// planning.setDataObjects({&implant, &measurement, &upperScan, &lowerScan, &bite, &surgery});
/// planning.setNewScannerTransform(newScannerTransform);
/// const QList<DataObject*> changed = planning.applyTransform(newFrameFromOld);
/// \endcode
///
/// (1) A rigid M followed by its inverse brings every coordinate back, and M * N in one call equals
///     N, then M, up to rounding to single precision: within 2^-12 mm for coordinates and shifts up
///     to 100 mm along each axis.
class COREALGORITHMS_EXPORT PlanningApplyTransform
{
public:
    PlanningApplyTransform() = default;
    PlanningApplyTransform(const PlanningApplyTransform&) = default;
    PlanningApplyTransform& operator=(const PlanningApplyTransform&) = default;
    virtual ~PlanningApplyTransform();

    /// Sets the objects of the plan. They are not owned and must be alive during applyTransform().
    /// Null entries and objects of other kinds are skipped.
    void setDataObjects(const QList<DataObject*>& objects);
    /// Sets the planning transform with which the occlusion movements of a surgery are recomputed;
    /// the identity by default. Nothing else uses it. If it is not finite, the occlusion movements
    /// are left unchanged.
    void setNewScannerTransform(const QMatrix4x4& transform);

    /// Moves the plan and returns the changed objects in processing order; an object that n steps
    /// process appears n times. Cephalometric planes (drawn through landmarks of the skull) are
    /// moved and the movements of a surgery recomputed, but neither are returned. A matrix that is
    /// not finite changes nothing and gives an empty list. M may be a placement of the plan itself.
    ///
    /// Kinds are processed in the order of the steps below, and the objects of a kind in the order
    /// of the list. An object of several kinds is processed as each of them. Parts that an object
    /// lacks are skipped: a line without points, an anatomy without models, a surgery without scans
    /// of both jaws. Dental splines (the arches) need the CT for their occlusal index: unless the
    /// first CTDataVolumeObject of the list holds a CT, they are not moved and not returned.
    ///
    /// The cost is linear in the number of objects and of their positions and vertices.
    QList<DataObject*> applyTransform(const QMatrix4x4& M);

private:
    friend struct PlanningApplyTransformTestAccess;

    // Moves the objects of one kind and records them.
    using Step = void(const QMatrix4x4& matrix);

    // The steps in the order in which applyTransform() runs them.
    Step transformPlanarDentalSpline, transformToothAnnotations, transformAttachablePoint,
        transformPointAnnotations, transformLineAnnotations, transformPencilAnnotation3D,
        transformPointBasedAnnotation3D, transformArrowAnnotation3D, transformCircleAnnotation3D,
        transformTextAnnotation3D, transformCustomResliceAnnotation, transformPolyLines,
        transformGreyValueMeasurement, transformSurgicalSplints, transformNerve,
        transformSurfaceScans, transformSurgeryPlanningPart, transformOriginalSurgeryModels,
        transformDistractor, transformSoftTissueModel, transformSkin, transformOsteotomySurface,
        transformSurgery, transformTempShell, transformTemporomandibularJoints, transformAirway,
        transformShowObjects, transformPatientSurfaceModel, transformCephPlanes,
        transformLockedImplantPlan, transformAnchorPin3D, transformImplant3D,
        transformPreviewSurgicalTemplates, transformSurgicalTemplate3D,
        transformPlannedToPostOpCollection, transformApexPoints, transformRootCanals;

    // Intended: applyTransform() does not run it; virtual teeth follow the scan that they were made
    // for.
    Step transformVirtualTooth;

    static void transformSurfaceScan(SurfaceScan* scan, const QMatrix4x4& matrix);
    static void transformPolyLine(PolyLine& line, const QMatrix4x4& matrix);
    static void transformMovements(MaxillofacialSurgery* surgery, const QList<DentalScan*>& scans,
                                   const QMatrix4x4& planningTransform,
                                   const std::map<QString, QMatrix4x4>& occlusionTransformations,
                                   const QString& movementMode);
    static void updateCondylePositionTransformation(Mandibula* mandibula, const QMatrix4x4& matrix);
    static void updateAutorotationPositionTransformation(Mandibula* mandibula,
                                                         const QMatrix4x4& matrix);
    static void updateOcclusalPlanePositionTransformation(Mandibula* mandibula,
                                                          const QMatrix4x4& matrix);
    static void updateRotationPosition(SurgeryPlanningPart* part, const QMatrix4x4& matrix);

    QList<DataObject*> dataObjects;
    QList<DataObject*> changedObjects;
    QMatrix4x4 newScannerTransform;
};
