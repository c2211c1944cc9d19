// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/dental/PlanarDentalSplineUpdater.h>

// Covered: the rebuilding of an arch, its order of host calls and its notifications; copies and
// movements.

#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using Updater = PlanarDentalSplineUpdater;
using math::CatmullRomSpline3D;
using math::PolylineSpline3D;
using Teeth = QMap<ToothChart::Tooth, QVector3D>;
using Log = std::vector<std::string>;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

static_assert(std::is_empty_v<Updater> && std::is_copy_assignable_v<Updater> &&
              std::is_move_assignable_v<Updater>);

const QVector3D kA(-20.0F, 10.0F, 30.0F);
const QVector3D kB(0.0F, -15.0F, 30.0F);
const QVector3D kC(20.0F, 10.0F, 30.0F);

ToothChart::Tooth tooth(int number)
{
    return ToothChart::Tooth(number);
}

std::unique_ptr<math::Spline3DInterface> polyline()
{
    return std::make_unique<PolylineSpline3D>();
}

// Teeth by number, with the position of their points.
QMap<int, QVector3D> tags(const PlanarDentalSpline& spline)
{
    QMap<int, QVector3D> positions;
    const auto objects = spline.getObjects();
    for (auto object = objects.cbegin(); object != objects.cend(); ++object)
        positions.insert(object.key(), object.value()->getPosition());
    return positions;
}

std::vector<QVector3D> positions(const PlanarDentalSpline& spline)
{
    std::vector<QVector3D> all;
    for (const auto& point : spline.getControlPoints())
        all.push_back(point->getPosition());
    return all;
}

// Writes down what is called, in order.
class RecordingSpline : public PlanarDentalSpline
{
public:
    mutable Log log;

    void setSpline(std::unique_ptr<math::Spline3DInterface> curve) override
    {
        log.push_back("setSpline");
        PlanarDentalSpline::setSpline(std::move(curve));
    }
    bool isCreateUndoEnabledForObject() const override
    {
        log.push_back("isCreateUndoEnabledForObject");
        return PlanarDentalSpline::isCreateUndoEnabledForObject();
    }
    void enableCreateUndoForObjectAndProperties(bool enable) override
    {
        log.push_back(enable ? "undo on" : "undo off");
        PlanarDentalSpline::enableCreateUndoForObjectAndProperties(enable);
    }
    void setNotifyObservers(bool enable) override
    {
        log.push_back(enable ? "notification on" : "notification off");
        PlanarDentalSpline::setNotifyObservers(enable);
    }
    void clear() override
    {
        log.push_back("clear");
        PlanarDentalSpline::clear();
    }
    std::shared_ptr<Point> appendControlPoint(const QVector3D& position) override
    {
        log.push_back("append");
        return PlanarDentalSpline::appendControlPoint(position);
    }
    std::shared_ptr<Point> appendLastControlPoint(const QVector3D& position) override
    {
        log.push_back("append last");
        return PlanarDentalSpline::appendLastControlPoint(position);
    }
    void setTooth(ToothChart::Tooth number, const std::shared_ptr<Point>& point) override
    {
        log.push_back("setTooth " + std::to_string(number));
        PlanarDentalSpline::setTooth(number, point);
    }
    void pointsChanged() override
    {
        log.push_back("pointsChanged");
        PlanarDentalSpline::pointsChanged();
    }
    void notifyGuidingLineObservers() override
    {
        log.push_back("notifyGuidingLineObservers");
        PlanarDentalSpline::notifyGuidingLineObservers();
    }
    void setOcclusalIndex(int sliceIndex) override
    {
        log.push_back("setOcclusalIndex");
        PlanarDentalSpline::setOcclusalIndex(sliceIndex);
    }
    void setArchType(ToothChart::ArchType arch) override
    {
        log.push_back("setArchType");
        PlanarDentalSpline::setArchType(arch);
    }
    void setCreationType(CreationType type) override
    {
        log.push_back("setCreationType");
        PlanarDentalSpline::setCreationType(type);
    }
};

// Writes down what is read, in order, up to the call that starts the rebuilding.
class ReadSpline : public PlanarDentalSpline
{
public:
    mutable Log log;

