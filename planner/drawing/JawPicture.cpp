// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/drawing/CollisionPictures.h>

#include <planner/drawing/GreyScale.h>
#include <planner/drawing/MeshView.h>
#include <planner/drawing/PictureStyle.h>
#include <planner/drawing/Sampling.h>
#include <planner/input/Case.h>
#include <planner/planning/Meshes.h>

#include <phantom/Phantom.h>

#include <QPainter>

#include <algorithm>
#include <optional>

namespace planner {

namespace {

const QColor kBoneColor(0xe8, 0xdc, 0xc4);
const QSize kJawPixels(1240, 880);
constexpr double kJawMmPerPixel = 0.108;
constexpr float kAroundJawMm = 13.0F;    // what is searched for bone around the canals and the arch
constexpr double kBoneThreshold = 200.0; // between soft tissue and cancellous bone
constexpr double kLabelThreshold = 0.5;
constexpr float kToothWidthMm = 10.0F;        // of a lower molar
constexpr float kBelowNecksMm = 1.0F;         // the bone is cut here
constexpr float kTeethBeforeArchEndMm = 3.0F; // no crown reaches farther back
constexpr float kRamusBesideArchMm = 5.0F;

// The arch at the necks of the lower teeth, from the patient's right to the left, reaching a
// tooth's width beyond them.
QList<QVector3D> archAtNecks(const Case& planned, const CollisionPlan& plan)
{
    if (planned.patient)
        return planned.patient->archCurve(ToothChart::LowerArch);
    QList<QVector3D> arch;
    for (const Landmark& landmark : planned.landmarks) {
        if (toothNumberOf(landmark) > ToothChart::LastUpperTooth)
            arch.append(landmark.position);
    }
    std::ranges::sort(arch, [](const QVector3D& a, const QVector3D& b) { return a.x() < b.x(); });
    float necks = 0.0F;
    for (const PlannedImplant& implant : plan.implants)
        necks +=
            implant.object->getObjectTransform()(2, 3) / static_cast<float>(plan.implants.size());
    const auto behind = [](const QVector3D& tooth) {
        return tooth + QVector3D(0.0F, kToothWidthMm, 0.0F);
    };
    arch.prepend(behind(arch.first()));
    arch.append(behind(arch.last()));
    for (QVector3D& point : arch)
        point.setZ(necks);
    return arch;
}

// Between soft tissue and cancellous bone, or between nothing and any label; nothing where the
// values do not tell.
std::optional<double> boneThreshold(const GreyScale& scale)
{
    switch (scale.kind()) {
    case GreyValueKind::Hounsfield:
        return kBoneThreshold;
    case GreyValueKind::Labels:
        return kLabelThreshold;
    case GreyValueKind::Raw:
        break;
    }
    return std::nullopt;
}

ShownBone lowerJaw(const Case& planned, const CollisionPlan& plan, const Sampler& sampler)
{
    const QList<QVector3D> arch = archAtNecks(planned, plan);
    QList<QVector3D> points = arch;
    for (const PlannedNerve& nerve : plan.nerves)
        points += nerve.centerLine;
    ShownBone bone;
    bone.low = bone.high = points.first();
    for (const QVector3D& point : points) {
        for (int axis = 0; axis < 3; ++axis) {
            bone.low[axis] = std::min(bone.low[axis], point[axis] - kAroundJawMm);
            bone.high[axis] = std::max(bone.high[axis], point[axis] + kAroundJawMm);
        }
    }
    const float necks = arch[arch.size() / 2].z() - kBelowNecksMm;
    const float behindTeeth = std::max(arch.first().y(), arch.last().y()) - kTeethBeforeArchEndMm;
    const float right = arch.first().x() - kRamusBesideArchMm;
    const float left = arch.last().x() + kRamusBesideArchMm;
    bone.sampler = &sampler;
    // The teeth and all that is above them are cut away, but not the rami.
    bone.isShown = [=](const QVector3D& p) {
        return p.z() <= necks || (p.y() > behindTeeth && (p.x() < right || p.x() > left));
    };
    bone.color = kBoneColor;
    bone.opacity = 0.38;
    return bone;
}

QList<ShownMesh> sceneOf(const CollisionPlan& plan, const QList<Finding>& findings)
{
    QList<ShownMesh> meshes;
    for (qsizetype i = 0; i < plan.implants.size(); ++i) {
        meshes.append(
            {zoneMesh(plan.implants[i], 0.0F), partColor(findings, {PartKind::Implant, i})});
        meshes.append(
            {zoneMesh(plan.implants[i], 3.0F),
             isZoneMet(findings, i) ? collisionColors::kColliding : collisionColors::kZone, 0.13});
    }
    for (qsizetype i = 0; i < plan.nerves.size(); ++i)
        meshes.append(
            {placedMesh(*plan.nerves[i].object), partColor(findings, {PartKind::Nerve, i})});
    for (qsizetype i = 0; i < plan.pins.size(); ++i)
        meshes.append({pinMesh(plan.pins[i]), partColor(findings, {PartKind::Pin, i})});
    return meshes;
}

void paintNames(QPainter& painter, const Camera& camera, const CollisionPlan& plan,
                const QList<Finding>& findings)
{
    painter.setFont(fontOf(21, true));
    for (qsizetype i = 0; i < plan.implants.size(); ++i) {
        const QVector3D above =
            plan.implants[i].object->getObjectTransform().map(QVector3D(0.0F, 0.0F, 3.0F));
        paintCenterd(painter, camera.project(above) - QPointF(0.0, 14.0), plan.implants[i].name,
                     partColor(findings, {PartKind::Implant, i}));
    }
    painter.setFont(fontOf(18, false));
    for (qsizetype i = 0; i < plan.pins.size(); ++i) {
        const QVector3D beyond = plan.pins[i].object->getObjectTransform().map(
            QVector3D(0.0F, 0.0F, plan.pins[i].lengthMm + 2.0F));
        paintCenterd(painter, camera.project(beyond) + QPointF(0.0, 34.0), plan.pins[i].name,
                     partColor(findings, {PartKind::Pin, i}).lighter(125));
    }
    for (qsizetype i = 0; i < plan.nerves.size(); ++i) {
        const QList<QVector3D>& line = plan.nerves[i].centerLine;
        const QVector3D start = line.first();
        paintCenterd(painter, camera.project(start) + QPointF(0.0, -26.0), plan.nerves[i].name,
                     partColor(findings, {PartKind::Nerve, i}));
    }
}

} // namespace

bool isBoneShown(const GreyScale& scale)
{
    return boneThreshold(scale).has_value();
}

QImage paintJaw(const Case& planned, const Sampler& sampler, const GreyScale& scale,
                const CollisionPlan& plan, const QList<Finding>& findings,
                const std::function<void(double)>& progress)
{
    ShownBone bone = lowerJaw(planned, plan, sampler);
    bone.threshold = boneThreshold(scale).value_or(0.0);
    Camera camera;
    camera.center = (bone.low + bone.high) / 2.0F + QVector3D(5.0F, -4.0F, 2.0F);
    camera.direction = {-0.14F, 0.74F, -0.62F};
    camera.up = {0.0F, 0.0F, 1.0F};
    camera.mmPerPixel = kJawMmPerPixel;
    camera.pixels = kJawPixels;
    QImage image = paintScene(camera, sceneOf(plan, findings),
                              isBoneShown(scale) ? std::optional(bone) : std::nullopt, progress);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    paintNames(painter, camera, plan, findings);
    return image;
}

} // namespace planner
