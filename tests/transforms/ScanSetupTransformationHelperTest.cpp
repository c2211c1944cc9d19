// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/transforms/ScanSetupTransformationHelper.h>

// Covered: the recorded bite, the one that is synthesized from the boxes of the jaws, the sorting
// of the surfaces, and the matrix for exporting a jaw with its antagonist.

#include <CoreAlgorithms/model/dataobjects/ScanSetups.h>

#include <tests/support/ScanBuilders.h>

#include <gtest/gtest.h>

#include <limits>

struct ScanSetupTransformationHelperTestAccess
{
    using Helper = ScanSetupTransformationHelper;

    static bool recorded(const ScanSetup* setup, OcclusionTransformation& out)
    {
        return Helper::getOcclusionScanTransformations(setup, out);
    }
    static QMatrix4x4 fake(const primitives::BoundingBox& upper,
                           const primitives::BoundingBox& lower,
                           const primitives::BoundingBox& combined)
    {
        return Helper::calculateFakeOcclusionTransformationForUpperJaw(upper, lower, combined);
    }
};

namespace {

using primitives::BoundingBox;
using test::translation;
using Access = ScanSetupTransformationHelperTestAccess;
using Helper = ScanSetupTransformationHelper;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

void expectMatrix(const QMatrix4x4& matrix, const QMatrix4x4& expected)
{
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            EXPECT_EQ(matrix(row, column), expected(row, column))
                << "row " << row << ", column " << column;
    }
}

// The half turn about the line along y through (x, *, z), after a lift by dz: a point goes from
// (px, py, pz) to (2x - px, py, 2z - (pz + dz)).
QMatrix4x4 turned(float x, float z, float dz)
{
    return QMatrix4x4(-1.0F, 0.0F, 0.0F, 2.0F * x, 0.0F, 1.0F, 0.0F, 0.0F, 0.0F, 0.0F, -1.0F,
                      2.0F * z - dz, 0.0F, 0.0F, 0.0F, 1.0F);
}

// Two vertices at the corners of the box.
geometry::Mesh meshOf(const BoundingBox& box)
{
    return geometry::Mesh({box.min(), box.max()}, {});
}

std::shared_ptr<ScannableRegion> region(int start, const BoundingBox& box)
{
    auto result = std::make_shared<ScannableRegion>();
    result->setRegion(ToothChart::Tooth(start), ToothChart::Tooth(start));
    result->setMesh(meshOf(box));
    return result;
}

std::shared_ptr<QuarnRawScanData> rawData(const QList<ToothChart::Tooth>& teeth,
                                          const BoundingBox& box)
{
    auto result = std::make_shared<QuarnRawScanData>();
    result->setScannedTeeth(teeth);
    result->setMesh(meshOf(box));
    return result;
}

std::shared_ptr<SurfaceTree> tree(const BoundingBox& box)
{
    auto result = std::make_shared<SurfaceTree>();
    auto root = std::make_unique<geometry::ShapeNode>(QStringLiteral("root"));
    root->setShape(geometry::Shape(meshOf(box)));
    result->setShapeNode(std::move(root));
    return result;
}

std::shared_ptr<OcclusionScan> calculatedScan()
{
    auto scan = std::make_shared<OcclusionScan>();
    scan->setTransformations(translation(1.0F, 0.0F, 0.0F), test::quarterTurnAboutZ(),
                             translation(0.0F, 0.0F, 3.0F));
    return scan;
}

const BoundingBox kUpper(0.0F, 0.0F, 30.0F, 40.0F, 20.0F, 44.0F);
const BoundingBox kLower(0.0F, 0.0F, -10.0F, 60.0F, 20.0F, 5.0F);
const ToothChart::Tooth kUpperTooth = ToothChart::Tooth(8);
const ToothChart::Tooth kLowerTooth = ToothChart::Tooth(25);

// ---- the synthesized bite of two boxes

TEST(ScanSetupTransformationHelper, LiftWithBothBoxesIsTheirDistanceLessTwenty)
{
    // dz = 30 - 5 - 20 = 5; the union reaches over x 0 to 60, z -10 to 44: center (30, *, 17)
    expectMatrix(Helper::getFakeOcclusionTransformationForUpperJaw(kUpper, kLower),
                 turned(30.0F, 17.0F, 5.0F));
}

TEST(ScanSetupTransformationHelper, LiftWithTheUpperBoxAloneIsLessItsHeightLessTwenty)
{
    // dz = -14 - 20, center (20, *, 37)
    expectMatrix(Helper::getFakeOcclusionTransformationForUpperJaw(kUpper, {}),
                 turned(20.0F, 37.0F, -34.0F));
}

