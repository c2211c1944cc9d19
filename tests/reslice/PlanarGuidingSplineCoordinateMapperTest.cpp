// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/reslice/PlanarGuidingSplineCoordinateMapper.h>

// Covered: mapping onto the plane of a spline's points, when that plane is fitted again, the links
// between mapper and spline.

#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/reslice/CoordinateMapper.h>

#include <tests/support/ExactComparison.h>
#include <tests/support/ResliceBuilders.h>

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <type_traits>

struct PlanarGuidingSplineCoordinateMapperTestAccess
{
    using Mapper = PlanarGuidingSplineCoordinateMapper;

    static void numberUpdated(Mapper& mapper) { mapper.onNumberOfPointsUpdated(); }
    static void pointAdded(Mapper& mapper) { mapper.onPointAdded(); }
    static void pointRemoved(Mapper& mapper) { mapper.onPointRemoved(); }
    static void changed(Mapper& mapper, events::GuidingLineEvent* event)
    {
        mapper.changedEvent(nullptr, event);
    }
    static int count(const Mapper& mapper) { return mapper.fittedPointCount; }
};

namespace {

using Access = PlanarGuidingSplineCoordinateMapperTestAccess;
using Mapper = PlanarGuidingSplineCoordinateMapper;
using test::expectPoint;
using test::makePlanarReslice;

static_assert(std::has_virtual_destructor_v<Mapper>);
static_assert(std::is_base_of_v<patterns::Observer<GuidingLine, events::GuidingLineEvent>, Mapper>);
// The spline is kept by reference.
static_assert(std::is_constructible_v<Mapper, PlanarGuidingSpline&> &&
              !std::is_constructible_v<Mapper, PlanarGuidingSpline>);

// How often the positions of its points were read: each fit reads each of them once.
class ReadingPoint : public Point
{
public:
    ReadingPoint(const QVector3D& positionMm, int& counter) : Point(positionMm), reads(counter) {}
    QVector3D getPosition() const override
    {
        ++reads;
        return Point::getPosition();
    }

private:
    int& reads;
};

// A spline over points that the test sets, which sends what the test says.
class RecordingSpline : public PlanarGuidingSpline
{
public:
    QList<std::shared_ptr<Point>> getControlPoints() const override { return points; }

    void setPoints(const QList<QVector3D>& positions)
    {
        points.clear();
        for (qsizetype i = 0; i < positions.size(); ++i)
            points.append(std::make_shared<ReadingPoint>(positions[i], i == 0 ? fits : ignored));
    }

    void send(int type)
    {
        events::GuidingLineEvent event;
        event.type = static_cast<events::GuidingLineEvent::Type>(type);
        LineObservable::notify(&event);
    }

    // Fits since the last question.
    int takeFits() { return std::exchange(fits, 0); }

    QList<std::shared_ptr<Point>> points;

private:
    int fits = 0;
    int ignored = 0;
};

const QList<QVector3D> kAtFive = {{0.0F, 0.0F, 5.0F}, {10.0F, 0.0F, 5.0F}, {0.0F, 10.0F, 5.0F}};
const QList<QVector3D> kAtNine = {{0.0F, 0.0F, 9.0F}, {10.0F, 0.0F, 9.0F}, {0.0F, 10.0F, 9.0F}};

const QList<QVector3D> kFourPoints = kAtNine + QList<QVector3D>{{20.0F, 20.0F, 9.0F}};

// Where the mapper puts (30, 60) of a view in the plane z = 0, that is (30, 20) of the reslice.
QVector3D mapped(Mapper& mapper)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F);
    return mapper.mapToSplinePlane(*reslice, {30.0, 60.0});
}

// The fit is in double precision, its narrowing exact for these planes but for what the fit itself
// rounds.
void expectHeight(Mapper& mapper, float z)
{
    const QVector3D point = mapped(mapper);
    EXPECT_NEAR(point.x(), 30.0F, 0x1p-18F);
    EXPECT_NEAR(point.y(), 20.0F, 0x1p-18F);
    EXPECT_NEAR(point.z(), z, 0x1p-18F);
}

