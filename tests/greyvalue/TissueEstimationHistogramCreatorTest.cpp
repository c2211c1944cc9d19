// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/greyvalue/TissueEstimationHistogramCreator.h>

// Covered: the boxes around landmarks and at teeth, the histograms of their voxels, the boxes
// inside the scan.

#include <CoreAlgorithms/model/dataobjects/CTData.h>

#include <tests/support/GreyValueAccess.h>
#include <tests/support/GreyValueBuilders.h>
#include <tests/support/WarningLog.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <type_traits>

namespace {

using Creator = TissueEstimationHistogramCreator;
using Access = TissueEstimationHistogramCreatorTestAccess;
using primitives::BoundingBox;
using Teeth = std::vector<std::pair<ToothChart::Tooth, QVector3D>>;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

static_assert(Creator::FirstLandmarkRegion == 0 && Creator::SecondLandmarkRegion == 1 &&
              Creator::TeethRegion == 2);
static_assert(std::is_copy_constructible_v<Creator>);

static_assert(std::is_constructible_v<Creator, const CTData&, Teeth, QMatrix4x4>);
// The creator keeps a pointer to the scan.
static_assert(!std::is_constructible_v<Creator, CTData, Teeth, QMatrix4x4>);
static_assert(!std::is_constructible_v<Creator, const CTData, Teeth, QMatrix4x4>);

void expectBox(const BoundingBox& box, const QVector3D& min, const QVector3D& max)
{
    EXPECT_TRUE(box.min().x() == min.x() && box.min().y() == min.y() && box.min().z() == min.z())
        << box.min().x() << ", " << box.min().y() << ", " << box.min().z();
    EXPECT_TRUE(box.max().x() == max.x() && box.max().y() == max.y() && box.max().z() == max.z())
        << box.max().x() << ", " << box.max().y() << ", " << box.max().z();
}

// 40 mm along each axis, 1 mm voxels, all of one value.
std::shared_ptr<VexelImage3D> evenImage(int value)
{
    return test::makeImage<std::int16_t>({40, 40, 40}, {1.0F, 1.0F, 1.0F}, image::Int16,
                                         [value](int, int, int) { return value; });
}

// Boxes around landmarks

struct TableRow
{
    int type;
    QVector3D offset;
    QVector3D half;
};

void expectTable(Creator::EstimatedRegion region, const std::vector<TableRow>& rows)
{
    std::vector<int> types;
    for (const TableRow& row : rows) {
        CTData ct;
        ct.addLandmarkAnnotation(test::makeLandmark(row.type, {100.0F, 60.0F, 30.0F}));
        const auto boxes = Access::boxes(Creator(ct, {}, {}), region);
        ASSERT_EQ(boxes.size(), 1U) << row.type;
        const QVector3D center = QVector3D(100.0F, 60.0F, 30.0F) + row.offset;
        expectBox(boxes[0], center - row.half, center + row.half);
        types.push_back(row.type);
    }
    CTData others;
    for (int type = -3; type < 60; ++type) {
        if (std::find(types.begin(), types.end(), type) == types.end())
            others.addLandmarkAnnotation(test::makeLandmark(type, {100.0F, 60.0F, 30.0F}));
    }
    EXPECT_TRUE(Access::boxes(Creator(others, {}, {}), region).empty());
}

TEST(TissueEstimationHistogramCreator, FirstLandmarkRegionHasItsTable)
{
    const QVector3D five(5.0F, 5.0F, 5.0F);
    expectTable(Creator::FirstLandmarkRegion, {{14, {0.0F, -10.0F, 0.0F}, five},
                                               {9, {10.0F, -10.0F, 0.0F}, five},
                                               {8, {-10.0F, -10.0F, 0.0F}, five},
                                               {0, {0.0F, -5.0F, 0.0F}, five},
                                               {26, {0.0F, -10.0F, 0.0F}, five},
                                               {5, {0.0F, -10.0F, 0.0F}, five},
                                               {4, {0.0F, -10.0F, 0.0F}, five}});
}

TEST(TissueEstimationHistogramCreator, SecondLandmarkRegionHasItsTable)
{
    expectTable(Creator::SecondLandmarkRegion, {{14, {0.0F, 4.0F, 5.0F}, {7.0F, 5.0F, 5.0F}},
                                                {9, {0.0F, 0.0F, 0.0F}, {5.0F, 5.0F, 10.0F}},
                                                {8, {0.0F, 0.0F, 0.0F}, {5.0F, 5.0F, 10.0F}},
                                                {0, {0.0F, 0.0F, 0.0F}, {5.0F, 3.0F, 5.0F}},
                                                {19, {0.0F, 3.0F, 3.0F}, {5.0F, 5.0F, 5.0F}},
                                                {21, {0.0F, -3.0F, 3.0F}, {1.0F, 5.0F, 5.0F}},
                                                {20, {0.0F, -3.0F, 3.0F}, {1.0F, 5.0F, 5.0F}},
                                                {26, {0.0F, 0.0F, 0.0F}, {5.0F, 3.0F, 5.0F}},
                                                {5, {0.0F, -1.0F, -2.0F}, {5.0F, 1.0F, 5.0F}},
                                                {4, {0.0F, -1.0F, -2.0F}, {5.0F, 1.0F, 5.0F}}});
}

TEST(TissueEstimationHistogramCreator, BoxesComeInTheOrderOfTheLandmarks)
{
    CTData ct;
    ct.addLandmarkAnnotation(test::makeLandmark(4, {1.0F, 0.0F, 0.0F}));
    ct.addLandmarkAnnotation(test::makeLandmark(14, {2.0F, 0.0F, 0.0F}));
    ct.addLandmarkAnnotation(test::makeLandmark(4, {3.0F, 0.0F, 0.0F}));
    const auto boxes = Access::boxes(Creator(ct, {}, {}), Creator::FirstLandmarkRegion);
    ASSERT_EQ(boxes.size(), 3U);
    EXPECT_EQ(boxes[0].center().x(), 1.0F);
    EXPECT_EQ(boxes[1].center().x(), 2.0F);
    EXPECT_EQ(boxes[2].center().x(), 3.0F);
}

TEST(TissueEstimationHistogramCreator, BoxesAreUprightInTheWorldAroundMappedLandmarks)
{
    // A quarter turn about z, then moved along x.
    const QMatrix4x4 worldFromVolume(0.0F, -1.0F, 0.0F, 7.0F, //
                                     1.0F, 0.0F, 0.0F, 0.0F,  //
                                     0.0F, 0.0F, 1.0F, 0.0F,  //
                                     0.0F, 0.0F, 0.0F, 1.0F);
    CTData ct;
    ct.addLandmarkAnnotation(test::makeLandmark(9, {20.0F, 30.0F, 40.0F})); // at (-23, 20, 40)
    const Creator creator(ct, {}, worldFromVolume);
    expectBox(Access::boxes(creator, Creator::FirstLandmarkRegion).at(0), {-18.0F, 5.0F, 35.0F},
              {-8.0F, 15.0F, 45.0F});
}

TEST(TissueEstimationHistogramCreator, QueriesAllLandmarksAndTheirPositionsInContextZero)
{
    class Landmark : public dataobject::LandmarkAnnotation
    {
    public:
        Landmark() : LandmarkAnnotation(landmarkDetection::Pogonion) {}
        utility::Optional<QVector3D> getPosition(Context context) const override
        {
            contexts.push_back(context);
            return {};
        }
        mutable std::vector<int> contexts;
    };
    class Scan : public CTData
    {
    public:
        std::vector<std::shared_ptr<dataobject::LandmarkAnnotation>> getLandmarkAnnotations(
            const std::vector<landmarkDetection::LandmarkType>& types) const override
        {
            asked.push_back(types.size());
            return CTData::getLandmarkAnnotations(types);
        }
        mutable std::vector<std::size_t> asked;
    };
    Scan ct;
    const auto landmark = std::make_shared<Landmark>();
    ct.addLandmarkAnnotation(landmark);
    EXPECT_TRUE(Access::boxes(Creator(ct, {}, {}), Creator::SecondLandmarkRegion).empty());
    EXPECT_EQ(ct.asked, std::vector<std::size_t>{0});
    EXPECT_EQ(landmark->contexts, std::vector<int>{0});
}

TEST(TissueEstimationHistogramCreator, SkipsLandmarksWithoutPositionAndNull)
{
    class Scan : public CTData
    {
    public:
        std::vector<std::shared_ptr<dataobject::LandmarkAnnotation>>
        getLandmarkAnnotations(const std::vector<landmarkDetection::LandmarkType>&) const override
        {
            const auto elsewhere =
                std::make_shared<dataobject::LandmarkAnnotation>(landmarkDetection::Nasion);
            elsewhere->setPosition(NaturalHeadPositionContext, {1.0F, 2.0F, 3.0F});
            return {nullptr, elsewhere, test::makeLandmark(26, {9.0F, 9.0F, 9.0F})};
        }
    };
    const Scan ct;
    const auto boxes = Access::boxes(Creator(ct, {}, {}), Creator::FirstLandmarkRegion);
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].center().x(), 9.0F);
}

