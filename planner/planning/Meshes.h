// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/Mesh.h>

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

/// A closed tube round a line, with flat ends; triangles counter-clockwise seen from outside. Empty
/// for fewer than two points. Consecutive points must differ.
geometry::Mesh tubeMesh(const QList<QVector3D>& centreLine, float radiusMm);

/// All shapes of a tree as one mesh, placed in the scene.
geometry::Mesh placedMesh(const geometry::ShapeNode& root, const QMatrix4x4& sceneFromRoot);
/// The surface where it stands in the scene.
geometry::Mesh placedMesh(const Surface3DModel& model);

/// The outlines in which the plane of a reslice cuts a closed mesh, in view coordinates, mm. Each
/// is closed: it ends where it starts.
QList<QPolygonF> cutMesh(const geometry::Mesh& mesh, const PlanarReslice& reslice);

} // namespace planner
