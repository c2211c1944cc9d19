// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/BoundedMesh_p.h>

// Several threads test the same objects and copies of them at once. Each object is tested for the
// first time, so that several threads make its trees. The verdicts alone show little: build with
// -fsanitize=thread, and the test fails at every access that is not synchronized.

#include <tests/support/CollisionBuilders.h>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace {

using collision::BoundedMesh;
using collision::BoundedObject;
using collision::overlaps;

constexpr int kThreads = 4;

BoundedObject nerve()
{
    Surface3DModel surface;
    surface.setMesh(test::makeCanal(3000));
    return collision::makeBoundedObject(surface);
}

// Returns a canal with a vertex 300 mm away, which has wide triangles among narrow ones.
BoundedObject nerveWithAnOutlier()
{
    geometry::Mesh mesh = test::makeCanal(3000);
    QList<QVector3D> vertices = mesh.getVertices();
    vertices[vertices.size() / 2] += QVector3D(300.0F, 10.0F, 0.0F);
    mesh.setVertices(vertices);
    Surface3DModel surface;
    surface.setMesh(mesh);
    return collision::makeBoundedObject(surface);
}

// Returns a pin at vertex `number` of the canal.
BoundedObject pinAt(int number)
{
    const QVector3D place = test::makeCanal(3000).getVertices()[number];
    const auto pin = test::makePin(2.0F, 6.0F, test::translation(place.x(), place.y(), place.z()));
    return collision::makeBoundedObject(*pin->getShapeNode(), pin->getObjectTransform(), 100.0F);
}

// Runs the same work in all threads, which start it together.
template <typename Work>
void runInThreads(Work work)
{
    std::atomic<int> numWaiting = kThreads;
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&numWaiting, &work] {
            --numWaiting;
            while (numWaiting > 0)
                std::this_thread::yield();
            work();
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

TEST(OverlapFromSeveralThreads, EqualObjectsHaveOneVerdict)
{
    for (int round = 0; round < 20; ++round) {
        const BoundedObject canal = round % 2 == 0 ? nerve() : nerveWithAnOutlier();
        const std::vector<BoundedObject> pins{pinAt(100), pinAt(700), pinAt(1300)};
        const BoundedObject away = pinAt(0);
        std::atomic<int> hits = 0;
        runInThreads([&] {
            // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): that is the point
            const BoundedObject copy = canal;
            for (const BoundedObject& pin : pins) {
                hits += overlaps(canal, pin) ? 1 : 0;
                hits += overlaps(pin, copy) ? 1 : 0;
            }
        });
        EXPECT_EQ(hits, 2 * 3 * kThreads);
    }
}

// One thread changes its copy while the others test theirs.
TEST(OverlapFromSeveralThreads, CopiesThatAreMovedHaveTheVerdictOfTheirPlace)
{
    for (int round = 0; round < 20; ++round) {
        const BoundedObject canal = nerve();
        const BoundedObject pin = pinAt(700);
        std::atomic<int> hits = 0;
        std::atomic<int> hitsOfMoved = 0;
        runInThreads([&] {
            BoundedMesh copy = canal.meshes[0];
            hits += overlaps(canal, pin) ? 1 : 0;
            // Moves it out of the reach of the pin, but not of its cells.
            copy.mesh.applyTransformation(test::translation(0.0F, 0.0F, 60.0F));
            hitsOfMoved += overlaps(copy, pin.meshes[0]) ? 1 : 0;
        });
        EXPECT_EQ(hits, kThreads);
        EXPECT_EQ(hitsOfMoved, 0);
    }
}

} // namespace
