// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

// The detector and its model, which get the same random operations.

#include <CoreAlgorithms/collision/ImplantCollisionDetector.h>

#include <tests/collision/DetectorModel.h>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace test::detector_model {

using collision::ImplantCollisionDetector;
using dataobject::AnchorPin3D;
using dataobject::Nerve;

class Listener : public patterns::Observer<ImplantCollisionDetector, std::nullptr_t>
{
public:
    int numNotifications = 0;

private:
    void changedEvent(ImplantCollisionDetector*) override { ++numNotifications; }
};

/// Applies the same random operations to the detector and to its model.
class SideBySide
{
public:
    SideBySide(unsigned seed, PlainVerdicts& plainVerdicts)
        : random(seed), plain(plainVerdicts), detector(loader)
    {
        for (int i = 0; i < kImplants; ++i) {
            implants.push_back(std::make_shared<Implant3D>());
            implants.back()->setDimensions(dimensionsOf(i));
            placeImplant(i);
        }
        for (int i = 0; i < kNerves; ++i) {
            nerves.push_back(std::make_shared<Nerve>());
            placeNerve(i);
        }
        for (int i = 0; i < kPins; ++i) {
            pins.push_back(std::make_shared<AnchorPin3D>());
            pins.back()->setShapeNode(pinTree());
            placePin(i);
        }
    }

    /// Does one random operation on both.
    void doRandomOperation()
    {
        switch (any(14)) {
        case 0:
            model.implants.insert(any(kImplants));
            break;
        case 1:
            model.nerves.insert(any(kNerves));
            break;
        case 2:
            model.pins.insert(any(kPins));
            break;
        case 3: // leaves the plan without remove(): its verdicts stay
            model.implants.erase(any(kImplants));
            break;
        case 4:
            placeImplant(any(kImplants));
            break;
        case 5:
            placeNerve(any(kNerves));
            break;
        case 6:
            placePin(any(kPins));
            break;
        case 7:
            removeAnyObject();
            break;
        case 8:
            attachOrDetach(any(kObservers));
            break;
        case 9:
        case 10:
            moveAndDetect();
            break;
        default:
            detect(anyOf(kImplants), anyOf(kNerves), anyOf(kPins));
            break;
        }
    }

    Verdicts verdictsOfDetector() const
    {
        const collision::ImplantCollisions& found = detector.getImplantCollisions();
        Verdicts verdicts;
        for (const auto& [a, b] : found.implantImplantCollisions)
            verdicts.implants.emplace(numberOf(implants, a), numberOf(implants, b));
        for (const auto& [implant, nerve] : found.implantNerveCollisions)
            verdicts.nerves.emplace(numberOf(implants, implant), numberOf(nerves, nerve));
        for (const auto& [implant, pin] : found.implantAnchorPinCollisions)
            verdicts.pins.emplace(numberOf(implants, implant), numberOf(pins, pin));
        return verdicts;
    }
    const Verdicts& verdictsOfModel() const { return model.verdicts; }

    std::array<int, kObservers> notificationsOfDetector() const
    {
        return {listeners[0].numNotifications, listeners[1].numNotifications,
                listeners[2].numNotifications};
    }
    const std::array<int, kObservers>& notificationsOfModel() const
    {
        return model.numNotifications;
    }

    /// Returns the first query of the detector whose result differs from the model's pairs, or an
    /// empty text if all agree.
    std::string differingQuery() const
    {
        QSet<std::shared_ptr<const Implant3D>> colliding;
        for (int i = 0; i < kImplants; ++i) {
            QSet<std::shared_ptr<Implant3D>> others;
            for (const auto& [a, b] : model.verdicts.implants) {
                if (a == i)
                    others.insert(implants[b]);
                if (b == i)
                    others.insert(implants[a]);
            }
            const Implant3D& implant = *implants[i];
            if (!others.isEmpty())
                colliding.insert(implants[i]);
            if (detector.getCollidingImplants(implant) != others)
                return "getCollidingImplants of implant " + std::to_string(i);
            if (detector.isColliding(implant) == others.isEmpty())
                return "isColliding of implant " + std::to_string(i);
            if (detector.isCollidingWithNerve(implant) != anyWith(model.verdicts.nerves, i))
                return "isCollidingWithNerve of implant " + std::to_string(i);
            if (detector.isCollidingWithAnchorPin(implant) != anyWith(model.verdicts.pins, i))
                return "isCollidingWithAnchorPin of implant " + std::to_string(i);
        }
        for (int i = 0; i < kPins; ++i) {
            const bool expected =
                std::any_of(model.verdicts.pins.begin(), model.verdicts.pins.end(),
                            [i](const std::pair<int, int>& pair) { return pair.second == i; });
            if (detector.isColliding(*pins[i]) != expected)
                return "isColliding of pin " + std::to_string(i);
        }
        return detector.getCollidingImplants() == colliding ? "" : "getCollidingImplants";
    }

private:
    int any(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }

