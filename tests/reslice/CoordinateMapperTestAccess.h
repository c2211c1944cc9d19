// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/reslice/CoordinateMapper.h>

/// The private operations of CoordinateMapper.
struct CoordinateMapperTestAccess
{
    static QVector3D upper(const PlanarReslice* reslice, QVector3D a, QVector3D b)
    {
        return CoordinateMapper::intersectWithUpperPlane(reslice, a, b);
    }
    static QVector3D lower(const PlanarReslice* reslice, QVector3D a, QVector3D b)
    {
        return CoordinateMapper::intersectWithLowerPlane(reslice, a, b);
    }
    static float panoramicProjection(QVector3D a, QVector3D up, QVector3D b, QVector3D point,
                                     QPointF& out, float thickness, bool keepOutside)
    {
        return CoordinateMapper::panoramicProjection(a, up, b, point, out, thickness, keepOutside);
    }
};
