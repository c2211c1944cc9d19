// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/BoundedMesh_p.h>
#include <CoreAlgorithms/collision/CellTree_p.h>
#include <CoreAlgorithms/collision/TriangleIntersection_p.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <optional>

namespace collision {
namespace {

// Holds what all tests of a triangle u against the triangles of a cell share.
struct Opponent
{
    Triangle corners;
    TrianglePlane plane;
    float margin; // the sign of a distance from the plane is certain if it exceeds this
};

// The distance of a point p from u's plane is computed as
//
//     ((nx px + ny py) + nz pz) + offset,
//
// with a rounding error of less than 4.01 * 2^-24 of S = |nx px| + |ny py| + |nz pz| + |offset|,
// products that underflow aside. The least (largest) value over a box is computed alike from one of
// its corners. Both errors together stay below 8.02 * 2^-24 of S with |p| the largest coordinates
// of the cell; the margin is twice that. If the least value over a box exceeds the margin, the
// computed distances of all points in it are positive, and large enough (1e-18) that their products
// do not underflow to zero: every triangle in the box is on one side.
constexpr float kMarginOfSum = 0x1p-20F;
constexpr float kLeastMargin = 2e-18F;
constexpr float kLargestSum = 1e30F; // distances could overflow if S is larger

float marginOf(float sum)
{
    return sum < kLargestSum ? sum * kMarginOfSum + kLeastMargin
                             : std::numeric_limits<float>::infinity();
}

Opponent opponentIn(const TriangleBlock& block, int lane, const std::array<float, 3>& reach)
{
    Opponent u;
    for (int vertex = 0; vertex < 3; ++vertex)
        u.corners[vertex] = {block.vertex[vertex][0][lane], block.vertex[vertex][1][lane],
                             block.vertex[vertex][2][lane]};
    u.plane = {{block.normal[0][lane], block.normal[1][lane], block.normal[2][lane]},
               block.offset[lane]};
    u.margin =
        marginOf(std::abs(u.plane.normal.x) * reach[0] + std::abs(u.plane.normal.y) * reach[1] +
                 std::abs(u.plane.normal.z) * reach[2] + std::abs(u.plane.offset));
    return u;
}

COREALGORITHMS_INLINE_LANES Lanes distances(const TrianglePlane& plane, const Lanes& x,
                                            const Lanes& y, const Lanes& z)
{
    return x * plane.normal.x + y * plane.normal.y + z * plane.normal.z + plane.offset;
}

COREALGORITHMS_INLINE_LANES Lanes distances(const TriangleBlock& planes, const Point& p)
{
    return planes.normal[0] * p.x + planes.normal[1] * p.y + planes.normal[2] * p.z + planes.offset;
}

// Holds eight values for each of a triangle's three vertices: distances from a plane, or
// coordinates along a line.
struct LaneTriple
{
    Lanes at[3];
};

COREALGORITHMS_INLINE_LANES LaneMask onOneSide(const LaneTriple& distances)
{
    return (distances.at[0] * distances.at[1] > 0.0F) & (distances.at[0] * distances.at[2] > 0.0F);
}

// Enumerates the lanes that are true, from the lowest one up.
class LaneSet
{
public:
    explicit LaneSet(unsigned laneBits) : bits(laneBits) {}
    bool isEmpty() const { return bits == 0; }
    int takeFirst()
    {
        const int lane = std::countr_zero(bits);
        bits &= bits - 1;
        return lane;
    }

private:
    unsigned bits;
};

// Holds eight intervals on the line of intersection, and which triangles have none since they are
// in the other one's plane; see intervalOnLine().
struct LaneIntervals
{
    Lanes from;
    Lanes to;
    LaneMask coplanar;
};

COREALGORITHMS_INLINE_LANES Lanes crossingTowards(const Lanes& p, const Lanes& d,
                                                  const Lanes& pAlone, const Lanes& dAlone)
{
    return pAlone + (p - pAlone) * dAlone / (dAlone - d);
}

COREALGORITHMS_INLINE_LANES LaneIntervals intervalsOnLine(const LaneTriple& projections,
                                                          const LaneTriple& distances)
{
    const Lanes(&p)[3] = projections.at;
    const Lanes(&d)[3] = distances.at;
    const LaneMask zeroAndOneAlike = d[0] * d[1] > 0.0F;
    const LaneMask zeroAndTwoAlike = d[0] * d[2] > 0.0F;
    const LaneMask zeroAlone = (d[1] * d[2] > 0.0F) | (d[0] != 0.0F);
    const LaneMask noneYet = ~(zeroAndOneAlike | zeroAndTwoAlike | zeroAlone);
    const LaneMask oneOff = d[1] != 0.0F;
    const LaneMask twoOff = d[2] != 0.0F;
    const LaneMask twoAlone = zeroAndOneAlike | (noneYet & ~oneOff & twoOff);
    const LaneMask oneAlone = (~zeroAndOneAlike & zeroAndTwoAlike) | (noneYet & oneOff);
    const LaneMask zeroNotAlone = twoAlone | oneAlone;

    const Lanes pAlone = select(twoAlone, p[2], select(oneAlone, p[1], p[0]));
    const Lanes dAlone = select(twoAlone, d[2], select(oneAlone, d[1], d[0]));
    const Lanes a = crossingTowards(select(zeroNotAlone, p[0], p[1]),
                                    select(zeroNotAlone, d[0], d[1]), pAlone, dAlone);
    const Lanes b =
        crossingTowards(select(twoAlone, p[1], p[2]), select(twoAlone, d[1], d[2]), pAlone, dAlone);
    const LaneMask swapped = a > b;
    return {select(swapped, b, a), select(swapped, a, b), noneYet & ~oneOff & ~twoOff};
}

// Holds the results of the last stage of the triangle test for eight triangles; see
// intervalsOverlap(). Triangles in one plane with u are undecided.
struct LaneVerdicts
{
    LaneMask overlap;
    LaneMask undecided;
};

COREALGORITHMS_INLINE_LANES LaneVerdicts intervalsOverlapInLanes(const TriangleBlock& block,
                                                                 const LaneTriple& fromU,
                                                                 const Opponent& u,
                                                                 const LaneTriple& fromV)
{
    const auto& n = block.normal;
    const Point& m = u.plane.normal;
    const Lanes alongX = n[1] * m.z - n[2] * m.y;
    const Lanes alongY = n[2] * m.x - n[0] * m.z;
    const Lanes alongZ = n[0] * m.y - n[1] * m.x;
    const Lanes lengthX = larger(alongX, -alongX);
    const Lanes lengthY = larger(alongY, -alongY);
    const Lanes lengthZ = larger(alongZ, -alongZ);
    const LaneMask useY = lengthY > lengthX;
    const LaneMask useZ = lengthZ > select(useY, lengthY, lengthX);
    LaneTriple projectionsV;
    LaneTriple projectionsU;
    for (int vertex = 0; vertex < 3; ++vertex) {
        const Lanes(&v)[3] = block.vertex[vertex];
        projectionsV.at[vertex] = select(useZ, v[2], select(useY, v[1], v[0]));
        const Point& w = u.corners[static_cast<std::size_t>(vertex)];
        projectionsU.at[vertex] =
            select(useZ, allLanes(w.z), select(useY, allLanes(w.y), allLanes(w.x)));
    }
    const LaneIntervals a = intervalsOnLine(projectionsV, fromU);
    const LaneIntervals b = intervalsOnLine(projectionsU, fromV);
    return {~((a.to < b.from) | (b.to < a.from)), a.coplanar | b.coplanar};
}

Triangle triangleIn(const TriangleBlock& block, int lane)
{
    Triangle t;
    for (int vertex = 0; vertex < 3; ++vertex) {
        const auto& corner = block.vertex[vertex];
        t[vertex] = {corner[0][lane], corner[1][lane], corner[2][lane]};
    }
    return t;
}

bool laneIntersects(const TriangleBlock& block, int lane, const Opponent& u)
{
    const Triangle t = triangleIn(block, lane);
    const TrianglePlane plane{{block.normal[0][lane], block.normal[1][lane], block.normal[2][lane]},
                              block.offset[lane]};
    return intervalsOverlap(t, plane, distancesFrom(u.plane, t), u.corners, u.plane,
                            distancesFrom(plane, u.corners));
}

// Computes from the grids of two meshes which pairs of triangles their cells let through, for pairs
// whose cells are not visited.
class CellPairs
{
public:
    CellPairs(const CellGrid& gridOfA, const CellGrid& gridOfB,
              const primitives::BoundingBox& boxOfB)
        : gridA(gridOfA), gridB(gridOfB), cellsNearB(gridOfA.rangeTouching(boxOfB))
    {}

