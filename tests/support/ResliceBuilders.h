// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Reslices.h>

#include <QMatrix4x4>
#include <QQuaternion>

#include <memory>
#include <random>

namespace test {

/// Returns a planar reslice of the given size in mm whose slab is `slabMm` thick, placed by the
/// matrix.
inline std::shared_ptr<PlanarReslice> makePlanarReslice(float widthMm, float heightMm, float slabMm,
                                                        const QMatrix4x4& worldFromReslice = {})
{
    auto reslice = std::make_shared<PlanarReslice>();
    reslice->setDimensions(QSizeF(double(widthMm), double(heightMm)));
    reslice->setSampleSize(QVector3D(1.0F, 1.0F, slabMm));
    reslice->setTransformationFromResliceToWorld(worldFromReslice);
    return reslice;
}

/// Returns a cephalometric reslice of the given size in mm, placed by the matrix.
inline std::shared_ptr<CephReslice> makeCephReslice(float widthMm, float heightMm,
                                                    const QMatrix4x4& worldFromReslice = {})
{
    auto reslice = std::make_shared<CephReslice>();
    reslice->setDimensions(QSizeF(double(widthMm), double(heightMm)));
    reslice->setTransformation(worldFromReslice);
    return reslice;
}

/// Returns a panoramic reslice along the samples, whose columns are `columnMm` wide and whose view
/// shows the heights from `lowMm` to `highMm` in rows of 1 mm.
inline std::shared_ptr<PanoramicReslice>
makePanoramicReslice(const QList<QVector3D>& path, float columnMm, float lowMm, float highMm,
                     const QVector3D& up = QVector3D(0.0F, 0.0F, 1.0F))
{
    auto line = std::make_shared<GuidingLine>();
    line->setUpperDirection(up);
    auto reslice = std::make_shared<PanoramicReslice>();
    reslice->setPath(path);
    reslice->setGuidingLine(line);
    reslice->setVerticalRange({lowMm, highMm});
    reslice->setSampleSize(QVector3D(columnMm, 1.0F, 1.0F));
    reslice->setDimensions(
        QSizeF(static_cast<double>(path.size()), static_cast<double>(highMm - lowMm)));
    return reslice;
}

/// Draws numbers, points and rigid placements of the size of a head, the same in every run.
class RandomGeometry
{
public:
    explicit RandomGeometry(unsigned seed) : engine(seed) {}

    float number(float from, float to)
    {
        // std::uniform_real_distribution differs between standard libraries; the engine's bits do
        // not.
        return from + (to - from) * static_cast<float>(engine() >> 8) * 0x1p-24F;
    }

    // Braces draw from left to right. The order of a call's arguments would be the compiler's
    // choice.
    QVector3D point(float reach)
    {
        return {number(-reach, reach), number(-reach, reach), number(-reach, reach)};
    }

    QMatrix4x4 rigidPlacement()
    {
        QMatrix4x4 placement;
        placement.translate(point(100.0F));
        const float scalar = number(-1.0F, 1.0F);
        placement.rotate(QQuaternion(scalar, point(1.0F)).normalized());
        return placement;
    }

    std::shared_ptr<PlanarReslice> planarReslice(float slabMm)
    {
        const float width = number(1.0F, 200.0F);
        const float height = number(1.0F, 200.0F);
        return makePlanarReslice(width, height, slabMm, rigidPlacement());
    }

    /// Returns a panoramic reslice along a path that bends by up to 0.04 radians a sample in a
    /// random plane, samples as far apart as columns are wide. Up is the normal of that plane, with
    /// a random length.
    std::shared_ptr<PanoramicReslice> panoramicReslice(int samples, float columnMm)
    {
        const QMatrix4x4 placement = rigidPlacement();
        const float bend = number(-0.04F, 0.04F);
        QList<QVector3D> path;
        QVector3D position;
        QVector3D step(columnMm, 0.0F, 0.0F);
        const QQuaternion turn = QQuaternion(1.0F, 0.0F, 0.0F, bend / 2.0F).normalized();
        for (int i = 0; i < samples; ++i) {
            path.append(placement.map(position));
            position += step;
            step = turn.rotatedVector(step);
        }
        const QVector3D up = placement.mapVector(QVector3D(0.0F, 0.0F, number(0.5F, 2.0F)));
        const float low = number(-30.0F, 0.0F);
        return makePanoramicReslice(path, columnMm, low, low + number(10.0F, 60.0F), up);
    }

    std::shared_ptr<CephReslice> cephReslice()
    {
        const float width = number(1.0F, 200.0F);
        const float height = number(1.0F, 200.0F);
        return makeCephReslice(width, height, rigidPlacement());
    }

private:
    std::mt19937 engine;
};

} // namespace test
