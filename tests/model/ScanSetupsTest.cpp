// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/ScanSetups.h>

// Scan setups and their contents, trees of surfaces, combined boxes.

#include <tests/support/Matrices.h>
#include <tests/support/ModelRecorders.h>

#include <gtest/gtest.h>

namespace {

geometry::Mesh segment(const QVector3D& from, const QVector3D& to)
{
    return geometry::Mesh({from, to}, {});
}

std::shared_ptr<SurfaceTree> makeTree(const QVector3D& from, const QVector3D& to)
{
    auto tree = std::make_shared<SurfaceTree>();
    auto root = std::make_unique<geometry::ShapeNode>(QStringLiteral("root"));
    root->setShape(geometry::Shape(segment(from, to)));
    tree->setShapeNode(std::move(root));
    return tree;
}

TEST(ScannableRegion, KeepsItsEndsAndNotifies)
{
    ScannableRegion region;
    EXPECT_EQ(region.getRegionStart(), ToothChart::NoTooth);
    EXPECT_EQ(region.getRegionEnd(), ToothChart::NoTooth);
    test::ChangeCounter counter;
    region.attach(&counter);
    region.setRegion(ToothChart::Tooth(3), ToothChart::Tooth(5));
    EXPECT_EQ(region.getRegionStart(), 3);
    EXPECT_EQ(region.getRegionEnd(), 5);
    EXPECT_EQ(counter.changes, 1);
}

TEST(QuarnRawScanData, HasOnlyAnIntermediateMeshUntilItsOwnComes)
{
    QuarnRawScanData data;
    EXPECT_FALSE(data.hasOnlyIntermediateMesh());
    EXPECT_EQ(data.getIntermediateSurface(), nullptr);
    const auto tree = makeTree({}, {1.0F, 1.0F, 1.0F});
    data.setIntermediateSurface(tree);
    EXPECT_EQ(data.getIntermediateSurface(), tree.get());
    EXPECT_TRUE(data.hasOnlyIntermediateMesh());
    data.setMesh(segment({}, {1.0F, 0.0F, 0.0F}));
    EXPECT_FALSE(data.hasOnlyIntermediateMesh());
}

TEST(QuarnRawScanData, KeepsTheOrderOfItsTeeth)
{
    QuarnRawScanData data;
    EXPECT_TRUE(data.getScannedTeeth().isEmpty());
    const QList<ToothChart::Tooth> teeth{ToothChart::Tooth(20), ToothChart::Tooth(18)};
    data.setScannedTeeth(teeth);
    EXPECT_EQ(data.getScannedTeeth(), teeth);
}

TEST(OcclusionScan, IsCalculatedOnceItHasTransformationsAndUntilTheyAreReset)
{
    OcclusionScan scan;
    EXPECT_FALSE(scan.isCalculated());
    EXPECT_TRUE(scan.getUpperTransformation().isIdentity());
    test::ChangeCounter counter;
    scan.attach(&counter);
    scan.setTransformations(test::translation(1.0F, 0.0F, 0.0F),
                            test::translation(2.0F, 0.0F, 0.0F),
                            test::translation(3.0F, 0.0F, 0.0F));
    EXPECT_TRUE(scan.isCalculated());
    EXPECT_EQ(scan.getUpperTransformation(), test::translation(1.0F, 0.0F, 0.0F));
    EXPECT_EQ(scan.getLowerTransformation(), test::translation(2.0F, 0.0F, 0.0F));
    EXPECT_EQ(scan.getVestibularTransformation(), test::translation(3.0F, 0.0F, 0.0F));
    scan.resetTransformations();
    EXPECT_FALSE(scan.isCalculated());
    EXPECT_TRUE(scan.getUpperTransformation().isIdentity());
    EXPECT_TRUE(scan.getLowerTransformation().isIdentity());
    EXPECT_TRUE(scan.getVestibularTransformation().isIdentity());
    EXPECT_EQ(counter.changes, 2);
}

TEST(ScanSetup, ListsWhatWasAddedInOrder)
{
    ScanSetup setup;
    EXPECT_EQ(setup.getOcclusionScan(), nullptr);
    EXPECT_TRUE(setup.getScannableRegions().isEmpty());
    EXPECT_TRUE(setup.getQuarnRawScanData(true).isEmpty());

    const auto scan = std::make_shared<OcclusionScan>();
    const auto first = std::make_shared<ScannableRegion>();
    const auto second = std::make_shared<ScannableRegion>();
    setup.setOcclusionScan(scan);
    setup.addScannableRegion(first);
    setup.addScannableRegion(second);
    EXPECT_EQ(setup.getOcclusionScan(), scan.get());
    EXPECT_EQ(setup.getScannableRegions(), QList<ScannableRegion*>({first.get(), second.get()}));
}

TEST(ScanSetup, LeavesOutRawScanDataWithoutASurfaceUnlessAskedForThem)
{
    ScanSetup setup;
    const auto empty = std::make_shared<QuarnRawScanData>();
    const auto meshed = std::make_shared<QuarnRawScanData>();
    meshed->setMesh(segment({}, {1.0F, 1.0F, 1.0F}));
    const auto intermediate = std::make_shared<QuarnRawScanData>();
    intermediate->setIntermediateSurface(std::make_shared<SurfaceTree>());
    for (const auto& data : {empty, meshed, intermediate})
        setup.addQuarnRawScanData(data);
    EXPECT_EQ(setup.getQuarnRawScanData(true),
              QList<QuarnRawScanData*>({empty.get(), meshed.get(), intermediate.get()}));
    EXPECT_EQ(setup.getQuarnRawScanData(false),
              QList<QuarnRawScanData*>({meshed.get(), intermediate.get()}));
}

TEST(SurfaceTree, MovesRelativelyAndItsBoxFollows)
{
    SurfaceTree tree;
    EXPECT_EQ(tree.getShapeNode(), nullptr);
    EXPECT_TRUE(tree.getSceneBoundingBox().isNull());

    auto root = std::make_unique<geometry::ShapeNode>(QStringLiteral("root"));
    root->setShape(geometry::Shape(segment({1.0F, 1.0F, 1.0F}, {2.0F, 2.0F, 2.0F})));
    root->setTransform(test::translation(0.0F, 0.0F, 100.0F));
    tree.setShapeNode(std::move(root));
    QMatrix4x4 doubling;
    doubling.scale(2.0F);
    tree.setObjectTransform(test::translation(1.0F, 0.0F, 0.0F));
    tree.setObjectTransform(doubling);
    // (1, 1, 1) is mapped to (1, 1, 101), (2, 1, 101) and (4, 2, 202).
    EXPECT_EQ(tree.getSceneBoundingBox(),
              primitives::BoundingBox(4.0F, 2.0F, 202.0F, 6.0F, 4.0F, 204.0F));
}

TEST(SurfaceObjectHelper, CombinesTheBoxesInTheSceneAndPassesOverNothing)
{
    Surface3DModel model;
    model.setMesh(segment({0.0F, 0.0F, 0.0F}, {1.0F, 1.0F, 1.0F}));
    model.setObjectTransform(test::translation(10.0F, 0.0F, 0.0F));
    const auto tree = makeTree({20.0F, -5.0F, 3.0F}, {21.0F, 0.0F, 4.0F});
    const Surface3DModel empty;
    EXPECT_EQ(SurfaceObjectHelper::getCombinedBoundingBox({&empty, nullptr, &model, tree.get()}),
              primitives::BoundingBox(10.0F, -5.0F, 0.0F, 21.0F, 1.0F, 4.0F));
    EXPECT_TRUE(SurfaceObjectHelper::getCombinedBoundingBox({}).isNull());
}

} // namespace
