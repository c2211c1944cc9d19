// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/VexelImage3D.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <type_traits>

/// The elements of an image, whose type is known only when the program runs: for readers, which
/// scale them, and for sampling.
namespace planner {

/// Calls the visitor with a zero of the element type, so that a lambda with an `auto` parameter
/// learns the type.
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
    bool isIdentity() const { return slope == 1.0 && intercept == 0.0; }
};

/// Returns the scaling that a header states. A slope of 0, or numbers that are not finite, mean
/// that values are not scaled: NIfTI says so, and in DICOM, too, it is how careless programs say
/// it.
inline Scaling usableScaling(double slope, double intercept)
{
    return std::isfinite(slope) && std::isfinite(intercept) && slope != 0.0
               ? Scaling{slope, intercept}
               : Scaling{};
}

/// Returns the type for scaled values whose originals are of the given type and between the two
/// limits: 16-bit integers if these hold every such value exactly, else single precision.
inline image::DataType scaledType(const Scaling& scaling, image::DataType type, double smallest,
                                  double largest)
{
    const auto isWhole = [](double number) { return std::trunc(number) == number; };
    const auto [low, high] = std::minmax({scaling.scaled(smallest), scaling.scaled(largest)});
    const bool fits = isInteger(type) && isWhole(scaling.slope) && isWhole(scaling.intercept) &&
                      low >= -32768.0 && high <= 32767.0;
    return fits ? image::Int16 : image::Float32;
}

/// Writes `count` stored values, scaled, into the image from voxel number `first` on. In an image
/// of 16-bit integers, values beyond these become the nearest of them.
template <typename Element>
void storeScaled(const Element* stored, std::size_t count, const Scaling& scaling,
                 VexelImage3D& image, std::size_t first)
{
    visitElementType(image.dataType(), [&](auto zero) {
        using Target = decltype(zero);
        auto* target = static_cast<Target*>(image.dataPtr()) + first;
        if constexpr (std::is_same_v<Element, Target>) {
            if (scaling.isIdentity()) {
                std::copy(stored, stored + count, target);
                return;
            }
        }
        for (std::size_t i = 0; i < count; ++i) {
            const double value = scaling.scaled(stored[i]);
            if constexpr (std::is_same_v<Target, std::int16_t>)
                target[i] = static_cast<Target>(std::clamp(value, -32768.0, 32767.0));
            else if constexpr (std::is_floating_point_v<Target>)
                target[i] = static_cast<Target>(value);
        }
    });
}

} // namespace planner
