// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/CollisionFindings.h>
#include <planner/MeshView.h>
#include <planner/Plan.h>

#include <QColor>
#include <QImage>
#include <QList>

namespace phantom {
class Patient;
}

namespace planner {

class GreyScale;
class Sampler;

/// Colours of the objects in all pictures of collisions.
namespace collisionColours {
inline constexpr QRgb kImplant = 0xffdfe6ec;
inline constexpr QRgb kZone = 0xff45c4f2;
inline constexpr QRgb kNerve = 0xffffc83d;
inline constexpr QRgb kPin = 0xff8f7bff;
inline constexpr QRgb kColliding = 0xffff3b30;
} // namespace collisionColours

/// The lower jaw as glass, seen from the front, from above and from the patient's left, without the crowns of its
/// teeth; in it the plan. Needs a QGuiApplication, as all do.
QImage paintJaw(const phantom::Patient& patient, const Sampler& sampler, const Plan& plan,
                const QList<Finding>& findings, const std::function<void(double)>& progress = {});

/// A cut through the CT for each finding, two beside each other: through the axis of the implant and the nearest point
/// of what it is too close to.
QImage paintFindings(const Sampler& sampler, const GreyScale& scale, bool orientationKnown, const Plan& plan,
                     const QList<Finding>& shown);

/// The steps of a drag beside each other, as cuts through the implant's axis and the nearest point of the nerve.
QImage paintDrag(const Sampler& sampler, const GreyScale& scale, bool orientationKnown, const Plan& plan,
                 qsizetype implant, qsizetype nerve, const QList<DragStep>& steps);

} // namespace planner
