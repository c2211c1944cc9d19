// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Teeth.h>

#include <initializer_list>
#include <memory>

namespace test {

/// Samples (0, 0, 0), (1, 0, 0), ...: the index of a sample is its x.
inline QList<QVector3D> pathAlongX(int size)
{
    QList<QVector3D> path;
    path.reserve(size);
    for (int i = 0; i < size; ++i)
        path.append(QVector3D(static_cast<float>(i), 0.0F, 0.0F));
    return path;
}

struct ToothPlace
{
    int tooth;
    float x;
};

/// An arch along the x axis whose samples stand 1 mm apart from 0 on, so that a tooth at x lies at index x.
inline std::shared_ptr<PlanarDentalSpline> makeArch(int samples, std::initializer_list<ToothPlace> teeth)
{
    auto spline = std::make_shared<PlanarDentalSpline>();
    for (const ToothPlace& place : teeth)
        spline->setTooth(ToothChart::Tooth(place.tooth),
                         spline->appendControlPoint(QVector3D(place.x, 0.0F, 0.0F)));
    spline->setOriginalPath(pathAlongX(samples));
    return spline;
}

inline std::shared_ptr<dataobject::Tooth> makeTooth(int number)
{
    return std::make_shared<dataobject::Tooth>(ToothChart::Tooth(number), dataobject::Tooth::Present,
                                               dataobject::Tooth::Permanent);
}

inline std::shared_ptr<dataobject::Mouth> makeMouth(std::initializer_list<int> numbers)
{
    auto mouth = std::make_shared<dataobject::Mouth>();
    for (const int number : numbers)
        mouth->addTooth(makeTooth(number));
    return mouth;
}

} // namespace test
