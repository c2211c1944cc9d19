// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/Shapes.h>
#include <CoreAlgorithms/model/data/VexelImage3D.h>
#include <CoreAlgorithms/model/dataobjects/ColormapFunctions.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Implants.h>
#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/model/dataobjects/Teeth.h>
#include <CoreAlgorithms/model/dataobjects/VolumeObject.h>

#include <cstdint>
#include <memory>
#include <utility>

/// Makes the objects of main.cpp in the bundled model.
namespace scene {

inline std::shared_ptr<PlanarDentalSpline> arch(const QList<QVector3D>& path,
                                                const QMap<int, QVector3D>& teeth)
{
    auto spline = std::make_shared<PlanarDentalSpline>();
    for (auto tooth = teeth.begin(); tooth != teeth.end(); ++tooth)
        spline->setTooth(ToothChart::Tooth(tooth.key()), spline->appendControlPoint(tooth.value()));
    spline->setOriginalPath(path);
    return spline;
}

inline std::shared_ptr<dataobject::Mouth> mouth(const QList<int>& teeth)
{
    auto mouth = std::make_shared<dataobject::Mouth>();
    for (const int tooth : teeth)
        mouth->addTooth(std::make_shared<dataobject::Tooth>(
            ToothChart::Tooth(tooth), dataobject::Tooth::Present, dataobject::Tooth::Permanent));
    return mouth;
}

inline std::shared_ptr<PlanarReslice> view(const QMatrix4x4& placement, int width, int height)
{
    auto reslice = std::make_shared<PlanarReslice>();
    reslice->setTransformationFromResliceToWorld(placement);
    reslice->setDimensions(QSizeF(width, height));
    return reslice;
}

inline std::shared_ptr<dataobject::Implant3D> implant(float diameter, float length)
{
    auto implant = std::make_shared<dataobject::Implant3D>();
    implant->setDimensions({diameter, length});
    return implant;
}

/// Records the measures of the shapes that it makes.
class RecordingFactory : public geometry::ShapeFactory
{
public:
    using geometry::ShapeFactory::ShapeFactory;
    geometry::ShapeNode* generateCylinder(float radius, float height, bool openTop,
                                          bool openBottom) const override
    {
        radiusAndLength << radius << height;
        return geometry::ShapeFactory::generateCylinder(radius, height, openTop, openBottom);
    }
    geometry::ShapeNode* generateCone(float radius, float height, bool openBase) const override
    {
        radiusAndLength << radius << height;
        return geometry::ShapeFactory::generateCone(radius, height, openBase);
    }

    inline static QList<float> radiusAndLength;
};

inline std::unique_ptr<geometry::ShapeFactory> factory()
{
    static geometry::ShapeLoader loader;
    return std::make_unique<RecordingFactory>(loader);
}

inline QList<QMatrix4x4> placements(const geometry::ShapeNode& zone)
{
    QList<QMatrix4x4> matrices;
    for (int part = 0; part < zone.getNumChildren(); ++part)
        matrices.append(zone.getChild(part)->getTransform());
    return matrices;
}

inline QList<float> measures(const geometry::ShapeNode& /*zone*/)
{
    return std::exchange(RecordingFactory::radiusAndLength, {});
}

inline std::shared_ptr<VolumeObject> volume(float level, float window, int darkest, int brightest)
{
    VexelImage3D image({2, 1, 1}, {1.0F, 1.0F, 1.0F}, image::Int16);
    auto* voxels = static_cast<std::int16_t*>(image.dataPtr());
    voxels[0] = std::int16_t(darkest);
    voxels[1] = std::int16_t(brightest);
    auto volume = std::make_shared<VolumeObject>();
    volume->setImage(std::make_shared<const VexelImage3D>(std::move(image)));
    volume->setMIPLevelWindow(level, window);
    return volume;
}

inline std::shared_ptr<colormap::PulpFunction> pulp(float threshold, float material)
{
    auto function = std::make_shared<colormap::PulpFunction>();
    function->setNormalizedPulpThreshold(threshold);
    function->setNormalizedRestorationMaterialThreshold(material);
    return function;
}

} // namespace scene
