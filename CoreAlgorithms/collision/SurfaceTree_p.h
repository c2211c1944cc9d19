// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/collision/ExactTriangles_p.h>

#include <array>
#include <mutex>
#include <vector>

namespace geometry {
class Mesh;
} // namespace geometry

namespace collision {

/// An axis-aligned box in single precision, in mm.
struct Box
{
    std::array<float, 3> low;
    std::array<float, 3> high;

    void include(const ExactPoint& point);
    void include(const Box& other);
    /// Returns the sum of the lengths along the axes.
    double extent() const;
};

/// Returns the square of the distance of two boxes, never more than the square of the distance of a
/// point of one from a point of the other.
double squaredGap(const Box& a, const Box& b);

/// The triangles of one or several meshes in a tree of boxes. It never changes.
///
/// The tree depends on the set of triangles alone, not on their order in the meshes or on the order
/// of their vertices. Triangles have places in the order of the tree, and numbers in that of the
/// meshes.
class SurfaceTree
{
public:
    struct Node
    {
        Box box;
        int first;  // place of the first triangle
        int count;  // of the triangles below
        int second; // number of the second child, 0 for a leaf; the first child is the next node
        bool isLeaf() const { return second == 0; }
    };

    /// Returns whether there is a triangle, all vertices are finite and all entries of triangles
    /// name vertices.
    static bool canBeMeasured(const std::vector<geometry::Mesh>& meshes);

    /// Makes the tree of meshes that can be measured. A coordinate -0 becomes 0.
    explicit SurfaceTree(const std::vector<geometry::Mesh>& meshes);

    const Node& node(int number) const { return nodes[number]; }
    /// Returns the triangle at a place, its vertices in ascending order.
    const ExactTriangle& triangle(int place) const { return triangles[place]; }
    const Box& boxOfTriangle(int place) const { return boxes[place]; }
    /// Returns the number of the triangle at a place; -1 for -1.
    int numberOf(int place) const { return place < 0 ? -1 : numbers[place]; }
    /// Returns the place of a triangle; -1 for a number that no triangle has.
    int placeOf(int number) const;
    /// Returns the largest magnitude of a coordinate.
    double largestCoordinate() const;

    /// Returns whether a connected part of this surface is inside the other surface, which has no
    /// point in common with it. Inside is a point from which a ray crosses some closed mesh of the
    /// other an odd number of times. A mesh is closed if every edge belongs to an even number of
    /// its triangles; vertices with equal coordinates are one.
    bool hasPartInside(const SurfaceTree& other) const;

    /// Returns whether this surface comes before the other in an order of all surfaces that differ
    /// in a triangle.
    bool comesBefore(const SurfaceTree& other) const;

private:
    // How the triangles of the meshes hang together, found when it is first needed.
    struct Connections
    {
        std::vector<ExactPoint> parts; // a vertex of each connected part
        std::vector<bool> isClosed;    // by mesh
    };

    int build(int begin, int end);
    const Connections& connections() const;
    Connections findConnections() const;
    bool isInside(const ExactPoint& point) const;

    std::vector<ExactTriangle> triangles;
    std::vector<Box> boxes;
    std::vector<int> numbers;
    std::vector<int> meshes;
    std::vector<int> places;
    std::vector<Node> nodes;
    int numMeshes = 0;
    mutable std::once_flag connectionsFound;
    mutable Connections knownConnections;
};

} // namespace collision