// Boxes at teeth

TEST(TissueEstimationHistogramCreator, BoxesAtTeethAreDeeperAtLowerBackTeethByDesign)
{
    const struct
    {
        std::vector<int> teeth;
        float lowest; // of a tooth at z = 20
    } rows[] = {
        {{1, 3, 14, 16}, 22.0F},  // upper molars: 6 above, 4 to either side
        {{4, 5, 12, 13}, 22.0F},  // upper premolars
        {{6, 8, 11}, 24.0F},      // upper canines and incisors: 8 above
        {{17, 19, 30, 32}, 4.0F}, // lower molars: 12 below
        {{20, 21, 28, 29}, 4.0F}, // lower premolars
        {{22, 24, 27}, 8.0F},     // lower canines and incisors: 8 below
    };
    const CTData ct;
    for (const auto& row : rows) {
        for (const int tooth : row.teeth) {
            const Creator creator(ct, {{ToothChart::Tooth(tooth), {10.0F, 15.0F, 20.0F}}}, {});
            const auto boxes = Access::boxes(creator, Creator::TeethRegion);
            ASSERT_EQ(boxes.size(), 1U);
            SCOPED_TRACE(tooth);
            expectBox(boxes[0], {7.5F, 12.5F, row.lowest}, {12.5F, 17.5F, row.lowest + 8.0F});
        }
    }
}

