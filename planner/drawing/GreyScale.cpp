// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/drawing/GreyScale.h>

#include <planner/input/Elements.h>

#include <algorithm>
#include <cmath>

namespace planner {

namespace {

// A bone window, in Hounsfield units: soft tissue is dark grey, cortical bone light, enamel white.
constexpr double kBoneLevel = 600.0;
constexpr double kBoneWidth = 2600.0;
constexpr double kAirAtMost = -500.0;
constexpr double kLabelsAtMost = 255.0;
// Raw values have few voxels in their upper quarter: metal and streaks.
constexpr double kRawShown = 0.75;
constexpr double kBoneFrom = 300.0; // Hounsfield units
constexpr double kBoneEmphasis = 3.0;
constexpr double kDensest = 100.0; // of water; more is a damaged voxel

GreyValueKind kindOf(const VexelImage3D& image, const math::Range<float>& range)
{
    if (range.min <= kAirAtMost)
        return GreyValueKind::Hounsfield;
    if (isInteger(image.dataType()) && range.min >= 0.0F && range.max <= kLabelsAtMost)
        return GreyValueKind::Labels;
    return GreyValueKind::Raw;
}

} // namespace

GreyScale::GreyScale(const VexelImage3D& image)
{
    const math::Range<float> range = image.getValueRange();
    smallest = range.min;
    largest = range.max;
    valueKind = kindOf(image, range);
    black = smallest;
    white = largest;
    if (valueKind == GreyValueKind::Hounsfield) {
        black = kBoneLevel - kBoneWidth / 2.0;
        white = kBoneLevel + kBoneWidth / 2.0;
    } else if (valueKind == GreyValueKind::Raw) {
        white = smallest + kRawShown * (largest - smallest);
    }
}

unsigned char GreyScale::brightness(double value) const
{
    if (std::isnan(value) || value <= black)
        return 0;
    if (value >= white)
        return 255;
    return static_cast<unsigned char>(std::lround((value - black) / (white - black) * 255.0));
}

double GreyScale::attenuation(double value) const
{
    if (std::isnan(value))
        return 0.0;
    switch (valueKind) {
    case GreyValueKind::Hounsfield:
        return std::clamp(
            (value + 1000.0 + (kBoneEmphasis - 1.0) * std::max(0.0, value - kBoneFrom)) / 1000.0,
            0.0, kDensest);
    case GreyValueKind::Labels:
        return value > 0.0 ? std::min(value, 1.0) : 0.0; // every label as dense as the other
    case GreyValueKind::Raw:
        break;
    }
    return largest > smallest ? std::max(0.0, (value - smallest) / (largest - smallest)) : 0.0;
}

QString GreyScale::description() const
{
    switch (valueKind) {
    case GreyValueKind::Hounsfield:
        return QStringLiteral("bone window, %1 to %2 HU").arg(black).arg(white);
    case GreyValueKind::Labels:
        return QStringLiteral("values %1 to %2, a label map or 8-bit picture")
            .arg(black)
            .arg(white);
    case GreyValueKind::Raw:
        break;
    }
    return QStringLiteral("raw values %1 to %2, the lower three quarters of the range")
        .arg(black)
        .arg(white);
}

} // namespace planner
