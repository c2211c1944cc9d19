// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/transforms/SurfaceScanTransformations.h>

// Covered: the totals of an alignment, the changes between its states with the calls that the host
// sees, random walks through the states, and the height of a surface beyond its center.

#include <CoreAlgorithms/model/dataobjects/SurfaceScans.h>
#include <CoreAlgorithms/model/math/Operations.h>

#include <tests/support/ResliceBuilders.h>
#include <tests/support/ScanBuilders.h>

#include <Eigen/LU>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <type_traits>

namespace {

using test::quarterTurnAboutX;
using test::quarterTurnAboutZ;
using test::RandomGeometry;
using test::translation;
using RecordingScan = test::Recording<SurfaceScan>;
using Operations = SurfaceScanTransformations;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

static_assert(!std::is_default_constructible_v<Operations> && !std::is_destructible_v<Operations>,
              "never instantiated");
static_assert(std::is_copy_assignable_v<Operations>);

// I maps the raw point (2, 3, 4) to (3, 3, 4), F that to (-3, 3, 4), and P^-1 to (-3, -7, 4). From
// there, M leads to (-3, -4, -7), or G to (-3, -7, 9) and M to (-3, -9, -7). All exact.
const QVector3D kRaw(2.0F, 3.0F, 4.0F);
const QVector3D kAtInitial(3.0F, 3.0F, 4.0F);
const QVector3D kAtFreehand(-3.0F, -4.0F, -7.0F);
const QVector3D kAtRegistration(-3.0F, -9.0F, -7.0F);
const QMatrix4x4 kPlanning = quarterTurnAboutX();

SurfaceScanAlignment anAlignment(bool freehandAligned)
{
    return {translation(1.0F, 0.0F, 0.0F), quarterTurnAboutZ(), translation(0.0F, 0.0F, 5.0F),
            translation(0.0F, 10.0F, 0.0F), freehandAligned};
}

// A scan of one vertex with that alignment.
template <typename Scan>
void prepare(Scan& scan, const QVector3D& vertex, bool freehandAligned)
{
    scan.SurfaceScan::setSurfaceScanAlignment(anAlignment(freehandAligned));
    scan.setMesh(geometry::Mesh({vertex}, {}));
}

void expectPoint(const QVector3D& point, const QVector3D& expected)
{
    EXPECT_TRUE(point.x() == expected.x() && point.y() == expected.y() && point.z() == expected.z())
        << "(" << point.x() << ", " << point.y() << ", " << point.z() << ") is not ("
        << expected.x() << ", " << expected.y() << ", " << expected.z() << ")";
}

void expectMatrix(const QMatrix4x4& matrix, const QMatrix4x4& expected)
{
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            EXPECT_EQ(matrix(row, column), expected(row, column))
                << "row " << row << ", column " << column;
    }
}

QVector3D vertexOf(const SurfaceScan& scan)
{
    return scan.getMesh().getVertices().first();
}

const QStringList kMove{"startEditing", "setObjectTransform", "refresh", "stopEditing"};

// ---- totals

TEST(SurfaceScanTransformations, FreehandTotalTakesAPointThroughInitialFreehandReferenceAndPlanning)
{
    expectPoint(Operations::getTotalFreehandTransform(anAlignment(true), kPlanning).map(kRaw),
                kAtFreehand);
}

TEST(SurfaceScanTransformations, RegistrationTotalAppliesTheRegistrationAfterTheReferenceIsTakenOut)
{
    expectPoint(Operations::getTotalRegistrationTransform(anAlignment(true), kPlanning).map(kRaw),
                kAtRegistration);
}

TEST(SurfaceScanTransformations, TotalIsDecidedByTheFlag)
{
    expectPoint(Operations::getTotalTransform(anAlignment(true), kPlanning).map(kRaw), kAtFreehand);
    expectPoint(Operations::getTotalTransform(anAlignment(false), kPlanning).map(kRaw),
                kAtRegistration);
}

TEST(SurfaceScanTransformations, TotalsOfASurfaceAreThoseOfItsGetters)
{
    SurfaceScan scan;
    scan.setSurfaceScanAlignment(anAlignment(true));
    expectPoint(Operations::getTotalFreehandTransform(&scan, kPlanning).map(kRaw), kAtFreehand);
    expectPoint(Operations::getTotalRegistrationTransform(&scan, kPlanning).map(kRaw),
                kAtRegistration);
    expectPoint(Operations::getTotalTransform(&scan, kPlanning).map(kRaw), kAtFreehand);
    scan.setFreehandAligned(false);
    expectPoint(Operations::getTotalTransform(&scan, kPlanning).map(kRaw), kAtRegistration);
}

