// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Describes surfaces and trees of surfaces that are tested or moved.

#include <CoreAlgorithms/model/contract/Requirements.h>

#include <QList>
#include <QMatrix4x4>
#include <QVector3D>

#include <concepts>

namespace hostcontract {

// One requirement per line.
// clang-format off

/// Describes Surface3DModel and the classes derived from it, for instance dataobject::Nerve.
template <typename Surface, typename Mesh, typename Box>
concept SurfaceModelFamily = TypedObject<Surface> && requires(const Surface& surface)
{
    { surface.getMesh() } -> Exactly<Mesh>;
    { surface.getObjectTransform() } -> Exactly<QMatrix4x4>;
    { surface.getSceneBoundingBox() } -> Exactly<Box>;
};

/// Describes Surface3DModel as it is moved: setObjectTransform() and refresh() together move the
/// mesh relative to its present place.
template <typename Surface, typename Mesh>
concept MovableSurfaceFamily = TypedObject<Surface> &&
    requires(const Surface& surface, Surface& changeable, const QMatrix4x4& matrix)
{
    { surface.getMesh() } -> Exactly<Mesh>;
    { surface.getCenterOfMass() } -> Exactly<QVector3D>;
    changeable.setObjectTransform(matrix);
    changeable.refresh();
};

/// Describes EditLocker over an object, for instance Surface3DModel, or over null.
template <typename Locker, typename Object>
concept EditLockerFamily = std::constructible_from<Locker, Object*> &&
    requires(Object& object)
{
    object.startEditing();
    object.stopEditing();
};

/// Describes dataobject::SurfaceObject and the classes derived from it, for instance SurfaceTree.
template <typename Surface, typename Box>
concept SurfaceObjectFamily = requires(const Surface& surface)
{
    { surface.getSceneBoundingBox() } -> Exactly<Box>;
};

/// Describes SurfaceTree and TempShell, which are moved relatively.
template <typename Tree>
concept MovableTreeFamily = requires(Tree& changeable, const QMatrix4x4& matrix)
{
    changeable.setObjectTransform(matrix);
};

/// Describes the templates and VirtualTooth, whose setObjectTransform() is absolute.
template <typename Surface>
concept PlacedSurfaceFamily =
    requires(const Surface& surface, Surface& changeable, const QMatrix4x4& matrix)
{
    { surface.getObjectTransform() } -> Exactly<QMatrix4x4>;
    changeable.setObjectTransform(matrix);
};

/// Describes SurfaceObjectHelper.
template <typename Helper, typename SurfaceObject, typename Box>
concept SurfaceBoxes = requires(const QList<const SurfaceObject*>& surfaces)
{
    { Helper::getCombinedBoundingBox(surfaces) } -> Exactly<Box>;
};

// clang-format on

} // namespace hostcontract
