// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/dataobjects/CTData.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/model/dataobjects/Teeth.h>

#include <initializer_list>
#include <memory>
#include <utility>

namespace test {

/// Returns the samples (0, 0, 0), (1, 0, 0), ...: the index of a sample is its x.
inline QList<QVector3D> pathAlongX(int size)
{
    QList<QVector3D> path;
    path.reserve(size);
    for (int i = 0; i < size; ++i)
        path.append(QVector3D(static_cast<float>(i), 0.0F, 0.0F));
    return path;
}

/// Names the place of a tooth along makeArch().
struct ToothPlace
{
    int tooth;
    float x;
};

/// Returns an arch along the x axis whose samples are 1 mm apart from 0 on, so that a tooth at x
/// has the index x.
inline std::shared_ptr<PlanarDentalSpline> makeArch(int samples,
                                                    std::initializer_list<ToothPlace> teeth)
{
    auto spline = std::make_shared<PlanarDentalSpline>();
    for (const ToothPlace& place : teeth)
        spline->setTooth(ToothChart::Tooth(place.tooth),
                         spline->appendControlPoint(QVector3D(place.x, 0.0F, 0.0F)));
    spline->setOriginalPath(pathAlongX(samples));
    return spline;
}

/// Returns a permanent tooth that is present.
inline std::shared_ptr<dataobject::Tooth> makeTooth(int number)
{
    return std::make_shared<dataobject::Tooth>(
        ToothChart::Tooth(number), dataobject::Tooth::Present, dataobject::Tooth::Permanent);
}

/// Returns a mouth with makeTooth() for each number.
inline std::shared_ptr<dataobject::Mouth> makeMouth(std::initializer_list<int> numbers)
{
    auto mouth = std::make_shared<dataobject::Mouth>();
    for (const int number : numbers)
        mouth->addTooth(makeTooth(number));
    return mouth;
}

/// Returns the boxes that a test sets, whatever its voxels.
class ScanWithBoxes : public CTData
{
public:
    primitives::BoundingBox box;
    primitives::BoundingBox resampledBox;

    primitives::BoundingBox getBoundingBox() const override { return box; }
    primitives::BoundingBox getTotalResampleTransformedBoundingBox() const override
    {
        return resampledBox;
    }
};

/// Returns a scan of one voxel of the height in mm, in boxes from z = 0 to `top`.
inline std::shared_ptr<ScanWithBoxes> makeScan(float voxelHeight, float top)
{
    auto scan = std::make_shared<ScanWithBoxes>();
    auto volume = std::make_shared<ImageVolume>();
    volume->setImage(VexelImage3D({1, 1, 1}, {1.0F, 1.0F, voxelHeight}, image::UInt8));
    scan->setImageVolume(volume);
    scan->box = primitives::BoundingBox(0.0F, 0.0F, 0.0F, 10.0F, 10.0F, top);
    scan->resampledBox = scan->box;
    return scan;
}

/// Gives the spline a plane through the scan.
inline void setScan(PlanarGuidingSpline& spline, std::shared_ptr<CTData> scan)
{
    auto plane = std::make_shared<PlanarReslice>();
    plane->setCTData(std::move(scan));
    spline.setPlane(plane);
}

} // namespace test