TEST(TissueEstimationHistogramCreator, HeightOfABoxIsSummedFromLeftToRight)
{
    // 1.7 + 6 - 4 is 0x1.d99998p+1 in single precision, 1.7 + 2 would be 0x1.d9999ap+1.
    const CTData ct;
    const Creator creator(ct, {{ToothChart::Tooth(3), {0.0F, 0.0F, 1.7F}}}, {});
    EXPECT_EQ(Access::boxes(creator, Creator::TeethRegion).at(0).min().z(), 0x1.d99998p+1F);
}

TEST(TissueEstimationHistogramCreator,
     TeethAreMappedFromNaturalHeadPositionThroughTheVolumeToTheWorld)
{
    CTData ct;
    QMatrix4x4 headPositionFromVolume;
    headPositionFromVolume.translate(5.0F, 6.0F, 7.0F);
    ct.setTotalResampleNHPTransformation(headPositionFromVolume);
    QMatrix4x4 worldFromVolume;
    worldFromVolume.scale(2.0F);
    const Creator creator(ct, {{ToothChart::Tooth(8), {15.0F, 26.0F, 37.0F}}}, worldFromVolume);
    // (10, 20, 30) in the volume, (20, 40, 60) in the world.
    expectBox(Access::boxes(creator, Creator::TeethRegion).at(0), {17.5F, 37.5F, 64.0F},
              {22.5F, 42.5F, 72.0F});
}

TEST(TissueEstimationHistogramCreator, AnyOtherRegionIsThatOfTheTeeth)
{
    CTData ct;
    ct.addLandmarkAnnotation(test::makeLandmark(26, {9.0F, 9.0F, 9.0F}));
    const Creator creator(
        ct,
        {{ToothChart::Tooth(8), {1.0F, 2.0F, 3.0F}}, {ToothChart::Tooth(9), {4.0F, 2.0F, 3.0F}}},
        {});
    for (const int region : {2, 3, -1, 99}) {
        const auto boxes = Access::boxes(creator, Creator::EstimatedRegion(region));
        ASSERT_EQ(boxes.size(), 2U) << region;
        EXPECT_EQ(boxes[0].center().x(), 1.0F);
        EXPECT_EQ(boxes[1].center().x(), 4.0F);
    }
}

// Histograms. The box of landmark type 26 in the second region is 11 x 7 x 11 voxels of 1 mm; the
// values of its lower half in x (5 voxels) and of the others (6) are chosen.

