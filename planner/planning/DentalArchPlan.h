// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Case.h>

#include <CoreAlgorithms/dental/NerveGuidingSplineCalculator.h>
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

#include <QList>
#include <QVector3D>

#include <memory>
#include <optional>

class Diagnosis;
class GuidingSpline;
class PlanarDentalSpline;
class ToothAnnotation3D;

namespace planner {

/// A tooth that the mouth lacked and that was created from its label.
struct CreatedTooth
{
    ToothChart::Tooth number = ToothChart::NoTooth;
    QVector3D interpolated; ///< its place between its neighbors on the arch
    QVector3D landmark;     ///< where it really stands
    double distanceMm = 0;  ///< between the two, in the plane of the arch
};

/// The arches, teeth and labels of a case.
struct DentalArchPlan
{
    /// The upper arch before the lower one, each with four teeth or more and at the mean height of
    /// its teeth.
    QList<std::shared_ptr<PlanarDentalSpline>> arches;
    std::shared_ptr<Diagnosis> diagnosis;
    QList<std::shared_ptr<ToothAnnotation3D>> labels;
    std::optional<CreatedTooth> created;
};

/// Draws the arches through the tooth landmarks, labels the teeth, and shows how a missing tooth is
/// created: one tooth (46 or, without it, one amid its arch) is left out of arch and mouth, and
/// labeled at its interpolated place.
DentalArchPlan planTeeth(const Case& planned);

/// Returns the settings with which the planner proposes a nerve.
///
/// They are fitted to the four canals of the built-in patient and of a segmented cone-beam CT. Seen
/// from above, the canals run 1.5 mm to the inner side of the straight line between the foramina,
/// leave the bone outwards at the mental foramen and come from the inner side at the mandibular
/// one: hence the two right angles, which bend the ends to opposite sides. With ends of 10 mm the
/// mean distance seen from above is 1.0 mm, against 1.8 mm for the straight line. Longer ends gain
/// less than 0.1 mm and leave the jaw.
NerveGuidingSplineCalculatorSettings nerveSettings(const QVector3D& mandibularForamen,
                                                   const QVector3D& mentalForamen, bool right);

struct NerveProposal
{
    bool right = false;
    QList<QVector3D> points; ///< the five control points
    std::shared_ptr<GuidingSpline> spline;
};

/// Proposes the nerve of a side. Returns nothing without both foramina of that side.
std::optional<NerveProposal> proposeNerve(const Case& planned, bool right);

/// Distances in mm from the points of a canal's center line to the nearest sample of a path.
struct Distances
{
    double mean = 0;
    double largest = 0;
};

Distances distances(const QList<QVector3D>& canal, const QList<QVector3D>& path);
/// Returns the same as seen from above.
Distances horizontalDistances(const QList<QVector3D>& canal, const QList<QVector3D>& path);

} // namespace planner
