// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/Clearance.h>

#include <CoreAlgorithms/collision/ClearanceSearch_p.h>
#include <CoreAlgorithms/collision/ImplantSafetyZone.h>
#include <CoreAlgorithms/collision/SurfaceTree_p.h>
#include <CoreAlgorithms/collision/TriangleDistance_p.h>
#include <CoreAlgorithms/model/data/Mesh.h>
#include <CoreAlgorithms/model/data/Shapes.h>
#include <CoreAlgorithms/model/dataobjects/AnchorPin3D.h>
#include <CoreAlgorithms/model/dataobjects/Implant3D.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>

#include <QMatrix4x4>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace collision {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

geometry::Mesh placed(geometry::Mesh mesh, const QMatrix4x4& sceneFromMesh)
{
    mesh.applyTransformation(sceneFromMesh);
    return mesh;
}

std::vector<geometry::Mesh> placedMeshes(const geometry::ShapeNode& shapes,
                                         const QMatrix4x4& sceneFromShapes)
{
    std::vector<geometry::Mesh> meshes;
    const auto end = shapes.cend();
    for (auto node = shapes.cbeginNodesWithShape(); node != end; ++node)
        meshes.push_back(
            placed(node->getShape()->getMesh(), sceneFromShapes * node.getCumulativeTransform()));
    return meshes;
}

bool isPositive(float measure)
{
    return std::isfinite(measure) && measure > 0.0F;
}

} // namespace

class PlacedSurface::Data : public SurfaceTree
{
public:
    using SurfaceTree::SurfaceTree;

    static std::shared_ptr<const Data> of(const std::vector<geometry::Mesh>& meshes)
    {
        return canBeMeasured(meshes) ? std::make_shared<const Data>(meshes) : nullptr;
    }
};

PlacedSurface::PlacedSurface() = default;

PlacedSurface::PlacedSurface(const geometry::Mesh& mesh, const QMatrix4x4& sceneFromMesh)
    : data(Data::of({placed(mesh, sceneFromMesh)}))
{}

PlacedSurface::PlacedSurface(const geometry::ShapeNode& shapes, const QMatrix4x4& sceneFromShapes)
    : data(Data::of(placedMeshes(shapes, sceneFromShapes)))
{}

PlacedSurface::PlacedSurface(const Surface3DModel& model)
    : PlacedSurface(model.getMesh(), model.getObjectTransform())
{}

PlacedSurface::PlacedSurface(dataobject::AnchorPin3D& pin)
{
    if (const geometry::ShapeNode* shapes = pin.getShapeNode())
        *this = PlacedSurface(*shapes, pin.getObjectTransform());
}

PlacedSurface::PlacedSurface(const std::unique_ptr<geometry::ShapeFactory>& factory,
                             dataobject::Implant3D& implant, float margin)
{
    const auto& dimensions = implant.getDimensions();
    if (isPositive(dimensions.diameter) && isPositive(dimensions.length))
        *this = PlacedSurface(*generateSafetyZone(factory, implant, margin),
                              implant.getObjectTransform());
}

// ---- the search

namespace {

// The least distance of two surfaces, by descending both trees together.
class Descent
{
public:
    Descent(const SurfaceTree& treeOfFirst, const SurfaceTree& treeOfSecond, double limit)
        : first(treeOfFirst),
          second(treeOfSecond),
          // Rounding may move the nearest points by this much.
          slack(ROUNDING_STEPS * std::numeric_limits<double>::epsilon() *
                std::max(first.largestCoordinate(), second.largestCoordinate()))
    {
        searchBelow(limit);
    }

    void run() { visit(0, 0); }

    // Starts with the distance of two triangles that were nearest once.
    void startWith(int placeInFirst, int placeInSecond)
    {
        keepIfNearer(placeInFirst, placeInSecond);
    }

    bool isOverlapping() const { return overlapping; }
    const NearestPoints& nearest() const { return best; }
    int nearestInFirst() const { return placeOfFirst; }
    int nearestInSecond() const { return placeOfSecond; }

private:
    static constexpr double ROUNDING_STEPS = 16.0;

    void searchBelow(double distance)
    {
        bound = distance + slack;
        squaredBound = bound * bound;
    }

    void keepIfNearer(int t, int u)
    {
        const NearestPoints candidate = nearestPoints(first.triangle(t), second.triangle(u));
        if (!isNearer(candidate, best))
            return;
        best = candidate;
        placeOfFirst = t;
        placeOfSecond = u;
        const double distance = std::sqrt(best.squaredDistance);
        if (distance + slack < bound)
            searchBelow(distance);
        for (int axis = 0; axis < 3; ++axis)
            direction[axis] =
                distance > 0.0 ? (best.onSecond[axis] - best.onFirst[axis]) / distance : 0.0;
    }

    // Triangles that are further apart along the direction of the nearest points need no look.
    bool areFarApartAlongDirection(int t, int u) const
    {
        const auto along = [this](const ExactPoint& point) {
            return direction[0] * static_cast<double>(point[0]) +
                   direction[1] * static_cast<double>(point[1]) +
                   direction[2] * static_cast<double>(point[2]);
        };
        const ExactTriangle& a = first.triangle(t);
        const ExactTriangle& b = second.triangle(u);
        const double end = std::max({along(a[0]), along(a[1]), along(a[2])});
        const double start = std::min({along(b[0]), along(b[1]), along(b[2])});
        return start - end > bound + slack;
    }

