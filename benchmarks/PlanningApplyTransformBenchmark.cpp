// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Moves a plan of 5 surface scans of 500,000 vertices each, 200 annotations and 32 implants into a
// new scanner frame. Compares PlanningApplyTransform with a plain Eigen loop over the vertices. The
// same plan without vertices shows the cost of everything else.
#include <CoreAlgorithms/model/dataobjects/Annotations.h>
#include <CoreAlgorithms/model/dataobjects/Implants.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceScans.h>
#include <CoreAlgorithms/transforms/PlanningApplyTransform.h>

#include <tests/support/ResliceBuilders.h>

#include <Eigen/Geometry>
#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

namespace {

constexpr int kScans = 5;
constexpr int kVertices = 500'000;
constexpr int kAnnotationsOfAKind = 20;
constexpr int kImplants = 32;

class Plan
{
public:
    explicit Plan(int verticesOfAScan)
    {
        test::RandomGeometry random(1);
        for (int i = 0; i < kScans; ++i) {
            QList<QVector3D> vertices;
            vertices.reserve(verticesOfAScan);
            for (int n = 0; n < verticesOfAScan; ++n)
                vertices.append(random.point(40.0F));
            add<SurfaceScan>()->setMesh(geometry::Mesh(vertices, {}));
        }
        for (int i = 0; i < kAnnotationsOfAKind; ++i) {
            add<PointAnnotation>()->changePosition(random.point(40.0F));
            add<GreyValueMeasurement>()->changePosition(random.point(40.0F));
            add<LineAnnotation>()->setPositions({random.point(40.0F), random.point(40.0F)});
            add<PencilAnnotation3D>()->setPositions(QList<QVector3D>(50, random.point(40.0F)));
            add<ArrowAnnotation3D>()->setArrow(random.point(40.0F), random.point(40.0F));
            add<CircleAnnotation3D>()->setCircle(random.point(40.0F), random.point(1.0F), 3.0F);
            add<TextAnnotation3D>()->setPosition(random.point(40.0F));
            add<CustomResliceAnnotation>()->setResliceTransform(random.rigidPlacement());
            add<dataobject::AttachablePoint>()->setPosition(random.point(40.0F));
            add<dataobject::PointBased3DAnnotationBase>()->setPositions(
                {random.point(40.0F), random.point(40.0F)});
        }
        for (int i = 0; i < kImplants; ++i)
            add<dataobject::Implant3D>()->setObjectTransform(random.rigidPlacement());
        frame = random.rigidPlacement();
        back = frame.inverted();
        QList<DataObject*> objects;
        for (const auto& object : owned)
            objects << object.get();
        apply.setDataObjects(objects);
    }

    void move()
    {
        benchmark::DoNotOptimize(apply.applyTransform(there ? back : frame));
        there = !there;
    }

private:
    template <typename Kind>
    Kind* add()
    {
        auto object = std::make_shared<Kind>();
        owned.push_back(object);
        return object.get();
    }

    std::vector<std::shared_ptr<DataObject>> owned;
    PlanningApplyTransform apply;
    QMatrix4x4 frame;
    QMatrix4x4 back;
    bool there = false;
};

void wholePlan(benchmark::State& state)
{
    static Plan plan(kVertices);
    for (auto _ : state)
        plan.move();
}

void planWithoutVertices(benchmark::State& state)
{
    static Plan plan(0);
    for (auto _ : state)
        plan.move();
}

void eigenLoopOverTheVertices(benchmark::State& state)
{
    test::RandomGeometry random(1);
    std::vector<std::vector<Eigen::Vector3f>> scans(kScans);
    for (auto& scan : scans) {
        for (int n = 0; n < kVertices; ++n) {
            const QVector3D vertex = random.point(40.0F);
            scan.emplace_back(vertex.x(), vertex.y(), vertex.z());
        }
    }
    Eigen::Affine3f frame(Eigen::Translation3f(10.0F, 20.0F, 30.0F) *
                          Eigen::AngleAxisf(0.7F, Eigen::Vector3f(1.0F, 2.0F, 3.0F).normalized()));
    for (auto _ : state) {
        for (auto& scan : scans) {
            for (Eigen::Vector3f& vertex : scan)
                vertex = frame * vertex;
        }
        frame = frame.inverse();
        benchmark::ClobberMemory();
    }
}

BENCHMARK(wholePlan)->Unit(benchmark::kMillisecond)->Repetitions(9)->ReportAggregatesOnly();
BENCHMARK(eigenLoopOverTheVertices)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(9)
    ->ReportAggregatesOnly();
BENCHMARK(planWithoutVertices)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(9)
    ->ReportAggregatesOnly();

} // namespace
