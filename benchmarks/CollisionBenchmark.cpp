// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Detects the collisions of a plan with twelve implants, six pins and two nerves of 2,000, 20,000
// and 200,000 triangles each. Compares ImplantCollisionDetector with the plain transcription of its
// rules and with those of these peers that are installed: FCL with trees of oriented boxes, CGAL
// with trees of axis-aligned boxes and exact predicates, and Embree's trees with the plain test.
//
//     W1  the first detection of everything, including the trees and caches
//     W2  a drag of one implant along its nerve, 500 steps of 0.1 mm, each with a detection
//     W3  repeated detection of one implant whose zone is 0.05 mm from one nerve
//
// The counter `colliding` is the number of colliding pairs, in W2 their mean over the steps. It may
// differ between engines, which round differently. The table at the end compares the medians of the
// CPU time.
#include <benchmarks/CollisionEngines.h>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>

namespace benchmarks {

std::vector<EngineKind> engineKinds()
{
    std::vector<EngineKind> kinds = {{"ours", &makeOurs}, {"plain", &makePlain}};
#ifdef BENCHMARK_FCL
    kinds.push_back({"FCL", &makeFcl});
#endif
#ifdef BENCHMARK_CGAL
    kinds.push_back({"CGAL", &makeCgal});
#endif
#ifdef BENCHMARK_EMBREE
    kinds.push_back({"Embree", &makeEmbree});
#endif
    return kinds;
}

} // namespace benchmarks

namespace {

using benchmarks::EngineKind;
using benchmarks::kDragSteps;
using benchmarks::Plan;

const Plan& fullArch(int trianglesPerNerve)
{
    static std::map<int, Plan> plans;
    auto found = plans.find(trianglesPerNerve);
    if (found == plans.end())
        found = plans.emplace(trianglesPerNerve, benchmarks::fullArch(trianglesPerNerve)).first;
    return found->second;
}

const Plan& hovering(int trianglesPerNerve)
{
    static std::map<int, Plan> plans;
    auto found = plans.find(trianglesPerNerve);
    if (found == plans.end())
        found = plans.emplace(trianglesPerNerve, benchmarks::hovering(trianglesPerNerve)).first;
    return found->second;
}

void detectFirst(benchmark::State& state, const EngineKind& kind, int trianglesPerNerve)
{
    const Plan& plan = fullArch(trianglesPerNerve);
    plan.implants.first()->setObjectTransform(benchmarks::dragPlacement(0));
    int colliding = 0;
    for (auto _ : state) {
        const auto engine = kind.make(plan);
        colliding = engine->detectAll();
        benchmark::DoNotOptimize(colliding);
    }
    state.counters["colliding"] = colliding;
}

void drag(benchmark::State& state, const EngineKind& kind, int trianglesPerNerve)
{
    const Plan& plan = fullArch(trianglesPerNerve);
    plan.implants.first()->setObjectTransform(benchmarks::dragPlacement(0));
    const auto engine = kind.make(plan);
    engine->detectAll();
    int colliding = 0;
    for (auto _ : state) {
        colliding = 0;
        for (int step = 1; step <= kDragSteps; ++step) {
            plan.implants.first()->setObjectTransform(benchmarks::dragPlacement(step));
            colliding += engine->implantHasMoved(0);
        }
    }
    state.counters["colliding"] = double(colliding) / kDragSteps;
}

void hover(benchmark::State& state, const EngineKind& kind, int trianglesPerNerve)
{
    const auto engine = kind.make(hovering(trianglesPerNerve));
    engine->detectAll();
    int colliding = 0;
    for (auto _ : state) {
        colliding = engine->implantHasMoved(0);
        benchmark::DoNotOptimize(colliding);
    }
    state.counters["colliding"] = colliding;
}

// Prints what the console reporter prints, and stores the medians.
class Medians : public benchmark::ConsoleReporter
{
public:
    Medians() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.aggregate_name == "median")
                milliseconds[run.run_name.function_name] = run.GetAdjustedCPUTime();
        }
    }

    // Prints a row for each workload and size: the plain time, then the ratio of each engine to it.
    void printRatios(const std::vector<std::string>& workloads) const
    {
        std::printf("\n%-10s %12s", "", "plain, ms");
        for (const EngineKind& kind : benchmarks::engineKinds())
            std::printf(" %9s", kind.name.c_str());
        std::printf("\n");
        for (const std::string& workload : workloads) {
            const auto plain = milliseconds.find(workload + "/plain");
            if (plain == milliseconds.end())
                continue;
            std::printf("%-10s %12.3f", workload.c_str(), plain->second);
            for (const EngineKind& kind : benchmarks::engineKinds()) {
                const auto found = milliseconds.find(workload + '/' + kind.name);
                if (found == milliseconds.end())
                    std::printf(" %9s", "-");
                else
                    std::printf(" %9.4f", found->second / plain->second);
            }
            std::printf("\n");
        }
    }

private:
    std::map<std::string, double> milliseconds; // by the benchmark's name
};

} // namespace

int main(int argc, char** argv)
{
    using Workload = void (*)(benchmark::State&, const EngineKind&, int);
    const std::vector<std::pair<std::string, Workload>> workloads = {
        {"W1", &detectFirst}, {"W2", &drag}, {"W3", &hover}};
    std::vector<std::string> rows;
    for (const auto& [workload, function] : workloads) {
        for (const auto& [size, triangles] :
             {std::pair("2k", 2000), std::pair("20k", 20'000), std::pair("200k", 200'000)}) {
            const std::string row = workload + '/' + size;
            rows.push_back(row);
            for (const EngineKind& kind : benchmarks::engineKinds()) {
                benchmark::RegisterBenchmark((row + '/' + kind.name).c_str(), function, kind,
                                             triangles)
                    ->Unit(benchmark::kMillisecond)
                    ->Repetitions(5)
                    ->ReportAggregatesOnly();
            }
        }
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    Medians medians;
    benchmark::RunSpecifiedBenchmarks(&medians);
    medians.printRatios(rows);
    return 0;
}
