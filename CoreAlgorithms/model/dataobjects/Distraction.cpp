// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Distraction.h>

#include <QVector4D>

#include <utility>

std::shared_ptr<SurfaceTree> Distractor::getSurfaceTree() const
{
    return surfaceTree;
}

void Distractor::setSurfaceTree(std::shared_ptr<SurfaceTree> tree)
{
    surfaceTree = std::move(tree);
    changed();
}

QMatrix4x4 Distractor::getTransform() const
{
    return transform;
}

void Distractor::setTransform(const QMatrix4x4& sceneFromDevice)
{
    transform = sceneFromDevice;
    changed();
}

void Distractor::moveTo(const QVector3D& positionMm)
{
    transform.setColumn(3, QVector4D(positionMm, 1.0F));
    changed();
}
