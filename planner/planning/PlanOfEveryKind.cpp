// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/planning/PlanOfEveryKind.h>

#include <planner/planning/Meshes.h>

#include <CoreAlgorithms/model/dataobjects/Annotations.h>
#include <CoreAlgorithms/model/dataobjects/CTData.h>
#include <CoreAlgorithms/model/dataobjects/Distraction.h>
#include <CoreAlgorithms/model/dataobjects/Endodontics.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Implants.h>
#include <CoreAlgorithms/model/dataobjects/JawParts.h>
#include <CoreAlgorithms/model/dataobjects/Joints.h>
#include <CoreAlgorithms/model/dataobjects/Occlusions.h>
#include <CoreAlgorithms/model/dataobjects/PatientSurfaces.h>
#include <CoreAlgorithms/model/dataobjects/PlacedSurfaces.h>
#include <CoreAlgorithms/model/dataobjects/Plans.h>
#include <CoreAlgorithms/model/dataobjects/PolyLines.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceScans.h>
#include <CoreAlgorithms/model/dataobjects/Teeth.h>
#include <CoreAlgorithms/model/dataobjects/VolumeObject.h>

#include <phantom/Phantom.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace planner {

namespace {

QList<QVector3D> positionsOf(const QList<std::shared_ptr<Point>>& points)
{
    QList<QVector3D> positions;
    std::ranges::transform(points, std::back_inserter(positions),
                           [](const auto& point) { return point->getPosition(); });
    return positions;
}

class PlanBuilder
{
public:
    PlanBuilder(const phantom::Patient& planned, const geometry::Mesh& upper,
                const geometry::Mesh& lower)
        : patient(planned), upperCrowns(upper), lowerCrowns(lower)
    {}

    PlanOfEveryKind build()
    {
        addArches();
        addAnnotations(plan, patient);
        addNerves();
        addScans();
        addJaws();
        addOtherSurfaces();
        addSurgery();
        addImplants();
        addTemplates();
        addRest();
        std::ranges::stable_sort(plan.objects, {}, &PlannedObject::step);
        return plan;
    }

private:
    phantom::Tooth tooth(int number) const { return patient.tooth(number).value(); }

    template <typename Kind>
    std::shared_ptr<Kind> addSurface(int step, const QString& kind, const geometry::Mesh& mesh)
    {
        auto surface = std::make_shared<Kind>();
        surface->setMesh(mesh);
        plan.add(step, kind, surface, [surface] { return surface->getMesh().getVertices(); });
        return surface;
    }

    // The built-in patient's extent at voxels of 1 mm, empty: the arches ask for nothing but its
    // box.
    void addCt()
    {
        const QVector3D extent = patient.extentMm();
        const auto volume = std::make_shared<ImageVolume>();
        volume->setImage(VexelImage3D({static_cast<int>(extent.x()), static_cast<int>(extent.y()),
                                       static_cast<int>(extent.z())},
                                      {1.0F, 1.0F, 1.0F}, image::UInt8));
        const auto scan = std::make_shared<CTData>();
        scan->setImageVolume(volume);
        auto object = std::make_shared<CTDataVolumeObject>();
        object->setCTData(scan);
        plan.otherObjects.append(object);
    }

    void addArches()
    {
        addCt();
        for (const auto arch : {ToothChart::UpperArch, ToothChart::LowerArch}) {
            auto spline = std::make_shared<PlanarDentalSpline>();
            spline->setArchType(arch);
            for (const phantom::Tooth& t : patient.teeth()) {
                if (ToothChart::getArchTypeOfTooth(t.number) == arch)
                    spline->setTooth(t.number, spline->appendControlPoint(t.occlusalPoint));
            }
            plan.add(1,
                     QStringLiteral("dental arch, %1")
                         .arg(arch == ToothChart::UpperArch ? QStringLiteral("upper")
                                                            : QStringLiteral("lower")),
                     spline, [spline] { return positionsOf(spline->getControlPoints()); });
            plan.shown.append([spline] {
                return QList<PlanSurface>{
                    {openTube(thinned(spline->getOriginalPath(), 8), 0.7F), SurfaceKind::Arch}};
            });
        }
    }

