// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/dental/ToothAnnotations3DGenerator.h>

// Covered: which teeth are labeled along one spline or two, where the labels are, and the label
// of one tooth.

#include <CoreAlgorithms/model/dataobjects/CTData.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Teeth.h>

#include <tests/support/DentalBuilders.h>

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <type_traits>
#include <vector>

struct ToothAnnotations3DGeneratorTestAccess
{
    static QVector3D direction(PlanarDentalSpline* spline, QVector3D position)
    {
        return ToothAnnotations3DGenerator::getDirection(spline, position);
    }
    static ToothChart::Tooth toothFromArchType(ToothChart::Tooth tooth,
                                               ToothChart::ArchType archType)
    {
        return ToothAnnotations3DGenerator::getToothFromArchType(tooth, archType);
    }
    static QList<std::shared_ptr<ToothAnnotation3D>>
    create(std::shared_ptr<dataobject::Tooth> tooth, ToothChart::ArchType archType,
           const QList<ToothChart::Tooth>& teeth, bool bothArches, dataobject::Mouth* mouth)
    {
        return ToothAnnotations3DGenerator::createToothAnnotation(
            std::move(tooth), archType, {5.0F, 6.0F, 7.0F}, 2.0F, {1.0F, 0.0F, 0.0F}, teeth,
            bothArches, mouth);
    }
};

