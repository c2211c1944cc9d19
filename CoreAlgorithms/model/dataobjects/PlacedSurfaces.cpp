// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/PlacedSurfaces.h>

const QMatrix4x4& PlacedSurfaceModel::getObjectTransform() const
{
    return placement;
}

void PlacedSurfaceModel::setObjectTransform(const QMatrix4x4& sceneFromMesh)
{
    placement = sceneFromMesh;
    changed();
}

void PlacedSurfaceModel::refresh()
{
    changed();
}