    // Returns whether there is a cell of t that touches the box of the mesh of u, and a cell of u
    // that touches that cell and the box of t. Grids and boxes are products of their axes, so the
    // question is decided for each axis on its own.
    bool include(const Triangle& t, const Triangle& u) const
    {
        const CellRange cellsOfT = rangeOf(gridA, t);
        const CellRange cellsOfU = rangeOf(gridB, u);
        const CellRange cellsNearT = gridB.rangeTouching(boxOf(t));
        for (int axis = 0; axis < 3; ++axis) {
            if (!touchAlong(gridA.axes[axis], intersection(cellsOfT[axis], cellsNearB[axis]),
                            gridB.axes[axis], intersection(cellsOfU[axis], cellsNearT[axis])))
                return false;
        }
        return true;
    }

private:
    static QVector3D vector(const Point& p) { return {p.x, p.y, p.z}; }
    static CellRange rangeOf(const CellGrid& grid, const Triangle& triangle)
    {
        return grid.rangeOf(vector(triangle[0]), vector(triangle[1]), vector(triangle[2]));
    }
    static primitives::BoundingBox boxOf(const Triangle& t)
    {
        return {std::min({t[0].x, t[1].x, t[2].x}), std::min({t[0].y, t[1].y, t[2].y}),
                std::min({t[0].z, t[1].z, t[2].z}), std::max({t[0].x, t[1].x, t[2].x}),
                std::max({t[0].y, t[1].y, t[2].y}), std::max({t[0].z, t[1].z, t[2].z})};
    }
    static CellSpan intersection(const CellSpan& a, const CellSpan& b)
    {
        return {std::max(a.first, b.first), std::min(a.last, b.last)};
    }

