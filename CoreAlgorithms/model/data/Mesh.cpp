// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/data/Mesh.h>

#include <QMatrix4x4>
#include <QVector4D>

#include <cmath>

namespace geometry {
namespace {

// Maps many points with the bits of QMatrix4x4::map(), for matrices whose flags hold at least
// Rotation and whose last row is (0, 0, 0, 1).
//
// Qt computes a fourth coordinate w and divides by it unless it is 1. Here w is 1 for a finite
// point and NaN (0 times infinity) for any other, so that multiplying by w gives the same result.
// The loop then has no branch, and nothing in it can alias the points.
class AffineMapping
{
public:
    static bool isPossible(const QMatrix4x4& matrix)
    {
        return matrix.flags().toInt() >= QMatrix4x4::Rotation &&
               matrix.row(3) == QVector4D(0.0F, 0.0F, 0.0F, 1.0F);
    }

    explicit AffineMapping(const QMatrix4x4& matrix)
    {
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 4; ++column)
                m[row][column] = matrix(row, column);
        }
    }

    QVector3D map(const QVector3D& point) const
    {
        const float x = point.x() * m[0][0] + point.y() * m[0][1] + point.z() * m[0][2] + m[0][3];
        const float y = point.x() * m[1][0] + point.y() * m[1][1] + point.z() * m[1][2] + m[1][3];
        const float z = point.x() * m[2][0] + point.y() * m[2][1] + point.z() * m[2][2] + m[2][3];
        const float w = point.x() * 0.0F + point.y() * 0.0F + point.z() * 0.0F + 1.0F;
        return {x * w, y * w, z * w};
    }

private:
    float m[3][4];
};

} // namespace

PointSet::PointSet(const QList<QVector3D>& points) : vertices(points) {}

void PointSet::setVertices(const QList<QVector3D>& points)
{
    vertices = points;
}

void PointSet::applyTransformation(const QMatrix4x4& matrix)
{
    if (matrix.flags() == QMatrix4x4::Identity)
        return; // map() would return each point unchanged
    if (AffineMapping::isPossible(matrix)) {
        const AffineMapping mapping(matrix);
        for (QVector3D& vertex : vertices)
            vertex = mapping.map(vertex);
        return;
    }
    for (QVector3D& vertex : vertices)
        vertex = matrix.map(vertex);
}

primitives::BoundingBox PointSet::getBoundingBox() const
{
    // includePoint() would lose the origin, because a box that holds only the origin is null.
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