TEST(ScanSetupTransformationHelper, LiftWithTheLowerBoxAloneIsItsTopLessTwenty)
{
    // dz = -2.5 + 7.5 - 20, center (30, *, -2.5)
    expectMatrix(Helper::getFakeOcclusionTransformationForUpperJaw({}, kLower),
                 turned(30.0F, -2.5F, -15.0F));
}

// From -2^24 to 1: the center is -8388607.5, and the height, 2^24 + 1, rounds to 2^24. Their top is
// 0.5, not 1.
TEST(ScanSetupTransformationHelper, TopOfTheLowerBoxAloneIsItsCenterPlusHalfItsHeight)
{
    const BoundingBox tall(0.0F, 0.0F, -16777216.0F, 1.0F, 1.0F, 1.0F);
    expectMatrix(Access::fake({}, tall, BoundingBox(-1.0F, -1.0F, -1.0F, 1.0F, 1.0F, 1.0F)),
                 turned(0.0F, 0.0F, 0.5F - 20.0F));
}

TEST(ScanSetupTransformationHelper, WithoutBoxesTheUpperJawIsTurnedAboutTheOrigin)
{
    expectMatrix(Helper::getFakeOcclusionTransformationForUpperJaw({}, {}),
                 turned(0.0F, 0.0F, 0.0F));
}

TEST(ScanSetupTransformationHelper, ShiftActsBeforeTheTurn)
{
    // The upper jaw's lowest point, 30, is lifted to 35 and turned to 2 * 17 - 35 = -1.
    const QVector3D image = Helper::getFakeOcclusionTransformationForUpperJaw(kUpper, kLower)
                                .map(QVector3D(10.0F, 7.0F, 30.0F));
    EXPECT_EQ(image.x(), 50.0F);
    EXPECT_EQ(image.y(), 7.0F);
    EXPECT_EQ(image.z(), -1.0F);
}

TEST(ScanSetupTransformationHelper, CenterOfTheTurnIsThatOfTheCombinedBox)
{
    expectMatrix(Access::fake(kUpper, kLower, BoundingBox(0.0F, 0.0F, 0.0F, 2.0F, 2.0F, 2.0F)),
                 turned(1.0F, 1.0F, 5.0F));
}

TEST(ScanSetupTransformationHelper, UnionStartsFromABoxOfSixZerosByDesign)
{
    // Six zeros are null in the bundled model. With the origin, the box would reach over x 0 to 14
    // and z 0 to 14: center (7, *, 7).
    const BoundingBox far(10.0F, 10.0F, 10.0F, 14.0F, 14.0F, 14.0F);
    expectMatrix(Helper::getFakeOcclusionTransformationForUpperJaw(far, {}),
                 turned(12.0F, 12.0F, -24.0F));
}

TEST(ScanSetupTransformationHelper, SynthesizedMatrixOfBoxesThatAreNotFiniteIsTheIdentity)
{
    for (const float odd : {kNan, kInfinity, -kInfinity}) {
        const BoundingBox box(0.0F, 0.0F, odd, 1.0F, 1.0F, odd);
        expectMatrix(Helper::getFakeOcclusionTransformationForUpperJaw(box, kLower), {});
        expectMatrix(Helper::getFakeOcclusionTransformationForUpperJaw(kUpper, box), {});
    }
    // twice the center plus a distance of 3e38 leaves the range of a float
    const BoundingBox remote(0.0F, 0.0F, 3e38F, 1.0F, 1.0F, 3e38F);
    expectMatrix(Helper::getFakeOcclusionTransformationForUpperJaw(kUpper, remote), {});
}

// ---- a setup

TEST(ScanSetupTransformationHelper,
     CalculatedOcclusionScanIsReturnedUnchangedWhateverTheSurfacesAre)
{
    ScanSetup setup;
    setup.setOcclusionScan(calculatedScan());
    setup.addScannableRegion(region(kUpperTooth, kUpper));
    const OcclusionTransformation expected{translation(1.0F, 0.0F, 0.0F), test::quarterTurnAboutZ(),
                                           translation(0.0F, 0.0F, 3.0F)};
    EXPECT_TRUE(Helper::getOcclusionTransformation(&setup) == expected);
    EXPECT_TRUE(Helper::getOcclusionTransformation(tree(kUpper).get(), &setup) == expected);
}

