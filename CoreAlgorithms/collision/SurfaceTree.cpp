// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/SurfaceTree_p.h>

#include <CoreAlgorithms/model/Finite_p.h>
#include <CoreAlgorithms/model/data/Mesh.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <numeric>
#include <unordered_map>
#include <utility>

namespace collision {
namespace {

constexpr int kMostInLeaf = 4;

// Sums of squares are rounded: this share less is never too much.
constexpr double kGapShare = 1.0 - 4.0 * std::numeric_limits<double>::epsilon();

ExactPoint pointOf(const QVector3D& vertex)
{
    // -0 and 0 are the same point, and have to be the same in hashes too.
    return {vertex.x() + 0.0F, vertex.y() + 0.0F, vertex.z() + 0.0F};
}

Box boxOf(const ExactTriangle& triangle)
{
    Box box{triangle[0], triangle[0]};
    box.include(triangle[1]);
    box.include(triangle[2]);
    return box;
}

float middle(const Box& box, int axis)
{
    return box.low[axis] * 0.5F + box.high[axis] * 0.5F;
}

int longestAxis(const Box& box)
{
    int longest = 0;
    for (int axis = 1; axis < 3; ++axis) {
        if (box.high[axis] - box.low[axis] > box.high[longest] - box.low[longest])
            longest = axis;
    }
    return longest;
}

struct HashOfPoint
{
    std::size_t operator()(const ExactPoint& point) const
    {
        std::uint64_t hash = 0;
        for (const float coordinate : point)
            hash = (hash ^ std::bit_cast<std::uint32_t>(coordinate)) * 0x9E3779B97F4A7C15U;
        return hash ^ (hash >> 32);
    }
};

// Which of the numbers from 0 are connected.
class Groups
{
public:
    int add()
    {
        leaders.push_back(static_cast<int>(leaders.size()));
        return leaders.back();
    }
    int leaderOf(int member)
    {
        while (leaders[member] != member) {
            leaders[member] = leaders[leaders[member]];
            member = leaders[member];
        }
        return member;
    }
    void join(int a, int b) { leaders[leaderOf(a)] = leaderOf(b); }

private:
    std::vector<int> leaders;
};

bool everyEdgeIsPaired(std::vector<std::uint64_t>& edges)
{
    std::ranges::sort(edges);
    for (std::size_t begin = 0; begin < edges.size();) {
        std::size_t end = begin;
        while (end < edges.size() && edges[end] == edges[begin])
            ++end;
        if ((end - begin) % 2 != 0)
            return false;
        begin = end;
    }
    return true;
}

// The side of a point that is moved along x, and less along y, by less than any difference of
// coordinates. So it is on no line, and a ray upwards meets no edge.
int sideOfMoved(const ExactPoint& a, const ExactPoint& b, const ExactPoint& point)
{
    if (const int side = turn(a, b, point, 0, 1); side != 0)
        return side;
    if (a[1] != b[1])
        return b[1] < a[1] ? 1 : -1;
    return b[0] > a[0] ? 1 : (b[0] < a[0] ? -1 : 0);
}

// Whether a ray upwards from a point that is not on the triangle crosses the triangle.
bool rayCrosses(const ExactPoint& point, const ExactTriangle& triangle)
{
    const int side = sideOfMoved(triangle[0], triangle[1], point);
    return side != 0 && side == sideOfMoved(triangle[1], triangle[2], point) &&
           side == sideOfMoved(triangle[2], triangle[0], point) &&
           side * orientation(triangle[0], triangle[1], triangle[2], point) < 0;
}

} // namespace

void Box::include(const ExactPoint& point)
{
    for (int axis = 0; axis < 3; ++axis) {
        low[axis] = std::min(low[axis], point[axis]);
        high[axis] = std::max(high[axis], point[axis]);
    }
}

void Box::include(const Box& other)
{
    include(other.low);
    include(other.high);
}

double Box::extent() const
{
    double sum = 0.0;
    for (int axis = 0; axis < 3; ++axis)
        sum += static_cast<double>(high[axis]) - static_cast<double>(low[axis]);
    return sum;
}

double squaredGap(const Box& a, const Box& b)
{
    double sum = 0.0;
    for (int axis = 0; axis < 3; ++axis) {
        const double below = static_cast<double>(a.low[axis]) - static_cast<double>(b.high[axis]);
        const double above = static_cast<double>(b.low[axis]) - static_cast<double>(a.high[axis]);
        const double gap = std::max(0.0, std::max(below, above));
        sum += gap * gap;
    }
    return sum * kGapShare;
}

bool SurfaceTree::canBeMeasured(const std::vector<geometry::Mesh>& meshes)
{
    bool hasTriangle = false;
    for (const geometry::Mesh& mesh : meshes) {
        const QList<QVector3D>& vertices = mesh.getVertices();
        const QList<int>& indices = mesh.getIndices();
        const qsizetype numTriangles = indices.size() / 4;
        hasTriangle = hasTriangle || numTriangles > 0;
        for (qsizetype triangle = 0; triangle < numTriangles; ++triangle) {
            for (qsizetype corner = 0; corner < 3; ++corner) {
                const int entry = indices[4 * triangle + corner];
                if (entry < 0 || entry >= vertices.size())
                    return false;
            }
        }
        if (!std::ranges::all_of(
                vertices, [](const QVector3D& vertex) { return finiteness::isFinite(vertex); }))
            return false;
    }
    return hasTriangle;
}

SurfaceTree::SurfaceTree(const std::vector<geometry::Mesh>& meshesToPlace)
{
    for (const geometry::Mesh& mesh : meshesToPlace) {
        const QList<QVector3D>& vertices = mesh.getVertices();
        const QList<int>& indices = mesh.getIndices();
        for (qsizetype start = 0; start + 3 < indices.size(); start += 4) {
            ExactTriangle triangle{pointOf(vertices[indices[start]]),
                                   pointOf(vertices[indices[start + 1]]),
                                   pointOf(vertices[indices[start + 2]])};
            std::ranges::sort(triangle);
            triangles.push_back(triangle);
            boxes.push_back(boxOf(triangle));
            meshes.push_back(numMeshes);
        }
        ++numMeshes;
    }
    const int count = static_cast<int>(triangles.size());
    numbers.resize(count);
    std::iota(numbers.begin(), numbers.end(), 0);
    build(0, count);

    const auto inOrderOfPlaces = [this](const auto& byNumber) {
        std::remove_cvref_t<decltype(byNumber)> byPlace;
        byPlace.reserve(byNumber.size());
        for (const int number : numbers)
            byPlace.push_back(byNumber[number]);
        return byPlace;
    };
    triangles = inOrderOfPlaces(triangles);
    boxes = inOrderOfPlaces(boxes);
    meshes = inOrderOfPlaces(meshes);
    places.resize(count);
    for (int place = 0; place < count; ++place)
        places[numbers[place]] = place;
}

// Makes the node of the numbers from `begin` to before `end` and returns its number.
int SurfaceTree::build(int begin, int end)
{
    Box box = boxes[numbers[begin]];
    for (int place = begin + 1; place < end; ++place)
        box.include(boxes[numbers[place]]);
    const int node = static_cast<int>(nodes.size());
    nodes.push_back({box, begin, end - begin, 0});
    const auto from = numbers.begin() + begin;
    const auto to = numbers.begin() + end;
    if (end - begin <= kMostInLeaf) {
        std::sort(from, to, [this](int a, int b) { return triangles[a] < triangles[b]; });
        return node;
    }
    const int axis = longestAxis(box);
    const int half = begin + (end - begin) / 2;
    std::nth_element(from, numbers.begin() + half, to, [this, axis](int a, int b) {
        const float middleOfA = middle(boxes[a], axis);
        const float middleOfB = middle(boxes[b], axis);
        return middleOfA < middleOfB || (middleOfA == middleOfB && triangles[a] < triangles[b]);
    });
    build(begin, half);
    const int second = build(half, end);
    nodes[node].second = second;
    return node;
}

int SurfaceTree::placeOf(int number) const
{
    return number >= 0 && number < static_cast<int>(places.size()) ? places[number] : -1;
}

double SurfaceTree::largestCoordinate() const
{
    double largest = 0.0;
    for (const ExactPoint& corner : {nodes.front().box.low, nodes.front().box.high}) {
        for (const float coordinate : corner)
            largest = std::max(largest, std::abs(static_cast<double>(coordinate)));
    }
    return largest;
}

bool SurfaceTree::comesBefore(const SurfaceTree& other) const
{
    if (triangles.size() != other.triangles.size())
        return triangles.size() < other.triangles.size();
    return triangles < other.triangles;
}

// ---- what is inside

const SurfaceTree::Connections& SurfaceTree::connections() const
{
    std::call_once(connectionsFound, [this] { knownConnections = findConnections(); });
    return knownConnections;
}

SurfaceTree::Connections SurfaceTree::findConnections() const
{
    std::vector<std::unordered_map<ExactPoint, int, HashOfPoint>> vertices(numMeshes);
    std::vector<std::vector<std::uint64_t>> edges(numMeshes);
    std::vector<ExactPoint> points;
    Groups groups;
    for (std::size_t place = 0; place < triangles.size(); ++place) {
        const int mesh = meshes[place];
        std::array<int, 3> corners{};
        for (int i = 0; i < 3; ++i) {
            const ExactPoint& point = triangles[place][i];
            const auto [entry, isNew] =
                vertices[mesh].try_emplace(point, static_cast<int>(points.size()));
            if (isNew) {
                points.push_back(point);
                groups.add();
            }
            corners[i] = entry->second;
        }
        for (int i = 0; i < 3; ++i) {
            const auto [low, high] = std::minmax(corners[i], corners[(i + 1) % 3]);
            if (low == high)
                continue;
            groups.join(low, high);
            edges[mesh].push_back(static_cast<std::uint64_t>(low) << 32 |
                                  static_cast<std::uint64_t>(high));
        }
    }
    Connections found;
    for (int point = 0; point < static_cast<int>(points.size()); ++point) {
        if (groups.leaderOf(point) == point)
            found.parts.push_back(points[point]);
    }
    for (std::vector<std::uint64_t>& edgesOfMesh : edges)
        found.isClosed.push_back(everyEdgeIsPaired(edgesOfMesh));
    return found;
}

bool SurfaceTree::isInside(const ExactPoint& point) const
{
    std::vector<bool> isOdd(numMeshes, false);
    std::vector<int> open{0};
    while (!open.empty()) {
        const int number = open.back();
        const Node& current = nodes[number];
        open.pop_back();
        const Box& box = current.box;
        if (point[0] < box.low[0] || point[0] > box.high[0] || point[1] < box.low[1] ||
            point[1] > box.high[1] || point[2] > box.high[2])
            continue;
        if (!current.isLeaf()) {
            open.push_back(number + 1);
            open.push_back(current.second);
            continue;
        }
        for (int place = current.first; place < current.first + current.count; ++place) {
            if (rayCrosses(point, triangles[place]))
                isOdd[meshes[place]] = !isOdd[meshes[place]];
        }
    }
    const std::vector<bool>& isClosed = connections().isClosed;
    for (int mesh = 0; mesh < numMeshes; ++mesh) {
        if (isOdd[mesh] && isClosed[mesh])
            return true;
    }
    return false;
}

bool SurfaceTree::hasPartInside(const SurfaceTree& other) const
{
    if (squaredGap(nodes.front().box, other.nodes.front().box) > 0.0)
        return false;
    return std::ranges::any_of(
        connections().parts, [&other](const ExactPoint& vertex) { return other.isInside(vertex); });
}

} // namespace collision