    // Draws each number with a probability of a quarter.
    Numbers anyOf(int count)
    {
        Numbers numbers;
        for (int i = 0; i < count; ++i) {
            if (any(4) == 0)
                numbers.insert(i);
        }
        return numbers;
    }

    // ---- placing; in a quarter of the cases the detector is not notified

    void placeImplant(int number)
    {
        const auto i = static_cast<std::size_t>(number);
        model.implantPlace[i] = any(kPlaces);
        implants[i]->setObjectTransform(placementAt(model.implantPlace[i]));
        if (any(4) == 0)
            return;
        detector.shapeHasChanged(implants[i]);
        model.bodySeen[i].reset();
        model.zoneSeen[i].reset();
    }

    void placeNerve(int number)
    {
        const auto i = static_cast<std::size_t>(number);
        model.nervePlace[i] = any(kPlaces);
        nerves[i]->setMesh(nerveMesh(number, model.nervePlace[i]));
        if (any(4) == 0)
            return;
        detector.shapeHasChanged(nerves[i]);
        model.nerveSeen[i].reset();
    }

    void placePin(int number)
    {
        const auto i = static_cast<std::size_t>(number);
        model.pinPlace[i] = any(kPlaces);
        pins[i]->setObjectTransform(placementAt(model.pinPlace[i]));
        if (any(4) == 0)
            return;
        detector.shapeHasChanged(pins[i]);
        model.pinSeen[i].reset();
    }

    void moveAndDetect()
    {
        const int implant = any(kImplants);
        placeImplant(implant);
        detect({implant}, {}, {});
    }

    // ---- removing

    void removeAnyObject()
    {
        const int kind = any(3);
        if (kind == 0) {
            const int number = any(kImplants);
            const auto isOfImplant = [number](const auto& pair) { return pair.first == number; };
            std::erase_if(model.verdicts.implants, [number](const auto& pair) {
                return pair.first == number || pair.second == number;
            });
            std::erase_if(model.verdicts.nerves, isOfImplant);
            std::erase_if(model.verdicts.pins, isOfImplant);
            model.bodySeen[static_cast<std::size_t>(number)].reset();
            model.zoneSeen[static_cast<std::size_t>(number)].reset();
            model.implants.erase(number);
            detector.remove(implants[static_cast<std::size_t>(number)]);
        } else if (kind == 1) {
            const int number = any(kNerves);
            std::erase_if(model.verdicts.nerves,
                          [number](const auto& pair) { return pair.second == number; });
            model.nerveSeen[static_cast<std::size_t>(number)].reset();
            model.nerves.erase(number);
            detector.remove(nerves[static_cast<std::size_t>(number)]);
        } else {
            const int number = any(kPins);
            std::erase_if(model.verdicts.pins,
                          [number](const auto& pair) { return pair.second == number; });
            model.pinSeen[static_cast<std::size_t>(number)].reset();
            model.pins.erase(number);
            detector.remove(pins[static_cast<std::size_t>(number)]);
        }
        model.notify();
    }

    void attachOrDetach(int observer)
    {
        auto& listener = listeners[static_cast<std::size_t>(observer)];
        if (model.observers.erase(observer) == 1) {
            detector.detach(&listener);
        } else {
            model.observers.insert(observer);
            detector.attach(&listener);
        }
    }

    // ---- detecting