TEST(PlanarGuidingSplineCoordinateMapper, ViewPointIsMovedOntoThePlaneOfTheSplinesPoints)
{
    RecordingSpline spline;
    spline.setPoints(kAtFive);
    Mapper mapper(spline);
    expectHeight(mapper, 5.0F);
}

TEST(PlanarGuidingSplineCoordinateMapper, ObliquePlaneIsMetAlongTheNormalOfTheReslice)
{
    RecordingSpline spline;
    spline.setPoints({{0.0F, 0.0F, 0.0F}, {4.0F, 0.0F, 2.0F}, {0.0F, 4.0F, 0.0F}}); // z = x / 2
    Mapper mapper(spline);
    expectHeight(mapper, 15.0F);
}

TEST(PlanarGuidingSplineCoordinateMapper, PointToResliceIgnoresThePlane)
{
    RecordingSpline spline;
    spline.setPoints(kAtFive);
    Mapper mapper(spline);
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F);
    expectPoint(mapper.mapToReslice(*reslice, {30.0F, 20.0F, 700.0F}), 30.0, 60.0);
}

TEST(PlanarGuidingSplineCoordinateMapper, WithTooFewPointsTheResliceReplacesThePlane)
{
    RecordingSpline spline;
    for (const QList<QVector3D>& few : {QList<QVector3D>(), kAtFive.mid(0, 1), kAtFive.mid(0, 2)}) {
        spline.setPoints(few);
        Mapper mapper(spline);
        expectPoint(mapped(mapper), 30.0F, 20.0F, 0.0F);
    }
}

TEST(PlanarGuidingSplineCoordinateMapper, PointsThatSpanNoPlaneGiveThePointOnTheReslice)
{
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    RecordingSpline spline;
    spline.setPoints({{0.0F, 0.0F, 5.0F}, {1.0F, 1.0F, 5.0F}, {2.0F, 2.0F, 5.0F}});
    Mapper inALine(spline);
    expectPoint(mapped(inALine), 30.0F, 20.0F, 0.0F);
    spline.setPoints({{0.0F, 0.0F, 5.0F}, {nan, 1.0F, 5.0F}, {2.0F, 5.0F, 5.0F}});
    Mapper notFinite(spline);
    expectPoint(mapped(notFinite), 30.0F, 20.0F, 0.0F);
}

TEST(PlanarGuidingSplineCoordinateMapper, NullPointsAreSkippedByTheFit)
{
    RecordingSpline spline;
    spline.setPoints(kAtFive);
    spline.points.append(nullptr);
    Mapper mapper(spline);
    expectHeight(mapper, 5.0F);
    EXPECT_EQ(Access::count(mapper), 4);
}

// The spline's events

TEST(PlanarGuidingSplineCoordinateMapper, FitsOnceWhenItIsMadeAndCountsThePoints)
{
    RecordingSpline spline;
    spline.setPoints(kAtFive);
    const Mapper mapper(spline);
    EXPECT_EQ(spline.takeFits(), 1);
    EXPECT_EQ(Access::count(mapper), 3);
}

TEST(PlanarGuidingSplineCoordinateMapper, AddedPointsDoNotTiltThePlaneOfTheFirstOnesByDesign)
{
    RecordingSpline spline;
    spline.setPoints(kAtFive);
    Mapper mapper(spline);
    spline.takeFits();
    spline.setPoints(kFourPoints);
    spline.send(3);
    EXPECT_EQ(spline.takeFits(), 0);
    expectHeight(mapper, 5.0F);
    EXPECT_EQ(Access::count(mapper), 4);
}

TEST(PlanarGuidingSplineCoordinateMapper, RemovedPointsMoveThePlane)
{
    RecordingSpline spline;
    spline.setPoints(kFourPoints);
    Mapper mapper(spline);
    spline.takeFits();
    spline.setPoints(kAtFive);
    spline.send(3);
    EXPECT_EQ(spline.takeFits(), 1);
    expectHeight(mapper, 5.0F);
    EXPECT_EQ(Access::count(mapper), 3);
}

