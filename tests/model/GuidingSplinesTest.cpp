// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>

// Points, directions along a line, and the splines: control points, curve, sampling, tags,
// notification.

#include <CoreAlgorithms/model/dataobjects/Reslices.h>

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <vector>

namespace {

using events::GuidingLineEvent;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
const QVector3D kNull;

ToothChart::Tooth tooth(int number)
{
    return ToothChart::Tooth(number);
}

class LineRecorder : public patterns::Observer<GuidingLine, GuidingLineEvent>
{
public:
    std::vector<GuidingLineEvent::Type> types;

private:
    void changedEvent(GuidingLine*, GuidingLineEvent* event) override
    {
        types.push_back(event->type);
    }
};

class ObjectRecorder : public patterns::Observer<DataObject, std::nullptr_t>
{
public:
    int changes = 0;

private:
    void changedEvent(DataObject*) override { ++changes; }
};

class SplineTest : public testing::Test
{
protected:
    SplineTest()
    {
        spline.setSpline(std::make_unique<math::PolylineSpline3D>());
        spline.setSampleDistance(1.0F);
        first = spline.appendControlPoint({0.0F, 0.0F, 0.0F});
        second = spline.appendControlPoint({2.0F, 0.0F, 0.0F});
    }

    void listen()
    {
        spline.attach(&ofLine);
        spline.attach(&ofObject);
    }

