// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <tests/support/PlainOverlap.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace test::plain {
namespace {

struct Corners
{
    QVector3D p0;
    QVector3D p1;
    QVector3D p2;
};

Corners cornersOf(const geometry::Mesh& mesh, int t)
{
    const QList<int>& indices = mesh.getIndices();
    const QList<QVector3D>& vertices = mesh.getVertices();
    const qsizetype first = qsizetype{4} * t;
    return {vertices[indices[first]], vertices[indices[first + 1]], vertices[indices[first + 2]]};
}

// Does not use includePoint(), which treats a box that is only the origin as empty.
primitives::BoundingBox boxOf(const Corners& c)
{
    return {std::min({c.p0.x(), c.p1.x(), c.p2.x()}), std::min({c.p0.y(), c.p1.y(), c.p2.y()}),
            std::min({c.p0.z(), c.p1.z(), c.p2.z()}), std::max({c.p0.x(), c.p1.x(), c.p2.x()}),
            std::max({c.p0.y(), c.p1.y(), c.p2.y()}), std::max({c.p0.z(), c.p1.z(), c.p2.z()})};
}

int cellsAlong(float delta, float cellSize)
{
    const int n = static_cast<int>(std::ceil(delta / cellSize));
    return n < 2 ? 1 : n;
}

int cellIndex(float coordinate, float start, float extent, int n)
{
    const float quotient = (coordinate - start) / extent;
    if (std::isnan(quotient) || std::isinf(quotient))
        return 0;
    const auto index = static_cast<long long>(std::clamp(quotient, -1e9F, 1e9F));
    return static_cast<int>(std::clamp(index, 0LL, n - 1LL));
}

// ---- the triangle test

struct Interval
{
    float low;
    float high;
};

float distance(const QVector3D& n, float d, const QVector3D& p)
{
    return QVector3D::dotProduct(n, p) + d;
}

Interval sorted(float a, float b)
{
    return a > b ? Interval{b, a} : Interval{a, b};
}

// Returns the interval of a triangle whose vertex 0 is alone on its side.
Interval cut(float p0, float p1, float p2, float d0, float d1, float d2)
{
    const float first = p0 + (p1 - p0) * d0 / (d0 - d1);
    const float second = p0 + (p2 - p0) * d0 / (d0 - d2);
    return sorted(first, second);
}

// Returns false if the triangle is in the other's plane.
bool computeInterval(float p0, float p1, float p2, float d0, float d1, float d2, Interval& interval)
{
    // The published order of the cases, of which two pairs are alike.
    // NOLINTBEGIN(bugprone-branch-clone)
    if (d0 * d1 > 0.0F)
        interval = cut(p2, p0, p1, d2, d0, d1);
    else if (d0 * d2 > 0.0F)
        interval = cut(p1, p0, p2, d1, d0, d2);
    else if (d1 * d2 > 0.0F || d0 != 0.0F)
        interval = cut(p0, p1, p2, d0, d1, d2);
    else if (d1 != 0.0F)
        interval = cut(p1, p0, p2, d1, d0, d2);
    else if (d2 != 0.0F)
        interval = cut(p2, p0, p1, d2, d0, d1);
    else
        return false;
    // NOLINTEND(bugprone-branch-clone)
    return true;
}

// Returns whether the edge from v to v + (ax, ay) meets the edge from u0 to u1, in the coordinates
// i and j.
bool edgeAgainstEdge(const QVector3D& v, float ax, float ay, const QVector3D& u0,
                     const QVector3D& u1, int i, int j)
{
    const float bx = u0[i] - u1[i];
    const float by = u0[j] - u1[j];
    const float cx = v[i] - u0[i];
    const float cy = v[j] - u0[j];
    const float f = ay * bx - ax * by;
    const float d = by * cx - bx * cy;
    if ((f > 0.0F && d >= 0.0F && d <= f) || (f < 0.0F && d <= 0.0F && d >= f)) {
        const float e = ax * cy - ay * cx;
        if (f > 0.0F) {
            if (e >= 0.0F && e <= f)
                return true;
        } else {
            if (e <= 0.0F && e >= f)
                return true;
        }
    }
    return false;
}

bool edgeAgainstTriangle(const QVector3D& v0, const QVector3D& v1, const Corners& u, int i, int j)
{
    const float ax = v1[i] - v0[i];
    const float ay = v1[j] - v0[j];
    return edgeAgainstEdge(v0, ax, ay, u.p0, u.p1, i, j) ||
           edgeAgainstEdge(v0, ax, ay, u.p1, u.p2, i, j) ||
           edgeAgainstEdge(v0, ax, ay, u.p2, u.p0, i, j);
}

float lineSide(const QVector3D& p, const QVector3D& from, const QVector3D& to, int i, int j)
{
    const float a = to[j] - from[j];
    const float b = -(to[i] - from[i]);
    const float c = -a * from[i] - b * from[j];
    return a * p[i] + b * p[j] + c;
}

bool pointInTriangle(const QVector3D& p, const Corners& u, int i, int j)
{
    const float d0 = lineSide(p, u.p0, u.p1, i, j);
    const float d1 = lineSide(p, u.p1, u.p2, i, j);
    const float d2 = lineSide(p, u.p2, u.p0, i, j);
    return d0 * d1 > 0.0F && d0 * d2 > 0.0F;
}

bool coplanarIntersect(const QVector3D& n, const Corners& v, const Corners& u)
{
    const float x = std::fabs(n.x());
    const float y = std::fabs(n.y());
    const float z = std::fabs(n.z());
    int i = 0;
    int j = 0;
    if (x > y) {
        if (x > z) {
            i = 1;
            j = 2;
        } else {
            i = 0;
            j = 1;
        }
    } else {
        if (z > y) {
            i = 0;
            j = 1;
        } else {
            i = 0;
            j = 2;
        }
    }
    return edgeAgainstTriangle(v.p0, v.p1, u, i, j) || edgeAgainstTriangle(v.p1, v.p2, u, i, j) ||
           edgeAgainstTriangle(v.p2, v.p0, u, i, j) || pointInTriangle(v.p0, u, i, j) ||
           pointInTriangle(u.p0, v, i, j);
}

} // namespace

