// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/VexelImage3D.h>
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
#include <CoreAlgorithms/model/dataobjects/Teeth.h>
#include <CoreAlgorithms/model/dataobjects/VolumeObject.h>

#include <QList>
#include <QMatrix4x4>
#include <QStringList>
#include <QVector3D>

#include <memory>
#include <utility>

// A plan that holds one object of every kind that a new scanner frame moves. Each of them writes
// its name into one log when it is moved. Initially, every position of the plan is (1, 2, 3), and
// every placement is the translation to that point.
namespace test {

inline const QVector3D kStart{1.0F, 2.0F, 3.0F};

inline QMatrix4x4 startPlacement()
{
    QMatrix4x4 matrix;
    matrix.translate(kStart);
    return matrix;
}

/// Holds the names of moved objects in their order. A name that follows itself is written once.
class MoveLog
{
public:
    void write(const QString& name)
    {
        if (names.isEmpty() || names.last() != name)
            names << name;
    }

    QStringList names;
};

template <typename Kind>
class Logging : public Kind
{
public:
    template <typename... Arguments>
    explicit Logging(MoveLog& moveLog, QString objectName, Arguments... arguments)
        : Kind(arguments...), log(moveLog), name(std::move(objectName))
    {}

protected:
    void write() const { log.write(name); }

private:
    MoveLog& log;
    QString name;
};

/// Logs the moves of an object that has applyTransform().
template <typename Kind>
class LoggingTransformed : public Logging<Kind>
{
public:
    using Logging<Kind>::Logging;
    void applyTransform(const QMatrix4x4& matrix) override
    {
        this->write();
        Kind::applyTransform(matrix);
    }
};

/// Logs the moves of an object that has changePosition(position).
template <typename Kind>
class LoggingPositioned : public Logging<Kind>
{
public:
    using Logging<Kind>::Logging;
    void changePosition(const QVector3D& positionMm) override
    {
        this->write();
        Kind::changePosition(positionMm);
    }
};

/// Logs the moves of surfaces and trees.
template <typename Kind>
class LoggingSurface : public Logging<Kind>
{
public:
    using Logging<Kind>::Logging;
    void setObjectTransform(const QMatrix4x4& matrix) override
    {
        this->write();
        Kind::setObjectTransform(matrix);
    }
};

/// Logs the moves of implants and pins.
template <typename Kind>
class LoggingPlaced : public Logging<Kind>
{
public:
    using Logging<Kind>::Logging;
    void setObjectTransform(const QMatrix4x4& matrix,
                            TransformManipulationType manipulation) override
    {
        this->write();
        Kind::setObjectTransform(matrix, manipulation);
    }
};

class LoggingDentalSpline : public Logging<PlanarDentalSpline>
{
public:
    using Logging::Logging;
    void setOcclusalIndex(int sliceIndex) override
    {
        write();
        PlanarDentalSpline::setOcclusalIndex(sliceIndex);
    }
};

class LoggingLineAnnotation : public Logging<LineAnnotation>
{
public:
    using Logging::Logging;
    void changePosition(int index, const QVector3D& positionMm) override
    {
        write();
        LineAnnotation::changePosition(index, positionMm);
    }
};

class LoggingPolyLine : public Logging<PolyLine>
{
public:
    using Logging::Logging;
    PointEditor* getPointEditor() override
    {
        write();
        return PolyLine::getPointEditor();
    }
};

class LoggingDistractor : public Logging<Distractor>
{
public:
    using Logging::Logging;
    void moveTo(const QVector3D& positionMm) override
    {
        write();
        Distractor::moveTo(positionMm);
    }
};

class LoggingSurgery : public Logging<MaxillofacialSurgery>
{
public:
    using Logging::Logging;
    Movement* getMovementByTypeIdentifier(const QString& movementType) const override
    {
        write();
        return MaxillofacialSurgery::getMovementByTypeIdentifier(movementType);
    }
};

class LoggingLine : public Logging<GuidingLine>
{
public:
    using Logging::Logging;
    void transformAndCreateNewPoints(const QMatrix4x4& matrix) override
    {
        write();
        GuidingLine::transformAndCreateNewPoints(matrix);
    }
};

class LoggingLockedPlan : public Logging<dataobject::LockedImplantPlan>
{
public:
    using Logging::Logging;
    void updateScannerOrientation(const QMatrix4x4& matrix) override
    {
        write();
        LockedImplantPlan::updateScannerOrientation(matrix);
    }
};

class LoggingCollection : public Logging<dataobject::PlannedToPostOpCollection>
{
public:
    using Logging::Logging;
    void setFromPreOpToPlannedAndPostOpTransformations(const Transformations& toPlanned,
                                                       const Transformations& toPostOp) override
    {
        write();
        PlannedToPostOpCollection::setFromPreOpToPlannedAndPostOpTransformations(toPlanned,
                                                                                 toPostOp);
    }
};

class LoggingApex : public Logging<dataobject::Apex>
{
public:
    using Logging::Logging;
    void setPosition(const QVector3D& positionMm) override
    {
        write();
        Apex::setPosition(positionMm);
    }
};

class LoggingRootCanal : public Logging<dataobject::RootCanal>
{
public:
    using Logging::Logging;
    void setBasePosition(const QVector3D& positionMm) override
    {
        write();
        RootCanal::setBasePosition(positionMm);
    }
};

/// Returns a volume of 10 x 10 x 10 voxels of 1 mm, from -0.5 to 9.5 along each axis.
inline std::shared_ptr<CTDataVolumeObject> makeVolumeObject()
{
    const auto volume = std::make_shared<ImageVolume>();
    volume->setImage(VexelImage3D({10, 10, 10}, {1.0F, 1.0F, 1.0F}, image::Int16));
    const auto scan = std::make_shared<CTData>();
    scan->setImageVolume(volume);
    auto object = std::make_shared<CTDataVolumeObject>();
    object->setCTData(scan);
    return object;
}

inline geometry::Mesh startMesh()
{
    return geometry::Mesh({kStart}, {});
}

struct WholePlan
{
    WholePlan()
    {
        spline->appendControlPoint({});
        spline->appendLastControlPoint(kStart);
        tooth->setCreationType(CreationType(1));
        tooth->setPosition(kStart);
        attachable->setPosition(kStart);
        pointAnnotation->changePosition(kStart);
        lineAnnotation->setPositions({kStart, kStart});
        pencil->setPositions({kStart});
        pointBased->setPositions({kStart});
        arrow->setArrow(kStart, kStart);
        circle->setCircle(kStart, {0.0F, 0.0F, 1.0F}, 1.0F);
        text->setPosition(kStart);
        reslice->setResliceTransform(startPlacement());
        polyLine->addPoint(std::make_shared<PointUnlinked>(kStart));
        measurement->changePosition(kStart);
        nerveLine->appendControlPoint(kStart);
        nerve->setGuidingLine(nerveLine);
        anatomy->setOriginalModels(cranium, mandible);
        upperScan->setJawType(UpperJaw);
        lowerScan->setJawType(LowerJaw);
        mandibula->setCondylePositions({kStart, kStart}, true);
        mandibula->setOcclusalPlanePositions({kStart});
        distractor->setSurfaceTree(distractorTree);
        distractor->setTransform(startPlacement());
        maxillaryMovement = new OcclusionMovement(MovementTypes::m_maxillary_occlusion_movement);
        surgery->addMovement(maxillaryMovement);
        occlusion->setTransformations({{Maxilla::getClassTypeId(), startPlacement()},
                                       {Mandibula::getClassTypeId(), QMatrix4x4()}});
        shell->SurfaceTree::setObjectTransform(startPlacement());
        joint->setGuidingLine(jointLine);
        jointLine->setOriginalPath({kStart});
        ceph->setPlane(primitives::Plane(kStart, QVector3D(0.0F, 0.0F, 1.0F)));
        locked->dataobject::LockedImplantPlan::updateScannerOrientation(startPlacement());
        pin->AnchorPin3D::setObjectTransform(startPlacement(), TransformManipulationType(0));
        implant->Implant3D::setObjectTransform(startPlacement(), TransformManipulationType(0));
        preview->PreviewSurgicalTemplate::setObjectTransform(startPlacement());
        surgicalTemplate->SurgicalTemplate3D::setObjectTransform(startPlacement());
        collection
            ->dataobject::PlannedToPostOpCollection::setFromPreOpToPlannedAndPostOpTransformations(
                {{Maxilla::getClassTypeId(), startPlacement()}}, {});
        collection->setPreOpRotationPoint(Maxilla::getClassTypeId(), kStart);
        apex->dataobject::Apex::setPosition(kStart);
        canal->dataobject::RootCanal::setBasePosition(kStart);
        for (Surface3DModel* surface : QList<Surface3DModel*>{
                 splint.get(), nerve.get(), upperScan.get(), lowerScan.get(), mandibula.get(),
                 cranium.get(), mandible.get(), softTissue.get(), skin.get(), osteotomy.get(),
                 airway.get(), showObject.get(), patientSurface.get(), preview.get(),
                 surgicalTemplate.get()})
            surface->setMesh(startMesh());
        log.names.clear();
    }

