// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/transforms/PlanningApplyTransform.h>

// A plan in a new scanner frame: every step, their order, what is recorded, what is unchanged, the
// way back.

#include <tests/support/ModelRecorders.h>
#include <tests/support/MovementBuilders.h>
#include <tests/support/PlanBuilders.h>
#include <tests/support/ResliceBuilders.h>
#include <tests/support/ScanBuilders.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>

struct PlanningApplyTransformTestAccess
{
    static void transformVirtualTooth(PlanningApplyTransform& apply, const QMatrix4x4& matrix)
    {
        apply.transformVirtualTooth(matrix);
    }
    static const QList<DataObject*>& changedObjects(const PlanningApplyTransform& apply)
    {
        return apply.changedObjects;
    }
    static void transformSurfaceScan(SurfaceScan* scan, const QMatrix4x4& matrix)
    {
        PlanningApplyTransform::transformSurfaceScan(scan, matrix);
    }
    static void transformMovements(MaxillofacialSurgery* surgery, const QList<DentalScan*>& scans,
                                   const std::map<QString, QMatrix4x4>& bite)
    {
        PlanningApplyTransform::transformMovements(surgery, scans, {}, bite,
                                                   QStringLiteral("mode"));
    }
};

namespace {

using Access = PlanningApplyTransformTestAccess;
using test::expectVector;
using test::kStart;
using test::quarterTurnAndShift;
using test::translation;
using test::WholePlan;

static_assert(std::has_virtual_destructor_v<PlanningApplyTransform>);
static_assert(std::is_copy_constructible_v<PlanningApplyTransform>);
static_assert(std::is_copy_assignable_v<PlanningApplyTransform>);

QList<DataObject*> moved(const QList<DataObject*>& objects,
                         const QMatrix4x4& matrix = quarterTurnAndShift())
{
    PlanningApplyTransform applyTransform;
    applyTransform.setDataObjects(objects);
    return applyTransform.applyTransform(matrix);
}

QVector3D positionOf(const QMatrix4x4& placement)
{
    return placement.column(3).toVector3D();
}

QVector3D firstVertex(const Surface3DModel& surface)
{
    return surface.getMesh().getVertices().first();
}

// ---- every step, on a plan that holds every kind

struct Step
{
    int number;
    const char* name; // in the log of moves
    int recordedAt;   // place among the changed objects, -1 for none
    std::function<DataObject*(const WholePlan&)> object; // which is moved
    std::function<QVector3D(const WholePlan&)> position; // (1, 2, 3) before, (8, 21, 33) after
};

// The name in the log, as a name of a test: "point annotation" becomes "PointAnnotation".
std::string testName(const Step& step)
{
    std::string name;
    bool beginsWord = true;
    for (const char c : std::string_view(step.name)) {
        if (std::isalpha(static_cast<unsigned char>(c)))
            name += beginsWord ? char(std::toupper(static_cast<unsigned char>(c))) : c;
        beginsWord = !std::isalpha(static_cast<unsigned char>(c));
    }
    return name;
}

void PrintTo(const Step& step, std::ostream* stream)
{
    *stream << step.number << " " << step.name;
}

QVector3D biteShift(const WholePlan& plan)
{
    const auto matrix = plan.maxillaryMovement->getOcclusionModeTransformation(
        MovementModes::OCCLUSION_PLASTER_CAST_MODE);
    // The bite shifts the maxilla by (1, 2, 3), whatever the new frame is; the rest is added to
    // tell it from none.
    return matrix ? positionOf(matrix.value()) + QVector3D(7.0F, 19.0F, 30.0F) : kStart;
}

const Step kSteps[] = {
    {1, "spline", 0, [](auto& p) { return p.spline.get(); },
     [](auto& p) { return p.spline->getControlPoints().last()->getPosition(); }},
    {2, "tooth", 1, [](auto& p) { return p.tooth.get(); },
     [](auto& p) { return p.tooth->getPosition(); }},
    {3, "attachable", 2, [](auto& p) { return p.attachable.get(); },
     [](auto& p) { return p.attachable->getPosition(); }},
    {4, "point annotation", 3, [](auto& p) { return p.pointAnnotation.get(); },
     [](auto& p) { return p.pointAnnotation->getPosition(); }},
    {5, "line annotation", 4, [](auto& p) { return p.lineAnnotation.get(); },
     [](auto& p) { return p.lineAnnotation->getPositions().last(); }},
    {6, "pencil", 5, [](auto& p) { return p.pencil.get(); },
     [](auto& p) { return p.pencil->getPositions().last(); }},
    {7, "point based", 6, [](auto& p) { return p.pointBased.get(); },
     [](auto& p) { return p.pointBased->getPositions().last(); }},
    {8, "arrow", 7, [](auto& p) { return p.arrow.get(); },
     [](auto& p) { return p.arrow->getTip(); }},
    {9, "circle", 8, [](auto& p) { return p.circle.get(); },
     [](auto& p) { return p.circle->getCenter(); }},
    {10, "text", 9, [](auto& p) { return p.text.get(); },
     [](auto& p) { return p.text->getPosition(); }},
    {11, "custom reslice", 10, [](auto& p) { return p.reslice.get(); },
     [](auto& p) { return positionOf(p.reslice->getResliceTransform()); }},
    {12, "poly-line", 11, [](auto& p) { return p.polyLine.get(); },
     [](auto& p) { return p.polyLine->getPosition(0, VolumeContext).value(); }},
    {13, "grey value", 12, [](auto& p) { return p.measurement.get(); },
     [](auto& p) { return p.measurement->getPosition(); }},
    {14, "splint", 13, [](auto& p) { return p.splint.get(); },
     [](auto& p) { return firstVertex(*p.splint); }},
    {15, "nerve", 14, [](auto& p) { return p.nerve.get(); },
     [](auto& p) { return firstVertex(*p.nerve); }},
    {16, "scan", 15, [](auto& p) { return p.upperScan.get(); },
     [](auto& p) { return firstVertex(*p.upperScan); }},
    {17, "jaw part", 17, [](auto& p) { return p.mandibula.get(); },
     [](auto& p) { return firstVertex(*p.mandibula); }},
    {18, "original models", 18, [](auto& p) { return p.anatomy.get(); },
     [](auto& p) { return firstVertex(*p.mandible); }},
    {19, "distractor", 19, [](auto& p) { return p.distractor.get(); },
     [](auto& p) { return positionOf(p.distractor->getTransform()); }},
    {20, "soft tissue", 20, [](auto& p) { return p.softTissue.get(); },
     [](auto& p) { return firstVertex(*p.softTissue); }},
    {21, "skin", 21, [](auto& p) { return p.skin.get(); },
     [](auto& p) { return firstVertex(*p.skin); }},
    {22, "osteotomy", 22, [](auto& p) { return p.osteotomy.get(); },
     [](auto& p) { return firstVertex(*p.osteotomy); }},
    {23, "surgery", -1, [](auto& p) { return p.surgery.get(); }, biteShift},
    {24, "shell", 23, [](auto& p) { return p.shell.get(); },
     [](auto& p) { return positionOf(p.shell->getObjectTransform()); }},
    {25, "joint", 24, [](auto& p) { return p.joint.get(); },
     [](auto& p) { return p.jointLine->getOriginalPath().last(); }},
    {26, "airway", 25, [](auto& p) { return p.airway.get(); },
     [](auto& p) { return firstVertex(*p.airway); }},
    {27, "show object", 26, [](auto& p) { return p.showObject.get(); },
     [](auto& p) { return firstVertex(*p.showObject); }},
    {28, "patient surface", 27, [](auto& p) { return p.patientSurface.get(); },
     [](auto& p) { return firstVertex(*p.patientSurface); }},
    {29, "ceph plane", -1, [](auto& p) { return p.ceph.get(); },
     [](auto& p) { return p.ceph->getPlane().getPoint(); }},
    {30, "locked plan", 28, [](auto& p) { return p.locked.get(); },
     [](auto& p) { return positionOf(p.locked->getScannerOrientation()); }},
    {31, "pin", 29, [](auto& p) { return p.pin.get(); },
     [](auto& p) { return positionOf(p.pin->getObjectTransform()); }},
    {32, "implant", 30, [](auto& p) { return p.implant.get(); },
     [](auto& p) { return positionOf(p.implant->getObjectTransform()); }},
    {33, "preview template", 31, [](auto& p) { return p.preview.get(); },
     [](auto& p) { return positionOf(p.preview->getObjectTransform()); }},
    {34, "surgical template", 32, [](auto& p) { return p.surgicalTemplate.get(); },
     [](auto& p) { return positionOf(p.surgicalTemplate->getObjectTransform()); }},
    {35, "collection", 33, [](auto& p) { return p.collection.get(); },
     [](auto& p) {
         return p.collection->getPreOpRotationPoint(Maxilla::getClassTypeId()).value();
     }},
    {36, "apex", 34, [](auto& p) { return p.apex.get(); },
     [](auto& p) { return p.apex->getPosition(); }},
    {37, "root canal", 35, [](auto& p) { return p.canal.get(); },
     [](auto& p) { return p.canal->getBasePosition(); }},
};

class PlanningApplyTransformStep : public testing::TestWithParam<Step>
{
protected:
    WholePlan plan;
};

TEST_P(PlanningApplyTransformStep, MovesItsObjectInItsPlaceAndRecordsIt)
{
    const Step& step = GetParam();
    const QVector3D before = step.position(plan);
    expectVector(before, 1.0F, 2.0F, 3.0F);
    const QList<DataObject*> changed = moved(plan.objects());
    const QVector3D after = step.position(plan);
    expectVector(after, 8.0F, 21.0F, 33.0F);
    EXPECT_EQ(plan.log.names.value(step.number - 1), QString::fromLatin1(step.name));
    EXPECT_EQ(plan.log.names.count(QString::fromLatin1(step.name)), 1);
    EXPECT_EQ(changed.indexOf(step.object(plan)), step.recordedAt);
    EXPECT_EQ(changed.count(step.object(plan)), step.recordedAt < 0 ? 0 : 1);
}

TEST_P(PlanningApplyTransformStep, MovesItsObjectInAPlanWithoutOthers)
{
    const Step& step = GetParam();
    QList<DataObject*> objects = {step.object(plan)};
    if (step.number == 1)
        objects << plan.volume.get();
    if (step.number == 23)
        objects << plan.upperScan.get() << plan.lowerScan.get() << plan.occlusion.get();
    moved(objects);
    const QVector3D after = step.position(plan);
    expectVector(after, 8.0F, 21.0F, 33.0F);
}

INSTANTIATE_TEST_SUITE_P(All, PlanningApplyTransformStep, testing::ValuesIn(kSteps),
                         [](const auto& row) { return testName(row.param); });

TEST(PlanningApplyTransform, RunsAll37StepsInTheirOrder)
{
    WholePlan plan;
    moved(plan.objects());
    EXPECT_EQ(plan.log.names, QStringList({"spline",
                                           "tooth",
                                           "attachable",
                                           "point annotation",
                                           "line annotation",
                                           "pencil",
                                           "point based",
                                           "arrow",
                                           "circle",
                                           "text",
                                           "custom reslice",
                                           "poly-line",
                                           "grey value",
                                           "splint",
                                           "nerve",
                                           "scan",
                                           "jaw part",
                                           "original models",
                                           "distractor",
                                           "soft tissue",
                                           "skin",
                                           "osteotomy",
                                           "surgery",
                                           "shell",
                                           "joint",
                                           "airway",
                                           "show object",
                                           "patient surface",
                                           "ceph plane",
                                           "locked plan",
                                           "pin",
                                           "implant",
                                           "preview template",
                                           "surgical template",
                                           "collection",
                                           "apex",
                                           "root canal"}));
    EXPECT_EQ(std::size(kSteps), 37U);
}

TEST(PlanningApplyTransform, ReturnsTheChangedObjectsInTheOrderOfTheSteps)
{
    WholePlan plan;
    QList<DataObject*> expected;
    for (const Step& step : kSteps) {
        if (step.recordedAt >= 0)
            expected << step.object(plan);
        if (step.number == 16)
            expected << plan.lowerScan.get();
    }
    EXPECT_EQ(moved(plan.objects()), expected);
}

TEST(PlanningApplyTransform, TakesObjectsOfOneKindInTheOrderOfTheList)
{
    PointAnnotation a;
    PointAnnotation b;
    ArrowAnnotation3D arrow;
    PointAnnotation c;
    EXPECT_EQ(moved({&c, &arrow, &a, &b}), QList<DataObject*>({&c, &a, &b, &arrow}));
}

// ---- the call as a whole

TEST(PlanningApplyTransform, EmptyListGivesAnEmptyListAndChangesNothing)
{
    EXPECT_EQ(moved({}), QList<DataObject*>());
    EXPECT_EQ(PlanningApplyTransform().applyTransform(quarterTurnAndShift()), QList<DataObject*>());
}

TEST(PlanningApplyTransform, SkipsNullAndUnknownObjectsAndMovesAllOthers)
{
    DataObject unknown;
    PointAnnotation annotation;
    annotation.changePosition(kStart);
    EXPECT_EQ(moved({nullptr, &unknown, nullptr, &annotation, nullptr}),
              QList<DataObject*>({&annotation}));
    expectVector(annotation.getPosition(), 8.0F, 21.0F, 33.0F);
}

TEST(PlanningApplyTransform, SecondCallReturnsOnlyItsOwnObjectsAndTheFirstListStays)
{
    PointAnnotation first;
    ArrowAnnotation3D second;
    PlanningApplyTransform applyTransform;
    applyTransform.setDataObjects({&first});
    const QList<DataObject*> ofFirstCall = applyTransform.applyTransform({});
    applyTransform.setDataObjects({&second});
    EXPECT_EQ(applyTransform.applyTransform({}), QList<DataObject*>({&second}));
    EXPECT_EQ(ofFirstCall, QList<DataObject*>({&first})) << "the returned list is a copy";
    EXPECT_EQ(Access::changedObjects(applyTransform), QList<DataObject*>({&second}));
}

TEST(PlanningApplyTransform, ObjectThatIsListedTwiceIsMovedAndReturnedTwice)
{
    PointAnnotation annotation;
    annotation.changePosition(kStart);
    EXPECT_EQ(moved({&annotation, &annotation}, translation(1.0F, 0.0F, 0.0F)),
              QList<DataObject*>({&annotation, &annotation}));
    expectVector(annotation.getPosition(), 3.0F, 2.0F, 3.0F);
}

TEST(PlanningApplyTransform, CopiesHoldTheSamePlanAndFrame)
{
    WholePlan plan;
    plan.upperScan->setFreehandAligned(true); // its total transform is the new scanner transform
    PlanningApplyTransform original;
    original.setDataObjects(plan.objects());
    original.setNewScannerTransform(quarterTurnAndShift());
    original.applyTransform({});
    PlanningApplyTransform copy;
    copy = original;
    EXPECT_EQ(Access::changedObjects(copy), Access::changedObjects(original));

    const QString plaster = MovementModes::OCCLUSION_PLASTER_CAST_MODE;
    plan.maxillaryMovement->removeOcclusionModeTransformation(plaster);
    EXPECT_EQ(PlanningApplyTransform(copy).applyTransform({}).size(), 36);
    // The way back out of the frame takes the origin to (-20, 10, -30); the bite adds (1, 2, 3).
    expectVector(
        positionOf(plan.maxillaryMovement->getOcclusionModeTransformation(plaster).value()), -19.0F,
        12.0F, -27.0F);
}

TEST(PlanningApplyTransform, MatrixThatIsNotFiniteChangesNothing)
{
    for (const float bad :
         {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}) {
        for (int entry = 0; entry < 16; ++entry) {
            WholePlan plan;
            QMatrix4x4 matrix;
            matrix.data()[entry] = bad;
            EXPECT_EQ(moved(plan.objects(), matrix), QList<DataObject*>());
            EXPECT_EQ(plan.log.names, QStringList());
        }
    }
}

TEST(PlanningApplyTransform, MatrixMayBeAPlacementOfThePlanItself)
{
    dataobject::AnchorPin3D pin;
    pin.setObjectTransform(quarterTurnAndShift(), TransformManipulationType(0));
    dataobject::Apex apex;
    apex.setPosition(kStart);
    EXPECT_EQ(moved({&pin, &apex}, pin.getObjectTransform()), QList<DataObject*>({&pin, &apex}));
    EXPECT_EQ(pin.getObjectTransform(), quarterTurnAndShift() * quarterTurnAndShift());
    expectVector(apex.getPosition(), 8.0F, 21.0F, 33.0F);
}

TEST(PlanningApplyTransform, SingularMatrixIsAppliedUnchanged)
{
    QMatrix4x4 flattening;
    flattening.scale(1.0F, 1.0F, 0.0F);
    WholePlan plan;
    EXPECT_EQ(moved(plan.objects(), flattening).size(), 36);
    expectVector(plan.pointAnnotation->getPosition(), 1.0F, 2.0F, 0.0F);
    // M * T * M^-1 with M^-1 the identity, as QMatrix4x4::inverted() gives.
    expectVector(
        positionOf(plan.collection->getFromPreOpToPlannedTransformation(Maxilla::getClassTypeId())
                       .value()),
        1.0F, 2.0F, 0.0F);
}

// ---- the class hierarchy

TEST(PlanningApplyTransform, NoClassOfTheModelIsMovedTwice)
{
    WholePlan plan;
    Maxilla maxilla;
    FrontSegment front;
    LeftSegment left;
    RightSegment right;
    SurgeryPlanningPart part;
    SurfaceScan scan;
    QList<DataObject*> objects = plan.objects();
    objects << &maxilla << &front << &left << &right << &part << &scan;
    const QList<DataObject*> changed = moved(objects);
    for (DataObject* object : objects) {
        if (object) {
            EXPECT_LE(changed.count(object), 1);
        }
    }
    for (DataObject* object : QList<DataObject*>{&maxilla, &front, &left, &right, &part, &scan})
        EXPECT_EQ(changed.count(object), 1);
}

// No class of this model is of two kinds, but an application's may be.
TEST(PlanningApplyTransform, ObjectOfSeveralKindsIsProcessedAsEachAndRecordedForEach)
{
    class Both : public PointAnnotation, public Skin
    {};
    Both both;
    both.changePosition(kStart);
    both.setMesh(test::startMesh());
    EXPECT_EQ(moved({static_cast<PointAnnotation*>(&both)}).size(), 2);
    expectVector(both.getPosition(), 8.0F, 21.0F, 33.0F);
    expectVector(firstVertex(both), 8.0F, 21.0F, 33.0F);
}

// ---- 1, dental splines

class DentalSplineStep : public testing::Test
{
protected:
    DentalSplineStep()
    {
        spline.appendControlPoint({});
        spline.appendLastControlPoint(kStart);
        spline.setTooth(ToothChart::Tooth(5), spline.getControlPoints().first());
        spline.setArchType(ToothChart::LowerArch);
        spline.setCreationType(ManuallyCreated);
        spline.setOcclusalIndex(77);
    }

