// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/math/BoundingBox.h>

#include <QList>
#include <QVector3D>

class QMatrix4x4;

namespace geometry {

/// Points in single precision, in the frame of whoever fills it.
class COREALGORITHMS_MODEL_EXPORT PointSet
{
public:
    PointSet() = default;
    explicit PointSet(const QList<QVector3D>& points);

    int getNumVertices() const { return static_cast<int>(vertices.size()); }
    const QList<QVector3D>& getVertices() const { return vertices; }
    void setVertices(const QList<QVector3D>& points);

    /// Replaces every vertex by its image.
    void applyTransformation(const QMatrix4x4& matrix);

    /// The smallest box round the vertices, linear in their number; null for none. Vertices with
    /// NaN extend nothing.
    primitives::BoundingBox getBoundingBox() const;

private:
    QList<QVector3D> vertices;
};

/// Triangles over points. The index list holds four entries a triangle: triangle t has the vertices
/// whose numbers stand at 4t, 4t + 1 and 4t + 2; the fourth ends the triangle and names no vertex
/// (-1 in meshes made here). There are getNumIndices() / 4 triangles.
///
/// The entries are kept as given, also those that name no vertex.
class COREALGORITHMS_MODEL_EXPORT Mesh : public PointSet
{
public:
    Mesh() = default;
    Mesh(const QList<QVector3D>& points, const QList<int>& vertexNumbers);

    int getNumIndices() const { return static_cast<int>(indices.size()); }
    const QList<int>& getIndices() const { return indices; }
    void setIndices(const QList<int>& vertexNumbers);

    /// Appends one triangle of these vertex numbers.
    void addTriangle(int a, int b, int c);

private:
    QList<int> indices;
};

/// One cell of a grid laid over a mesh: its box, and the ascending numbers of the triangles that
/// touch it.
struct BoundedTriangles
{
    primitives::BoundingBox box;
    QList<int> triangles;
};

} // namespace geometry