namespace {

using Access = ToothAnnotations3DGeneratorTestAccess;
using Generator = ToothAnnotations3DGenerator;
using Labels = QList<std::shared_ptr<ToothAnnotation3D>>;
// Named, as a braced list of one spline would choose the private overload for a single spline.
using Splines = QList<PlanarDentalSpline*>;
using test::makeArch;
using test::makeMouth;
using test::makeScan;
using test::makeTooth;
using test::setScan;

static_assert(std::is_empty_v<Generator> && std::is_copy_assignable_v<Generator>);

QList<ToothChart::Tooth> teeth(std::initializer_list<int> numbers)
{
    QList<ToothChart::Tooth> list;
    for (const int number : numbers)
        list.append(ToothChart::Tooth(number));
    return list;
}

std::vector<int> numbers(const Labels& labels)
{
    std::vector<int> all;
    for (const auto& label : labels)
        all.push_back(label->getToothType());
    return all;
}

std::vector<QVector3D> positions(const Labels& labels)
{
    std::vector<QVector3D> all;
    for (const auto& label : labels)
        all.push_back(label->getPosition());
    return all;
}

std::shared_ptr<PlanarDentalSpline> makeLowerArch()
{
    auto spline = makeArch(50, {{19, 10.0F}, {22, 40.0F}}); // 20 lies at 20, 21 at 30
    spline->setArchType(ToothChart::LowerArch);
    return spline;
}

std::shared_ptr<PlanarDentalSpline> makeUpperArch()
{
    return makeArch(50, {{11, 12.0F}, {13, 32.0F}}); // 12 lies at 22
}

const Labels kNone;

// ---- a whole mouth

TEST(ToothAnnotations3DGenerator, LabelsEveryToothOfTheMouthAlongTheSpline)
{
    const auto spline = makeLowerArch();
    const auto mouth = makeMouth({19, 20, 21, 22});
    const Labels labels = Generator::generate(Splines{spline.get()}, teeth({20}), mouth.get());
    EXPECT_EQ(numbers(labels), (std::vector{19, 20, 21, 22})) << "requested or not";
    EXPECT_EQ(positions(labels), (std::vector<QVector3D>{{10.0F, 0.0F, -9.0F},
                                                         {20.0F, 0.0F, -9.0F},
                                                         {30.0F, 0.0F, -9.0F},
                                                         {40.0F, 0.0F, -9.0F}}));
    for (const auto& label : labels) {
        EXPECT_EQ(label->getTooth(), mouth->getToothForToothType(label->getToothType()));
        EXPECT_EQ(label->getDirection(), QVector3D(1.0F, 0.0F, 0.0F));
    }
}

TEST(ToothAnnotations3DGenerator, ToothThatTheMouthLacksGetsNoLabel)
{
    const auto spline = makeLowerArch();
    EXPECT_EQ(numbers(Generator::generate(Splines{spline.get()}, teeth({19, 20, 21, 22}),
                                          makeMouth({19, 22, 30}).get())),
              (std::vector{19, 22}));
}

TEST(ToothAnnotations3DGenerator, LabelsOfTheArchOfValueZeroAreNineMillimetersHigher)
{
    const auto spline = makeUpperArch();
    EXPECT_EQ(positions(Generator::generate(Splines{spline.get()}, {}, makeMouth({11, 12}).get())),
              (std::vector<QVector3D>{{12.0F, 0.0F, 9.0F}, {22.0F, 0.0F, 9.0F}}));
}

TEST(ToothAnnotations3DGenerator, OneLowerSplineLabelsRequestedUpperTeethOnTheOtherSide)
{
    const auto spline = makeLowerArch();
    const auto mouth = makeMouth({19, 20, 22, 13, 14, 11});
    const Labels labels =
        Generator::generate(Splines{spline.get()}, teeth({19, 20, 22, 13, 14}), mouth.get());
    // 14 is opposite 19 and 13 opposite 20; 11, opposite 22, is not requested.
    EXPECT_EQ(numbers(labels), (std::vector{19, 14, 20, 13, 22}));
    EXPECT_EQ(positions(labels), (std::vector<QVector3D>{{10.0F, 0.0F, -9.0F},
                                                         {10.0F, 0.0F, 9.0F},
                                                         {20.0F, 0.0F, -9.0F},
                                                         {20.0F, 0.0F, 9.0F},
                                                         {40.0F, 0.0F, -9.0F}}));
    EXPECT_EQ(labels[1]->getDirection(), labels[0]->getDirection());
    EXPECT_EQ(labels[1]->getTooth(), mouth->getToothForToothType(ToothChart::Tooth(14)));
}

TEST(ToothAnnotations3DGenerator, OneUpperSplineLabelsRequestedLowerTeethBelow)
{
    const auto spline = makeUpperArch();
    const Labels labels =
        Generator::generate(Splines{spline.get()}, teeth({11, 22}), makeMouth({11, 22}).get());
    EXPECT_EQ(numbers(labels), (std::vector{11, 22}));
    EXPECT_EQ(positions(labels),
              (std::vector<QVector3D>{{12.0F, 0.0F, 9.0F}, {12.0F, 0.0F, -9.0F}}));
}

TEST(ToothAnnotations3DGenerator, OppositesAreLabeledOnlyIfTeethOfBothArchesAreRequested)
{
    const auto spline = makeLowerArch();
    const auto mouth = makeMouth({19, 14});
    EXPECT_EQ(numbers(Generator::generate(Splines{spline.get()}, teeth({14}), mouth.get())),
              std::vector{19});
    EXPECT_EQ(numbers(Generator::generate(Splines{spline.get()}, teeth({14, 30}), mouth.get())),
              (std::vector{19, 14}));
    EXPECT_EQ(numbers(Generator::generate(Splines{spline.get()}, teeth({14, 0, 33}), mouth.get())),
              std::vector{19})
        << "numbers that are no teeth are of no arch";
}

TEST(ToothAnnotations3DGenerator, OpposingLabelHasANullToothIfTheMouthHasNoneByDesign)
{
    const auto spline = makeLowerArch();
    const Labels labels =
        Generator::generate(Splines{spline.get()}, teeth({19, 14}), makeMouth({19}).get());
    ASSERT_EQ(labels.size(), 2);
    EXPECT_EQ(labels[1]->getTooth(), nullptr);
    EXPECT_EQ(labels[1]->getPosition(), QVector3D(10.0F, 0.0F, 9.0F));
}

TEST(ToothAnnotations3DGenerator, TwoSplinesGiveTheirLabelsInListOrder)
{
    const auto lower = makeLowerArch();
    const auto upper = makeUpperArch();
    const auto mouth = makeMouth({11, 12, 19, 22, 14, 13, 21});
    // Each spline gets the teeth of its own arch, so that no opposites are labeled.
    const QList<ToothChart::Tooth> all = teeth({11, 12, 13, 14, 19, 20, 21, 22});
    EXPECT_EQ(numbers(Generator::generate(Splines{lower.get(), upper.get()}, all, mouth.get())),
              (std::vector{19, 21, 22, 11, 12, 13}));
    EXPECT_EQ(numbers(Generator::generate(Splines{upper.get(), lower.get()}, all, mouth.get())),
              (std::vector{11, 12, 13, 19, 21, 22}));
}

TEST(ToothAnnotations3DGenerator, AnyOtherNumberOfSplinesGivesNoLabels)
{
    const auto spline = makeLowerArch();
    const auto mouth = makeMouth({19, 20});
    EXPECT_EQ(Generator::generate(Splines{}, teeth({19}), mouth.get()), kNone);
    EXPECT_EQ(Generator::generate(Splines{spline.get(), spline.get(), spline.get()}, teeth({19}),
                                  mouth.get()),
              kNone);
}

TEST(ToothAnnotations3DGenerator, SplineWithoutTeethGivesNoLabels)
{
    EXPECT_EQ(
        Generator::generate(Splines{makeArch(50, {}).get()}, teeth({19}), makeMouth({19}).get()),
        kNone);
}

TEST(ToothAnnotations3DGenerator,
     ToothOfASplineOverBothArchesIsLabeledAsTheOppositeOfTheSplinesArch)
{
    // 16 at 10 and 17 at 20, both labeled with upper teeth: 17 is opposite 16.
    const auto spline = makeArch(50, {{16, 10.0F}, {17, 20.0F}});
    const Labels labels = Generator::generate(Splines{spline.get()}, {}, makeMouth({16, 17}).get());
    EXPECT_EQ(numbers(labels), (std::vector{16, 16}));
    EXPECT_EQ(positions(labels),
              (std::vector<QVector3D>{{10.0F, 0.0F, 9.0F}, {20.0F, 0.0F, 9.0F}}));
}

// ---- the occlusal height

TEST(ToothAnnotations3DGenerator, ScanOfDefinitionZeroPutsLabelsAroundTheHeightOfItsCenter)
{
    const auto scan = makeScan(0.3F, 80.0F); // its center at 40
    const auto lower = makeLowerArch();
    setScan(*lower, scan);
    const Labels labels =
        Generator::generate(Splines{lower.get()}, teeth({19, 14}), makeMouth({19, 14}).get());
    EXPECT_EQ(positions(labels),
              (std::vector<QVector3D>{{10.0F, 0.0F, 31.0F}, {10.0F, 0.0F, 49.0F}}));
}

TEST(ToothAnnotations3DGenerator, ScanOfAnyOtherDefinitionPutsLabelsAroundSixTenthsOfThatHeight)
{
    const auto scan = makeScan(0.3F, 80.0F);
    const auto lower = makeLowerArch();
    setScan(*lower, scan);
    for (const int definition : {1, 2, -1}) {
        scan->setOcclusalPlaneDefinition(static_cast<CTData::OcclusalPlaneDefinition>(definition));
        const Labels labels =
            Generator::generate(Splines{lower.get()}, teeth({19, 14}), makeMouth({19, 14}).get());
        // 0.6 * 40 in single precision ties to 24.
        EXPECT_EQ(positions(labels),
                  (std::vector<QVector3D>{{10.0F, 0.0F, 15.0F}, {10.0F, 0.0F, 33.0F}}));
    }
}

TEST(ToothAnnotations3DGenerator, SixTenthsOfTheHeightAreTakenAndMovedInSinglePrecision)
{
    // 0.6F * 14 is 8.40000033379, nearest to the float 8.40000057220. Less 9 that is
    // -0.59999942780; plus 9 it is half way between two floats, and goes to 17.40000152588. With
    // 0.6 in double precision, or rounded but once at the end, both labels would be elsewhere.
    const auto scan = makeScan(0.3F, 28.0F); // its center at 14
    scan->setOcclusalPlaneDefinition(static_cast<CTData::OcclusalPlaneDefinition>(1));
    const auto lower = makeLowerArch();
    setScan(*lower, scan);
    const Labels labels =
        Generator::generate(Splines{lower.get()}, teeth({19, 14}), makeMouth({19, 14}).get());
    ASSERT_EQ(labels.size(), 2);
    EXPECT_EQ(labels[0]->getPosition().z(), -0x1.33332p-1F);
    EXPECT_EQ(labels[1]->getPosition().z(), 0x1.166668p+4F);
}

TEST(ToothAnnotations3DGenerator, BoxThatCountsIsThatOfTheVolumeFrame)
{
    const auto scan = makeScan(0.3F, 80.0F);
    scan->box = primitives::BoundingBox(0.0F, 0.0F, 20.0F, 1.0F, 1.0F, 40.0F);
    const auto lower = makeLowerArch();
    setScan(*lower, scan);
    EXPECT_EQ(positions(Generator::generate(Splines{lower.get()}, {}, makeMouth({19}).get())),
              (std::vector<QVector3D>{{10.0F, 0.0F, 21.0F}}));
}

TEST(ToothAnnotations3DGenerator, WithoutAScanThePathKeepsItsHeight)
{
    const auto lower = makeLowerArch();
    QList<QVector3D> path = lower->getOriginalPath();
    for (QVector3D& sample : path)
        sample.setZ(100.0F);
    lower->setOriginalPath(path);
    setScan(*lower, nullptr);
    const QVector3D expected(10.0F, 0.0F, 91.0F);
    EXPECT_EQ(positions(Generator::generate(Splines{lower.get()}, {}, makeMouth({19}).get())),
              std::vector{expected});
    lower->setPlane(nullptr);
    EXPECT_EQ(positions(Generator::generate(Splines{lower.get()}, {}, makeMouth({19}).get())),
              std::vector{expected});
}

TEST(ToothAnnotations3DGenerator, DirectionIsThatOfTheSampleNearestToTheLabelAtOcclusalHeight)
{
    // The path climbs next to a tooth: at the height of the path the tooth lies at sample 0, at the
    // occlusal height of 40 the nearest sample is the last, where the path runs along y.
    PlanarDentalSpline spline;
    spline.setArchType(ToothChart::LowerArch);
    spline.setTooth(ToothChart::Tooth(20), spline.appendControlPoint({0.0F, 0.0F, 0.0F}));
    spline.setOriginalPath(
        {{0.0F, 0.0F, 0.0F}, {1.0F, 0.0F, 0.0F}, {1.0F, 0.0F, 40.0F}, {1.0F, 5.0F, 40.0F}});
    setScan(spline, makeScan(1.0F, 80.0F));
    const Labels labels = Generator::generate(Splines{&spline}, {}, makeMouth({20}).get());
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels[0]->getPosition(), QVector3D(0.0F, 0.0F, 31.0F));
    EXPECT_EQ(labels[0]->getDirection(), spline.getDirection(2));
    EXPECT_NE(labels[0]->getDirection(), spline.getDirection(0));
    EXPECT_EQ(Access::direction(&spline, {0.0F, 0.0F, 1.0F}), spline.getDirection(0));
}