    PlanarDentalSpline spline;
    std::shared_ptr<CTDataVolumeObject> volume = test::makeVolumeObject();
};

// The box reaches from -0.5 to 9.5: its center is 4.5, which is slice (4.5 + 0.5) / 1 = 5.
TEST_F(DentalSplineStep, MovesPointsAndTagsButNotTheOcclusalCenterOfTheCtByDesign)
{
    EXPECT_EQ(moved({&spline, volume.get()}), QList<DataObject*>({&spline}));
    expectVector(spline.getControlPoints().last()->getPosition(), 8.0F, 21.0F, 33.0F);
    expectVector(spline.getObjects().value(ToothChart::Tooth(5))->getPosition(), 10.0F, 20.0F,
                 30.0F);
    EXPECT_EQ(spline.getOcclusalIndex(), 5) << "the index of the CT's unmoved occlusal center";
    EXPECT_EQ(spline.getArchType(), ToothChart::LowerArch);
    EXPECT_EQ(spline.getCreationType(), ManuallyCreated);
}

// Six tenths of 4.5 are 2.7, slice 3.
TEST_F(DentalSplineStep, OcclusalCenterFollowsThePlaneDefinition)
{
    volume->getCTData()->setOcclusalPlaneDefinition(CTData::OcclusalPlaneDefinition(1));
    moved({volume.get(), &spline});
    EXPECT_EQ(spline.getOcclusalIndex(), 3);
}

TEST_F(DentalSplineStep, WithoutACtSplinesStayBehindWhileAllOtherObjectsMoveByDesign)
{
    CTDataVolumeObject empty;
    for (CTDataVolumeObject* volumeWithoutCt :
         {static_cast<CTDataVolumeObject*>(nullptr), &empty}) {
        PointAnnotation annotation;
        annotation.changePosition(kStart);
        EXPECT_EQ(moved({&spline, volumeWithoutCt, &annotation}),
                  QList<DataObject*>({&annotation}));
        expectVector(spline.getControlPoints().last()->getPosition(), 1.0F, 2.0F, 3.0F);
        EXPECT_EQ(spline.getOcclusalIndex(), 77);
        expectVector(annotation.getPosition(), 8.0F, 21.0F, 33.0F);
    }
}

TEST_F(DentalSplineStep, FirstVolumeDecidesEvenWithoutDataByDesign)
{
    CTDataVolumeObject empty;
    EXPECT_EQ(moved({&spline, &empty, volume.get()}), QList<DataObject*>());
    EXPECT_EQ(moved({&spline, volume.get(), &empty}), QList<DataObject*>({&spline}));
}

TEST_F(DentalSplineStep, ScanWithoutVoxelsGivesIndexZero)
{
    CTDataVolumeObject bare;
    bare.setCTData(std::make_shared<CTData>());
    EXPECT_EQ(moved({&spline, &bare}), QList<DataObject*>({&spline}));
    EXPECT_EQ(spline.getOcclusalIndex(), 0);
}

TEST_F(DentalSplineStep, EverySplineIsMoved)
{
    PlanarDentalSpline another;
    EXPECT_EQ(moved({&another, &spline, volume.get()}), QList<DataObject*>({&another, &spline}));
}

// ---- 2, tooth annotations

TEST(PlanningApplyTransform, ToothAnnotationOfCreationType0IsNeitherMovedNorReturnedByDesign)
{
    ToothAnnotation3D automatic;
    ToothAnnotation3D manual;
    ToothAnnotation3D other;
    manual.setCreationType(CreationType(1));
    other.setCreationType(CreationType(2));
    for (ToothAnnotation3D* annotation : {&automatic, &manual, &other})
        annotation->setPosition(kStart);
    EXPECT_EQ(moved({&automatic, &manual, &other}), QList<DataObject*>({&manual, &other}));
    expectVector(automatic.getPosition(), 1.0F, 2.0F, 3.0F);
    expectVector(manual.getPosition(), 8.0F, 21.0F, 33.0F);
    expectVector(other.getPosition(), 8.0F, 21.0F, 33.0F);
}

// ---- 5, line annotations

TEST(PlanningApplyTransform, EveryPositionOfALineAnnotationIsMappedOnce)
{
    LineAnnotation line;
    line.setPositions({{}, kStart, {2.0F, 0.0F, 0.0F}});
    EXPECT_EQ(moved({&line}), QList<DataObject*>({&line}));
    EXPECT_EQ(
        line.getPositions(),
        QList<QVector3D>({{10.0F, 20.0F, 30.0F}, {8.0F, 21.0F, 33.0F}, {10.0F, 22.0F, 30.0F}}));
    LineAnnotation empty;
    EXPECT_EQ(moved({&empty}), QList<DataObject*>({&empty}));
}

// ---- 12, poly-lines

class EditorRecorder : public PointEditor
{
public:
    using PointEditor::PointEditor;
    void changePoint(int index, const QVector3D& positionMm,
                     const std::shared_ptr<dataobject::AttachablePoint>& object, int place) override
    {
        calls << QStringLiteral("%1: (%2, %3, %4), %5, %6")
                     .arg(index)
                     .arg(double(positionMm.x()))
                     .arg(double(positionMm.y()))
                     .arg(double(positionMm.z()))
                     .arg(object ? QStringLiteral("an object") : QStringLiteral("no object"))
                     .arg(place);
    }
    void changePointInContext(int index, const QVector3D& positionMm, Context context) override
    {
        calls << QStringLiteral("%1: (%2, %3, %4) in %5")
                     .arg(index)
                     .arg(double(positionMm.x()))
                     .arg(double(positionMm.y()))
                     .arg(double(positionMm.z()))
                     .arg(int(context));
    }