    const CellGrid& gridA;
    const CellGrid& gridB;
    CellRange cellsNearB;
};

// Returns whether u intersects a triangle of the block whose box touches the cell of u. If `pairs`
// is given, it must include the two triangles.
COREALGORITHMS_INLINE_LANES bool blockIntersects(const TriangleBlock& block, const BoxBlock& cell,
                                                 const Opponent& u, const CellPairs* pairs)
{
    const auto& v = block.vertex;
    LaneTriple fromU;
    LaneTriple fromV;
    for (int vertex = 0; vertex < 3; ++vertex) {
        fromU.at[vertex] = distances(u.plane, v[vertex][0], v[vertex][1], v[vertex][2]);
        fromV.at[vertex] = distances(block, u.corners[static_cast<std::size_t>(vertex)]);
    }
    LaneMask left = ~(onOneSide(fromU) | onOneSide(fromV));
    if (bitsOf(left) == 0)
        return false;
    // Intended: the boxes of a's triangles are compared with the cell of u, but u's box is not
    // compared with their cell. So the verdict can depend on the order of the operands, on which
    // the verdicts of existing plans rely.
    for (int axis = 0; axis < 3; ++axis) {
        const Lanes low = smaller(smaller(v[0][axis], v[1][axis]), v[2][axis]);
        const Lanes high = larger(larger(v[0][axis], v[1][axis]), v[2][axis]);
        left = left & (low <= cell.high[axis]) & (cell.low[axis] <= high);
    }
    const LaneVerdicts verdicts = intervalsOverlapInLanes(block, fromU, u, fromV);
    const auto isLetThrough = [&](int lane) {
        return !pairs || pairs->include(triangleIn(block, lane), u.corners);
    };
    for (LaneSet lanes(bitsOf(left & verdicts.overlap & ~verdicts.undecided)); !lanes.isEmpty();) {
        if (isLetThrough(lanes.takeFirst()))
            return true;
    }
    for (LaneSet lanes(bitsOf(left & verdicts.undecided)); !lanes.isEmpty();) {
        const int lane = lanes.takeFirst();
        if (laneIntersects(block, lane, u) && isLetThrough(lane))
            return true;
    }
    return false;
}

// Returns whether u intersects a triangle of the tree. Descends only to blocks that u's plane may
// pass and whose boxes touch the cell of u.
COREALGORITHMS_INLINE_LANES bool treeIntersects(const CellTree& tree, const BoxBlock& cell,
                                                const Opponent& u, const CellPairs* pairs)
{
    struct Place
    {
        int level;
        int node;
    };
    std::array<Place, 96> stack; // seven waiting nodes on each of at most eleven levels
    int depth = 0;
    stack[0] = {static_cast<int>(tree.levels.size()) - 1, 0};
    const Point& n = u.plane.normal;
    while (depth >= 0) {
        const Place place = stack[static_cast<std::size_t>(depth--)];
        const CellTree::Level& level = tree.levels[static_cast<std::size_t>(place.level)];
        const int node = level.start + place.node;
        const BoxBlock& boxes = tree.nodes[static_cast<std::size_t>(node)];
        const Lanes(&farX)[3] = n.x > 0.0F ? boxes.high : boxes.low;
        const Lanes(&farY)[3] = n.y > 0.0F ? boxes.high : boxes.low;
        const Lanes(&farZ)[3] = n.z > 0.0F ? boxes.high : boxes.low;
        const Lanes(&nearX)[3] = n.x > 0.0F ? boxes.low : boxes.high;
        const Lanes(&nearY)[3] = n.y > 0.0F ? boxes.low : boxes.high;
        const Lanes(&nearZ)[3] = n.z > 0.0F ? boxes.low : boxes.high;
        const Lanes largest = distances(u.plane, farX[0], farY[1], farZ[2]);
        const Lanes least = distances(u.plane, nearX[0], nearY[1], nearZ[2]);
        LaneMask left = ~((least > u.margin) | (largest < -u.margin));
        for (int axis = 0; axis < 3; ++axis)
            left =
                left & (boxes.low[axis] <= cell.high[axis]) & (cell.low[axis] <= boxes.high[axis]);
        for (LaneSet lanes(bitsOf(left)); !lanes.isEmpty();) {
            const int child = place.node * kLanes + lanes.takeFirst();
            if (child >= level.numBoxes)
                break;
            if (place.level > 0)
                stack[static_cast<std::size_t>(++depth)] = {place.level - 1, child};
            else if (blockIntersects(tree.blocks[static_cast<std::size_t>(child)], cell, u, pairs))
                return true;
        }
    }
    return false;
}

// Returns the triangles of the block whose planes may pass through the box of a's triangles; see
// marginOf().
COREALGORITHMS_INLINE_LANES LaneSet planesThrough(const TriangleBlock& block, const CellTree& a,
                                                  const std::array<float, 3>& reach)
{
    Lanes least = block.offset;
    Lanes largest = block.offset;
    Lanes sum = larger(block.offset, -block.offset);
    for (int axis = 2; axis >= 0; --axis) {
        const Lanes one = block.normal[axis] * a.low[axis];
        const Lanes other = block.normal[axis] * a.high[axis];
        least = least + smaller(one, other);
        largest = largest + larger(one, other);
        sum = sum + larger(block.normal[axis], -block.normal[axis]) * reach[axis];
    }
    const Lanes margin = sum * kMarginOfSum + kLeastMargin;
    return LaneSet(bitsOf(~((sum < kLargestSum) & ((least > margin) | (largest < -margin)))));
}

COREALGORITHMS_INLINE_LANES bool cellsIntersect(const CellTree& a, const CellTree& b,
                                                const BoxBlock& cellB, const CellPairs* pairs)
{
    if (a.numTriangles == 0)
        return false;
    std::array<float, 3> reach{};
    for (int axis = 0; axis < 3; ++axis)
        reach[axis] = std::max(std::abs(a.low[axis]), std::abs(a.high[axis]));
    int number = 0;
    for (const TriangleBlock& block : b.blocks) {
        for (LaneSet lanes = planesThrough(block, a, reach); !lanes.isEmpty();) {
            const int lane = lanes.takeFirst();
            if (number + lane >= b.numTriangles)
                break;
            // Intended: u's box is compared with itself only, which it always touches, so no
            // comparison is computed. A comparison with t's box would be expected, but it would
            // change verdicts that rounding decides, on which existing plans rely.
            if (treeIntersects(a, cellB, opponentIn(block, lane, reach), pairs))
                return true;
        }
        number += kLanes;
    }
    return false;
}

// ---- the widest registers that the machine has

using CellsIntersect = bool (*)(const CellTree&, const CellTree&, const BoxBlock&,
                                const CellPairs*);

bool cellsIntersectAnywhere(const CellTree& a, const CellTree& b, const BoxBlock& cellB,
                            const CellPairs* pairs)
{
    return cellsIntersect(a, b, cellB, pairs);
}

#if defined(__GNUC__) && defined(__x86_64__)
__attribute__((target("avx2"))) bool cellsIntersectWithAvx2(const CellTree& a, const CellTree& b,
                                                            const BoxBlock& cellB,
                                                            const CellPairs* pairs)
{
    return cellsIntersect(a, b, cellB, pairs);
}

CellsIntersect cellsIntersectOfThisMachine()
{
    return __builtin_cpu_supports("avx2") ? cellsIntersectWithAvx2 : cellsIntersectAnywhere;
}
#else
CellsIntersect cellsIntersectOfThisMachine()
{
    return cellsIntersectAnywhere;
}
#endif

BoxBlock eightfold(const primitives::BoundingBox& box)
{
    BoxBlock boxes;
    for (int axis = 0; axis < 3; ++axis) {
        for (int lane = 0; lane < kLanes; ++lane) {
            boxes.low[axis][lane] = box.min()[axis];
            boxes.high[axis][lane] = box.max()[axis];
        }
    }
    return boxes;
}

// Returns the trees of a mesh, or makes them in `own` if the mesh has none of its present data.
const CellTrees& treesOf(const BoundedMesh& mesh, std::optional<CellTrees>& own)
{
    if (mesh.trees && mesh.trees->areOf(mesh.mesh, mesh.cells))
        return *mesh.trees;
    return own.emplace(mesh.mesh, mesh.cells);
}

// Tests two meshes. The pairs of a triangle of a and one of b form four groups, since each of the
// two is narrow or wide; see CellTrees.
class MeshTest
{
public:
    MeshTest(const CellTrees& treesOfA, const CellTrees& treesOfB,
             const primitives::BoundingBox& boxOfB, CellsIntersect cellsIntersect)
        : a(treesOfA), b(treesOfB), boxB(boxOfB), intersect(cellsIntersect)
    {
        if (a.hasWideTriangles() || b.hasWideTriangles())
            pairs.emplace(a.grid(), b.grid(), boxB);
    }

