// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/transforms/PlanningApplyTransform.h>

#include <CoreAlgorithms/dental/OcclusalPropertiesCalculator.h>
#include <CoreAlgorithms/dental/PlanarDentalSplineUpdater.h>
#include <CoreAlgorithms/model/Finite_p.h>
#include <CoreAlgorithms/model/HostValues_p.h>
#include <CoreAlgorithms/model/dataobjects/Annotations.h>
#include <CoreAlgorithms/model/dataobjects/CTData.h>
#include <CoreAlgorithms/model/dataobjects/Distraction.h>
#include <CoreAlgorithms/model/dataobjects/Endodontics.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Implants.h>
#include <CoreAlgorithms/model/dataobjects/JawParts.h>
#include <CoreAlgorithms/model/dataobjects/Joints.h>
#include <CoreAlgorithms/model/dataobjects/Movements.h>
#include <CoreAlgorithms/model/dataobjects/Occlusions.h>
#include <CoreAlgorithms/model/dataobjects/PatientSurfaces.h>
#include <CoreAlgorithms/model/dataobjects/PlacedSurfaces.h>
#include <CoreAlgorithms/model/dataobjects/Plans.h>
#include <CoreAlgorithms/model/dataobjects/PolyLines.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceScans.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceTrees.h>
#include <CoreAlgorithms/model/dataobjects/Teeth.h>
#include <CoreAlgorithms/model/dataobjects/VolumeObject.h>
#include <CoreAlgorithms/transforms/OcclusionMovementCalculator.h>
#include <CoreAlgorithms/transforms/OcclusionMovements.h>
#include <CoreAlgorithms/transforms/SetOcclusionMovementTransformationsUndoCommand.h>
#include <CoreAlgorithms/transforms/SurfaceScanTransformations.h>

#include <QVarLengthArray>

#include <algorithm>
#include <typeinfo>

