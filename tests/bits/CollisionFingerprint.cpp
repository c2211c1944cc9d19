// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <tests/bits/Fingerprints.h>

#include <CoreAlgorithms/collision/BoundedMesh_p.h>
#include <CoreAlgorithms/collision/ImplantSafetyZone.h>
#include <CoreAlgorithms/collision/TriangleIntersection_p.h>

#include <tests/bits/Checksum.h>
#include <tests/support/CollisionBuilders.h>
#include <tests/support/ResliceBuilders.h>

#include <optional>

namespace bits {
namespace {

void add(Checksum& checksum, const collision::BoundedObject& object)
{
    checksum.add(object.box.min());
    checksum.add(object.box.max());
    for (const collision::BoundedMesh& mesh : object.meshes) {
        for (const QVector3D& vertex : mesh.mesh.getVertices())
            checksum.add(vertex);
        for (const geometry::BoundedTriangles& cell : mesh.cells) {
            checksum.add(cell.box.min());
            checksum.add(cell.box.max());
            for (const int triangle : cell.triangles)
                checksum.add(triangle);
        }
    }
}

// A tube with corners that no standard library's cosine has a part in.
geometry::Mesh prism(test::RandomGeometry& random, int rings)
{
    constexpr float corners[4][2] = {
        {1.0F, 0.25F}, {-0.25F, 1.0F}, {-1.0F, -0.25F}, {0.25F, -1.0F}};
    QList<QVector3D> vertices;
    for (int ring = 0; ring < rings; ++ring) {
        for (const auto& corner : corners)
            vertices.append({corner[0], corner[1],
                             0.25F * static_cast<float>(ring) + random.number(0.0F, 0.1F)});
    }
    geometry::Mesh mesh(vertices, {});
    for (int a = 0; a + 7 < static_cast<int>(vertices.size()); ++a) {
        mesh.addTriangle(a, a + 1, a + 5);
        mesh.addTriangle(a, a + 5, a + 4);
    }
    return mesh;
}

} // namespace

void fingerprintCollision()
{
    Checksum triangles;
    test::RandomGeometry random(1);
    for (int i = 0; i < 20000; ++i) {
        const QMatrix4x4 frame = i % 2 == 0 ? QMatrix4x4() : random.rigidPlacement();
        const float reach = i % 50 == 0 ? 3e38F : 3.0F;
        QVector3D p[6];
        for (QVector3D& point : p) {
            point = random.point(reach);
            if (i % 3 == 0)
                point.setZ(0.0F);
            point = frame.map(point);
        }
        triangles.add(collision::trianglesIntersect(p[0], p[1], p[2], p[3], p[4], p[5]) ? 1.0
                                                                                        : 0.0);
    }

    Checksum zones;
    Checksum nerves;
    Checksum verdicts;
    geometry::ShapeLoader loader;
    const auto factory = std::make_unique<geometry::ShapeFactory>(loader);
    for (int i = 0; i < 300; ++i) {
        const QMatrix4x4 frame = i % 3 == 0 ? QMatrix4x4() : random.rigidPlacement();
        const float diameter = random.number(2.0F, 6.0F);
        const auto implant = test::makeImplant(diameter, random.number(6.0F, 15.0F));
        const auto shape =
            collision::generateSafetyZone(factory, *implant, i % 2 == 0 ? 0.0F : 3.0F);
        QMatrix4x4 local;
        local.translate(random.point(6.0F));
        const collision::BoundedObject zone = collision::makeBoundedObject(
            *shape, frame * local,
            i % 5 == 0 ? std::optional<float>() : std::optional<float>(100.0F));
        const auto nerve = test::makeNerve(prism(random, 20 + i));
        nerve->setObjectTransform(frame);
        const collision::BoundedObject tube = collision::makeBoundedObject(*nerve);
        add(zones, zone);
        add(nerves, tube);
        verdicts.add(collision::overlaps(tube, zone) ? 1.0 : 0.0);
        verdicts.add(collision::overlaps(zone, tube) ? 1.0 : 0.0);
    }
    triangles.print("triangles");
    zones.print("zones");
    nerves.print("nerves");
    verdicts.print("verdicts");
}

} // namespace bits
