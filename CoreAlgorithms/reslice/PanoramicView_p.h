// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Finite_p.h>
#include <CoreAlgorithms/model/math/Range.h>
#include <CoreAlgorithms/reslice/PathSearch_p.h>
#include <CoreAlgorithms/reslice/ViewMapping_p.h>

#include <QList>

#include <cmath>
#include <optional>
#include <vector>

namespace reslice {

/// Holds the current geometry of a panoramic reslice: a ribbon of flat segments along a path, each
/// one column wide.
///
///     up                      Segment i runs from sample i to sample i + 1.
///      |   depth              Its local coordinates are the distance along it,
///      |  /                   the height above its lower edge,
///      | /                    and the depth, the distance from its plane.
///      o-------- along        o = sample i + up * (lowest height)
class PanoramicView
{
public:
    /// Returns nothing without a reslice, a guiding line or a segment.
    static std::optional<PanoramicView> of(const PanoramicReslice* reslice);

    const QList<QVector3D>& path() const { return samples; }

    /// Returns the segment of the index, limited to the segments of the path.
    int clampedSegment(int index) const;

    /// Returns the matrix into the local coordinates (along, height, depth) of a segment, which
    /// must be one of the path.
    QMatrix4x4 localFromWorld(int segment) const;

    /// Returns the view point of local coordinates in a segment.
    QPointF viewPoint(int segment, const QVector3D& local) const;

    /// Maps a world point whose nearest sample is known. `localIn(segment)` returns its local
    /// coordinates.
    template <typename LocalIn>
    Image imageOf(int nearestSample, bool keepOutside, const LocalIn& localIn) const
    {
        // Intended: where the two segments at the nearest sample are equally deep, the one before
        // it is used; the columns of existing drawings rely on it.
        int segment = clampedSegment(nearestSample - 1);
        QVector3D local = localIn(segment);
        const int next = clampedSegment(nearestSample);
        if (next != segment) {
            const QVector3D localInNext = localIn(next);
            if (std::abs(localInNext.z()) < std::abs(local.z())) {
                segment = next;
                local = localInNext;
            }
        }
        const float depth = std::abs(local.z());
        Image image;
        if (!finiteness::isFinite(local))
            return image;
        image.inPlane = halfThickness >= depth;
        if (!image.inPlane && !keepOutside)
            return image;
        // Intended: the depth is compared with the width of a column, not the point with the
        // view's rectangle; the drawing of segments relies on "in slice" meaning close to the
        // curved surface.
        image.inSlice = columnWidth >= depth;
        image.point = viewPoint(segment, local);
        return image;
    }

private:
    PanoramicView(const PanoramicReslice& reslice, const QList<QVector3D>& path,
                  const QVector3D& upperDirection);

    QList<QVector3D> samples;
    QVector3D up;
    math::Range<float> heights;
    float columnWidth;
    float halfThickness;
    Mirroring mirroring;
};

/// Maps a number of points into one panoramic view, with the bits of mapping each by itself.
///
/// The inverted matrices of the segments that were needed last are kept. For many points, the
/// nearest sample is searched in a tree.
class PanoramicPointMapper
{
public:
    /// Prepares the mapping of about as many points. The view must outlive the mapper.
    PanoramicPointMapper(const PanoramicView& panoramicView, qsizetype numPoints);
    PanoramicPointMapper(PanoramicView&&, qsizetype) = delete;

    Image map(const QVector3D& point, bool keepOutside);

private:
    struct Frame
    {
        int segment = -1;
        PointMapping localFromWorld{QMatrix4x4()};
    };

    const PointMapping& frame(int segment);

    const PanoramicView& view;
    std::vector<Frame> frames; // a power of two; each segment has its place
    std::optional<PathSearch> tree;
};

/// Holds the world position of a column on the path, and the direction of the path there.
struct PathPosition
{
    QVector3D position;
    QVector3D tangent;
};

/// Returns the position `steps` times the way from one sample to another, counted from `start`.
PathPosition onLine(const QVector3D& from, const QVector3D& towards, const QVector3D& start,
                    float steps);

/// Continues the first segment of a path straight to a column below 0. The path must have two
/// samples.
PathPosition leftOfPath(const QList<QVector3D>& path, float column);

/// Continues the last segment of a path to a column beyond its last sample. The path must have two
/// samples.
PathPosition rightOfPath(const QList<QVector3D>& path, float column);

/// Projects a point onto the upright plane through a and b. Returns its distance from the plane, or
/// -1 beyond half the thickness. Writes its foot in the frame (b - a, up) at a to `out`, except for
/// a point beyond half the thickness without `keepOutside`.
float projectOntoSegment(const QVector3D& a, const QVector3D& up, const QVector3D& b,
                         const QVector3D& point, QPointF& out, float thickness, bool keepOutside);

} // namespace reslice
