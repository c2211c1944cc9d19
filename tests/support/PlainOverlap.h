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

/// The grid, the cascade of boxes and the triangle test written out step by step, with nothing kept
/// between tests and nothing left out: what the library's overlap test must agree with, and what
/// its speed is measured against. For meshes with finite vertices and index entries that name
/// vertices.
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

BoundedObject makeBoundedObject(const geometry::ShapeNode& root, const QMatrix4x4& transform,
                                float cellSize);
BoundedObject makeBoundedObject(const Surface3DModel& model);
QList<geometry::BoundedTriangles> makeBoundedTriangles(const geometry::Mesh& mesh,
                                                       const primitives::BoundingBox& box,
                                                       float cellSize);
bool overlaps(const BoundedObject& a, const BoundedObject& b);
bool overlaps(const BoundedMesh& a, const BoundedMesh& b);
bool trianglesIntersect(const QVector3D& V0, const QVector3D& V1, const QVector3D& V2,
                        const QVector3D& U0, const QVector3D& U1, const QVector3D& U2);

} // namespace test::plain