    CreationType getCreationType() const override
    {
        note("creation type");
        return PlanarDentalSpline::getCreationType();
    }
    ToothChart::ArchType getArchType() const override
    {
        note("arch type");
        return PlanarDentalSpline::getArchType();
    }
    int getOcclusalIndex() const override
    {
        note("occlusal index");
        return PlanarDentalSpline::getOcclusalIndex();
    }
    QMap<ToothChart::Tooth, std::shared_ptr<Point>> getObjects() const override
    {
        note("teeth");
        return PlanarDentalSpline::getObjects();
    }
    QList<std::shared_ptr<Point>> getControlPoints() const override
    {
        note("points");
        return PlanarDentalSpline::getControlPoints();
    }
    const math::Spline3DInterface* getSpline() const override
    {
        note("curve");
        return PlanarDentalSpline::getSpline();
    }
    void setSpline(std::unique_ptr<math::Spline3DInterface> curve) override
    {
        note("rebuild");
        rebuilding = true;
        PlanarDentalSpline::setSpline(std::move(curve));
    }

private:
    void note(const char* what) const
    {
        if (!rebuilding)
            log.push_back(what);
    }

    bool rebuilding = false;
};

// A host that keeps its points on a grid of 1 mm.
class GridSpline : public PlanarDentalSpline
{
public:
    std::shared_ptr<Point> appendControlPoint(const QVector3D& position) override
    {
        return PlanarDentalSpline::appendControlPoint(onGrid(position));
    }
    std::shared_ptr<Point> appendLastControlPoint(const QVector3D& position) override
    {
        return PlanarDentalSpline::appendLastControlPoint(onGrid(position));
    }

private:
    static QVector3D onGrid(const QVector3D& position)
    {
        return {std::round(position.x()), std::round(position.y()), std::round(position.z())};
    }
};

// A host that refuses points, and one whose list holds a null.
class RefusingSpline : public PlanarDentalSpline
{
public:
    std::shared_ptr<Point> appendControlPoint(const QVector3D&) override { return nullptr; }
    std::shared_ptr<Point> appendLastControlPoint(const QVector3D&) override { return nullptr; }
    QList<std::shared_ptr<Point>> getControlPoints() const override { return {nullptr}; }
    QMap<ToothChart::Tooth, std::shared_ptr<Point>> getObjects() const override
    {
        return {{tooth(4), nullptr}};
    }
};

class LineObserver : public patterns::Observer<GuidingLine, events::GuidingLineEvent>
{
public:
    std::vector<events::GuidingLineEvent::Type> types;

private:
    void changedEvent(GuidingLine*, events::GuidingLineEvent* event) override
    {
        types.push_back(event->type);
    }
};

class ObjectObserver : public patterns::Observer<DataObject, std::nullptr_t>
{
public:
    int changes = 0;

private:
    void changedEvent(DataObject*) override { ++changes; }
};

std::shared_ptr<PlanarDentalSpline> makeSource()
{
    auto source = std::make_shared<PlanarDentalSpline>();
    Updater::update(*source, {kA, kB, kC}, {{tooth(18), kA}, {tooth(31), kC}}, 77,
                    ToothChart::LowerArch, std::make_unique<CatmullRomSpline3D>(9),
                    ManuallyCreated);
    return source;
}

int chordsOf(const PlanarDentalSpline& spline)
{
    const auto* smooth = dynamic_cast<const CatmullRomSpline3D*>(spline.getSpline());
    return smooth ? smooth->chordsPerSegment() : 0;
}

// ---- update

TEST(PlanarDentalSplineUpdater, RebuildsPointsTagsAndValues)
{
    PlanarDentalSpline spline;
    spline.setTooth(tooth(1), spline.appendControlPoint({1.0F, 2.0F, 3.0F}));
    auto curve = std::make_unique<CatmullRomSpline3D>(5);
    const math::Spline3DInterface* address = curve.get();
    Updater::update(spline, {kA, kB, kC}, {{tooth(5), kB}, {tooth(7), kC}}, 120,
                    ToothChart::LowerArch, std::move(curve), ManuallyCreated);
    EXPECT_EQ(positions(spline), (std::vector{kA, kB, kC}));
    EXPECT_TRUE(spline.isFinished());
    EXPECT_EQ(tags(spline), (QMap<int, QVector3D>{{5, kB}, {7, kC}}));
    EXPECT_EQ(spline.getOcclusalIndex(), 120);
    EXPECT_EQ(spline.getArchType(), ToothChart::LowerArch);
    EXPECT_EQ(spline.getCreationType(), ManuallyCreated);
    EXPECT_EQ(spline.getSpline(), address);
    EXPECT_EQ(spline.getOriginalPath().first(), kA);
    EXPECT_EQ(spline.getOriginalPath().last(), kC);
}

