// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/transforms/Trelo3DProtocolTransformations.h>

// Covered: the target point for either jaw, the matrix that takes the scan there, and the calls
// that the host sees when a scan is placed.

#include <CoreAlgorithms/model/dataobjects/SurfaceScans.h>
#include <CoreAlgorithms/transforms/SurfaceScanTransformations.h>

#include <tests/support/ScanBuilders.h>

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

struct Trelo3DProtocolTransformationsTestAccess
{
    using Protocol = Trelo3DProtocolTransformations;

    static QMatrix4x4 matrix(const SurfaceScan* scan, JawType jaw, const QVector3D& a,
                             const QVector3D& b, const QVector3D& c, const QMatrix4x4& initial)
    {
        return Protocol::calculateInitialTransform(scan, jaw, a, b, c, initial);
    }
    static QVector3D target(const SurfaceScan* scan, JawType jaw, const QVector3D& a,
                            const QVector3D& b, const QVector3D& c)
    {
        return Protocol::toTargetPosition(scan, jaw, a, b, c);
    }
    static void applyInitial(SurfaceScan* scan, const QMatrix4x4& matrix)
    {
        Protocol::applyInitialTransform(scan, matrix);
    }
    static void applyFreehand(SurfaceScan* scan, const QMatrix4x4& matrix)
    {
        Protocol::applyFreehandAlignmentTransform(scan, matrix);
    }
};

