// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/dataobjects/SurfaceScans.h>

#include <tests/support/Matrices.h>
#include <tests/support/ResliceBuilders.h>

#include <QMatrix4x4>
#include <QStringList>
#include <QVector3D>

#include <stdexcept>

namespace test {

/// Returns an exact quarter turn: (x, y, z) becomes (-y, x, z).
inline QMatrix4x4 quarterTurnAboutZ()
{
    return QMatrix4x4(0.0F, -1.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 0.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F,
                      0.0F, 0.0F, 1.0F);
}

/// Returns an exact quarter turn: (x, y, z) becomes (x, -z, y).
inline QMatrix4x4 quarterTurnAboutX()
{
    return QMatrix4x4(1.0F, 0.0F, 0.0F, 0.0F, 0.0F, 0.0F, -1.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 0.0F,
                      0.0F, 0.0F, 1.0F);
}

/// Returns an alignment of four random rigid placements.
inline SurfaceScanAlignment randomAlignment(RandomGeometry& random, bool freehandAligned)
{
    SurfaceScanAlignment alignment;
    alignment.initialTransform = random.rigidPlacement();
    alignment.freehandTransform = random.rigidPlacement();
    alignment.registrationTransform = random.rigidPlacement();
    alignment.referenceTransform = random.rigidPlacement();
    alignment.freehandAligned = freehandAligned;
    return alignment;
}

/// Records the calls on a scan, in order. With `throwing`, refresh() of the model throws after it
/// was recorded.
template <typename Scan>
class Recording : public Scan
{
public:
    void startEditing() override
    {
        calls << QStringLiteral("startEditing");
        Scan::startEditing();
    }
    void stopEditing() override
    {
        calls << QStringLiteral("stopEditing");
        Scan::stopEditing();
    }
    void setObjectTransform(const QMatrix4x4& matrix) override
    {
        calls << QStringLiteral("setObjectTransform");
        moves << matrix;
        Scan::setObjectTransform(matrix);
    }
    void refresh() override
    {
        calls << QStringLiteral("refresh");
        if (throwing)
            throw std::runtime_error("the host is out of order");
        Scan::refresh();
    }
    void setSurfaceScanAlignment(const SurfaceScanAlignment& newAlignment) override
    {
        calls << QStringLiteral("setSurfaceScanAlignment");
        Scan::setSurfaceScanAlignment(newAlignment);
    }
    void setFreehandAligned(bool aligned) override
    {
        calls << (aligned ? QStringLiteral("setFreehandAligned(true)")
                          : QStringLiteral("setFreehandAligned(false)"));
        Scan::setFreehandAligned(aligned);
    }
    void setInitialTransform(const QMatrix4x4& matrix) override
    {
        calls << QStringLiteral("setInitialTransform");
        Scan::setInitialTransform(matrix);
    }
    void setFreehandTransform(const QMatrix4x4& matrix) override
    {
        calls << QStringLiteral("setFreehandTransform");
        Scan::setFreehandTransform(matrix);
    }

    QStringList calls;
    QList<QMatrix4x4> moves;
    bool throwing = false;
};

/// Makes a surface scan that has no model.
template <typename Scan>
class WithoutModel : public Scan
{
public:
    const Surface3DModel* getSurfaceModel() const override { return nullptr; }
    Surface3DModel* getSurfaceModel() override { return nullptr; }
};

} // namespace test
