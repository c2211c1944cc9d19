// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Ten lines of an application: a point of the scene in an axial view of 64 mm x 48 mm. Exit status
// 0 if it comes out right.
#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/reslice/CoordinateMapper.h>

int main()
{
    PlanarReslice axial;
    axial.setDimensions(QSizeF(64.0, 48.0));
    const auto [point, inPlane, inSlice] =
        CoordinateMapper::_3D_To_2D_Planar(&axial, QVector3D(3.0F, 2.0F, 0.5F));
    return point == QPointF(3.0, 46.0) && inPlane == PointInPlane::InPlane &&
                   inSlice == PointInSlice::InSlice
               ? 0
               : 1;
}
