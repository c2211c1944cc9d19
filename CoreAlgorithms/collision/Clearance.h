// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <array>
#include <limits>
#include <memory>
#include <optional>

class QMatrix4x4;
class Surface3DModel;

namespace dataobject {
class AnchorPin3D;
class Implant3D;
} // namespace dataobject

namespace geometry {
class Mesh;
class ShapeFactory;
class ShapeNode;
} // namespace geometry

namespace collision {

/// How two surfaces are to each other. Of two surfaces without a common point, one is contained in
/// the other if a connected part of it is inside a closed mesh of the other.
enum class Relation { Apart, Overlapping, Contained };

/// How far two surfaces are apart, and where.
struct Clearance
{
    Relation relation = Relation::Apart;
    /// The least distance of the surfaces in mm; 0 unless they are apart.
    double distance = 0.0;
    /// True if the surfaces are known to be at least `distance` apart, no more. It is set only
    /// where the caller has given a limit.
    bool isAtLeast = false;
    /// The nearest points of the two surfaces in mm, in the scene. If the surfaces overlap, both
    /// are the same common point. NaN beyond the limit that the caller has given.
    std::array<double, 3> pointOnFirst{};
    std::array<double, 3> pointOnSecond{};
    /// Which surface is inside the other, if the relation is Contained.
    bool firstIsInside = false;
    bool secondIsInside = false;

    friend bool operator==(const Clearance&, const Clearance&) = default;
};

/// A surface placed in the scene, prepared for the measurement of clearances. A value: copies share
/// their data, which never changes, so any number of threads may measure the same surface.
///
/// The vertices are placed in single precision, as the collision detector places them. A surface is
/// invalid if it has no triangle, a vertex that is not finite or an index entry that names no
/// vertex. Preparing n triangles takes O(n log n) time and about 120 bytes a triangle.
class COREALGORITHMS_EXPORT PlacedSurface
{
public:
    /// Makes an invalid surface.
    PlacedSurface();
    /// Places a mesh in the scene.
    PlacedSurface(const geometry::Mesh& mesh, const QMatrix4x4& sceneFromMesh);
    /// Places the shapes of a tree in the scene. As in the detector, the placement replaces the
    /// transform of the root.
    PlacedSurface(const geometry::ShapeNode& shapes, const QMatrix4x4& sceneFromShapes);
    /// Places the mesh of a nerve or of another surface of the plan by its object transform.
    explicit PlacedSurface(const Surface3DModel& model);
    /// Places the shapes of a pin by its object transform. Invalid for a pin without shapes.
    explicit PlacedSurface(dataobject::AnchorPin3D& pin);
    /// Places the body of an implant (margin 0) or its safety zone of a margin in mm; see
    /// generateSafetyZone(). Invalid if the diameter or the length is not positive and finite, or
    /// the factory is null.
    PlacedSurface(const std::unique_ptr<geometry::ShapeFactory>& factory,
                  dataobject::Implant3D& implant, float margin);

    /// Returns whether clearances to this surface can be measured.
    bool isValid() const { return data != nullptr; }

    class Data;

private:
    friend class ClearanceSearch;

    std::shared_ptr<const Data> data;
};

/// Returns the clearance of two surfaces, or nothing if one of them is invalid.
///
/// The distance differs from that of exact arithmetic on the placed vertices by less than 1e-9 mm
/// for coordinates up to 1000 mm. The relation is that of exact arithmetic: surfaces overlap if
/// some triangle of one has a point in common with some triangle of the other, touching included.
/// The result does not depend on the order of the triangles, on addresses or on the history, and
/// exchanging the surfaces exchanges the points.
///
/// The search ends early at a limit in mm: surfaces that are at least that far apart get the
/// limit as their distance and isAtLeast. A limit that is negative or NaN counts as 0.
COREALGORITHMS_EXPORT std::optional<Clearance>
clearance(const PlacedSurface& first, const PlacedSurface& second,
          double limit = std::numeric_limits<double>::infinity());

} // namespace collision