    void detect(const Numbers& changedImplants, const Numbers& changedNerves,
                const Numbers& changedPins)
    {
        Verdicts updated = model.verdicts;
        for (int a = 0; a < kImplants; ++a) {
            for (int b = a + 1; b < kImplants; ++b) {
                if ((changedImplants.count(a) != 0 && model.implants.count(b) != 0) ||
                    (changedImplants.count(b) != 0 && model.implants.count(a) != 0))
                    testImplants(updated, a, b);
            }
            for (int nerve = 0; nerve < kNerves; ++nerve) {
                if ((changedImplants.count(a) != 0 && model.nerves.count(nerve) != 0) ||
                    (changedNerves.count(nerve) != 0 && model.implants.count(a) != 0))
                    testNerve(updated, a, nerve);
            }
            for (int pin = 0; pin < kPins; ++pin) {
                if ((changedImplants.count(a) != 0 && model.pins.count(pin) != 0) ||
                    (changedPins.count(pin) != 0 && model.implants.count(a) != 0))
                    testPin(updated, a, pin);
            }
        }
        if (!(updated == model.verdicts)) {
            model.verdicts = updated;
            model.notify();
        }
        detector.prepareAndStartDetection(
            setOf(implants, model.implants), changed(implants, changedImplants),
            setOf(pins, model.pins), changed(pins, changedPins), setOf(nerves, model.nerves),
            changed(nerves, changedNerves));
    }

    void testImplants(Verdicts& updated, int a, int b)
    {
        if (std::less<>()(implants[static_cast<std::size_t>(b)].get(),
                          implants[static_cast<std::size_t>(a)].get()))
            std::swap(a, b);
        const int placeA = seen(model.bodySeen, a, model.implantPlace[static_cast<std::size_t>(a)]);
        const int placeB = seen(model.bodySeen, b, model.implantPlace[static_cast<std::size_t>(b)]);
        setVerdict(updated.implants, {a, b}, plain.implants(a, placeA, b, placeB));
    }

    void testNerve(Verdicts& updated, int implant, int nerve)
    {
        const int at =
            seen(model.zoneSeen, implant, model.implantPlace[static_cast<std::size_t>(implant)]);
        const int nerveAt =
            seen(model.nerveSeen, nerve, model.nervePlace[static_cast<std::size_t>(nerve)]);
        setVerdict(updated.nerves, {implant, nerve}, plain.nerve(nerve, nerveAt, implant, at));
    }

    void testPin(Verdicts& updated, int implant, int pin)
    {
        const int at =
            seen(model.zoneSeen, implant, model.implantPlace[static_cast<std::size_t>(implant)]);
        const int pinAt = seen(model.pinSeen, pin, model.pinPlace[static_cast<std::size_t>(pin)]);
        setVerdict(updated.pins, {implant, pin}, plain.pin(pinAt, implant, at));
    }

    // ---- numbers and objects

    template <typename Object>
    static QSet<std::shared_ptr<Object>> setOf(const std::vector<std::shared_ptr<Object>>& objects,
                                               const Numbers& numbers)
    {
        QSet<std::shared_ptr<Object>> set;
        for (const int number : numbers)
            set.insert(objects[static_cast<std::size_t>(number)]);
        return set;
    }

    template <typename Object>
    static std::unordered_set<std::shared_ptr<Object>>
    changed(const std::vector<std::shared_ptr<Object>>& objects, const Numbers& numbers)
    {
        std::unordered_set<std::shared_ptr<Object>> set;
        for (const int number : numbers)
            set.insert(objects[static_cast<std::size_t>(number)]);
        return set;
    }

    template <typename Object>
    static int numberOf(const std::vector<std::shared_ptr<Object>>& objects,
                        const std::shared_ptr<Object>& object)
    {
        return static_cast<int>(std::find(objects.begin(), objects.end(), object) -
                                objects.begin());
    }

    static bool anyWith(const Pairs& pairs, int implant)
    {
        return std::any_of(pairs.begin(), pairs.end(),
                           [implant](const auto& pair) { return pair.first == implant; });
    }

    std::mt19937 random;
    PlainVerdicts& plain;
    std::vector<std::shared_ptr<Implant3D>> implants;
    std::vector<std::shared_ptr<Nerve>> nerves;
    std::vector<std::shared_ptr<AnchorPin3D>> pins;
    geometry::ShapeLoader loader;
    ImplantCollisionDetector detector;
    std::array<Listener, kObservers> listeners;
    Model model;
};

} // namespace test::detector_model
