// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Draws a landmark and the axis of an implant into a flat slice of a CT, and turns a click in the
// slice into a position.
#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/reslice/CoordinateMapper.h>

#include <cmath>
#include <iostream>

namespace {

bool isNear(const QPointF& a, const QPointF& b)
{
    return std::abs(a.x() - b.x()) < 1e-4 && std::abs(a.y() - b.y()) < 1e-4;
}

} // namespace

int main()
{
    PlanarReslice slice; // the plane z = 0 of the world, 100 mm wide, 80 mm high
    slice.setDimensions(QSizeF(100.0, 80.0));
    slice.setSampleSize(QVector3D(1.0F, 1.0F, 1.0F));
    const QVector3D foramen(30.0F, 60.0F, 0.25F);
    const QVector3D apex(40.0F, 30.0F, -5.0F);
    const QVector3D shoulder(50.0F, 30.0F, 5.0F);
    QList<QPointF> markers;
    QList<QLineF> lines;

    // [CoordinateMapper]
    const auto [inView, inPlane, inSlice] = CoordinateMapper::_3D_To_2D_Planar(&slice, foramen);
    if (inSlice == PointInSlice::InSlice)
        markers.append(inView);
    const auto [axis, axisInPlane] =
        CoordinateMapper::_3D_To_2D_Line_Planar(&slice, apex, shoulder);
    if (axisInPlane == LineInPlane::InPlane)
        lines.append(axis);
    const QVector3D clicked = CoordinateMapper::_2D_To_3D(&slice, QPointF(30.0, 20.0));
    // [CoordinateMapper]

    for (const QPointF& marker : markers)
        std::cout << "marker at (" << marker.x() << ", " << marker.y() << ") mm of the view\n";
    for (const QLineF& line : lines)
        std::cout << "line from (" << line.x1() << ", " << line.y1() << ") to (" << line.x2()
                  << ", " << line.y2() << ")\n";
    std::cout << "clicked at (" << clicked.x() << ", " << clicked.y() << ", " << clicked.z()
              << ") mm of the world\n";
    // The slab reaches 0.5 mm to either side; the axis is drawn from its upper to its lower face.
    const bool isRight = markers == QList<QPointF>({QPointF(30.0, 20.0)}) && lines.size() == 1 &&
                         isNear(lines.first().p1(), {45.5, 50.0}) &&
                         isNear(lines.first().p2(), {44.5, 50.0}) &&
                         clicked == QVector3D(30.0F, 60.0F, 0.0F);
    return isRight ? 0 : 1;
}
