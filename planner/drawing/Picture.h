// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/planning/Mapping.h>

#include <QColor>
#include <QImage>
#include <QList>
#include <QPointF>
#include <QString>
#include <QVector3D>

#include <optional>

namespace planner {

/// Which way the edges of a picture point.
struct EdgeLetters
{
    QString left;
    QString right;
    QString top;
    QString bottom;
};

/// Returns where the edges of a planar view point, with its mirroring; with question marks if the
/// orientation of the volume is not known.
EdgeLetters edgesOf(const PlanarReslice& reslice, bool orientationKnown);
/// Returns the same for a view whose axes point to the right and to the top.
EdgeLetters edgesOf(const QVector3D& toRight, const QVector3D& toTop, bool orientationKnown);

/// A line drawn onto a view, such as an arch.
struct PictureCurve
{
    QList<QPointF> inView; ///< view coordinates, mm
    QColor color;
    double widthPixels = 2.5;
    bool dotted = false;
};

/// A dot or ring and a short text, centered, drawn onto a view.
struct PictureNote
{
    enum Symbol { NoSymbol, Dot, Ring };

    QPointF inView; ///< view coordinates, mm
    Symbol symbol = NoSymbol;
    QString text; ///< instead of a symbol
    QColor color;
};

/// A sampled view and what is drawn onto it.
struct PictureContent
{
    QImage samples;         ///< one pixel a sample
    QVector3D sampleSizeMm; ///< of the reslice
    EdgeLetters edges;
    QList<MappedLandmark> marks;          ///< filled if in the slab or in a projection, else hollow
    std::optional<MappedSegment> segment; ///< solid within the slab, dotted outside
    bool labelTeeth = true;
    bool labelsAbove = false;        ///< rather than beside their marks, for marks in a row
    QList<PictureCurve> curves = {}; ///< below the marks
    QList<PictureNote> notes = {};   ///< above all else
};

/// Return the colors of the marks of a kind and of segments.
QColor markColor(LandmarkKind kind);
QColor segmentColor();

/// Paints the samples, enlarged by a whole number if they are few, in a dark frame that holds the
/// letters, with marks, labels, segment and a bar of 20 mm. Needs a QGuiApplication.
QImage paintPicture(const PictureContent& content);

} // namespace planner
