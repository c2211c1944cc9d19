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

// The reason that implants and pins are told when they are placed anew.
constexpr auto kScannerTransformation = TransformManipulationType(hostvalues::kScannerTransformation);
// The frame of a free point that has one position for all.
constexpr auto kOnlyContext = Context(hostvalues::kVolumeContext);

void moveSurface(Surface3DModel& surface, const QMatrix4x4& matrix)
{
    const EditLocker lock(&surface);
    surface.setObjectTransform(matrix);
    surface.refresh();
}

// For what has its position as a whole.
template <typename Positioned>
void mapPosition(Positioned& object, const QMatrix4x4& matrix)
{
    object.changePosition(matrix.map(object.getPosition()));
}

// For what is placed absolutely.
template <typename Placed, typename... Reason>
void placeAnew(Placed& object, const QMatrix4x4& matrix, Reason... reason)
{
    object.setObjectTransform(matrix * object.getObjectTransform(), reason...);
}

DentalScan* scanOfJaw(const QList<DentalScan*>& scans, JawType jaw)
{
    const auto found = std::find_if(scans.begin(), scans.end(), [jaw](const DentalScan* scan) {
        return scan->getJawType() == jaw;
    });
    return found == scans.end() ? nullptr : *found;
}

// Both lists, each part type once.
QStringList listedPartTypes(const dataobject::PlannedToPostOpCollection& collection)
{
    QStringList types =
        collection.getTransformationSurgeryPartTypes() + collection.getComparedSurgeryPartTypes();
    types.removeDuplicates();
    return types;
}

