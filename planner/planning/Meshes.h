// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/Mesh.h>
#include <CoreAlgorithms/model/dataobjects/Implants.h>

#include <QList>
#include <QMatrix4x4>
#include <QPolygonF>
#include <QVector3D>

class PlanarReslice;
class Surface3DModel;

namespace geometry {
class ShapeNode;
} // namespace geometry

namespace planner {

/// Returns a closed tube around a line, with flat ends; triangles are counter-clockwise seen from
/// outside. Empty for fewer than two points. Consecutive points must differ.
geometry::Mesh tubeMesh(const QList<QVector3D>& centerLine, float radiusMm);

/// Returns a tube along a path, of rings with twelve corners, without lids.
geometry::Mesh openTube(const QList<QVector3D>& path, float radiusMm);
/// Returns a sphere of such rings.
geometry::Mesh ball(const QVector3D& center, float radiusMm);
/// Returns an implant of such rings, along the negative z axis from its platform at the origin.
geometry::Mesh implantBody(const dataobject::ImplantDimensions& measures);

/// Returns a mesh, all shapes of a tree as one mesh, or a surface, placed in the scene.
geometry::Mesh placedMesh(geometry::Mesh mesh, const QMatrix4x4& sceneFromMesh);
geometry::Mesh placedMesh(const geometry::ShapeNode& root, const QMatrix4x4& sceneFromRoot);
geometry::Mesh placedMesh(const Surface3DModel& model);

/// Returns a placement at an origin, whose z axis has the given direction.
QMatrix4x4 standing(const QVector3D& origin, const QVector3D& axis);
/// Returns every n-th sample of a path.
QList<QVector3D> thinned(const QList<QVector3D>& path, int step);

/// Returns the outlines in which the plane of a reslice cuts a closed mesh, in view coordinates,
/// mm. Each is closed: it ends where it starts.
QList<QPolygonF> cutMesh(const geometry::Mesh& mesh, const PlanarReslice& reslice);

} // namespace planner
