// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/transforms/OcclusionMovementCalculator.h>

// The movements that a bite requires: whole jaws, segments, the count that tells them apart,
// missing keys.

#include <CoreAlgorithms/model/dataobjects/JawParts.h>
#include <CoreAlgorithms/model/dataobjects/Occlusions.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceScans.h>
#include <CoreAlgorithms/transforms/OcclusionTransformCalculator.h>

#include <tests/support/ModelRecorders.h>
#include <tests/support/ResliceBuilders.h>
#include <tests/support/ScanBuilders.h>

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>
#include <utility>

namespace {

using test::expectVector;
using test::quarterTurnAboutZ;
using test::translation;
using Data = OcclusionMovementCalculator::Data;
using Matrices = std::map<QString, QMatrix4x4>;

// The data are kept by reference.
static_assert(std::is_constructible_v<OcclusionMovementCalculator, Data&>);
static_assert(std::is_constructible_v<OcclusionMovementCalculator, const Data&>);
static_assert(!std::is_constructible_v<OcclusionMovementCalculator, Data>);
static_assert(!std::is_constructible_v<OcclusionMovementCalculator, const Data>);

QString maxilla()
{
    return Maxilla::getClassTypeId();
}

QString mandibula()
{
    return Mandibula::getClassTypeId();
}

QString front()
{
    return FrontSegment::getClassTypeId();
}

QString left()
{
    return LeftSegment::getClassTypeId();
}

QString right()
{
    return RightSegment::getClassTypeId();
}

QStringList keys(const Matrices& matrices)
{
    QStringList names;
    for (const auto& [name, matrix] : matrices)
        names << name;
    return names;
}

// Keeps what Qt logs while it lives.
class Log
{
public:
    Log()
    {
        messages().clear();
        former = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&,
                                           const QString& message) { messages() << message; });
    }
    Log(const Log&) = delete;
    Log& operator=(const Log&) = delete;
    ~Log() { qInstallMessageHandler(former); }

    static QStringList& messages()
    {
        static QStringList all;
        return all;
    }

private:
    QtMessageHandler former;
};

Data wholeJaws()
{
    return {{{mandibula(), translation(0.0F, 2.0F, 0.0F)}, {maxilla(), quarterTurnAboutZ()}},
            translation(0.0F, 0.0F, 5.0F),
            translation(10.0F, 0.0F, 0.0F)};
}

Data segments()
{
    return {{{mandibula(), translation(0.0F, 2.0F, 0.0F)},
             {front(), quarterTurnAboutZ()},
             {right(), translation(3.0F, 0.0F, 0.0F)},
             {left(), translation(0.0F, 0.0F, 7.0F)}},
            translation(0.0F, 0.0F, 5.0F),
            translation(10.0F, 0.0F, 0.0F)};
}

OcclusionMovementTransformations calculate(const Data& data)
{
    return OcclusionMovementCalculator(data).calculate();
}

TEST(OcclusionMovementCalculator, StoresUnderThePatientScanModeByDefault)
{
    EXPECT_EQ(Data().movementMode, MovementModes::OCCLUSION_PATIENT_SCAN_MODE);
    EXPECT_TRUE(Data().occlusionTransformations.empty());
    EXPECT_TRUE(Data().maxillaRegistration.isIdentity());
    EXPECT_TRUE(Data().mandibulaRegistration.isIdentity());
}

// Maxilla, from the right: (1, 2, 8) minus (0, 0, 5) is (1, 2, 3); turned (-2, 1, 3);
// minus (0, 2, 0) is (-2, -1, 3); plus (10, 0, 0). Mandible: (11, 2, 3) minus (10, 0, 0) is
// (1, 2, 3); plus (0, 2, 0) is (1, 4, 3); turned back, (x, y) to (y, -x), (4, -1, 3);
// plus (0, 0, 5).
TEST(OcclusionMovementCalculator, BiteOfTwoJawsGivesTheTwoWholeJawMovementsOnly)
{
    const auto result = calculate(wholeJaws());
    expectVector(result.maxillaryTransformation.value().map(QVector3D(1.0F, 2.0F, 8.0F)), 8.0F,
                 -1.0F, 3.0F);
    expectVector(result.mandibularTransformation.value().map(QVector3D(11.0F, 2.0F, 3.0F)), 4.0F,
                 -1.0F, 8.0F);
    EXPECT_FALSE(result.maxillarySegmentalTransformations);
    EXPECT_FALSE(result.mandibularSegmentalTransformations);
}

