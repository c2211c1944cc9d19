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
class Surface3DModel;
class SurfaceScan;
class SurgeryPlanningPart;

/// Carries a whole plan into a new scanner frame: every planned object follows the matrix M in the
/// way that fits its kind. docs/transforms.md has the table of the kinds.
///
/// Positions are mapped. Surfaces are moved relatively, in an editing bracket each; trees are moved
/// relatively without a bracket. Implants, pins and templates, whose placement is absolute, get M
/// times their placement. The kinds are taken in the order of the private steps below, in each the
/// objects in the order of the list; an object of several kinds is treated as each of them.
///
/// Null entries and objects of other kinds are passed over, and so are parts that an object lacks:
/// a line without points, an anatomy without models, a surgery without scans of both jaws. A matrix
/// M that is not finite changes nothing and gives an empty list.
///
/// Dental splines (the arches) need the CT for their occlusal index. Unless the first
/// CTDataVolumeObject of the list holds a CT, they stay behind, unmoved and not returned, while all
/// other objects move.
///
/// (1) A rigid M followed by its inverse brings every coordinate back, and M * N in one call equals
/// N, then M, within
///     single-precision rounding: for coordinates and shifts up to 100 mm along each axis, within
///     2^-12 mm.
/// Linear in the number of objects and of their positions and vertices.
class COREALGORITHMS_EXPORT PlanningApplyTransform
{
public:
    PlanningApplyTransform() = default;
    PlanningApplyTransform(const PlanningApplyTransform&) = default;
    PlanningApplyTransform& operator=(const PlanningApplyTransform&) = default;
    virtual ~PlanningApplyTransform();

    /// The plan. Not owned; the objects must be there during applyTransform().
    void setDataObjects(const QList<DataObject*>& objects);
    /// The planning transform with which the occlusion movements of a surgery are computed anew;
    /// identity at first. Nothing else uses it. With one that is not finite, the occlusion
    /// movements are left unchanged.
    void setNewScannerTransform(const QMatrix4x4& transform);

    /// Moves the plan and returns the objects that were changed, in the order in which they were,
    /// each as often as it was treated. Cephalometric planes and surgeries are not among them. M
    /// may be a placement of the plan itself.
    QList<DataObject*> applyTransform(const QMatrix4x4& M);

private:
    friend struct PlanningApplyTransformTestAccess;

    // In the order in which they run.
    void transformPlanarDentalSpline(const QMatrix4x4& matrix);
    void transformToothAnnotations(const QMatrix4x4& matrix);
    void transformAttachablePoint(const QMatrix4x4& matrix);
    void transformPointAnnotations(const QMatrix4x4& matrix);
    void transformLineAnnotations(const QMatrix4x4& matrix);
    void transformPencilAnnotation3D(const QMatrix4x4& matrix);
    void transformPointBasedAnnotation3D(const QMatrix4x4& matrix);
    void transformArrowAnnotation3D(const QMatrix4x4& matrix);
    void transformCircleAnnotation3D(const QMatrix4x4& matrix);
    void transformTextAnnotation3D(const QMatrix4x4& matrix);
    void transformCustomResliceAnnotation(const QMatrix4x4& matrix);
    void transformPolyLines(const QMatrix4x4& matrix);
    void transformGreyValueMeasurement(const QMatrix4x4& matrix);
    void transformSurgicalSplints(const QMatrix4x4& matrix);
    void transformNerve(const QMatrix4x4& matrix);
    void transformSurfaceScans(const QMatrix4x4& matrix);
    void transformSurgeryPlanningPart(const QMatrix4x4& matrix);
    void transformOriginalSurgeryModels(const QMatrix4x4& matrix);
    void transformDistractor(const QMatrix4x4& matrix);
    void transformSoftTissueModel(const QMatrix4x4& matrix);
    void transformSkin(const QMatrix4x4& matrix);
    void transformOsteotomySurface(const QMatrix4x4& matrix);
    void transformSurgery(const QMatrix4x4& matrix);
    void transformTempShell(const QMatrix4x4& matrix);
    void transformTemporomandibularJoints(const QMatrix4x4& matrix);
    void transformAirway(const QMatrix4x4& matrix);
    void transformShowObjects(const QMatrix4x4& matrix);
    void transformPatientSurfaceModel(const QMatrix4x4& matrix);
    void transformCephPlanes(const QMatrix4x4& matrix);
    void transformLockedImplantPlan(const QMatrix4x4& matrix);
    void transformAnchorPin3D(const QMatrix4x4& matrix);
    void transformImplant3D(const QMatrix4x4& matrix);
    void transformPreviewSurgicalTemplates(const QMatrix4x4& matrix);
    void transformSurgicalTemplate3D(const QMatrix4x4& matrix);
    void transformPlannedToPostOpCollection(const QMatrix4x4& matrix);
    void transformApexPoints(const QMatrix4x4& matrix);
    void transformRootCanals(const QMatrix4x4& matrix);

    // Intended: no step of applyTransform(); virtual teeth follow the scan that they were made for.
    void transformVirtualTooth(const QMatrix4x4& matrix);

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

    /// Those of the plan that are of the kind, in order.
    template <typename Kind>
    QList<Kind*> objectsOfKind() const;
    /// Treats every object of the kind and records it.
    template <typename Kind, typename Treatment>
    void changeEach(const Treatment& treat);

    QList<DataObject*> dataObjects;
    QList<DataObject*> changedObjects;
    QMatrix4x4 newScannerTransform;
};
