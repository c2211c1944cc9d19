// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/VexelImage3D.h>

#include <QString>

namespace planner {

/// What the grey values of a volume mean, as far as their range tells.
enum class GreyValueKind {
    Hounsfield, ///< the smallest value is -500 or less: there is air, and it is far below water
    Labels,     ///< whole numbers from 0 to 255 at most: a label map or an 8-bit picture
    Raw         ///< anything else: the scanner's own numbers, air at the smallest
};

/// How grey values are shown: `low` and below is black, `high` and above is white.
class GreyScale
{
public:
    explicit GreyScale(const VexelImage3D& image);

    GreyValueKind kind() const { return valueKind; }
    double low() const { return black; }
    double high() const { return white; }
    /// Returns 0 to 255 for a value; 0 for NaN, a place outside the volume.
    unsigned char brightness(double value) const;
    /// Returns how strongly the value weakens X-rays, relative to water where Hounsfield units are
    /// known; never negative, and 0 for NaN. Linear in the value up to 300 HU and three times as
    /// steep above, as bone stands out with the soft rays of a cephalogram.
    double attenuation(double value) const;
    /// Returns the window as a phrase for a caption.
    QString description() const;

private:
    GreyValueKind valueKind;
    double smallest;
    double largest;
    double black;
    double white;
};

} // namespace planner
