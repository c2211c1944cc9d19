// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <benchmarks/CollisionPlan.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

// The engines that the collision benchmarks compare: the detector, its plain transcription, and
// other libraries.
namespace benchmarks {

/// Detects the collisions of a plan.
class Engine
{
public:
    Engine() = default;
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;
    virtual ~Engine() = default;

    /// Tests every pair of the plan for the first time. Returns the number of colliding pairs.
    virtual int detectAll() = 0;
    /// Tests the pairs of one implant, which has moved, and returns the number of colliding pairs
    /// of the plan.
    virtual int implantHasMoved(int implant) = 0;
};

/// Names an engine and makes it. The plan must outlive the engine, which computes nothing before
/// detectAll().
struct EngineKind
{
    std::string name;
    std::unique_ptr<Engine> (*make)(const Plan& plan);
};

/// Returns the engines of this program: ours, the plain transcription, then the peers.
std::vector<EngineKind> engineKinds();

std::unique_ptr<Engine> makeOurs(const Plan& plan);
std::unique_ptr<Engine> makePlain(const Plan& plan);
std::unique_ptr<Engine> makeFcl(const Plan& plan);
std::unique_ptr<Engine> makeCgal(const Plan& plan);
std::unique_ptr<Engine> makeEmbree(const Plan& plan);

/// Decides which pairs are tested and keeps their verdicts, for engines that only test two
/// surfaces. `Body` is the engine's form of one surface.
template <typename Body>
class PairwiseEngine : public Engine
{
public:
    explicit PairwiseEngine(const Plan& tested)
        : plan(tested),
          envelopes(std::size_t(tested.implants.size())),
          zones(std::size_t(tested.implants.size())),
          nerves(std::size_t(tested.nerves.size())),
          pins(std::size_t(tested.pins.size())),
          verdicts(envelopes.size() * columns(), false)
    {}

    int detectAll() override
    {
        for (std::size_t i = 0; i < zones.size(); ++i)
            buildImplant(*plan.implants[qsizetype(i)], envelopes[i], zones[i]);
        for (std::size_t i = 0; i < nerves.size(); ++i)
            buildNerve(*plan.nerves[qsizetype(i)], nerves[i]);
        for (std::size_t i = 0; i < pins.size(); ++i)
            buildPin(*plan.pins[qsizetype(i)], pins[i]);
        for (std::size_t i = 0; i < zones.size(); ++i)
            testPairsOf(i, i + 1);
        return count();
    }

    int implantHasMoved(int implant) override
    {
        const auto i = std::size_t(implant);
        moveImplant(*plan.implants[implant], envelopes[i], zones[i]);
        testPairsOf(i, 0);
        return count();
    }

protected:
    virtual void buildImplant(dataobject::Implant3D& implant, Body& envelope, Body& zone) = 0;
    virtual void moveImplant(dataobject::Implant3D& implant, Body& envelope, Body& zone) = 0;
    virtual void buildNerve(const dataobject::Nerve& nerve, Body& body) = 0;
    virtual void buildPin(dataobject::AnchorPin3D& pin, Body& body) = 0;
    virtual bool intersect(Body& a, Body& b) = 0;

private:
    std::size_t columns() const { return envelopes.size() + nerves.size() + pins.size(); }

    void testPairsOf(std::size_t i, std::size_t firstOther)
    {
        const std::size_t n = zones.size();
        for (std::size_t j = firstOther; j < n; ++j) {
            if (j == i)
                continue;
            const bool inOrder =
                plan.implants[qsizetype(i)].get() < plan.implants[qsizetype(j)].get();
            verdicts[std::min(i, j) * columns() + std::max(i, j)] =
                intersect(envelopes[inOrder ? i : j], envelopes[inOrder ? j : i]);
        }
        for (std::size_t k = 0; k < nerves.size(); ++k)
            verdicts[i * columns() + n + k] = intersect(nerves[k], zones[i]);
        for (std::size_t k = 0; k < pins.size(); ++k)
            verdicts[i * columns() + n + nerves.size() + k] = intersect(pins[k], zones[i]);
    }

    int count() const
    {
        int colliding = 0;
        for (const bool verdict : verdicts)
            colliding += verdict ? 1 : 0;
        return colliding;
    }

    const Plan& plan;
    std::vector<Body> envelopes; // zones of margin 0.0
    std::vector<Body> zones;     // zones of margin 3.0
    std::vector<Body> nerves;
    std::vector<Body> pins;
    std::vector<bool> verdicts;
};

} // namespace benchmarks
