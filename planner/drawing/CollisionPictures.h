// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/planning/CollisionFindings.h>
#include <planner/planning/CollisionPlan.h>

#include <QColor>
#include <QImage>
#include <QList>

#include <functional>

namespace planner {

struct Case;
class GreyScale;
class Sampler;

/// Colors of the objects in all pictures of collisions.
namespace collisionColors {
inline constexpr QRgb kImplant = 0xffdfe6ec;
inline constexpr QRgb kZone = 0xff45c4f2;
inline constexpr QRgb kNerve = 0xffffc83d;
inline constexpr QRgb kPin = 0xff8f7bff;
inline constexpr QRgb kColliding = 0xffff3b30;
} // namespace collisionColors

/// Returns the color of an object: red if it collides.
QColor partColor(const QList<Finding>& findings, const PlanPart& part);

/// Returns whether the grey values tell where bone is, so that paintJaw() shows it.
bool isBoneShown(const GreyScale& scale);
/// Paints the plan within the lower jaw, seen from the front, from above and from the patient's
/// left. The bone is shown as glass without the crowns of its teeth, if the grey values tell where
/// it is. The plan has an implant. Needs a QGuiApplication, as all do.
QImage paintJaw(const Case& planned, const Sampler& sampler, const GreyScale& scale,
                const CollisionPlan& plan, const QList<Finding>& findings,
                const std::function<void(double)>& progress = {});

/// Paints a cut through the CT for each finding, two beside each other: through the axis of the
/// implant and the nearest point of what it is too close to.
QImage paintFindings(const Sampler& sampler, const GreyScale& scale, bool orientationKnown,
                     const CollisionPlan& plan, const QList<Finding>& shown);

/// Paints the steps of a drag beside each other, as cuts through the implant's axis and the nearest
/// point of the nerve.
QImage paintDrag(const Sampler& sampler, const GreyScale& scale, bool orientationKnown,
                 const CollisionPlan& plan, qsizetype implant, qsizetype nerve,
                 const QList<DragStep>& steps);

} // namespace planner
