// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/drawing/GreyPictures.h>

#include <planner/drawing/PictureStyle.h>
#include <planner/drawing/Sampling.h>
#include <planner/planning/Vectors.h>

#include <QFontMetricsF>
#include <QPainter>
#include <QPolygonF>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace planner {

namespace {

constexpr float kMostPixels = 1000.0F; // along a side of a cut
constexpr float kMostRays = 400.0F;    // along a side of a projection
constexpr int kTallestTile = 2;        // times its width
constexpr int kGap = 18;               // pixels between tiles
constexpr int kCaptionHeight = 34;
constexpr int kCaptionPixels = 16;
constexpr int kScalePixels = 15;
const QColor kGrid(0x36, 0x41, 0x4d);

// An empty raster over the extent, seen along the axis; its spacing is wider than asked if it would
// have more pixels along a side than the last argument.
GreyCut rasterAcross(const primitives::BoundingBox& extent, int axis, float at, float spacingMm,
                     float mostPixels)
{
    GreyCut cut;
    cut.axis = axis;
    cut.at = at;
    const QVector3D min = extent.min();
    const QVector3D max = extent.max();
    float width = extent.width();
    float height = extent.height();
    if (axis == 2) {
        cut.corner = {min.x(), min.y(), at};
        cut.toRight = {1.0F, 0.0F, 0.0F};
        cut.down = {0.0F, 1.0F, 0.0F};
        height = extent.depth();
    } else if (axis == 1) {
        cut.corner = {min.x(), at, max.z()};
        cut.toRight = {1.0F, 0.0F, 0.0F};
        cut.down = {0.0F, 0.0F, -1.0F};
    } else {
        cut.corner = {at, max.y(), max.z()};
        cut.toRight = {0.0F, -1.0F, 0.0F};
        cut.down = {0.0F, 0.0F, -1.0F};
        width = extent.depth();
    }
    cut.spacingMm = std::max(spacingMm, std::max(width, height) / mostPixels);
    cut.columns = std::max(1, static_cast<int>(width / cut.spacingMm));
    cut.rows = std::max(1, static_cast<int>(height / cut.spacingMm));
    return cut;
}

QVector3D worldOf(const GreyCut& cut, int column, int row)
{
    return cut.corner + cut.toRight * ((static_cast<float>(column) + 0.5F) * cut.spacingMm) +
           cut.down * ((static_cast<float>(row) + 0.5F) * cut.spacingMm);
}

// Pixels from the upper left corner.
QPointF onCut(const GreyCut& cut, const QVector3D& world)
{
    const QVector3D fromCorner = (world - cut.corner) / cut.spacingMm;
    return {QVector3D::dotProduct(fromCorner, cut.toRight),
            QVector3D::dotProduct(fromCorner, cut.down)};
}

// Marks a peak with a dashed line and its name above the area of a plot.
void paintPeak(QPainter& painter, const QRectF& area, double x, const Peak& peak)
{
    painter.setPen(QPen(kTextColor, 1.5, Qt::DashLine));
    painter.drawLine(QPointF(x, area.top() - 6.0), QPointF(x, area.bottom()));
    const QString text = QStringLiteral("%1 = %2").arg(peak.name).arg(peak.greyValue);
    const double textWidth = QFontMetricsF(painter.font()).horizontalAdvance(text);
    const double left = std::clamp(x - textWidth / 2.0, area.left(), area.right() - textWidth);
    painter.drawText(QPointF(left, area.top() - 14.0), text);
}

} // namespace

GreyCut cutAcross(const Volume& volume, const Sampler& sampler, int axis, float at, float spacingMm)
{
    GreyCut cut = rasterAcross(volume.extent(), axis, at, spacingMm, kMostPixels);
    cut.values.reserve(qsizetype(cut.columns) * cut.rows);
    for (int row = 0; row < cut.rows; ++row) {
        for (int column = 0; column < cut.columns; ++column)
            cut.values.append(static_cast<float>(sampler.valueAt(worldOf(cut, column, row))));
    }
    return cut;
}

