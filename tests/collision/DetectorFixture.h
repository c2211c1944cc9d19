// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

// The plan, the listener and the inside of the detector that its tests share.

#include <CoreAlgorithms/collision/BoundedMesh_p.h>
#include <CoreAlgorithms/collision/ImplantCollisionDetector.h>

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <unordered_set>
#include <utility>
#include <vector>

namespace collision {

// Gives tests access to what the detector keeps private.
struct ImplantCollisionDetectorTestAccess
{
    using Zones = QHash<std::pair<std::shared_ptr<dataobject::Implant3D>, float>, BoundedObject>;

    static Zones& zones(ImplantCollisionDetector& d) { return d.implantSafetyZoneBoundedMeshes; }
    static auto& nerves(ImplantCollisionDetector& d) { return d.nerveBoundedMeshes; }
    static auto& pins(ImplantCollisionDetector& d) { return d.anchorPinBoundedMeshes; }
    static ImplantCollisions& collisions(ImplantCollisionDetector& d)
    {
        return d.implantCollisions;
    }
    static const geometry::ShapeLoader& loader(ImplantCollisionDetector& d)
    {
        return d.shapeLoader;
    }
    static const auto& factory(ImplantCollisionDetector& d) { return d.shapeFactory; }
    static void removeZones(ImplantCollisionDetector& d,
                            const std::shared_ptr<dataobject::Implant3D>& implant)
    {
        d.removeImplantSafetyZones(implant);
    }
    static ImplantCollisions calculate(const ImplantCollisionDetector& d,
                                       const ImplantCollisions& pairs)
    {
        return d.calculateUpdatedCollisions(pairs.implantImplantCollisions,
                                            pairs.implantNerveCollisions,
                                            pairs.implantAnchorPinCollisions);
    }

    // Returns the addresses of the fields in the order of their declaration, then the end.
    static std::array<const void*, 6> fields(ImplantCollisionDetector& d)
    {
        return {&d.shapeFactory,       &d.implantCollisions,      &d.implantSafetyZoneBoundedMeshes,
                &d.nerveBoundedMeshes, &d.anchorPinBoundedMeshes, &d + 1};
    }
};

} // namespace collision

namespace test {

using collision::ImplantCollisionDetector;
using collision::ImplantCollisions;
using dataobject::AnchorPin3D;
using dataobject::Implant3D;
using dataobject::Nerve;
using Access = collision::ImplantCollisionDetectorTestAccess;
using ImplantPointer = std::shared_ptr<Implant3D>;
using NervePointer = std::shared_ptr<Nerve>;
using PinPointer = std::shared_ptr<AnchorPin3D>;
using ImplantPairs = decltype(ImplantCollisions::implantImplantCollisions);
using NervePairs = decltype(ImplantCollisions::implantNerveCollisions);
using PinPairs = decltype(ImplantCollisions::implantAnchorPinCollisions);

inline QMatrix4x4 at(float x, float y = 0.0F, float z = 0.0F)
{
    QMatrix4x4 matrix;
    matrix.translate(x, y, z);
    return matrix;
}

// Makes the implant 4 mm thick and places it from z = 0 (platform) down to z = -10. Its zone of
// margin 3.0 has a radius of 3.5 mm and ends in a cone whose tip is at z = -13.
inline void shape(Implant3D& implant, float x)
{
    implant.setDimensions({4.0F, 10.0F});
    implant.setObjectTransform(at(x));
}

inline ImplantPointer implantAt(float x)
{
    auto implant = std::make_shared<Implant3D>();
    shape(*implant, x);
    return implant;
}

// Returns one triangle of 1 mm at half the height of the implants, from x to x + 1.
inline geometry::Mesh triangleAt(float x)
{
    geometry::Mesh mesh({QVector3D(x, 0, -5), QVector3D(x + 1, 0, -5), QVector3D(x, 1, -5)}, {});
    mesh.addTriangle(0, 1, 2);
    return mesh;
}

// Returns one triangle through the surfaces of all implants and zones.
inline geometry::Mesh triangleThroughAll()
{
    geometry::Mesh mesh({QVector3D(-20, 0, -5), QVector3D(60, 0, -5), QVector3D(-20, 1, -5)}, {});
    mesh.addTriangle(0, 1, 2);
    return mesh;
}

inline NervePointer nerveAt(float x)
{
    auto nerve = std::make_shared<Nerve>();
    nerve->setMesh(triangleAt(x));
    return nerve;
}

inline std::unique_ptr<geometry::ShapeNode> treeOf(const geometry::Mesh& mesh)
{
    auto root = std::make_unique<geometry::ShapeNode>(QStringLiteral("Pin"));
    auto node = std::make_unique<geometry::ShapeNode>(QStringLiteral("Shaft"));
    node->setShape(geometry::Shape(mesh));
    root->addChild(node.release());
    return root;
}

inline PinPointer pinAt(float x)
{
    auto pin = std::make_shared<AnchorPin3D>();
    pin->setShapeNode(treeOf(triangleAt(0.0F)));
    pin->setObjectTransform(at(x));
    return pin;
}

class Listener : public patterns::Observer<ImplantCollisionDetector, std::nullptr_t>
{
public:
    std::vector<ImplantCollisionDetector*> changes;
    int destructions = 0;
    std::function<void()> onChange;
    std::function<void()> onDestruction;

private:
    void changedEvent(ImplantCollisionDetector* subject) override
    {
        changes.push_back(subject);
        if (onChange)
            onChange();
    }
    void destroyed(ImplantCollisionDetector*) override
    {
        ++destructions;
        if (onDestruction)
            onDestruction();
    }
};

struct ImplantCollisionDetectorTest : testing::Test
{
    ImplantCollisionDetectorTest() { detector.attach(&listener); }

    // Runs the detection of the plan with these objects named as changed.
    void detect(const std::unordered_set<ImplantPointer>& changedImplants,
                const std::unordered_set<NervePointer>& changedNerves = {},
                const std::unordered_set<PinPointer>& changedPins = {})
    {
        detector.prepareAndStartDetection(implants, changedImplants, pins, changedPins, nerves,
                                          changedNerves);
    }
    void detectAll()
    {
        detect({implants.begin(), implants.end()}, {nerves.begin(), nerves.end()},
               {pins.begin(), pins.end()});
    }
    const ImplantCollisions& found() const { return detector.getImplantCollisions(); }
    std::size_t numNotifications() const { return listener.changes.size(); }

    geometry::ShapeLoader loader;
    ImplantCollisionDetector detector{loader};
    Listener listener;
    ImplantPointer a = implantAt(0.0F);
    ImplantPointer b = implantAt(20.0F);
    ImplantPointer c = implantAt(40.0F);
    NervePointer nerve = nerveAt(50.0F);
    PinPointer pin = pinAt(60.0F);
    QSet<ImplantPointer> implants{a, b, c};
    QSet<NervePointer> nerves{nerve};
    QSet<PinPointer> pins{pin};
};

} // namespace test
