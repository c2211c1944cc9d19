// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/VexelImage3D.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

/// The elements of an image, whose type is known only when the program runs: for readers, which scale them, and
/// for sampling.
namespace planner {

/// Calls the visitor with a zero of the element type, so that a lambda with an `auto` parameter learns the type.
template <typename Visitor>
auto visitElementType(image::DataType type, const Visitor& visitor)
{
    switch (type) {
    case image::UInt16:
        return visitor(std::uint16_t{});
    case image::Int16:
        return visitor(std::int16_t{});
    case image::UInt8:
        return visitor(std::uint8_t{});
    case image::Int8:
        return visitor(std::int8_t{});
    case image::UInt32:
        return visitor(std::uint32_t{});
    case image::Int32:
        return visitor(std::int32_t{});
    case image::Float32:
        return visitor(float{});
    case image::Float64:
        break;
    }
    return visitor(double{});
}

inline bool isInteger(image::DataType type)
{
    return type != image::Float32 && type != image::Float64;
}

/// How stored values become grey values.
struct Scaling
{
    double slope = 1.0;
    double intercept = 0.0;

    double scaled(double stored) const { return slope * stored + intercept; }
};

/// The type for scaled values, whose originals are of the given type and lie between the two limits: 16-bit
/// integers if these hold every such value exactly, else single precision.
inline image::DataType scaledType(const Scaling& scaling, image::DataType type, double smallest,
                                  double largest)
{
    const auto isWhole = [](double number) { return std::trunc(number) == number; };
    const auto [low, high] = std::minmax({scaling.scaled(smallest), scaling.scaled(largest)});
    const bool fits = isInteger(type) && isWhole(scaling.slope) && isWhole(scaling.intercept) &&
                      low >= -32768.0 && high <= 32767.0;
    return fits ? image::Int16 : image::Float32;
}

} // namespace planner
