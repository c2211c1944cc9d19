// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/drawing/Sampling.h>

#include <planner/drawing/GreyScale.h>
#include <planner/input/Elements.h>
#include <planner/input/Failure.h>
#include <planner/planning/Mapping.h>
#include <planner/planning/Vectors.h>

#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/reslice/CoordinateMapper.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <vector>

namespace planner {

namespace {

constexpr double kWhiteFraction =
    0.002;                     // of the pixels that show matter: metal does not darken the rest
constexpr double kGamma = 0.9; // lifts soft tissue, the profile of the face
constexpr float kDepthStepMm = 0.5F;  // across the surface of a panoramic view
constexpr double kMostPixels = 4096;  // along a side of a picture
constexpr double kMostRaySteps = 3e7; // of a projection; they take about a second
constexpr double kAirSum = 4.0;       // mm of water; less is air with noise

// The lower of the two neighbors along an axis, and how far the position is on the way to the
// upper one.
struct Place
{
    std::size_t lower;
    std::size_t upper;
    double fraction;
};

inline Place placeOf(double index, int count)
{
    const double clamped = std::min(std::max(index, 0.0), count - 1.0);
    const int lower = static_cast<int>(clamped);
    return {static_cast<std::size_t>(lower),
            static_cast<std::size_t>(std::min(lower + 1, count - 1)), clamped - lower};
}

template <typename Element>
inline double interpolate(const void* data, const math::Ivec3& size, const Place& x, const Place& y,
                          const Place& z)
{
    const auto* elements = static_cast<const Element*>(data);
    const auto row = static_cast<std::size_t>(size.x);
    const std::size_t slice = row * static_cast<std::size_t>(size.y);
    const auto between = [](double lower, double upper, double fraction) {
        return lower +
               fraction *
                   (upper - lower); // std::lerp() is exact at both ends, and takes thrice the time
    };
    const auto alongX = [&](std::size_t yIndex, std::size_t zIndex) {
        const Element* line = elements + zIndex * slice + yIndex * row;
        return between(line[x.lower], line[x.upper], x.fraction);
    };
    const auto alongY = [&](std::size_t zIndex) {
        return between(alongX(y.lower, zIndex), alongX(y.upper, zIndex), y.fraction);
    };
    return between(alongY(z.lower), alongY(z.upper), z.fraction);
}

QSize pixelCount(const Reslice& reslice)
{
    const QSizeF samples = reslice.getDimensions();
    if (!(samples.width() <= kMostPixels && samples.height() <= kMostPixels))
        throw Failure(QStringLiteral(
                          "A view of %1 x %2 samples is too large; the landmarks lie too far apart")
                          .arg(samples.width())
                          .arg(samples.height()));
    return {static_cast<int>(samples.width()), static_cast<int>(samples.height())};
}

void tell(const std::function<void(double)>& progress, int row, int rows)
{
    if (progress)
        progress((row + 1.0) / rows);
}

QImage stretched(const std::vector<float>& sums, const QSize& size)
{
    std::vector<float> shown;
    std::ranges::copy_if(sums, std::back_inserter(shown), [](float sum) { return sum > kAirSum; });
    double white = 1.0;
    if (!shown.empty()) {
        const auto rank = static_cast<std::ptrdiff_t>((1.0 - kWhiteFraction) *
                                                      static_cast<double>(shown.size() - 1));
        std::nth_element(shown.begin(), shown.begin() + rank, shown.end());
        white = shown[rank];
    }
    QImage picture(size, QImage::Format_Grayscale8);
    for (int row = 0; row < size.height(); ++row) {
        uchar* line = picture.scanLine(row);
        for (int column = 0; column < size.width(); ++column) {
            const std::size_t index =
                static_cast<std::size_t>(row) * static_cast<std::size_t>(size.width()) +
                static_cast<std::size_t>(column);
            const double part = std::clamp(sums[index] / white, 0.0, 1.0);
            line[column] = static_cast<uchar>(std::lround(std::pow(part, kGamma) * 255.0));
        }
    }
    return picture;
}

} // namespace

Sampler::Sampler(const Volume& volume)
    : image(&volume.image), inverse(Eigen::Affine3d(toEigen(volume.worldFromVoxel)).inverse())
{}

double Sampler::valueAt(const QVector3D& worldMm) const
{
    return valueAtVoxel(voxelFromWorld(toEigen(worldMm)));
}

double Sampler::valueAtVoxel(const Eigen::Vector3d& index) const
{
    const math::Ivec3 size = image->imageSize();
    const auto isWithin = [](double position, int count) {
        return position >= -0.5 && position <= count - 0.5;
    };
    if (image->isEmpty() || !isWithin(index.x(), size.x) || !isWithin(index.y(), size.y) ||
        !isWithin(index.z(), size.z))
        return std::numeric_limits<double>::quiet_NaN();
    const Place x = placeOf(index.x(), size.x);
    const Place y = placeOf(index.y(), size.y);
    const Place z = placeOf(index.z(), size.z);
    return visitElementType(image->dataType(), [&](auto zero) {
        return interpolate<decltype(zero)>(image->dataPtr(), size, x, y, z);
    });
}

void Sampler::valuesAlongRay(const Eigen::Vector3d& start, const Eigen::Vector3d& step,
                             std::vector<double>& values) const
{
    values.clear();
    if (image->isEmpty())
        return;
    const math::Ivec3 size = image->imageSize();
    const Eigen::Vector3d half = Eigen::Vector3d::Constant(0.5);
    const auto span =
        spanWithin(-half, Eigen::Vector3d(size.x, size.y, size.z) - half, start, step);
    const double first = span.first;
    const double count = std::max(0.0, std::round(span.second - first));
    values.resize(static_cast<std::size_t>(count));
    visitElementType(image->dataType(), [&](auto zero) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            const Eigen::Vector3d index = start + (first + static_cast<double>(i) + 0.5) * step;
            values[i] =
                interpolate<decltype(zero)>(image->dataPtr(), size, placeOf(index.x(), size.x),
                                            placeOf(index.y(), size.y), placeOf(index.z(), size.z));
        }
    });
}