std::unique_ptr<TissueEstimationHistogram> histogramOf(int lower, int higher,
                                                       Creator::EstimatedRegion region)
{
    CTData ct;
    test::setImage(ct, test::makeImage<std::int16_t>(
                           {40, 40, 40}, {1.0F, 1.0F, 1.0F}, image::Int16,
                           [=](int x, int, int) { return x < 20 ? lower : higher; }));
    ct.addLandmarkAnnotation(test::makeLandmark(26, {20.0F, 25.0F, 20.0F}));
    return Creator(ct, {}, {}).createHistogram(region);
}

TEST(TissueEstimationHistogramCreator, HistogramIsSmoothed)
{
    // From 50: 100 in bin 1, 1500 in bin 29. 5/11 and 6/11 of the values, over 50, times 1, 3, 6 or
    // 10 fourteenths.
    const auto histogram = histogramOf(100, 1500, Creator::SecondLandmarkRegion);
    const std::vector<float>& bins = histogram->getBins();
    ASSERT_EQ(bins.size(), 30U);
    EXPECT_NEAR(bins[0], 5.0 / 550.0 * 3.0 / 14.0, 1e-8);
    EXPECT_NEAR(bins[1], 5.0 / 550.0 * 6.0 / 14.0, 1e-8);
    EXPECT_NEAR(bins[3], 5.0 / 550.0 * 1.0 / 14.0, 1e-8);
    EXPECT_EQ(bins[4], 0.0F);
    EXPECT_NEAR(bins[27], 6.0 / 550.0 * 1.0 / 14.0, 1e-8);
    EXPECT_NEAR(bins[29], 6.0 / 550.0 * 10.0 / 14.0, 1e-8);
}

TEST(TissueEstimationHistogramCreator, SmoothsBeforeItRestricts)
{
    // Bins of 1 from 30 on, with 9 of 1100 values in the first one: 0.0082. Restricted first it
    // would be kept, and the fourteenth of it, 0.00058, that smoothing adds two bins further on
    // would be kept as well.
    const CTData ct;
    std::vector<int> values(1091, 50);
    values.insert(values.end(), 9, 30);
    const auto histogram = Access::histogram(Creator(ct, {}, {}), values, 1);
    const std::vector<float>& bins = histogram->getBins(); // from 30
    EXPECT_NEAR(bins[0], 9.0 / 1100.0 * 10.0 / 14.0, 1e-7);
    EXPECT_NEAR(bins[1], 9.0 / 1100.0 * 4.0 / 14.0, 1e-7);
    EXPECT_EQ(bins[2], 0.0F) << "one fourteenth of nine in 1100 is less than a thousandth";
    EXPECT_EQ(bins[3], 0.0F);
}

TEST(TissueEstimationHistogramCreator, BinsAreNarrowIfTheGreyValuesSpreadOverLessThanAThousand)
{
    // From 50, smoothed over bins 0 to 20: 1000 grey values. At 1049 the last is bin 19.
    EXPECT_EQ(histogramOf(100, 1050, Creator::SecondLandmarkRegion)->getBinWidth(), 50);
    EXPECT_EQ(histogramOf(100, 1049, Creator::SecondLandmarkRegion)->getBinWidth(), 10);
}

TEST(TissueEstimationHistogramCreator, NarrowBinsAreSmoothedToo)
{
    // From 90: 100 in bin 1, 200 in bin 11.
    const auto histogram = histogramOf(100, 200, Creator::SecondLandmarkRegion);
    ASSERT_EQ(histogram->getBins().size(), 12U);
    EXPECT_NEAR(histogram->getBins()[1], 5.0 / 110.0 * 6.0 / 14.0, 1e-8);
    EXPECT_NEAR(histogram->getBins()[9], 6.0 / 110.0 * 1.0 / 14.0, 1e-8);
}

TEST(TissueEstimationHistogramCreator, OnlyTheFirstLandmarkRegionHasALowBinByDesign)
{
    const auto first = histogramOf(-1000, 1500, Creator::FirstLandmarkRegion);
    EXPECT_EQ(first->getLowestBinStart(), -1050);
    EXPECT_EQ(first->getBins()[0], 0.0F);
    EXPECT_GT(first->getBins()[1], 0.0F);
    const auto second = histogramOf(-1000, 1500, Creator::SecondLandmarkRegion);
    EXPECT_EQ(second->getLowestBinStart(), -1000);
    EXPECT_GT(second->getBins()[0], 0.0F);
}

