// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/planning/Meshes.h>

#include <planner/planning/Vectors.h>

#include <CoreAlgorithms/model/data/Shapes.h>
#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>
#include <CoreAlgorithms/reslice/CoordinateMapper.h>

#include <Eigen/Geometry>

#include <QMap>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>
#include <vector>

namespace planner {

namespace {

constexpr int kTubeSegments = 24;

// An edge of a mesh that the plane crosses, lower vertex number first.
using Edge = std::pair<int, int>;

Edge edge(int a, int b)
{
    return {std::min(a, b), std::max(a, b)};
}

// Which crossed edge follows upon which: each triangle that the plane crosses leads from one to
// another, and along a closed surface whose triangles all turn the same way every edge has exactly
// one follower.
QMap<Edge, Edge> followers(const geometry::Mesh& mesh, const std::vector<double>& heights)
{
    QMap<Edge, Edge> result;
    const auto isAbove = [&heights](int vertex) { return heights[std::size_t(vertex)] >= 0.0; };
    const QList<int>& indices = mesh.getIndices();
    for (qsizetype t = 0; t + 3 < indices.size(); t += 4) {
        Edge up;
        Edge down;
        bool crossed = false;
        for (int k = 0; k < 3; ++k) {
            const int from = indices[t + k];
            const int to = indices[t + (k + 1) % 3];
            if (isAbove(from) == isAbove(to))
                continue;
            crossed = true;
            (isAbove(to) ? up : down) = edge(from, to);
        }
        if (crossed)
            result.insert(down, up);
    }
    return result;
}

} // namespace

geometry::Mesh tubeMesh(const QList<QVector3D>& centreLine, float radiusMm)
{
    const auto rings = static_cast<int>(centreLine.size());
    if (rings < 2)
        return {};
    QList<QVector3D> vertices;
    Eigen::Vector3d across = Eigen::Vector3d::Zero();
    for (int i = 0; i < rings; ++i) {
        const Eigen::Vector3d centre = toEigen(centreLine[i]);
        const Eigen::Vector3d along = (toEigen(centreLine[std::min(i + 1, rings - 1)]) -
                                       toEigen(centreLine[std::max(i - 1, 0)]))
                                          .normalized();
        // The rings turn with the line and not about it.
        across -= across.dot(along) * along;
        if (across.norm() < 1e-6)
            across = along.unitOrthogonal();
        across.normalize();
        const Eigen::Vector3d other = along.cross(across);
        for (int k = 0; k < kTubeSegments; ++k) {
            const double angle = 2.0 * std::numbers::pi * k / kTubeSegments;
            vertices.append(
                toQt(centre + static_cast<double>(radiusMm) *
                                  (std::cos(angle) * across + std::sin(angle) * other)));
        }
    }
    vertices << centreLine.first() << centreLine.last();

    geometry::Mesh mesh(vertices, {});
    const int last = (rings - 1) * kTubeSegments;
    for (int k = 0; k < kTubeSegments; ++k) {
        const int next = (k + 1) % kTubeSegments;
        for (int i = 0; i + 1 < rings; ++i) {
            const int ring = i * kTubeSegments;
            mesh.addTriangle(ring + k, ring + next, ring + kTubeSegments + next);
            mesh.addTriangle(ring + k, ring + kTubeSegments + next, ring + kTubeSegments + k);
        }
        mesh.addTriangle(next, k, rings * kTubeSegments);
        mesh.addTriangle(last + k, last + next, rings * kTubeSegments + 1);
    }
    return mesh;
}

geometry::Mesh placedMesh(const geometry::ShapeNode& root, const QMatrix4x4& sceneFromRoot)
{
    QList<QVector3D> vertices;
    QList<int> indices;
    const auto end = root.cend();
    for (auto node = root.cbeginNodesWithShape(); node != end; ++node) {
        geometry::Mesh mesh = node->getShape()->getMesh();
        mesh.applyTransformation(sceneFromRoot * node.getCumulativeTransform());
        const auto first = static_cast<int>(vertices.size());
        vertices += mesh.getVertices();
        for (const int entry : mesh.getIndices())
            indices.append(entry < 0 ? entry : entry + first);
    }
    return {vertices, indices};
}

geometry::Mesh placedMesh(const Surface3DModel& model)
{
    geometry::Mesh mesh = model.getMesh();
    mesh.applyTransformation(model.getObjectTransform());
    return mesh;
}

QList<QPolygonF> cutMesh(const geometry::Mesh& mesh, const PlanarReslice& reslice)
{
    const QMatrix4x4 frame = reslice.getTransformationFromResliceToWorld();
    const Eigen::Vector3d normal = toEigen(frame.column(2).toVector3D());
    const Eigen::Vector3d origin = toEigen(reslice.getOrigin());
    std::vector<double> heights;
    for (const QVector3D& vertex : mesh.getVertices())
        heights.push_back(normal.dot(toEigen(vertex) - origin));

    QMap<Edge, Edge> open = followers(mesh, heights);
    QList<QPolygonF> outlines;
    while (!open.isEmpty()) {
        const Edge first = open.constBegin().key();
        QList<QVector3D> points;
        for (auto step = open.find(first); step != open.end();) {
            const auto [a, b] = step.key();
            const double heightA = heights[std::size_t(a)];
            const double fraction = heightA / (heightA - heights[std::size_t(b)]);
            const Eigen::Vector3d from = toEigen(mesh.getVertices()[a]);
            points.append(toQt(from + fraction * (toEigen(mesh.getVertices()[b]) - from)));
            const Edge next = step.value();
            open.erase(step);
            step = open.find(next);
        }
        QPolygonF outline;
        for (const auto& [point, inPlane] :
             CoordinateMapper::mapAllPointsOntoReslice(points, reslice))
            outline.append(point);
        outline.append(outline.first());
        outlines.append(outline);
    }
    return outlines;
}

} // namespace planner
