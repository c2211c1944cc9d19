// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT

// Estimates at which grey values a miscalibrated scanner shows the tissues, and the display window
// in which its scan looks like that of a calibrated medical CT.

#include <CoreAlgorithms/greyvalue/TissueEstimator.h>
#include <CoreAlgorithms/model/data/VexelImage3D.h>
#include <CoreAlgorithms/model/dataobjects/CTData.h>

#include <QMatrix4x4>
#include <QVector3D>

#include <cmath>
#include <cstdint>
#include <iostream>
#include <memory>
#include <utility>
#include <vector>

namespace {

// This scanner shows a tissue of level v at 0.8 v + 100.
int shown(int level)
{
    return 100 + level * 4 / 5;
}

// A slab of a head, 60 mm along each axis, seen from the side: air, skin, soft tissue and bone
// follow each other along y. The rows between them have other values, as at every boundary.
int greyValueAt(int y)
{
    if (y <= 20)
        return shown(-1000);
    if (y <= 24)
        return shown(40);
    if (y <= 26)
        return shown(240);
    if (y == 27)
        return shown(-80);
    if (y <= 30)
        return shown(40);
    return y <= 32 ? shown(1800) : shown(2100);
}

std::shared_ptr<VexelImage3D> paintSlab()
{
    const math::Ivec3 size{60, 60, 60};
    auto image = std::make_shared<VexelImage3D>(size, QVector3D(1.0F, 1.0F, 1.0F), image::Int16);
    auto* voxel = static_cast<std::int16_t*>(image->dataPtr());
    for (int z = 0; z < size.z; ++z) {
        for (int y = 0; y < size.y; ++y) {
            for (int x = 0; x < size.x; ++x)
                *voxel++ = static_cast<std::int16_t>(greyValueAt(y));
        }
    }
    return image;
}

// The pogonion, the foremost point of the chin's bone, marked twice on the surface of the bone.
void addLandmarks(CTData& scan)
{
    for (const float x : {15.0F, 25.0F}) {
        auto pogonion =
            std::make_shared<dataobject::LandmarkAnnotation>(landmarkDetection::Pogonion);
        pogonion->setPosition(VolumeContext, {x, 30.0F, 20.0F});
        scan.addLandmarkAnnotation(pogonion);
    }
}

} // namespace

int main()
{
    auto volume = std::make_shared<ImageVolume>();
    volume->setImage(paintSlab());
    CTData scan;
    scan.setImageVolume(volume);
    addLandmarks(scan);

    const std::vector<std::pair<ToothChart::Tooth, QVector3D>> occlusalPoints; // none is known
    const QMatrix4x4 worldFromVolume;                                          // the same frame

    // [TissueEstimator]
    TissueEstimator estimator(scan, occlusalPoints, worldFromVolume);
    if (!estimator.estimate())
        return 1; // neither the landmarks nor the teeth show two peaks in the right order
    const colormap::Tissues tissues = estimator.getEstimatedTissues().value();
    const math::Range<float> window =
        TissueEstimator::calculateLevelWindow(tissues, TissueEstimator::DEFAULT_MEDICAL_CT_LW);
    // [TissueEstimator]

    std::cout << "Air is shown at " << tissues.air << ", soft tissue at " << tissues.softTissue
              << ", dense bone at " << tissues.denseBone << ".\nThe display window is "
              << window.min << " to " << window.max << ".\n";

    // Each peak is the center of a bin. In front of the face the grey values are less than 1000
    // apart and the bins 10 wide, on the skull they are 50 wide: a peak is off by 25 at most.
    const auto isNear = [](float value, int level) {
        return std::abs(value - static_cast<float>(shown(level))) <= 50.0F;
    };
    const bool isExpected = tissues.air == -695 && tissues.softTissue == 125 &&
                            tissues.denseBone == 1525 && isNear(window.min, -1000) &&
                            isNear(window.max, 2200);
    return isExpected ? 0 : 1;
}
