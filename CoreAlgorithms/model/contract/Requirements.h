// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Describes the results, values and base classes that the other concepts require.

#include <QString>

#include <concepts>
#include <memory>
#include <type_traits>

namespace hostcontract {

// One requirement per line.
// clang-format off

/// Accepts a result of this type, by value or by reference.
template <typename Result, typename Value>
concept Exactly = std::same_as<std::remove_cvref_t<Result>, Value>;

/// Accepts an lvalue of this type, because a reference to it is kept beyond the expression.
template <typename Result, typename Value>
concept ReferenceTo = std::is_lvalue_reference_v<Result> && Exactly<Result, Value>;

/// Accepts a result that may be null: a pointer, a shared pointer or an optional.
template <typename Result>
concept Nullable = std::constructible_from<bool, Result>;

/// Accepts a std::shared_ptr to an object or to an object of a derived class.
template <typename Result, typename Object>
concept SharedPointerTo = std::convertible_to<Result, std::shared_ptr<Object>> &&
    Exactly<Result, std::shared_ptr<typename std::remove_cvref_t<Result>::element_type>>;

/// Accepts a value that braces around its parts create without naming its type.
template <typename Value, typename... Parts>
concept BracedFrom = requires(void (*take)(Value), const Parts&... parts) { take({parts...}); };

/// Accepts an enumeration, or an integer in its place. The algorithms use the values, not the names
/// of the enumerators. JawType, Context, CreationType, TransformManipulationType, ResliceType,
/// ToothChart::ArchType, dataobject::Tooth::Status and Category, and
/// CTData::OcclusalPlaneDefinition are such types.
template <typename Enumeration>
concept NumberedValue = std::is_enum_v<Enumeration> || std::integral<Enumeration>;

/// Describes CoreObject and every class derived from it.
template <typename Object>
concept TypedObject = requires(const Object& object, const QString& classTypeId)
{
    { Object::getClassTypeId() } -> Exactly<QString>;
    { object.isOfType(classTypeId) } -> std::convertible_to<bool>;
};

/// Accepts a class to which a static_cast leads after isOfType() has returned true: the kinds of
/// Reslice. The base is not virtual.
template <typename Kind, typename Base>
concept StaticKindOf = TypedObject<Kind> && TypedObject<Base> && std::derived_from<Kind, Base> &&
    requires(const Base* base) { static_cast<const Kind*>(base); };

/// Accepts a class for which a dynamic_cast looks among objects of its base: the kinds of objects
/// of a plan among DataObject, as which they are reported when they have moved, the display
/// functions among colormap::ColormapFunction, the occlusion movements among Movement, the jaw
/// parts among SurgeryPlanningPart, and the points of poly-lines among PointInterface.
template <typename Kind, typename Base>
concept DynamicKindOf = std::is_polymorphic_v<Base> && std::derived_from<Kind, Base>;

// clang-format on

} // namespace hostcontract