    bool anyIntersect() const
    {
        for (int cell = 0; cell < a.numCells(); ++cell) {
            if (a.boxOf(cell).intersects(boxB) && narrowIntersect(cell))
                return true;
        }
        return a.hasWideTriangles() && a.grid().hull().intersects(boxB) && wideIntersect();
    }

private:
    bool narrowIntersect(int cellA) const
    {
        const primitives::BoundingBox& boxA = a.boxOf(cellA);
        if (b.anyCellNear(boxA, [&](int cellB) {
                return b.boxOf(cellB).intersects(boxA) &&
                       intersect(a.treeOf(cellA), b.treeOf(cellB), eightfold(b.boxOf(cellB)),
                                 nullptr);
            }))
            return true;
        return b.hasWideTriangles() && b.grid().hull().intersects(boxA) &&
               intersect(a.treeOf(cellA), b.wideTree(), eightfold(b.grid().hull()), &*pairs);
    }

    bool wideIntersect() const
    {
        const primitives::BoundingBox hullA = a.grid().hull();
        if (b.anyCellNear(hullA, [&](int cellB) {
                return b.boxOf(cellB).intersects(hullA) &&
                       intersect(a.wideTree(), b.treeOf(cellB), eightfold(b.boxOf(cellB)), &*pairs);
            }))
            return true;
        return b.hasWideTriangles() && b.grid().hull().intersects(hullA) &&
               intersect(a.wideTree(), b.wideTree(), eightfold(b.grid().hull()), &*pairs);
    }