    QStringList calls;
};

class RecordedPolyLine : public PolyLine
{
public:
    PointEditor* getPointEditor() override { return hasEditor ? &editor : nullptr; }

    EditorRecorder editor{*this};
    bool hasEditor = true;
};

TEST(PolyLineStep, FreePointIsChangedToItsImageWithNoObject)
{
    RecordedPolyLine line;
    line.addPoint(std::make_shared<PointUnlinked>(QVector3D()));
    line.addPoint(std::make_shared<PointUnlinked>(kStart));
    EXPECT_EQ(moved({&line}), QList<DataObject*>({&line}));
    EXPECT_EQ(line.editor.calls,
              QStringList({"0: (10, 20, 30), no object, -1", "1: (8, 21, 33), no object, -1"}));
}

TEST(PolyLineStep, PositionOfAFreePointIsThatInTheFrameOfValue0)
{
    class TwoFrames : public PointUnlinked
    {
    public:
        utility::Optional<QVector3D> getPosition(Context context) const override
        {
            return int(context) == 0 ? kStart : QVector3D(100.0F, 100.0F, 100.0F);
        }
    };
    RecordedPolyLine line;
    line.addPoint(std::make_shared<TwoFrames>());
    line.setSupportedContexts({Context(1)});
    moved({&line});
    EXPECT_EQ(line.editor.calls, QStringList({"0: (8, 21, 33), no object, -1"}));
}

TEST(PolyLineStep, ManyFramedPointIsChangedInEachSupportedFrameInWhichItIs)
{
    RecordedPolyLine line;
    const auto point = std::make_shared<dataobject::PointUnlinkedMultiPositions>();
    point->setPosition(Context(0), {});
    point->setPosition(Context(1), kStart);
    point->setPosition(Context(2), kStart); // a frame that the line does not support
    line.addPoint(point);
    line.setSupportedContexts({Context(1), Context(0), Context(3)});
    moved({&line});
    EXPECT_EQ(line.editor.calls, QStringList({"0: (8, 21, 33) in 1", "0: (10, 20, 30) in 0"}));
}

TEST(PolyLineStep, LinkedPointsFollowTheirObjectsOnly)
{
    RecordedPolyLine line;
    const auto object = std::make_shared<dataobject::AttachablePoint>();
    object->setPosition(kStart);
    line.addPoint(std::make_shared<PointLinked>(object));
    EXPECT_EQ(moved({&line, object.get()}), QList<DataObject*>({object.get(), &line}));
    EXPECT_EQ(line.editor.calls, QStringList());
    expectVector(line.getPosition(0, VolumeContext).value(), 8.0F, 21.0F, 33.0F);
}

TEST(PolyLineStep, FreePointWithALinkIsNotChanged)
{
    class Linked : public PointUnlinked
    {
    public:
        Linked() : PointUnlinked(kStart) {}
        std::shared_ptr<DataObject> getLinkedObject() const override
        {
            return std::make_shared<DataObject>();
        }
    };
    RecordedPolyLine line;
    line.addPoint(std::make_shared<Linked>());
    moved({&line});
    EXPECT_EQ(line.editor.calls, QStringList());
}

TEST(PolyLineStep, OtherPointsAndPointsWithoutPositionAreNotChanged)
{
    class Other : public PointInterface
    {
    public:
        std::shared_ptr<DataObject> getLinkedObject() const override { return {}; }
        utility::Optional<QVector3D> getPosition(Context /*context*/) const override
        {
            return kStart;
        }
    };
    RecordedPolyLine line;
    line.addPoint(std::make_shared<Other>());
    line.addPoint(std::make_shared<PointUnlinked>());
    line.addPoint(std::make_shared<dataobject::PointUnlinkedMultiPositions>());
    EXPECT_EQ(moved({&line}), QList<DataObject*>({&line})) << "recorded in any case";
    EXPECT_EQ(line.editor.calls, QStringList());
}

TEST(PolyLineStep, NullPointsAndALineWithoutEditorAreUnharmed)
{
    class Holey : public PolyLine
    {
    public:
        int getNumPositions() const override { return 2; }
    };
    Holey line;
    RecordedPolyLine without;
    without.hasEditor = false;
    without.addPoint(std::make_shared<PointUnlinked>(kStart));
    PolyLine empty;
    EXPECT_EQ(moved({&line, &without, &empty}), QList<DataObject*>({&line, &without, &empty}));
}

// ---- surfaces

// Records the two calls that move a surface, and the bracket around them.
template <typename Kind>
class CallRecorder : public Kind
{
public:
    void startEditing() override { calls << QStringLiteral("start"); }
    void stopEditing() override { calls << QStringLiteral("stop"); }
    void setObjectTransform(const QMatrix4x4& matrix) override
    {
        calls << QStringLiteral("transform");
        moves << matrix;
    }
    void refresh() override { calls << QStringLiteral("refresh"); }

