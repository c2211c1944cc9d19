// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMatrix4x4>
#include <QString>
#include <QVector3D>

/// The application's views: not derived from anything, without storage, with results of other but convertible
/// types.
class PlanarReslice
{
public:
    static QString getClassTypeId() { return "view.planar"; }
    bool isOfType(const QString& id) const { return id == getClassTypeId(); }

    QMatrix4x4 getTransformationFromResliceToWorld() const { return {}; }
    QVector3D getDirection0(bool) const { return {1.0F, 0.0F, 0.0F}; }
    QVector3D getDirection1(bool) const { return {0.0F, 1.0F, 0.0F}; }
    float getWidth() const { return 64.0F; }
    float getHeight() const { return 48.0F; }
    QVector3D getSampleSize() const { return {1.0F, 1.0F, 1.0F}; }
    bool isMirroredHorizontallyIn2D() const { return false; }
    bool isMirroredVerticallyIn2D() const { return false; }
#ifndef OMIT_GET_ORIGIN
    QVector3D getOrigin() const
    {
        return {};
    }
#endif
};

class CephReslice
{
public:
    static QString getClassTypeId() { return "view.ceph"; }
    bool isOfType(const QString& id) const { return id == getClassTypeId(); }

    QMatrix4x4 getTransformation() const { return {}; }
    float getWidth() const { return 64.0F; }
    float getHeight() const { return 48.0F; }
    int getPointOfView() const { return 0; }
};