// As above, with the right segment shifted by (3, 0, 0) and the left by (0, 0, 7) in the bite; the
// front stands still when the lower jaw comes to the upper.
TEST(OcclusionMovementCalculator, BiteWithSegmentsGivesTheTwoSegmentalMovementsOnly)
{
    const auto result = calculate(segments());
    EXPECT_FALSE(result.maxillaryTransformation);
    EXPECT_FALSE(result.mandibularTransformation);

    const QVector3D upper(1.0F, 2.0F, 8.0F);
    const Matrices maxillary = result.maxillarySegmentalTransformations.value();
    EXPECT_EQ(keys(maxillary), QStringList({front(), left(), right()}));
    expectVector(maxillary.at(front()).map(upper), 8.0F, -1.0F, 3.0F);
    expectVector(maxillary.at(right()).map(upper), 14.0F, 0.0F, 3.0F);
    expectVector(maxillary.at(left()).map(upper), 11.0F, 0.0F, 10.0F);

    const Matrices mandibular = result.mandibularSegmentalTransformations.value();
    EXPECT_EQ(keys(mandibular), QStringList({left(), mandibula(), right()}));
    expectVector(mandibular.at(right()).map(upper), 2.0F, -4.0F, 8.0F);
    expectVector(mandibular.at(left()).map(upper), 2.0F, -1.0F, 15.0F);
    expectVector(mandibular.at(mandibula()).map(QVector3D(11.0F, 2.0F, 3.0F)), 4.0F, -1.0F, 8.0F);
}

TEST(OcclusionMovementCalculator, RightSegmentIsTheReferenceWithoutAFrontSegment)
{
    Data data = segments();
    data.occlusionTransformations.erase(front());
    EXPECT_EQ(keys(calculate(data).mandibularSegmentalTransformations.value()),
              QStringList({left(), mandibula()}));
}

TEST(OcclusionMovementCalculator, SegmentalRulesAreThoseOfTheOcclusionTransformCalculator)
{
    test::RandomGeometry random(7);
    for (int i = 0; i < 50; ++i) {
        Data data;
        for (const QString& part : {mandibula(), front(), right(), left()}) {
            if (part == mandibula() || random.number(0.0F, 1.0F) < 0.8F)
                data.occlusionTransformations.emplace(part, random.rigidPlacement());
        }
        if (data.occlusionTransformations.size() < 3)
            continue;
        Occlusion occlusion;
        occlusion.setTransformations(data.occlusionTransformations);
        occlusion.setSegmental(true);
        DentalScan upper;
        DentalScan lower;
        upper.setInitialTransform(random.rigidPlacement());
        lower.setInitialTransform(random.rigidPlacement());
        data.maxillaRegistration =
            upper.getInitialTransform(); // the other factors of the total are identities
        data.mandibulaRegistration = lower.getInitialTransform();

        OcclusionTransformCalculator reference(occlusion, upper, lower, {});
        const auto result = calculate(data);
        EXPECT_EQ(
            result.maxillarySegmentalTransformations.value(),
            reference.calculateTransformations(OcclusionTransformCalculator::MaxillaToMandibula));
        EXPECT_EQ(
            result.mandibularSegmentalTransformations.value(),
            reference.calculateTransformations(OcclusionTransformCalculator::MandibulaToMaxilla));
    }
}

TEST(OcclusionMovementCalculator, CountOfThreeDecidesWhateverTheKeysAreByDesign)
{
    Data data = wholeJaws();
    data.occlusionTransformations[QStringLiteral("neither jaw nor segment")] = {};
    const Log log;
    const auto result = calculate(data);
    EXPECT_FALSE(result.maxillaryTransformation)
        << "three entries: segmental, though both jaws are there";
    EXPECT_TRUE(result.maxillarySegmentalTransformations.value().empty());
    EXPECT_TRUE(result.mandibularSegmentalTransformations.value().empty());

    Data two = segments();
    two.occlusionTransformations = {{mandibula(), QMatrix4x4()}, {front(), QMatrix4x4()}};
    EXPECT_FALSE(calculate(two).maxillarySegmentalTransformations)
        << "two entries: whole jaws, though a segment is there";
}

TEST(OcclusionMovementCalculator, SegmentalFieldsHaveValuesEvenWhenTheirMapsAreEmpty)
{
    Data data = segments();
    data.occlusionTransformations.erase(mandibula());
    const Log log;
    const auto result = calculate(data);
    EXPECT_TRUE(result.maxillarySegmentalTransformations.hasValue());
    EXPECT_TRUE(result.maxillarySegmentalTransformations.value().empty());
    EXPECT_TRUE(result.mandibularSegmentalTransformations.hasValue());
    EXPECT_TRUE(result.mandibularSegmentalTransformations.value().empty());
    EXPECT_TRUE(Log::messages().isEmpty()) << "without a lower jaw no reference is looked for";
}

TEST(OcclusionMovementCalculator, WarnsWithoutAReferenceSegment)
{
    Data data;
    data.occlusionTransformations = {{mandibula(), QMatrix4x4()},
                                     {left(), translation(1.0F, 0.0F, 0.0F)},
                                     {maxilla(), QMatrix4x4()}};
    const Log log;
    const auto result = calculate(data);
    EXPECT_EQ(Log::messages(),
              QStringList(
                  {QStringLiteral("getUpperReferenceSegmentTypeId: reference segment not found")}));
    EXPECT_TRUE(result.mandibularSegmentalTransformations.value().empty());
    EXPECT_EQ(keys(result.maxillarySegmentalTransformations.value()), QStringList({left()}));
}

