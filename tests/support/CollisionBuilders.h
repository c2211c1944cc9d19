// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/Mesh.h>
#include <CoreAlgorithms/model/data/Shapes.h>
#include <CoreAlgorithms/model/dataobjects/Implants.h>

#include <tests/support/Matrices.h>

#include <QList>
#include <QMatrix4x4>
#include <QVector3D>

#include <cmath>
#include <memory>

namespace test {

/// Returns an implant of these measures in mm at the placement.
inline std::shared_ptr<dataobject::Implant3D> makeImplant(float diameterMm, float lengthMm,
                                                          const QMatrix4x4& placement = {})
{
    auto implant = std::make_shared<dataobject::Implant3D>();
    implant->setDimensions({diameterMm, lengthMm});
    implant->setObjectTransform(placement);
    return implant;
}

/// Returns a nerve with this surface, which is in the scene.
inline std::shared_ptr<dataobject::Nerve> makeNerve(const geometry::Mesh& mesh)
{
    auto nerve = std::make_shared<dataobject::Nerve>();
    nerve->setMesh(mesh);
    return nerve;
}

/// Returns a pin whose tree has a root without a shape and one closed cylinder along z.
inline std::shared_ptr<dataobject::AnchorPin3D> makePin(float radiusMm, float lengthMm,
                                                        const QMatrix4x4& placement = {})
{
    geometry::ShapeLoader loader;
    const geometry::ShapeFactory factory(loader);
    auto root = std::make_unique<geometry::ShapeNode>(QStringLiteral("AnchorPin"));
    root->addChild(factory.generateCylinder(radiusMm, lengthMm, false, false));
    auto pin = std::make_shared<dataobject::AnchorPin3D>();
    pin->setShapeNode(std::move(root));
    pin->setObjectTransform(placement);
    return pin;
}

/// Returns an open tube around the points, with two triangles for every step and segment.
inline geometry::Mesh makeTube(const QList<QVector3D>& axis, float radiusMm, int segments)
{
    QList<QVector3D> vertices;
    for (qsizetype i = 0; i < axis.size(); ++i) {
        const QVector3D along =
            (axis[std::min(i + 1, axis.size() - 1)] - axis[std::max<qsizetype>(i - 1, 0)])
                .normalized();
        const QVector3D side = QVector3D::crossProduct(along, {0.1F, 0.2F, 1.0F}).normalized();
        const QVector3D up = QVector3D::crossProduct(along, side);
        for (int segment = 0; segment < segments; ++segment) {
            const float angle =
                6.2831853F * static_cast<float>(segment) / static_cast<float>(segments);
            vertices.append(axis[i] + radiusMm * (std::cos(angle) * side + std::sin(angle) * up));
        }
    }
    QList<int> indices;
    indices.reserve((axis.size() - 1) * segments * 8);
    for (int ring = 0; ring + 1 < static_cast<int>(axis.size()); ++ring) {
        for (int segment = 0; segment < segments; ++segment) {
            const int a = ring * segments + segment;
            const int b = ring * segments + (segment + 1) % segments;
            indices << a << b << b + segments << -1 << a << b + segments << a + segments << -1;
        }
    }
    return {vertices, indices};
}

/// Returns a canal of 60 mm that bends like that of the lower jaw. The number of triangles differs
/// from `numTriangles` by less than 10 % from 200 triangles up.
inline geometry::Mesh makeCanal(int numTriangles, float radiusMm = 1.25F)
{
    const int segments = std::max(
        6, static_cast<int>(std::sqrt(static_cast<float>(numTriangles) / 2.0F / (60.0F / 7.85F))));
    const int steps = std::max(2, numTriangles / (2 * segments));
    QList<QVector3D> axis;
    for (int i = 0; i <= steps; ++i) {
        const float t = static_cast<float>(i) / static_cast<float>(steps);
        axis.append({42.0F - 4.0F * t - 18.0F * t * t, -45.0F * t,
                     -14.0F + 10.0F * (1.0F - t) * (1.0F - t)});
    }
    return makeTube(axis, radiusMm, segments);
}

} // namespace test