    /// Returns the objects in the reverse order of the steps, with a null entry and objects that no
    /// step moves among them.
    QList<DataObject*> objects() const
    {
        return {canal.get(),
                apex.get(),
                collection.get(),
                surgicalTemplate.get(),
                preview.get(),
                implant.get(),
                pin.get(),
                locked.get(),
                nullptr,
                ceph.get(),
                patientSurface.get(),
                showObject.get(),
                airway.get(),
                joint.get(),
                shell.get(),
                occlusion.get(),
                surgery.get(),
                osteotomy.get(),
                skin.get(),
                softTissue.get(),
                distractor.get(),
                anatomy.get(),
                mandibula.get(),
                upperScan.get(),
                lowerScan.get(),
                nerve.get(),
                splint.get(),
                measurement.get(),
                polyLine.get(),
                reslice.get(),
                text.get(),
                circle.get(),
                arrow.get(),
                pointBased.get(),
                pencil.get(),
                lineAnnotation.get(),
                other.get(),
                pointAnnotation.get(),
                attachable.get(),
                tooth.get(),
                spline.get(),
                virtualTooth.get(),
                volume.get()};
    }

    template <typename Kind>
    std::shared_ptr<Kind> make(const char* name)
    {
        return std::make_shared<Kind>(log, QString::fromLatin1(name));
    }

