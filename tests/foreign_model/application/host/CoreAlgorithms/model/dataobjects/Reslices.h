// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/math/Range.h>

#include <QList>
#include <QMatrix4x4>
#include <QSizeF>
#include <QString>
#include <QVector3D>

#include <memory>

class CTData;
class GuidingLine;

enum ResliceType : int { SingleSlice = 0, ThickSlab = 1 };

/// The application's views: no data objects, without storage, with results of other but convertible types.
class Reslice
{
public:
    virtual ~Reslice() = default;

    static QString getClassTypeId() { return "view"; }
    virtual bool isOfType(const QString& id) const { return id == getClassTypeId(); }

    float getWidth() const { return 64.0F; }
    float getHeight() const { return 48.0F; }
    bool isMirroredHorizontallyIn2D() const { return false; }
    bool isMirroredVerticallyIn2D() const { return false; }
};

class PlanarReslice : public Reslice
{
public:
    static QString getClassTypeId() { return "view.planar"; }
    bool isOfType(const QString& id) const override { return id == getClassTypeId(); }

    QMatrix4x4 getTransformationFromResliceToWorld() const { return {}; }
    QVector3D getDirection0(bool) const { return {1.0F, 0.0F, 0.0F}; }
    QVector3D getDirection1(bool) const { return {0.0F, 1.0F, 0.0F}; }
    QVector3D getSampleSize() const { return {1.0F, 1.0F, 1.0F}; }
    std::shared_ptr<CTData> getCTData() const { return nullptr; }
    QVector3D getOrigin() const { return {}; }
};

/// This application unrolls its arches along no line.
class PanoramicReslice : public Reslice
{
public:
    static QString getClassTypeId() { return "view.panoramic"; }
    bool isOfType(const QString& id) const override { return id == getClassTypeId(); }

    QList<QVector3D> getPath() const { return {}; }
    std::shared_ptr<GuidingLine> getGuidingLine() const { return nullptr; }
    math::Range<float> getVerticalRange() const { return {0.0F, 48.0F}; }
    QSizeF getDimensions() const { return {64.0, 48.0}; }
    QVector3D getSampleSize() const { return {1.0F, 1.0F, 1.0F}; }
    float getThickness() const { return 1.0F; }
    bool isType(ResliceType kind) const { return kind == SingleSlice; }
};

class CephReslice : public Reslice
{
public:
    static QString getClassTypeId() { return "view.ceph"; }
    bool isOfType(const QString& id) const override { return id == getClassTypeId(); }

    QMatrix4x4 getTransformation() const { return {}; }
    int getPointOfView() const { return 0; }
};
