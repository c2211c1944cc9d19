// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/PlanarGuidingSpline.h>

#include <utility>

std::shared_ptr<PlanarReslice> PlanarGuidingSpline::getPlane() const
{
    return plane;
}

void PlanarGuidingSpline::setPlane(std::shared_ptr<PlanarReslice> reslice)
{
    plane = std::move(reslice);
    changed();
}