    QStringList calls;
    QList<QMatrix4x4> moves;
};

template <typename Kind>
class SurfaceStep : public testing::Test
{};

using SurfaceKinds =
    testing::Types<dataobject::SurgicalSplint, dataobject::Nerve, SurfaceScan, SurgeryPlanningPart,
                   SoftTissueModel, Skin, OsteotomySurface, dataobject::Airway, ShowObject,
                   dataobject::PatientSurfaceModel>;
TYPED_TEST_SUITE(SurfaceStep, SurfaceKinds);

TYPED_TEST(SurfaceStep, MovesByTheMatrixAndRefreshesInOneEditingBracket)
{
    CallRecorder<TypeParam> surface;
    EXPECT_EQ(moved({&surface}), QList<DataObject*>({&surface}));
    EXPECT_EQ(surface.calls, QStringList({"start", "transform", "refresh", "stop"}));
    EXPECT_EQ(surface.moves, QList<QMatrix4x4>({quarterTurnAndShift()}));
}

TEST(PlanningApplyTransform, MovesSurfacesRelativeToWhereTheyAre)
{
    Skin skin;
    skin.setMesh(test::startMesh());
    moved({&skin});
    moved({&skin});
    // (1, 2, 3) to (8, 21, 33), and on to (10 - 21, 20 + 8, 30 + 33).
    expectVector(firstVertex(skin), -11.0F, 28.0F, 63.0F);
}

TEST(PlanningApplyTransform, NerveLineIsMovedBeforeItsSurface)
{
    class LoggingSpline : public test::Logging<GuidingSpline>
    {
    public:
        using Logging::Logging;
        void transformAndCreateNewPoints(const QMatrix4x4& matrix) override
        {
            write();
            GuidingSpline::transformAndCreateNewPoints(matrix);
        }
    };
    test::MoveLog log;
    test::LoggingSurface<dataobject::Nerve> nerve(log, QStringLiteral("surface"));
    nerve.setGuidingLine(std::make_shared<LoggingSpline>(log, QStringLiteral("line")));
    moved({&nerve});
    EXPECT_EQ(log.names, QStringList({"line", "surface"}));
}

TEST(PlanningApplyTransform, NerveLineGetsNewPointsAndMayBeNull)
{
    WholePlan plan;
    const auto formerPoint = plan.nerveLine->getControlPoints().first();
    moved({plan.nerve.get()});
    expectVector(plan.nerveLine->getControlPoints().first()->getPosition(), 8.0F, 21.0F, 33.0F);
    expectVector(formerPoint->getPosition(), 1.0F, 2.0F, 3.0F);
    plan.nerve->setGuidingLine(nullptr);
    EXPECT_EQ(moved({plan.nerve.get()}), QList<DataObject*>({plan.nerve.get()}));
}

TEST(PlanningApplyTransform, NullSurfaceScanIsSkipped)
{
    Access::transformSurfaceScan(nullptr, quarterTurnAndShift());
}

// ---- 17, jaw parts

TEST(JawPartStep, MandibulaGetsCondylesAutorotationPointsAndOcclusalPlaneButNoRotationPosition)
{
    Mandibula mandibula;
    mandibula.setCondylePositions({kStart, {}}, true);
    mandibula.setOcclusalPlanePositions({kStart, {}});
    mandibula.setRotationPosition(kStart);
    moved({&mandibula});
    expectVector(mandibula.getCondylePositions().first, 8.0F, 21.0F, 33.0F);
    expectVector(mandibula.getCondylePositions().second, 10.0F, 20.0F, 30.0F);
    expectVector(mandibula.getLeftAutoRotationPoint()->getPosition(), 8.0F, 21.0F, 33.0F);
    expectVector(mandibula.getRightAutoRotationPoint()->getPosition(), 10.0F, 20.0F, 30.0F);
    EXPECT_EQ(mandibula.getOcclusalPlanePositions(),
              QList<QVector3D>({{8.0F, 21.0F, 33.0F}, {10.0F, 20.0F, 30.0F}}));
    expectVector(mandibula.getRotationPosition(), 1.0F, 2.0F, 3.0F);
}

class MandibulaRecorder : public Mandibula
{
public:
    void refresh() override { calls << QStringLiteral("refresh"); }
    void setCondylePositions(const std::pair<QVector3D, QVector3D>& positions, bool place) override
    {
        calls << (place ? QStringLiteral("condyles and autorotation") : QStringLiteral("condyles"));
        Mandibula::setCondylePositions(positions, place);
    }
    std::shared_ptr<Point> getLeftAutoRotationPoint() const override
    {
        calls << QStringLiteral("left");
        return {};
    }
    std::shared_ptr<Point> getRightAutoRotationPoint() const override
    {
        calls << QStringLiteral("right");
        return {};
    }
    void setOcclusalPlanePositions(const QList<QVector3D>& positions) override
    {
        calls << QStringLiteral("occlusal plane");
        Mandibula::setOcclusalPlanePositions(positions);
    }

