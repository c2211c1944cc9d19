// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// A view of the application's own kind, mapped by the library: exit status 0 if the point comes out right.
#include <CoreAlgorithms/reslice/CoordinateMapper.h>

#include <CoreAlgorithms/model/dataobjects/Reslices.h>

int main()
{
    const PlanarReslice view;
    return CoordinateMapper::_3D_To_2D_PlanarPoint(&view, QVector3D(3.0F, 2.0F, 0.0F)) == QPointF(3.0, 46.0)
               ? 0
               : 1;
}
