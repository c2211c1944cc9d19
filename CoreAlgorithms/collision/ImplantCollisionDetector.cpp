// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/ImplantCollisionDetector.h>

#include <CoreAlgorithms/collision/BoundedMesh_p.h>
#include <CoreAlgorithms/collision/ImplantSafetyZone.h>

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace collision {
namespace {

using dataobject::AnchorPin3D;
using dataobject::Implant3D;
using dataobject::Nerve;

// The margins of the safety zones in mm.
constexpr float kImplantMargin = 0.0F;
constexpr float kNerveMargin = 3.0F;
constexpr float kAnchorPinMargin = 3.0F;

// The cell size of zones and pins in mm. It exceeds the length of any implant or pin, so that these
// have a single cell; they have too few triangles to gain from more.
constexpr float kShapeCellSize = 100.0F;

bool isPositive(float measure)
{
    return std::isfinite(measure) && measure > 0.0F;
}

// Tested before a zone is made, since the margin would give even an implant without extent a body.
bool hasBody(const Implant3D& implant)
{
    const auto& dimensions = implant.getDimensions();
    return isPositive(dimensions.diameter) && isPositive(dimensions.length);
}

// Returns an entry of a cache, or an empty object, which collides with nothing.
template <typename Cache>
const BoundedObject& cached(const Cache& cache, const typename Cache::key_type& key)
{
    static const BoundedObject empty;
    const auto found = cache.constFind(key);
    return found != cache.cend() ? *found : empty;
}

template <typename Pair>
void setColliding(QSet<Pair>& collisions, const Pair& pair, bool colliding)
{
    if (colliding)
        collisions.insert(pair);
    else
        collisions.remove(pair);
}

template <typename Pair, typename Member>
bool anyPairWithFirst(const QSet<Pair>& pairs, const Member* first)
{
    return std::any_of(pairs.begin(), pairs.end(),
                       [first](const Pair& pair) { return pair.first.get() == first; });
}

} // namespace

ImplantCollisionDetector::ImplantCollisionDetector(geometry::ShapeLoader& shapeLoaderOfHost)
    : shapeLoader(shapeLoaderOfHost),
      shapeFactory(std::make_unique<geometry::ShapeFactory>(shapeLoader))
{}

ImplantCollisionDetector::~ImplantCollisionDetector() = default;

// ---- detection

void ImplantCollisionDetector::prepareAndStartDetection(
    const QSet<std::shared_ptr<Implant3D>>& implants,
    const std::unordered_set<std::shared_ptr<Implant3D>>& changedImplants,
    const QSet<std::shared_ptr<AnchorPin3D>>& anchorPins,
    const std::unordered_set<std::shared_ptr<AnchorPin3D>>& changedAnchorPins,
    const QSet<std::shared_ptr<Nerve>>& nerves,
    const std::unordered_set<std::shared_ptr<Nerve>>& changedNerves)
{
    const auto insertPair = [](auto& pairs, const auto& first, const auto& second) {
        if (first && second)
            pairs.insert(makePair(first, second));
    };
    ImplantPairs implantPairs;
    NervePairs nervePairs;
    AnchorPinPairs anchorPinPairs;
    for (const auto& changed : changedImplants) {
        for (const auto& implant : implants) {
            if (implant != changed)
                insertPair(implantPairs, changed, implant);
        }
        for (const auto& nerve : nerves)
            insertPair(nervePairs, changed, nerve);
        for (const auto& pin : anchorPins)
            insertPair(anchorPinPairs, changed, pin);
    }
    for (const auto& changed : changedNerves) {
        for (const auto& implant : implants)
            insertPair(nervePairs, implant, changed);
    }
    for (const auto& changed : changedAnchorPins) {
        for (const auto& implant : implants)
            insertPair(anchorPinPairs, implant, changed);
    }
    runDetection(implantPairs, nervePairs, anchorPinPairs);
}

void ImplantCollisionDetector::runDetection(const ImplantPairs& implantPairs,
                                            const NervePairs& nervePairs,
                                            const AnchorPinPairs& anchorPinPairs)
{
    updateBoundedMeshes(implantPairs, nervePairs, anchorPinPairs);
    ImplantCollisions newCollisions =
        calculateUpdatedCollisions(implantPairs, nervePairs, anchorPinPairs);
    if (newCollisions == implantCollisions)
        return;
    implantCollisions = std::move(newCollisions);
    notify();
}

ImplantCollisions
ImplantCollisionDetector::calculateUpdatedCollisions(const ImplantPairs& implantPairs,
                                                     const NervePairs& nervePairs,
                                                     const AnchorPinPairs& anchorPinPairs) const
{
    const auto zone = [this](const std::shared_ptr<Implant3D>& implant,
                             float margin) -> const BoundedObject& {
        return cached(implantSafetyZoneBoundedMeshes, {implant, margin});
    };
    ImplantCollisions updated = implantCollisions;
    // Intended: the implant at the lower address, the nerve and the pin are the first operands of
    // overlaps(), whose verdict can depend on the order. The verdicts of existing plans rely on it.
    for (const auto& pair : implantPairs) {
        const bool colliding =
            overlaps(zone(pair.first, kImplantMargin), zone(pair.second, kImplantMargin));
        setColliding(updated.implantImplantCollisions, pair, colliding);
    }
    for (const auto& pair : nervePairs) {
        const bool colliding =
            overlaps(cached(nerveBoundedMeshes, pair.second), zone(pair.first, kNerveMargin));
        setColliding(updated.implantNerveCollisions, pair, colliding);
    }
    for (const auto& pair : anchorPinPairs) {
        const bool colliding = overlaps(cached(anchorPinBoundedMeshes, pair.second),
                                        zone(pair.first, kAnchorPinMargin));
        setColliding(updated.implantAnchorPinCollisions, pair, colliding);
    }
    return updated;
}

// ---- the caches

void ImplantCollisionDetector::updateBoundedMeshes(const ImplantPairs& implantPairs,
                                                   const NervePairs& nervePairs,
                                                   const AnchorPinPairs& anchorPinPairs)
{
    for (const auto& pair : implantPairs) {
        updateImplantSafetyZoneBoundedMeshes(pair.first, kImplantMargin);
        updateImplantSafetyZoneBoundedMeshes(pair.second, kImplantMargin);
    }
    for (const auto& pair : nervePairs) {
        updateImplantSafetyZoneBoundedMeshes(pair.first, kNerveMargin);
        updateNerveBoundedMeshes(pair.second);
    }
    for (const auto& pair : anchorPinPairs) {
        updateImplantSafetyZoneBoundedMeshes(pair.first, kAnchorPinMargin);
        updateAnchorPinBoundedMeshes(pair.second);
    }
}

void ImplantCollisionDetector::updateImplantSafetyZoneBoundedMeshes(
    const std::shared_ptr<Implant3D>& implant, float margin)
{
    const std::pair key(implant, margin);
    if (implantSafetyZoneBoundedMeshes.contains(key))
        return;
    BoundedObject object;
    if (hasBody(*implant)) {
        const auto safetyZone = generateSafetyZone(shapeFactory, *implant, margin);
        object = makeBoundedObject(*safetyZone, implant->getObjectTransform(), kShapeCellSize);
    }
    implantSafetyZoneBoundedMeshes.insert(key, object);
}

void ImplantCollisionDetector::updateNerveBoundedMeshes(const std::shared_ptr<Nerve>& nerve)
{
    if (!nerveBoundedMeshes.contains(nerve))
        nerveBoundedMeshes.insert(nerve, makeBoundedObject(*nerve));
}

void ImplantCollisionDetector::updateAnchorPinBoundedMeshes(const std::shared_ptr<AnchorPin3D>& pin)
{
    if (anchorPinBoundedMeshes.contains(pin))
        return;
    const geometry::ShapeNode* shapeNode = pin->getShapeNode();
    anchorPinBoundedMeshes.insert(
        pin, shapeNode ? makeBoundedObject(*shapeNode, pin->getObjectTransform(), kShapeCellSize)
                       : BoundedObject());
}

void ImplantCollisionDetector::removeImplantSafetyZones(const std::shared_ptr<Implant3D>& implant)
{
    implantSafetyZoneBoundedMeshes.remove({implant, kImplantMargin});
    implantSafetyZoneBoundedMeshes.remove({implant, kNerveMargin});
    // Intended: this finds nothing, since nerves and pins have equal margins and share a zone. It
    // is kept so that each kind of pair erases its own zone, in the order of the kinds.
    implantSafetyZoneBoundedMeshes.remove({implant, kAnchorPinMargin});
}

void ImplantCollisionDetector::shapeHasChanged(const std::shared_ptr<Implant3D>& implant)
{
    removeImplantSafetyZones(implant);
}

void ImplantCollisionDetector::shapeHasChanged(const std::shared_ptr<Nerve>& nerve)
{
    nerveBoundedMeshes.remove(nerve);
}

void ImplantCollisionDetector::shapeHasChanged(const std::shared_ptr<AnchorPin3D>& pin)
{
    anchorPinBoundedMeshes.remove(pin);
}

// ---- objects that leave the plan
//
// Each operation copies the pointer first, since it may be a member of a pair that is removed here.
//
// Intended: observers are notified even if nothing was removed. Applications update their lists of
// objects by that.

void ImplantCollisionDetector::remove(const std::shared_ptr<Implant3D>& implant)
{
    const std::shared_ptr<Implant3D> leaving = implant;
    const auto holdsImplant = [&leaving](const auto& pair) { return pair.first == leaving; };
    implantCollisions.implantImplantCollisions.removeIf(
        [&leaving](const auto& pair) { return pair.first == leaving || pair.second == leaving; });
    implantCollisions.implantNerveCollisions.removeIf(holdsImplant);
    implantCollisions.implantAnchorPinCollisions.removeIf(holdsImplant);
    removeImplantSafetyZones(leaving);
    notify();
}

void ImplantCollisionDetector::remove(const std::shared_ptr<Nerve>& nerve)
{
    const std::shared_ptr<Nerve> leaving = nerve;
    implantCollisions.implantNerveCollisions.removeIf(
        [&leaving](const auto& pair) { return pair.second == leaving; });
    nerveBoundedMeshes.remove(leaving);
    notify();
}

void ImplantCollisionDetector::remove(const std::shared_ptr<AnchorPin3D>& pin)
{
    const std::shared_ptr<AnchorPin3D> leaving = pin;
    implantCollisions.implantAnchorPinCollisions.removeIf(
        [&leaving](const auto& pair) { return pair.second == leaving; });
    anchorPinBoundedMeshes.remove(leaving);
    notify();
}

// ---- queries

bool ImplantCollisionDetector::isColliding(const Implant3D& implant) const
{
    const auto owner = std::dynamic_pointer_cast<const Implant3D>(implant.weak_from_this().lock());
    return owner && getCollidingImplants().contains(owner);
}

bool ImplantCollisionDetector::isColliding(const AnchorPin3D& pin) const
{
    const auto& pairs = implantCollisions.implantAnchorPinCollisions;
    return std::any_of(pairs.begin(), pairs.end(),
                       [&pin](const auto& pair) { return pair.second.get() == &pin; });
}

bool ImplantCollisionDetector::isCollidingWithNerve(const Implant3D& implant) const
{
    return anyPairWithFirst(implantCollisions.implantNerveCollisions, &implant);
}

bool ImplantCollisionDetector::isCollidingWithAnchorPin(const Implant3D& implant) const
{
    return anyPairWithFirst(implantCollisions.implantAnchorPinCollisions, &implant);
}

const ImplantCollisions& ImplantCollisionDetector::getImplantCollisions() const
{
    return implantCollisions;
}

QSet<std::shared_ptr<const Implant3D>> ImplantCollisionDetector::getCollidingImplants() const
{
    QSet<std::shared_ptr<const Implant3D>> implants;
    for (const auto& [first, second] : implantCollisions.implantImplantCollisions) {
        implants.insert(first);
        implants.insert(second);
    }
    return implants;
}

QSet<std::shared_ptr<Implant3D>>
ImplantCollisionDetector::getCollidingImplants(const Implant3D& implant) const
{
    QSet<std::shared_ptr<Implant3D>> others;
    for (const auto& [first, second] : implantCollisions.implantImplantCollisions) {
        if (first.get() == &implant)
            others.insert(second);
        else if (second.get() == &implant)
            others.insert(first);
    }
    return others;
}

QString ImplantCollisionDetector::tr(const char* sourceText, const char* disambiguation, int n)
{
    return QCoreApplication::translate("collision::ImplantCollisionDetector", sourceText,
                                       disambiguation, n);
}

} // namespace collision
