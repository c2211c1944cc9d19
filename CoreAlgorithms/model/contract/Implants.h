// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Describes implants, anchor pins and locked plans.

#include <CoreAlgorithms/model/contract/Requirements.h>

#include <QMatrix4x4>

#include <concepts>
#include <cstddef>
#include <memory>

namespace hostcontract {

// One requirement per line.
// clang-format off

/// Describes dataobject::Implant3D, which a shared pointer owns.
template <typename Implant>
concept ImplantFamily = TypedObject<Implant> && requires(const Implant& implant)
{
    { implant.getObjectTransform() } -> Exactly<QMatrix4x4>;
    { implant.getDimensions().diameter } -> Exactly<float>;
    { implant.getDimensions().length } -> Exactly<float>;
    { std::dynamic_pointer_cast<const Implant>(implant.weak_from_this().lock()) }
        -> std::same_as<std::shared_ptr<const Implant>>;
};

/// Describes dataobject::AnchorPin3D.
template <typename Pin, typename ShapeNode>
concept AnchorPinFamily = TypedObject<Pin> && requires(const Pin& pin, Pin& changeable)
{
    { changeable.getShapeNode() } -> std::convertible_to<const ShapeNode*>;
    { pin.getObjectTransform() } -> Exactly<QMatrix4x4>;
};

/// Requires that a shared pointer to an implant, pin or nerve is a key of a QSet or QHash, alone
/// and in a pair. The overload of qHash must be found by the argument alone: it is in namespace
/// dataobject or comes from Qt.
template <typename Object>
concept HashedByPointer = requires(const std::shared_ptr<Object>& object)
{
    { qHash(object, std::size_t(0)) } -> std::convertible_to<std::size_t>;
};

/// Describes the placement of dataobject::Implant3D and dataobject::AnchorPin3D. The reason of
/// value 3 is a new scanner frame.
template <typename Object, typename Reason>
concept AbsolutelyPlacedFamily =
    requires(const Object& object, Object& changeable, const QMatrix4x4& matrix, Reason reason)
{
    { object.getObjectTransform() } -> Exactly<QMatrix4x4>;
    changeable.setObjectTransform(matrix, reason);
};

/// Describes dataobject::LockedImplantPlan.
template <typename Plan>
concept LockedPlanFamily = requires(Plan& changeable, const QMatrix4x4& matrix)
{
    changeable.updateScannerOrientation(matrix);
};

// clang-format on

} // namespace hostcontract
