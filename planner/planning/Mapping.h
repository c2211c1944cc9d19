// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Landmarks.h>

#include <QLineF>
#include <QList>
#include <QPoint>
#include <QPointF>
#include <QString>
#include <QVector3D>

#include <optional>

class CephReslice;
class PanoramicReslice;
class PlanarReslice;
class Reslice;

namespace planner {

/// A landmark in a view and on its way back to the world.
struct MappedLandmark
{
    Landmark landmark;
    QPointF inView; ///< view coordinates, mm
    QPoint pixel;   ///< the one that holds the view point; may lie outside the picture
    QVector3D back; ///< world point of `inView`, on the plane of the view
    double errorMm; ///< from `back` to the foot of the landmark on that plane
    /// The same from the world point of the pixel's center: what a click on the mark gives.
    double clickErrorMm;
    std::optional<bool> inPlane; ///< within the slab; nothing for a projection, which has none
    std::optional<bool> inSlice; ///< within the slab and the rectangle
};

/// A segment in a planar view.
struct MappedSegment
{
    QString name;
    QLineF whole;   ///< from end to end, whether in the slab or not
    QLineF clipped; ///< the part within the slab
    bool inPlane = false;
};

/// Returns the view point at the center of a pixel, in mm: ((column + 0.5) * sampleSize.x, (row +
/// 0.5) * sampleSize.y). This is the pixel rule of every picture: pixel (column, row) counts from
/// the upper left corner of the view.
QPointF pixelCenter(const Reslice& reslice, const QPoint& pixel);
/// Returns the pixel that holds a view point; it may lie outside the picture.
QPoint pixelAt(const Reslice& reslice, const QPointF& inView);

/// Map landmarks into a view and back. In a panoramic view the errors are those along the surface:
/// the foot is on the tangent plane at the place to which the point is mapped.
QList<MappedLandmark> mapOntoPlanar(const QList<Landmark>& landmarks, const PlanarReslice& reslice);
QList<MappedLandmark> mapOntoCeph(const QList<Landmark>& landmarks, const CephReslice& reslice);
QList<MappedLandmark> mapOntoPanoramic(const QList<Landmark>& landmarks,
                                       const PanoramicReslice& reslice);
/// Maps a segment into a planar view.
MappedSegment mapSegment(const QString& name, const QVector3D& start, const QVector3D& end,
                         const PlanarReslice& reslice);

} // namespace planner