TEST(TissueEstimationHistogramCreator, LowBinComesLastSoThatItDoesNotWidenTheRange)
{
    EXPECT_EQ(histogramOf(100, 1049, Creator::FirstLandmarkRegion)->getBinWidth(), 10);
    EXPECT_EQ(histogramOf(100, 1049, Creator::FirstLandmarkRegion)->getLowestBinStart(), 80);
}

TEST(TissueEstimationHistogramCreator, Law1CountsTheVoxelsInsideABoxThroughVoxelSizeAndPlacement)
{
    // Voxels of 0.5 x 1 x 2 mm. The volume is turned a quarter about z and moved: volume (x, y) is
    // world (100 - y, x).
    const QMatrix4x4 worldFromVolume(0.0F, -1.0F, 0.0F, 100.0F, //
                                     1.0F, 0.0F, 0.0F, 0.0F,    //
                                     0.0F, 0.0F, 1.0F, 0.0F,    //
                                     0.0F, 0.0F, 0.0F, 1.0F);
    CTData ct;
    test::setImage(ct, test::makeImage<std::uint16_t>({80, 40, 20}, {0.5F, 1.0F, 2.0F},
                                                      image::UInt16, [](int x, int y, int z) {
                                                          const bool inside = x >= 34 && x <= 46 &&
                                                                              y >= 15 && y <= 25 &&
                                                                              z >= 8 && z <= 12;
                                                          return inside ? 100 : 5000;
                                                      }));
    // At (80, 20, 20) in the world. The box, 5 x 3 x 5 mm to either side, is 15 to 25, 17 to 23, 15
    // to 25 in the volume: voxels x from 34 to 46, y from 15 to 25, z from 7.5 to 12.5.
    ct.addLandmarkAnnotation(test::makeLandmark(26, {20.0F, 20.0F, 20.0F}));
    const auto histogram =
        Creator(ct, {}, worldFromVolume).createHistogram(Creator::SecondLandmarkRegion);
    EXPECT_EQ(histogram->getBins().size(), 2U) << "nothing but 100, from 90 in bins of 10";
}

TEST(TissueEstimationHistogramCreator, Law1CountsAVoxelOfTwoBoxesTwice)
{
    // 100 up to x = 19, 1500 from 20 on. The box at x = 20 has five columns of 100 and six of 1500,
    // that at x = 14 has eleven of 100, five of them shared: 16 and 6 of 22. From 50: 100 in bin 1,
    // 1500 in bin 29.
    CTData ct;
    test::setImage(
        ct, test::makeImage<std::int16_t>({40, 40, 40}, {1.0F, 1.0F, 1.0F}, image::Int16,
                                          [](int x, int, int) { return x < 20 ? 100 : 1500; }));
    ct.addLandmarkAnnotation(test::makeLandmark(26, {20.0F, 25.0F, 20.0F}));
    ct.addLandmarkAnnotation(test::makeLandmark(26, {14.0F, 25.0F, 20.0F}));
    const auto histogram = Creator(ct, {}, {}).createHistogram(Creator::SecondLandmarkRegion);
    ASSERT_EQ(histogram->getBins().size(), 30U);
    EXPECT_NEAR(histogram->getBins()[1], 16.0 / 1100.0 * 6.0 / 14.0, 1e-8);
    EXPECT_NEAR(histogram->getBins()[29], 6.0 / 1100.0 * 10.0 / 14.0, 1e-8);
}

TEST(TissueEstimationHistogramCreator, HasNoBinsAndNoBoxesWithoutLandmarksOfItsTypes)
{
    CTData ct;
    test::setImage(ct, evenImage(5));
    ct.addLandmarkAnnotation(test::makeLandmark(7, {20.0F, 20.0F, 20.0F}));
    const Creator creator(ct, {}, {});
    for (const auto region :
         {Creator::FirstLandmarkRegion, Creator::SecondLandmarkRegion, Creator::TeethRegion}) {
        EXPECT_TRUE(creator.createHistogram(region)->getBins().empty());
        EXPECT_EQ(creator.getNumberOfVOIsFullyContainedInVolume(region), 0);
    }
}