TEST(PlanarGuidingSplineCoordinateMapper, UpdateWithoutANewNumberOfPointsFitsAgain)
{
    RecordingSpline spline;
    spline.setPoints(kAtFive);
    Mapper mapper(spline);
    spline.takeFits();
    spline.setPoints(kAtNine);
    spline.send(3);
    EXPECT_EQ(spline.takeFits(), 1);
    expectHeight(mapper, 9.0F);
}

TEST(PlanarGuidingSplineCoordinateMapper, GrowthThatDoesNotFitIsRemembered)
{
    RecordingSpline spline;
    spline.setPoints(kAtFive);
    Mapper mapper(spline);
    spline.takeFits();
    spline.setPoints(kFourPoints);
    spline.send(3); // four now, without a fit
    spline.send(3); // still four: an update that does not grow
    EXPECT_EQ(spline.takeFits(), 1);
    expectHeight(mapper, 9.0F);
}

TEST(PlanarGuidingSplineCoordinateMapper, FirstPlaneIsFittedAsSoonAsThereArePointsEnough)
{
    RecordingSpline spline;
    Mapper mapper(spline);
    spline.setPoints(kAtFive.mid(0, 2));
    spline.send(3);
    EXPECT_EQ(spline.takeFits(), 1);
    expectPoint(mapped(mapper), 30.0F, 20.0F, 0.0F);
    spline.setPoints(kAtFive);
    spline.send(3);
    EXPECT_EQ(spline.takeFits(), 1);
    expectHeight(mapper, 5.0F);
}

TEST(PlanarGuidingSplineCoordinateMapper, PlaneIsGoneWhenTooFewPointsAreLeft)
{
    RecordingSpline spline;
    spline.setPoints(kAtFive);
    Mapper mapper(spline);
    spline.setPoints(kAtFive.mid(0, 2));
    spline.send(3);
    expectPoint(mapped(mapper), 30.0F, 20.0F, 0.0F);
}

TEST(PlanarGuidingSplineCoordinateMapper, OtherEventsChangeNothing)
{
    RecordingSpline spline;
    spline.setPoints(kAtFive);
    Mapper mapper(spline);
    spline.takeFits();
    spline.setPoints(kFourPoints);
    for (const int type : {-1, 0, 1, 2, 4})
        spline.send(type);
    static_cast<GuidingLine::LineObservable&>(spline).notify(); // without an event
    Access::changed(mapper, nullptr);
    EXPECT_EQ(spline.takeFits(), 0);
    EXPECT_EQ(Access::count(mapper), 3);
    expectHeight(mapper, 5.0F);
}

// The spline's hooks

TEST(PlanarGuidingSplineCoordinateMapper, HookForAddedPointsFitsOnlyTheFirstPlane)
{
    RecordingSpline spline;
    Mapper mapper(spline);
    spline.setPoints(kAtFive);
    Access::pointAdded(mapper);
    EXPECT_EQ(spline.takeFits(), 1);
    spline.setPoints(kFourPoints);
    Access::pointAdded(mapper);
    EXPECT_EQ(spline.takeFits(), 0);
    expectHeight(mapper, 5.0F);
    EXPECT_EQ(Access::count(mapper), 0);
}

TEST(PlanarGuidingSplineCoordinateMapper, HookForRemovedPointsAlwaysFits)
{
    RecordingSpline spline;
    spline.setPoints(kAtFive);
    Mapper mapper(spline);
    spline.takeFits();
    spline.setPoints(kFourPoints);
    Access::pointRemoved(mapper);
    EXPECT_EQ(spline.takeFits(), 1);
    expectHeight(mapper, 9.0F);
    EXPECT_EQ(Access::count(mapper), 3);
}