TEST(PlanarDentalSplineUpdater, TagsAreFoundByFuzzyEqualityButThatOfTheLastPointExactlyByDesign)
{
    // 20 and the next float above it differ by 1e-7 of their value; the fuzzy comparison allows
    // 1e-5.
    const QVector3D nearB(0.0F, std::nextafter(-15.0F, 0.0F), 30.0F);
    const QVector3D nearC(std::nextafter(20.0F, 30.0F), 10.0F, 30.0F);
    PlanarDentalSpline spline;
    Updater::update(spline, {kA, kB, kC}, {{tooth(5), nearB}, {tooth(7), nearC}}, 0,
                    ToothChart::UpperArch, polyline(), AutomaticallyCreated);
    EXPECT_EQ(tags(spline), (QMap<int, QVector3D>{{5, kB}}));
    Updater::update(spline, {kA, kB, kC}, {{tooth(5), nearB}, {tooth(7), kC}}, 0,
                    ToothChart::UpperArch, polyline(), AutomaticallyCreated);
    EXPECT_EQ(tags(spline), (QMap<int, QVector3D>{{5, kB}, {7, kC}}));
}

TEST(PlanarDentalSplineUpdater, AllThreeCoordinatesOfTheLastPointCount)
{
    for (const QVector3D& other :
         {kC + QVector3D(1.0F, 0.0F, 0.0F), kC + QVector3D(0.0F, 1.0F, 0.0F),
          kC + QVector3D(0.0F, 0.0F, 1.0F)}) {
        PlanarDentalSpline spline;
        Updater::update(spline, {kA, kC}, {{tooth(7), other}}, 0, ToothChart::UpperArch, polyline(),
                        AutomaticallyCreated);
        EXPECT_TRUE(tags(spline).isEmpty());
    }
}

TEST(PlanarDentalSplineUpdater, OfTwoTeethAtOnePositionTheLowerIsTagged)
{
    PlanarDentalSpline spline;
    Updater::update(spline, {kA, kB, kC},
                    {{tooth(9), kB}, {tooth(6), kB}, {tooth(14), kC}, {tooth(12), kC}}, 0,
                    ToothChart::UpperArch, polyline(), AutomaticallyCreated);
    EXPECT_EQ(tags(spline), (QMap<int, QVector3D>{{6, kB}, {12, kC}}));
}

TEST(PlanarDentalSplineUpdater, TeethThatMatchNoPointAreNotTagged)
{
    PlanarDentalSpline spline;
    Updater::update(spline, {kA, kB}, {{tooth(3), kC}, {tooth(4), {kNan, kNan, kNan}}}, 0,
                    ToothChart::UpperArch, polyline(), AutomaticallyCreated);
    EXPECT_EQ(positions(spline), (std::vector{kA, kB}));
    EXPECT_TRUE(tags(spline).isEmpty());
}

TEST(PlanarDentalSplineUpdater, OnePositionIsTheLastPoint)
{
    RecordingSpline spline;
    Updater::update(spline, {kC}, {{tooth(7), kC}}, 0, ToothChart::UpperArch, polyline(),
                    AutomaticallyCreated);
    EXPECT_EQ(std::count(spline.log.begin(), spline.log.end(), "append"), 0);
    EXPECT_EQ(std::count(spline.log.begin(), spline.log.end(), "append last"), 1);
    EXPECT_EQ(tags(spline), (QMap<int, QVector3D>{{7, kC}}));
}

