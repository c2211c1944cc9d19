// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/ImplantCollisionDetector.h>

// The detector beside a model of it that is written in other terms: over random plans, both must
// have the same verdicts and tell the same observers as often.

#include <CoreAlgorithms/collision/ImplantSafetyZone.h>
#include <tests/support/CollisionBuilders.h>
#include <tests/support/PlainOverlap.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace {

using collision::ImplantCollisionDetector;
using dataobject::AnchorPin3D;
using dataobject::Implant3D;
using dataobject::Nerve;

constexpr int kSequences = 400;
constexpr int kOperations = 300;
constexpr int kImplants = 4;
constexpr int kNerves = 2;
constexpr int kPins = 2;
constexpr int kObservers = 3;
constexpr int kPlaces = 6;

// COREALGORITHMS_FUZZ_ROUNDS multiplies the number of sequences; the label fuzz runs many.
int rounds()
{
    bool given = false;
    const int number = qEnvironmentVariableIntValue("COREALGORITHMS_FUZZ_ROUNDS", &given);
    return given && number > 0 ? number : 1;
}

// ---- shapes and places

// Along a row, so that neighbours are within reach of each other and the rest is not; every second
// one leans.
QMatrix4x4 placementAt(int place)
{
    QMatrix4x4 matrix;
    matrix.translate(10.0F, -5.0F, 30.0F);
    matrix.rotate(20.0F, 1.0F, 2.0F, 0.5F);
    matrix.translate(3.25F * static_cast<float>(place), 0.125F * static_cast<float>(place), 0.0F);
    if (place % 2 == 1)
        matrix.rotate(15.0F, 0.0F, 1.0F, 0.0F);
    return matrix;
}

// A tetrahedron of 2 mm at a depth of `depth` below the platforms.
geometry::Mesh tetrahedron(float depth)
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

dataobject::ImplantDimensions dimensionsOf(int implant)
{
    return implant % 2 == 0 ? dataobject::ImplantDimensions{3.0F, 8.0F}
                            : dataobject::ImplantDimensions{4.0F, 10.0F};
}

// Within some zones: a tetrahedron below the bodies, or a tube of 21 mm across the row, in cells of
// 5 mm.
geometry::Mesh nerveMesh(int nerve, int place)
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

std::unique_ptr<geometry::ShapeNode> pinTree()
{
    auto root = std::make_unique<geometry::ShapeNode>(QStringLiteral("Pin"));
    auto tip = std::make_unique<geometry::ShapeNode>(QStringLiteral("Tip"));
    tip->setShape(geometry::Shape(tetrahedron(4.0F)));
    root->addChild(tip.release());
    return root;
}

// What two placed objects give, by the plain transcription of the overlap test; each pair is
// computed once.
class PlainVerdicts
{
public:
    // The first has the lower address.
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

struct Verdicts
{
    Pairs implants; // the number of the implant at the lower address first
    Pairs nerves;   // implant, nerve
    Pairs pins;     // implant, pin

    friend bool operator==(const Verdicts&, const Verdicts&) = default;
};

// Where an object stood when it was last looked at.
template <int count>
using SeenAt = std::array<std::optional<int>, count>;

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
    std::array<int, kObservers> told{};

    void tell()
    {
        for (const int observer : observers)
            ++told[static_cast<std::size_t>(observer)];
    }
};

template <std::size_t count>
int seen(std::array<std::optional<int>, count>& places, int number, int placeNow)
{
    auto& place = places[static_cast<std::size_t>(number)];
    if (!place)
        place = placeNow;
    return *place;
}

void setVerdict(Pairs& pairs, const std::pair<int, int>& pair, bool colliding)
{
    if (colliding)
        pairs.insert(pair);
    else
        pairs.erase(pair);
}

// ---- both side by side

class Listener : public patterns::Observer<ImplantCollisionDetector, std::nullptr_t>
{
public:
    int told = 0;

private:
    void changedEvent(ImplantCollisionDetector*) override { ++told; }
};

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

    void doAnything()
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
        case 3: // leaves without a word: its verdicts stay
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
            removeAnything();
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

    Verdicts detectorsVerdicts() const
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
    const Verdicts& modelsVerdicts() const { return model.verdicts; }

    std::array<int, kObservers> detectorTold() const
    {
        return {listeners[0].told, listeners[1].told, listeners[2].told};
    }
    const std::array<int, kObservers>& modelTold() const { return model.told; }

    // The first question to the detector that the model answers otherwise from its pairs; none if
    // all agree.
    std::string otherAnswer() const
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

    // Each with a probability of a quarter.
    Numbers anyOf(int count)
    {
        Numbers numbers;
        for (int i = 0; i < count; ++i) {
            if (any(4) == 0)
                numbers.insert(i);
        }
        return numbers;
    }

    // ---- placing, with or without a word to the detector

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

    void removeAnything()
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
        model.tell();
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
            model.tell();
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

TEST(ImplantCollisionDetectorModel, HasTheVerdictsAndNotificationsOfTheDetector)
{
    PlainVerdicts plain;
    int withCollisions = 0;
    int told = 0;
    const int sequences = kSequences * rounds();
    for (int seed = 1; seed <= sequences; ++seed) {
        SideBySide both(static_cast<unsigned>(seed), plain);
        for (int operation = 0; operation < kOperations; ++operation) {
            both.doAnything();
            ASSERT_TRUE(both.detectorsVerdicts() == both.modelsVerdicts())
                << "seed " << seed << ", operation " << operation;
            ASSERT_EQ(both.detectorTold(), both.modelTold())
                << "seed " << seed << ", operation " << operation;
            ASSERT_EQ(both.otherAnswer(), "") << "seed " << seed << ", operation " << operation;
            withCollisions += both.modelsVerdicts() == Verdicts() ? 0 : 1;
        }
        for (const int count : both.modelTold())
            told += count;
    }
    // Much happens: far from all plans are free of collisions, and observers are told often.
    EXPECT_GT(withCollisions, sequences * kOperations / 2);
    EXPECT_GT(told, sequences * 20);
}

// All three kinds of pairs collide at some places and not at others.
TEST(ImplantCollisionDetectorModel, PlacesGiveBothVerdictsForEveryKindOfPair)
{
    PlainVerdicts plain;
    std::array<std::set<bool>, 4> verdicts;
    for (int a = 0; a < kPlaces; ++a) {
        for (int b = 0; b < kPlaces; ++b) {
            verdicts[0].insert(plain.implants(0, a, 1, b));
            verdicts[1].insert(plain.nerve(0, a, 0, b));
            verdicts[2].insert(plain.nerve(1, a, 0, b));
            verdicts[3].insert(plain.pin(a, 1, b));
        }
    }
    for (const auto& both : verdicts)
        EXPECT_EQ(both.size(), 2U);
    // The long nerve has several cells.
    Surface3DModel surface;
    surface.setMesh(nerveMesh(1, 2));
    EXPECT_GT(test::plain::makeBoundedObject(surface).meshes[0].cells.size(), 4);
}

} // namespace
