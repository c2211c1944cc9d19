// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/transforms/OcclusionTransformCalculator.h>

// Covered: the moves of whole jaws and of upper segments into a recorded bite, both ways, and what
// is missing in a bite.

#include <CoreAlgorithms/model/dataobjects/JawParts.h>
#include <CoreAlgorithms/model/dataobjects/Occlusions.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceScans.h>
#include <CoreAlgorithms/transforms/SurfaceScanTransformations.h>

#include <tests/support/ResliceBuilders.h>
#include <tests/support/ScanBuilders.h>

#include <gtest/gtest.h>

#include <QtGlobal>

#include <limits>
#include <type_traits>

struct OcclusionTransformCalculatorTestAccess
{
    static std::pair<QMatrix4x4, QMatrix4x4> registrations(OcclusionTransformCalculator& calculator)
    {
        const auto scans = calculator.getRegistrations();
        return {scans.maxilla, scans.mandibula};
    }
};

namespace {

using test::quarterTurnAboutX;
using test::quarterTurnAboutZ;
using test::translation;
using Calculator = OcclusionTransformCalculator;
using Matrices = std::map<QString, QMatrix4x4>;

const QString kMaxilla = QStringLiteral("Maxilla");
const QString kMandibula = QStringLiteral("Mandibula");
const QString kFront = QStringLiteral("FrontSegment");
const QString kLeft = QStringLiteral("LeftSegment");
const QString kRight = QStringLiteral("RightSegment");

static_assert(std::has_virtual_destructor_v<Calculator> &&
              std::is_copy_constructible_v<Calculator>);
static_assert(!std::is_default_constructible_v<Calculator>);

// The bite is copied and may be a temporary; the scans are kept by reference and may not.
template <typename Bite, typename MaxillaScan, typename MandibulaScan>
constexpr bool kAccepts =
    std::is_constructible_v<Calculator, Bite, MaxillaScan, MandibulaScan, QMatrix4x4>;
template <typename Bite>
constexpr bool kRefusesTemporaryScans =
    kAccepts<Bite, DentalScan&, const DentalScan&> && !kAccepts<Bite, DentalScan, DentalScan&> &&
    !kAccepts<Bite, const DentalScan, const DentalScan&> &&
    !kAccepts<Bite, DentalScan&, DentalScan> &&
    !kAccepts<Bite, const DentalScan&, const DentalScan> &&
    !kAccepts<Bite, DentalScan, DentalScan> && !kAccepts<Bite, const DentalScan, const DentalScan>;
static_assert(kRefusesTemporaryScans<const Occlusion&> && kRefusesTemporaryScans<Occlusion>);
static_assert(kRefusesTemporaryScans<const dataobject::VirtualOcclusion&> &&
              kRefusesTemporaryScans<dataobject::VirtualOcclusion>);

static_assert(Calculator::MandibulaToMaxilla == 0 && Calculator::MaxillaToMandibula == 1);

// The messages that are logged while it lives.
class Log
{
public:
    Log()
    {
        lines.clear();
        previous = qInstallMessageHandler(&Log::keep);
    }
    Log(const Log&) = delete;
    Log& operator=(const Log&) = delete;
    ~Log() { qInstallMessageHandler(previous); }

    static QStringList warnings() { return lines; }

private:
    static void keep(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text)
    {
        lines << (type == QtWarningMsg ? text : QStringLiteral("not a warning: ") + text);
    }

    inline static QStringList lines;
    QtMessageHandler previous;
};

const QString kNoReference =
    QStringLiteral("getUpperReferenceSegmentTypeId: reference segment not found");

// Matrices that no two orders of a product give the same image of a point: turns and shifts, all
// exact. The scans are freehand-aligned with the planning transform of the stored alignment, so
// that their totals are
//   Tmax: (x, y, z) to (10 - y, x, z)        Tmand: (x, y, z) to (x, 20 - z, y)
// and the bite is
//   upper: (x, y, z) to (x, -z, y + 1)       lower: (x, y, z) to (-y, x, z + 2)
class OcclusionTransformCalculatorTest : public testing::Test
{
protected:
    OcclusionTransformCalculatorTest()
    {
        SurfaceScanAlignment alignment;
        alignment.freehandAligned = true;
        alignment.referenceTransform = planning;
        alignment.initialTransform = quarterTurnAboutZ();
        alignment.freehandTransform = translation(10.0F, 0.0F, 0.0F);
        maxilla.setSurfaceScanAlignment(alignment);
        alignment.initialTransform = quarterTurnAboutX();
        alignment.freehandTransform = translation(0.0F, 20.0F, 0.0F);
        mandibula.setSurfaceScanAlignment(alignment);
    }