TEST(SurfaceScanTransformations,
     UnplacedScanHasTheIdentityAsRegistrationTotalWhateverPlanningIsByDesign)
{
    SurfaceScanAlignment untouched;
    untouched.referenceTransform = translation(0.0F, 10.0F, 0.0F);
    expectMatrix(
        Operations::getTotalRegistrationTransform(untouched, translation(7.0F, 0.0F, 0.0F)), {});
    expectMatrix(Operations::getTotalTransform(untouched, translation(7.0F, 0.0F, 0.0F)), {});
    // M * P^-1
    expectMatrix(Operations::getTotalFreehandTransform(untouched, translation(7.0F, 0.0F, 0.0F)),
                 translation(7.0F, -10.0F, 0.0F));
}

TEST(SurfaceScanTransformations,
     RegistrationTotalIsNotTheIdentityOnceInitialFreehandOrRegistrationIsSet)
{
    const QMatrix4x4 planning = translation(7.0F, 0.0F, 0.0F);
    SurfaceScanAlignment alignment;
    alignment.initialTransform = translation(0.0F, 1.0F, 0.0F);
    expectMatrix(Operations::getTotalRegistrationTransform(alignment, planning),
                 translation(7.0F, 1.0F, 0.0F));
    alignment = {};
    alignment.freehandTransform = translation(0.0F, 2.0F, 0.0F);
    expectMatrix(Operations::getTotalRegistrationTransform(alignment, planning),
                 translation(7.0F, 2.0F, 0.0F));
    alignment = {};
    alignment.registrationTransform = translation(0.0F, 3.0F, 0.0F);
    expectMatrix(Operations::getTotalRegistrationTransform(alignment, planning),
                 translation(7.0F, 3.0F, 0.0F));
}

// The sum of 1e8, -1e8 and 1 is 1 only from the left: -1e8 + 1 rounds to -1e8.
TEST(SurfaceScanTransformations, ProductsAssociateFromTheLeft)
{
    const QMatrix4x4 large = translation(1e8F, 0.0F, 0.0F);
    const QMatrix4x4 opposite = translation(-1e8F, 0.0F, 0.0F);
    const QMatrix4x4 one = translation(1.0F, 0.0F, 0.0F);

    SurfaceScanAlignment alignment; // (M * P^-1) * F
    alignment.referenceTransform = large;
    alignment.freehandTransform = one;
    expectMatrix(Operations::getTotalFreehandTransform(alignment, large), one);
    alignment = {}; // (M * F) * I
    alignment.freehandTransform = opposite;
    alignment.initialTransform = one;
    expectMatrix(Operations::getTotalFreehandTransform(alignment, large), one);
    expectMatrix(Operations::getTotalRegistrationTransform(alignment, large), one);
    alignment = {}; // (M * G) * F
    alignment.registrationTransform = opposite;
    alignment.freehandTransform = one;
    expectMatrix(Operations::getTotalRegistrationTransform(alignment, large), one);
}

TEST(SurfaceScanTransformations, ReferenceWithoutInverseIsInvertedToTheIdentity)
{
    SurfaceScanAlignment alignment = anAlignment(true);
    alignment.referenceTransform.fill(0.0F);
    // (3, 3, 4), (-3, 3, 4), by M to (-3, -4, 3)
    expectPoint(Operations::getTotalFreehandTransform(alignment, kPlanning).map(kRaw),
                QVector3D(-3.0F, -4.0F, 3.0F));
}

// ---- moves, one state to another

struct Change
{
    const char* name;
    void (*apply)(AlignableSurface*, const QMatrix4x4&);
    bool flagBefore;
    QVector3D from;
    QVector3D to;
    QStringList calls;
};

void PrintTo(const Change& change, std::ostream* out)
{
    *out << change.name;
}

class ChangeOfState : public testing::TestWithParam<Change>
{};

const QStringList kThenFreehand = kMove + QStringList{"setFreehandAligned(true)"};
const QStringList kThenNotFreehand = kMove + QStringList{"setFreehandAligned(false)"};

