// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/planning/CollisionPlan.h>

#include <planner/input/Case.h>
#include <planner/input/Landmarks.h>
#include <planner/planning/Meshes.h>
#include <planner/planning/Panorama.h>
#include <planner/planning/Vectors.h>

#include <CoreAlgorithms/collision/ImplantSafetyZone.h>
#include <CoreAlgorithms/model/data/Shapes.h>

#include <phantom/Phantom.h>

#include <Eigen/Geometry>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>
#include <vector>

namespace planner {

namespace {

struct ImplantSite
{
    int tooth; // Universal numbering
    float diameter;
    float length;
    double depth;       // of the platform below the neck of the tooth
    double mesialTilt;  // degrees by which the apex leans along the arch to the midline
    double outwardTilt; // and to the cheek
};

constexpr ImplantSite kBuiltInSites[] = {
    {30, 4.8F, 10.0F, 0.5, 0.0, 12.0}, {28, 4.1F, 11.5F, 0.5, 0.0, 0.0},
    {27, 4.1F, 11.5F, 0.5, 0.0, 0.0},  {26, 3.3F, 11.5F, 0.5, 0.0, 0.0},
    {23, 3.3F, 11.5F, 0.5, 0.0, 0.0},  {22, 4.1F, 13.0F, 0.5, 0.0, 0.0},
    {21, 4.1F, 13.0F, 0.5, 30.0, 0.0}, {19, 4.8F, 15.0F, 0.5, 0.0, 14.0},
};

struct PinSite
{
    double acrossMidline; // x of the point where the pin crosses the arch, from the midline
    double height;        // z of that point
};

constexpr PinSite kPinSites[] = {{-19.5, 45.0}, {-1.5, 45.0}, {3.5, 45.0}, {19.5, 45.0}};
constexpr float kPinRadius = 0.75F;
constexpr float kPinLength = 16.0F;
constexpr float kPinHeadLength = 2.0F; // the head is twice as thick as the shaft
constexpr double kPinTipBehindArch = 3.0;

double radians(double degrees)
{
    return degrees * std::numbers::pi / 180.0;
}

// The arch where a tooth or a pin stands.
struct ArchPlace
{
    Eigen::Vector3d point;
    Eigen::Vector3d toMidline; // along the arch, unit
    Eigen::Vector3d outwards;  // across it, horizontal, unit
};

ArchPlace placeOn(const QList<QVector3D>& arch, qsizetype index)
{
    const Eigen::Vector3d before = toEigen(arch[std::max<qsizetype>(index - 1, 0)]);
    const Eigen::Vector3d after = toEigen(arch[std::min(index + 1, arch.size() - 1)]);
    Eigen::Vector3d toLeft = after - before;
    toLeft.z() = 0.0;
    toLeft.normalize();
    ArchPlace place;
    place.point = toEigen(arch[index]);
    place.toMidline = index < arch.size() / 2 ? toLeft : Eigen::Vector3d(-toLeft);
    place.outwards = toLeft.cross(Eigen::Vector3d::UnitZ()); // the arch starts on the right
    return place;
}

template <typename Distance>
ArchPlace nearestPlace(const QList<QVector3D>& arch, const Distance& distance)
{
    const auto nearest = std::ranges::min_element(arch, [&](const auto& a, const auto& b) {
        return distance(toEigen(a)) < distance(toEigen(b));
    });
    return placeOn(arch, nearest - arch.cbegin());
}

// The frame whose z axis has the given direction.
QMatrix4x4 placement(const Eigen::Vector3d& origin, const Eigen::Vector3d& zAxis)
{
    const Eigen::Vector3d z = zAxis.normalized();
    const Eigen::Vector3d x = z.unitOrthogonal();
    return frameOf(toQt(x), toQt(z.cross(x)), toQt(z), toQt(origin));
}

PlannedImplant planImplant(const ImplantSite& site, const phantom::Patient& patient)
{
    const phantom::Tooth tooth = patient.tooth(site.tooth).value();
    const auto& arch = patient.archCurve(ToothChart::getArchTypeOfTooth(tooth.number));
    const Eigen::Vector3d crown = toEigen(tooth.occlusalPoint);
    const ArchPlace place = nearestPlace(
        arch, [&](const Eigen::Vector3d& p) { return (p - crown).head<2>().squaredNorm(); });
    const Eigen::Vector3d apex = toEigen(tooth.apex);
    const Eigen::Vector3d toCrown = toEigen(tooth.axisToCrown);
    const double neck = (place.point.z() - apex.z()) / toCrown.z();
    const Eigen::Vector3d platform = apex + (neck - site.depth) * toCrown;
    const Eigen::Vector3d axis = toCrown - std::tan(radians(site.mesialTilt)) * place.toMidline -
                                 std::tan(radians(site.outwardTilt)) * place.outwards;

    PlannedImplant planned;
    planned.name = QString::number(fdiNumber(site.tooth));
    planned.object = std::make_shared<dataobject::Implant3D>();
    planned.object->setDimensions({site.diameter, site.length});
    planned.object->setObjectTransform(placement(platform, axis));
    return planned;
}

PlannedNerve planNerve(const CanalLine& canal)
{
    PlannedNerve planned{sideName(canal.right) + QStringLiteral(" nerve"),
                         std::make_shared<dataobject::Nerve>(), canal.points,
                         canal.radiusMm.value_or(kAssumedCanalRadiusMm)};
    planned.object->setMesh(tubeMesh(planned.centerLine, planned.radiusMm));
    return planned;
}

void raise(geometry::ShapeNode& node, float height)
{
    QMatrix4x4 upwards;
    upwards.translate(0.0F, 0.0F, height);
    node.setTransform(upwards * node.getTransform());
}

PlannedPin planPin(const QString& name, const PinSite& site, const phantom::Patient& patient)
{
    const auto& arch = patient.archCurve(
        ToothChart::getArchTypeOfTooth(ToothChart::Tooth(kBuiltInSites[0].tooth)));
    const double midline = toEigen(arch[arch.size() / 2]).x();
    const ArchPlace place = nearestPlace(arch, [&](const Eigen::Vector3d& p) {
        return std::abs(p.x() - midline - site.acrossMidline);
    });
    Eigen::Vector3d tip = place.point - kPinTipBehindArch * place.outwards;
    tip.z() = site.height;

    geometry::ShapeLoader loader;
    const geometry::ShapeFactory factory(loader);
    auto root = std::make_unique<geometry::ShapeNode>(name);
    geometry::ShapeNode* shaft = factory.generateCylinder(kPinRadius, kPinLength, false, false);
    raise(*shaft, kPinLength / 2.0F);
    root->addChild(shaft);
    geometry::ShapeNode* head =
        factory.generateCylinder(2.0F * kPinRadius, kPinHeadLength, false, false);
    raise(*head, kPinLength + kPinHeadLength / 2.0F);
    root->addChild(head);

    PlannedPin planned{name, std::make_shared<dataobject::AnchorPin3D>(), kPinRadius, kPinLength};
    planned.object->setShapeNode(std::move(root));
    planned.object->setObjectTransform(placement(tip, place.outwards));
    return planned;
}

} // namespace

CollisionPlan createCollisionPlan(const phantom::Patient& patient)
{
    CollisionPlan plan;
    for (const ImplantSite& site : kBuiltInSites)
        plan.implants.append(planImplant(site, patient));
    for (const CanalLine& canal : canalsOf(patient))
        plan.nerves.append(planNerve(canal));
    for (const PinSite& site : kPinSites)
        plan.pins.append(
            planPin(QStringLiteral("pin %1").arg(plan.pins.size() + 1), site, patient));
    return plan;
}

CollisionPlan createCollisionPlan(const Case& planned)
{
    if (planned.patient)
        return createCollisionPlan(*planned.patient);
    CollisionPlan plan;
    for (const char* site : kImplantSites) {
        const QString fdi = QLatin1String(site);
        if (const auto implant = implantAt(planned, fdi))
            plan.implants.append({fdi, implant});
    }
    for (const CanalLine& canal : planned.canals)
        plan.nerves.append(planNerve(canal));
    return plan;
}

geometry::Mesh zoneMesh(const PlannedImplant& implant, float margin)
{
    geometry::ShapeLoader loader;
    const auto factory = std::make_unique<geometry::ShapeFactory>(loader);
    return placedMesh(*collision::generateSafetyZone(factory, *implant.object, margin),
                      implant.object->getObjectTransform());
}

geometry::Mesh pinMesh(const PlannedPin& pin)
{
    return placedMesh(*pin.object->getShapeNode(), pin.object->getObjectTransform());
}

} // namespace planner
