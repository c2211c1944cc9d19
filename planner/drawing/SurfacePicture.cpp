// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/drawing/SurfacePicture.h>

#include <planner/drawing/PictureStyle.h>

#include <QPainter>

namespace planner {

namespace {

constexpr int kGap = 6; // pixels between tiles
constexpr int kMargin = 10;
constexpr int kLabelPixels = 15;
constexpr int kLabelHeight = 24;
constexpr double kBarMm = 20.0;

} // namespace

Camera cameraFromTheFront(const QVector3D& center, double widthMm, const QSize& pixels)
{
    return {center, {0.228F, 0.91F, -0.344F}, {0.0F, 0.0F, 1.0F}, widthMm / pixels.width(), pixels};
}

QImage paintSurfaces(const Camera& camera, const QList<ShownMesh>& surfaces, const QString& label)
{
    QImage image = paintScene(camera, surfaces);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setFont(fontOf(kLabelPixels, false));
    painter.setPen(kTextColor);
    const QRect text(kMargin, 8, image.width() - 2 * kMargin, kLabelHeight);
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter, label);
    const int bottom = image.height() - 14;
    painter.fillRect(kMargin, bottom, static_cast<int>(kBarMm / camera.mmPerPixel), 3, kTextColor);
    painter.drawText(text.translated(0, bottom - kLabelHeight - text.top()),
                     Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("%1 mm").arg(kBarMm));
    return image;
}

QImage tile(const QList<QImage>& pictures, int columns)
{
    if (pictures.isEmpty() || columns < 1)
        return {};
    const QSize size = pictures.first().size();
    const int rows = (static_cast<int>(pictures.size()) + columns - 1) / columns;
    QImage whole(columns * (size.width() + kGap) - kGap, rows * (size.height() + kGap) - kGap,
                 QImage::Format_RGB32);
    whole.fill(Qt::white);
    QPainter painter(&whole);
    for (int i = 0; i < pictures.size(); ++i)
        painter.drawImage(i % columns * (size.width() + kGap), i / columns * (size.height() + kGap),
                          pictures[i]);
    return whole;
}

} // namespace planner
