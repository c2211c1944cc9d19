// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/Shapes.h>
#include <CoreAlgorithms/model/dataobjects/ColormapFunctions.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Implants.h>
#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/model/dataobjects/Teeth.h>
#include <CoreAlgorithms/model/dataobjects/VolumeObject.h>

#include <cmath>
#include <memory>

/// Makes the objects of main.cpp in the clinic's own model.
namespace scene {

inline clinic::Micrometers inMicrometers(const QVector3D& point)
{
    const auto rounded = [](float mm) { return int(std::lround(mm * 1000.0F)); };
    return {rounded(point.x()), rounded(point.y()), rounded(point.z())};
}

inline std::shared_ptr<PlanarDentalSpline> arch(const QList<QVector3D>& path,
                                                const QMap<int, QVector3D>& teeth)
{
    std::vector<clinic::Micrometers> samples;
    for (const QVector3D& sample : path)
        samples.push_back(inMicrometers(sample));
    std::map<int, clinic::Micrometers> places;
    for (auto tooth = teeth.begin(); tooth != teeth.end(); ++tooth)
        places.emplace(tooth.key(), inMicrometers(tooth.value()));
    return std::make_shared<PlanarDentalSpline>(samples, places);
}

inline std::shared_ptr<dataobject::Mouth> mouth(const QList<int>& teeth)
{
    return std::make_shared<dataobject::Mouth>(std::set<int>(teeth.begin(), teeth.end()));
}

inline std::shared_ptr<PlanarReslice> view(const QMatrix4x4& placement, int width, int height)
{
    return std::make_shared<PlanarReslice>(
        PlanarReslice{placement.map(QVector3D()), placement.column(0).toVector3D(),
                      placement.column(1).toVector3D(), float(width), float(height)});
}

inline std::shared_ptr<dataobject::Implant3D> implant(float diameter, float length)
{
    return std::make_shared<dataobject::Implant3D>(dataobject::Implant3D{{diameter, length}});
}

inline std::unique_ptr<geometry::ShapeFactory> factory()
{
    return std::make_unique<geometry::ShapeFactory>();
}

inline QList<QMatrix4x4> placements(const geometry::ShapeNode& zone)
{
    QList<QMatrix4x4> matrices;
    for (const auto& part : zone.parts)
        matrices.append(part->placement);
    return matrices;
}

inline QList<float> measures(const geometry::ShapeNode& zone)
{
    QList<float> radiusAndLength;
    for (const auto& part : zone.parts)
        radiusAndLength << part->radius << part->length;
    return radiusAndLength;
}

inline std::shared_ptr<VolumeObject> volume(float level, float window, int darkest, int brightest)
{
    return std::make_shared<VolumeObject>(
        VolumeObject{{float(darkest), float(brightest)}, level, window, {}});
}

inline std::shared_ptr<colormap::PulpFunction> pulp(float threshold, float material)
{
    return std::make_shared<colormap::PulpFunction>(colormap::PulpFunction{threshold, material});
}

} // namespace scene
