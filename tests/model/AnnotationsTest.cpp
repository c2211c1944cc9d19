// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Annotations.h>

// Annotations: positions, moves and notification.

#include <tests/support/ModelRecorders.h>

#include <gtest/gtest.h>

namespace {

using test::ChangeCounter;
using test::expectVector;
using test::quarterTurnAndShift;

TEST(PointAnnotation, NotifiesOfItsNewPosition)
{
    PointAnnotation annotation;
    ChangeCounter counter;
    annotation.attach(&counter);
    expectVector(annotation.getPosition(), 0.0F, 0.0F, 0.0F);
    annotation.changePosition({1.0F, 2.0F, 3.0F});
    expectVector(annotation.getPosition(), 1.0F, 2.0F, 3.0F);
    EXPECT_EQ(counter.changes, 1);
}

TEST(LineAnnotation, ChangesOnePositionOfThoseItHas)
{
    LineAnnotation annotation;
    annotation.setPositions({{1.0F, 0.0F, 0.0F}, {2.0F, 0.0F, 0.0F}});
    ChangeCounter counter;
    annotation.attach(&counter);
    annotation.changePosition(1, {0.0F, 5.0F, 0.0F});
    annotation.changePosition(-1, {9.0F, 9.0F, 9.0F});
    annotation.changePosition(2, {9.0F, 9.0F, 9.0F});
    EXPECT_EQ(annotation.getPositions(),
              QList<QVector3D>({{1.0F, 0.0F, 0.0F}, {0.0F, 5.0F, 0.0F}}));
    EXPECT_EQ(counter.changes, 1);
}

TEST(GreyValueMeasurement, KeepsItsValueWhenItsPositionChanges)
{
    GreyValueMeasurement measurement;
    measurement.setGreyValue(312.0F);
    measurement.changePosition({1.0F, 2.0F, 3.0F});
    expectVector(measurement.getPosition(), 1.0F, 2.0F, 3.0F);
    EXPECT_EQ(measurement.getGreyValue(), 312.0F);
}

// The point (1, 2, 3) is mapped to (10 - 2, 20 + 1, 30 + 3), and the direction (1, 0, 0) to (0, 1,
// 0).
TEST(Annotations, MoveByAMatrixAndNotifyOnce)
{
    const QMatrix4x4 matrix = quarterTurnAndShift();
    const QVector3D p(1.0F, 2.0F, 3.0F);
    const auto moveAndCount = [&matrix](auto& annotation) {
        ChangeCounter counter;
        annotation.attach(&counter);
        annotation.applyTransform(matrix);
        EXPECT_EQ(counter.changes, 1);
    };

    PencilAnnotation3D pencil;
    pencil.setPositions({p, {}});
    moveAndCount(pencil);
    expectVector(pencil.getPositions()[0], 8.0F, 21.0F, 33.0F);
    expectVector(pencil.getPositions()[1], 10.0F, 20.0F, 30.0F);

    ArrowAnnotation3D arrow;
    arrow.setArrow(p, {});
    moveAndCount(arrow);
    expectVector(arrow.getTail(), 8.0F, 21.0F, 33.0F);
    expectVector(arrow.getTip(), 10.0F, 20.0F, 30.0F);

    CircleAnnotation3D circle;
    circle.setCircle(p, {2.0F, 0.0F, 0.0F}, 4.0F);
    expectVector(circle.getNormal(), 1.0F, 0.0F, 0.0F);
    moveAndCount(circle);
    expectVector(circle.getCenter(), 8.0F, 21.0F, 33.0F);
    expectVector(circle.getNormal(), 0.0F, 1.0F, 0.0F);
    EXPECT_EQ(circle.getRadius(), 4.0F);

    TextAnnotation3D text;
    text.setText(QStringLiteral("words"));
    text.setPosition(p);
    moveAndCount(text);
    expectVector(text.getPosition(), 8.0F, 21.0F, 33.0F);
    EXPECT_EQ(text.getText(), QStringLiteral("words"));

    CustomResliceAnnotation reslice;
    QMatrix4x4 placement;
    placement.translate(p);
    reslice.setResliceTransform(placement);
    moveAndCount(reslice);
    expectVector(reslice.getResliceTransform().map(QVector3D()), 8.0F, 21.0F, 33.0F);
    expectVector(reslice.getResliceTransform().column(0).toVector3D(), 0.0F, 1.0F, 0.0F);

    CephPlaneBase plane;
    plane.setPlane(primitives::Plane(p, QVector3D(1.0F, 0.0F, 0.0F)));
    moveAndCount(plane);
    expectVector(plane.getPlane().getPoint(), 8.0F, 21.0F, 33.0F);
    expectVector(plane.getPlane().getNormal(), 0.0F, 1.0F, 0.0F);

    dataobject::AttachablePoint attachable;
    attachable.setPosition(p);
    moveAndCount(attachable);
    expectVector(attachable.getPosition(), 8.0F, 21.0F, 33.0F);

    dataobject::PointBased3DAnnotationBase pointBased;
    pointBased.setPositions({p});
    moveAndCount(pointBased);
    expectVector(pointBased.getPositions()[0], 8.0F, 21.0F, 33.0F);
}

} // namespace