TEST(PlanarGuidingSplineCoordinateMapper,
     HookForTheNumberOfPointsFollowsTheRuleOfTheEventAndRemembersTheNumber)
{
    RecordingSpline spline;
    spline.setPoints(kAtFive);
    Mapper mapper(spline);
    spline.takeFits();
    spline.setPoints(kFourPoints);
    Access::numberUpdated(mapper); // grown: the plane stays, four are remembered
    EXPECT_EQ(spline.takeFits(), 0);
    expectHeight(mapper, 5.0F);
    EXPECT_EQ(Access::count(mapper), 4);
    Access::numberUpdated(mapper); // still four
    EXPECT_EQ(spline.takeFits(), 1);
    expectHeight(mapper, 9.0F);

    spline.setPoints(kAtFive);
    Access::numberUpdated(mapper); // shrunk
    EXPECT_EQ(spline.takeFits(), 1);
    expectHeight(mapper, 5.0F);
    EXPECT_EQ(Access::count(mapper), 3);
    spline.setPoints(kFourPoints);
    spline.send(3); // an event finds the number that the hook remembered: grown again
    EXPECT_EQ(spline.takeFits(), 0);
}

TEST(PlanarGuidingSplineCoordinateMapper, HookForTheNumberOfPointsFitsTheFirstPlane)
{
    RecordingSpline spline;
    Mapper mapper(spline);
    spline.takeFits();
    spline.setPoints(kAtFive);
    Access::numberUpdated(mapper);
    EXPECT_EQ(spline.takeFits(), 1);
    expectHeight(mapper, 5.0F);
    EXPECT_EQ(Access::count(mapper), 3);
}

// The links

TEST(PlanarGuidingSplineCoordinateMapper, FollowsTheModelsOwnSpline)
{
    PlanarGuidingSpline spline;
    Mapper mapper(spline);
    spline.appendControlPoint(kAtFive[0]);
    spline.appendControlPoint(kAtFive[1]);
    expectPoint(mapped(mapper), 30.0F, 20.0F, 0.0F);
    spline.appendControlPoint(kAtFive[2]);
    expectHeight(mapper, 5.0F);
    const auto added = spline.appendControlPoint({50.0F, 50.0F, 400.0F});
    expectHeight(mapper, 5.0F);
    spline.removeControlPoint(spline.getControlPoints().first());
    const QVector3D refitted = mapped(mapper);
    EXPECT_GT(std::abs(refitted.z() - 5.0F), 1.0F); // the far point counts now
    spline.removeControlPoint(added);
    expectPoint(mapped(mapper), 30.0F, 20.0F, 0.0F); // two points are left
}

TEST(PlanarGuidingSplineCoordinateMapper, AttachesToTheLinesObserversAndDetachesInItsDestructor)
{
    RecordingSpline spline;
    spline.setPoints(kAtFive);
    const GuidingLine::LineObservable& observable = spline;
    auto mapper = std::make_unique<Mapper>(spline);
    EXPECT_EQ(observable.getNumObservers(), 1);
    EXPECT_TRUE(observable.getObservers().contains(mapper.get()));
    EXPECT_EQ(mapper->getNumObservables(), 1);
    mapper.reset();
    EXPECT_EQ(observable.getNumObservers(), 0);
    spline.takeFits();
    spline.send(3);
    EXPECT_EQ(spline.takeFits(), 0);
}

TEST(PlanarGuidingSplineCoordinateMapper, OutlivesItsSplineWithThePlaneItHas)
{
    auto spline = std::make_unique<RecordingSpline>();
    spline->setPoints(kAtFive);
    Mapper mapper(*spline);
    spline.reset();
    EXPECT_EQ(mapper.getNumObservables(), 0);
    expectHeight(mapper, 5.0F);
}

TEST(PlanarGuidingSplineCoordinateMapper, TwoMappersOfOneSplineAreIndependent)
{
    RecordingSpline spline;
    spline.setPoints(kAtFive);
    Mapper first(spline);
    {
        const Mapper second(spline);
        spline.takeFits();
        spline.send(3);
        EXPECT_EQ(spline.takeFits(), 2);
    }
    spline.send(3);
    EXPECT_EQ(spline.takeFits(), 1);
}

} // namespace