    mutable QStringList calls;
};

TEST(JawPartStep, MandibulaIsUpdatedAfterItsMoveInOrderAndWithoutAutorotationPointsUnharmed)
{
    MandibulaRecorder mandibula;
    EXPECT_EQ(moved({&mandibula}), QList<DataObject*>({&mandibula}));
    EXPECT_EQ(mandibula.calls,
              QStringList({"refresh", "condyles", "left", "right", "occlusal plane"}));
}

TEST(JawPartStep, OtherPartsGetTheirRotationPosition)
{
    Maxilla maxilla;
    FrontSegment front;
    LeftSegment left;
    RightSegment right;
    for (RotatableSurgeryPlanningPart* part :
         QList<RotatableSurgeryPlanningPart*>{&maxilla, &front, &left, &right}) {
        part->setRotationPosition(kStart);
        EXPECT_EQ(moved({part}), QList<DataObject*>({part}));
        expectVector(part->getRotationPosition(), 8.0F, 21.0F, 33.0F);
    }
}

TEST(JawPartStep, PartThatDoesNotTurnIsMovedAlone)
{
    SurgeryPlanningPart part;
    part.setMesh(test::startMesh());
    EXPECT_EQ(moved({&part}), QList<DataObject*>({&part}));
    expectVector(firstVertex(part), 8.0F, 21.0F, 33.0F);
}

// ---- 18, original models

TEST(OriginalModelsStep, MovesBothModelsAndRecordsTheAnatomy)
{
    WholePlan plan;
    EXPECT_EQ(moved({plan.anatomy.get()}), QList<DataObject*>({plan.anatomy.get()}));
    expectVector(firstVertex(*plan.cranium), 8.0F, 21.0F, 33.0F);
    expectVector(firstVertex(*plan.mandible), 8.0F, 21.0F, 33.0F);
}

TEST(OriginalModelsStep, SkullIsMovedBeforeTheMandible)
{
    test::MoveLog log;
    const auto logging = [&log](const char* name) {
        return std::make_shared<test::LoggingSurface<Surface3DModel>>(log,
                                                                      QString::fromLatin1(name));
    };
    Anatomy anatomy;
    anatomy.setOriginalModels(logging("skull"), logging("mandible"));
    moved({&anatomy});
    EXPECT_EQ(log.names, QStringList({"skull", "mandible"}));
}

TEST(OriginalModelsStep, NullModelsAreSkipped)
{
    Anatomy anatomy;
    EXPECT_EQ(moved({&anatomy}), QList<DataObject*>({&anatomy}));
    const auto mandible = std::make_shared<Surface3DModel>();
    mandible->setMesh(test::startMesh());
    anatomy.setOriginalModels(nullptr, mandible);
    moved({&anatomy});
    expectVector(firstVertex(*mandible), 8.0F, 21.0F, 33.0F);
}

// ---- 19, distractors

// A device whose position follows its shapes at once, as in some applications.
class FollowingDistractor : public Distractor
{
public:
    QMatrix4x4 getTransform() const override { return getSurfaceTree()->getObjectTransform(); }
    void moveTo(const QVector3D& positionMm) override
    {
        movedTo = positionMm;
        treeThen = positionOf(getSurfaceTree()->getObjectTransform());
    }