namespace {

// These enumerators are stated by value, since each host has its own names for them.
constexpr auto kScannerTransformation =
    TransformManipulationType(hostvalues::kScannerTransformation);
constexpr auto kOnlyContext = Context(hostvalues::kVolumeContext);
constexpr auto kCreatedFromSpline = CreationType(hostvalues::kAutomaticallyCreated);

// Remembers the classes that are not of the kind: a plan has many objects of few classes.
template <typename Kind>
QList<Kind*> objectsOfKind(const QList<DataObject*>& objects)
{
    QList<Kind*> found;
    QVarLengthArray<const std::type_info*, 48> otherClasses;
    for (DataObject* object : objects) {
        if (!object || otherClasses.contains(&typeid(*object)))
            continue;
        if (auto* ofKind = dynamic_cast<Kind*>(object))
            found.append(ofKind);
        else
            otherClasses.append(&typeid(*object));
    }
    return found;
}

// What is done with one object.

void moveSurface(Surface3DModel& surface, const QMatrix4x4& matrix)
{
    const EditLocker lock(&surface);
    surface.setObjectTransform(matrix);
    surface.refresh();
}

void moveTree(SurfaceTree& tree, const QMatrix4x4& matrix)
{
    tree.setObjectTransform(matrix);
}

template <typename Kind>
void moveItself(Kind& object, const QMatrix4x4& matrix)
{
    object.applyTransform(matrix);
}

template <typename Kind>
void moveGuidingLine(Kind& object, const QMatrix4x4& matrix)
{
    if (const auto line = object.getGuidingLine())
        line->transformAndCreateNewPoints(matrix);
}

void moveNerve(dataobject::Nerve& nerve, const QMatrix4x4& matrix)
{
    moveGuidingLine(nerve, matrix);
    moveSurface(nerve, matrix);
}

void moveOriginalModels(Anatomy& anatomy, const QMatrix4x4& matrix)
{
    for (const auto& model : {anatomy.getOriginalCranium(), anatomy.getOriginalMandible()}) {
        if (model)
            moveSurface(*model, matrix);
    }
}

void moveDistractor(Distractor& distractor, const QMatrix4x4& matrix)
{
    // Read before the tree moves, which the host's position may follow.
    const QVector3D position = distractor.getTransform().column(3).toVector3D();
    if (const auto tree = distractor.getSurfaceTree())
        tree->setObjectTransform(matrix);
    distractor.moveTo(matrix.map(position));
}

template <typename Kind>
void mapPosition(Kind& object, const QMatrix4x4& matrix)
{
    object.changePosition(matrix.map(object.getPosition()));
}

void mapPositions(LineAnnotation& annotation, const QMatrix4x4& matrix)
{
    const QList<QVector3D> positions = annotation.getPositions();
    for (int i = 0; i < positions.size(); ++i)
        annotation.changePosition(i, matrix.map(positions[i]));
}

void mapApex(dataobject::Apex& apex, const QMatrix4x4& matrix)
{
    apex.setPosition(matrix.map(apex.getPosition()));
}

void mapBase(dataobject::RootCanal& canal, const QMatrix4x4& matrix)
{
    canal.setBasePosition(matrix.map(canal.getBasePosition()));
}

void updateOrientation(dataobject::LockedImplantPlan& plan, const QMatrix4x4& matrix)
{
    plan.updateScannerOrientation(matrix);
}

template <typename Kind>
void place(Kind& object, const QMatrix4x4& matrix)
{
    object.setObjectTransform(matrix * object.getObjectTransform());
}

template <typename Kind>
void placeForTheScanner(Kind& object, const QMatrix4x4& matrix)
{
    object.setObjectTransform(matrix * object.getObjectTransform(), kScannerTransformation);
}

void moveCollection(dataobject::PlannedToPostOpCollection& collection, const QMatrix4x4& matrix)
{
    QStringList types =
        collection.getTransformationSurgeryPartTypes() + collection.getComparedSurgeryPartTypes();
    types.removeDuplicates();

    const QMatrix4x4 inverse = matrix.inverted();
    std::map<QString, QMatrix4x4> toPlanned;
    std::map<QString, QMatrix4x4> toPostOp;
    for (const QString& type : std::as_const(types)) {
        if (const auto planned = collection.getFromPreOpToPlannedTransformation(type))
            toPlanned.emplace(type, matrix * planned.value() * inverse);
        if (const auto postOp = collection.getFromPreOpToPostOpTransformation(type))
            toPostOp.emplace(type, matrix * postOp.value() * inverse);
    }
    if (!toPlanned.empty() || !toPostOp.empty())
        collection.setFromPreOpToPlannedAndPostOpTransformations(toPlanned, toPostOp);
    for (const QString& type : std::as_const(types)) {
        if (const auto point = collection.getPreOpRotationPoint(type))
            collection.setPreOpRotationPoint(type, matrix.map(point.value()));
    }
}

DentalScan* scanOfJaw(const QList<DentalScan*>& scans, JawType jaw)
{
    const auto found =
        std::ranges::find(scans, jaw, [](const DentalScan* scan) { return scan->getJawType(); });
    return found == scans.end() ? nullptr : *found;
}

} // namespace

PlanningApplyTransform::~PlanningApplyTransform() = default;

void PlanningApplyTransform::setDataObjects(const QList<DataObject*>& objects)
{
    dataObjects = objects;
}

void PlanningApplyTransform::setNewScannerTransform(const QMatrix4x4& transform)
{
    newScannerTransform = transform;
}

