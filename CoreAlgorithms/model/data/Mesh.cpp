// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/data/Mesh.h>

#include <QMatrix4x4>

#include <cmath>

namespace geometry {

PointSet::PointSet(const QList<QVector3D>& points) : vertices(points) {}

void PointSet::setVertices(const QList<QVector3D>& points)
{
    vertices = points;
}

void PointSet::applyTransformation(const QMatrix4x4& matrix)
{
    if (matrix.isIdentity())
        return; // and go on sharing the list with copies
    for (QVector3D& vertex : vertices)
        vertex = matrix.map(vertex);
}

primitives::BoundingBox PointSet::getBoundingBox() const
{
    // Not by includePoint(): a box that holds the origin alone is null there, and would lose it.
    QVector3D minimum;
    QVector3D maximum;
    bool started = false;
    for (const QVector3D& vertex : vertices) {
        if (std::isnan(vertex.x()) || std::isnan(vertex.y()) || std::isnan(vertex.z()))
            continue;
        if (!started)
            minimum = maximum = vertex;
        started = true;
        for (int axis = 0; axis < 3; ++axis) {
            if (vertex[axis] < minimum[axis])
                minimum[axis] = vertex[axis];
            if (vertex[axis] > maximum[axis])
                maximum[axis] = vertex[axis];
        }
    }
    return {minimum, maximum};
}

Mesh::Mesh(const QList<QVector3D>& points, const QList<int>& vertexNumbers)
    : PointSet(points), indices(vertexNumbers)
{}

void Mesh::setIndices(const QList<int>& vertexNumbers)
{
    indices = vertexNumbers;
}

void Mesh::addTriangle(int a, int b, int c)
{
    indices << a << b << c << -1;
}

} // namespace geometry
