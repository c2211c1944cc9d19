// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Volume.h>

#include <CoreAlgorithms/greyvalue/TissueEstimationHistogram.h>
#include <CoreAlgorithms/model/math/BoundingBox.h>
#include <CoreAlgorithms/model/math/Range.h>

#include <QColor>
#include <QImage>
#include <QList>
#include <QString>
#include <QVector3D>

#include <functional>

namespace planner {

class Sampler;

/// A cut across an axis of the world, or all that lies behind it: grey values row by row, NaN
/// outside the volume.
struct GreyCut
{
    int axis = 2;      ///< across which: 0, 1 or 2 for x, y or z
    float at = 0.0F;   ///< where on that axis, mm
    QVector3D corner;  ///< of the upper left pixel's corner
    QVector3D toRight; ///< unit vectors
    QVector3D down;
    float spacingMm = 1.0F;
    int columns = 0;
    int rows = 0;
    QList<float> values;
};

/// Samples a cut. An axial one (axis 2) has anterior up and the patient's right on the left, a
/// sagittal one (axis 0) is seen from the patient's right with superior up.
GreyCut cutAcross(const Volume& volume, const Sampler& sampler, int axis, float at,
                  float spacingMm);
/// Samples the largest grey value along each ray from anterior to posterior. Superior is up and the
/// patient's right on the left.
GreyCut maximumIntensity(const Volume& volume, const Sampler& sampler, float spacingMm,
                         const std::function<void(double)>& progress);

/// Returns the pixels that show a box of the world.
GreyCut cropped(const GreyCut& cut, const primitives::BoundingBox& world);

/// Paints a cut, linear from black at min to white at max; black outside the volume.
QImage shade(const GreyCut& cut, const math::Range<float>& window);
/// Paints each grey value in its color.
QImage color(const GreyCut& cut, const std::function<QColor(float)>& colorOf);

struct ColoredBoxes
{
    QList<primitives::BoundingBox> boxes;
    QColor color;
};

/// Paints the shaded cut with the outlines of the boxes that it meets.
QImage drawBoxes(const GreyCut& cut, const QImage& shaded, const QList<ColoredBoxes>& all);

/// A picture with a caption above it.
struct Tile
{
    QString caption;
    QImage image;
};

/// Paints tiles in rows of so many columns on a dark ground, each scaled to the same width.
QImage montage(const QList<Tile>& tiles, int columns, int tileWidth);

/// A peak with its name, for a plot.
struct Peak
{
    int greyValue;
    QString name;
};

/// Paints the bins over their grey values, with the peaks marked.
QImage plot(const TissueEstimationHistogram& histogram, const QList<Peak>& peaks,
            const QColor& color);

} // namespace planner