TEST(ToothAnnotations3DGenerator, ToothWhosePlaceIsNotFoundIsLabeledOverTheOrigin)
{
    const auto lower = makeLowerArch();
    lower->setOriginalPath({});
    setScan(*lower, makeScan(1.0F, 80.0F));
    const Labels labels = Generator::generate(Splines{lower.get()}, {}, makeMouth({19}).get());
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels[0]->getPosition(), QVector3D(0.0F, 0.0F, 31.0F));
    EXPECT_EQ(labels[0]->getDirection(), QVector3D());
}

// ---- one tooth

TEST(ToothAnnotations3DGenerator, OneToothIsLabeledOnTheFirstSplineOfItsArch)
{
    const auto lower = makeLowerArch();
    const auto upper = makeUpperArch();
    const auto otherUpper = makeArch(50, {{12, 45.0F}});
    const auto tooth = makeTooth(12);
    const auto label = Generator::generate(Splines{lower.get(), upper.get(), otherUpper.get()},
                                           teeth({12}), tooth);
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->getTooth(), tooth);
    EXPECT_EQ(label->getPosition(), QVector3D(22.0F, 0.0F, 9.0F));
    EXPECT_EQ(label->getDirection(), QVector3D(1.0F, 0.0F, 0.0F));
}

TEST(ToothAnnotations3DGenerator,
     OneToothWithoutASplineOfItsArchIsLabeledAtItsOppositesPlaceOnTheFirst)
{
    const auto lower = makeLowerArch();
    const auto label = Generator::generate(Splines{lower.get()}, teeth({13, 20}), makeTooth(13));
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->getToothType(), ToothChart::Tooth(13));
    EXPECT_EQ(label->getPosition(), QVector3D(20.0F, 0.0F, 9.0F)) << "at 20, in its own jaw";
    setScan(*lower, makeScan(1.0F, 80.0F));
    EXPECT_EQ(Generator::generate(Splines{lower.get()}, teeth({20}), makeTooth(20))->getPosition(),
              QVector3D(20.0F, 0.0F, 31.0F));
}