QList<DataObject*> PlanningApplyTransform::applyTransform(const QMatrix4x4& M)
{
    const QMatrix4x4 matrix = M; // M may be a placement of the plan, which the steps change
    changedObjects.clear();
    if (!finiteness::isFinite(matrix))
        return {};
    transformPlanarDentalSpline(matrix);
    transformToothAnnotations(matrix);
    transformAttachablePoint(matrix);
    transformPointAnnotations(matrix);
    transformLineAnnotations(matrix);
    transformPencilAnnotation3D(matrix);
    transformPointBasedAnnotation3D(matrix);
    transformArrowAnnotation3D(matrix);
    transformCircleAnnotation3D(matrix);
    transformTextAnnotation3D(matrix);
    transformCustomResliceAnnotation(matrix);
    transformPolyLines(matrix);
    transformGreyValueMeasurement(matrix);
    transformSurgicalSplints(matrix);
    transformNerve(matrix);
    transformSurfaceScans(matrix);
    transformSurgeryPlanningPart(matrix);
    transformOriginalSurgeryModels(matrix);
    transformDistractor(matrix);
    transformSoftTissueModel(matrix);
    transformSkin(matrix);
    transformOsteotomySurface(matrix);
    transformSurgery(matrix);
    transformTempShell(matrix);
    transformTemporomandibularJoints(matrix);
    transformAirway(matrix);
    transformShowObjects(matrix);
    transformPatientSurfaceModel(matrix);
    transformCephPlanes(matrix);
    transformLockedImplantPlan(matrix);
    transformAnchorPin3D(matrix);
    transformImplant3D(matrix);
    transformPreviewSurgicalTemplates(matrix);
    transformSurgicalTemplate3D(matrix);
    transformPlannedToPostOpCollection(matrix);
    transformApexPoints(matrix);
    transformRootCanals(matrix);
    return changedObjects;
}

// The steps that do one thing with every object of a kind and record it.
#define STEP(step, Kind, treat)                                                                    \
    void PlanningApplyTransform::step(const QMatrix4x4& matrix)                                    \
    {                                                                                              \
        for (auto* object : objectsOfKind<Kind>(dataObjects)) {                                    \
            treat(*object, matrix);                                                                \
            changedObjects.append(object);                                                         \
        }                                                                                          \
    }
STEP(transformAttachablePoint, dataobject::AttachablePoint, moveItself)
STEP(transformPointAnnotations, PointAnnotation, mapPosition)
STEP(transformLineAnnotations, LineAnnotation, mapPositions)
STEP(transformPencilAnnotation3D, PencilAnnotation3D, moveItself)
STEP(transformPointBasedAnnotation3D, dataobject::PointBased3DAnnotationBase, moveItself)
STEP(transformArrowAnnotation3D, ArrowAnnotation3D, moveItself)
STEP(transformCircleAnnotation3D, CircleAnnotation3D, moveItself)
STEP(transformTextAnnotation3D, TextAnnotation3D, moveItself)
STEP(transformCustomResliceAnnotation, CustomResliceAnnotation, moveItself)
STEP(transformPolyLines, PolyLine, transformPolyLine)
STEP(transformGreyValueMeasurement, GreyValueMeasurement, mapPosition)
STEP(transformSurgicalSplints, dataobject::SurgicalSplint, moveSurface)
STEP(transformNerve, dataobject::Nerve, moveNerve)
STEP(transformOriginalSurgeryModels, Anatomy, moveOriginalModels)
STEP(transformDistractor, Distractor, moveDistractor)
STEP(transformSoftTissueModel, SoftTissueModel, moveSurface)
STEP(transformSkin, Skin, moveSurface)
STEP(transformOsteotomySurface, OsteotomySurface, moveSurface)
STEP(transformTempShell, TempShell, moveTree)
STEP(transformTemporomandibularJoints, dataobject::TemporomandibularJoint, moveGuidingLine)
STEP(transformAirway, dataobject::Airway, moveSurface)
STEP(transformShowObjects, ShowObject, moveSurface)
STEP(transformPatientSurfaceModel, dataobject::PatientSurfaceModel, moveSurface)
STEP(transformLockedImplantPlan, dataobject::LockedImplantPlan, updateOrientation)
STEP(transformAnchorPin3D, dataobject::AnchorPin3D, placeForTheScanner)
STEP(transformImplant3D, dataobject::Implant3D, placeForTheScanner)
STEP(transformPreviewSurgicalTemplates, dataobject::PreviewSurgicalTemplate, place)
STEP(transformSurgicalTemplate3D, dataobject::SurgicalTemplate3D, place)
STEP(transformPlannedToPostOpCollection, dataobject::PlannedToPostOpCollection, moveCollection)
STEP(transformApexPoints, dataobject::Apex, mapApex)
STEP(transformRootCanals, dataobject::RootCanal, mapBase)
STEP(transformVirtualTooth, VirtualTooth, place)
#undef STEP

