// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/Mesh.h>
#include <CoreAlgorithms/model/dataobjects/Implants.h>

#include <QList>
#include <QMatrix4x4>

#include <memory>

// The plans of the collision benchmarks. Their frame is tilted against the axes of the scene.
namespace benchmarks {

/// Holds the objects of a plan.
struct Plan
{
    QList<std::shared_ptr<dataobject::Implant3D>> implants;
    QList<std::shared_ptr<dataobject::Nerve>> nerves;
    QList<std::shared_ptr<dataobject::AnchorPin3D>> pins;
};

/// Returns a plan with twelve implants along an arch, two canals of 60 mm below them, right and
/// left, and six pins that reach in from outside.
Plan fullArch(int trianglesPerNerve);

/// The number of steps of a drag, without the start.
inline constexpr int kDragSteps = 500;
/// Returns the placement of the first implant of the full arch at a step of its drag; step 0 is the
/// start. Each step is 0.1 mm from the back to the front, straight above the left canal. At the
/// back, where the canal rises, the implant's zone cuts the nerve; at the front it passes 2 mm
/// above it. On the way, the implant passes through other implants.
QMatrix4x4 dragPlacement(int step);

/// Returns a plan with one implant, whose zone is 0.05 mm from one nerve.
Plan hovering(int trianglesPerNerve);

/// Returns the surface of an implant's safety zone, in the implant's frame.
geometry::Mesh safetyZoneMesh(dataobject::Implant3D& implant, float margin);
/// Returns the surface of a pin, in the pin's frame.
geometry::Mesh pinMesh(dataobject::AnchorPin3D& pin);

} // namespace benchmarks
