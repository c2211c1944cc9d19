// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/collision/BoundedMesh_p.h>

#include <QList>

namespace test {

/// Returns a mesh of triangles without extent, one at each of these places.
inline geometry::Mesh dots(const QList<QVector3D>& places)
{
    geometry::Mesh mesh(places, {});
    for (int i = 0; i < static_cast<int>(places.size()); ++i)
        mesh.addTriangle(i, i, i);
    return mesh;
}

/// Returns a mesh of one triangle.
inline geometry::Mesh oneTriangle(const QVector3D& a, const QVector3D& b, const QVector3D& c)
{
    geometry::Mesh mesh({a, b, c}, {});
    mesh.addTriangle(0, 1, 2);
    return mesh;
}

/// Returns the triangle lists of the cells.
inline QList<QList<int>> triangles(const QList<geometry::BoundedTriangles>& cells)
{
    QList<QList<int>> lists;
    for (const auto& cell : cells)
        lists.append(cell.triangles);
    return lists;
}

/// Returns the boxes of the cells.
inline QList<primitives::BoundingBox> boxes(const QList<geometry::BoundedTriangles>& cells)
{
    QList<primitives::BoundingBox> all;
    for (const auto& cell : cells)
        all.append(cell.box);
    return all;
}

} // namespace test
