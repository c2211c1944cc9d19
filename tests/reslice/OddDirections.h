// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/dataobjects/Reslices.h>

#include <limits>

namespace test {

/// Has directions that disagree with its transformation, as a reslice of a host may. `true` is
/// never passed to them by the library.
class OddDirections : public PlanarReslice
{
public:
    OddDirections(const QVector3D& first, const QVector3D& second)
        : direction0(first), direction1(second)
    {
        setDimensions(QSizeF(100.0, 80.0));
    }

    QVector3D getDirection0(bool perSample) const override
    {
        return perSample ? QVector3D(std::numeric_limits<float>::quiet_NaN(),
                                     std::numeric_limits<float>::quiet_NaN(),
                                     std::numeric_limits<float>::quiet_NaN())
                         : direction0;
    }
    QVector3D getDirection1(bool perSample) const override
    {
        return perSample ? QVector3D(std::numeric_limits<float>::quiet_NaN(),
                                     std::numeric_limits<float>::quiet_NaN(),
                                     std::numeric_limits<float>::quiet_NaN())
                         : direction1;
    }

private:
    QVector3D direction0;
    QVector3D direction1;
};

} // namespace test