TEST(ScanSetupTransformationHelper, RecordedBiteIsFoundOnlyInACalculatedOcclusionScan)
{
    OcclusionTransformation out{translation(9.0F, 9.0F, 9.0F), {}, {}};
    const OcclusionTransformation before = out;
    ScanSetup setup;
    EXPECT_FALSE(Access::recorded(nullptr, out));
    EXPECT_FALSE(Access::recorded(&setup, out));
    setup.setOcclusionScan(std::make_shared<OcclusionScan>());
    EXPECT_FALSE(Access::recorded(&setup, out));
    EXPECT_TRUE(out == before);
    setup.setOcclusionScan(calculatedScan());
    EXPECT_TRUE(Access::recorded(&setup, out));
    EXPECT_EQ(out.lowerTransformation, test::quarterTurnAboutZ());
}

TEST(ScanSetupTransformationHelper, NullSetupOrTreeGivesIdentities)
{
    ScanSetup setup;
    setup.addScannableRegion(region(kUpperTooth, kUpper));
    const OcclusionTransformation identities;
    EXPECT_TRUE(Helper::getOcclusionTransformation(nullptr) == identities);
    EXPECT_TRUE(Helper::getOcclusionTransformation(nullptr, &setup) == identities);
    EXPECT_TRUE(Helper::getOcclusionTransformation(tree(kUpper).get(), nullptr) == identities);
    setup.setOcclusionScan(calculatedScan());
    EXPECT_TRUE(Helper::getOcclusionTransformation(nullptr, &setup) == identities);
}

TEST(ScanSetupTransformationHelper, SetupWithoutSurfacesTurnsTheUpperJawAboutTheOrigin)
{
    const ScanSetup setup;
    const OcclusionTransformation bite = Helper::getOcclusionTransformation(&setup);
    expectMatrix(bite.upperTransformation, turned(0.0F, 0.0F, 0.0F));
    expectMatrix(bite.lowerTransformation, {});
    expectMatrix(bite.vestibularTransformation, {});
}

TEST(ScanSetupTransformationHelper, BiteOfASetupWithoutOneIsSynthesizedFromItsSurfaces)
{
    ScanSetup setup;
    setup.addScannableRegion(region(kUpperTooth, kUpper));
    setup.addQuarnRawScanData(rawData({kLowerTooth}, kLower));
    const OcclusionTransformation bite = Helper::getOcclusionTransformation(&setup);
    expectMatrix(bite.upperTransformation, turned(30.0F, 17.0F, 5.0F));
    expectMatrix(bite.lowerTransformation, {});
    expectMatrix(bite.vestibularTransformation, {});
}

// The upper jaw has the lowest point 28, the lower jaw the highest point 7, and all surfaces reach
// over x 0 to 60, z -10 to 44. Any surface in the wrong jaw would change the distance.
TEST(ScanSetupTransformationHelper, SurfacesAreSortedByTheirFirstTooth)
{
    ScanSetup setup;
    setup.addQuarnRawScanData(rawData({ToothChart::Tooth(1), kLowerTooth},
                                      BoundingBox(0.0F, 0.0F, 28.0F, 40.0F, 20.0F, 40.0F)));
    setup.addQuarnRawScanData(rawData({ToothChart::Tooth(32), kUpperTooth},
                                      BoundingBox(0.0F, 0.0F, -8.0F, 60.0F, 20.0F, 7.0F)));
    setup.addScannableRegion(region(17, kLower));
    setup.addScannableRegion(region(16, kUpper));
    expectMatrix(Helper::getOcclusionTransformation(&setup).upperTransformation,
                 turned(30.0F, 17.0F, 28.0F - 7.0F - 20.0F));
}

// Logs its name when the host reads its box.
template <typename Kind>
class LoggedSurface : public Kind
{
public:
    LoggedSurface(QStringList& calls, const char* surface)
        : log(calls), name(QString::fromLatin1(surface))
    {}
    BoundingBox getSceneBoundingBox() const override
    {
        log << name;
        return Kind::getSceneBoundingBox();
    }

private:
    QStringList& log;
    QString name;
};

TEST(ScanSetupTransformationHelper, BoxesAreReadUpperThenLowerThenAllJawsAndRegionsBeforeScans)
{
    QStringList log;
    ScanSetup setup;
    const auto addData = [&](const char* name, ToothChart::Tooth tooth) {
        auto data = std::make_shared<LoggedSurface<QuarnRawScanData>>(log, name);
        data->setScannedTeeth({tooth});
        data->setMesh(meshOf(kLower)); // without which it is not listed
        setup.addQuarnRawScanData(data);
    };
    const auto addRegion = [&](const char* name, ToothChart::Tooth tooth) {
        auto added = std::make_shared<LoggedSurface<ScannableRegion>>(log, name);
        added->setRegion(tooth, tooth);
        setup.addScannableRegion(added);
    };
    addData("upper data", kUpperTooth);
    addData("lower data", kLowerTooth);
    addRegion("lower region", kLowerTooth);
    addRegion("upper region", kUpperTooth);
    Helper::getOcclusionTransformation(&setup);
    const QStringList upper = {"upper region", "upper data"};
    const QStringList lower = {"lower region", "lower data"};
    EXPECT_EQ(log, upper + lower + upper + lower);
}