TEST(OcclusionMovementCalculator, MissingJawGivesNothingAndInsertsNothing)
{
    for (const QString& missing : {maxilla(), mandibula()}) {
        Data data = wholeJaws();
        data.occlusionTransformations.erase(missing);
        const auto result = calculate(data);
        EXPECT_FALSE(result.maxillaryTransformation);
        EXPECT_FALSE(result.mandibularTransformation);
        EXPECT_FALSE(result.maxillarySegmentalTransformations);
        EXPECT_FALSE(result.mandibularSegmentalTransformations);
        EXPECT_EQ(data.occlusionTransformations.size(), 1U);
    }
    EXPECT_FALSE(calculate(Data()).maxillaryTransformation);
}

TEST(OcclusionMovementCalculator, ReadsItsDataWhenItCalculates)
{
    Data data;
    const OcclusionMovementCalculator calculator(data);
    data = wholeJaws();
    EXPECT_TRUE(calculator.calculate().maxillaryTransformation.hasValue());
}

TEST(OcclusionMovementCalculator, SingularMatrixIsInvertedToTheIdentity)
{
    Data data = wholeJaws();
    QMatrix4x4 singular;
    singular.fill(0.0F);
    data.occlusionTransformations[mandibula()] = singular;
    const auto result = calculate(data);
    // (1, 2, 8) minus (0, 0, 5), turned (-2, 1, 3), nothing undone, plus (10, 0, 0).
    expectVector(result.maxillaryTransformation.value().map(QVector3D(1.0F, 2.0F, 8.0F)), 8.0F,
                 1.0F, 3.0F);
}

TEST(OcclusionMovementCalculator, LeavesOutMovesThatAreNotFinite)
{
    QMatrix4x4 bad;
    bad(0, 3) = std::numeric_limits<float>::quiet_NaN();
    Data data = wholeJaws();
    data.occlusionTransformations[maxilla()] = bad;
    EXPECT_FALSE(calculate(data).maxillaryTransformation);

    Data cut = segments();
    cut.occlusionTransformations[right()] = bad;
    EXPECT_EQ(keys(calculate(cut).maxillarySegmentalTransformations.value()),
              QStringList({front(), left()}));
}

// Scans shifted by 1 and a bite of shifts by 1e8: the left association gives
// ((1 - 1e8) + 1e8) - 1 = -1, as 1 - 1e8 rounds to -1e8. Every other association gives 0 or 1.
TEST(OcclusionMovementCalculator, ProductsAssociateFromTheLeftInEveryMove)
{
    const QMatrix4x4 near = translation(1.0F, 0.0F, 0.0F);
    const QMatrix4x4 far = translation(1e8F, 0.0F, 0.0F);
    const auto whole = calculate({{{maxilla(), far}, {mandibula(), far}}, near, near});
    EXPECT_EQ(whole.maxillaryTransformation.value()(0, 3), -1.0F);
    EXPECT_EQ(whole.mandibularTransformation.value()(0, 3), -1.0F);

    const auto cut = calculate(
        {{{mandibula(), far}, {front(), far}, {left(), far}, {right(), far}}, near, near});
    for (const auto& moves :
         {cut.maxillarySegmentalTransformations, cut.mandibularSegmentalTransformations}) {
        EXPECT_EQ(moves.value().size(), 3U);
        for (const auto& [part, move] : moves.value())
            EXPECT_EQ(move(0, 3), -1.0F) << part.toStdString();
    }
}

// The moved maxilla meets the mandible as recorded: relative to the mandible's scan, it is where
// O[Mandibula]^-1 * O[Maxilla] puts it; and the same with the jaws swapped.
TEST(OcclusionMovementCalculator, MovedJawIsToTheOtherAsRecorded)
{
    test::RandomGeometry random(11);
    for (int i = 0; i < 200; ++i) {
        Data data{{{maxilla(), random.rigidPlacement()}, {mandibula(), random.rigidPlacement()}},
                  random.rigidPlacement(),
                  random.rigidPlacement()};
        const auto result = calculate(data);
        const QVector3D raw = random.point(50.0F);
        const QMatrix4x4 upperInBite = data.occlusionTransformations.at(maxilla());
        const QMatrix4x4 lowerInBite = data.occlusionTransformations.at(mandibula());
        const QVector3D upper = lowerInBite.map(data.mandibulaRegistration.inverted().map(
            result.maxillaryTransformation.value().map(data.maxillaRegistration.map(raw))));
        EXPECT_LT(upper.distanceToPoint(upperInBite.map(raw)), 0x1p-10F) << "round " << i;
        const QVector3D lower = upperInBite.map(data.maxillaRegistration.inverted().map(
            result.mandibularTransformation.value().map(data.mandibulaRegistration.map(raw))));
        EXPECT_LT(lower.distanceToPoint(lowerInBite.map(raw)), 0x1p-10F) << "round " << i;
    }
}

} // namespace