    QVector3D movedTo;
    QVector3D treeThen;
};

TEST(DistractorStep, PositionIsReadBeforeTheTreeMovesAndSetAfterwards)
{
    FollowingDistractor distractor;
    const auto tree = std::make_shared<SurfaceTree>();
    tree->setObjectTransform(test::startPlacement());
    distractor.setSurfaceTree(tree);
    EXPECT_EQ(moved({&distractor}), QList<DataObject*>({&distractor}));
    expectVector(positionOf(tree->getObjectTransform()), 8.0F, 21.0F, 33.0F);
    expectVector(distractor.movedTo, 8.0F, 21.0F, 33.0F);
    expectVector(distractor.treeThen, 8.0F, 21.0F, 33.0F);
}

TEST(DistractorStep, DeviceWithoutShapesIsMovedToo)
{
    Distractor distractor;
    distractor.setTransform(test::startPlacement());
    EXPECT_EQ(moved({&distractor}), QList<DataObject*>({&distractor}));
    expectVector(positionOf(distractor.getTransform()), 8.0F, 21.0F, 33.0F);
}

// ---- 23, surgery

class SurgeryStep : public testing::Test
{
protected:
    using Bite = std::map<QString, QMatrix4x4>;

    SurgeryStep()
    {
        upper.setJawType(UpperJaw);
        lower.setJawType(LowerJaw);
    }

    static Bite biteShifting(float x)
    {
        return {{Maxilla::getClassTypeId(), translation(x, 0.0F, 0.0F)},
                {Mandibula::getClassTypeId(), QMatrix4x4()}};
    }
    // How far the maxilla moves along x in a mode; -1 for no transformation.
    float maxillaX(const QString& mode) const
    {
        const auto matrix = made.maxillary->getOcclusionModeTransformation(mode);
        return matrix ? matrix.value()(0, 3) : -1.0F;
    }

    const QString plaster = MovementModes::OCCLUSION_PLASTER_CAST_MODE;
    const QString onScreen = MovementModes::OCCLUSION_VIRTUAL_MODE;
    test::SurgeryWithMovements made;
    DentalScan upper;
    DentalScan lower;
    Occlusion occlusion;
    dataobject::VirtualOcclusion virtualOcclusion;
};

TEST_F(SurgeryStep, OcclusionIsStoredAsPlasterCastAndVirtualOcclusionAsVirtual)
{
    occlusion.setTransformations(biteShifting(5.0F));
    virtualOcclusion.setTransformations(biteShifting(6.0F));
    EXPECT_EQ(moved({&virtualOcclusion, &occlusion, &made.surgery, &upper, &lower}),
              QList<DataObject*>({&upper, &lower}))
        << "a surgery and its bites are not recorded";
    EXPECT_EQ(maxillaX(plaster), 5.0F);
    EXPECT_EQ(maxillaX(onScreen), 6.0F);
    EXPECT_EQ(made.maxillary->getMovementModes(), QStringList({plaster, onScreen}))
        << "plaster casts before bites found on the screen";
    // The mandible moves in the opposite direction.
    EXPECT_EQ(made.mandibular->getOcclusionModeTransformation(plaster).value()(0, 3), -5.0F);
}

TEST_F(SurgeryStep, LastOfSeveralBitesOfAKindStays)
{
    Occlusion second;
    occlusion.setTransformations(biteShifting(5.0F));
    second.setTransformations(biteShifting(7.0F));
    moved({&occlusion, &second, &made.surgery, &upper, &lower});
    EXPECT_EQ(maxillaX(plaster), 7.0F);
}

// The upper scan has the initial placement (0, 0, 1), and so the total transform P * (0, 0, 1); the
// lower scan was never placed, and its total the identity whatever P is. The maxilla's movement is
// O * Tmax^-1.
TEST_F(SurgeryStep, ScansAreInTheNewScannerTransformAndNotInTheMatrixOfTheMove)
{
    occlusion.setTransformations(biteShifting(0.0F));
    upper.setInitialTransform(translation(0.0F, 0.0F, 1.0F));
    PlanningApplyTransform applyTransform;
    applyTransform.setDataObjects({&occlusion, &made.surgery, &upper, &lower});
    applyTransform.setNewScannerTransform(translation(30.0F, 0.0F, 0.0F));
    applyTransform.applyTransform(translation(0.0F, 500.0F, 0.0F));
    const QMatrix4x4 matrix = made.maxillary->getOcclusionModeTransformation(plaster).value();
    expectVector(positionOf(matrix), -30.0F, 0.0F, -1.0F);
}

TEST_F(SurgeryStep, NewScannerTransformIsTheIdentityUnlessSet)
{
    occlusion.setTransformations(biteShifting(0.0F));
    upper.setInitialTransform(translation(0.0F, 0.0F, 1.0F));
    moved({&occlusion, &made.surgery, &upper, &lower});
    expectVector(positionOf(made.maxillary->getOcclusionModeTransformation(plaster).value()), 0.0F,
                 0.0F, -1.0F);
}

TEST_F(SurgeryStep, NewScannerTransformThatIsNotFiniteLeavesTheOcclusionMovementsUnchanged)
{
    occlusion.setTransformations(biteShifting(5.0F));
    virtualOcclusion.setTransformations({{Mandibula::getClassTypeId(), QMatrix4x4()},
                                         {FrontSegment::getClassTypeId(), QMatrix4x4()},
                                         {LeftSegment::getClassTypeId(), QMatrix4x4()}});
    made.maxillary->addOcclusionModeTransformation(plaster, translation(7.0F, 0.0F, 0.0F));
    upper.setInitialTransform(translation(2.0F, 0.0F, 0.0F));
    const QStringList before = test::stateOf(made.surgery, {plaster, onScreen});
    for (const float bad :
         {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}) {
        QMatrix4x4 frame;
        frame(0, 3) = bad;
        PlanningApplyTransform applyTransform;
        applyTransform.setDataObjects(
            {&occlusion, &virtualOcclusion, &made.surgery, &upper, &lower});
        applyTransform.setNewScannerTransform(frame);
        EXPECT_EQ(applyTransform.applyTransform({}), QList<DataObject*>({&upper, &lower}))
            << "all other objects are moved";
        EXPECT_EQ(test::stateOf(made.surgery, {plaster, onScreen}), before);
        EXPECT_EQ(made.maxillaryParts->getMovementMode(), QString());
    }
}

TEST_F(SurgeryStep, FirstScanOfEachJawIsTaken)
{
    DentalScan none;
    DentalScan secondUpper;
    secondUpper.setJawType(UpperJaw);
    secondUpper.setInitialTransform(translation(100.0F, 0.0F, 0.0F));
    upper.setInitialTransform(translation(2.0F, 0.0F, 0.0F));
    occlusion.setTransformations(biteShifting(0.0F));
    moved({&none, &occlusion, &made.surgery, &lower, &upper, &secondUpper});
    EXPECT_EQ(maxillaX(plaster), -2.0F);
}

TEST_F(SurgeryStep, JawWithoutAScanLeavesTheMovementsUntouched)
{
    occlusion.setTransformations(biteShifting(5.0F));
    const QStringList before = test::stateOf(made.surgery, {plaster});
    moved({&occlusion, &made.surgery, &upper});
    moved({&occlusion, &made.surgery, &lower});
    EXPECT_EQ(test::stateOf(made.surgery, {plaster}), before);
}

TEST_F(SurgeryStep, WithoutASurgeryOrScansNothingHappens)
{
    occlusion.setTransformations(biteShifting(5.0F));
    EXPECT_EQ(moved({&occlusion, &made.surgery}), QList<DataObject*>());
    EXPECT_EQ(moved({&occlusion, &upper, &lower}), QList<DataObject*>({&upper, &lower}));
    Access::transformMovements(nullptr, {&upper, &lower}, biteShifting(5.0F));
    Access::transformMovements(&made.surgery, {}, biteShifting(5.0F));
    EXPECT_EQ(made.maxillary->getMovementModes(), QStringList());
}

TEST_F(SurgeryStep, OnlyTheFirstSurgeryIsTaken)
{
    const test::SurgeryWithMovements second;
    occlusion.setTransformations(biteShifting(5.0F));
    moved({&occlusion, &made.surgery, const_cast<MaxillofacialSurgery*>(&second.surgery), &upper,
           &lower});
    EXPECT_EQ(maxillaX(plaster), 5.0F);
    EXPECT_EQ(second.maxillary->getMovementModes(), QStringList());
}

TEST_F(SurgeryStep, SegmentalBiteGoesToTheSegmentalMovements)
{
    occlusion.setTransformations({{Mandibula::getClassTypeId(), QMatrix4x4()},
                                  {FrontSegment::getClassTypeId(), translation(1.0F, 0.0F, 0.0F)},
                                  {LeftSegment::getClassTypeId(), translation(2.0F, 0.0F, 0.0F)}});
    moved({&occlusion, &made.surgery, &upper, &lower});
    EXPECT_EQ(made.maxillaryParts->getMovements().size(), 2);
    EXPECT_EQ(made.mandibularParts->getMovements().size(), 2);
    EXPECT_EQ(made.maxillaryParts->getMovementMode(), plaster);
    EXPECT_EQ(maxillaX(plaster), -1.0F);
}

TEST_F(SurgeryStep, ChangesAreThoseOfARedo)
{
    class Watch : public patterns::Observer<DataObject, std::nullptr_t>
    {
    public:
        int marked = 0;

    private:
        void changedEvent(DataObject* subject) override
        {
            marked += static_cast<Movement*>(subject)->isChangedByUndoRedo() ? 1 : 0;
        }
    };
    Watch watch;
    made.maxillary->attach(&watch);
    occlusion.setTransformations(biteShifting(5.0F));
    moved({&occlusion, &made.surgery, &upper, &lower});
    EXPECT_EQ(watch.marked, 2) << "the mode and the transformation, once";
}

// ---- 24 and 25

// Records the calls that move a tree, and a bracket around them.
template <typename Kind>
class TreeRecorder : public Kind
{
public:
    void startEditing() override { calls << QStringLiteral("start"); }
    void stopEditing() override { calls << QStringLiteral("stop"); }
    void setObjectTransform(const QMatrix4x4& matrix) override
    {
        calls << QStringLiteral("transform");
        Kind::setObjectTransform(matrix);
    }

