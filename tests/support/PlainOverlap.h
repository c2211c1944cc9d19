// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/Mesh.h>
#include <CoreAlgorithms/model/data/Shapes.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>
#include <CoreAlgorithms/model/math/BoundingBox.h>

#include <QList>
#include <QMatrix4x4>
#include <QVector3D>

/// Implements the grid, the cascade of boxes and the triangle test step by step, without caches and
/// shortcuts. The library's overlap test must give the same verdicts, and its speed is measured
/// against this one. Meshes must have finite vertices and index entries that name vertices.
namespace test::plain {

struct BoundedMesh
{
    geometry::Mesh mesh;
    primitives::BoundingBox box;
    QList<geometry::BoundedTriangles> cells;
};

struct BoundedObject
{
    QList<BoundedMesh> meshes;
    primitives::BoundingBox box;
};

/// Returns the placed meshes of a tree of shapes, in cells of `cellSize` mm.
BoundedObject makeBoundedObject(const geometry::ShapeNode& root, const QMatrix4x4& transform,
                                float cellSize);
/// Returns the placed mesh of a surface, in cells of 5 mm.
BoundedObject makeBoundedObject(const Surface3DModel& model);
/// Returns the cells that have triangles.
QList<geometry::BoundedTriangles> makeBoundedTriangles(const geometry::Mesh& mesh,
                                                       const primitives::BoundingBox& box,
                                                       float cellSize);
/// Returns whether a triangle of `a` intersects a triangle of `b`.
bool overlaps(const BoundedObject& a, const BoundedObject& b);
/// Returns whether a triangle of `a` intersects a triangle of `b`.
bool overlaps(const BoundedMesh& a, const BoundedMesh& b);
/// Returns whether two triangles intersect.
bool trianglesIntersect(const QVector3D& V0, const QVector3D& V1, const QVector3D& V2,
                        const QVector3D& U0, const QVector3D& U1, const QVector3D& U2);

} // namespace test::plain
