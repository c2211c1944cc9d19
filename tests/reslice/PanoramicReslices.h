// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/reslice/CoordinateMapper.h>

#include <tests/support/ExactComparison.h>
#include <tests/support/ResliceBuilders.h>

#include <gtest/gtest.h>

namespace test {

/// Returns (0, 0, 0), (spacing, 0, 0), ...
inline QList<QVector3D> straightPath(int samples, float spacing = 1.0F)
{
    QList<QVector3D> path;
    for (int i = 0; i < samples; ++i)
        path.append({static_cast<float>(i) * spacing, 0.0F, 0.0F});
    return path;
}

/// Returns a reslice on eleven samples from x = 0 to 10, with heights z = -5 to 15. Depth is -y,
/// and the view point of (x, y, z) is (x, 15 - z). The view is 11 mm wide and 20 mm high.
inline std::shared_ptr<PanoramicReslice> makeStraight(float columnMm = 1.0F)
{
    return makePanoramicReslice(straightPath(11), columnMm, -5.0F, 15.0F);
}

/// Returns a reslice along x from (0, 0) to (2, 0), then along y to (2, 2).
inline std::shared_ptr<PanoramicReslice> makeCorner()
{
    return makePanoramicReslice({{0.0F, 0.0F, 0.0F},
                                 {1.0F, 0.0F, 0.0F},
                                 {2.0F, 0.0F, 0.0F},
                                 {2.0F, 1.0F, 0.0F},
                                 {2.0F, 2.0F, 0.0F}},
                                1.0F, 0.0F, 10.0F);
}

/// Gives the reslice a slab of its own thickness.
inline void makeSlab(PanoramicReslice& reslice, float thickness)
{
    reslice.setType(static_cast<ResliceType>(1));
    reslice.setThickness(thickness);
}

/// Holds a view point with both flags, which start as true so that the mapping must clear them.
struct Verdict
{
    QPointF point;
    bool inPlane = true;
    bool inSlice = true;
};

inline Verdict mapPanoramic(const PanoramicReslice* reslice, const QVector3D& point,
                            bool keepOutside = false)
{
    Verdict verdict;
    verdict.point = CoordinateMapper::_3D_To_2D_Panoramic(reslice, point, verdict.inPlane,
                                                          verdict.inSlice, keepOutside);
    return verdict;
}

inline void expectOutside(const Verdict& verdict)
{
    expectPoint(verdict.point, 0.0, 0.0);
    EXPECT_FALSE(verdict.inPlane);
    EXPECT_FALSE(verdict.inSlice);
}

} // namespace test
