// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

// A model of the detector in other terms: objects are numbers, placements are places in a row, and
// the verdict of two places comes from the plain transcription of the overlap test.

#include <CoreAlgorithms/collision/ImplantSafetyZone.h>

#include <tests/support/CollisionBuilders.h>
#include <tests/support/PlainOverlap.h>

#include <array>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <utility>

namespace test::detector_model {

using dataobject::Implant3D;

constexpr int kImplants = 4;
constexpr int kNerves = 2;
constexpr int kPins = 2;
constexpr int kObservers = 3;
constexpr int kPlaces = 6;

// ---- shapes and places

/// Returns a placement in a row, in which neighbors are within reach of each other and other places
/// are not. Every second one is tilted.
inline QMatrix4x4 placementAt(int place)
{
    QMatrix4x4 matrix;
    matrix.translate(10.0F, -5.0F, 30.0F);
    matrix.rotate(20.0F, 1.0F, 2.0F, 0.5F);
    matrix.translate(3.25F * static_cast<float>(place), 0.125F * static_cast<float>(place), 0.0F);
    if (place % 2 == 1)
        matrix.rotate(15.0F, 0.0F, 1.0F, 0.0F);
    return matrix;
}

/// Returns a tetrahedron of 2 mm whose base is `depth` mm below the platforms.
inline geometry::Mesh tetrahedron(float depth)
{
    geometry::Mesh mesh({QVector3D(0, 0, -depth), QVector3D(2, 0, -depth), QVector3D(0, 2, -depth),
                         QVector3D(0, 0, 2 - depth)},
                        {});
    mesh.addTriangle(0, 2, 1);
    mesh.addTriangle(0, 1, 3);
    mesh.addTriangle(1, 2, 3);
    mesh.addTriangle(2, 0, 3);
    return mesh;
}

inline dataobject::ImplantDimensions dimensionsOf(int implant)
{
    return implant % 2 == 0 ? dataobject::ImplantDimensions{3.0F, 8.0F}
                            : dataobject::ImplantDimensions{4.0F, 10.0F};
}

/// Returns a nerve that reaches some zones: a tetrahedron below the bodies, or a tube of 21 mm
/// across the row, which has several cells of 5 mm.
inline geometry::Mesh nerveMesh(int nerve, int place)
{
    geometry::Mesh mesh = tetrahedron(12.0F);
    if (nerve % 2 == 1) {
        QList<QVector3D> axis;
        for (int step = 0; step <= 12; ++step)
            axis.append({0.25F * static_cast<float>(step), 1.75F * static_cast<float>(step) - 9.0F,
                         -10.0F});
        mesh = test::makeTube(axis, 1.0F, 6);
    }
    mesh.applyTransformation(placementAt(place));
    return mesh;
}

inline std::unique_ptr<geometry::ShapeNode> pinTree()
{
    auto root = std::make_unique<geometry::ShapeNode>(QStringLiteral("Pin"));
    auto tip = std::make_unique<geometry::ShapeNode>(QStringLiteral("Tip"));
    tip->setShape(geometry::Shape(tetrahedron(4.0F)));
    root->addChild(tip.release());
    return root;
}

/// Returns the verdicts of pairs of placed objects by the plain transcription of the overlap test.
/// Computes each of them once.
class PlainVerdicts
{
public:
    /// Expects the implant at the lower address first.
    bool implants(int first, int firstPlace, int second, int secondPlace)
    {
        return remembered({0, first % 2, firstPlace, second % 2, secondPlace}, [&] {
            return test::plain::overlaps(zone(first, firstPlace, 0.0F),
                                         zone(second, secondPlace, 0.0F));
        });
    }
    bool nerve(int nerve, int nervePlace, int implant, int implantPlace)
    {
        return remembered({1, nerve % 2, nervePlace, implant % 2, implantPlace}, [&] {
            Surface3DModel surface;
            surface.setMesh(nerveMesh(nerve, nervePlace));
            return test::plain::overlaps(test::plain::makeBoundedObject(surface),
                                         zone(implant, implantPlace, 3.0F));
        });
    }
    bool pin(int pinPlace, int implant, int implantPlace)
    {
        return remembered({2, 0, pinPlace, implant % 2, implantPlace}, [&] {
            return test::plain::overlaps(
                test::plain::makeBoundedObject(*pinTree(), placementAt(pinPlace), 100.0F),
                zone(implant, implantPlace, 3.0F));
        });
    }

private:
    using Key = std::array<int, 5>;

    template <typename Compute>
    bool remembered(const Key& key, Compute compute)
    {
        const auto found = verdicts.find(key);
        return found != verdicts.end() ? found->second
                                       : verdicts.emplace(key, compute()).first->second;
    }

    test::plain::BoundedObject zone(int number, int place, float margin)
    {
        Implant3D implant;
        implant.setDimensions(dimensionsOf(number));
        const auto tree = collision::generateSafetyZone(factory, implant, margin);
        return test::plain::makeBoundedObject(*tree, placementAt(place), 100.0F);
    }

    geometry::ShapeLoader loader;
    std::unique_ptr<geometry::ShapeFactory> factory =
        std::make_unique<geometry::ShapeFactory>(loader);
    std::map<Key, bool> verdicts;
};

// ---- the model

using Numbers = std::set<int>;
using Pairs = std::set<std::pair<int, int>>;

/// Holds the pairs that collide, by the numbers of their objects.
struct Verdicts
{
    Pairs implants; // the number of the implant at the lower address first
    Pairs nerves;   // implant, nerve
    Pairs pins;     // implant, pin

    friend bool operator==(const Verdicts&, const Verdicts&) = default;
};

/// The places of objects when their meshes were last cached; nothing for those that are not cached.
template <int count>
using SeenAt = std::array<std::optional<int>, count>;

/// Holds what the detector should know: where the objects are, where it saw them, and its verdicts.
struct Model
{
    std::array<int, kImplants> implantPlace{};
    std::array<int, kNerves> nervePlace{};
    std::array<int, kPins> pinPlace{};
    SeenAt<kImplants> bodySeen;
    SeenAt<kImplants> zoneSeen;
    SeenAt<kNerves> nerveSeen;
    SeenAt<kPins> pinSeen;
    Numbers implants;
    Numbers nerves;
    Numbers pins;
    Verdicts verdicts;
    Numbers observers;
    std::array<int, kObservers> numNotifications{};

    void notify()
    {
        for (const int observer : observers)
            ++numNotifications[static_cast<std::size_t>(observer)];
    }
};

/// Returns where the object was when its mesh was cached, and caches it at `placeNow` if it was
/// not.
template <std::size_t count>
int seen(std::array<std::optional<int>, count>& places, int number, int placeNow)
{
    auto& place = places[static_cast<std::size_t>(number)];
    if (!place)
        place = placeNow;
    return *place;
}

inline void setVerdict(Pairs& pairs, const std::pair<int, int>& pair, bool colliding)
{
    if (colliding)
        pairs.insert(pair);
    else
        pairs.erase(pair);
}

} // namespace test::detector_model
