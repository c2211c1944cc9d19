// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/SurfaceScans.h>

// Surface scans: values of a new one, the alignment record and the single operations, notification.

#include <tests/support/Matrices.h>
#include <tests/support/ModelRecorders.h>

#include <gtest/gtest.h>

#include <type_traits>

namespace {

static_assert(std::has_virtual_destructor_v<AlignableSurface> &&
              std::is_abstract_v<AlignableSurface>);
static_assert(NoJaw == 0 && LowerJaw == 1 && UpperJaw == 2, "values that callers store");

SurfaceScanAlignment anAlignment()
{
    return {test::translation(1.0F, 0.0F, 0.0F), test::translation(2.0F, 0.0F, 0.0F),
            test::translation(3.0F, 0.0F, 0.0F), test::translation(4.0F, 0.0F, 0.0F), true};
}

TEST(SurfaceScan, NewOneHasIdentityMatricesAndNoJaw)
{
    const SurfaceScan scan;
    EXPECT_TRUE(scan.getInitialTransform().isIdentity());
    EXPECT_TRUE(scan.getFreehandTransform().isIdentity());
    EXPECT_TRUE(scan.getRegistrationTransform().isIdentity());
    EXPECT_TRUE(scan.getReferenceTransform().isIdentity());
    EXPECT_FALSE(scan.isFreehandAligned());
    EXPECT_EQ(scan.getJawType(), NoJaw);
}

TEST(SurfaceScan, IsItsOwnSurfaceModel)
{
    SurfaceScan scan;
    EXPECT_EQ(scan.getSurfaceModel(), &scan);
    EXPECT_EQ(std::as_const(scan).getSurfaceModel(), &scan);
}

TEST(SurfaceScan, RecordSetsTheFiveValuesAndLeavesTheMesh)
{
    SurfaceScan scan;
    scan.setMesh(geometry::Mesh({{5.0F, 6.0F, 7.0F}}, {}));
    scan.setSurfaceScanAlignment(anAlignment());
    EXPECT_EQ(scan.getInitialTransform(), test::translation(1.0F, 0.0F, 0.0F));
    EXPECT_EQ(scan.getFreehandTransform(), test::translation(2.0F, 0.0F, 0.0F));
    EXPECT_EQ(scan.getRegistrationTransform(), test::translation(3.0F, 0.0F, 0.0F));
    EXPECT_EQ(scan.getReferenceTransform(), test::translation(4.0F, 0.0F, 0.0F));
    EXPECT_TRUE(scan.isFreehandAligned());
    EXPECT_EQ(scan.getSurfaceScanAlignment(), anAlignment());
    EXPECT_EQ(scan.getMesh().getVertices().first(), QVector3D(5.0F, 6.0F, 7.0F));
}

TEST(SurfaceScan, SingleOperationsChangeTheirValueOnly)
{
    SurfaceScan scan;
    scan.setSurfaceScanAlignment(anAlignment());
    SurfaceScanAlignment expected = anAlignment();
    scan.setInitialTransform(expected.initialTransform = test::translation(0.0F, 1.0F, 0.0F));
    EXPECT_EQ(scan.getSurfaceScanAlignment(), expected);
    scan.setFreehandTransform(expected.freehandTransform = test::translation(0.0F, 2.0F, 0.0F));
    EXPECT_EQ(scan.getSurfaceScanAlignment(), expected);
    scan.setFreehandAligned(expected.freehandAligned = false);
    EXPECT_EQ(scan.getSurfaceScanAlignment(), expected);
    scan.setJawType(UpperJaw);
    EXPECT_EQ(scan.getJawType(), UpperJaw);
    EXPECT_EQ(scan.getSurfaceScanAlignment(), expected);
}

TEST(SurfaceScan, EverySetterNotifies)
{
    SurfaceScan scan;
    test::ChangeCounter counter;
    scan.attach(&counter);
    scan.setSurfaceScanAlignment({});
    scan.setInitialTransform({});
    scan.setFreehandTransform({});
    scan.setFreehandAligned(true);
    scan.setJawType(LowerJaw);
    EXPECT_EQ(counter.changes, 5);
}

} // namespace