    void addNerves()
    {
        for (const bool right : {true, false}) {
            const phantom::NerveCanal& canal = right ? patient.rightCanal() : patient.leftCanal();
            auto nerve = std::make_shared<dataobject::Nerve>();
            nerve->setMesh(openTube(canal.centerLine, canal.radiusMm));
            auto line = std::make_shared<GuidingSpline>();
            for (const QVector3D& position : thinned(canal.centerLine, 10))
                line->appendControlPoint(position);
            nerve->setGuidingLine(line);
            plan.add(15, right ? QStringLiteral("nerve, right") : QStringLiteral("nerve, left"),
                     nerve, [nerve, line] {
                         return nerve->getMesh().getVertices() +
                                positionsOf(line->getControlPoints());
                     });
            plan.shown.append([nerve] {
                return QList<PlanSurface>{{nerve->getMesh(), SurfaceKind::Nerve}};
            });
        }
    }

    void addScans()
    {
        const auto scanOf = [this](const QString& name, const geometry::Mesh& crowns, JawType jaw) {
            auto scan = addSurface<DentalScan>(16, name, crowns);
            scan->setJawType(jaw);
            scan->setFreehandAligned(true); // its total transform is the planning transform
            plan.shown.append([scan] {
                return QList<PlanSurface>{{scan->getMesh(), SurfaceKind::Crowns}};
            });
        };
        scanOf(QStringLiteral("scan of the upper crowns"), upperCrowns, UpperJaw);
        scanOf(QStringLiteral("scan of the lower crowns"), lowerCrowns, LowerJaw);
    }

    void addJaws()
    {
        const QList<QVector3D> lowerArch = patient.archCurve(ToothChart::LowerArch);
        const QList<QVector3D> upperArch = patient.archCurve(ToothChart::UpperArch);
        addSurface<dataobject::SurgicalSplint>(14, QStringLiteral("splint"),
                                               openTube(lowerArch, 4.0F));

        auto mandibula = std::make_shared<Mandibula>();
        mandibula->setMesh(openTube(lowerArch, 8.0F));
        mandibula->setCondylePositions(
            {patient.leftCanal().mandibularForamen + QVector3D(0.0F, 0.0F, 25.0F),
             patient.rightCanal().mandibularForamen + QVector3D(0.0F, 0.0F, 25.0F)},
            true);
        mandibula->setOcclusalPlanePositions(
            {tooth(19).occlusalPoint, tooth(24).occlusalPoint, tooth(30).occlusalPoint});
        plan.add(17, QStringLiteral("mandible with condyles and occlusal plane"), mandibula,
                 [mandibula] {
                     const auto [left, right] = mandibula->getCondylePositions();
                     return mandibula->getMesh().getVertices() +
                            mandibula->getOcclusalPlanePositions() +
                            QList<QVector3D>{left, right,
                                             mandibula->getLeftAutoRotationPoint()->getPosition(),
                                             mandibula->getRightAutoRotationPoint()->getPosition()};
                 });
        auto maxilla = std::make_shared<Maxilla>();
        maxilla->setMesh(openTube(upperArch, 8.0F));
        maxilla->setRotationPosition(tooth(8).apex);
        plan.add(17, QStringLiteral("maxilla with the point it turns about"), maxilla, [maxilla] {
            return maxilla->getMesh().getVertices() +
                   QList<QVector3D>{maxilla->getRotationPosition()};
        });
        auto anatomy = std::make_shared<Anatomy>();
        auto cranium = std::make_shared<Surface3DModel>();
        auto mandible = std::make_shared<Surface3DModel>();
        cranium->setMesh(ball(patient.extentMm() * 0.5F + QVector3D(0.0F, 0.0F, 40.0F), 60.0F));
        mandible->setMesh(openTube(lowerArch, 9.0F));
        anatomy->setOriginalModels(cranium, mandible);
        plan.add(18, QStringLiteral("original models of skull and mandible"), anatomy,
                 [cranium, mandible] {
                     return cranium->getMesh().getVertices() + mandible->getMesh().getVertices();
                 });
    }

    void addOtherSurfaces()
    {
        auto distractor = std::make_shared<Distractor>();
        auto tree = std::make_shared<SurfaceTree>();
        distractor->setSurfaceTree(tree);
        distractor->setTransform(standing(tooth(24).apex, {0.0F, -1.0F, 0.0F}));
        plan.add(19, QStringLiteral("distractor"), distractor, [distractor, tree] {
            return QList<QVector3D>{distractor->getTransform().column(3).toVector3D()} +
                   cornersOf(tree->getObjectTransform());
        });

        const QVector3D middle = patient.extentMm() * 0.5F;
        addSurface<SoftTissueModel>(20, QStringLiteral("soft tissue of the face"),
                                    ball(middle, 70.0F));
        addSurface<Skin>(21, QStringLiteral("skin"), ball(middle, 74.0F));
        addSurface<OsteotomySurface>(
            22, QStringLiteral("osteotomy"),
            geometry::Mesh({tooth(2).apex, tooth(15).apex, tooth(8).apex}, {0, 1, 2, -1}));
        addSurface<dataobject::Airway>(26, QStringLiteral("airway"),
                                       openTube({middle + QVector3D(0.0F, 25.0F, -40.0F),
                                                 middle + QVector3D(0.0F, 28.0F, 0.0F),
                                                 middle + QVector3D(0.0F, 22.0F, 30.0F)},
                                                7.0F));
        addSurface<ShowObject>(27, QStringLiteral("imported surface"),
                               ball(tooth(9).occlusalPoint, 3.0F));
        addSurface<dataobject::PatientSurfaceModel>(28, QStringLiteral("photographed face"),
                                                    ball(middle, 75.0F));
    }