TEST(ToothAnnotations3DGenerator,
     OneToothIsLookedUpByItsNumberAlsoWhereTheSplineHasTeethOfTheOtherArchByDesign)
{
    // An arch that says upper and holds the lower teeth 19 and 22: 12 lies below the first, at 10,
    // although its opposite 21 lies at 30.
    const auto upperByName = makeArch(50, {{19, 10.0F}, {22, 40.0F}});
    EXPECT_EQ(
        Generator::generate(Splines{upperByName.get()}, teeth({12}), makeTooth(12))->getPosition(),
        QVector3D(10.0F, 0.0F, 9.0F));
    // One that says lower and holds the upper teeth 11 and 13: 12 is looked up as its opposite 21,
    // which lies above the last, at 32, although 12 itself lies at 22.
    const auto lowerByName = makeUpperArch();
    lowerByName->setArchType(ToothChart::LowerArch);
    EXPECT_EQ(
        Generator::generate(Splines{lowerByName.get()}, teeth({12}), makeTooth(12))->getPosition(),
        QVector3D(32.0F, 0.0F, 9.0F));
}

TEST(ToothAnnotations3DGenerator,
     DirectionOfOneToothIsThatOfTheSampleNearestToItsPlaceAtOcclusalHeight)
{
    // As for a whole mouth: at the height of the path the tooth lies at sample 0, at the occlusal
    // height of 40 the nearest sample is 2, where the path runs along y.
    PlanarDentalSpline spline;
    spline.setArchType(ToothChart::LowerArch);
    spline.setTooth(ToothChart::Tooth(20), spline.appendControlPoint({0.0F, 0.0F, 0.0F}));
    spline.setOriginalPath(
        {{0.0F, 0.0F, 0.0F}, {1.0F, 0.0F, 0.0F}, {1.0F, 0.0F, 40.0F}, {1.0F, 5.0F, 40.0F}});
    setScan(spline, makeScan(1.0F, 80.0F));
    const auto label = Generator::generate(Splines{&spline}, teeth({20}), makeTooth(20));
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->getPosition(), QVector3D(0.0F, 0.0F, 31.0F));
    EXPECT_EQ(label->getDirection(), spline.getDirection(2));
    EXPECT_NE(label->getDirection(), spline.getDirection(0));
}