    const CellTrees& a;
    const CellTrees& b;
    const primitives::BoundingBox& boxB;
    std::optional<CellPairs> pairs;
    CellsIntersect intersect;
};

bool meshesOverlap(const BoundedMesh& a, const BoundedMesh& b, CellsIntersect intersect)
{
    if (!a.box.intersects(b.box))
        return false;
    std::optional<CellTrees> ownA;
    std::optional<CellTrees> ownB;
    const CellTrees* treesA = &treesOf(a, ownA);
    const CellTrees* treesB = &treesOf(b, ownB);
    // Pairs with a wide triangle are decided by the grids of both meshes. Without one of the grids,
    // treat all triangles as narrow.
    if (treesA->hasWideTriangles() && !treesB->hasGrid())
        treesA = &ownA.emplace(a.mesh, a.cells);
    if (treesB->hasWideTriangles() && !treesA->hasGrid())
        treesB = &ownB.emplace(b.mesh, b.cells);
    return MeshTest(*treesA, *treesB, b.box, intersect).anyIntersect();
}

} // namespace

bool overlaps(const BoundedObject& a, const BoundedObject& b)
{
    if (!a.box.intersects(b.box))
        return false;
    for (const BoundedMesh& meshA : a.meshes) {
        for (const BoundedMesh& meshB : b.meshes) {
            if (overlaps(meshA, meshB))
                return true;
        }
    }
    return false;
}

bool overlaps(const BoundedMesh& a, const BoundedMesh& b)
{
    return meshesOverlap(a, b, cellsIntersectOfThisMachine());
}

bool overlapsWithPlainRegisters(const BoundedMesh& a, const BoundedMesh& b)
{
    return meshesOverlap(a, b, cellsIntersectAnywhere);
}

} // namespace collision
