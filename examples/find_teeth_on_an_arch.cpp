// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Finds a click and teeth on a dental arch on which two teeth were marked. A straight path of one
// sample per mm stands for the arch.
#include <CoreAlgorithms/dental/ComputeIndexOnGuidingLine.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Teeth.h>

#include <iostream>

int main()
{
    PlanarDentalSpline arch;
    arch.setTooth(ToothChart::Tooth(3), arch.appendControlPoint({10.0F, 0.0F, 0.0F}));
    arch.setTooth(ToothChart::Tooth(7), arch.appendControlPoint({15.0F, 0.0F, 0.0F}));
    QList<QVector3D> path;
    for (int x = 0; x < 20; ++x)
        path.append({static_cast<float>(x), 0.0F, 0.0F});
    arch.setOriginalPath(path);
    const QVector3D click(8.25F, 3.0F, 0.0F);

    // [ComputeIndexOnGuidingLine]
    const int sample = ComputeIndexOnGuidingLine::getIndexOf(click, &arch);
    std::cout << "the click is at sample " << sample << '\n';
    const int index = ComputeIndexOnGuidingLine::getToothIndex(ToothChart::Tooth(5), &arch, false);
    std::cout << "tooth 5 is at sample " << index << '\n';
    const auto between = ComputeIndexOnGuidingLine::getIntermediateTeeth(&arch, nullptr);
    for (const auto& [tooth, position] : between)
        std::cout << "tooth " << tooth << " has no point; it is at x = " << position.x() << " mm\n";
    // [ComputeIndexOnGuidingLine]

    // Tooth 5 is half way from tooth 3 to tooth 7: 12.5 rounds to 13.
    const bool isRight = sample == 8 && index == 13 && between.size() == 3 &&
                         between.at(ToothChart::Tooth(5)) == path[13];
    return isRight ? 0 : 1;
}
