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

/// Axial (axis 2): anterior up, the patient's right on the left. Sagittal (axis 0): seen from the
/// patient's right, superior up, the face to the right.
GreyCut cutAcross(const Volume& volume, const Sampler& sampler, int axis, float at,
                  float spacingMm);
/// The largest grey value along each ray from anterior to posterior: superior up, the patient's
/// right on the left.
GreyCut maximumIntensity(const Volume& volume, const Sampler& sampler, float spacingMm,
                         const std::function<void(double)>& progress);

/// The pixels that show a box of the world, enlarged by nothing.
GreyCut cropped(const GreyCut& cut, const primitives::BoundingBox& world);

/// Linear from black at min to white at max; outside the volume black.
QImage shade(const GreyCut& cut, const math::Range<float>& window);
/// The colour of each grey value.
QImage colour(const GreyCut& cut, const std::function<QColor(float)>& colourOf);

struct ColouredBoxes
{
    QList<primitives::BoundingBox> boxes;
    QColor colour;
};

/// The shaded cut with the outlines of the boxes that it meets.
QImage drawBoxes(const GreyCut& cut, const QImage& shaded, const QList<ColouredBoxes>& all);

/// A picture with a caption above it.
struct Tile
{
    QString caption;
    QImage image;
};

/// Tiles in rows of so many columns, on the reports' dark ground, each scaled to the same width.
QImage montage(const QList<Tile>& tiles, int columns, int tileWidth);

/// A peak with its name, for a plot.
struct Peak
{
    int greyValue;
    QString name;
};

/// The bins over their grey values, with the peaks marked.
QImage plot(const TissueEstimationHistogram& histogram, const QList<Peak>& peaks,
            const QColor& colour);

} // namespace planner
