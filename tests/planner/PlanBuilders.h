// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/planning/CollisionPlan.h>
#include <planner/planning/Meshes.h>

#include <CoreAlgorithms/model/data/Shapes.h>

namespace test {

/// An upright implant of 4 by 10 mm.
inline planner::PlannedImplant implantAt(const QVector3D& platform)
{
    planner::PlannedImplant planned{QStringLiteral("implant"),
                                    std::make_shared<dataobject::Implant3D>()};
    planned.object->setDimensions({4.0F, 10.0F});
    QMatrix4x4 placement;
    placement.translate(platform);
    planned.object->setObjectTransform(placement);
    return planned;
}

inline planner::PlannedNerve nerveAlong(const QVector3D& from, const QVector3D& to, float radiusMm)
{
    planner::PlannedNerve planned{
        QStringLiteral("nerve"), std::make_shared<dataobject::Nerve>(), {from, to}, radiusMm};
    planned.object->setMesh(planner::tubeMesh(planned.centerLine, radiusMm));
    return planned;
}

/// A pin of radius 0.75 and 16 mm whose head is at larger x than its tip.
inline planner::PlannedPin pinAlongX(const QVector3D& tip)
{
    planner::PlannedPin planned{QStringLiteral("pin"), std::make_shared<dataobject::AnchorPin3D>(),
                                0.75F, 16.0F};
    geometry::ShapeLoader loader;
    const geometry::ShapeFactory factory(loader);
    auto root = std::make_unique<geometry::ShapeNode>(planned.name);
    geometry::ShapeNode* shaft = factory.generateCylinder(0.75F, 16.0F, false, false);
    QMatrix4x4 up;
    up.translate(0.0F, 0.0F, 8.0F);
    shaft->setTransform(up);
    root->addChild(shaft);
    planned.object->setShapeNode(std::move(root));
    planned.object->setObjectTransform(
        QMatrix4x4(0, 0, 1, tip.x(), 1, 0, 0, tip.y(), 0, 1, 0, tip.z(), 0, 0, 0, 1)); // z to x
    return planned;
}

} // namespace test