    QStringList calls;
};

TEST(PlanningApplyTransform, TreesAreMovedWithoutAnEditingBracket)
{
    TreeRecorder<TempShell> shell;
    const auto tree = std::make_shared<TreeRecorder<SurfaceTree>>();
    Distractor distractor;
    distractor.setSurfaceTree(tree);
    moved({&shell, &distractor});
    EXPECT_EQ(shell.calls, QStringList({"transform"}));
    EXPECT_EQ(tree->calls, QStringList({"transform"}));
}

TEST(PlanningApplyTransform, ShellIsMovedRelatively)
{
    TempShell shell;
    shell.setObjectTransform(translation(0.0F, 0.0F, 5.0F));
    EXPECT_EQ(moved({&shell}), QList<DataObject*>({&shell}));
    EXPECT_EQ(shell.getObjectTransform(), quarterTurnAndShift() * translation(0.0F, 0.0F, 5.0F));
}

TEST(PlanningApplyTransform, JointWithoutALineIsRecorded)
{
    dataobject::TemporomandibularJoint joint;
    EXPECT_EQ(moved({&joint}), QList<DataObject*>({&joint}));
}

// ---- 29, cephalometric planes

TEST(PlanningApplyTransform, CephPlanesAreMovedButNotReturnedByDesign)
{
    CephPlaneBase plane;
    plane.setPlane(primitives::Plane(kStart, QVector3D(1.0F, 0.0F, 0.0F)));
    EXPECT_EQ(moved({&plane}), QList<DataObject*>());
    expectVector(plane.getPlane().getPoint(), 8.0F, 21.0F, 33.0F);
    expectVector(plane.getPlane().getNormal(), 0.0F, 1.0F, 0.0F);
}

// ---- 31 to 34, what is placed absolutely

template <typename Kind>
class PlacedRecorder : public Kind
{
public:
    void setObjectTransform(const QMatrix4x4& matrix,
                            TransformManipulationType manipulation) override
    {
        placements << matrix;
        manipulations << int(manipulation);
        Kind::setObjectTransform(matrix, manipulation);
    }

    QList<QMatrix4x4> placements;
    QList<int> manipulations;
};

template <typename Kind>
class PlacedStep : public testing::Test
{};

using PlacedKinds = testing::Types<dataobject::AnchorPin3D, dataobject::Implant3D>;
TYPED_TEST_SUITE(PlacedStep, PlacedKinds);

TYPED_TEST(PlacedStep, IsSetToTheMatrixTimesItsPlacementForReason3)
{
    PlacedRecorder<TypeParam> object;
    object.TypeParam::setObjectTransform(translation(0.0F, 0.0F, 5.0F),
                                         TransformManipulationType(1));
    EXPECT_EQ(moved({&object}), QList<DataObject*>({&object}));
    EXPECT_EQ(object.placements,
              QList<QMatrix4x4>({quarterTurnAndShift() * translation(0.0F, 0.0F, 5.0F)}));
    EXPECT_EQ(object.manipulations, QList<int>({3}));
}

template <typename Kind>
class TemplateStep : public testing::Test
{};

using TemplateKinds =
    testing::Types<dataobject::PreviewSurgicalTemplate, dataobject::SurgicalTemplate3D>;
TYPED_TEST_SUITE(TemplateStep, TemplateKinds);

TYPED_TEST(TemplateStep, IsSetToTheMatrixTimesItsOwnTransformAndItsMeshStays)
{
    TypeParam surface;
    surface.setMesh(test::startMesh());
    surface.setObjectTransform(translation(0.0F, 0.0F, 5.0F));
    EXPECT_EQ(moved({&surface}), QList<DataObject*>({&surface}));
    EXPECT_EQ(surface.getObjectTransform(), quarterTurnAndShift() * translation(0.0F, 0.0F, 5.0F));
    expectVector(firstVertex(surface), 1.0F, 2.0F, 3.0F);
    expectVector(surface.getSceneBoundingBox().min(), 8.0F, 21.0F, 38.0F);
}

// ---- 35, planned and post-operative moves

class CollectionRecorder : public dataobject::PlannedToPostOpCollection
{
public:
    void setFromPreOpToPlannedAndPostOpTransformations(const Transformations& toPlanned,
                                                       const Transformations& toPostOp) override
    {
        QStringList parts;
        for (const auto& [part, matrix] : toPlanned)
            parts << QStringLiteral("planned ") + part;
        for (const auto& [part, matrix] : toPostOp)
            parts << QStringLiteral("post-op ") + part;
        calls << parts.join(QStringLiteral(", "));
        PlannedToPostOpCollection::setFromPreOpToPlannedAndPostOpTransformations(toPlanned,
                                                                                 toPostOp);
    }
    void setPreOpRotationPoint(const QString& partType, const QVector3D& pointMm) override
    {
        calls << QStringLiteral("point ") + partType;
        PlannedToPostOpCollection::setPreOpRotationPoint(partType, pointMm);
    }