INSTANTIATE_TEST_SUITE_P(
    SurfaceScanTransformations, ChangeOfState,
    testing::Values(Change{"RawToFreehand", &Operations::applyTotalFreehandTransform, false, kRaw,
                           kAtFreehand, kThenFreehand},
                    Change{"RawToRegistration", &Operations::applyTotalRegistratedTransform, true,
                           kRaw, kAtRegistration, kThenNotFreehand},
                    Change{"FreehandToRaw", &Operations::removeTotalFreehandOrRegistrated, true,
                           kAtFreehand, kRaw, kThenNotFreehand},
                    Change{"RegistrationToRaw", &Operations::removeTotalFreehandOrRegistrated,
                           false, kAtRegistration, kRaw, kThenNotFreehand},
                    Change{"InitialToFreehand", &Operations::initialToFreehand, false, kAtInitial,
                           kAtFreehand, kThenFreehand},
                    Change{"InitialToFreehandHasNoGuard", &Operations::initialToFreehand, true,
                           kAtInitial, kAtFreehand, kThenFreehand},
                    Change{"InitialToRegistrationLeavesTheFlagSetByDesign",
                           &Operations::initialToRegistrated, true, kAtInitial, kAtRegistration,
                           kMove},
                    Change{"InitialToRegistrationLeavesTheFlagClearedByDesign",
                           &Operations::initialToRegistrated, false, kAtInitial, kAtRegistration,
                           kMove},
                    Change{"FreehandToRegistration", &Operations::freehandToRegistration, true,
                           kAtFreehand, kAtRegistration, kThenNotFreehand},
                    Change{"FreehandToRegistrationDoesNothingToARegisteredOne",
                           &Operations::freehandToRegistration,
                           false,
                           kAtRegistration,
                           kAtRegistration,
                           {}},
                    Change{"RegistrationToFreehand", &Operations::registratedToFreehand, false,
                           kAtRegistration, kAtFreehand, kThenFreehand},
                    Change{"RegistrationToFreehandDoesNothingToAFreehandOne",
                           &Operations::registratedToFreehand,
                           true,
                           kAtFreehand,
                           kAtFreehand,
                           {}},
                    Change{"FreehandToInitialClearsTheFlagFirstByDesign",
                           &Operations::freehandOrRegistratedToInitial, true, kAtFreehand,
                           kAtInitial, QStringList{"setFreehandAligned(false)"} + kMove},
                    Change{"RegistrationToInitialClearsTheFlagFirstByDesign",
                           &Operations::freehandOrRegistratedToInitial, false, kAtRegistration,
                           kAtInitial, QStringList{"setFreehandAligned(false)"} + kMove}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_P(ChangeOfState, MovesTheMeshAndCallsTheHostInOrder)
{
    RecordingScan scan;
    prepare(scan, GetParam().from, GetParam().flagBefore);
    GetParam().apply(&scan, kPlanning);
    expectPoint(vertexOf(scan), GetParam().to);
    EXPECT_EQ(scan.calls, GetParam().calls);
    EXPECT_FALSE(scan.isEditing());
}

TEST_P(ChangeOfState, DoesNothingToANullSurface)
{
    GetParam().apply(nullptr, kPlanning);
}

TEST_P(ChangeOfState, WithoutAModelSetsTheFlagAlone)
{
    test::WithoutModel<RecordingScan> scan;
    prepare(scan, GetParam().from, GetParam().flagBefore);
    GetParam().apply(&scan, kPlanning);
    expectPoint(vertexOf(scan), GetParam().from);
    EXPECT_EQ(scan.calls, GetParam().calls.filter(QStringLiteral("setFreehandAligned")));
}

TEST_P(ChangeOfState, ClosesTheBracketAndPassesTheExceptionIfTheHostThrows)
{
    RecordingScan scan;
    prepare(scan, GetParam().from, GetParam().flagBefore);
    scan.throwing = true;
    if (GetParam().calls.isEmpty()) {
        EXPECT_NO_THROW(GetParam().apply(&scan, kPlanning));
        return;
    }
    EXPECT_THROW(GetParam().apply(&scan, kPlanning), std::runtime_error);
    EXPECT_EQ(scan.calls.last(), QStringLiteral("stopEditing"));
    EXPECT_FALSE(scan.isEditing());
}

TEST_P(ChangeOfState, ByAMatrixThatIsNotFiniteChangesNeitherTheMeshNorTheFlag)
{
    for (const float odd : {kNan, kInfinity}) {
        RecordingScan scan;
        prepare(scan, GetParam().from, GetParam().flagBefore);
        GetParam().apply(&scan, translation(odd, 0.0F, 0.0F));
        expectPoint(vertexOf(scan), GetParam().from);
        EXPECT_EQ(scan.getSurfaceScanAlignment(), anAlignment(GetParam().flagBefore));
        EXPECT_EQ(scan.calls, QStringList());
        // The next call finds the scan where it was.
        GetParam().apply(&scan, kPlanning);
        expectPoint(vertexOf(scan), GetParam().to);
    }
}

TEST_P(ChangeOfState, ByAMatrixThatIsNotFiniteLeavesTheFlagOfASurfaceWithoutAModel)
{
    test::WithoutModel<RecordingScan> scan;
    prepare(scan, GetParam().from, GetParam().flagBefore);
    GetParam().apply(&scan, translation(kNan, 0.0F, 0.0F));
    EXPECT_EQ(scan.calls, QStringList());
}

TEST(SurfaceScanTransformations, MoveNotifiesOnceAtTheEndOfTheBracket)
{
    class Counter : public patterns::Observer<DataObject, std::nullptr_t>
    {
    public:
        int changes = 0;

    private:
        void changedEvent(DataObject*) override { ++changes; }
    };
    SurfaceScan scan;
    prepare(scan, kRaw, false);
    Counter counter;
    scan.attach(&counter);
    Operations::applyTransform(&scan, kPlanning);
    EXPECT_EQ(counter.changes, 1);
}

TEST(SurfaceScanTransformations, MovesTheVerticesInPlaceWithoutACopyOfTheMesh)
{
    SurfaceScan scan;
    prepare(scan, kAtFreehand, true);
    Operations::freehandToRegistration(&scan, kPlanning); // from here on nobody shares the list
    const QVector3D* vertices = scan.getMesh().getVertices().constData();
    Operations::registratedToFreehand(&scan, kPlanning);
    Operations::setAlignment(&scan, anAlignment(false), kPlanning);
    EXPECT_EQ(scan.getMesh().getVertices().constData(), vertices);
}

TEST(SurfaceScanTransformations, ApplyTransformMovesRelativelyAndLeavesTheFlag)
{
    RecordingScan scan;
    prepare(scan, kRaw, true);
    Operations::applyTransform(&scan, quarterTurnAboutZ());
    Operations::applyTransform(&scan, translation(10.0F, 0.0F, 0.0F));
    expectPoint(vertexOf(scan), {7.0F, 2.0F, 4.0F});
    EXPECT_EQ(scan.calls, kMove + kMove);
    EXPECT_TRUE(scan.isFreehandAligned());
    Operations::applyTransform(nullptr, quarterTurnAboutZ());
}

// w is the first coordinate of a vertex. (0, 3, 4) is divided by 0, (2, 3, 4) by 2.
TEST(SurfaceScanTransformations,
     VertexThatAFiniteMatrixMapsToWZeroIsInfiniteOrNanPermanentlyByDesign)
{
    SurfaceScan scan;
    scan.setMesh(geometry::Mesh({{0.0F, 3.0F, 4.0F}, kRaw}, {}));
    QMatrix4x4 perspective;
    perspective.setRow(3, {1.0F, 0.0F, 0.0F, 0.0F});
    Operations::applyTransform(&scan, perspective);
    QVector3D lost = vertexOf(scan);
    EXPECT_TRUE(std::isnan(lost.x()));
    EXPECT_EQ(lost.y(), kInfinity);
    EXPECT_EQ(lost.z(), kInfinity);
    expectPoint(scan.getMesh().getVertices()[1], {1.0F, 1.5F, 2.0F});

    Operations::applyTransform(&scan, translation(1.0F, 1.0F, 1.0F));
    lost = vertexOf(scan);
    EXPECT_FALSE(std::isfinite(lost.x()) || std::isfinite(lost.y()) || std::isfinite(lost.z()));
    expectPoint(scan.getMesh().getVertices()[1], {2.0F, 2.5F, 3.0F});
}

TEST(SurfaceScanTransformations, IdentityRegistrationTotalIsStillAppliedAsAMove)
{
    RecordingScan scan;
    scan.setMesh(geometry::Mesh({kRaw}, {}));
    Operations::applyTotalRegistratedTransform(&scan, translation(7.0F, 0.0F, 0.0F));
    EXPECT_EQ(scan.calls, kThenNotFreehand);
    expectMatrix(scan.moves.first(), {});
    expectPoint(vertexOf(scan), kRaw);
}

// F has no inverse, nor has Tf: it is inverted to the identity, and the move is Tr itself.
// An algebraically reduced M * G * M^-1 would be another matrix.
TEST(SurfaceScanTransformations, RelativeMatricesUseTheInverseOfTheWholeTotal)
{
    RecordingScan scan;
    SurfaceScanAlignment alignment = anAlignment(true);
    alignment.freehandTransform.fill(0.0F);
    alignment.freehandTransform(3, 3) = 1.0F;
    scan.SurfaceScan::setSurfaceScanAlignment(alignment);
    Operations::freehandToRegistration(&scan, kPlanning);
    // all points to the origin, by P^-1 to (0, -10, 0), by G to (0, -10, 5), by M to (0, -5, -10)
    QMatrix4x4 expected;
    expected.fill(0.0F);
    expected(1, 3) = -5.0F;
    expected(2, 3) = -10.0F;
    expected(3, 3) = 1.0F;
    ASSERT_EQ(scan.moves.size(), 1);
    expectMatrix(scan.moves.first(), expected);
}

TEST(SurfaceScanTransformations, TotalsOfANullSurfaceAndTotalsThatAreNotFiniteAreTheIdentity)
{
    const AlignableSurface* nobody = nullptr;
    expectMatrix(Operations::getTotalFreehandTransform(nobody, kPlanning), {});
    expectMatrix(Operations::getTotalRegistrationTransform(nobody, kPlanning), {});
    expectMatrix(Operations::getTotalTransform(nobody, kPlanning), {});

    SurfaceScan scan;
    scan.setSurfaceScanAlignment(anAlignment(true));
    const QMatrix4x4 odd = translation(kNan, 0.0F, 0.0F);
    expectMatrix(Operations::getTotalFreehandTransform(anAlignment(true), odd), {});
    expectMatrix(Operations::getTotalRegistrationTransform(anAlignment(true), odd), {});
    expectMatrix(Operations::getTotalTransform(anAlignment(true), odd), {});
    expectMatrix(Operations::getTotalFreehandTransform(&scan, odd), {});
    expectMatrix(Operations::getTotalRegistrationTransform(&scan, odd), {});
    expectMatrix(Operations::getTotalTransform(&scan, odd), {});
}

// ---- setAlignment

TEST(SurfaceScanTransformations, SetAlignmentRefreshesFirstThenRemovesStoresAndAppliesByDesign)
{
    const QStringList toRaw =
        QStringList{"refresh"} + kThenNotFreehand + QStringList{"setSurfaceScanAlignment"};
    RecordingScan scan;
    prepare(scan, kAtFreehand, true);
    Operations::setAlignment(&scan, anAlignment(false), kPlanning);
    EXPECT_EQ(scan.calls, toRaw + kThenNotFreehand);
    expectPoint(vertexOf(scan), kAtRegistration);
    EXPECT_EQ(scan.getSurfaceScanAlignment(), anAlignment(false));

    scan.calls.clear();
    Operations::setAlignment(&scan, anAlignment(true), kPlanning);
    EXPECT_EQ(scan.calls, toRaw + kThenFreehand);
    expectPoint(vertexOf(scan), kAtFreehand);
    EXPECT_EQ(scan.getSurfaceScanAlignment(), anAlignment(true));
}

TEST(SurfaceScanTransformations, SetAlignmentWithTheStoredOneLeavesTheMesh)
{
    for (const bool freehandAligned : {true, false}) {
        SurfaceScan scan;
        const QVector3D place = freehandAligned ? kAtFreehand : kAtRegistration;
        prepare(scan, place, freehandAligned);
        Operations::setAlignment(&scan, anAlignment(freehandAligned), kPlanning);
        expectPoint(vertexOf(scan), place);
        EXPECT_EQ(scan.getSurfaceScanAlignment(), anAlignment(freehandAligned));
    }
}

// The record that the surface hands out loses its flag when the mesh goes back to the raw scan.
TEST(SurfaceScanTransformations, SetAlignmentTakesTheSurfacesOwnRecord)
{
    for (const bool freehandAligned : {true, false}) {
        SurfaceScan scan;
        const QVector3D place = freehandAligned ? kAtFreehand : kAtRegistration;
        prepare(scan, place, freehandAligned);
        Operations::setAlignment(&scan, scan.getSurfaceScanAlignment(), kPlanning);
        expectPoint(vertexOf(scan), place);
        EXPECT_EQ(scan.getSurfaceScanAlignment(), anAlignment(freehandAligned));
    }
}

// The reference of the old record is P, a shift along y by 10, and the planning transform of both
// moves although the new record has another one. I, F and M * P^-1 with the new P, a shift along x
// by 1, take (2, 3, 4) to (3, 3, 4), (-3, 3, 4) and (-4, 13, 4).
TEST(SurfaceScanTransformations, SetAlignmentTakesAMatrixOfTheSurfacesOwnRecordAsPlanningTransform)
{
    SurfaceScan scan;
    prepare(scan, {-3.0F, 3.0F, 4.0F}, true); // M * P^-1 * F * I with M = P
    SurfaceScanAlignment next = anAlignment(true);
    next.referenceTransform = translation(1.0F, 0.0F, 0.0F);
    Operations::setAlignment(&scan, next, scan.getSurfaceScanAlignment().referenceTransform);
    expectPoint(vertexOf(scan), {-4.0F, 13.0F, 4.0F});
}

TEST(SurfaceScanTransformations, SetAlignmentOfASurfaceWithoutAModelStoresItAndItsFlag)
{
    test::WithoutModel<RecordingScan> scan;
    Operations::setAlignment(&scan, anAlignment(true), kPlanning);
    EXPECT_EQ(scan.getSurfaceScanAlignment(), anAlignment(true));
    EXPECT_EQ(scan.calls, QStringList({"setFreehandAligned(false)", "setSurfaceScanAlignment",
                                       "setFreehandAligned(true)"}));
    Operations::setAlignment(nullptr, anAlignment(true), kPlanning);
}

// Both moves of setAlignment() must be finite before it begins, or the mesh would make only one of
// them.
TEST(SurfaceScanTransformations, SetAlignmentChangesNothingIfEitherOfItsMovesIsNotFinite)
{
    const QMatrix4x4 odd = translation(kNan, 0.0F, 0.0F);
    const auto expectUnchanged = [](const SurfaceScanAlignment& stored,
                                    const SurfaceScanAlignment& next, const QMatrix4x4& planning) {
        RecordingScan scan;
        scan.setMesh(geometry::Mesh({kRaw}, {}));
        scan.SurfaceScan::setSurfaceScanAlignment(stored);
        Operations::setAlignment(&scan, next, planning);
        EXPECT_EQ(scan.calls, QStringList()) << "not even refreshed";
        expectPoint(vertexOf(scan), kRaw);
        EXPECT_EQ(scan.isFreehandAligned(), stored.freehandAligned);
    };
    for (const bool freehandAligned : {true, false}) {
        const SurfaceScanAlignment good = anAlignment(freehandAligned);
        SurfaceScanAlignment bad = good;
        bad.freehandTransform = odd;
        {
            SCOPED_TRACE("planning transform");
            expectUnchanged(anAlignment(!freehandAligned), good, odd);
            expectUnchanged(anAlignment(!freehandAligned), good,
                            translation(0.0F, kInfinity, 0.0F));
        }
        {
            SCOPED_TRACE("new record");
            expectUnchanged(good, bad, kPlanning);
            expectUnchanged(anAlignment(!freehandAligned), bad, kPlanning);
        }
        {
            SCOPED_TRACE("stored record");
            expectUnchanged(bad, good, kPlanning);
            expectUnchanged(bad, anAlignment(!freehandAligned), kPlanning);
        }
    }
}

// The registration of a freehand-aligned record is in neither move.
TEST(SurfaceScanTransformations,
     SetAlignmentStoresAMatrixThatIsNotFiniteIfItsTotalInForceDoesNotUseItByDesign)
{
    SurfaceScan scan;
    prepare(scan, kAtFreehand, true);
    SurfaceScanAlignment next = anAlignment(true);
    next.registrationTransform = translation(kNan, 0.0F, 0.0F);
    Operations::setAlignment(&scan, next, kPlanning);
    expectPoint(vertexOf(scan), kAtFreehand);
    EXPECT_TRUE(std::isnan(scan.getRegistrationTransform()(0, 3)));
    // The conversion that does use it changes nothing.
    Operations::freehandToRegistration(&scan, kPlanning);
    expectPoint(vertexOf(scan), kAtFreehand);
    EXPECT_TRUE(scan.isFreehandAligned());
}

// ---- laws

using Matrix = Eigen::Matrix4d;

Matrix toDouble(const QMatrix4x4& matrix)
{
    Matrix result;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            result(row, column) = double(matrix(row, column));
    }
    return result;
}

// A scan on a walk through its states, and the placement of its state in double precision.
class Walk
{
public:
    explicit Walk(RandomGeometry& source) : random(source), planning(source.rigidPlacement())
    {
        for (int i = 0; i < 8; ++i)
            raw.append(random.point(40.0F));
        scan.setMesh(geometry::Mesh(raw, {}));
        scan.setSurfaceScanAlignment(test::randomAlignment(random, false));
    }

    void step()
    {
        const bool first = random.number(0.0F, 1.0F) < 0.5F;
        const bool newAlignment = random.number(0.0F, 1.0F) < 0.2F;
        switch (state) {
        case Raw:
            if (first)
                go(&Operations::applyTotalFreehandTransform, Freehand);
            else
                go(&Operations::applyTotalRegistratedTransform, Registration);
            break;
        case Initial:
            if (first)
                go(&Operations::initialToFreehand, Freehand);
            else
                go(&Operations::initialToRegistrated, Registration);
            break;
        default:
            if (newAlignment) {
                const SurfaceScanAlignment alignment = test::randomAlignment(random, first);
                Operations::setAlignment(&scan, alignment, planning);
                state = first ? Freehand : Registration;
            } else if (random.number(0.0F, 1.0F) < 0.3F) {
                go(&Operations::removeTotalFreehandOrRegistrated, Raw);
            } else if (first) {
                go(&Operations::freehandOrRegistratedToInitial, Initial);
            } else if (state == Freehand) {
                go(&Operations::freehandToRegistration, Registration);
            } else {
                go(&Operations::registratedToFreehand, Freehand);
            }
        }
    }

    // Largest distance of a vertex from where it belongs, in mm.
    double drift() const
    {
        double largest = 0.0;
        for (int i = 0; i < raw.size(); ++i) {
            const QVector3D& vertex = scan.getMesh().getVertices()[i];
            const Eigen::Vector4d expected =
                placement() *
                Eigen::Vector4d(double(raw[i].x()), double(raw[i].y()), double(raw[i].z()), 1.0);
            const Eigen::Vector3d actual(double(vertex.x()), double(vertex.y()),
                                         double(vertex.z()));
            largest = std::max(largest, (actual - expected.head<3>()).norm());
        }
        return largest;
    }

private:
    enum State { Raw, Initial, Freehand, Registration };

    void go(void (*change)(AlignableSurface*, const QMatrix4x4&), State next)
    {
        change(&scan, planning);
        state = next;
    }

    Matrix placement() const
    {
        const SurfaceScanAlignment& a = scan.getSurfaceScanAlignment();
        const Matrix toReference = toDouble(a.freehandTransform) * toDouble(a.initialTransform);
        const Matrix inReference = toDouble(a.referenceTransform).inverse() * toReference;
        switch (state) {
        case Raw:
            return Matrix::Identity();
        case Initial:
            return toDouble(a.initialTransform);
        case Freehand:
            return toDouble(planning) * inReference;
        default:
            return toDouble(planning) * toDouble(a.registrationTransform) * inReference;
        }
    }

    RandomGeometry& random;
    QMatrix4x4 planning;
    QList<QVector3D> raw;
    SurfaceScan scan;
    State state = Raw;
};

TEST(SurfaceScanTransformations, Law2MeshIsAtTheTotalOfItsStateAfterAThousandRandomWalks)
{
    constexpr unsigned seed = 61;
    RandomGeometry random(seed);
    double largest = 0.0;
    for (int walk = 0; walk < 1000; ++walk) {
        Walk scan(random);
        for (int step = 0; step < 50; ++step)
            scan.step();
        largest = std::max(largest, scan.drift());
    }
    RecordProperty("largest drift in mm", std::to_string(largest));
    EXPECT_LT(largest, 0.005) << "seed " << seed;
    EXPECT_GT(largest, 0.0) << "nothing was moved";
}

// The largest distance in mm of a vertex from where it was, over a thousand random scans.
double largestDistanceAfter(
    unsigned seed, const std::function<void(SurfaceScan& scan, const QMatrix4x4& planning)>& change)
{
    RandomGeometry random(seed);
    double largest = 0.0;
    for (int i = 0; i < 1000; ++i) {
        const SurfaceScanAlignment alignment = test::randomAlignment(random, i % 2 == 0);
        const QMatrix4x4 planning = random.rigidPlacement();
        SurfaceScan scan;
        scan.setMesh(geometry::Mesh({random.point(40.0F)}, {}));
        scan.setSurfaceScanAlignment(alignment);
        const QVector3D before = vertexOf(scan);
        change(scan, planning);
        largest = std::max(largest, double((vertexOf(scan) - before).length()));
    }
    return largest;
}

TEST(SurfaceScanTransformations, Law1FreehandToRegistrationAndBackAreInverseOnTheMesh)
{
    const double largest = largestDistanceAfter(62, [](SurfaceScan& scan, const QMatrix4x4& m) {
        if (scan.isFreehandAligned()) {
            Operations::freehandToRegistration(&scan, m);
            Operations::registratedToFreehand(&scan, m);
        } else {
            Operations::registratedToFreehand(&scan, m);
            Operations::freehandToRegistration(&scan, m);
        }
    });
    RecordProperty("largest distance in mm", std::to_string(largest));
    EXPECT_LT(largest, 0.005);
}

TEST(SurfaceScanTransformations, Law3SetAlignmentWithTheStoredOneLeavesTheMeshWhereItIs)
{
    const double largest = largestDistanceAfter(63, [](SurfaceScan& scan, const QMatrix4x4& m) {
        Operations::setAlignment(&scan, SurfaceScanAlignment(scan.getSurfaceScanAlignment()), m);
    });
    RecordProperty("largest distance in mm", std::to_string(largest));
    EXPECT_LT(largest, 0.005);
}

// ---- height beyond the center

SurfaceScan& withVertices(SurfaceScan& scan, const QList<QVector3D>& vertices)
{
    scan.setMesh(geometry::Mesh(vertices, {}));
    return scan;
}

TEST(SurfaceScanTransformations, HeightOffsetUpIsThatOfTheHighestVertexAboveTheCenterPlusMargin)
{
    SurfaceScan scan;
    withVertices(scan,
                 {{0.0F, 0.0F, 1.0F}, {5.0F, 0.0F, 8.0F}, {1.0F, 1.0F, 0.0F}}); // center z = 3
    EXPECT_EQ(Operations::computeInitialHeightOffset(&scan, {0.0F, 0.0F, 1.0F}, 3.0F), 8.0F);
}

TEST(SurfaceScanTransformations,
     HeightOffsetDownIsTheDepthOfTheLowestVertexBelowTheCenterPlusMargin)
{
    SurfaceScan scan;
    withVertices(scan,
                 {{0.0F, 0.0F, 1.0F}, {5.0F, 0.0F, 8.0F}, {1.0F, 1.0F, -3.0F}}); // center z = 2
    EXPECT_EQ(Operations::computeInitialHeightOffset(&scan, {0.0F, 0.0F, -1.0F}, 1.0F), 6.0F);
}

TEST(SurfaceScanTransformations, HeightOffsetAlongAnotherDirectionTurnsFromTheZAxisOntoIt)
{
    // The rotation takes z onto x, and so x onto -z: the height of a vertex is its -x. The center
    // is at x = 2.
    SurfaceScan scan;
    withVertices(scan, {{-1.0F, 0.0F, 0.0F}, {5.0F, 0.0F, 0.0F}});
    EXPECT_NEAR(Operations::computeInitialHeightOffset(&scan, {1.0F, 0.0F, 0.0F}, 0.5F), 3.5F,
                1e-5F);
}

TEST(SurfaceScanTransformations, HeightOffsetOfAnEmptyMeshIsThatOfTheLowestFloat)
{
    const SurfaceScan scan;
    EXPECT_EQ(Operations::computeInitialHeightOffset(&scan, {0.0F, 0.0F, 1.0F}, 3.0F),
              3.4028235e38F);
}

TEST(SurfaceScanTransformations, HeightOffsetWithoutSurfaceOrModelIsZero)
{
    const test::WithoutModel<SurfaceScan> scan;
    EXPECT_EQ(Operations::computeInitialHeightOffset(nullptr, {0.0F, 0.0F, 1.0F}, 3.0F), 0.0F);
    EXPECT_EQ(Operations::computeInitialHeightOffset(&scan, {0.0F, 0.0F, 1.0F}, 3.0F), 0.0F);
}

TEST(SurfaceScanTransformations, HeightOffsetIgnoresAVertexOfNan)
{
    class CenteredScan : public SurfaceScan
    {
    public:
        QVector3D getCenterOfMass() const override { return {0.0F, 0.0F, 1.0F}; }
    };
    CenteredScan scan;
    withVertices(scan, {{0.0F, 0.0F, kNan}, {0.0F, 0.0F, 4.0F}, {kNan, 0.0F, 9.0F}});
    EXPECT_EQ(Operations::computeInitialHeightOffset(&scan, {0.0F, 0.0F, 1.0F}, 0.0F), 3.0F);
}

// The plain loop over Qt's rotation.
float plainHeightOffset(const Surface3DModel& model, const QVector3D& direction, float margin)
{
    const QQuaternion q =
        math::Operations::getRotationTo({0.0F, 0.0F, 1.0F}, direction, {1.0F, 0.0F, 0.0F});
    float h = -3.4028235e38F;
    for (const QVector3D& vertex : model.getMesh().getVertices()) {
        const float z = q.rotatedVector(vertex).z();
        if (z > h)
            h = z;
    }
    return std::abs(h - q.rotatedVector(model.getCenterOfMass()).z()) + margin;
}

TEST(SurfaceScanTransformations, HeightOffsetHasTheBitsOfThePlainLoopOverQtsRotation)
{
    constexpr unsigned seed = 63;
    RandomGeometry random(seed);
    const auto sameBits = [](float a, float b) {
        return (std::isnan(a) && std::isnan(b)) ||
               std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
    };
    for (int round = 0; round < 2000; ++round) {
        QList<QVector3D> vertices;
        const int count = static_cast<int>(random.number(0.0F, 300.0F));
        const float reach = round % 10 == 0 ? 3e38F : round % 7 == 0 ? 1e-38F : 80.0F;
        for (int i = 0; i < count; ++i)
            vertices.append(random.point(reach));
        if (round % 5 == 0 && count > 3) {
            vertices[1].setX(kNan);
            vertices[2].setZ(kInfinity);
            vertices[3].setY(-kInfinity);
        }
        SurfaceScan scan;
        withVertices(scan, vertices);
        const QVector3D direction = round % 4 == 0   ? QVector3D(0.0F, 0.0F, 1.0F)
                                    : round % 4 == 1 ? QVector3D(0.0F, 0.0F, -1.0F)
                                                     : random.point(1.0F);
        const float expected = plainHeightOffset(scan, direction, 1.5F);
        const float actual = Operations::computeInitialHeightOffset(&scan, direction, 1.5F);
        ASSERT_TRUE(sameBits(actual, expected))
            << actual << " is not " << expected << ", seed " << seed << ", round " << round;
    }
}

TEST(SurfaceScanTransformations, HeightOffsetAlongNoDirectionIsTheHeightUp)
{
    SurfaceScan scan;
    withVertices(scan, {{0.0F, 0.0F, 1.0F}, {5.0F, 0.0F, 8.0F}, {1.0F, 1.0F, 0.0F}});
    for (const QVector3D& none :
         {QVector3D(), QVector3D(kNan, 0.0F, 0.0F), QVector3D(0.0F, kInfinity, 0.0F)})
        EXPECT_EQ(Operations::computeInitialHeightOffset(&scan, none, 3.0F), 8.0F);
}

} // namespace