bool trianglesIntersect(const QVector3D& V0, const QVector3D& V1, const QVector3D& V2,
                        const QVector3D& U0, const QVector3D& U1, const QVector3D& U2)
{
    const QVector3D n2 = QVector3D::crossProduct(U1 - U0, U2 - U0);
    const float d2 = -QVector3D::dotProduct(n2, U0);
    const float dv0 = distance(n2, d2, V0);
    const float dv1 = distance(n2, d2, V1);
    const float dv2 = distance(n2, d2, V2);
    if (dv0 * dv1 > 0.0F && dv0 * dv2 > 0.0F)
        return false;

    const QVector3D n1 = QVector3D::crossProduct(V1 - V0, V2 - V0);
    const float d1 = -QVector3D::dotProduct(n1, V0);
    const float du0 = distance(n1, d1, U0);
    const float du1 = distance(n1, d1, U1);
    const float du2 = distance(n1, d1, U2);
    if (du0 * du1 > 0.0F && du0 * du2 > 0.0F)
        return false;

    const QVector3D line = QVector3D::crossProduct(n1, n2);
    int index = 0;
    float longest = std::fabs(line.x());
    if (std::fabs(line.y()) > longest) {
        index = 1;
        longest = std::fabs(line.y());
    }
    if (std::fabs(line.z()) > longest)
        index = 2;

    Interval first{};
    Interval second{};
    if (!computeInterval(V0[index], V1[index], V2[index], dv0, dv1, dv2, first))
        return coplanarIntersect(n1, {V0, V1, V2}, {U0, U1, U2});
    if (!computeInterval(U0[index], U1[index], U2[index], du0, du1, du2, second))
        return coplanarIntersect(n1, {V0, V1, V2}, {U0, U1, U2});
    return !(first.high < second.low || second.high < first.low);
}

