// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Proposes the course of the mandibular nerve from its two foramina, for the surgeon to edit.
#include <CoreAlgorithms/dental/NerveGuidingSplineCalculator.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>

#include <iostream>

int main()
{
    const QVector3D mandibularForamen(0.0F, 0.0F, 30.0F);
    const QVector3D mentalForamen(40.0F, 0.0F, 10.0F);

    // [NerveGuidingSplineCalculator]
    NerveGuidingSplineCalculatorSettings settings;
    settings.mandibular_foramen = mandibularForamen;
    settings.mental_foramen = mentalForamen;
    settings.middle_point_distance = -1.5F;
    settings.start_point_distance = 10.0F;
    settings.start_point_angle = 90.0F;
    settings.end_point_distance = 10.0F;
    settings.end_point_angle = 90.0F;
    NerveGuidingSplineCalculator calculator(settings);
    GuidingSpline nerve;
    if (calculator.fillSpline(&nerve))
        std::cout << "the nerve runs at z = " << calculator.getZValue() << " mm\n";
    // [NerveGuidingSplineCalculator]

    const QList<QVector3D> points = calculator.getPoints();
    for (const QVector3D& point : points)
        std::cout << "through (" << point.x() << ", " << point.y() << ")\n";
    const QList<QVector3D> expected = {{40.0F, -10.0F, 20.0F},
                                       {40.0F, 0.0F, 20.0F},
                                       {20.0F, 1.5F, 20.0F},
                                       {0.0F, 0.0F, 20.0F},
                                       {0.0F, 10.0F, 20.0F}};
    return points == expected && nerve.getControlPoints().size() == 5 ? 0 : 1;
}