GreyCut maximumIntensity(const Volume& volume, const Sampler& sampler, float spacingMm,
                         const std::function<void(double)>& progress)
{
    const primitives::BoundingBox extent = volume.extent();
    GreyCut cut = rasterAcross(extent, 1, extent.min().y(), spacingMm, kMostRays);
    const Eigen::Vector3d backwards = Eigen::Vector3d::UnitY();
    const double stepMm = std::max(static_cast<double>(spacingMm),
                                   sampler.rayStepMm(backwards, qint64{cut.columns} * cut.rows));
    const Eigen::Vector3d step = sampler.voxelFromWorld(backwards * stepMm) -
                                 sampler.voxelFromWorld(Eigen::Vector3d::Zero());
    std::vector<double> values;
    cut.values.reserve(qsizetype(cut.columns) * cut.rows);
    for (int row = 0; row < cut.rows; ++row) {
        for (int column = 0; column < cut.columns; ++column) {
            sampler.valuesAlongRay(sampler.voxelFromWorld(toEigen(worldOf(cut, column, row))), step,
                                   values);
            const auto largest = std::ranges::max_element(values);
            cut.values.append(largest != values.cend() ? static_cast<float>(*largest)
                                                       : std::numeric_limits<float>::lowest());
        }
        progress((row + 1.0) / cut.rows);
    }
    return cut;
}

GreyCut cropped(const GreyCut& cut, const primitives::BoundingBox& world)
{
    const QRectF shown = QRectF(onCut(cut, world.min()), onCut(cut, world.max())).normalized();
    const int left = std::clamp(static_cast<int>(shown.left()), 0, cut.columns - 1);
    const int top = std::clamp(static_cast<int>(shown.top()), 0, cut.rows - 1);
    GreyCut part = cut;
    part.columns = std::clamp(static_cast<int>(shown.width()), 1, cut.columns - left);
    part.rows = std::clamp(static_cast<int>(shown.height()), 1, cut.rows - top);
    part.corner = cut.corner + cut.toRight * (static_cast<float>(left) * cut.spacingMm) +
                  cut.down * (static_cast<float>(top) * cut.spacingMm);
    part.values.clear();
    for (int row = 0; row < part.rows; ++row) {
        for (int column = 0; column < part.columns; ++column)
            part.values.append(cut.values[qsizetype(top + row) * cut.columns + left + column]);
    }
    return part;
}

QImage shade(const GreyCut& cut, const math::Range<float>& window)
{
    const float width = window.max - window.min;
    return color(cut, [&window, width](float grey) {
        const float place = width > 0.0F ? (grey - window.min) / width : 0.0F;
        const int brightness =
            static_cast<int>(std::lround(std::clamp(place, 0.0F, 1.0F) * 255.0F));
        return QColor(brightness, brightness, brightness);
    });
}

QImage color(const GreyCut& cut, const std::function<QColor(float)>& colorOf)
{
    QImage image(cut.columns, cut.rows, QImage::Format_RGB32);
    for (int row = 0; row < cut.rows; ++row) {
        for (int column = 0; column < cut.columns; ++column) {
            const float grey = cut.values[qsizetype(row) * cut.columns + column];
            image.setPixelColor(column, row, std::isnan(grey) ? QColor(Qt::black) : colorOf(grey));
        }
    }
    return image;
}

QImage drawBoxes(const GreyCut& cut, const QImage& shaded, const QList<ColoredBoxes>& all)
{
    QImage image = shaded.scaled(shaded.width() * 2, shaded.height() * 2, Qt::IgnoreAspectRatio,
                                 Qt::SmoothTransformation);
    QPainter painter(&image);
    painter.scale(2.0, 2.0);
    for (const ColoredBoxes& colored : all) {
        QColor inside = colored.color;
        inside.setAlpha(45);
        for (const primitives::BoundingBox& box : colored.boxes) {
            if (cut.at < box.min()[cut.axis] || cut.at > box.max()[cut.axis])
                continue;
            const QRectF outline =
                QRectF(onCut(cut, box.min()), onCut(cut, box.max())).normalized();
            painter.fillRect(outline, inside);
            painter.setPen(QPen(colored.color, 1.0));
            painter.drawRect(outline);
        }
    }
    return image;
}

