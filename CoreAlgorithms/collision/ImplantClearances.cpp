// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/ImplantClearances.h>

#include <CoreAlgorithms/collision/ClearanceSearch_p.h>
#include <CoreAlgorithms/collision/ImplantCollisions.h>

#include <QHash>

#include <algorithm>
#include <limits>
#include <tuple>
#include <utility>

namespace collision {
namespace {

using dataobject::AnchorPin3D;
using dataobject::Implant3D;
using dataobject::Nerve;

// What is known of a pair.
struct Measured
{
    Clearance clearance;
    TrianglePair nearest;
};

template <typename Other>
using Pair = std::pair<std::shared_ptr<Implant3D>, std::shared_ptr<Other>>;

// The same pair with the implant of the caller's choice first.
ImplantPairClearance seenFrom(const Implant3D& implant, ImplantPairClearance pair)
{
    if (pair.implant.get() == &implant)
        return pair;
    std::swap(pair.implant, pair.other);
    std::swap(pair.clearance.pointOnFirst, pair.clearance.pointOnSecond);
    std::swap(pair.clearance.firstIsInside, pair.clearance.secondIsInside);
    return pair;
}

template <typename Other>
bool isNearerPair(const PairClearance<Other>& a, const PairClearance<Other>& b)
{
    const auto key = [](const Clearance& clearance) {
        return std::tie(clearance.distance, clearance.pointOnFirst, clearance.pointOnSecond);
    };
    return key(a.clearance) < key(b.clearance);
}

// The surfaces of the objects of one kind, placed when they are first needed.
template <typename Object>
class Surfaces
{
public:
    template <typename Place>
    const PlacedSurface& of(const std::shared_ptr<Object>& object, Place place)
    {
        auto found = cache.find(object);
        if (found == cache.end())
            found = cache.insert(object, place(*object));
        return *found;
    }
    void forget(const std::shared_ptr<Object>& object) { cache.remove(object); }

private:
    QHash<std::shared_ptr<Object>, PlacedSurface> cache;
};

// The pairs of implants with the objects of one kind.
template <typename Other>
class Pairs
{
public:
    // Returns whether the clearance differs from the one before.
    bool measure(const Pair<Other>& pair, const PlacedSurface& first, const PlacedSurface& second)
    {
        const auto before = known.find(pair);
        TrianglePair nearest = before != known.end() ? before->nearest : TrianglePair{};
        const auto found =
            ClearanceSearch::run(first, second, std::numeric_limits<double>::infinity(), nearest);
        if (!found)
            return known.remove(pair);
        const bool isNew = before == known.end() || !(before->clearance == *found);
        known.insert(pair, {*found, nearest});
        return isNew;
    }

    template <typename Holds>
    void removeIf(Holds holds)
    {
        known.removeIf([&holds](const auto& entry) { return holds(entry.key()); });
    }

    QList<PairClearance<Other>> below(double limit) const
    {
        QList<PairClearance<Other>> pairs;
        for (auto entry = known.cbegin(); entry != known.cend(); ++entry) {
            if (entry->clearance.distance < limit)
                pairs.append({entry.key().first, entry.key().second, entry->clearance});
        }
        std::ranges::sort(pairs, isNearerPair<Other>);
        return pairs;
    }

    // The nearest of the pairs that `see` accepts, as it shows them.
    template <typename See>
    std::optional<PairClearance<Other>> nearest(See see) const
    {
        std::optional<PairClearance<Other>> best;
        for (auto entry = known.cbegin(); entry != known.cend(); ++entry) {
            const std::optional<PairClearance<Other>> pair =
                see(PairClearance<Other>{entry.key().first, entry.key().second, entry->clearance});
            if (pair && (!best || isNearerPair(*pair, *best)))
                best = pair;
        }
        return best;
    }

private:
    QHash<Pair<Other>, Measured> known;
};

template <typename Other>
auto pairsOf(const Implant3D& implant)
{
    return [&implant](const PairClearance<Other>& pair) -> std::optional<PairClearance<Other>> {
        if (pair.implant.get() != &implant)
            return {};
        return pair;
    };
}

} // namespace

struct ImplantClearances::Measurements
{
    explicit Measurements(geometry::ShapeLoader& shapeLoader)
        : shapeFactory(std::make_unique<geometry::ShapeFactory>(shapeLoader))
    {}

    const PlacedSurface& surfaceOf(const std::shared_ptr<Implant3D>& implant)
    {
        return bodies.of(implant, [this](Implant3D& object) {
            return PlacedSurface(shapeFactory, object, 0.0F);
        });
    }
    const PlacedSurface& surfaceOf(const std::shared_ptr<Nerve>& nerve)
    {
        return nerveSurfaces.of(nerve, [](const Nerve& object) { return PlacedSurface(object); });
    }
    const PlacedSurface& surfaceOf(const std::shared_ptr<AnchorPin3D>& pin)
    {
        return pinSurfaces.of(pin, [](AnchorPin3D& object) { return PlacedSurface(object); });
    }

    // Returns whether a clearance has changed.
    template <typename Other>
    bool measure(Pairs<Other>& pairs, const QSet<Pair<Other>>& changed)
    {
        bool anyIsNew = false;
        for (const auto& pair : changed) {
            // Copies: placing the second surface may move the first within the cache.
            const PlacedSurface first = surfaceOf(pair.first);
            const PlacedSurface second = surfaceOf(pair.second);
            anyIsNew = pairs.measure(pair, first, second) || anyIsNew;
        }
        return anyIsNew;
    }

