// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/PatientSurfaces.h>
#include <CoreAlgorithms/model/dataobjects/PlacedSurfaces.h>

// Surfaces of the patient, which are moved relatively, and those that are placed absolutely.

#include <tests/support/ModelRecorders.h>

#include <gtest/gtest.h>

namespace {

using test::expectVector;
using test::quarterTurnAndShift;

TEST(PatientSurfaces, AreMovedRelatively)
{
    Skin skin;
    skin.setMesh(geometry::Mesh({{1.0F, 2.0F, 3.0F}}, {}));
    for (int i = 0; i < 2; ++i) {
        skin.setObjectTransform(quarterTurnAndShift());
        skin.refresh();
    }
    // (1, 2, 3) is mapped to (8, 21, 33), and that to (10 - 21, 20 + 8, 30 + 33).
    expectVector(skin.getMesh().getVertices().first(), -11.0F, 28.0F, 63.0F);
}

TEST(PlacedSurfaces, PlacementIsReplacedAndTheMeshStays)
{
    dataobject::SurgicalTemplate3D surface;
    surface.setMesh(geometry::Mesh({{1.0F, 2.0F, 3.0F}}, {}));
    test::ChangeCounter counter;
    surface.attach(&counter);
    EXPECT_TRUE(surface.getObjectTransform().isIdentity());
    surface.setObjectTransform(quarterTurnAndShift());
    surface.setObjectTransform(quarterTurnAndShift());
    surface.refresh();
    EXPECT_EQ(surface.getObjectTransform(), quarterTurnAndShift());
    expectVector(surface.getMesh().getVertices().first(), 1.0F, 2.0F, 3.0F);
    expectVector(surface.getSceneBoundingBox().min(), 8.0F, 21.0F, 33.0F);
    EXPECT_EQ(counter.changes, 3);
}

TEST(PlacedSurfaces, ANewMeshReplacesTheFormer)
{
    VirtualTooth tooth;
    tooth.setObjectTransform(quarterTurnAndShift());
    tooth.setMesh(geometry::Mesh({{0.0F, 0.0F, 0.0F}}, {}));
    EXPECT_EQ(tooth.getObjectTransform(), quarterTurnAndShift());
}

} // namespace