void PlanningApplyTransform::transformPlanarDentalSpline(const QMatrix4x4& matrix)
{
    const auto volumes = objectsOfKind<CTDataVolumeObject>(dataObjects);
    // Intended: the first volume decides, even one without data; the plan is in its frame.
    const auto ct = volumes.isEmpty() ? nullptr : volumes.first()->getCTData();
    if (!ct)
        return;
    const QVector3D center = ct->getBoundingBox().center();
    const float percentage =
        occlusalPropertiesCalculator::getOcclusalCenterPercentage(ct->getOcclusalPlaneDefinition());
    // Intended: not mapped by the matrix; the index counts slices of the volume as it is now.
    const QVector3D occlusalCenter(center.x(), center.y(), center.z() * percentage);
    const int occlusalIndex = occlusalPropertiesCalculator::getOcclusalIndex(*ct, occlusalCenter);
    for (PlanarDentalSpline* spline : objectsOfKind<PlanarDentalSpline>(dataObjects)) {
        PlanarDentalSplineUpdater::transform(*spline, matrix, occlusalIndex);
        changedObjects.append(spline);
    }
}

void PlanningApplyTransform::transformToothAnnotations(const QMatrix4x4& matrix)
{
    for (ToothAnnotation3D* annotation : objectsOfKind<ToothAnnotation3D>(dataObjects)) {
        // Intended: these labels follow the dental splines, from which the application makes them
        // again.
        if (annotation->getCreationType() == kCreatedFromSpline)
            continue;
        annotation->applyTransform(matrix);
        changedObjects.append(annotation);
    }
}

void PlanningApplyTransform::transformSurfaceScans(const QMatrix4x4& matrix)
{
    for (SurfaceScan* scan : objectsOfKind<SurfaceScan>(dataObjects)) {
        transformSurfaceScan(scan, matrix);
        changedObjects.append(scan);
    }
}

void PlanningApplyTransform::transformSurgeryPlanningPart(const QMatrix4x4& matrix)
{
    for (SurgeryPlanningPart* part : objectsOfKind<SurgeryPlanningPart>(dataObjects)) {
        moveSurface(*part, matrix);
        if (auto* mandibula = dynamic_cast<Mandibula*>(part)) {
            updateCondylePositionTransformation(mandibula, matrix);
            updateAutorotationPositionTransformation(mandibula, matrix);
            updateOcclusalPlanePositionTransformation(mandibula, matrix);
        } else {
            updateRotationPosition(part, matrix);
        }
        changedObjects.append(part);
    }
}

void PlanningApplyTransform::transformSurgery(const QMatrix4x4& /*matrix*/)
{
    const auto surgeries = objectsOfKind<MaxillofacialSurgery>(dataObjects);
    const auto scans = objectsOfKind<DentalScan>(dataObjects);
    if (surgeries.isEmpty() || scans.isEmpty())
        return;
    for (const Occlusion* bite : objectsOfKind<Occlusion>(dataObjects))
        transformMovements(surgeries.first(), scans, newScannerTransform,
                           bite->getTransformations(), MovementModes::OCCLUSION_PLASTER_CAST_MODE);
    for (const auto* bite : objectsOfKind<dataobject::VirtualOcclusion>(dataObjects))
        transformMovements(surgeries.first(), scans, newScannerTransform,
                           bite->getTransformations(), MovementModes::OCCLUSION_VIRTUAL_MODE);
}