TEST(PlanarDentalSplineUpdater, ComparesWithThePositionReadBackFromTheAppendedPoint)
{
    GridSpline spline;
    Updater::update(spline, {{0.4F, 5.0F, 9.0F}, {8.0F, 5.4F, 9.0F}},
                    {{tooth(3), {0.0F, 5.0F, 9.0F}},
                     {tooth(4), {8.0F, 5.0F, 9.0F}},
                     {tooth(5), {8.0F, 5.4F, 9.0F}}},
                    0, ToothChart::UpperArch, polyline(), AutomaticallyCreated);
    EXPECT_EQ(tags(spline).keys(), (QList<int>{3, 4}));
}

TEST(PlanarDentalSplineUpdater, CallsTheHostInOrder)
{
    RecordingSpline spline;
    Updater::update(spline, {kA, kB, kC}, {{tooth(5), kB}, {tooth(7), kC}}, 120,
                    ToothChart::LowerArch, polyline(), ManuallyCreated);
    EXPECT_EQ(spline.log,
              (Log{"setSpline", "isCreateUndoEnabledForObject", "undo off", "notification off",
                   "clear", "append", "append", "setTooth 5", "append last", "setTooth 7",
                   "notification on", "pointsChanged", "notifyGuidingLineObservers",
                   "setOcclusalIndex", "setArchType", "setCreationType", "undo on"}));
}

TEST(PlanarDentalSplineUpdater, EmptyPositionListStillReplacesTheCurveAndTheValues)
{
    RecordingSpline spline;
    const auto point = spline.appendControlPoint(kA);
    spline.setTooth(tooth(5), point);
    spline.log.clear();
    LineObserver ofLine;
    ObjectObserver ofObject;
    spline.attach(&ofLine);
    spline.attach(&ofObject);
    Updater::update(spline, {}, {{tooth(9), kA}}, 33, ToothChart::LowerArch, polyline(),
                    ManuallyCreated);
    EXPECT_EQ(spline.log, (Log{"setSpline", "isCreateUndoEnabledForObject", "undo off",
                               "setOcclusalIndex", "setArchType", "setCreationType", "undo on"}));
    EXPECT_NE(dynamic_cast<const PolylineSpline3D*>(spline.getSpline()), nullptr);
    EXPECT_EQ(positions(spline), std::vector{kA});
    EXPECT_EQ(tags(spline), (QMap<int, QVector3D>{{5, kA}}));
    EXPECT_EQ(spline.getOcclusalIndex(), 33);
    EXPECT_EQ(spline.getArchType(), ToothChart::LowerArch);
    EXPECT_EQ(spline.getCreationType(), ManuallyCreated);
    EXPECT_TRUE(ofLine.types.empty());
    EXPECT_EQ(ofObject.changes, 0);
}

TEST(PlanarDentalSplineUpdater, UndoRecordingIsRestoredToWhatItWas)
{
    PlanarDentalSpline spline;
    spline.enableCreateUndoForObjectAndProperties(false);
    Updater::update(spline, {kA, kB}, {}, 0, ToothChart::UpperArch, polyline(),
                    AutomaticallyCreated);
    EXPECT_FALSE(spline.isCreateUndoEnabledForObject());
    spline.enableCreateUndoForObjectAndProperties(true);
    Updater::update(spline, {kA, kB}, {}, 0, ToothChart::UpperArch, polyline(),
                    AutomaticallyCreated);
    EXPECT_TRUE(spline.isCreateUndoEnabledForObject());
}

TEST(PlanarDentalSplineUpdater, ObserversSeeExactlyOneNotification)
{
    PlanarDentalSpline spline;
    Updater::update(spline, {kA, kC}, {}, 0, ToothChart::UpperArch, polyline(),
                    AutomaticallyCreated);
    LineObserver ofLine;
    ObjectObserver ofObject;
    spline.attach(&ofLine);
    spline.attach(&ofObject);
    Updater::update(spline, {kA, kB, kC}, {{tooth(5), kB}, {tooth(7), kC}}, 120,
                    ToothChart::LowerArch, std::make_unique<CatmullRomSpline3D>(), ManuallyCreated);
    EXPECT_EQ(ofLine.types, std::vector{events::GuidingLineEvent::PathChanged});
    EXPECT_EQ(ofObject.changes, 1);
}

TEST(PlanarDentalSplineUpdater, NotificationIsOnAfterwards)
{
    PlanarDentalSpline spline;
    spline.setNotifyObservers(false);
    Updater::update(spline, {kA, kB}, {}, 0, ToothChart::UpperArch, polyline(),
                    AutomaticallyCreated);
    EXPECT_TRUE(spline.canNotifyObservers());
}