    std::unique_ptr<geometry::ShapeFactory> shapeFactory;
    Surfaces<Implant3D> bodies;
    Surfaces<Nerve> nerveSurfaces;
    Surfaces<AnchorPin3D> pinSurfaces;
    Pairs<Implant3D> implantPairs;
    Pairs<Nerve> nervePairs;
    Pairs<AnchorPin3D> anchorPinPairs;
};

ImplantClearances::ImplantClearances(geometry::ShapeLoader& shapeLoader)
    : measurements(std::make_unique<Measurements>(shapeLoader))
{}

ImplantClearances::~ImplantClearances() = default;

void ImplantClearances::prepareAndStartMeasurement(
    const QSet<std::shared_ptr<Implant3D>>& implants,
    const std::unordered_set<std::shared_ptr<Implant3D>>& changedImplants,
    const QSet<std::shared_ptr<AnchorPin3D>>& anchorPins,
    const std::unordered_set<std::shared_ptr<AnchorPin3D>>& changedAnchorPins,
    const QSet<std::shared_ptr<Nerve>>& nerves,
    const std::unordered_set<std::shared_ptr<Nerve>>& changedNerves)
{
    QSet<Pair<Implant3D>> implantPairs;
    QSet<Pair<Nerve>> nervePairs;
    QSet<Pair<AnchorPin3D>> anchorPinPairs;
    const auto insertPair = [](auto& pairs, const auto& first, const auto& second) {
        if (first && second)
            pairs.insert(makePair(first, second));
    };
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
    for (const auto& implant : implants) {
        for (const auto& changed : changedNerves)
            insertPair(nervePairs, implant, changed);
        for (const auto& changed : changedAnchorPins)
            insertPair(anchorPinPairs, implant, changed);
    }
    const bool implantsDiffer = measurements->measure(measurements->implantPairs, implantPairs);
    const bool nervesDiffer = measurements->measure(measurements->nervePairs, nervePairs);
    const bool pinsDiffer = measurements->measure(measurements->anchorPinPairs, anchorPinPairs);
    if (implantsDiffer || nervesDiffer || pinsDiffer)
        notify();
}

void ImplantClearances::shapeHasChanged(const std::shared_ptr<Implant3D>& implant)
{
    measurements->bodies.forget(implant);
}

void ImplantClearances::shapeHasChanged(const std::shared_ptr<Nerve>& nerve)
{
    measurements->nerveSurfaces.forget(nerve);
}

void ImplantClearances::shapeHasChanged(const std::shared_ptr<AnchorPin3D>& pin)
{
    measurements->pinSurfaces.forget(pin);
}

// The pointers are copied first: the caller's may be in the caches that shrink here.

void ImplantClearances::remove(const std::shared_ptr<Implant3D>& implant)
{
    const std::shared_ptr<Implant3D> leaving = implant;
    const auto holdsImplant = [&leaving](const auto& pair) { return pair.first == leaving; };
    measurements->implantPairs.removeIf(
        [&leaving](const auto& pair) { return pair.first == leaving || pair.second == leaving; });
    measurements->nervePairs.removeIf(holdsImplant);
    measurements->anchorPinPairs.removeIf(holdsImplant);
    measurements->bodies.forget(leaving);
    notify();
}

void ImplantClearances::remove(const std::shared_ptr<Nerve>& nerve)
{
    const std::shared_ptr<Nerve> leaving = nerve;
    measurements->nervePairs.removeIf(
        [&leaving](const auto& pair) { return pair.second == leaving; });
    measurements->nerveSurfaces.forget(leaving);
    notify();
}

void ImplantClearances::remove(const std::shared_ptr<AnchorPin3D>& pin)
{
    const std::shared_ptr<AnchorPin3D> leaving = pin;
    measurements->anchorPinPairs.removeIf(
        [&leaving](const auto& pair) { return pair.second == leaving; });
    measurements->pinSurfaces.forget(leaving);
    notify();
}

std::optional<ImplantPairClearance>
ImplantClearances::getNearestImplant(const Implant3D& implant) const
{
    return measurements->implantPairs.nearest(
        [&implant](const ImplantPairClearance& pair) -> std::optional<ImplantPairClearance> {
            if (pair.implant.get() != &implant && pair.other.get() != &implant)
                return {};
            return seenFrom(implant, pair);
        });
}

std::optional<NervePairClearance> ImplantClearances::getNearestNerve(const Implant3D& implant) const
{
    return measurements->nervePairs.nearest(pairsOf<Nerve>(implant));
}

std::optional<AnchorPinPairClearance>
ImplantClearances::getNearestAnchorPin(const Implant3D& implant) const
{
    return measurements->anchorPinPairs.nearest(pairsOf<AnchorPin3D>(implant));
}

QList<ImplantPairClearance> ImplantClearances::getImplantsBelow(double limit) const
{
    return measurements->implantPairs.below(limit);
}

QList<NervePairClearance> ImplantClearances::getNervesBelow(double limit) const
{
    return measurements->nervePairs.below(limit);
}

QList<AnchorPinPairClearance> ImplantClearances::getAnchorPinsBelow(double limit) const
{
    return measurements->anchorPinPairs.below(limit);
}

} // namespace collision