TEST(ToothAnnotations3DGenerator, OneToothThatIsNotRequestedOrHasNoSplineGetsNoLabel)
{
    const auto lower = makeLowerArch();
    EXPECT_EQ(Generator::generate(Splines{lower.get()}, teeth({19}), makeTooth(20)), nullptr);
    EXPECT_EQ(Generator::generate(Splines{}, teeth({20}), makeTooth(20)), nullptr);
}

// ---- private steps

TEST(ToothAnnotations3DGenerator, ToothOfAnArchIsItselfOrItsOpposite)
{
    EXPECT_EQ(Access::toothFromArchType(ToothChart::Tooth(14), ToothChart::UpperArch), 14);
    EXPECT_EQ(Access::toothFromArchType(ToothChart::Tooth(14), ToothChart::LowerArch), 19);
    EXPECT_EQ(Access::toothFromArchType(ToothChart::Tooth(19), ToothChart::UpperArch), 14);
    EXPECT_EQ(Access::toothFromArchType(ToothChart::Tooth(99), ToothChart::UpperArch),
              ToothChart::NoTooth);
}

TEST(ToothAnnotations3DGenerator, PrimaryLabelNeedsTheToothInTheMouthTheOpposingOneDoesNot)
{
    const auto mouth = makeMouth({30});
    const auto lower = makeTooth(20);
    EXPECT_EQ(Access::create(lower, ToothChart::LowerArch, teeth({13, 20}), false, mouth.get()),
              kNone);
    const Labels labels =
        Access::create(lower, ToothChart::LowerArch, teeth({13, 20}), true, mouth.get());
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels[0]->getPosition(), QVector3D(5.0F, 6.0F, 16.0F)) << "9, not the given offset";
    EXPECT_EQ(labels[0]->getDirection(), QVector3D(1.0F, 0.0F, 0.0F));
    const Labels primary =
        Access::create(makeTooth(30), ToothChart::LowerArch, {}, false, mouth.get());
    ASSERT_EQ(primary.size(), 1);
    EXPECT_EQ(primary[0]->getPosition(), QVector3D(5.0F, 6.0F, 9.0F)) << "the given offset";
}

