// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

#include <QList>
#include <QMap>
#include <QVector3D>

#include <array>
#include <map>
#include <memory>
#include <vector>

namespace clinic {

/// Holds coordinates in micrometers, as the clinic stores them.
using Micrometers = std::array<int, 3>;

inline QVector3D inMillimeters(const Micrometers& point)
{
    return QVector3D(float(point[0]), float(point[1]), float(point[2])) / 1000.0F;
}

} // namespace clinic

class Point
{
public:
    explicit Point(const clinic::Micrometers& place) : position(place) {}
    QVector3D getPosition() const { return clinic::inMillimeters(position); }

private:
    clinic::Micrometers position;
};

/// Represents a line in micrometers that is converted when its path is queried.
class GuidingLine
{
public:
    explicit GuidingLine(std::vector<clinic::Micrometers> points) : samples(std::move(points)) {}
    QList<QVector3D> getOriginalPath() const
    {
        QList<QVector3D> path;
        for (const clinic::Micrometers& sample : samples)
            path.append(clinic::inMillimeters(sample));
        return path;
    }

private:
    std::vector<clinic::Micrometers> samples;
};

class PlanarDentalSpline : public GuidingLine
{
public:
    PlanarDentalSpline(std::vector<clinic::Micrometers> points,
                       std::map<int, clinic::Micrometers> places)
        : GuidingLine(std::move(points)), teeth(std::move(places))
    {}
    QMap<ToothChart::Tooth, std::shared_ptr<Point>> getObjects() const
    {
        QMap<ToothChart::Tooth, std::shared_ptr<Point>> objects;
        for (const auto& [tooth, place] : teeth)
            objects.insert(tooth, std::make_shared<Point>(place));
        return objects;
    }

private:
    std::map<int, clinic::Micrometers> teeth;
};
