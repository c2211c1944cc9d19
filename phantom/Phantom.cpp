// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <phantom/Phantom.h>

#include <phantom/Anatomy_p.h>
#include <phantom/Noise_p.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace phantom {

namespace {

constexpr double kMostVoxels = 2147483647.0; // 4 GiB

QVector3D toVector(const Point& point)
{
    return QVector3D(float(point.x), float(point.y), float(point.z));
}

QList<QVector3D> toList(const std::vector<Point>& points)
{
    QList<QVector3D> list;
    for (const Point& point : points)
        list.append(toVector(point));
    return list;
}

NerveCanal describe(const CanalShape& canal)
{
    const QList<QVector3D> centerLine = toList(canal.centerLine());
    return {centerLine, float(kCanalRadius), centerLine.first(), centerLine.last()};
}

float finiteOr(float value, float neutral)
{
    return std::isfinite(value) ? value : neutral;
}

Settings usable(Settings settings)
{
    const Settings standard;
    for (std::size_t i = 0; i < settings.greyValues.size(); ++i)
        settings.greyValues[i] = finiteOr(settings.greyValues[i], standard.greyValues[i]);
    settings.gain = finiteOr(settings.gain, 1.0F);
    settings.offset = finiteOr(settings.offset, 0.0F);
    settings.noiseSigma = std::max(finiteOr(settings.noiseSigma, 0.0F), 0.0F);
    return settings;
}

// Returns the numbers of voxels along the axes, all centers inside the volume, or zeros if there
// can be no image.
math::Ivec3 voxelCounts(float voxelSizeMm)
{
    if (!std::isfinite(voxelSizeMm) || voxelSizeMm <= 0.0F)
        return {};
    const double alongX = std::ceil(kExtent.x / voxelSizeMm);
    const double alongY = std::ceil(kExtent.y / voxelSizeMm);
    const double alongZ = std::ceil(kExtent.z / voxelSizeMm);
    if (alongX * alongY * alongZ > kMostVoxels)
        return {};
    return {int(alongX), int(alongY), int(alongZ)};
}

double voxelCenter(int index, float voxelSizeMm)
{
    return double(float(index) * voxelSizeMm);
}

// Paints voxels: grey values, noise and rounding.
class Painter
{
public:
    explicit Painter(const Patient& patient) : settings(patient.settings())
    {
        for (int tissue = 0; tissue < kTissueCount; ++tissue)
            greyOf[tissue] = double(patient.paintedGreyValue(Tissue(tissue)));
    }

    std::int16_t voxel(Tissue tissue, std::size_t index) const
    {
        double grey = greyOf[int(tissue)];
        if (settings.noiseSigma > 0.0F)
            grey += double(settings.noiseSigma) * unitNoise(settings.seed, index);
        return static_cast<std::int16_t>(std::round(std::clamp(grey, -32768.0, 32767.0)));
    }

private:
    Settings settings;
    std::array<double, kTissueCount> greyOf;
};

bool isInVolume(const QVector3D& position)
{
    const auto within = [](float coordinate, double extent) {
        return coordinate >= 0.0F && coordinate <= extent;
    };
    return within(position.x(), kExtent.x) && within(position.y(), kExtent.y) &&
           within(position.z(), kExtent.z);
}

} // namespace

Patient::Patient(const Settings& settings)
    : chosen(usable(settings)),
      anatomy(std::make_shared<const Anatomy>()),
      archCurves{toList(archThroughNecks(anatomy->teeth(), ToothChart::UpperArch)),
                 toList(archThroughNecks(anatomy->teeth(), ToothChart::LowerArch))},
      canals{describe(anatomy->canals()[0]), describe(anatomy->canals()[1])}
{
    for (const ToothShape& tooth : anatomy->teeth())
        allTeeth.append(tooth.description());
}

QVector3D Patient::extentMm() const
{
    return toVector(kExtent);
}

