// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QVector3D>

/// Represents a window into the CT by its corner, two unit vectors and its extent in mm.
struct PlanarReslice
{
    QVector3D corner;
    QVector3D right;
    QVector3D up;
    float width;
    float height;

    QVector3D getOrigin() const { return corner; }
    QVector3D getDirection0(bool /*perSample*/) const { return right; }
    QVector3D getDirection1(bool /*perSample*/) const { return up; }
    float getWidth() const { return width; }
    float getHeight() const { return height; }
};
