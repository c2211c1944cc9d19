// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Draws a dental arch through four points, two of which are teeth, and moves a copy of it.
#include <CoreAlgorithms/dental/PlanarDentalSplineUpdater.h>

#include <iostream>

int main()
{
    const std::vector<QVector3D> points = {
        {-20.0F, 0.0F, 5.0F}, {-10.0F, 30.0F, 5.0F}, {10.0F, 30.0F, 5.0F}, {20.0F, 0.0F, 5.0F}};
    const QMap<ToothChart::Tooth, QVector3D> teeth = {{ToothChart::Tooth(6), points[1]},
                                                      {ToothChart::Tooth(11), points[2]}};
    QMatrix4x4 movement;
    movement.translate(0.0F, 0.0F, 7.0F);

    // [PlanarDentalSplineUpdater]
    PlanarDentalSpline arch;
    PlanarDentalSplineUpdater::update(arch, points, teeth, 40, ToothChart::UpperArch,
                                      std::make_unique<math::CatmullRomSpline3D>(),
                                      ManuallyCreated);
    PlanarDentalSpline moved;
    PlanarDentalSplineUpdater::copy(arch, moved, true);
    PlanarDentalSplineUpdater::transform(moved, movement, 47);
    const auto movedTeeth = PlanarDentalSplineUpdater::getTeethPositions(moved);
    // [PlanarDentalSplineUpdater]

    for (auto tooth = movedTeeth.cbegin(); tooth != movedTeeth.cend(); ++tooth)
        std::cout << "tooth " << tooth.key() << " is at z = " << tooth.value().z() << " mm\n";
    const bool isRight =
        movedTeeth.size() == 2 &&
        movedTeeth.value(ToothChart::Tooth(6)) == QVector3D(-10.0F, 30.0F, 12.0F) &&
        PlanarDentalSplineUpdater::getPointPositions(arch) == points &&
        moved.getOcclusalIndex() == 47;
    return isRight ? 0 : 1;
}