TEST(TissueEstimationHistogramCreator, HasNoBinsWithoutImageVolumeOrVoxels)
{
    CTData ct;
    ct.addLandmarkAnnotation(test::makeLandmark(26, {20.0F, 20.0F, 20.0F}));
    const Creator creator(ct, {{ToothChart::Tooth(8), {1.0F, 2.0F, 3.0F}}}, {});
    for (const bool withVolume : {false, true}) {
        if (withVolume)
            ct.setImageVolume(std::make_shared<ImageVolume>());
        for (const auto region :
             {Creator::FirstLandmarkRegion, Creator::SecondLandmarkRegion, Creator::TeethRegion}) {
            EXPECT_TRUE(creator.createHistogram(region)->getBins().empty());
            EXPECT_EQ(creator.getNumberOfVOIsFullyContainedInVolume(region), 0);
        }
    }
}

TEST(TissueEstimationHistogramCreator, WarnsOncePerBoxOfTypesThreeToSixAndNotOfTypeSevenByDesign)
{
    const QString text =
        QStringLiteral("TissueEstimationHistogramCreator : not implemented for this data type.");
    CTData ct;
    ct.addLandmarkAnnotation(test::makeLandmark(26, {2.0F, 2.0F, 2.0F}));
    ct.addLandmarkAnnotation(test::makeLandmark(14, {2.0F, 2.0F, 2.0F}));
    const Creator creator(ct, {{ToothChart::Tooth(8), {1.0F, 2.0F, 3.0F}}}, {});
    for (const int type : {3, 4, 5, 6, 7}) {
        test::setImage(ct, std::make_shared<VexelImage3D>(math::Ivec3{4, 4, 4},
                                                          QVector3D(1.0F, 1.0F, 1.0F),
                                                          image::DataType(type)));
        test::WarningLog log;
        EXPECT_TRUE(creator.createHistogram(Creator::FirstLandmarkRegion)->getBins().empty());
        EXPECT_EQ(log.texts(), type == 7 ? QStringList() : QStringList({text, text})) << type;
        log.clear();
        EXPECT_TRUE(creator.createHistogram(Creator::TeethRegion)->getBins().empty());
        EXPECT_EQ(log.texts(), type == 7 ? QStringList() : QStringList({text})) << type;
    }
}

// Boxes inside the scan, which reaches from -0.5 to 39.5 mm

TEST(TissueEstimationHistogramCreator, CountsTheBoxesWithAllCornersInTheScan)
{
    const struct
    {
        QVector3D landmark; // its box in the second region reaches 5, 3 and 5 mm to either side
        int count;
    } rows[] = {
        {{20.0F, 20.0F, 20.0F}, 1}, {{4.5F, 2.5F, 4.5F}, 1},
        {{34.5F, 36.5F, 34.5F}, 1}, // faces on faces
        {{4.4F, 20.0F, 20.0F}, 0},  {{20.0F, 36.6F, 20.0F}, 0},
        {{20.0F, 20.0F, 60.0F}, 0}, {{34.6F, 36.6F, 34.6F}, 0}, // only one corner is inside in full
    };
    for (const auto& row : rows) {
        CTData ct;
        test::setImage(ct, evenImage(5));
        ct.addLandmarkAnnotation(test::makeLandmark(26, row.landmark));
        EXPECT_EQ(Creator(ct, {}, {})
                      .getNumberOfVOIsFullyContainedInVolume(Creator::SecondLandmarkRegion),
                  row.count)
            << row.landmark.x();
    }
}

TEST(TissueEstimationHistogramCreator, OneCornerOutsideTheScanIsEnoughNotToCount)
{
    // Turned so that the box stands on one corner: along x the eight corners lie (+-5 +-3 +-5) /
    // sqrt(3) mm from its center, the outermost 7.5 mm, the next 4.0 mm. The scan begins at -0.5
    // mm.
    CTData ct;
    test::setImage(ct, evenImage(5));
    QMatrix4x4 turned;
    turned.rotate(54.7356103F, 0.0F, -1.0F, 1.0F);
    const auto landmark = test::makeLandmark(26, {7.2F, 20.0F, 20.0F});
    ct.addLandmarkAnnotation(landmark);
    const Creator creator(ct, {}, turned);
    EXPECT_EQ(creator.getNumberOfVOIsFullyContainedInVolume(Creator::SecondLandmarkRegion), 1);
    landmark->setPosition(VolumeContext, {6.8F, 20.0F, 20.0F});
    EXPECT_EQ(creator.getNumberOfVOIsFullyContainedInVolume(Creator::SecondLandmarkRegion), 0);
}