double Sampler::rayStepMm(const Eigen::Vector3d& direction, qint64 rays) const
{
    const math::Ivec3 size = image->imageSize();
    const QVector3D spacing = image->voxelSize();
    // Voxels per mm.
    const Eigen::Vector3d along = (inverse.linear() * direction.normalized()).cwiseAbs();
    const double longestMm = std::min({size.x / along.x(), size.y / along.y(), size.z / along.z()});
    const double allowed = std::max(1.0, kMostRaySteps / static_cast<double>(rays));
    return std::max(static_cast<double>(std::min({spacing.x(), spacing.y(), spacing.z()})),
                    longestMm / allowed);
}

std::pair<double, double> spanWithin(const Eigen::Vector3d& low, const Eigen::Vector3d& high,
                                     const Eigen::Vector3d& start, const Eigen::Vector3d& step)
{
    double first = -std::numeric_limits<double>::infinity();
    double last = std::numeric_limits<double>::infinity();
    for (int axis = 0; axis < 3; ++axis) {
        if (std::abs(step[axis]) < 1e-9) {
            if (start[axis] < low[axis] || start[axis] > high[axis])
                return {1.0, 0.0};
            continue;
        }
        const double a = (low[axis] - start[axis]) / step[axis];
        const double b = (high[axis] - start[axis]) / step[axis];
        first = std::max(first, std::min(a, b));
        last = std::min(last, std::max(a, b));
    }
    return {first, last};
}

QImage cutOut(const Sampler& sampler, const GreyScale& scale, const PlanarReslice& reslice,
              const std::function<void(double)>& progress)
{
    const QSize size = pixelCount(reslice);
    QImage picture(size, QImage::Format_Grayscale8);
    for (int row = 0; row < size.height(); ++row) {
        uchar* line = picture.scanLine(row);
        for (int column = 0; column < size.width(); ++column) {
            const QVector3D world =
                CoordinateMapper::_2D_To_3D_Planar(&reslice, pixelCenter(reslice, {column, row}));
            line[column] = scale.brightness(sampler.valueAt(world));
        }
        tell(progress, row, size.height());
    }
    return picture;
}

QImage project(const Sampler& sampler, const GreyScale& scale, const CephReslice& reslice,
               const std::function<void(double)>& progress)
{
    const QSize size = pixelCount(reslice);
    const Eigen::Vector3d direction =
        toEigen(reslice.getTransformation().column(2).toVector3D().normalized());
    const double stepMm = sampler.rayStepMm(direction, qint64{size.width()} * size.height());
    const Eigen::Vector3d step = sampler.voxelFromWorld(direction * stepMm) -
                                 sampler.voxelFromWorld(Eigen::Vector3d::Zero());
    std::vector<double> values;
    std::vector<float> sums(static_cast<std::size_t>(size.width()) *
                            static_cast<std::size_t>(size.height()));
    auto sum = sums.begin();
    for (int row = 0; row < size.height(); ++row) {
        for (int column = 0; column < size.width(); ++column, ++sum) {
            const QVector3D world =
                CoordinateMapper::_2D_To_3D_Ceph(&reslice, pixelCenter(reslice, {column, row}));
            sampler.valuesAlongRay(sampler.voxelFromWorld(toEigen(world)), step, values);
            double total = 0.0;
            for (const double value : values)
                total += scale.attenuation(value);
            *sum = static_cast<float>(total * stepMm);
        }
        tell(progress, row, size.height());
    }
    return stretched(sums, size);
}

QImage unroll(const Sampler& sampler, const GreyScale& scale, const PanoramicReslice& reslice,
              float depthMm, const std::function<void(double)>& progress)
{
    const QSize size = pixelCount(reslice);
    std::vector<QVector3D> depths; // of the columns
    depths.reserve(static_cast<std::size_t>(size.width()));
    for (int column = 0; column < size.width(); ++column)
        depths.push_back(CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(
                             &reslice, pixelCenter(reslice, {column, 0}))
                             .column(2)
                             .toVector3D());
    const int steps = std::max(1, static_cast<int>(depthMm / kDepthStepMm));
    std::vector<float> sums(static_cast<std::size_t>(size.width()) *
                            static_cast<std::size_t>(size.height()));
    QImage outside(size, QImage::Format_Alpha8);
    outside.fill(0U);
    auto sum = sums.begin();
    for (int row = 0; row < size.height(); ++row) {
        uchar* visible = outside.scanLine(row);
        for (int column = 0; column < size.width(); ++column, ++sum) {
            const QVector3D world = CoordinateMapper::_2D_To_3D_Panoramic(
                &reslice, pixelCenter(reslice, {column, row}));
            visible[column] = std::isnan(sampler.valueAt(world)) ? 0 : 255;
            double total = 0.0;
            for (int i = -steps; i <= steps; ++i)
                total += scale.attenuation(sampler.valueAt(
                    world + depths[column] * (static_cast<float>(i) * kDepthStepMm)));
            *sum = static_cast<float>(total) * kDepthStepMm;
        }
        tell(progress, row, size.height());
    }
    QImage picture = stretched(sums, size).convertToFormat(QImage::Format_ARGB32);
    picture.setAlphaChannel(outside);
    return picture;
}

} // namespace planner