    void test(int t, int u)
    {
        const double gap = squaredGap(first.boxOfTriangle(t), second.boxOfTriangle(u));
        if (gap > squaredBound || areFarApartAlongDirection(t, u))
            return;
        if (gap == 0.0 && haveCommonPoint(first.triangle(t), second.triangle(u))) {
            overlapping = true;
            placeOfFirst = t;
            placeOfSecond = u;
            return;
        }
        keepIfNearer(t, u);
    }

    void visit(int nodeOfFirst, int nodeOfSecond)
    {
        const SurfaceTree::Node& a = first.node(nodeOfFirst);
        const SurfaceTree::Node& b = second.node(nodeOfSecond);
        if (a.isLeaf() && b.isLeaf()) {
            for (int t = a.first; t < a.first + a.count && !overlapping; ++t) {
                for (int u = b.first; u < b.first + b.count && !overlapping; ++u)
                    test(t, u);
            }
            return;
        }
        const bool splitsFirst = !a.isLeaf() && (b.isLeaf() || a.box.extent() >= b.box.extent());
        const int parent = splitsFirst ? nodeOfFirst : nodeOfSecond;
        const SurfaceTree::Node& split = splitsFirst ? a : b;
        const Box& other = splitsFirst ? b.box : a.box;
        const SurfaceTree& tree = splitsFirst ? first : second;
        std::array<int, 2> children{parent + 1, split.second};
        std::array<double, 2> gaps{squaredGap(tree.node(children[0]).box, other),
                                   squaredGap(tree.node(children[1]).box, other)};
        if (gaps[1] < gaps[0]) {
            std::swap(children[0], children[1]);
            std::swap(gaps[0], gaps[1]);
        }
        for (int i = 0; i < 2 && !overlapping; ++i) {
            if (gaps[i] > squaredBound)
                continue;
            if (splitsFirst)
                visit(children[i], nodeOfSecond);
            else
                visit(nodeOfFirst, children[i]);
        }
    }

    const SurfaceTree& first;
    const SurfaceTree& second;
    double slack;
    double bound = 0.0; // nothing further apart matters
    double squaredBound = 0.0;
    DoublePoint direction{}; // from the first surface to the second, of length 1 once it is known
    NearestPoints best{std::numeric_limits<double>::infinity(), {}, {}};
    int placeOfFirst = -1;
    int placeOfSecond = -1;
    bool overlapping = false;
};

Clearance measure(const SurfaceTree& first, const SurfaceTree& second, double limit,
                  TrianglePair& nearest)
{
    Descent descent(first, second, limit);
    const int hintInFirst = first.placeOf(nearest.first);
    const int hintInSecond = second.placeOf(nearest.second);
    if (hintInFirst >= 0 && hintInSecond >= 0)
        descent.startWith(hintInFirst, hintInSecond);
    descent.run();
    const int t = descent.nearestInFirst();
    const int u = descent.nearestInSecond();
    nearest = {first.numberOf(t), second.numberOf(u)};

    Clearance result;
    if (descent.isOverlapping()) {
        result.relation = Relation::Overlapping;
        result.pointOnFirst = commonPoint(first.triangle(t), second.triangle(u));
        result.pointOnSecond = result.pointOnFirst;
        return result;
    }
    const double distance = std::sqrt(descent.nearest().squaredDistance);
    result.firstIsInside = first.hasPartInside(second);
    result.secondIsInside = second.hasPartInside(first);
    const bool isBeyond = !(distance < limit);
    if (isBeyond) {
        result.pointOnFirst = {kNaN, kNaN, kNaN};
        result.pointOnSecond = result.pointOnFirst;
    } else {
        result.pointOnFirst = descent.nearest().onFirst;
        result.pointOnSecond = descent.nearest().onSecond;
    }
    if (result.firstIsInside || result.secondIsInside) {
        result.relation = Relation::Contained;
        return result;
    }
    result.isAtLeast = isBeyond;
    result.distance = isBeyond ? limit : distance;
    return result;
}

} // namespace

std::optional<Clearance> ClearanceSearch::run(const PlacedSurface& first,
                                              const PlacedSurface& second, double limit,
                                              TrianglePair& nearest)
{
    if (!first.isValid() || !second.isValid())
        return {};
    limit = limit > 0.0 ? limit : 0.0;
    // One order of the surfaces, whichever is first, makes one choice among equal results.
    if (!second.data->comesBefore(*first.data))
        return measure(*first.data, *second.data, limit, nearest);
    std::swap(nearest.first, nearest.second);
    Clearance result = measure(*second.data, *first.data, limit, nearest);
    std::swap(nearest.first, nearest.second);
    std::swap(result.pointOnFirst, result.pointOnSecond);
    std::swap(result.firstIsInside, result.secondIsInside);
    return result;
}

std::optional<Clearance> clearance(const PlacedSurface& first, const PlacedSurface& second,
                                   double limit)
{
    TrianglePair nearest;
    return ClearanceSearch::run(first, second, limit, nearest);
}

} // namespace collision
