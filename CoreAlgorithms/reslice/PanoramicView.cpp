// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/reslice/PanoramicView_p.h>

#include <CoreAlgorithms/dental/ComputeIndexOnGuidingLine.h>
#include <CoreAlgorithms/model/HostValues_p.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/math/Plane.h>
#include <CoreAlgorithms/model/math/QRay3D.h>

#include <algorithm>
#include <bit>
#include <limits>

namespace reslice {

namespace {

// The numbers of points and of samples of the path from which building a search tree takes less
// time than the tree saves.
constexpr qsizetype kPointsWorthATree = 64;
constexpr qsizetype kSamplesWorthATree = 64;

// How many frames of segments are kept while points are mapped: at least those of the two segments
// at a sample, so that the next point near it finds them; at most 300 KiB, for the columns of
// several views.
constexpr qsizetype kFewestFrames = 2;
constexpr qsizetype kMostFrames = 4096;

} // namespace

PanoramicView::PanoramicView(const PanoramicReslice& reslice, const QList<QVector3D>& path,
                             const QVector3D& upperDirection)
    : samples(path),
      up(upperDirection),
      heights(reslice.getVerticalRange()),
      columnWidth(reslice.getSampleSize().x()),
      halfThickness(reslice.isType(static_cast<ResliceType>(hostvalues::kThickSlab))
                        ? reslice.getThickness() * 0.5F
                        : 0.5F),
      mirroring(reslice)
{}

std::optional<PanoramicView> PanoramicView::of(const PanoramicReslice* reslice)
{
    if (!reslice)
        return std::nullopt;
    const auto line = reslice->getGuidingLine();
    const QList<QVector3D> samples = reslice->getPath();
    if (!line || samples.size() < 2)
        return std::nullopt;
    return PanoramicView(*reslice, samples, line->getUpperDirection());
}

int PanoramicView::clampedSegment(int index) const
{
    const auto last = std::min<qsizetype>(samples.size() - 2, std::numeric_limits<int>::max());
    return std::clamp(index, 0, static_cast<int>(last));
}

QMatrix4x4 PanoramicView::localFromWorld(int segment) const
{
    const QVector3D& start = samples[segment];
    QVector3D e = samples[segment + 1] - start;
    e.normalize();
    QVector3D u = up;
    u.normalize();
    const QVector3D w = QVector3D::crossProduct(e, u);
    const QVector3D o = start + up * heights.min;
    return QMatrix4x4(e.x(), u.x(), w.x(), o.x(), //
                      e.y(), u.y(), w.y(), o.y(), //
                      e.z(), u.z(), w.z(), o.z(), //
                      0.0F, 0.0F, 0.0F, 1.0F)
        .inverted();
}

QPointF PanoramicView::viewPoint(int segment, const QVector3D& local) const
{
    const float x = static_cast<float>(segment) * columnWidth + local.x();
    const float y = (heights.max - heights.min) - local.y();
    return {mirroring.mapX(x), mirroring.mapY(y)};
}

PanoramicPointMapper::PanoramicPointMapper(const PanoramicView& panoramicView, qsizetype numPoints)
    : view(panoramicView),
      frames(std::bit_ceil(static_cast<std::size_t>(std::clamp(
          std::min(numPoints, panoramicView.path().size()), kFewestFrames, kMostFrames))))
{
    if (numPoints >= kPointsWorthATree && view.path().size() >= kSamplesWorthATree)
        tree.emplace(view.path());
}

Image PanoramicPointMapper::map(const QVector3D& point, bool keepOutside)
{
    const int nearest =
        tree ? tree->nearestTo(point) : ComputeIndexOnGuidingLine::getIndexOf(point, view.path());
    return view.imageOf(nearest, keepOutside,
                        [&](int segment) { return frame(segment).map(point); });
}

const PointMapping& PanoramicPointMapper::frame(int segment)
{
    Frame& kept = frames[static_cast<std::size_t>(segment) & (frames.size() - 1)];
    if (kept.segment != segment)
        kept = {segment, PointMapping(view.localFromWorld(segment))};
    return kept.localFromWorld;
}

PathPosition onLine(const QVector3D& from, const QVector3D& towards, const QVector3D& start,
                    float steps)
{
    const QVector3D tangent = towards - from;
    return {start + tangent * steps, tangent};
}

PathPosition leftOfPath(const QList<QVector3D>& path, float column)
{
    return onLine(path[0], path[1], path[0], column);
}

PathPosition rightOfPath(const QList<QVector3D>& path, float column)
{
    // Intended: column - n, where going on straight would take column - (n - 1): the first column
    // beyond the last sample is one step back on the path. Positions that were stored by the
    // application rely on it.
    const qsizetype n = path.size();
    return onLine(path[n - 2], path[n - 1], path[n - 1], column - static_cast<float>(n));
}

float projectOntoSegment(const QVector3D& a, const QVector3D& up, const QVector3D& b,
                         const QVector3D& point, QPointF& out, float thickness, bool keepOutside)
{
    const primitives::Plane plane(a, a + up, b);
    float distance = std::abs(plane.getSignedDistance(point));
    if (distance > thickness * 0.5F) {
        distance = -1.0F;
        if (!keepOutside)
            return distance;
    }
    QVector3D foot;
    plane.intersect(primitives::QRay3D(point, plane.getNormal().normalized()), foot);

    QVector3D along = b - a;
    along.normalize();
    const QVector3D across = QVector3D::crossProduct(along, up);
    const QMatrix4x4 frameByRows(along.x(), along.y(), along.z(), 0.0F,    //
                                 up.x(), up.y(), up.z(), 0.0F,             //
                                 across.x(), across.y(), across.z(), 0.0F, //
                                 a.x(), a.y(), a.z(), 1.0F);
    const QVector3D local = frameByRows.transposed().inverted().map(foot);
    out = QPointF(local.x(), local.y());
    return distance;
}

} // namespace reslice
