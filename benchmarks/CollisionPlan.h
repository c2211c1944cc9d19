// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/Mesh.h>
#include <CoreAlgorithms/model/dataobjects/Implants.h>

#include <QList>
#include <QMatrix4x4>

#include <memory>

/// The plans that the collision benchmarks run on. All stand in a frame that is tilted against the
/// axes.
namespace benchmarks {

struct Plan
{
    QList<std::shared_ptr<dataobject::Implant3D>> implants;
    QList<std::shared_ptr<dataobject::Nerve>> nerves;
    QList<std::shared_ptr<dataobject::AnchorPin3D>> pins;
};

/// Twelve implants along an arch, two canals of 60 mm below them, right and left, and six pins from
/// outside.
Plan fullArch(int trianglesPerNerve);

/// Where the first implant of the full arch stands in each step of a drag: 500 steps of 0.1 mm at
/// the height of its platform, straight above the left canal and from the back to the front.
/// Behind, where the canal rises, its zone cuts the nerve; in front it passes 2 mm above it; and it
/// passes through other implants. Step 0 is the start.
inline constexpr int kDragSteps = 500;
QMatrix4x4 dragPlacement(int step);

/// One implant with its zone 0.05 mm beside one nerve.
Plan hovering(int trianglesPerNerve);

/// The surface of an implant's safety zone, in the implant's frame.
geometry::Mesh safetyZoneMesh(dataobject::Implant3D& implant, float margin);
/// The surface of a pin, in the pin's frame.
geometry::Mesh pinMesh(dataobject::AnchorPin3D& pin);

} // namespace benchmarks
