// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/planning/Meshes.h>
#include <planner/planning/PlanOfEveryKind.h>

#include <CoreAlgorithms/model/dataobjects/Annotations.h>
#include <CoreAlgorithms/model/dataobjects/PolyLines.h>
#include <CoreAlgorithms/model/dataobjects/Teeth.h>

#include <phantom/Phantom.h>

namespace planner {

namespace {

void addMarks(PlanOfEveryKind& plan, const phantom::Patient& patient)
{
    const auto tooth = [&patient](int number) { return patient.tooth(number).value(); };
    for (const int number : {19, 30}) {
        auto label = std::make_shared<ToothAnnotation3D>();
        label->setCreationType(ManuallyCreated);
        label->setToothType(ToothChart::Tooth(number));
        label->setPosition(tooth(number).occlusalPoint + QVector3D(0.0F, 0.0F, 9.0F));
        plan.add(2, QStringLiteral("tooth label %1").arg(number), label);
    }
    auto tied = std::make_shared<dataobject::AttachablePoint>();
    tied->setPosition(patient.rightCanal().mentalForamen);
    plan.add(3, QStringLiteral("attachable point, right mental foramen"), tied);
    auto marked = std::make_shared<PointAnnotation>();
    marked->changePosition(patient.leftCanal().mentalForamen);
    plan.add(4, QStringLiteral("point, left mental foramen"), marked);
    auto distance = std::make_shared<LineAnnotation>();
    distance->setPositions(
        {patient.rightCanal().mandibularForamen, patient.leftCanal().mandibularForamen});
    plan.add(5, QStringLiteral("line between the mandibular foramina"), distance);
    auto pencil = std::make_shared<PencilAnnotation3D>();
    pencil->setPositions(thinned(patient.archCurve(ToothChart::LowerArch), 3));
    plan.add(6, QStringLiteral("pencil stroke along the lower arch"), pencil);
    auto angle = std::make_shared<dataobject::PointBased3DAnnotationBase>();
    angle->setPositions({tooth(19).apex, tooth(24).apex, tooth(30).apex});
    plan.add(7, QStringLiteral("angle between three apices"), angle);
    auto line = std::make_shared<PolyLine>();
    line->addPoint(std::make_shared<PointLinked>(tied));
    for (const QVector3D& position : thinned(patient.rightCanal().centerLine, 10))
        line->addPoint(std::make_shared<PointUnlinked>(position));
    plan.add(12, QStringLiteral("poly-line along the right canal, one point tied"), line, [line] {
        QList<QVector3D> positions;
        for (int i = 0; i < line->getNumPositions(); ++i)
            positions.append(line->getPosition(i, VolumeContext).value());
        return positions;
    });
    plan.shown.append([tied, marked, angle] {
        QList<PlanSurface> balls;
        for (const QVector3D& position :
             QList<QVector3D>{tied->getPosition(), marked->getPosition()} + angle->getPositions())
            balls.append({ball(position, 1.6F), SurfaceKind::Mark});
        return balls;
    });
}

} // namespace

void addAnnotations(PlanOfEveryKind& plan, const phantom::Patient& patient)
{
    const auto tooth = [&patient](int number) { return patient.tooth(number).value(); };
    addMarks(plan, patient);
    auto arrow = std::make_shared<ArrowAnnotation3D>();
    arrow->setArrow(tooth(30).occlusalPoint + tooth(30).axisToCrown * 12.0F,
                    tooth(30).occlusalPoint);
    plan.add(8, QStringLiteral("arrow at tooth 30"), arrow, [arrow] {
        return QList<QVector3D>{arrow->getTail(), arrow->getTip()};
    });
    auto circle = std::make_shared<CircleAnnotation3D>();
    circle->setCircle(tooth(8).occlusalPoint, tooth(8).axisToCrown, 5.0F);
    plan.add(9, QStringLiteral("circle around tooth 8"), circle, [circle] {
        return QList<QVector3D>{circle->getCenter(), circle->getCenter() + circle->getNormal()};
    });
    auto text = std::make_shared<TextAnnotation3D>();
    text->setText(QStringLiteral("check occlusion"));
    text->setPosition(tooth(3).occlusalPoint);
    plan.add(10, QStringLiteral("text at tooth 3"), text);
    auto reslice = std::make_shared<CustomResliceAnnotation>();
    reslice->setResliceTransform(standing(tooth(14).apex, tooth(14).axisToCrown));
    plan.add(11, QStringLiteral("annotation in a custom reslice"), reslice,
             [reslice] { return cornersOf(reslice->getResliceTransform()); });
    auto grey = std::make_shared<GreyValueMeasurement>();
    grey->changePosition((tooth(24).apex + tooth(25).apex) * 0.5F);
    plan.add(13, QStringLiteral("grey value between teeth 24 and 25"), grey);
}

} // namespace planner