Tissue Patient::tissueAt(const QVector3D& positionMm) const
{
    if (!isInVolume(positionMm))
        return Tissue::Air;
    const double x = positionMm.x();
    const double y = positionMm.y();
    const double z = positionMm.z();
    return anatomy->tissueAt(anatomy->columnAt(x, y), anatomy->rowAt(y, z));
}

ToothChart::Tooth Patient::toothAt(const QVector3D& positionMm) const
{
    if (!isInVolume(positionMm))
        return ToothChart::NoTooth;
    const double x = positionMm.x();
    const double y = positionMm.y();
    const double z = positionMm.z();
    return anatomy->toothAt(anatomy->columnAt(x, y), anatomy->rowAt(y, z));
}

float Patient::paintedGreyValue(Tissue tissue) const
{
    const int index = int(tissue);
    if (index < 0 || index >= kTissueCount)
        return 0.0F;
    constexpr double largest = std::numeric_limits<float>::max();
    const double grey = double(chosen.gain) * chosen.greyValues[index] + chosen.offset;
    return float(std::clamp(grey, -largest, largest));
}

std::optional<Tooth> Patient::tooth(int number) const
{
    const auto found = std::ranges::find(allTeeth, number, &Tooth::number);
    return found == allTeeth.cend() ? std::nullopt : std::optional<Tooth>(*found);
}

const QList<QVector3D>& Patient::archCurve(ToothChart::ArchType arch) const
{
    return archCurves[arch == ToothChart::UpperArch ? 0 : 1];
}

QList<SkullLandmark> Patient::skullLandmarks() const
{
    constexpr float stepMm = 0.05F;
    constexpr int steps = 1000;
    const auto firstBone = [this](const QVector3D& from, const QVector3D& direction) {
        int step = 0;
        while (step < steps &&
               tissueAt(from + direction * (float(step) * stepMm)) != Tissue::CorticalBone)
            ++step;
        return from + direction * (float(step) * stepMm);
    };
    const auto midline = float(kMidlineX);
    const QVector3D backwards(0.0F, 1.0F, 0.0F);
    const QVector3D leftwards(1.0F, 0.0F, 0.0F);
    return {{landmarkDetection::SubspinalePoint, firstBone({midline, 15.0F, 80.0F}, backwards)},
            {landmarkDetection::InfradentalePoint, firstBone({midline, 15.0F, 49.0F}, backwards)},
            {landmarkDetection::GonionRight, firstBone({0.0F, 94.0F, 40.0F}, leftwards)},
            {landmarkDetection::GonionLeft, firstBone({2.0F * midline, 94.0F, 40.0F}, -leftwards)},
            {landmarkDetection::Pogonion, firstBone({midline, 15.0F, 26.0F}, backwards)}};
}

VexelImage3D Patient::createVolume(const std::function<void(double)>& progress) const
{
    const float voxelSize = chosen.voxelSizeMm;
    const math::Ivec3 size = voxelCounts(voxelSize);
    VexelImage3D volume(size, QVector3D(voxelSize, voxelSize, voxelSize), image::Int16);
    if (volume.isEmpty())
        return volume;

    const auto report = [&progress](double fraction) {
        if (progress)
            progress(fraction);
    };
    report(0.0);
    const Painter painter(*this);
    auto* const voxels = static_cast<std::int16_t*>(volume.dataPtr());
    std::vector<Anatomy::Column> columns(size.x);
    for (int y = 0; y < size.y; ++y) {
        const double centerY = voxelCenter(y, voxelSize);
        for (int x = 0; x < size.x; ++x)
            columns[x] = anatomy->columnAt(voxelCenter(x, voxelSize), centerY);
        for (int z = 0; z < size.z; ++z) {
            const Anatomy::Row row = anatomy->rowAt(centerY, voxelCenter(z, voxelSize));
            std::size_t index = (std::size_t(z) * size.y + y) * columns.size();
            for (const Anatomy::Column& column : columns) {
                voxels[index] = painter.voxel(anatomy->tissueAt(column, row), index);
                ++index;
            }
        }
        report((y + 1.0) / size.y);
    }
    return volume;
}

} // namespace phantom