    MoveLog log;
    std::shared_ptr<CTDataVolumeObject> volume = makeVolumeObject();
    std::shared_ptr<DataObject> other = std::make_shared<DataObject>();
    std::shared_ptr<VirtualTooth> virtualTooth = std::make_shared<VirtualTooth>();
    std::shared_ptr<Occlusion> occlusion = std::make_shared<Occlusion>();
    std::shared_ptr<GuidingSpline> nerveLine = std::make_shared<GuidingSpline>();
    std::shared_ptr<SurfaceTree> distractorTree = std::make_shared<SurfaceTree>();
    OcclusionMovement* maxillaryMovement = nullptr;

    std::shared_ptr<LoggingDentalSpline> spline = make<LoggingDentalSpline>("spline");
    std::shared_ptr<ToothAnnotation3D> tooth = make<LoggingTransformed<ToothAnnotation3D>>("tooth");
    std::shared_ptr<dataobject::AttachablePoint> attachable =
        make<LoggingTransformed<dataobject::AttachablePoint>>("attachable");
    std::shared_ptr<PointAnnotation> pointAnnotation =
        make<LoggingPositioned<PointAnnotation>>("point annotation");
    std::shared_ptr<LineAnnotation> lineAnnotation = make<LoggingLineAnnotation>("line annotation");
    std::shared_ptr<PencilAnnotation3D> pencil =
        make<LoggingTransformed<PencilAnnotation3D>>("pencil");
    std::shared_ptr<dataobject::PointBased3DAnnotationBase> pointBased =
        make<LoggingTransformed<dataobject::PointBased3DAnnotationBase>>("point based");
    std::shared_ptr<ArrowAnnotation3D> arrow = make<LoggingTransformed<ArrowAnnotation3D>>("arrow");
    std::shared_ptr<CircleAnnotation3D> circle =
        make<LoggingTransformed<CircleAnnotation3D>>("circle");
    std::shared_ptr<TextAnnotation3D> text = make<LoggingTransformed<TextAnnotation3D>>("text");
    std::shared_ptr<CustomResliceAnnotation> reslice =
        make<LoggingTransformed<CustomResliceAnnotation>>("custom reslice");
    std::shared_ptr<PolyLine> polyLine = make<LoggingPolyLine>("poly-line");
    std::shared_ptr<GreyValueMeasurement> measurement =
        make<LoggingPositioned<GreyValueMeasurement>>("grey value");
    std::shared_ptr<dataobject::SurgicalSplint> splint =
        make<LoggingSurface<dataobject::SurgicalSplint>>("splint");
    std::shared_ptr<dataobject::Nerve> nerve = make<LoggingSurface<dataobject::Nerve>>("nerve");
    std::shared_ptr<DentalScan> upperScan = make<LoggingSurface<DentalScan>>("scan");
    std::shared_ptr<DentalScan> lowerScan = make<LoggingSurface<DentalScan>>("scan");
    std::shared_ptr<Mandibula> mandibula = make<LoggingSurface<Mandibula>>("jaw part");
    std::shared_ptr<Anatomy> anatomy = std::make_shared<Anatomy>();
    std::shared_ptr<Surface3DModel> cranium =
        make<LoggingSurface<Surface3DModel>>("original models");
    std::shared_ptr<Surface3DModel> mandible =
        make<LoggingSurface<Surface3DModel>>("original models");
    std::shared_ptr<Distractor> distractor = make<LoggingDistractor>("distractor");
    std::shared_ptr<SoftTissueModel> softTissue =
        make<LoggingSurface<SoftTissueModel>>("soft tissue");
    std::shared_ptr<Skin> skin = make<LoggingSurface<Skin>>("skin");
    std::shared_ptr<OsteotomySurface> osteotomy =
        make<LoggingSurface<OsteotomySurface>>("osteotomy");
    std::shared_ptr<LoggingSurgery> surgery = make<LoggingSurgery>("surgery");
    std::shared_ptr<TempShell> shell = make<LoggingSurface<TempShell>>("shell");
    std::shared_ptr<dataobject::TemporomandibularJoint> joint =
        std::make_shared<dataobject::TemporomandibularJoint>();
    std::shared_ptr<LoggingLine> jointLine = make<LoggingLine>("joint");
    std::shared_ptr<dataobject::Airway> airway = make<LoggingSurface<dataobject::Airway>>("airway");
    std::shared_ptr<ShowObject> showObject = make<LoggingSurface<ShowObject>>("show object");
    std::shared_ptr<dataobject::PatientSurfaceModel> patientSurface =
        make<LoggingSurface<dataobject::PatientSurfaceModel>>("patient surface");
    std::shared_ptr<CephPlaneBase> ceph = make<LoggingTransformed<CephPlaneBase>>("ceph plane");
    std::shared_ptr<dataobject::LockedImplantPlan> locked = make<LoggingLockedPlan>("locked plan");
    std::shared_ptr<dataobject::AnchorPin3D> pin =
        make<LoggingPlaced<dataobject::AnchorPin3D>>("pin");
    std::shared_ptr<dataobject::Implant3D> implant =
        make<LoggingPlaced<dataobject::Implant3D>>("implant");
    std::shared_ptr<dataobject::PreviewSurgicalTemplate> preview =
        make<LoggingSurface<dataobject::PreviewSurgicalTemplate>>("preview template");
    std::shared_ptr<dataobject::SurgicalTemplate3D> surgicalTemplate =
        make<LoggingSurface<dataobject::SurgicalTemplate3D>>("surgical template");
    std::shared_ptr<dataobject::PlannedToPostOpCollection> collection =
        make<LoggingCollection>("collection");
    std::shared_ptr<dataobject::Apex> apex = make<LoggingApex>("apex");
    std::shared_ptr<dataobject::RootCanal> canal = make<LoggingRootCanal>("root canal");
};

} // namespace test