namespace {

using test::translation;
using Access = Trelo3DProtocolTransformationsTestAccess;
using Protocol = Trelo3DProtocolTransformations;
using RecordingScan = test::Recording<SurfaceScan>;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

static_assert(!std::is_default_constructible_v<Protocol> && !std::is_destructible_v<Protocol>,
              "never instantiated");
static_assert(std::is_copy_assignable_v<Protocol>);
static_assert(std::is_same_v<decltype(Protocol::INITIAL_HEIGHT_OFFSET_MARGIN_LOWER), const float>);
static_assert(Protocol::INITIAL_HEIGHT_OFFSET_MARGIN_LOWER == 3.0F &&
              Protocol::INITIAL_HEIGHT_OFFSET_MARGIN_UPPER == 1.0F);

// The middle of these is x = 50 (of b alone), y = (10 + 30) / 2 = 20 (of a and c),
// z = (60 + 66 + 72) / 3 = 66.
const QVector3D kA(1.0F, 10.0F, 60.0F);
const QVector3D kB(50.0F, 99.0F, 66.0F);
const QVector3D kC(2.0F, 30.0F, 72.0F);

// Center of mass (4, 5, 3), highest 5 above it, lowest 3 below it.
template <typename Scan>
void giveMesh(Scan& scan)
{
    scan.setMesh(geometry::Mesh({{3.0F, 5.0F, 1.0F}, {4.0F, 4.0F, 8.0F}, {5.0F, 6.0F, 0.0F}}, {}));
}

void expectPoint(const QVector3D& point, const QVector3D& expected)
{
    EXPECT_TRUE(point.x() == expected.x() && point.y() == expected.y() && point.z() == expected.z())
        << "(" << point.x() << ", " << point.y() << ", " << point.z() << ") is not ("
        << expected.x() << ", " << expected.y() << ", " << expected.z() << ")";
}

// 10 / 3 is 3.33333325; 10 times a third is 3.33333349.
TEST(Trelo3DProtocolTransformations, HeightOfTheLandmarksIsTheirSumDividedByThree)
{
    const QVector3D target =
        Access::target(nullptr, NoJaw, {0.0F, 0.0F, 1.0F}, {0.0F, 0.0F, 2.0F}, {0.0F, 0.0F, 7.0F});
    EXPECT_EQ(target.z(), 3.33333325F);
}

// 1e8 + 3 rounds to 1e8.
TEST(Trelo3DProtocolTransformations, HeightsOfTheLandmarksAreAddedInTheirOrderInSinglePrecision)
{
    const QVector3D far(0.0F, 0.0F, 1e8F);
    const QVector3D near(0.0F, 0.0F, 3.0F);
    EXPECT_EQ(Access::target(nullptr, NoJaw, far, -far, near).z(), 1.0F);
    EXPECT_EQ(Access::target(nullptr, NoJaw, far, near, -far).z(), 0.0F);
    EXPECT_EQ(Access::target(nullptr, NoJaw, near, far, -far).z(), 0.0F);
}

TEST(Trelo3DProtocolTransformations,
     LowerJawMovesFiveMillimetersAlongYAndClearsThePlaneByThreeBelow)
{
    SurfaceScan scan;
    giveMesh(scan);
    expectPoint(Access::target(&scan, LowerJaw, kA, kB, kC), {50.0F, 25.0F, 66.0F - 5.0F - 3.0F});
}

TEST(Trelo3DProtocolTransformations, UpperJawClearsThePlaneByOneAbove)
{
    SurfaceScan scan;
    giveMesh(scan);
    expectPoint(Access::target(&scan, UpperJaw, kA, kB, kC), {50.0F, 20.0F, 66.0F + 3.0F + 1.0F});
}

TEST(Trelo3DProtocolTransformations, AnyOtherJawMovesToThePlainCenterOfTheLandmarks)
{
    SurfaceScan scan;
    giveMesh(scan);
    for (const int jaw : {0, 3, -1, 7})
        expectPoint(Access::target(&scan, static_cast<JawType>(jaw), kA, kB, kC),
                    {50.0F, 20.0F, 66.0F});
}

TEST(Trelo3DProtocolTransformations, MatrixTakesTheCenterOfMassAsPlacedByInitialToTheTarget)
{
    SurfaceScan scan;
    giveMesh(scan);
    // the center (4, 5, 3) is placed at (-5, 4, 3)
    const QMatrix4x4 matrix =
        Access::matrix(&scan, LowerJaw, kA, kB, kC, test::quarterTurnAboutZ());
    expectPoint(matrix.map(QVector3D(-5.0F, 4.0F, 3.0F)), {50.0F, 25.0F, 58.0F});
    // and is a mere translation
    expectPoint(matrix.map(QVector3D()), {55.0F, 21.0F, 55.0F});
}

TEST(Trelo3DProtocolTransformations, PlacingStoresBothMatricesAndMovesTheMeshByOneAfterTheOther)
{
    RecordingScan scan;
    giveMesh(scan);
    Protocol::calculateAndApplyInitialSurfaceScanTransformation(&scan, UpperJaw, kA, kB, kC,
                                                                test::quarterTurnAboutZ());
    EXPECT_EQ(scan.getInitialTransform(), test::quarterTurnAboutZ());
    EXPECT_EQ(scan.getFreehandTransform(), translation(55.0F, 16.0F, 67.0F));
    EXPECT_EQ(scan.moves,
              QList<QMatrix4x4>({test::quarterTurnAboutZ(), translation(55.0F, 16.0F, 67.0F)}));
    expectPoint(scan.getMesh().getVertices()[1], {-4.0F + 55.0F, 4.0F + 16.0F, 8.0F + 67.0F});
    expectPoint(scan.getCenterOfMass(), {50.0F, 20.0F, 70.0F});
    const QStringList move{"startEditing", "setObjectTransform", "refresh", "stopEditing"};
    EXPECT_EQ(scan.calls, QStringList{"setInitialTransform"} + move +
                              QStringList{"setFreehandTransform"} + move);
    EXPECT_FALSE(scan.isFreehandAligned());
}

TEST(Trelo3DProtocolTransformations, PlacedScanIsAtItsFreehandTotal)
{
    SurfaceScan scan;
    giveMesh(scan);
    const QVector3D raw = scan.getMesh().getVertices().first();
    Protocol::calculateAndApplyInitialSurfaceScanTransformation(&scan, LowerJaw, kA, kB, kC,
                                                                test::quarterTurnAboutX());
    expectPoint(scan.getMesh().getVertices().first(),
                SurfaceScanTransformations::getTotalFreehandTransform(&scan, {}).map(raw));
}

TEST(Trelo3DProtocolTransformations, SingleStepsStoreTheirMatrixAndMoveTheScan)
{
    RecordingScan scan;
    giveMesh(scan);
    Access::applyInitial(&scan, translation(1.0F, 0.0F, 0.0F));
    EXPECT_EQ(scan.getInitialTransform(), translation(1.0F, 0.0F, 0.0F));
    EXPECT_TRUE(scan.getFreehandTransform().isIdentity());
    expectPoint(scan.getMesh().getVertices().first(), {4.0F, 5.0F, 1.0F});
    Access::applyFreehand(&scan, translation(0.0F, 1.0F, 0.0F));
    EXPECT_EQ(scan.getInitialTransform(), translation(1.0F, 0.0F, 0.0F));
    EXPECT_EQ(scan.getFreehandTransform(), translation(0.0F, 1.0F, 0.0F));
    expectPoint(scan.getMesh().getVertices().first(), {4.0F, 6.0F, 1.0F});
}

TEST(Trelo3DProtocolTransformations, BracketIsClosedIfTheHostThrows)
{
    RecordingScan scan;
    giveMesh(scan);
    scan.throwing = true;
    EXPECT_THROW(Protocol::calculateAndApplyInitialSurfaceScanTransformation(&scan, UpperJaw, kA,
                                                                             kB, kC, {}),
                 std::runtime_error);
    EXPECT_EQ(scan.calls.last(), QStringLiteral("stopEditing"));
    EXPECT_FALSE(scan.isEditing());
}

TEST(Trelo3DProtocolTransformations, NullScanIsSkipped)
{
    Protocol::calculateAndApplyInitialSurfaceScanTransformation(nullptr, LowerJaw, kA, kB, kC, {});
    EXPECT_TRUE(Access::matrix(nullptr, LowerJaw, kA, kB, kC, {}).isIdentity());
    expectPoint(Access::target(nullptr, LowerJaw, kA, kB, kC), {50.0F, 25.0F, 66.0F});
}

TEST(Trelo3DProtocolTransformations, NothingIsDoneIfALandmarkOrTheInitialMatrixIsNotFinite)
{
    RecordingScan scan;
    giveMesh(scan);
    Protocol::calculateAndApplyInitialSurfaceScanTransformation(&scan, LowerJaw, kA,
                                                                {kNan, 0.0F, 0.0F}, kC, {});
    Protocol::calculateAndApplyInitialSurfaceScanTransformation(&scan, LowerJaw, kA, kB, kC,
                                                                translation(0.0F, kNan, 0.0F));
    EXPECT_TRUE(scan.calls.isEmpty());
    EXPECT_TRUE(scan.getFreehandTransform().isIdentity());
    expectPoint(scan.getMesh().getVertices().first(), {3.0F, 5.0F, 1.0F});
}

// 66 - (3.4028235e38 + 3), in single precision.
TEST(Trelo3DProtocolTransformations, TargetOfAScanWithoutVerticesIsTheLowestFloatAway)
{
    const SurfaceScan scan;
    expectPoint(Access::target(&scan, LowerJaw, kA, kB, kC), {50.0F, 25.0F, -3.4028235e38F});
}

} // namespace
