// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/planning/CollisionPlan.h>

#include <CoreAlgorithms/collision/Clearance.h>

#include <QList>
#include <QMatrix4x4>
#include <QStringList>

namespace planner {

enum class PartKind { Implant, Nerve, Pin };

/// An object of a plan: the kind and the place in the plan's list.
struct PlanPart
{
    PartKind kind = PartKind::Implant;
    qsizetype number = 0;

    friend bool operator==(const PlanPart&, const PlanPart&) = default;
};

/// Holds what is known of an implant and another object: the detector's verdict, and the clearance
/// from the implant's body, the first surface, to the other object.
struct Finding
{
    qsizetype implant = 0;
    PlanPart other;
    bool collides = false;
    collision::Clearance clearance = {};
};

/// Returns a finding for every pair that the detector tests: of each implant with each later
/// implant, then with each nerve and each pin.
QList<Finding> findCollisions(const CollisionPlan& plan);

/// Returns the name of an object of the plan.
const QString& nameOf(const CollisionPlan& plan, const PlanPart& part);
/// Returns whether the object collides by any of the findings.
bool isColliding(const QList<Finding>& findings, const PlanPart& part);
/// Returns whether the implant's zone of 3 mm meets a nerve or a pin.
bool isZoneMet(const QList<Finding>& findings, qsizetype implant);

/// Returns a sentence for each pair of implants that the detector reports as colliding although the
/// surfaces of their bodies are apart.
QStringList reportedThoughApart(const CollisionPlan& plan, const QList<Finding>& findings);

/// One step of a drag.
struct DragStep
{
    double wayMm = 0.0; ///< from where the implant was planned
    QMatrix4x4 placement;
    bool collides = false;               ///< with the nerve
    bool notified = false;               ///< the detector notified its observer of a change
    collision::Clearance clearance = {}; ///< from the body to the nerve
};

/// Pushes an implant along its axis, apex ahead, and has a detector judge each step; the first step
/// is where the implant is planned. The implant is put back afterwards.
QList<DragStep> dragDeeper(const CollisionPlan& plan, qsizetype implant, qsizetype nerve, int steps,
                           double stepMm);

} // namespace planner