    QStringList calls;
};

// M * T * M^-1 of the shift (1, 2, 3) is the turned shift (-2, 1, 3).
TEST(CollectionStep, MovesAreSeenFromTheNewFrame)
{
    CollectionRecorder collection;
    collection.PlannedToPostOpCollection::setFromPreOpToPlannedAndPostOpTransformations(
        {{QStringLiteral("a"), test::startPlacement()}},
        {{QStringLiteral("a"), translation(4.0F, 0.0F, 0.0F)},
         {QStringLiteral("b"), test::startPlacement()}});
    EXPECT_EQ(moved({&collection}), QList<DataObject*>({&collection}));
    EXPECT_EQ(collection.calls, QStringList({"planned a, post-op a, post-op b"}))
        << "written back together";
    const auto planned =
        collection.getFromPreOpToPlannedTransformation(QStringLiteral("a")).value();
    EXPECT_EQ(planned, translation(-2.0F, 1.0F, 3.0F));
    const auto postOp = collection.getFromPreOpToPostOpTransformation(QStringLiteral("a")).value();
    EXPECT_EQ(postOp, translation(0.0F, 4.0F, 0.0F));
    EXPECT_FALSE(collection.getFromPreOpToPlannedTransformation(QStringLiteral("b")));
}

// (M * T) * M^-1 is exact: 2^24 - (2^24 - 1) = 1, and 1 - 2^24. T * M^-1 would round to -2^25, and
// the whole to -2^24.
TEST(CollectionStep, ProductsAssociateFromTheLeft)
{
    dataobject::PlannedToPostOpCollection collection;
    const QMatrix4x4 move = translation(-16777215.0F, 0.0F, 0.0F);
    const QString part = QStringLiteral("a");
    collection.setFromPreOpToPlannedAndPostOpTransformations({{part, move}}, {{part, move}});
    moved({&collection}, translation(16777216.0F, 0.0F, 0.0F));
    EXPECT_EQ(collection.getFromPreOpToPlannedTransformation(part).value()(0, 3), -16777215.0F);
    EXPECT_EQ(collection.getFromPreOpToPostOpTransformation(part).value()(0, 3), -16777215.0F);
}

TEST(CollectionStep, EachPartOfEitherListIsProcessedOnce)
{
    CollectionRecorder collection;
    collection.setComparedSurgeryPartTypes(
        {QStringLiteral("c"), QStringLiteral("a"), QStringLiteral("c")});
    collection.PlannedToPostOpCollection::setFromPreOpToPlannedAndPostOpTransformations(
        {{QStringLiteral("a"), QMatrix4x4()}}, {});
    for (const char* part : {"a", "c", "not listed"})
        collection.PlannedToPostOpCollection::setPreOpRotationPoint(QString::fromLatin1(part),
                                                                    kStart);
    moved({&collection});
    EXPECT_EQ(collection.calls, QStringList({"planned a", "point a", "point c"}));
    expectVector(collection.getPreOpRotationPoint(QStringLiteral("a")).value(), 8.0F, 21.0F, 33.0F);
    expectVector(collection.getPreOpRotationPoint(QStringLiteral("c")).value(), 8.0F, 21.0F, 33.0F);
    expectVector(collection.getPreOpRotationPoint(QStringLiteral("not listed")).value(), 1.0F, 2.0F,
                 3.0F);
}

TEST(CollectionStep, NothingStoredIsNotWrittenBackButRecorded)
{
    CollectionRecorder collection;
    collection.setComparedSurgeryPartTypes({QStringLiteral("a")});
    EXPECT_EQ(moved({&collection}), QList<DataObject*>({&collection}));
    EXPECT_EQ(collection.calls, QStringList());
}

// ---- outside the sequence

TEST(PlanningApplyTransform, VirtualTeethAreNotMovedByDesign)
{
    VirtualTooth tooth;
    tooth.setObjectTransform(test::startPlacement());
    EXPECT_EQ(moved({&tooth}), QList<DataObject*>());
    EXPECT_EQ(tooth.getObjectTransform(), test::startPlacement());

    PlanningApplyTransform applyTransform;
    applyTransform.setDataObjects({nullptr, &tooth});
    Access::transformVirtualTooth(applyTransform, quarterTurnAndShift());
    EXPECT_EQ(tooth.getObjectTransform(), quarterTurnAndShift() * test::startPlacement());
    EXPECT_EQ(Access::changedObjects(applyTransform), QList<DataObject*>({&tooth}));
}

// ---- laws

// All positions of the plan, and of each placement its origin and the tips of its axes.
QList<QVector3D> coordinatesOf(const WholePlan& plan)
{
    QList<QVector3D> all;
    const auto addPlacement = [&all](const QMatrix4x4& placement) {
        for (const QVector3D& point : {QVector3D(), QVector3D(1.0F, 0.0F, 0.0F),
                                       QVector3D(0.0F, 1.0F, 0.0F), QVector3D(0.0F, 0.0F, 1.0F)})
            all << placement.map(point);
    };
    for (const Step& step : kSteps) {
        if (step.number != 23)
            all << step.position(plan);
    }
    addPlacement(plan.reslice->getResliceTransform());
    addPlacement(plan.shell->getObjectTransform());
    addPlacement(plan.distractorTree->getObjectTransform());
    addPlacement(plan.locked->getScannerOrientation());
    addPlacement(plan.pin->getObjectTransform());
    addPlacement(plan.implant->getObjectTransform());
    addPlacement(plan.preview->getObjectTransform());
    addPlacement(plan.surgicalTemplate->getObjectTransform());
    addPlacement(
        plan.collection->getFromPreOpToPlannedTransformation(Maxilla::getClassTypeId()).value());
    all << plan.circle->getNormal() << plan.ceph->getPlane().getNormal()
        << plan.mandibula->getCondylePositions().first
        << plan.mandibula->getLeftAutoRotationPoint()->getPosition()
        << plan.mandibula->getOcclusalPlanePositions() << firstVertex(*plan.cranium)
        << plan.nerveLine->getControlPoints().first()->getPosition();
    return all;
}

float largestDistance(const QList<QVector3D>& a, const QList<QVector3D>& b)
{
    float largest = a.size() == b.size() ? 0.0F : std::numeric_limits<float>::infinity();
    for (qsizetype i = 0; i < std::min(a.size(), b.size()); ++i)
        largest = std::max(largest, a[i].distanceToPoint(b[i]));
    return largest;
}

// Rigid with shifts up to 180 mm along each axis.
QMatrix4x4 randomFrame(test::RandomGeometry& random)
{
    QMatrix4x4 frame = translation(random.number(-80.0F, 80.0F), random.number(-80.0F, 80.0F),
                                   random.number(-80.0F, 80.0F));
    return frame * random.rigidPlacement();
}

constexpr float kBound = 0x1p-12F; // mm

TEST(PlanningApplyTransform, Law1RigidMoveAndItsInverseBringThePlanBack)
{
    test::RandomGeometry random(17);
    float largest = 0.0F;
    for (int i = 0; i < 300; ++i) {
        WholePlan plan;
        moved(plan.objects(),
              translation(random.number(-100.0F, 100.0F), random.number(-100.0F, 100.0F),
                          random.number(-100.0F, 100.0F)));
        const QList<QVector3D> before = coordinatesOf(plan);
        const QMatrix4x4 frame = randomFrame(random);
        moved(plan.objects(), frame);
        moved(plan.objects(), frame.inverted());
        largest = std::max(largest, largestDistance(coordinatesOf(plan), before));
    }
    RecordProperty("largestMm", std::to_string(largest));
    EXPECT_LT(largest, kBound);
}

TEST(PlanningApplyTransform, Law1ProductInOneCallEqualsTwoCalls)
{
    test::RandomGeometry random(19);
    float largest = 0.0F;
    for (int i = 0; i < 300; ++i) {
        WholePlan once;
        WholePlan twice;
        const QMatrix4x4 first = random.rigidPlacement();
        const QMatrix4x4 second = random.rigidPlacement();
        moved(once.objects(), second * first);
        moved(twice.objects(), first);
        moved(twice.objects(), second);
        largest = std::max(largest, largestDistance(coordinatesOf(once), coordinatesOf(twice)));
    }
    RecordProperty("largestMm", std::to_string(largest));
    EXPECT_LT(largest, kBound);
}

} // namespace