TEST(PlanarDentalSplineUpdater, NullCurveIsHandedOver)
{
    PlanarDentalSpline spline;
    Updater::update(spline, {kA, kB}, {}, 0, ToothChart::UpperArch, nullptr, AutomaticallyCreated);
    EXPECT_EQ(spline.getSpline(), nullptr);
    EXPECT_EQ(positions(spline), (std::vector{kA, kB}));
    Updater::transform(spline, {}, 4);
    Updater::copy(spline, spline, true);
    EXPECT_EQ(spline.getSpline(), nullptr);
    EXPECT_EQ(positions(spline), (std::vector{kA, kB}));
}

TEST(PlanarDentalSplineUpdater, HostWithoutPointsIsSpared)
{
    RefusingSpline spline;
    Updater::update(spline, {kA, kB}, {{tooth(4), kA}}, 9, ToothChart::UpperArch, polyline(),
                    AutomaticallyCreated);
    EXPECT_EQ(spline.getOcclusalIndex(), 9);
    EXPECT_TRUE(Updater::getPointPositions(spline).empty());
    EXPECT_TRUE(Updater::getTeethPositions(spline).isEmpty());
}

// ---- positions

TEST(PlanarDentalSplineUpdater, Law2PositionsOfASplineAreThoseItWasBuiltFrom)
{
    const std::vector<QVector3D> points{kA, kB, kC};
    const Teeth teeth{{tooth(18), kA}, {tooth(24), kB}, {tooth(31), kC}};
    PlanarDentalSpline spline;
    Updater::update(spline, points, teeth, 0, ToothChart::LowerArch, polyline(),
                    AutomaticallyCreated);
    EXPECT_EQ(Updater::getPointPositions(spline), points);
    EXPECT_EQ(Updater::getTeethPositions(spline), teeth);
    EXPECT_TRUE(Updater::getPointPositions(PlanarDentalSpline()).empty());
    EXPECT_TRUE(Updater::getTeethPositions(PlanarDentalSpline()).isEmpty());
}

// ---- copy

TEST(PlanarDentalSplineUpdater, Law1CopyEqualsItsSource)
{
    const auto source = makeSource();
    PlanarDentalSpline target;
    Updater::copy(*source, target, true);
    EXPECT_EQ(positions(target), (std::vector{kA, kB, kC}));
    EXPECT_EQ(tags(target), (QMap<int, QVector3D>{{18, kA}, {31, kC}}));
    EXPECT_EQ(target.getOcclusalIndex(), 77);
    EXPECT_EQ(target.getArchType(), ToothChart::LowerArch);
    EXPECT_EQ(target.getCreationType(), ManuallyCreated);
    EXPECT_EQ(chordsOf(target), 9);
    EXPECT_NE(target.getSpline(), source->getSpline()) << "a clone";
    EXPECT_NE(target.getControlPoints().first(), source->getControlPoints().first());
    EXPECT_EQ(positions(*source), (std::vector{kA, kB, kC})) << "unharmed";
}

TEST(PlanarDentalSplineUpdater, CopyKeepsTheKindOfCurveOfItsTargetIfAsked)
{
    PlanarDentalSpline target;
    target.setSpline(std::make_unique<CatmullRomSpline3D>(4));
    Updater::copy(*makeSource(), target, false);
    EXPECT_EQ(chordsOf(target), 4);
    EXPECT_EQ(positions(target), (std::vector{kA, kB, kC}));
    target.setSpline(polyline());
    Updater::copy(*makeSource(), target, false);
    EXPECT_NE(dynamic_cast<const PolylineSpline3D*>(target.getSpline()), nullptr);
}

TEST(PlanarDentalSplineUpdater, CopyReadsTheSourceInOrder)
{
    ReadSpline source;
    ReadSpline withItsCurve;
    Updater::copy(source, withItsCurve, true);
    EXPECT_EQ(source.log,
              (Log{"creation type", "arch type", "occlusal index", "teeth", "points", "curve"}));
    EXPECT_EQ(withItsCurve.log, Log{"rebuild"});

    source.log.clear();
    ReadSpline withOwnCurve;
    Updater::copy(source, withOwnCurve, false);
    EXPECT_EQ(source.log, (Log{"creation type", "arch type", "occlusal index", "teeth", "points"}));
    EXPECT_EQ(withOwnCurve.log, (Log{"curve", "rebuild"}));
}

