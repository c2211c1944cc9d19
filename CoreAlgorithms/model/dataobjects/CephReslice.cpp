// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/CephReslice.h>

QMatrix4x4 CephReslice::getTransformation() const
{
    return transformation;
}

void CephReslice::setTransformation(const QMatrix4x4& worldFromReslice)
{
    transformation = worldFromReslice;
    changed();
}

meta::PointOfView CephReslice::getPointOfView() const
{
    return pointOfView;
}

void CephReslice::setPointOfView(meta::PointOfView view)
{
    pointOfView = view;
    changed();
}
