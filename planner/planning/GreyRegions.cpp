// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/planning/GreyRegions.h>

#include <phantom/Phantom.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace planner {

namespace {

constexpr int kFaceRegion = 0;
constexpr int kSkullRegion = 1;

struct Box
{
    QVector3D offset; // of the center
    QVector3D halfSize;
};

// At the landmarks that the built-in patient has; the regions have boxes for some more.
// docs/greyvalue.md lists them.
Box boxAt(int landmarkType, int region)
{
    const bool face = region == kFaceRegion;
    const QVector3D five(5.0F, 5.0F, 5.0F);
    switch (landmarkType) {
    case landmarkDetection::SubspinalePoint:
        return face ? Box{{0.0F, -5.0F, 0.0F}, five} : Box{{}, {5.0F, 3.0F, 5.0F}};
    case landmarkDetection::InfradentalePoint:
        return face ? Box{{0.0F, -10.0F, 0.0F}, five}
                    : Box{{0.0F, -1.0F, -2.0F}, {5.0F, 1.0F, 5.0F}};
    case landmarkDetection::GonionRight:
        return face ? Box{{-10.0F, -10.0F, 0.0F}, five} : Box{{}, {5.0F, 5.0F, 10.0F}};
    case landmarkDetection::GonionLeft:
        return face ? Box{{10.0F, -10.0F, 0.0F}, five} : Box{{}, {5.0F, 5.0F, 10.0F}};
    default:
        return face ? Box{{0.0F, -10.0F, 0.0F}, five} : Box{{}, {5.0F, 3.0F, 5.0F}};
    }
}

float depthAtTooth(ToothChart::Tooth tooth)
{
    const bool isUpper = ToothChart::isUpperTooth(tooth);
    if (ToothChart::isMolar(tooth) || ToothChart::isPremolar(tooth))
        return isUpper ? 6.0F : -12.0F;
    return isUpper ? 8.0F : -8.0F;
}

primitives::BoundingBox boxAround(const QVector3D& center, const QVector3D& halfSize)
{
    return {center - halfSize, center + halfSize};
}

void setImage(CTData& ct, std::shared_ptr<const VexelImage3D> image)
{
    auto volume = std::make_shared<ImageVolume>();
    volume->setImage(std::move(image));
    ct.setImageVolume(volume);
}

} // namespace

GreyScan scanOf(const Case& planned)
{
    GreyScan scan;
    scan.ct = std::make_shared<CTData>();
    const VexelImage3D& image = planned.volume.image;
    setImage(*scan.ct, std::shared_ptr<const VexelImage3D>(std::shared_ptr<void>(), &image));
    const QVector3D spacing = image.voxelSize();
    scan.worldFromVolume = planned.volume.worldFromVoxel;
    scan.worldFromVolume.scale(1.0F / spacing.x(), 1.0F / spacing.y(), 1.0F / spacing.z());
    scan.ct->setTotalResampleNHPTransformation(scan.worldFromVolume);
    for (const Landmark& landmark : planned.landmarks) {
        if (const int tooth = toothNumberOf(landmark))
            scan.teeth.emplace_back(ToothChart::Tooth(tooth), landmark.position);
    }
    if (planned.patient) {
        for (const phantom::SkullLandmark& landmark : planned.patient->skullLandmarks()) {
            auto annotation = std::make_shared<dataobject::LandmarkAnnotation>(landmark.type);
            annotation->setPosition(VolumeContext,
                                    landmark.position); // its world is its volume frame
            scan.ct->addLandmarkAnnotation(annotation);
        }
    }
    return scan;
}

GreyScan scanWith(const GreyScan& scan, std::shared_ptr<const VexelImage3D> image,
                  bool withLandmarks)
{
    GreyScan other = scan;
    other.ct = std::make_shared<CTData>();
    setImage(*other.ct, std::move(image));
    other.ct->setTotalResampleNHPTransformation(scan.worldFromVolume);
    if (withLandmarks) {
        for (const auto& landmark : scan.ct->getLandmarkAnnotations({}))
            other.ct->addLandmarkAnnotation(landmark);
    }
    return other;
}

QList<primitives::BoundingBox> boxesOf(const GreyScan& scan, int region)
{
    QList<primitives::BoundingBox> boxes;
    if (region == kFaceRegion || region == kSkullRegion) {
        for (const auto& landmark : scan.ct->getLandmarkAnnotations({})) {
            const Box box = boxAt(landmark->getType(), region);
            const QVector3D position =
                scan.worldFromVolume.map(landmark->getPosition(VolumeContext).value());
            boxes.append(boxAround(position + box.offset, box.halfSize));
        }
        return boxes;
    }
    for (const auto& [tooth, position] : scan.teeth)
        boxes.append(
            boxAround(position + QVector3D(0.0F, 0.0F, depthAtTooth(tooth)), {2.5F, 2.5F, 4.0F}));
    return boxes;
}

std::shared_ptr<VexelImage3D> miscalibrated(const VexelImage3D& image, float gain, float offset)
{
    if (image.isEmpty() || image.dataType() != image::Int16)
        return nullptr;
    auto result =
        std::make_shared<VexelImage3D>(image.imageSize(), image.voxelSize(), image::Int16);
    if (result->isEmpty())
        return nullptr;
    const auto* from = static_cast<const std::int16_t*>(image.dataPtr());
    std::transform(from, from + image.voxelCount(), static_cast<std::int16_t*>(result->dataPtr()),
                   [gain, offset](std::int16_t grey) {
                       const float other = std::round(gain * static_cast<float>(grey) + offset);
                       return static_cast<std::int16_t>(std::clamp(other, -32768.0F, 32767.0F));
                   });
    return result;
}

} // namespace planner
