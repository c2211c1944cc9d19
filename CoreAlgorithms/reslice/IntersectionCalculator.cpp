// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/reslice/IntersectionCalculator.h>

#include <CoreAlgorithms/model/dataobjects/Reslices.h>

#include <array>

namespace {

// Holds a corner of the rectangle, in heights along direction 1 and widths along direction 0 from
// the origin.
struct Corner
{
    float heights;
    float widths;
};

struct Edge
{
    Corner from;
    Corner to;
};

constexpr std::array<Edge, 4> kBorder = {{
    {{0.0F, 0.0F}, {1.0F, 0.0F}},
    {{1.0F, 0.0F}, {1.0F, 1.0F}},
    {{1.0F, 1.0F}, {0.0F, 1.0F}},
    {{0.0F, 1.0F}, {0.0F, 0.0F}},
}};

} // namespace

IntersectionCalculator::~IntersectionCalculator() = default;

QList<QVector3D> IntersectionCalculator::calculatePlaneIntersections(QVector3D pointOnPlane,
                                                                     QVector3D normal,
                                                                     PlanarReslice* reslice)
{
    if (!reslice)
        return {};
    const QVector3D origin = reslice->getOrigin();
    const QVector3D up = reslice->getHeight() * reslice->getDirection1(false);
    const QVector3D across = reslice->getWidth() * reslice->getDirection0(false);
    const auto position = [&](const Corner& corner) {
        return origin + corner.heights * up + corner.widths * across;
    };

    QList<QVector3D> intersections;
    for (const Edge& edge : kBorder) {
        const QVector3D start = position(edge.from);
        const QVector3D along = position(edge.to) - start;
        const float approach = QVector3D::dotProduct(normal, along);
        if (approach == 0.0F)
            continue;
        const float distance =
            QVector3D::dotProduct(normal, start) - QVector3D::dotProduct(normal, pointOnPlane);
        const float t = -distance / approach;
        // Intended: both edges of a corner meet it, and it stays in the list twice; the application
        // draws from the first point to the last.
        if (t >= 0.0F && t <= 1.0F)
            intersections.append(start + t * along);
    }
    return intersections;
}