    void addSurgery()
    {
        plan.surgery = std::make_shared<MaxillofacialSurgery>();
        auto* maxillary = new OcclusionMovement(MovementTypes::m_maxillary_occlusion_movement);
        auto* mandibular = new OcclusionMovement(MovementTypes::m_mandibular_occlusion_movement);
        for (Movement* movement : QList<Movement*>{
                 maxillary, mandibular,
                 new CompositeMovement(MovementTypes::m_maxillary_segmental_occlusion_movement),
                 new CompositeMovement(MovementTypes::m_mandibular_segmental_occlusion_movement)})
            plan.surgery->addMovement(movement);

        // Recorded over a wafer: the lower jaw opens by 4 degrees about its joints and comes
        // forward by 2 mm.
        const QVector3D hinge =
            (patient.leftCanal().mandibularForamen + patient.rightCanal().mandibularForamen) * 0.5F;
        QMatrix4x4 opening;
        opening.translate(hinge + QVector3D(0.0F, -2.0F, 0.0F));
        opening.rotate(4.0F, 1.0F, 0.0F, 0.0F);
        opening.translate(-hinge);
        auto bite = std::make_shared<Occlusion>();
        bite->setTransformations(
            {{Maxilla::getClassTypeId(), QMatrix4x4()}, {Mandibula::getClassTypeId(), opening}});
        plan.otherObjects.append(bite);
        plan.add(23, QStringLiteral("surgery: occlusion movements, recomputed"), plan.surgery,
                 [maxillary, mandibular, owner = plan.surgery] {
                     QList<QVector3D> corners;
                     for (const OcclusionMovement* movement : {maxillary, mandibular})
                         corners += cornersOf(movement
                                                  ->getOcclusionModeTransformation(
                                                      MovementModes::OCCLUSION_PLASTER_CAST_MODE)
                                                  .value());
                     return corners;
                 });
    }

    void addImplants()
    {
        for (const int number : {3, 14, 19, 30}) {
            auto implant = std::make_shared<dataobject::Implant3D>();
            implant->setDimensions({4.1F, 10.0F});
            const phantom::Tooth t = tooth(number);
            implant->setObjectTransform(
                standing(t.occlusalPoint - t.axisToCrown * 8.0F, t.axisToCrown));
            plan.add(32, QStringLiteral("implant at tooth %1").arg(number), implant);
            plan.shown.append([implant] {
                return QList<PlanSurface>{{placedMesh(implantBody(implant->getDimensions()),
                                                      implant->getObjectTransform()),
                                           SurfaceKind::Implant}};
            });
        }
        for (const int number : {22, 27}) {
            auto pin = std::make_shared<dataobject::AnchorPin3D>();
            pin->setObjectTransform(
                standing(tooth(number).apex + QVector3D(0.0F, -10.0F, 0.0F), {0.0F, -1.0F, 0.0F}));
            plan.add(31, QStringLiteral("anchor pin at tooth %1").arg(number), pin);
            plan.shown.append([pin] {
                return QList<PlanSurface>{
                    {placedMesh(openTube({{0.0F, 0.0F, 6.0F}, {0.0F, 0.0F, -12.0F}}, 0.9F),
                                pin->getObjectTransform()),
                     SurfaceKind::Pin}};
            });
        }
    }

    void addTemplates()
    {
        auto locked = std::make_shared<dataobject::LockedImplantPlan>();
        locked->lock({standing(tooth(19).occlusalPoint, tooth(19).axisToCrown)});
        plan.add(30, QStringLiteral("locked implant plan"), locked, [locked] {
            return cornersOf(locked->getScannerOrientation() *
                             locked->getImplantPlacements().first());
        });
        const auto addTemplate = [this](int step, const QString& kind, const auto& surface) {
            surface->setMesh(openTube(patient.archCurve(ToothChart::LowerArch), 5.0F));
            plan.add(step, kind, surface, [surface] {
                return placedMesh(surface->getMesh(), surface->getObjectTransform()).getVertices();
            });
        };
        addTemplate(33, QStringLiteral("template being designed"),
                    std::make_shared<dataobject::PreviewSurgicalTemplate>());
        addTemplate(34, QStringLiteral("surgical template"),
                    std::make_shared<dataobject::SurgicalTemplate3D>());
    }

