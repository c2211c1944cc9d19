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
#include <QQuaternion>

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
    const auto isAbove = [&heights](int vertex) { return heights[vertex] >= 0.0; };
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

constexpr int kSides = 12; // of an open surface

// Two triangles between the rings that start at two vertex numbers.
void closeRings(geometry::Mesh& mesh, int first, int second)
{
    for (int side = 0; side < kSides; ++side) {
        const int next = (side + 1) % kSides;
        mesh.addTriangle(first + side, first + next, second + side);
        mesh.addTriangle(first + next, second + next, second + side);
    }
}

struct Ring
{
    QVector3D center;
    QVector3D along;
    float radius;
};

geometry::Mesh sweep(const QList<Ring>& rings)
{
    QList<QVector3D> vertices;
    for (const Ring& ring : rings) {
        const QVector3D helper = std::abs(ring.along.z()) < 0.9F ? QVector3D(0.0F, 0.0F, 1.0F)
                                                                 : QVector3D(1.0F, 0.0F, 0.0F);
        const QVector3D u = QVector3D::crossProduct(helper, ring.along).normalized();
        const QVector3D v = QVector3D::crossProduct(ring.along, u).normalized();
        for (int side = 0; side < kSides; ++side) {
            const auto angle = static_cast<float>(2.0 * std::numbers::pi * side / kSides);
            vertices.append(ring.center +
                            (u * std::cos(angle) + v * std::sin(angle)) * ring.radius);
        }
    }
    geometry::Mesh mesh(vertices, {});
    for (int i = 0; i + 1 < static_cast<int>(rings.size()); ++i)
        closeRings(mesh, i * kSides, (i + 1) * kSides);
    return mesh;
}

} // namespace

geometry::Mesh tubeMesh(const QList<QVector3D>& centerLine, float radiusMm)
{
    const auto rings = static_cast<int>(centerLine.size());
    if (rings < 2)
        return {};
    QList<QVector3D> vertices;
    Eigen::Vector3d across = Eigen::Vector3d::Zero();
    for (int i = 0; i < rings; ++i) {
        const Eigen::Vector3d center = toEigen(centerLine[i]);
        const Eigen::Vector3d along = (toEigen(centerLine[std::min(i + 1, rings - 1)]) -
                                       toEigen(centerLine[std::max(i - 1, 0)]))
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
                toQt(center + static_cast<double>(radiusMm) *
                                  (std::cos(angle) * across + std::sin(angle) * other)));
        }
    }
    vertices << centerLine.first() << centerLine.last();

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

geometry::Mesh openTube(const QList<QVector3D>& path, float radiusMm)
{
    QList<Ring> rings;
    for (qsizetype i = 0; i < path.size(); ++i) {
        const QVector3D along =
            path[std::min(i + 1, path.size() - 1)] - path[std::max<qsizetype>(i - 1, 0)];
        rings.append({path[i], along.normalized(), radiusMm});
    }
    return sweep(rings);
}

geometry::Mesh ball(const QVector3D& center, float radiusMm)
{
    constexpr int kRings = 9;
    QList<Ring> rings;
    for (int i = 0; i < kRings; ++i) {
        const auto angle = static_cast<float>(std::numbers::pi * i / (kRings - 1));
        rings.append({center - QVector3D(0.0F, 0.0F, radiusMm * std::cos(angle)),
                      {0.0F, 0.0F, 1.0F},
                      radiusMm * std::sin(angle)});
    }
    return sweep(rings);
}

geometry::Mesh implantBody(const dataobject::ImplantDimensions& measures)
{
    const float radius = measures.diameter * 0.5F;
    const QVector3D down(0.0F, 0.0F, -1.0F);
    return sweep({{{}, down, radius * 0.2F},
                  {{}, down, radius},
                  {down * (measures.length * 0.6F), down, radius * 0.9F},
                  {down * measures.length, down, radius * 0.4F}});
}

geometry::Mesh placedMesh(geometry::Mesh mesh, const QMatrix4x4& sceneFromMesh)
{
    mesh.applyTransformation(sceneFromMesh);
    return mesh;
}

geometry::Mesh placedMesh(const geometry::ShapeNode& root, const QMatrix4x4& sceneFromRoot)
{
    QList<QVector3D> vertices;
    QList<int> indices;
    const auto end = root.cend();
    for (auto node = root.cbeginNodesWithShape(); node != end; ++node) {
        const geometry::Mesh mesh =
            placedMesh(node->getShape()->getMesh(), sceneFromRoot * node.getCumulativeTransform());
        const auto first = static_cast<int>(vertices.size());
        vertices += mesh.getVertices();
        for (const int entry : mesh.getIndices())
            indices.append(entry < 0 ? entry : entry + first);
    }
    return {vertices, indices};
}

geometry::Mesh placedMesh(const Surface3DModel& model)
{
    return placedMesh(model.getMesh(), model.getObjectTransform());
}

QMatrix4x4 standing(const QVector3D& origin, const QVector3D& axis)
{
    QMatrix4x4 matrix;
    matrix.translate(origin);
    matrix.rotate(QQuaternion::rotationTo({0.0F, 0.0F, 1.0F}, axis));
    return matrix;
}

QList<QVector3D> thinned(const QList<QVector3D>& path, int step)
{
    QList<QVector3D> samples;
    for (qsizetype i = 0; i < path.size(); i += step)
        samples.append(path[i]);
    return samples;
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
            const double heightA = heights[a];
            const double fraction = heightA / (heightA - heights[b]);
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
