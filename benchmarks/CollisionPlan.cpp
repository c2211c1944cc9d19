// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <benchmarks/CollisionPlan.h>

#include <CoreAlgorithms/collision/ImplantSafetyZone.h>
#include <CoreAlgorithms/model/data/Shapes.h>

#include <tests/support/PlainOverlap.h>

#include <QVector3D>

#include <array>
#include <cmath>
#include <cstdlib>
#include <numbers>

namespace benchmarks {

namespace {

// The frame of the arch before it is tilted: x to the left, y to the back, z up. The platforms are
// at z = 0.

constexpr int kImplants = 12;
constexpr int kPins = 6;
constexpr float kPi = std::numbers::pi_v<float>;
constexpr float kNerveRadius = 1.5F;
constexpr float kCanalDepth = 16.5F; // mm from the platforms down to the center line

QMatrix4x4 tilt()
{
    QMatrix4x4 matrix;
    matrix.translate(31.0F, -17.0F, 44.0F);
    matrix.rotate(23.0F, 0.6F, -0.7F, 0.4F);
    return matrix;
}

// Returns a point of the arch, for t from -1 (right) to 1 (left).
QVector3D archAt(float t)
{
    return {27.0F * t, 45.0F * t * t, 0.0F};
}

// Returns a point of a canal of 60 mm, for s from 0 (back) to 1. The canal is an arc of 66 degrees
// in space, below the arch from behind the last implant to the fourth.
QVector3D canalAt(float s, float side)
{
    constexpr float radius = 52.0F;
    const float angle = (1.0F - s) * 60.0F / radius;
    return {side * (-14.5F + 14.5F * s - 14.0F),
            50.0F - radius * (std::sin(60.0F / radius) - std::sin(angle)),
            -kCanalDepth + 10.0F * (1.0F - s) * (1.0F - s) * (1.0F - s)};
}

// Returns the surface of a canal, whose triangles are about as long as wide.
geometry::Mesh tube(int triangles, float side)
{
    const float girth = 2.0F * kPi * kNerveRadius;
    const auto around = static_cast<int>(std::max(
        8.0F, std::round(std::sqrt(static_cast<float>(triangles) / 2.0F * girth / 60.0F))));
    const int along = triangles / (2 * around);
    QList<QVector3D> vertices;
    vertices.reserve(qsizetype(along + 1) * around);
    for (int i = 0; i <= along; ++i) {
        const float s = static_cast<float>(i) / static_cast<float>(along);
        const QVector3D center = canalAt(s, side);
        const QVector3D direction =
            (canalAt(s + 0.001F, side) - canalAt(s - 0.001F, side)).normalized();
        const QVector3D across =
            QVector3D::crossProduct(direction, {1.0F, 0.0F, 0.0F}).normalized();
        const QVector3D other = QVector3D::crossProduct(direction, across);
        for (int k = 0; k < around; ++k) {
            const float angle = 2.0F * kPi * static_cast<float>(k) / static_cast<float>(around);
            vertices.append(center +
                            kNerveRadius * (std::cos(angle) * across + std::sin(angle) * other));
        }
    }
    geometry::Mesh mesh(vertices, {});
    for (int i = 0; i < along; ++i) {
        for (int k = 0; k < around; ++k) {
            const int a = i * around + k;
            const int b = i * around + (k + 1) % around;
            mesh.addTriangle(a, b, b + around);
            mesh.addTriangle(a, b + around, a + around);
        }
    }
    return mesh;
}

std::shared_ptr<dataobject::Nerve> nerveOf(int triangles, float side)
{
    auto nerve = std::make_shared<dataobject::Nerve>();
    nerve->setMesh(tube(triangles, side));
    nerve->setObjectTransform(tilt());
    return nerve;
}

std::shared_ptr<dataobject::Implant3D> implantOf(float diameter, float length,
                                                 const QMatrix4x4& placement)
{
    auto implant = std::make_shared<dataobject::Implant3D>();
    implant->setDimensions({diameter, length});
    implant->setObjectTransform(placement);
    return implant;
}

std::shared_ptr<dataobject::AnchorPin3D> pinAt(float t)
{
    geometry::ShapeLoader loader;
    const geometry::ShapeFactory factory(loader);
    auto root = std::make_unique<geometry::ShapeNode>(QStringLiteral("Pin"));
    root->addChild(factory.generateCylinder(0.75F, 14.0F, false, false));
    auto pin = std::make_shared<dataobject::AnchorPin3D>();
    pin->setShapeNode(std::move(root));

    const QVector3D inwards = QVector3D(-archAt(t).x(), 30.0F - archAt(t).y(), 0.0F).normalized();
    QMatrix4x4 placement = tilt();
    placement.translate(archAt(t) - 4.0F * inwards + QVector3D(0.0F, 0.0F, -7.0F));
    placement.rotate(QQuaternion::rotationTo({0.0F, 0.0F, 1.0F}, inwards));
    pin->setObjectTransform(placement);
    return pin;
}

geometry::Mesh surfaceOf(const geometry::ShapeNode& root)
{
    QList<QVector3D> vertices;
    QList<int> indices;
    const auto end = root.cend();
    for (auto node = root.cbeginNodesWithShape(); node != end; ++node) {
        geometry::Mesh mesh = node->getShape()->getMesh();
        mesh.applyTransformation(node.getCumulativeTransform());
        const auto first = static_cast<int>(vertices.size());
        vertices += mesh.getVertices();
        for (const int entry : mesh.getIndices())
            indices.append(entry < 0 ? entry : entry + first);
    }
    return {vertices, indices};
}

std::unique_ptr<geometry::ShapeNode> safetyZone(dataobject::Implant3D& implant, float margin)
{
    geometry::ShapeLoader loader;
    const auto factory = std::make_unique<geometry::ShapeFactory>(loader);
    return collision::generateSafetyZone(factory, implant, margin);
}

// Returns a placement at a distance in mm from the center line of the nerve, halfway along it.
QMatrix4x4 besideTheNerve(float distance)
{
    QMatrix4x4 placement = tilt();
    placement.translate(canalAt(0.5F, -1.0F) + QVector3D(distance, 0.0F, 6.0F));
    placement.rotate(4.0F, 0.3F, 1.0F, 0.2F);
    return placement;
}

} // namespace

Plan fullArch(int trianglesPerNerve)
{
    constexpr std::array<float, 4> diameters = {4.8F, 4.1F, 3.5F, 4.1F};
    constexpr std::array<float, 3> lengths = {10.0F, 11.5F, 9.0F};
    Plan plan;
    for (int i = 0; i < kImplants; ++i) {
        const float t = -1.0F + 2.0F * static_cast<float>(i) / (kImplants - 1);
        QMatrix4x4 placement = tilt();
        placement.translate(archAt(t));
        placement.rotate(6.0F * static_cast<float>(i % 5 - 2), 0.4F, 1.0F, 0.0F);
        plan.implants.append(implantOf(diameters[static_cast<std::size_t>(i) % diameters.size()],
                                       lengths[static_cast<std::size_t>(i) % lengths.size()],
                                       i == 0 ? dragPlacement(0) : placement));
    }
    plan.nerves = {nerveOf(trianglesPerNerve, 1.0F), nerveOf(trianglesPerNerve, -1.0F)};
    for (int i = 0; i < kPins; ++i)
        plan.pins.append(pinAt(-0.75F + 1.5F * static_cast<float>(i) / (kPins - 1)));
    return plan;
}

QMatrix4x4 dragPlacement(int step)
{
    const float s = 0.08F + static_cast<float>(step) / 600.0F; // 0.1 mm of the canal's 60
    QMatrix4x4 placement = tilt();
    placement.translate(canalAt(s, 1.0F).x(), canalAt(s, 1.0F).y(), 0.0F);
    return placement;
}

Plan hovering(int trianglesPerNerve)
{
    Plan plan;
    plan.nerves = {nerveOf(trianglesPerNerve, -1.0F)};
    const auto nerve = test::plain::makeBoundedObject(*plan.nerves.first());
    const auto implant = implantOf(4.1F, 10.0F, {});
    const auto zone = safetyZone(*implant, 3.0F);
    float touching = 0.0F;
    float clear = 12.0F;
    for (int i = 0; i < 18; ++i) {
        const float middle = 0.5F * (touching + clear);
        const auto placed = test::plain::makeBoundedObject(*zone, besideTheNerve(middle), 100.0F);
        (test::plain::overlaps(nerve, placed) ? touching : clear) = middle;
    }
    implant->setObjectTransform(besideTheNerve(clear + 0.05F));
    plan.implants = {implant};
    return plan;
}

geometry::Mesh safetyZoneMesh(dataobject::Implant3D& implant, float margin)
{
    return surfaceOf(*safetyZone(implant, margin));
}

geometry::Mesh pinMesh(dataobject::AnchorPin3D& pin)
{
    return surfaceOf(*pin.getShapeNode());
}

} // namespace benchmarks
