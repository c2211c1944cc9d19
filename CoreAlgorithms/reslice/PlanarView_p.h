// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/reslice/ViewMapping_p.h>

namespace reslice {

/// Holds the current geometry of a planar reslice, to map any number of world points into its view.
class PlanarView
{
public:
    explicit PlanarView(const PlanarReslice& reslice)
        : localFromWorld(reslice.getTransformationFromResliceToWorld().inverted()),
          // Intended: a slice stands for one sample, whatever slab getThickness() makes the view
          // show.
          halfThickness(reslice.getSampleSize().z() * 0.5F),
          mirroring(reslice)
    {}

    const QMatrix4x4& transformation() const { return localFromWorld; }

    Image map(const QVector3D& worldPoint) const { return imageOf(localFromWorld.map(worldPoint)); }

    Image imageOf(const QVector3D& local) const
    {
        const bool inPlane = halfThickness >= std::abs(local.z());
        const bool inRectangle = local.x() >= 0.0F && local.y() >= 0.0F &&
                                 mirroring.width >= local.x() && mirroring.height >= local.y();
        return {{mirroring.mapX(local.x()), mirroring.mapY(local.y())},
                inPlane,
                inPlane && inRectangle};
    }

private:
    QMatrix4x4 localFromWorld;
    float halfThickness;
    Mirroring mirroring;
};

/// Returns the local point, on the plane of the reslice, of a view point.
QVector3D localOnPlane(const PlanarReslice& reslice, const QPointF& viewPoint);

/// Returns the point where the line from a towards b meets the face of the slab that is `height` mm
/// from the plane of the reslice, counted along its normal. If the line is parallel to the face,
/// the result is (0, 0, 0) unless the host's Plane::intersect() writes something else.
QVector3D intersectWithFace(const PlanarReslice& reslice, float height, const QVector3D& a,
                            const QVector3D& b);

} // namespace reslice