QImage montage(const QList<Tile>& tiles, int columns, int tileWidth)
{
    const int rows = (static_cast<int>(tiles.size()) + columns - 1) / columns;
    QList<QImage> scaled;
    QList<int> heights(rows, 0);
    for (int i = 0; i < tiles.size(); ++i) {
        scaled.append(tiles[i].image.scaled(tileWidth, kTallestTile * tileWidth,
                                            Qt::KeepAspectRatio, Qt::SmoothTransformation));
        heights[i / columns] = std::max(heights[i / columns], scaled[i].height());
    }
    int height = kGap;
    for (const int rowHeight : heights)
        height += kCaptionHeight + rowHeight + kGap;
    QImage image(kGap + columns * (tileWidth + kGap), height, QImage::Format_RGB32);
    image.fill(kGroundColor);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setFont(fontOf(kCaptionPixels, false));
    painter.setPen(kTextColor);
    int top = kGap;
    for (int i = 0; i < tiles.size(); ++i) {
        if (i > 0 && i % columns == 0)
            top += kCaptionHeight + heights[i / columns - 1] + kGap;
        const int left = kGap + (i % columns) * (tileWidth + kGap);
        painter.drawText(QRect(left, top, tileWidth, kCaptionHeight - 6),
                         Qt::AlignLeft | Qt::AlignBottom, tiles[i].caption);
        painter.drawImage(left, top + kCaptionHeight, scaled[i]);
    }
    return image;
}

QImage plot(const TissueEstimationHistogram& histogram, const QList<Peak>& peaks,
            const QColor& color)
{
    constexpr int width = 900;
    constexpr int height = 380;
    const QRectF area(30.0, 56.0, width - 60.0, height - 56.0 - 48.0);
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(kGroundColor);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.setFont(fontOf(kScalePixels, false));
    const std::vector<float>& bins = histogram.getBins();
    if (bins.empty()) {
        painter.setPen(kTextColor);
        painter.drawText(image.rect(), Qt::AlignCenter, QStringLiteral("no voxels"));
        return image;
    }

    // A bin's width of room on either side.
    const double binWidth = histogram.getBinWidth();
    const double first = histogram.getLowestBinStart() - binWidth;
    const double last =
        histogram.getLowestBinStart() + binWidth * (static_cast<double>(bins.size()) + 1.0);
    const double highest = std::max(*std::ranges::max_element(bins), 1e-30F);
    const auto xOf = [&](double grey) {
        return area.left() + (grey - first) / (last - first) * area.width();
    };
    const auto yOf = [&](double bin) { return area.bottom() - bin / highest * area.height(); };

    double step = 100.0;
    while ((last - first) / step > 9.0)
        step *= std::fmod(std::log10(step), 1.0) < 0.5 ? 5.0 : 2.0;
    for (int line = static_cast<int>(std::ceil(first / step)); line * step <= last; ++line) {
        const double grey = line * step;
        painter.setPen(QPen(kGrid, 1.0));
        painter.drawLine(QPointF(xOf(grey), area.top()), QPointF(xOf(grey), area.bottom()));
        painter.setPen(kTextColor);
        painter.drawText(QRectF(xOf(grey) - 60.0, area.bottom() + 4.0, 120.0, 20.0),
                         Qt::AlignCenter, QString::number(grey));
    }
    painter.drawText(QRectF(area.left(), area.bottom() + 24.0, area.width(), 20.0), Qt::AlignCenter,
                     QStringLiteral("grey value, bins of %1").arg(histogram.getBinWidth()));
    QColor inside = color;
    inside.setAlpha(150);
    for (std::size_t i = 0; i < bins.size(); ++i) {
        const double from = histogram.getLowestBinStart() + binWidth * static_cast<double>(i);
        painter.fillRect(
            QRectF(QPointF(xOf(from), yOf(bins[i])), QPointF(xOf(from + binWidth), area.bottom())),
            inside);
    }
    for (const Peak& peak : peaks)
        paintPeak(painter, area, xOf(peak.greyValue), peak);
    return image;
}

} // namespace planner