void moveCollection(dataobject::PlannedToPostOpCollection& collection, const QMatrix4x4& matrix)
{
    const QMatrix4x4 inverse = matrix.inverted();
    std::map<QString, QMatrix4x4> toPlanned;
    std::map<QString, QMatrix4x4> toPostOp;
    const QStringList types = listedPartTypes(collection);
    for (const QString& type : types) {
        if (const auto planned = collection.getFromPreOpToPlannedTransformation(type))
            toPlanned.emplace(type, matrix * planned.value() * inverse);
        if (const auto postOp = collection.getFromPreOpToPostOpTransformation(type))
            toPostOp.emplace(type, matrix * postOp.value() * inverse);
    }
    if (!toPlanned.empty() || !toPostOp.empty())
        collection.setFromPreOpToPlannedAndPostOpTransformations(toPlanned, toPostOp);
    for (const QString& type : types) {
        if (const auto point = collection.getPreOpRotationPoint(type))
            collection.setPreOpRotationPoint(type, matrix.map(point.value()));
    }
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
    const QMatrix4x4 matrix =
        M; // a copy: M may be a placement of the plan, which changes on the way
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

// A plan has many objects of few classes, and whether a class is of a kind is asked 40 times:
// classes that were found not to be are remembered while the list is searched, which takes a third
// of the time of casting every object.
template <typename Kind>
QList<Kind*> PlanningApplyTransform::objectsOfKind() const
{
    QList<Kind*> found;
    QVarLengthArray<const std::type_info*, 48> otherClasses;
    for (DataObject* object : dataObjects) {
        if (!object)
            continue;
        const std::type_info* objectClass = &typeid(*object);
        if (otherClasses.contains(objectClass))
            continue;
        if (auto* ofKind = dynamic_cast<Kind*>(object))
            found.append(ofKind);
        else
            otherClasses.append(objectClass);
    }
    return found;
}

template <typename Kind, typename Treatment>
void PlanningApplyTransform::changeEach(const Treatment& treat)
{
    for (Kind* object : objectsOfKind<Kind>()) {
        treat(*object);
        changedObjects.append(object);
    }
}

void PlanningApplyTransform::transformPlanarDentalSpline(const QMatrix4x4& matrix)
{
    const auto volumes = objectsOfKind<CTDataVolumeObject>();
    // Intended: the first volume decides, also one without data; the plan stands in its frame.
    const auto ct = volumes.isEmpty() ? nullptr : volumes.first()->getCTData();
    if (!ct)
        return;
    const QVector3D centre = ct->getBoundingBox().center();
    const float percentage =
        occlusalPropertiesCalculator::getOcclusalCenterPercentage(ct->getOcclusalPlaneDefinition());
    // Intended: not mapped by the matrix; the index counts slices of the volume as it now lies.
    const QVector3D occlusalCentre(centre.x(), centre.y(), centre.z() * percentage);
    const int occlusalIndex = occlusalPropertiesCalculator::getOcclusalIndex(*ct, occlusalCentre);
    changeEach<PlanarDentalSpline>([&](PlanarDentalSpline& spline) {
        PlanarDentalSplineUpdater::transform(spline, matrix, occlusalIndex);
    });
}

void PlanningApplyTransform::transformToothAnnotations(const QMatrix4x4& matrix)
{
    for (ToothAnnotation3D* annotation : objectsOfKind<ToothAnnotation3D>()) {
        // Intended: labels of creation type 0 follow the dental splines, from which the application
        // makes them anew.
        if (annotation->getCreationType() == CreationType(0))
            continue;
        annotation->applyTransform(matrix);
        changedObjects.append(annotation);
    }
}

void PlanningApplyTransform::transformAttachablePoint(const QMatrix4x4& matrix)
{
    changeEach<dataobject::AttachablePoint>(
        [&matrix](dataobject::AttachablePoint& point) { point.applyTransform(matrix); });
}

void PlanningApplyTransform::transformPointAnnotations(const QMatrix4x4& matrix)
{
    changeEach<PointAnnotation>(
        [&matrix](PointAnnotation& annotation) { mapPosition(annotation, matrix); });
}

void PlanningApplyTransform::transformLineAnnotations(const QMatrix4x4& matrix)
{
    changeEach<LineAnnotation>([&matrix](LineAnnotation& annotation) {
        const QList<QVector3D> positions = annotation.getPositions();
        for (int i = 0; i < static_cast<int>(positions.size()); ++i)
            annotation.changePosition(i, matrix.map(positions[i]));
    });
}

void PlanningApplyTransform::transformPencilAnnotation3D(const QMatrix4x4& matrix)
{
    changeEach<PencilAnnotation3D>(
        [&matrix](PencilAnnotation3D& annotation) { annotation.applyTransform(matrix); });
}

void PlanningApplyTransform::transformPointBasedAnnotation3D(const QMatrix4x4& matrix)
{
    changeEach<dataobject::PointBased3DAnnotationBase>(
        [&matrix](dataobject::PointBased3DAnnotationBase& annotation) {
            annotation.applyTransform(matrix);
        });
}

void PlanningApplyTransform::transformArrowAnnotation3D(const QMatrix4x4& matrix)
{
    changeEach<ArrowAnnotation3D>(
        [&matrix](ArrowAnnotation3D& annotation) { annotation.applyTransform(matrix); });
}

void PlanningApplyTransform::transformCircleAnnotation3D(const QMatrix4x4& matrix)
{
    changeEach<CircleAnnotation3D>(
        [&matrix](CircleAnnotation3D& annotation) { annotation.applyTransform(matrix); });
}

void PlanningApplyTransform::transformTextAnnotation3D(const QMatrix4x4& matrix)
{
    changeEach<TextAnnotation3D>(
        [&matrix](TextAnnotation3D& annotation) { annotation.applyTransform(matrix); });
}

void PlanningApplyTransform::transformCustomResliceAnnotation(const QMatrix4x4& matrix)
{
    changeEach<CustomResliceAnnotation>(
        [&matrix](CustomResliceAnnotation& annotation) { annotation.applyTransform(matrix); });
}

void PlanningApplyTransform::transformPolyLines(const QMatrix4x4& matrix)
{
    changeEach<PolyLine>([&matrix](PolyLine& line) { transformPolyLine(line, matrix); });
}

void PlanningApplyTransform::transformGreyValueMeasurement(const QMatrix4x4& matrix)
{
    changeEach<GreyValueMeasurement>(
        [&matrix](GreyValueMeasurement& measurement) { mapPosition(measurement, matrix); });
}

void PlanningApplyTransform::transformSurgicalSplints(const QMatrix4x4& matrix)
{
    changeEach<dataobject::SurgicalSplint>(
        [&matrix](dataobject::SurgicalSplint& surface) { moveSurface(surface, matrix); });
}

void PlanningApplyTransform::transformNerve(const QMatrix4x4& matrix)
{
    changeEach<dataobject::Nerve>([&matrix](dataobject::Nerve& nerve) {
        if (const auto line = nerve.getGuidingLine())
            line->transformAndCreateNewPoints(matrix);
        moveSurface(nerve, matrix);
    });
}

void PlanningApplyTransform::transformSurfaceScans(const QMatrix4x4& matrix)
{
    changeEach<SurfaceScan>([&matrix](SurfaceScan& scan) { transformSurfaceScan(&scan, matrix); });
}

void PlanningApplyTransform::transformSurgeryPlanningPart(const QMatrix4x4& matrix)
{
    changeEach<SurgeryPlanningPart>([&matrix](SurgeryPlanningPart& part) {
        moveSurface(part, matrix);
        if (auto* mandibula = dynamic_cast<Mandibula*>(&part)) {
            updateCondylePositionTransformation(mandibula, matrix);
            updateAutorotationPositionTransformation(mandibula, matrix);
            updateOcclusalPlanePositionTransformation(mandibula, matrix);
        } else {
            updateRotationPosition(&part, matrix);
        }
    });
}

void PlanningApplyTransform::transformOriginalSurgeryModels(const QMatrix4x4& matrix)
{
    changeEach<Anatomy>([&matrix](Anatomy& anatomy) {
        for (const auto& model : {anatomy.getOriginalCranium(), anatomy.getOriginalMandible()}) {
            if (model)
                moveSurface(*model, matrix);
        }
    });
}

void PlanningApplyTransform::transformDistractor(const QMatrix4x4& matrix)
{
    changeEach<Distractor>([&matrix](Distractor& distractor) {
        const QVector3D position =
            distractor.getTransform().column(3).toVector3D(); // before its tree moves
        if (const auto tree = distractor.getSurfaceTree())
            tree->setObjectTransform(matrix);
        distractor.moveTo(matrix.map(position));
    });
}

void PlanningApplyTransform::transformSoftTissueModel(const QMatrix4x4& matrix)
{
    changeEach<SoftTissueModel>(
        [&matrix](SoftTissueModel& surface) { moveSurface(surface, matrix); });
}

void PlanningApplyTransform::transformSkin(const QMatrix4x4& matrix)
{
    changeEach<Skin>([&matrix](Skin& surface) { moveSurface(surface, matrix); });
}

void PlanningApplyTransform::transformOsteotomySurface(const QMatrix4x4& matrix)
{
    changeEach<OsteotomySurface>(
        [&matrix](OsteotomySurface& surface) { moveSurface(surface, matrix); });
}

void PlanningApplyTransform::transformSurgery(const QMatrix4x4& /*matrix*/)
{
    const auto surgeries = objectsOfKind<MaxillofacialSurgery>();
    const auto scans = objectsOfKind<DentalScan>();
    if (surgeries.isEmpty() || scans.isEmpty())
        return;
    for (const Occlusion* occlusion : objectsOfKind<Occlusion>())
        transformMovements(surgeries.first(), scans, newScannerTransform,
                           occlusion->getTransformations(),
                           MovementModes::OCCLUSION_PLASTER_CAST_MODE);
    for (const dataobject::VirtualOcclusion* occlusion :
         objectsOfKind<dataobject::VirtualOcclusion>())
        transformMovements(surgeries.first(), scans, newScannerTransform,
                           occlusion->getTransformations(), MovementModes::OCCLUSION_VIRTUAL_MODE);
}

void PlanningApplyTransform::transformTempShell(const QMatrix4x4& matrix)
{
    changeEach<TempShell>([&matrix](TempShell& shell) { shell.setObjectTransform(matrix); });
}

void PlanningApplyTransform::transformTemporomandibularJoints(const QMatrix4x4& matrix)
{
    changeEach<dataobject::TemporomandibularJoint>(
        [&matrix](dataobject::TemporomandibularJoint& joint) {
            if (const auto line = joint.getGuidingLine())
                line->transformAndCreateNewPoints(matrix);
        });
}

void PlanningApplyTransform::transformAirway(const QMatrix4x4& matrix)
{
    changeEach<dataobject::Airway>(
        [&matrix](dataobject::Airway& surface) { moveSurface(surface, matrix); });
}

void PlanningApplyTransform::transformShowObjects(const QMatrix4x4& matrix)
{
    changeEach<ShowObject>([&matrix](ShowObject& surface) { moveSurface(surface, matrix); });
}

void PlanningApplyTransform::transformPatientSurfaceModel(const QMatrix4x4& matrix)
{
    changeEach<dataobject::PatientSurfaceModel>(
        [&matrix](dataobject::PatientSurfaceModel& surface) { moveSurface(surface, matrix); });
}

void PlanningApplyTransform::transformCephPlanes(const QMatrix4x4& matrix)
{
    // Intended: not recorded; the planes follow from landmarks and are no part of the plan that is
    // saved.
    for (CephPlaneBase* plane : objectsOfKind<CephPlaneBase>())
        plane->applyTransform(matrix);
}

void PlanningApplyTransform::transformLockedImplantPlan(const QMatrix4x4& matrix)
{
    changeEach<dataobject::LockedImplantPlan>(
        [&matrix](dataobject::LockedImplantPlan& plan) { plan.updateScannerOrientation(matrix); });
}

void PlanningApplyTransform::transformAnchorPin3D(const QMatrix4x4& matrix)
{
    changeEach<dataobject::AnchorPin3D>([&matrix](dataobject::AnchorPin3D& pin) {
        placeAnew(pin, matrix, kScannerTransformation);
    });
}

void PlanningApplyTransform::transformImplant3D(const QMatrix4x4& matrix)
{
    changeEach<dataobject::Implant3D>([&matrix](dataobject::Implant3D& implant) {
        placeAnew(implant, matrix, kScannerTransformation);
    });
}

void PlanningApplyTransform::transformPreviewSurgicalTemplates(const QMatrix4x4& matrix)
{
    changeEach<dataobject::PreviewSurgicalTemplate>(
        [&matrix](dataobject::PreviewSurgicalTemplate& preview) { placeAnew(preview, matrix); });
}

void PlanningApplyTransform::transformSurgicalTemplate3D(const QMatrix4x4& matrix)
{
    changeEach<dataobject::SurgicalTemplate3D>(
        [&matrix](dataobject::SurgicalTemplate3D& surgicalTemplate) {
            placeAnew(surgicalTemplate, matrix);
        });
}

void PlanningApplyTransform::transformPlannedToPostOpCollection(const QMatrix4x4& matrix)
{
    changeEach<dataobject::PlannedToPostOpCollection>(
        [&matrix](dataobject::PlannedToPostOpCollection& collection) {
            moveCollection(collection, matrix);
        });
}

void PlanningApplyTransform::transformApexPoints(const QMatrix4x4& matrix)
{
    changeEach<dataobject::Apex>(
        [&matrix](dataobject::Apex& apex) { apex.setPosition(matrix.map(apex.getPosition())); });
}

void PlanningApplyTransform::transformRootCanals(const QMatrix4x4& matrix)
{
    changeEach<dataobject::RootCanal>([&matrix](dataobject::RootCanal& canal) {
        canal.setBasePosition(matrix.map(canal.getBasePosition()));
    });
}

void PlanningApplyTransform::transformVirtualTooth(const QMatrix4x4& matrix)
{
    changeEach<VirtualTooth>([&matrix](VirtualTooth& tooth) { placeAnew(tooth, matrix); });
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
        if (!point || point->getLinkedObject()) // a tied point follows its object
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
    const DentalScan* upper = scanOfJaw(scans, JawType(2));
    const DentalScan* lower = scanOfJaw(scans, JawType(1));
    // A total that is not finite is returned as the identity: the movements computed from it would
    // look right.
    if (!surgery || !upper || !lower || !transforms::isFinite(planningTransform))
        return;
    const OcclusionMovementCalculator::Data data{
        occlusionTransformations,
        SurfaceScanTransformations::getTotalTransform(upper, planningTransform),
        SurfaceScanTransformations::getTotalTransform(lower, planningTransform), movementMode};
    SetOcclusionMovementTransformationsUndoCommand command(
        OcclusionMovementCalculator(data).calculate(), utility::getOcclusionMovements(*surgery),
        movementMode, nullptr);
    command.redo(); // once, on no stack: whoever undoes the new frame moves the plan back
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
    std::transform(positions.cbegin(), positions.cend(), positions.begin(),
                   [&matrix](const QVector3D& position) { return matrix.map(position); });
    mandibula->setOcclusalPlanePositions(positions);
}

void PlanningApplyTransform::updateRotationPosition(SurgeryPlanningPart* part,
                                                    const QMatrix4x4& matrix)
{
    if (auto* rotatable = dynamic_cast<RotatableSurgeryPlanningPart*>(part))
        rotatable->setRotationPosition(matrix.map(rotatable->getRotationPosition()));
}