    LineRecorder ofLine;
    ObjectRecorder ofObject;
    PlanarDentalSpline spline;
    std::shared_ptr<Point> first;
    std::shared_ptr<Point> second;
};

// Points

TEST(Point, GivesItsPositionAndNotifiesOfAChange)
{
    ObjectRecorder recorder;
    Point point({1.0F, 2.0F, 3.0F});
    point.attach(&recorder);
    EXPECT_EQ(point.getPosition(), QVector3D(1.0F, 2.0F, 3.0F));
    point.setPosition({4.0F, 5.0F, 6.0F});
    EXPECT_EQ(point.getPosition(), QVector3D(4.0F, 5.0F, 6.0F));
    EXPECT_EQ(recorder.changes, 1);
    EXPECT_EQ(Point().getPosition(), kNull);
}

// Directions

TEST(GuidingLine, DirectionRunsFromThePreviousSampleToTheNext)
{
    GuidingLine line;
    line.setOriginalPath(
        {{0.0F, 0.0F, 0.0F}, {2.0F, 0.0F, 0.0F}, {2.0F, 2.0F, 0.0F}, {2.0F, 2.0F, 8.0F}});
    EXPECT_EQ(line.getDirection(0), QVector3D(1.0F, 0.0F, 0.0F));
    // The square root of one half is rounded.
    EXPECT_FLOAT_EQ(line.getDirection(1).x(), 0.70710678F);
    EXPECT_FLOAT_EQ(line.getDirection(1).y(), 0.70710678F);
    EXPECT_EQ(line.getDirection(3), QVector3D(0.0F, 0.0F, 1.0F));
}

TEST(GuidingLine, PerpendicularDirectionOfAnArchFromRightToLeftPointsOutwards)
{
    // x points to the left, y to posterior and z up, so that the arch runs along x at the front.
    GuidingLine line;
    line.setOriginalPath({{-1.0F, -40.0F, 0.0F}, {0.0F, -40.0F, 0.0F}, {1.0F, -40.0F, 0.0F}});
    EXPECT_EQ(line.getPerpendicularDirection(1), QVector3D(0.0F, -1.0F, 0.0F)) << "anterior";
    line.setUpperDirection({0.0F, -2.0F, 0.0F});
    EXPECT_EQ(line.getPerpendicularDirection(1), QVector3D(0.0F, 0.0F, -1.0F));
    line.setUpperDirection({3.0F, 0.0F, 0.0F});
    EXPECT_EQ(line.getPerpendicularDirection(1), kNull) << "along the path";
}

TEST(GuidingLine, HasNoDirectionOutsideThePathOrWhereSamplesCoincide)
{
    GuidingLine line;
    EXPECT_EQ(line.getDirection(0), kNull);
    line.setOriginalPath({{1.0F, 0.0F, 0.0F}, {2.0F, 0.0F, 0.0F}});
    for (const int outside :
         {-1, 2, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        EXPECT_EQ(line.getDirection(outside), kNull) << outside;
        EXPECT_EQ(line.getPerpendicularDirection(outside), kNull) << outside;
    }
    line.setOriginalPath({{1.0F, 0.0F, 0.0F}});
    EXPECT_EQ(line.getDirection(0), kNull);
    line.setOriginalPath({{1.0F, 0.0F, 0.0F}, {2.0F, 0.0F, 0.0F}, {1.0F, 0.0F, 0.0F}});
    EXPECT_EQ(line.getDirection(1), kNull);
}

TEST(GuidingLine, IsMovedSampleBySample)
{
    LineRecorder ofLine;
    ObjectRecorder ofObject;
    GuidingLine line;
    line.setOriginalPath({{1.0F, 0.0F, 0.0F}, {2.0F, 0.0F, 0.0F}});
    line.attach(&ofLine);
    line.attach(&ofObject);
    QMatrix4x4 upwards;
    upwards.translate(0.0F, 0.0F, 5.0F);
    line.transformAndCreateNewPoints(upwards);
    EXPECT_EQ(line.getOriginalPath(), (QList<QVector3D>{{1.0F, 0.0F, 5.0F}, {2.0F, 0.0F, 5.0F}}));
    EXPECT_TRUE(line.getControlPoints().isEmpty());
    EXPECT_EQ(ofLine.types, std::vector{GuidingLineEvent::PathChanged});
    EXPECT_EQ(ofObject.changes, 1);
}

// Splines

TEST(GuidingSpline, StartsWithoutPointsAndWithASmoothCurveSampledEveryTenthOfAMillimetre)
{
    const GuidingSpline spline;
    EXPECT_TRUE(spline.getOriginalPath().isEmpty());
    EXPECT_TRUE(spline.getControlPoints().isEmpty());
    EXPECT_FALSE(spline.isFinished());
    EXPECT_EQ(spline.getSampleDistance(), 0.1F);
    EXPECT_NE(dynamic_cast<const math::CatmullRomSpline3D*>(spline.getSpline()), nullptr);
}

TEST_F(SplineTest, PathRunsThroughTheControlPointsInOrder)
{
    EXPECT_EQ(spline.getControlPoints(), (QList<std::shared_ptr<Point>>{first, second}));
    EXPECT_EQ(first->getPosition(), kNull);
    EXPECT_EQ(spline.getOriginalPath(),
              (QList<QVector3D>{{0.0F, 0.0F, 0.0F}, {1.0F, 0.0F, 0.0F}, {2.0F, 0.0F, 0.0F}}));
    spline.appendControlPoint({2.0F, 1.0F, 0.0F});
    EXPECT_EQ(spline.getOriginalPath().size(), 4);
    EXPECT_EQ(spline.getOriginalPath().last(), QVector3D(2.0F, 1.0F, 0.0F));
}

TEST_F(SplineTest, MovedPointsTakeEffectWhenTheyAreAnnounced)
{
    listen();
    second->setPosition({0.0F, 1.0F, 0.0F});
    spline.pointsChanged();
    EXPECT_EQ(spline.getOriginalPath(), (QList<QVector3D>{{0.0F, 0.0F, 0.0F}, {0.0F, 1.0F, 0.0F}}));
    EXPECT_EQ(ofObject.changes, 1);
    EXPECT_TRUE(ofLine.types.empty());
}

TEST_F(SplineTest, NewCurveOrSampleDistanceGivesAnotherPathAndNotifiesNobody)
{
    listen();
    spline.setSampleDistance(0.5F);
    EXPECT_EQ(spline.getOriginalPath().size(), 5);
    spline.setSpline(nullptr);
    EXPECT_EQ(spline.getSpline(), nullptr);
    EXPECT_TRUE(spline.getOriginalPath().isEmpty());
    spline.setSpline(std::make_unique<math::PolylineSpline3D>());
    EXPECT_EQ(spline.getOriginalPath().size(), 5);
    EXPECT_EQ(ofObject.changes, 0);
    EXPECT_TRUE(ofLine.types.empty());
}

TEST_F(SplineTest, EveryChangeOfTheNumberOfPointsNotifiesBothKindsOfObserversOnce)
{
    listen();
    const auto third = spline.appendControlPoint({3.0F, 0.0F, 0.0F});
    EXPECT_EQ(ofLine.types, std::vector(1, GuidingLineEvent::NumberOfPointsUpdated));
    EXPECT_EQ(ofObject.changes, 1);
    spline.appendLastControlPoint({4.0F, 0.0F, 0.0F});
    spline.removeControlPoint(third);
    spline.clear();
    EXPECT_EQ(ofLine.types, std::vector(4, GuidingLineEvent::NumberOfPointsUpdated));
    EXPECT_EQ(ofObject.changes, 4);
    EXPECT_TRUE(spline.getOriginalPath().isEmpty());
    EXPECT_TRUE(spline.getControlPoints().isEmpty());
}

TEST_F(SplineTest, RemovingWhatDoesNotExistNotifiesNobody)
{
    spline.clear();
    listen();
    spline.clear();
    spline.removeControlPoint(first);
    spline.removeControlPoint(nullptr);
    EXPECT_TRUE(ofLine.types.empty());
    EXPECT_EQ(ofObject.changes, 0);
}

TEST_F(SplineTest, LastPointFinishesAndEveryOtherChangeOfThePointsOpensAgain)
{
    EXPECT_FALSE(spline.isFinished());
    const auto last = spline.appendLastControlPoint({3.0F, 0.0F, 0.0F});
    EXPECT_TRUE(spline.isFinished());
    EXPECT_EQ(spline.getControlPoints().last(), last);
    spline.appendControlPoint({4.0F, 0.0F, 0.0F});
    EXPECT_FALSE(spline.isFinished());
    spline.appendLastControlPoint({5.0F, 0.0F, 0.0F});
    spline.removeControlPoint(last);
    EXPECT_FALSE(spline.isFinished());
    spline.appendLastControlPoint({6.0F, 0.0F, 0.0F});
    spline.clear();
    EXPECT_FALSE(spline.isFinished());
}

TEST_F(SplineTest, PathThatWasSetIsKeptUntilThePointsChange)
{
    listen();
    const QList<QVector3D> samples{{7.0F, 7.0F, 7.0F}};
    spline.setOriginalPath(samples);
    EXPECT_EQ(spline.getOriginalPath(), samples);
    EXPECT_EQ(ofLine.types, std::vector{GuidingLineEvent::PathChanged});
    EXPECT_EQ(ofObject.changes, 1);
    EXPECT_EQ(spline.getControlPoints().size(), 2);
    spline.pointsChanged();
    EXPECT_EQ(spline.getOriginalPath().size(), 3);
}

TEST_F(SplineTest, CoordinateThatIsNotFiniteLeavesNoPath)
{
    spline.appendControlPoint({kNan, 0.0F, 0.0F});
    EXPECT_TRUE(spline.getOriginalPath().isEmpty());
    EXPECT_EQ(spline.getControlPoints().size(), 3);
}

TEST_F(SplineTest, IsMovedByNewPointsThatCarryTheTags)
{
    spline.setTooth(tooth(20), second);
    listen();
    QMatrix4x4 upwards;
    upwards.translate(0.0F, 0.0F, 5.0F);
    spline.transformAndCreateNewPoints(upwards);
    EXPECT_EQ(first->getPosition(), kNull) << "the former point stays";
    const auto points = spline.getControlPoints();
    ASSERT_EQ(points.size(), 2);
    EXPECT_EQ(points[0]->getPosition(), QVector3D(0.0F, 0.0F, 5.0F));
    EXPECT_EQ(points[1]->getPosition(), QVector3D(2.0F, 0.0F, 5.0F));
    EXPECT_EQ(spline.getObjects(),
              (QMap<ToothChart::Tooth, std::shared_ptr<Point>>{{tooth(20), points[1]}}));
    EXPECT_EQ(spline.getOriginalPath().first(), QVector3D(0.0F, 0.0F, 5.0F));
    EXPECT_EQ(ofLine.types, std::vector{GuidingLineEvent::PathChanged});
    EXPECT_EQ(ofObject.changes, 1);
}

TEST(GuidingSpline, WithoutPointsMovesThePathThatWasSet)
{
    GuidingSpline spline;
    spline.setOriginalPath({{1.0F, 0.0F, 0.0F}});
    QMatrix4x4 upwards;
    upwards.translate(0.0F, 0.0F, 5.0F);
    spline.transformAndCreateNewPoints(upwards);
    EXPECT_EQ(spline.getOriginalPath(), (QList<QVector3D>{{1.0F, 0.0F, 5.0F}}));
}

TEST(PlanarGuidingSpline, GivesThePlaneAsSet)
{
    ObjectRecorder ofObject;
    PlanarGuidingSpline spline;
    spline.attach(&ofObject);
    EXPECT_EQ(spline.getPlane(), nullptr);
    const auto plane = std::make_shared<PlanarReslice>();
    spline.setPlane(plane);
    EXPECT_EQ(spline.getPlane(), plane);
    EXPECT_EQ(ofObject.changes, 1);
}

// Tags of the dental spline

TEST_F(SplineTest, ToothsAreTagsOfControlPointsInAscendingOrder)
{
    listen();
    spline.setTooth(tooth(7), first);
    spline.setTooth(tooth(3), second);
    EXPECT_EQ(spline.getObjects().keys(), (QList{tooth(3), tooth(7)}));
    EXPECT_EQ(spline.getObjects().value(tooth(7)), first);
    EXPECT_EQ(ofObject.changes, 2);
    EXPECT_TRUE(ofLine.types.empty());
}

TEST_F(SplineTest, ToothHasOnePointAndPointOneTooth)
{
    spline.setTooth(tooth(7), first);
    spline.setTooth(tooth(7), second);
    EXPECT_EQ(spline.getObjects().value(tooth(7)), second);
    spline.setTooth(tooth(8), second);
    EXPECT_EQ(spline.getObjects().keys(), QList{tooth(8)});
    spline.setTooth(tooth(8), nullptr);
    EXPECT_TRUE(spline.getObjects().isEmpty());
}

TEST_F(SplineTest, PointThatIsNoneOfTheSplinesIsNotTagged)
{
    spline.setTooth(tooth(7), first);
    listen();
    spline.setTooth(tooth(7), std::make_shared<Point>());
    EXPECT_EQ(spline.getObjects().value(tooth(7)), first);
    EXPECT_EQ(ofObject.changes, 0);
}

TEST_F(SplineTest, TagsGoWithTheirPoints)
{
    spline.setTooth(tooth(7), first);
    spline.setTooth(tooth(8), second);
    spline.removeControlPoint(first);
    EXPECT_EQ(spline.getObjects().keys(), QList{tooth(8)});
    spline.clear();
    EXPECT_TRUE(spline.getObjects().isEmpty());
}

TEST_F(SplineTest, OcclusalIndexArchTypeAndCreationTypeAreSetWithoutNotification)
{
    EXPECT_EQ(spline.getOcclusalIndex(), 0);
    EXPECT_EQ(spline.getArchType(), ToothChart::UpperArch);
    EXPECT_EQ(spline.getCreationType(), AutomaticallyCreated);
    listen();
    spline.setOcclusalIndex(120);
    spline.setArchType(ToothChart::LowerArch);
    spline.setCreationType(ManuallyCreated);
    EXPECT_EQ(spline.getOcclusalIndex(), 120);
    EXPECT_EQ(spline.getArchType(), ToothChart::LowerArch);
    EXPECT_EQ(spline.getCreationType(), ManuallyCreated);
    EXPECT_EQ(ofObject.changes, 0);
    EXPECT_TRUE(ofLine.types.empty());
}

} // namespace