    void addRest()
    {
        auto shell = std::make_shared<TempShell>();
        plan.add(24, QStringLiteral("temporary shell"), shell);
        auto joint = std::make_shared<dataobject::TemporomandibularJoint>();
        auto line = std::make_shared<GuidingSpline>();
        const QVector3D condyle =
            patient.rightCanal().mandibularForamen + QVector3D(0.0F, 0.0F, 25.0F);
        for (const float x : {-8.0F, 0.0F, 8.0F})
            line->appendControlPoint(condyle + QVector3D(x, 0.0F, -std::abs(x) * 0.3F));
        joint->setGuidingLine(line);
        plan.add(25, QStringLiteral("jaw joint, right"), joint,
                 [joint, line] { return positionsOf(line->getControlPoints()); });
        auto ceph = std::make_shared<CephPlaneBase>();
        ceph->setPlane(primitives::Plane(tooth(19).occlusalPoint, tooth(30).occlusalPoint,
                                         tooth(24).occlusalPoint));
        plan.add(29, QStringLiteral("cephalometric occlusal plane"), ceph, [ceph] {
            return QList<QVector3D>{ceph->getPlane().getPoint(),
                                    ceph->getPlane().getPoint() + ceph->getPlane().getNormal()};
        });
        auto collection = std::make_shared<dataobject::PlannedToPostOpCollection>();
        const QString part = Maxilla::getClassTypeId();
        QMatrix4x4 advance;
        advance.translate(0.0F, -4.0F, 1.0F);
        advance.rotate(3.0F, 1.0F, 0.0F, 0.0F);
        collection->setFromPreOpToPlannedAndPostOpTransformations({{part, advance}},
                                                                  {{part, advance}});
        collection->setPreOpRotationPoint(part, tooth(8).apex);
        plan.add(
            35, QStringLiteral("planned and post-operative moves of the maxilla"), collection,
            [collection, part] {
                return cornersOf(collection->getFromPreOpToPlannedTransformation(part).value()) +
                       cornersOf(collection->getFromPreOpToPostOpTransformation(part).value()) +
                       QList<QVector3D>{collection->getPreOpRotationPoint(part).value()};
            });
        auto apex = std::make_shared<dataobject::Apex>();
        apex->setPosition(tooth(30).apex);
        plan.add(36, QStringLiteral("apex of tooth 30"), apex);
        auto canal = std::make_shared<dataobject::RootCanal>();
        canal->setBasePosition(tooth(30).apex + tooth(30).axisToCrown * 12.0F);
        plan.add(37, QStringLiteral("root canal of tooth 30"), canal,
                 [canal] { return QList<QVector3D>{canal->getBasePosition()}; });
    }

    const phantom::Patient& patient;
    const geometry::Mesh& upperCrowns;
    const geometry::Mesh& lowerCrowns;
    PlanOfEveryKind plan;
};

} // namespace

QList<QVector3D> cornersOf(const QMatrix4x4& placement)
{
    return {placement.map(QVector3D()), placement.map(QVector3D(1.0F, 0.0F, 0.0F)),
            placement.map(QVector3D(0.0F, 1.0F, 0.0F)), placement.map(QVector3D(0.0F, 0.0F, 1.0F))};
}

QList<PlanSurface> PlanOfEveryKind::surfaces() const
{
    QList<PlanSurface> all;
    for (const auto& part : shown)
        all += part();
    return all;
}

void PlanOfEveryKind::add(int step, const QString& kind, const std::shared_ptr<DataObject>& object,
                          std::function<QList<QVector3D>()> coordinates)
{
    objects.append({step, kind, object, std::move(coordinates)});
}

QList<DataObject*> PlanOfEveryKind::dataObjects() const
{
    QList<DataObject*> all;
    for (const auto& other : otherObjects)
        all.append(other.get());
    for (const PlannedObject& planned : objects)
        all.append(planned.object.get());
    return all;
}

PlanOfEveryKind planEveryKind(const phantom::Patient& patient, const geometry::Mesh& upperCrowns,
                              const geometry::Mesh& lowerCrowns)
{
    return PlanBuilder(patient, upperCrowns, lowerCrowns).build();
}

} // namespace planner
