// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Volume.h>

#include <QImage>
#include <QVector3D>

#include <Eigen/Geometry>

#include <functional>
#include <vector>

class CephReslice;
class PanoramicReslice;
class PlanarReslice;

namespace planner {

class GreyScale;

/// Grey values of a volume between its voxel centres.
class Sampler
{
public:
    /// The volume must outlive the sampler.
    explicit Sampler(const Volume& volume);

    /// Trilinear between the eight voxel centres around a world position. Up to half a voxel
    /// outside the outermost centres, to the faces of the voxels, these count on; beyond it NaN.
    double valueAt(const QVector3D& worldMm) const;
    /// The same for a position in voxel indices.
    double valueAtVoxel(const Eigen::Vector3d& index) const;
    /// Replaces `values` by those in the middles of equal steps along a ray, from where it enters
    /// the volume to where it leaves it. The ray starts at a voxel index and continues either way;
    /// a step is in voxels, too.
    void valuesAlongRay(const Eigen::Vector3d& start, const Eigen::Vector3d& step,
                        std::vector<double>& values) const;
    /// Voxel index of a world position.
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

// Each of the following pictures has one pixel for each sample of the reslice, where pixelCentre()
// says, with 8 bits of grey. A reslice with more than 4096 samples along a side is refused with a
// Failure.

/// The cut through the volume in the plane of the reslice.
QImage cutOut(const Sampler& sampler, const GreyScale& scale, const PlanarReslice& reslice,
              const std::function<void(double)>& progress = {});

/// The projection of the volume along the normal of the reslice: bright where much matter lies
/// behind a pixel, as in a cephalogram. The sums of attenuation are stretched so that 0.2 % of the
/// pixels that show any are white.
QImage project(const Sampler& sampler, const GreyScale& scale, const CephReslice& reslice,
               const std::function<void(double)>& progress = {});

/// The ribbon laid flat, for a view that is not mirrored: each pixel is bright where much matter
/// lies within `depthMm` to either side of the surface, as in a panoramic radiograph, stretched
/// like project(). Transparent where the surface is outside the volume.
QImage unroll(const Sampler& sampler, const GreyScale& scale, const PanoramicReslice& reslice,
              float depthMm, const std::function<void(double)>& progress = {});

} // namespace planner