TEST(PlanarDentalSplineUpdater, CopyOntoItselfChangesNothing)
{
    const auto spline = makeSource();
    for (const bool cloneSource : {true, false}) {
        Updater::copy(*spline, *spline, cloneSource);
        EXPECT_EQ(positions(*spline), (std::vector{kA, kB, kC}));
        EXPECT_EQ(tags(*spline).keys(), (QList<int>{18, 31}));
        EXPECT_EQ(chordsOf(*spline), 9);
    }
}

// ---- transform

TEST(PlanarDentalSplineUpdater, TransformMovesPointsAndTagsAndSetsTheGivenSlice)
{
    const auto spline = makeSource();
    const QMatrix4x4 quarterTurn(0.0F, -1.0F, 0.0F, 5.0F, //
                                 1.0F, 0.0F, 0.0F, 0.0F,  //
                                 0.0F, 0.0F, 1.0F, 2.0F,  //
                                 0.0F, 0.0F, 0.0F, 1.0F);
    Updater::transform(*spline, quarterTurn, 200);
    const QVector3D a(-5.0F, -20.0F, 32.0F);
    const QVector3D b(20.0F, 0.0F, 32.0F);
    const QVector3D c(-5.0F, 20.0F, 32.0F);
    EXPECT_EQ(positions(*spline), (std::vector{a, b, c}));
    EXPECT_EQ(tags(*spline), (QMap<int, QVector3D>{{18, a}, {31, c}}));
    EXPECT_EQ(spline->getOcclusalIndex(), 200);
    EXPECT_EQ(spline->getArchType(), ToothChart::LowerArch);
    EXPECT_EQ(spline->getCreationType(), ManuallyCreated);
    EXPECT_EQ(chordsOf(*spline), 9);
}

TEST(PlanarDentalSplineUpdater, Law1TransformByTheIdentityChangesTheOcclusalIndexAlone)
{
    const auto spline = makeSource();
    Updater::transform(*spline, QMatrix4x4(), 78);
    EXPECT_EQ(positions(*spline), (std::vector{kA, kB, kC}));
    EXPECT_EQ(tags(*spline), (QMap<int, QVector3D>{{18, kA}, {31, kC}}));
    EXPECT_EQ(spline->getOcclusalIndex(), 78);
    EXPECT_EQ(spline->getArchType(), ToothChart::LowerArch);
    EXPECT_EQ(spline->getCreationType(), ManuallyCreated);
    EXPECT_EQ(chordsOf(*spline), 9);
}

TEST(PlanarDentalSplineUpdater, TransformReadsTheSplineInOrderAndNotItsSlice)
{
    ReadSpline spline;
    Updater::transform(spline, {}, 5);
    EXPECT_EQ(spline.log,
              (Log{"points", "teeth", "arch type", "curve", "creation type", "rebuild"}));
}

TEST(PlanarDentalSplineUpdater, TransformFindsTheTagsAgainUnderAnyRotation)
{
    const auto spline = makeSource();
    QMatrix4x4 turn;
    turn.rotate(37.3F, 0.3F, -0.7F, 0.2F);
    turn.translate(0.1F, 33.3F, -7.7F);
    for (int i = 0; i < 100; ++i)
        Updater::transform(*spline, turn, i);
    EXPECT_EQ(tags(*spline).keys(), (QList<int>{18, 31}));
    EXPECT_EQ(tags(*spline).value(31), positions(*spline).back());
}

TEST(PlanarDentalSplineUpdater, MatrixThatIsNotFiniteLosesTagsButNoPoints)
{
    const auto spline = makeSource();
    QMatrix4x4 broken;
    broken.fill(kNan);
    Updater::transform(*spline, broken, 5);
    EXPECT_EQ(positions(*spline).size(), 3U);
    EXPECT_TRUE(tags(*spline).isEmpty());
    EXPECT_TRUE(spline->getOriginalPath().isEmpty());
}

} // namespace
