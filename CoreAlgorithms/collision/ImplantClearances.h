// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>
#include <CoreAlgorithms/collision/Clearance.h>
#include <CoreAlgorithms/model/data/Shapes.h>
#include <CoreAlgorithms/model/dataobjects/AnchorPin3D.h>
#include <CoreAlgorithms/model/dataobjects/Implant3D.h>
#include <CoreAlgorithms/model/dataobjects/Nerve.h>
#include <CoreAlgorithms/model/patterns/Observable.h>

#include <QList>
#include <QSet>

#include <cstddef>
#include <memory>
#include <optional>
#include <unordered_set>

namespace collision {

/// The clearances in mm that a plan should keep, by the kind of the other object.
struct ClearanceLimits
{
    /// Separates the bodies of two implants. Tarnow, Cho and Wallace (J Periodontol 2000,
    /// 71:546-549, 36 patients) measured 1.04 mm of crestal bone loss between implants 3 mm or less
    /// apart at the shoulder, and 0.45 mm between those further apart.
    double implant = 3.0;
    /// Separates the body of an implant from a nerve. The figure is a convention, discussed by
    /// Garcia Blanco and Puia (J Dent Oral Disord 2016, 2(6):1030), and disputed: among 101
    /// implants closer than 2 mm, those of patients without a disturbance were 0.75 mm from the
    /// nerve on average (doi:10.11607/prd.5626).
    double nerve = 2.0;
    /// Separates the body of an implant from a pin, so that a wall is left between the two drill
    /// holes. The figure is our choice and rests on no study.
    double anchorPin = 1.0;
};

/// The clearance of an implant's body to another object; the implant is its first surface.
template <typename Other>
struct PairClearance
{
    std::shared_ptr<dataobject::Implant3D> implant;
    std::shared_ptr<Other> other;
    Clearance clearance;
};

using ImplantPairClearance = PairClearance<dataobject::Implant3D>;
using NervePairClearance = PairClearance<dataobject::Nerve>;
using AnchorPinPairClearance = PairClearance<dataobject::AnchorPin3D>;

/// Keeps the clearances of a plan up to date while objects change: from the body of every implant
/// to every other implant, nerve and pin, in mm and in scene coordinates. It is called as the
/// ImplantCollisionDetector is, and answers how far apart objects are where the detector answers
/// whether its zones overlap. See clearance() for what is measured and how exactly.
///
/// Example (examples/measure_clearances.cpp):
/// \code
/// collision::ImplantClearances clearances(shapeLoader);
/// clearances.prepareAndStartMeasurement(implants, {implant}, pins, {}, nerves, {nerve});
///
/// // The clinician lowers the implant: forget where it was, then measure its pairs again.
/// implant->setObjectTransform(placement);
/// clearances.shapeHasChanged(implant);
/// clearances.prepareAndStartMeasurement(implants, {implant}, pins, {}, nerves, {});
///
/// double nearestMm = 0.0;
/// if (const auto pair = clearances.getNearestNerve(*implant))
///     nearestMm = pair->clearance.distance;
/// const bool warn = !clearances.getNervesBelow().isEmpty(); // nearer than 2 mm
/// \endcode
///
/// A call measures the pairs of changed objects again and keeps all others. The triangles that were
/// nearest before shorten each search, so that a drag in small steps is cheap. Observers are
/// notified when a clearance has changed.
///
/// Null objects are skipped. A pair with an implant whose diameter or length is not positive and
/// finite, or with an object without a valid surface, has no clearance; all other pairs are
/// measured. Single-threaded; observers are notified inside prepareAndStartMeasurement() and
/// remove().
class COREALGORITHMS_EXPORT ImplantClearances
    : public patterns::Observable<ImplantClearances, std::nullptr_t>
{
public:
    /// Keeps the loader, which must outlive this object.
    explicit ImplantClearances(geometry::ShapeLoader& shapeLoader);
    ImplantClearances(const ImplantClearances&) = delete;
    ImplantClearances& operator=(const ImplantClearances&) = delete;
    ~ImplantClearances() override;

    /// Measures every pair that involves a changed object. `implants`, `anchorPins` and `nerves`
    /// are the objects of the plan; a changed object that is missing there is paired as well.
    void prepareAndStartMeasurement(
        const QSet<std::shared_ptr<dataobject::Implant3D>>& implants,
        const std::unordered_set<std::shared_ptr<dataobject::Implant3D>>& changedImplants,
        const QSet<std::shared_ptr<dataobject::AnchorPin3D>>& anchorPins,
        const std::unordered_set<std::shared_ptr<dataobject::AnchorPin3D>>& changedAnchorPins,
        const QSet<std::shared_ptr<dataobject::Nerve>>& nerves,
        const std::unordered_set<std::shared_ptr<dataobject::Nerve>>& changedNerves);

    /// Drops the cached surface of an implant that has moved or changed shape. It is placed again
    /// when it is next measured. Notifies nobody.
    void shapeHasChanged(const std::shared_ptr<dataobject::Implant3D>& implant);
    /// Drops the cached surface of a nerve, likewise.
    void shapeHasChanged(const std::shared_ptr<dataobject::Nerve>& nerve);
    /// Drops the cached surface of a pin, likewise.
    void shapeHasChanged(const std::shared_ptr<dataobject::AnchorPin3D>& pin);

    /// Removes an implant that left the plan, with its surface and its clearances, and notifies
    /// even if there were none.
    void remove(const std::shared_ptr<dataobject::Implant3D>& implant);
    /// Removes a nerve, likewise.
    void remove(const std::shared_ptr<dataobject::Nerve>& nerve);
    /// Removes a pin, likewise.
    void remove(const std::shared_ptr<dataobject::AnchorPin3D>& pin);

    /// Returns the nearest other implant of an implant, or nothing if no pair was measured. Of
    /// equal distances, the one with the least nearest point by x, then y, then z comes first, here
    /// and below.
    std::optional<ImplantPairClearance>
    getNearestImplant(const dataobject::Implant3D& implant) const;
    /// Returns the nearest nerve of an implant, or nothing.
    std::optional<NervePairClearance> getNearestNerve(const dataobject::Implant3D& implant) const;
    /// Returns the nearest pin of an implant, or nothing.
    std::optional<AnchorPinPairClearance>
    getNearestAnchorPin(const dataobject::Implant3D& implant) const;

    /// Returns the pairs of implants with a clearance below the limit in mm, the least first. A
    /// pair is listed once.
    QList<ImplantPairClearance> getImplantsBelow(double limit = ClearanceLimits().implant) const;
    /// Returns the implants and nerves with a clearance below the limit in mm, the least first.
    QList<NervePairClearance> getNervesBelow(double limit = ClearanceLimits().nerve) const;
    /// Returns the implants and pins with a clearance below the limit in mm, the least first.
    QList<AnchorPinPairClearance>
    getAnchorPinsBelow(double limit = ClearanceLimits().anchorPin) const;

private:
    struct Measurements;

    std::unique_ptr<Measurements> measurements;
};

} // namespace collision
