// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/drawing/MeshView.h>

#include <QImage>
#include <QList>
#include <QSize>
#include <QString>
#include <QVector3D>

namespace planner {

/// Returns a camera that looks from the front, a little from above and from the patient's right;
/// superior is up.
Camera cameraFromTheFront(const QVector3D& center, double widthMm, const QSize& pixels);

/// Paints the scene with a label in its upper left corner and a bar of 20 mm in the lower left one.
/// Needs a QGuiApplication.
QImage paintSurfaces(const Camera& camera, const QList<ShownMesh>& surfaces, const QString& label);

/// Returns one picture of several of equal size, side by side in rows of the given length.
QImage tile(const QList<QImage>& pictures, int columns);

} // namespace planner
