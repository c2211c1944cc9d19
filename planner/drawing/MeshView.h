// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/Mesh.h>

#include <QColor>
#include <QImage>
#include <QList>
#include <QPointF>
#include <QSize>
#include <QVector3D>

#include <functional>
#include <optional>

namespace planner {

class Sampler;

/// The place from which a scene is seen, with parallel rays.
struct Camera
{
    QVector3D center;    ///< shown in the middle of the picture
    QVector3D direction; ///< of sight
    QVector3D up;        ///< not parallel to it; shown upwards
    double mmPerPixel = 0.1;
    QSize pixels;

    /// Returns where a point of the world is shown, in pixels from the upper left corner of the
    /// picture.
    QPointF project(const QVector3D& point) const;
};

struct ShownMesh
{
    geometry::Mesh mesh; ///< in the world
    QColor color;
    double opacity = 1.0; ///< below 1: glass, denser where it is seen from the side
};

/// The surface at which the grey values of a volume rise above a threshold, as glass. Of each ray
/// the first such place is shown.
struct ShownBone
{
    const Sampler* sampler = nullptr;
    double threshold = 0.0;
    std::function<bool(const QVector3D&)> isShown; ///< false where the volume is cut away
    QVector3D low;                                 ///< corners of the box that is searched
    QVector3D high;
    QColor color;
    double opacity = 0.3;
};

/// Paints meshes and bone shaded, with a light beside the eye. Edges sharper than 40 degrees stay
/// sharp. Triangles with index entries that name no vertex, or with a corner that is not finite,
/// are left out.
QImage paintScene(const Camera& camera, const QList<ShownMesh>& meshes,
                  const std::optional<ShownBone>& bone = std::nullopt,
                  const std::function<void(double)>& progress = {});

} // namespace planner