void PlanningApplyTransform::transformCephPlanes(const QMatrix4x4& matrix)
{
    // Intended: not recorded; the planes follow from landmarks and are not saved with the plan.
    for (CephPlaneBase* plane : objectsOfKind<CephPlaneBase>(dataObjects))
        plane->applyTransform(matrix);
}

void PlanningApplyTransform::transformSurfaceScan(SurfaceScan* scan, const QMatrix4x4& matrix)
{
    if (scan)
        moveSurface(*scan, matrix);
}

void PlanningApplyTransform::transformPolyLine(PolyLine& line, const QMatrix4x4& matrix)
{
    PointEditor* editor = line.getPointEditor();
    if (!editor)
        return;
    for (int i = 0; i < line.getNumPositions(); ++i) {
        const auto point = line.getPoint(i);
        if (!point || point->getLinkedObject()) // a linked point follows its object
            continue;
        if (dynamic_cast<const PointUnlinked*>(point.get())) {
            if (const auto position = line.getPosition(i, kOnlyContext))
                editor->changePoint(i, matrix.map(position.value()), nullptr, hostvalues::kNoPlace);
        } else if (dynamic_cast<const dataobject::PointUnlinkedMultiPositions*>(point.get())) {
            for (const Context context : line.getSupportedContexts()) {
                if (const auto position = line.getPosition(i, context))
                    editor->changePointInContext(i, matrix.map(position.value()), context);
            }
        }
    }
}

void PlanningApplyTransform::transformMovements(
    MaxillofacialSurgery* surgery, const QList<DentalScan*>& scans,
    const QMatrix4x4& planningTransform,
    const std::map<QString, QMatrix4x4>& occlusionTransformations, const QString& movementMode)
{
    const DentalScan* upper = scanOfJaw(scans, JawType(hostvalues::kUpperJaw));
    const DentalScan* lower = scanOfJaw(scans, JawType(hostvalues::kLowerJaw));
    // Totals that are not finite are returned as the identity, and the movements computed from them
    // would look right.
    if (!surgery || !upper || !lower || !finiteness::isFinite(planningTransform))
        return;
    const OcclusionMovementCalculator::Data data{
        occlusionTransformations,
        SurfaceScanTransformations::getTotalTransform(upper, planningTransform),
        SurfaceScanTransformations::getTotalTransform(lower, planningTransform), movementMode};
    SetOcclusionMovementTransformationsUndoCommand command(
        OcclusionMovementCalculator(data).calculate(), utility::getOcclusionMovements(*surgery),
        movementMode, nullptr);
    command.redo(); // once, on no stack: to undo the new frame, the caller moves the plan back
}

void PlanningApplyTransform::updateCondylePositionTransformation(Mandibula* mandibula,
                                                                 const QMatrix4x4& matrix)
{
    const auto [left, right] = mandibula->getCondylePositions();
    // The autorotation points are moved by their own update.
    mandibula->setCondylePositions({matrix.map(left), matrix.map(right)}, false);
}

void PlanningApplyTransform::updateAutorotationPositionTransformation(Mandibula* mandibula,
                                                                      const QMatrix4x4& matrix)
{
    for (const auto& point :
         {mandibula->getLeftAutoRotationPoint(), mandibula->getRightAutoRotationPoint()}) {
        if (point)
            point->setPosition(matrix.map(point->getPosition()));
    }
}

void PlanningApplyTransform::updateOcclusalPlanePositionTransformation(Mandibula* mandibula,
                                                                       const QMatrix4x4& matrix)
{
    QList<QVector3D> positions = mandibula->getOcclusalPlanePositions();
    for (QVector3D& position : positions)
        position = matrix.map(position);
    mandibula->setOcclusalPlanePositions(positions);
}

void PlanningApplyTransform::updateRotationPosition(SurgeryPlanningPart* part,
                                                    const QMatrix4x4& matrix)
{
    if (auto* rotatable = dynamic_cast<RotatableSurgeryPlanningPart*>(part))
        rotatable->setRotationPosition(matrix.map(rotatable->getRotationPosition()));
}
