// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/BoundedMesh_p.h>
#include <CoreAlgorithms/collision/TriangleIntersection_p.h>

#include <algorithm>

namespace collision {
namespace {

std::array<QVector3D, 3> cornersOf(const geometry::Mesh& mesh, int triangle)
{
    const int* corner = &mesh.getIndices()[4 * qsizetype(triangle)];
    const QList<QVector3D>& vertices = mesh.getVertices();
    return {vertices[corner[0]], vertices[corner[1]], vertices[corner[2]]};
}

primitives::BoundingBox boxOf(const std::array<QVector3D, 3>& c)
{
    QVector3D low = c[0];
    QVector3D high = c[0];
    for (int axis = 0; axis < 3; ++axis) {
        low[axis] = std::min({c[0][axis], c[1][axis], c[2][axis]});
        high[axis] = std::max({c[0][axis], c[1][axis], c[2][axis]});
    }
    return {low, high};
}

} // namespace

bool overlaps(const BoundedObject& a, const BoundedObject& b)
{
    if (!a.box.intersects(b.box))
        return false;
    for (const BoundedMesh& meshA : a.meshes) {
        for (const BoundedMesh& meshB : b.meshes) {
            if (overlaps(meshA, meshB))
                return true;
        }
    }
    return false;
}

bool overlaps(const BoundedMesh& a, const BoundedMesh& b)
{
    if (!a.box.intersects(b.box))
        return false;
    for (const geometry::BoundedTriangles& cellA : a.cells) {
        if (!cellA.box.intersects(b.box))
            continue;
        for (const geometry::BoundedTriangles& cellB : b.cells) {
            if (!cellB.box.intersects(cellA.box))
                continue;
            for (const int t : cellA.triangles) {
                const auto v = cornersOf(a.mesh, t);
                if (!boxOf(v).intersects(cellB.box))
                    continue;
                for (const int number : cellB.triangles) {
                    const auto u = cornersOf(b.mesh, number);
                    if (trianglesIntersect(v[0], v[1], v[2], u[0], u[1], u[2]))
                        return true;
                }
            }
        }
    }
    return false;
}

} // namespace collision