    Matrices calculate(const Matrices& bite, bool segmental, Calculator::TransformationType type)
    {
        Occlusion occlusion;
        occlusion.setTransformations(bite);
        occlusion.setSegmental(segmental);
        return Calculator(occlusion, maxilla, mandibula, planning).calculateTransformations(type);
    }

    const QMatrix4x4 planning = translation(0.0F, 0.0F, 7.0F);
    const QMatrix4x4 upper = translation(0.0F, 0.0F, 1.0F) * quarterTurnAboutX();
    const QMatrix4x4 lower = translation(0.0F, 0.0F, 2.0F) * quarterTurnAboutZ();
    const QMatrix4x4 left = translation(100.0F, 0.0F, 0.0F);
    const QMatrix4x4 right = translation(0.0F, 200.0F, 0.0F) * quarterTurnAboutZ();
    DentalScan maxilla;
    DentalScan mandibula;
};

QStringList keys(const Matrices& matrices)
{
    QStringList result;
    for (const auto& [key, matrix] : matrices)
        result << key;
    return result;
}

void expectImage(const QMatrix4x4& matrix, const QVector3D& point, const QVector3D& expected)
{
    const QVector3D image = matrix.map(point);
    EXPECT_TRUE(image.x() == expected.x() && image.y() == expected.y() && image.z() == expected.z())
        << "(" << image.x() << ", " << image.y() << ", " << image.z() << ") is not ("
        << expected.x() << ", " << expected.y() << ", " << expected.z() << ")";
}

TEST_F(OcclusionTransformCalculatorTest, RegistrationsAreTheCurrentTotalsOfTheScans)
{
    Calculator calculator(Occlusion(), maxilla, mandibula, planning);
    const auto [tmax, tmand] = OcclusionTransformCalculatorTestAccess::registrations(calculator);
    expectImage(tmax, {1.0F, 2.0F, 3.0F}, {8.0F, 1.0F, 3.0F});
    expectImage(tmand, {1.0F, 2.0F, 3.0F}, {1.0F, 17.0F, 2.0F});
}

// ---- whole jaws

TEST_F(OcclusionTransformCalculatorTest, LowerJawGoesOutOfItsScanIntoTheBiteAndToTheUpperScan)
{
    const Matrices moves =
        calculate({{kMaxilla, upper}, {kMandibula, lower}}, false, Calculator::MandibulaToMaxilla);
    EXPECT_EQ(keys(moves), QStringList{kMandibula});
    // (1, 2, 3) out of the lower scan: (1, 3, 18); lower bite: (-3, 1, 20); out of the upper bite,
    // (x, y, z) to (x, z - 1, -y): (-3, 19, -1); upper scan: (-9, -3, -1)
    expectImage(moves.at(kMandibula), {1.0F, 2.0F, 3.0F}, {-9.0F, -3.0F, -1.0F});
}

TEST_F(OcclusionTransformCalculatorTest, UpperJawGoesOutOfItsScanIntoTheBiteAndToTheLowerScan)
{
    const Matrices moves =
        calculate({{kMaxilla, upper}, {kMandibula, lower}}, false, Calculator::MaxillaToMandibula);
    EXPECT_EQ(keys(moves), QStringList{kMaxilla});
    // the way back of the test above
    expectImage(moves.at(kMaxilla), {-9.0F, -3.0F, -1.0F}, {1.0F, 2.0F, 3.0F});
}

TEST_F(OcclusionTransformCalculatorTest, WholeJawsNeedBothMatricesAndLogNothing)
{
    const Log log;
    for (const auto type : {Calculator::MandibulaToMaxilla, Calculator::MaxillaToMandibula}) {
        EXPECT_TRUE(calculate({}, false, type).empty());
        EXPECT_TRUE(calculate({{kMaxilla, upper}}, false, type).empty());
        EXPECT_TRUE(calculate({{kMandibula, lower}}, false, type).empty());
        EXPECT_TRUE(calculate({{kMandibula, lower}, {kFront, upper}}, false, type).empty());
    }
    EXPECT_TRUE(Log::warnings().isEmpty());
}

TEST_F(OcclusionTransformCalculatorTest, ValueOfSevenIsTakenAsMaxillaToMandibulaByDesign)
{
    EXPECT_EQ(keys(calculate({{kMaxilla, upper}, {kMandibula, lower}}, false,
                             static_cast<Calculator::TransformationType>(7))),
              QStringList{kMaxilla});
}

TEST_F(OcclusionTransformCalculatorTest, VirtualOcclusionGivesWhatAnOcclusionDoes)
{
    dataobject::VirtualOcclusion occlusion;
    occlusion.setTransformations({{kMandibula, lower}, {kFront, upper}});
    occlusion.setSegmental(true);
    Calculator calculator(occlusion, maxilla, mandibula, planning);
    EXPECT_EQ(keys(calculator.calculateTransformations(Calculator::MaxillaToMandibula)),
              QStringList{kFront});
}

TEST_F(OcclusionTransformCalculatorTest, BiteIsCopiedAtConstructionButScansAreReadLater)
{
    Occlusion occlusion;
    occlusion.setTransformations({{kMaxilla, QMatrix4x4()}, {kMandibula, QMatrix4x4()}});
    Calculator calculator(occlusion, maxilla, mandibula, {});
    occlusion.setTransformations({});
    occlusion.setSegmental(true);
    SurfaceScanAlignment alignment;
    alignment.initialTransform = translation(1.0F, 0.0F, 0.0F);
    maxilla.setSurfaceScanAlignment(alignment);
    mandibula.setSurfaceScanAlignment({});
    const Calculator copy(calculator);
    Calculator assigned(Occlusion(), mandibula, mandibula, planning);
    assigned = copy;
    for (Calculator* one : {&calculator, &assigned}) {
        const Matrices moves = one->calculateTransformations(Calculator::MandibulaToMaxilla);
        EXPECT_EQ(moves.at(kMandibula), translation(1.0F, 0.0F, 0.0F));
    }
}

// ---- segments

TEST_F(OcclusionTransformCalculatorTest,
       SegmentsAndLowerJawMoveToTheFrontSegmentWhichHasNoEntryByDesign)
{
    const Log log;
    const Matrices moves = calculate({{kFront, upper}, {kRight, right}, {kMandibula, lower}}, true,
                                     Calculator::MandibulaToMaxilla);
    EXPECT_EQ(keys(moves), QStringList({kMandibula, kRight}));
    // as for a whole upper jaw with the front segment's matrix
    expectImage(moves.at(kMandibula), {1.0F, 2.0F, 3.0F}, {-9.0F, -3.0F, -1.0F});
    // (8, 1, 3) out of the upper scan: (1, 2, 3); right bite: (-2, 201, 3); out of the front bite:
    // (-2, 2, -201); upper scan: (8, -2, -201)
    expectImage(moves.at(kRight), {8.0F, 1.0F, 3.0F}, {8.0F, -2.0F, -201.0F});
    EXPECT_TRUE(Log::warnings().isEmpty());
}

TEST_F(OcclusionTransformCalculatorTest, RightSegmentIsTheReferenceWithoutAFrontSegment)
{
    const Log log;
    const Matrices moves = calculate({{kLeft, left}, {kRight, right}, {kMandibula, lower}}, true,
                                     Calculator::MandibulaToMaxilla);
    EXPECT_EQ(keys(moves), QStringList({kLeft, kMandibula}));
    // (8, 1, 3) out of the upper scan: (1, 2, 3); left bite: (101, 2, 3); out of the right bite,
    // (x, y, z) to (y - 200, -x, z): (-198, -101, 3); upper scan: (111, -198, 3)
    expectImage(moves.at(kLeft), {8.0F, 1.0F, 3.0F}, {111.0F, -198.0F, 3.0F});
    EXPECT_TRUE(Log::warnings().isEmpty());
}

TEST_F(OcclusionTransformCalculatorTest, LeftSegmentAloneIsNoReferenceAndLogsOneWarningByDesign)
{
    const Log log;
    EXPECT_TRUE(
        calculate({{kLeft, left}, {kMandibula, lower}}, true, Calculator::MandibulaToMaxilla)
            .empty());
    EXPECT_EQ(Log::warnings(), QStringList{kNoReference});
}

TEST_F(OcclusionTransformCalculatorTest, LeftSegmentAloneMovesToTheLowerJawWithoutAWarning)
{
    const Log log;
    const Matrices moves =
        calculate({{kLeft, left}, {kMandibula, lower}}, true, Calculator::MaxillaToMandibula);
    EXPECT_EQ(keys(moves), QStringList{kLeft});
    // (8, 1, 3) out of the upper scan: (1, 2, 3); left bite: (101, 2, 3); out of the lower bite,
    // (x, y, z) to (y, -x, z - 2): (2, -101, 1); lower scan: (2, 19, -101)
    expectImage(moves.at(kLeft), {8.0F, 1.0F, 3.0F}, {2.0F, 19.0F, -101.0F});
    EXPECT_TRUE(Log::warnings().isEmpty());
}

TEST_F(OcclusionTransformCalculatorTest,
       AllUpperSegmentsMoveToTheLowerJawWithoutAnEntryForTheMaxilla)
{
    const Matrices moves = calculate(
        {{kFront, upper}, {kLeft, left}, {kRight, right}, {kMaxilla, upper}, {kMandibula, lower}},
        true, Calculator::MaxillaToMandibula);
    EXPECT_EQ(keys(moves), QStringList({kFront, kLeft, kRight}));
    expectImage(moves.at(kFront), {-9.0F, -3.0F, -1.0F}, {1.0F, 2.0F, 3.0F});
}

TEST_F(OcclusionTransformCalculatorTest, SegmentalBiteWithoutTheLowerJawIsEmptyBeforeAnyWarning)
{
    const Log log;
    EXPECT_TRUE(calculate({{kLeft, left}}, true, Calculator::MandibulaToMaxilla).empty());
    EXPECT_TRUE(calculate({{kFront, left}}, true, Calculator::MandibulaToMaxilla).empty());
    EXPECT_TRUE(calculate({{kFront, left}}, true, Calculator::MaxillaToMandibula).empty());
    EXPECT_TRUE(Log::warnings().isEmpty());
}

TEST_F(OcclusionTransformCalculatorTest, EmptyKeyOfABiteIsNoReferenceSegment)
{
    const Log log;
    EXPECT_TRUE(
        calculate({{QString(), upper}, {kMandibula, lower}}, true, Calculator::MandibulaToMaxilla)
            .empty());
    EXPECT_EQ(Log::warnings(), QStringList{kNoReference});
}

// Scans shifted by 1 and a bite of shifts by 1e8: the left association gives
// ((1 - 1e8) + 1e8) - 1 = -1, as 1 - 1e8 rounds to -1e8. Every other association gives 0 or 1.
TEST(OcclusionTransformCalculatorProducts, AssociateFromTheLeftInEveryMove)
{
    DentalScan maxilla;
    DentalScan mandibula;
    maxilla.setInitialTransform(translation(1.0F, 0.0F, 0.0F));
    mandibula.setInitialTransform(translation(1.0F, 0.0F, 0.0F));
    Matrices bite;
    for (const QString& part : {kMaxilla, kMandibula, kFront, kLeft, kRight})
        bite.emplace(part, translation(1e8F, 0.0F, 0.0F));
    Matrices all;
    for (const bool segmental : {false, true}) {
        Occlusion occlusion;
        occlusion.setTransformations(bite);
        occlusion.setSegmental(segmental);
        Calculator calculator(occlusion, maxilla, mandibula, {});
        for (const auto type : {Calculator::MandibulaToMaxilla, Calculator::MaxillaToMandibula}) {
            for (const auto& [part, move] : calculator.calculateTransformations(type))
                all.emplace(QString::number(segmental) + QString::number(type) + part, move);
        }
    }
    EXPECT_EQ(all.size(), 8U)
        << "one for each whole jaw, and three for a segmental bite in each direction";
    for (const auto& [move, matrix] : all)
        EXPECT_EQ(matrix(0, 3), -1.0F) << move.toStdString();
}

// ---- what is odd

TEST_F(OcclusionTransformCalculatorTest, MatrixWithoutInverseIsInvertedToTheIdentity)
{
    QMatrix4x4 flat;
    flat.fill(0.0F);
    const Matrices moves =
        calculate({{kMaxilla, flat}, {kMandibula, lower}}, false, Calculator::MandibulaToMaxilla);
    // (1, 2, 3) out of the lower scan: (1, 3, 18); lower bite: (-3, 1, 20); upper scan: (9, -3, 20)
    expectImage(moves.at(kMandibula), {1.0F, 2.0F, 3.0F}, {9.0F, -3.0F, 20.0F});
}

TEST_F(OcclusionTransformCalculatorTest, MovesThatAreNotFiniteAreLeftOut)
{
    const QMatrix4x4 odd = translation(std::numeric_limits<float>::quiet_NaN(), 0.0F, 0.0F);
    EXPECT_TRUE(
        calculate({{kMaxilla, odd}, {kMandibula, lower}}, false, Calculator::MandibulaToMaxilla)
            .empty());
    EXPECT_TRUE(
        calculate({{kMaxilla, odd}, {kMandibula, lower}}, false, Calculator::MaxillaToMandibula)
            .empty());
    const Matrices bite{{kFront, upper}, {kLeft, odd}, {kRight, right}, {kMandibula, lower}};
    EXPECT_EQ(keys(calculate(bite, true, Calculator::MandibulaToMaxilla)),
              QStringList({kMandibula, kRight}));
    EXPECT_EQ(keys(calculate(bite, true, Calculator::MaxillaToMandibula)),
              QStringList({kFront, kRight}));
}

// ---- laws, with random rigid matrices and coordinates below 512 mm

double largestEntry(const QMatrix4x4& matrix)
{
    double largest = 0.0;
    for (int i = 0; i < 16; ++i)
        largest = std::max(largest, std::abs(double(matrix.constData()[i])));
    return largest;
}

// A random bite of whole jaws and random alignments, with the two moves.
struct RandomBite
{
    RandomBite(test::RandomGeometry& random, bool freehandAligned)
        : planning(random.rigidPlacement()),
          upper(random.rigidPlacement()),
          lower(random.rigidPlacement())
    {
        for (DentalScan* scan : {&maxilla, &mandibula})
            scan->setSurfaceScanAlignment(test::randomAlignment(random, freehandAligned));
        Occlusion occlusion;
        occlusion.setTransformations({{kMaxilla, upper}, {kMandibula, lower}});
        Calculator calculator(occlusion, maxilla, mandibula, planning);
        maxillaMove =
            calculator.calculateTransformations(Calculator::MaxillaToMandibula).at(kMaxilla);
        mandibulaMove =
            calculator.calculateTransformations(Calculator::MandibulaToMaxilla).at(kMandibula);
    }