TEST(ToothAnnotations3DGenerator, MouthDecidesWhetherItHasTheToothOfThePrimaryLabel)
{
    // A host whose two answers differ: it keeps the teeth that have been extracted.
    class ExtractedTeeth : public dataobject::Mouth
    {
    public:
        bool hasTooth(ToothChart::Tooth toothType) const override
        {
            asked.push_back(toothType);
            return toothType == 20;
        }
        mutable std::vector<int> asked;
    };
    ExtractedTeeth mouth;
    mouth.addTooth(makeTooth(19));
    mouth.addTooth(makeTooth(14));
    // 19 and 14 are there, but the mouth says that it does not have 19; 14 is not queried.
    const Labels opposite =
        Access::create(makeTooth(19), ToothChart::LowerArch, teeth({14, 19}), true, &mouth);
    EXPECT_EQ(numbers(opposite), std::vector{14});
    EXPECT_EQ(mouth.asked, std::vector{19});
    // 20 is not there, but the mouth says that it has it: a label without a tooth.
    const Labels withoutTooth =
        Access::create(makeTooth(20), ToothChart::LowerArch, {}, false, &mouth);
    ASSERT_EQ(withoutTooth.size(), 1);
    EXPECT_EQ(withoutTooth[0]->getTooth(), nullptr);
}

// ---- bad input

TEST(ToothAnnotations3DGenerator, NullSplineToothOrMouthGetsNoLabels)
{
    const auto lower = makeLowerArch();
    const auto mouth = makeMouth({19});
    EXPECT_EQ(Generator::generate(Splines{lower.get()}, teeth({19}),
                                  static_cast<dataobject::Mouth*>(nullptr)),
              kNone);
    EXPECT_EQ(Generator::generate(Splines{nullptr}, teeth({19}), mouth.get()), kNone);
    EXPECT_EQ(numbers(Generator::generate(Splines{nullptr, lower.get()}, teeth({19}), mouth.get())),
              std::vector{19});
    EXPECT_EQ(Generator::generate(Splines{lower.get()}, teeth({19}),
                                  std::shared_ptr<dataobject::Tooth>()),
              nullptr);
    EXPECT_EQ(Generator::generate(Splines{nullptr}, teeth({19}), makeTooth(19)), nullptr);
    EXPECT_NE(Generator::generate(Splines{nullptr, lower.get()}, teeth({19}), makeTooth(19)),
              nullptr);
    EXPECT_EQ(Access::create(nullptr, ToothChart::LowerArch, {}, true, mouth.get()), kNone);
    EXPECT_EQ(Access::create(makeTooth(19), ToothChart::LowerArch, {}, true, nullptr), kNone);
}

TEST(ToothAnnotations3DGenerator, NumbersThatAreNoTeethDoNoHarm)
{
    const auto spline = makeArch(50, {{-7, 10.0F}, {999, 40.0F}});
    EXPECT_EQ(
        Generator::generate(Splines{spline.get()}, teeth({-7, 999}), makeMouth({-7, 999}).get()),
        kNone);
    const auto label = Generator::generate(Splines{spline.get()}, teeth({999}), makeTooth(999));
    ASSERT_NE(
        label,
        nullptr); // counted with the lower arch; opposite of no tooth, which lies between the two
    EXPECT_EQ(label->getToothType(), 999);
    const int highest = std::numeric_limits<int>::max();
    EXPECT_NE(Generator::generate(Splines{spline.get()}, teeth({highest}), makeTooth(highest)),
              nullptr);
}

} // namespace
