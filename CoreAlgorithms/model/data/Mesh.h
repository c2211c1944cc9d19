// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/math/BoundingBox.h>

#include <QList>
#include <QVector3D>

class QMatrix4x4;

namespace geometry {

/// Holds points in single precision, in the frame of the caller.
class COREALGORITHMS_MODEL_EXPORT PointSet
{
public:
    /// Constructs a set without points.
    PointSet() = default;
    /// Constructs a set of these points, which are stored as given.
    explicit PointSet(const QList<QVector3D>& points);

    /// Returns the number of vertices.
    int getNumVertices() const { return static_cast<int>(vertices.size()); }
    /// Returns the vertices in order.
    const QList<QVector3D>& getVertices() const { return vertices; }
    /// Replaces the vertices.
    void setVertices(const QList<QVector3D>& points);

    /// Moves every vertex by the matrix.
    void applyTransformation(const QMatrix4x4& matrix);

    /// Returns the smallest box around the vertices, or the null box if there are none. Ignores
    /// vertices with NaN. Linear in the number of vertices.
    primitives::BoundingBox getBoundingBox() const;

private:
    QList<QVector3D> vertices;
};

/// Holds triangles over points. The index list holds four entries for each triangle: triangle t has
/// the vertices with the numbers at 4t, 4t + 1 and 4t + 2. The fourth entry ends the triangle and
/// names no vertex; it is -1 in meshes that are made here. There are getNumIndices() / 4 triangles.
///
/// Entries are kept as given, including those that name no vertex.
class COREALGORITHMS_MODEL_EXPORT Mesh : public PointSet
{
public:
    /// Constructs a mesh without points and triangles.
    Mesh() = default;
    /// Constructs a mesh of these points and this index list, which are stored as given.
    Mesh(const QList<QVector3D>& points, const QList<int>& vertexNumbers);

    /// Returns the number of entries of the index list.
    int getNumIndices() const { return static_cast<int>(indices.size()); }
    /// Returns the index list.
    const QList<int>& getIndices() const { return indices; }
    /// Replaces the index list.
    void setIndices(const QList<int>& vertexNumbers);

    /// Appends one triangle of these vertex numbers.
    void addTriangle(int a, int b, int c);

private:
    QList<int> indices;
};

/// Describes one cell of a grid over a mesh by its box and the ascending numbers of the triangles
/// that touch it.
struct BoundedTriangles
{
    primitives::BoundingBox box;
    QList<int> triangles;
};

} // namespace geometry