TEST(TissueEstimationHistogramCreator, CountsEveryBoxOfTheRegion)
{
    CTData ct;
    test::setImage(ct, evenImage(5));
    for (const float x : {10.0F, 20.0F, 30.0F, 39.0F})
        ct.addLandmarkAnnotation(test::makeLandmark(26, {x, 20.0F, 20.0F}));
    const Creator creator(
        ct,
        {{ToothChart::Tooth(3), {20.0F, 20.0F, 20.0F}}, {ToothChart::Tooth(3), {1.0F, 1.0F, 1.0F}}},
        {});
    EXPECT_EQ(creator.getNumberOfVOIsFullyContainedInVolume(Creator::SecondLandmarkRegion), 3);
    EXPECT_EQ(creator.getNumberOfVOIsFullyContainedInVolume(Creator::FirstLandmarkRegion), 3);
    EXPECT_EQ(creator.getNumberOfVOIsFullyContainedInVolume(Creator::TeethRegion), 1);
}

TEST(TissueEstimationHistogramCreator, CornersAreMappedBackToTheVolume)
{
    // Turned by 45 degrees about the middle of the scan, a box's corner lies up to 5.8 instead of 5
    // mm away from its center along x, and no longer inside.
    CTData ct;
    test::setImage(ct, evenImage(5));
    ct.addLandmarkAnnotation(test::makeLandmark(26, {4.6F, 20.0F, 20.0F}));
    EXPECT_EQ(
        Creator(ct, {}, {}).getNumberOfVOIsFullyContainedInVolume(Creator::SecondLandmarkRegion),
        1);
    QMatrix4x4 turned;
    turned.rotate(45.0F, 0.0F, 0.0F, 1.0F);
    EXPECT_EQ(Creator(ct, {}, turned)
                  .getNumberOfVOIsFullyContainedInVolume(Creator::SecondLandmarkRegion),
              0);
}

// Bad input

TEST(TissueEstimationHistogramCreator, PositionsThatAreNotFiniteGiveNothing)
{
    for (const float odd : {kNan, kInfinity, -kInfinity, 3e38F}) {
        CTData ct;
        test::setImage(ct, evenImage(5));
        ct.addLandmarkAnnotation(test::makeLandmark(26, {odd, 20.0F, 20.0F}));
        const Creator creator(ct, {{ToothChart::Tooth(3), {20.0F, odd, 20.0F}}}, {});
        for (const auto region :
             {Creator::FirstLandmarkRegion, Creator::SecondLandmarkRegion, Creator::TeethRegion}) {
            EXPECT_TRUE(creator.createHistogram(region)->getBins().empty()) << odd;
            EXPECT_EQ(creator.getNumberOfVOIsFullyContainedInVolume(region), 0) << odd;
        }
    }
}

TEST(TissueEstimationHistogramCreator, MatricesThatAreNotFiniteOrHaveNoInverseDoNoHarm)
{
    CTData ct;
    test::setImage(ct, evenImage(5));
    ct.addLandmarkAnnotation(test::makeLandmark(26, {20.0F, 20.0F, 20.0F}));
    QMatrix4x4 odd;
    odd.fill(kNan);
    QMatrix4x4 flat;
    flat.scale(1.0F, 1.0F, 0.0F);
    for (const QMatrix4x4& matrix : {odd, flat}) {
        ct.setTotalResampleNHPTransformation(matrix);
        const Creator creator(ct, {{ToothChart::Tooth(3), {20.0F, 20.0F, 20.0F}}}, matrix);
        for (const auto region :
             {Creator::FirstLandmarkRegion, Creator::SecondLandmarkRegion, Creator::TeethRegion}) {
            EXPECT_LE(creator.createHistogram(region)->getBins().size(), 3U);
            EXPECT_LE(creator.getNumberOfVOIsFullyContainedInVolume(region), 1);
        }
    }
}

TEST(TissueEstimationHistogramCreator, CopiesReadTheSameScan)
{
    CTData ct;
    test::setImage(ct, evenImage(5));
    ct.addLandmarkAnnotation(test::makeLandmark(26, {20.0F, 20.0F, 20.0F}));
    auto original = std::make_unique<Creator>(
        ct, Teeth{{ToothChart::Tooth(3), {20.0F, 20.0F, 20.0F}}}, QMatrix4x4());
    const Creator copy = *original;
    original.reset();
    EXPECT_EQ(copy.getNumberOfVOIsFullyContainedInVolume(Creator::SecondLandmarkRegion), 1);
    EXPECT_EQ(copy.getNumberOfVOIsFullyContainedInVolume(Creator::TeethRegion), 1);
}

} // namespace
