// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Volume.h>

#include <QImage>
#include <QVector3D>

#include <Eigen/Geometry>

#include <functional>
#include <utility>
#include <vector>

class CephReslice;
class PanoramicReslice;
class PlanarReslice;

namespace planner {

class GreyScale;

/// Grey values of a volume between its voxel centers.
class Sampler
{
public:
    /// Samples a volume, which must outlive the sampler.
    explicit Sampler(const Volume& volume);

    /// Returns the value at a world position, trilinear between the eight voxel centers around it.
    /// Up to half a voxel outside the outermost centers, to the faces of the voxels, these values
    /// continue; beyond is NaN.
    double valueAt(const QVector3D& worldMm) const;
    /// Returns the same for a position in voxel indices.
    double valueAtVoxel(const Eigen::Vector3d& index) const;
    /// Replaces `values` by those in the middles of equal steps along a ray, from where it enters
    /// the volume to where it leaves it. The ray starts at a voxel index and continues either way;
    /// a step is in voxels, too.
    void valuesAlongRay(const Eigen::Vector3d& start, const Eigen::Vector3d& step,
                        std::vector<double>& values) const;
    /// Returns the voxel index of a world position.
    Eigen::Vector3d voxelFromWorld(const Eigen::Vector3d& worldMm) const
    {
        return inverse * worldMm;
    }

    /// Returns the length of steps in mm, for rays along a direction, with which no voxel is
    /// skipped, or longer ones if the rays would take more than 30 million steps in all.
    double rayStepMm(const Eigen::Vector3d& direction, qint64 rays) const;

private:
    const VexelImage3D* image;
    Eigen::Affine3d inverse;
};

/// Returns between which t the points start + t * step are in a box; the first is larger than the
/// last if none is.
std::pair<double, double> spanWithin(const Eigen::Vector3d& low, const Eigen::Vector3d& high,
                                     const Eigen::Vector3d& start, const Eigen::Vector3d& step);

// Each of the following pictures has one pixel for each sample of the reslice, where pixelCenter()
// says, with 8 bits of grey. A reslice with more than 4096 samples along a side is refused with a
// Failure.

/// Paints the cut through the volume in the plane of the reslice.
QImage cutOut(const Sampler& sampler, const GreyScale& scale, const PlanarReslice& reslice,
              const std::function<void(double)>& progress = {});

/// Paints the projection of the volume along the normal of the reslice: bright where much matter
/// lies behind a pixel, as in a cephalogram. The sums of attenuation are stretched so that 0.2 % of
/// the pixels that show any are white.
QImage project(const Sampler& sampler, const GreyScale& scale, const CephReslice& reslice,
               const std::function<void(double)>& progress = {});

/// Paints the ribbon laid flat, for a view that is not mirrored: each pixel is bright where much
/// matter lies within `depthMm` to either side of the surface, as in a panoramic radiograph,
/// stretched like project(). Transparent where the surface is outside the volume.
QImage unroll(const Sampler& sampler, const GreyScale& scale, const PanoramicReslice& reslice,
              float depthMm, const std::function<void(double)>& progress = {});

} // namespace planner