    QMatrix4x4 totalOf(const DentalScan& scan) const
    {
        return SurfaceScanTransformations::getTotalTransform(&scan, planning);
    }

    QMatrix4x4 planning;
    QMatrix4x4 upper;
    QMatrix4x4 lower;
    DentalScan maxilla;
    DentalScan mandibula;
    QMatrix4x4 maxillaMove;
    QMatrix4x4 mandibulaMove;
};

TEST(OcclusionTransformCalculatorLaws, Law1MovedScanIsToTheOtherAsInTheBite)
{
    test::RandomGeometry random(64);
    for (int i = 0; i < 1000; ++i) {
        const RandomBite bite(random, i % 2 == 0);
        const QMatrix4x4 maxillaScan = bite.totalOf(bite.maxilla);
        const QMatrix4x4 mandibulaScan = bite.totalOf(bite.mandibula);
        const QMatrix4x4 lowerFromUpper =
            maxillaScan.inverted() * (bite.mandibulaMove * mandibulaScan);
        ASSERT_LT(largestEntry(lowerFromUpper - bite.upper.inverted() * bite.lower), 0.005) << i;
        const QMatrix4x4 upperFromLower =
            mandibulaScan.inverted() * (bite.maxillaMove * maxillaScan);
        ASSERT_LT(largestEntry(upperFromLower - bite.lower.inverted() * bite.upper), 0.005) << i;
    }
}

TEST(OcclusionTransformCalculatorLaws, Law2TwoDirectionsAreInverseForWholeJaws)
{
    test::RandomGeometry random(65);
    for (int i = 0; i < 1000; ++i) {
        const RandomBite bite(random, i % 2 == 0);
        ASSERT_LT(largestEntry(bite.maxillaMove * bite.mandibulaMove - QMatrix4x4()), 0.005) << i;
    }
}

} // namespace