// As the lower jaw alone: dz = 37 + 7 - 20, center (20, *, 37).
TEST(ScanSetupTransformationHelper, RawScanDataWithoutTeethBelongToTheLowerJawByDesign)
{
    ScanSetup setup;
    setup.addQuarnRawScanData(rawData({}, kUpper));
    expectMatrix(Helper::getOcclusionTransformation(&setup).upperTransformation,
                 turned(20.0F, 37.0F, 24.0F));
}

TEST(ScanSetupTransformationHelper, RawScanDataWithAnIntermediateMeshAloneContributesThat)
{
    ScanSetup setup;
    auto data = std::make_shared<QuarnRawScanData>();
    const auto surface = tree(kUpper);
    data->setScannedTeeth({kUpperTooth});
    data->setIntermediateSurface(surface);
    setup.addQuarnRawScanData(data);
    expectMatrix(Helper::getOcclusionTransformation(&setup).upperTransformation,
                 turned(20.0F, 37.0F, -14.0F - 20.0F));

    data->setMesh(meshOf(kLower)); // its own mesh takes the place of the intermediate one
    expectMatrix(Helper::getOcclusionTransformation(&setup).upperTransformation,
                 turned(30.0F, -2.5F, -15.0F - 20.0F));
}

// The first upper region is the lowest of its jaw, the second the highest.
TEST(ScanSetupTransformationHelper, BoxesAreThoseOfEitherJawAndOfBoth)
{
    ScanSetup setup;
    setup.addScannableRegion(region(3, BoundingBox(0.0F, 0.0F, 30.0F, 10.0F, 20.0F, 40.0F)));
    setup.addScannableRegion(region(13, BoundingBox(30.0F, 0.0F, 32.0F, 40.0F, 20.0F, 44.0F)));
    setup.addQuarnRawScanData(rawData({kLowerTooth}, kLower));
    expectMatrix(Helper::getOcclusionTransformation(&setup).upperTransformation,
                 turned(30.0F, 17.0F, 5.0F));
}

// Records with which argument its raw scan data are queried.
class QueriedSetup : public ScanSetup
{
public:
    QList<QuarnRawScanData*> getQuarnRawScanData(bool includeEmpty) const override
    {
        queries << includeEmpty;
        return ScanSetup::getQuarnRawScanData(includeEmpty);
    }

    mutable QList<bool> queries;
};

TEST(ScanSetupTransformationHelper, RawScanDataAreQueriedWithTrueForPresenceAndWithFalseForSorting)
{
    QueriedSetup setup;
    setup.addQuarnRawScanData(std::make_shared<QuarnRawScanData>());
    Helper::getOcclusionTransformation(&setup); // it is present, though without a surface
    EXPECT_EQ(setup.queries, QList<bool>({true, false}));
}

TEST(ScanSetupTransformationHelper, SetupWithoutRegionsAndRawScanDataIsNotSorted)
{
    const QueriedSetup setup;
    Helper::getOcclusionTransformation(&setup);
    EXPECT_EQ(setup.queries, QList<bool>({true}));
}

TEST(ScanSetupTransformationHelper, NullEntriesOfASetupAreSkipped)
{
    class BrokenData : public QuarnRawScanData
    {
    public:
        bool hasOnlyIntermediateMesh() const override { return true; }
    };
    ScanSetup setup;
    setup.addScannableRegion(nullptr);
    setup.addScannableRegion(region(kUpperTooth, kUpper));
    auto broken = std::make_shared<BrokenData>();
    broken->setMesh(meshOf(kLower));
    setup.addQuarnRawScanData(nullptr);
    setup.addQuarnRawScanData(broken);
    expectMatrix(Helper::getOcclusionTransformation(&setup).upperTransformation,
                 turned(20.0F, 37.0F, -34.0F));
}

// ---- a tree in place of the upper jaw