QList<geometry::BoundedTriangles>
makeBoundedTriangles(const geometry::Mesh& mesh, const primitives::BoundingBox& box, float cellSize)
{
    const int nx = cellsAlong(box.deltaX(), cellSize);
    const int ny = cellsAlong(box.deltaY(), cellSize);
    const int nz = cellsAlong(box.deltaZ(), cellSize);
    const float dx = box.deltaX() / static_cast<float>(nx);
    const float dy = box.deltaY() / static_cast<float>(ny);
    const float dz = box.deltaZ() / static_cast<float>(nz);
    const QVector3D low = box.min();

    const int numCells = nx * ny * nz;
    std::vector<QList<int>> lists(static_cast<std::size_t>(numCells));
    const int count = mesh.getNumIndices() / 4;
    for (int t = 0; t < count; ++t) {
        const primitives::BoundingBox tb = boxOf(cornersOf(mesh, t));
        const int x0 = cellIndex(tb.min().x(), low.x(), dx, nx);
        const int x1 = cellIndex(tb.max().x(), low.x(), dx, nx);
        const int y0 = cellIndex(tb.min().y(), low.y(), dy, ny);
        const int y1 = cellIndex(tb.max().y(), low.y(), dy, ny);
        const int z0 = cellIndex(tb.min().z(), low.z(), dz, nz);
        const int z1 = cellIndex(tb.max().z(), low.z(), dz, nz);
        for (int z = z0; z <= z1; ++z) {
            for (int y = y0; y <= y1; ++y) {
                for (int x = x0; x <= x1; ++x) {
                    const int cell = (z * ny + y) * nx + x;
                    lists[static_cast<std::size_t>(cell)].append(t);
                }
            }
        }
    }

    QList<geometry::BoundedTriangles> cells;
    for (int z = 0; z < nz; ++z) {
        for (int y = 0; y < ny; ++y) {
            for (int x = 0; x < nx; ++x) {
                const int cell = (z * ny + y) * nx + x;
                const QList<int>& list = lists[static_cast<std::size_t>(cell)];
                if (list.isEmpty())
                    continue;
                const QVector3D corner(low.x() + static_cast<float>(x) * dx,
                                       low.y() + static_cast<float>(y) * dy,
                                       low.z() + static_cast<float>(z) * dz);
                cells.append(
                    {primitives::BoundingBox(corner, corner + QVector3D(dx, dy, dz)), list});
            }
        }
    }
    return cells;
}

BoundedObject makeBoundedObject(const geometry::ShapeNode& root, const QMatrix4x4& transform,
                                float cellSize)
{
    BoundedObject object;
    object.box = root.getBoundingBox().transformed(transform);
    const auto end = root.cend();
    for (auto node = root.cbeginNodesWithShape(); node != end; ++node) {
        const QMatrix4x4 w = transform * node.getCumulativeTransform();
        geometry::Mesh mesh = node->getShape()->getMesh();
        mesh.applyTransformation(w);
        const primitives::BoundingBox meshBox = node->getBoundingBox().transformed(w);
        object.meshes.append({mesh, meshBox, makeBoundedTriangles(mesh, meshBox, cellSize)});
    }
    return object;
}

BoundedObject makeBoundedObject(const Surface3DModel& model)
{
    BoundedObject object;
    object.box = model.getSceneBoundingBox();
    geometry::Mesh mesh = model.getMesh();
    mesh.applyTransformation(model.getObjectTransform());
    object.meshes.append({mesh, object.box, makeBoundedTriangles(mesh, object.box, 5.0F)});
    return object;
}

bool overlaps(const BoundedObject& a, const BoundedObject& b)
{
    if (!a.box.intersects(b.box))
        return false;
    for (const BoundedMesh& ma : a.meshes) {
        for (const BoundedMesh& mb : b.meshes) {
            if (overlaps(ma, mb))
                return true;
        }
    }
    return false;
}

bool overlaps(const BoundedMesh& a, const BoundedMesh& b)
{
    if (!a.box.intersects(b.box))
        return false;
    for (const geometry::BoundedTriangles& ca : a.cells) {
        if (!ca.box.intersects(b.box))
            continue;
        for (const geometry::BoundedTriangles& cb : b.cells) {
            if (!cb.box.intersects(ca.box))
                continue;
            for (const int t : ca.triangles) {
                const Corners v = cornersOf(a.mesh, t);
                if (!boxOf(v).intersects(cb.box))
                    continue;
                for (const int number : cb.triangles) {
                    const Corners u = cornersOf(b.mesh, number);
                    const primitives::BoundingBox box = boxOf(u);
                    if (!box.intersects(box)) // never, for finite triangles
                        continue;
                    if (trianglesIntersect(v.p0, v.p1, v.p2, u.p0, u.p1, u.p2))
                        return true;
                }
            }
        }
    }
    return false;
}

} // namespace test::plain