TEST(ScanSetupTransformationHelper, TreeReplacesANullUpperBoxButTheCombinedBoxStaysByDesign)
{
    ScanSetup setup;
    setup.addScannableRegion(region(kLowerTooth, kLower));
    // dz = 30 - 5 - 20 with the tree's box; the center is that of the lower jaw alone
    expectMatrix(Helper::getOcclusionTransformation(tree(kUpper).get(), &setup).upperTransformation,
                 turned(30.0F, -2.5F, 5.0F));
}

TEST(ScanSetupTransformationHelper, TreeReplacesAnInvalidUpperBox)
{
    class OddRegion : public ScannableRegion
    {
    public:
        BoundingBox getSceneBoundingBox() const override
        {
            return BoundingBox(5.0F, 0.0F, 0.0F, 1.0F, 1.0F, 1.0F);
        }
    };
    ScanSetup setup;
    auto odd = std::make_shared<OddRegion>();
    odd->setRegion(kUpperTooth, kUpperTooth);
    setup.addScannableRegion(odd);
    // dz = -14 - 20 with the tree's box; the center is that of the odd box
    expectMatrix(Helper::getOcclusionTransformation(tree(kUpper).get(), &setup).upperTransformation,
                 turned(3.0F, 0.5F, -34.0F));
}

TEST(ScanSetupTransformationHelper, TreeIsNotUsedWhereTheSetupHasAnUpperJaw)
{
    ScanSetup setup;
    setup.addScannableRegion(region(kUpperTooth, kUpper));
    const auto other = tree(BoundingBox(0.0F, 0.0F, 0.0F, 1.0F, 1.0F, 1.0F));
    const OcclusionTransformation bite = Helper::getOcclusionTransformation(other.get(), &setup);
    expectMatrix(bite.upperTransformation, turned(20.0F, 37.0F, -34.0F));
    expectMatrix(bite.lowerTransformation, {});
    expectMatrix(bite.vestibularTransformation, {});
}

// ---- export with the antagonist

TEST(ScanSetupTransformationHelper, UpperJawIsExportedRelativeToTheLowerAndTheReverse)
{
    ScanSetup setup;
    setup.setOcclusionScan(calculatedScan());
    // upper: x + 1; lower: (x, y) to (-y, x), its inverse (x, y) to (y, -x)
    const QVector3D point(2.0F, 3.0F, 4.0F);
    const QVector3D upper =
        Helper::getAntagonistExportTransformation(ToothChart::UpperArch, &setup).map(point);
    EXPECT_EQ(upper, QVector3D(3.0F, -3.0F, 4.0F));
    const QVector3D lower =
        Helper::getAntagonistExportTransformation(ToothChart::LowerArch, &setup).map(point);
    EXPECT_EQ(lower, QVector3D(-4.0F, 2.0F, 4.0F));
}

TEST(ScanSetupTransformationHelper, ExportOfAnyOtherArchOrWithoutAnOcclusionScanIsTheIdentity)
{
    ScanSetup setup;
    setup.addScannableRegion(region(kUpperTooth, kUpper));
    expectMatrix(Helper::getAntagonistExportTransformation(ToothChart::UpperArch, &setup), {});
    expectMatrix(Helper::getAntagonistExportTransformation(ToothChart::UpperArch, nullptr), {});
    setup.setOcclusionScan(calculatedScan());
    for (const int odd : {2, -1, 7})
        expectMatrix(Helper::getAntagonistExportTransformation(
                         static_cast<ToothChart::ArchType>(odd), &setup),
                     {});
}

TEST(ScanSetupTransformationHelper,
     ExportWithAnOcclusionScanThatIsNotCalculatedUsesTheSynthesizedBite)
{
    ScanSetup setup;
    setup.addScannableRegion(region(kUpperTooth, kUpper));
    setup.setOcclusionScan(std::make_shared<OcclusionScan>());
    expectMatrix(Helper::getAntagonistExportTransformation(ToothChart::UpperArch, &setup),
                 turned(20.0F, 37.0F, -34.0F));
    // a half turn with its lift is its own inverse
    expectMatrix(Helper::getAntagonistExportTransformation(ToothChart::LowerArch, &setup),
                 turned(20.0F, 37.0F, -34.0F));
}

TEST(ScanSetupTransformationHelper, ExportWithMatricesThatAreNotFiniteIsTheIdentity)
{
    ScanSetup setup;
    auto scan = std::make_shared<OcclusionScan>();
    scan->setTransformations(translation(kNan, 0.0F, 0.0F), {}, {});
    setup.setOcclusionScan(scan);
    expectMatrix(Helper::getAntagonistExportTransformation(ToothChart::UpperArch, &setup), {});
    expectMatrix(Helper::getAntagonistExportTransformation(ToothChart::LowerArch, &setup), {});
}

} // namespace
