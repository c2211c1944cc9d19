// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>
#include <CoreAlgorithms/model/dataobjects/Implants.h>

#include <QSet>

#include <memory>
#include <utility>

namespace collision {

/// Which objects of a plan collide: three sets of pairs. A value; copies share their sets until one
/// is changed, and a record that was moved from has three empty sets.
///
/// Pairs are compared and hashed by the addresses of their members. They keep their members alive.
/// They are those that makePair() makes, so that a pair that is found from both of its members
/// stands in the set once.
struct COREALGORITHMS_EXPORT ImplantCollisions
{
    /// Implants whose bodies (safety zones of margin 0.0) intersect.
    QSet<std::pair<std::shared_ptr<dataobject::Implant3D>, std::shared_ptr<dataobject::Implant3D>>>
        implantImplantCollisions;
    /// Implants whose safety zone of margin 3.0 intersects a nerve, and the nerve.
    QSet<std::pair<std::shared_ptr<dataobject::Implant3D>, std::shared_ptr<dataobject::Nerve>>>
        implantNerveCollisions;
    /// Implants whose safety zone of margin 3.0 intersects an anchor pin, and the pin.
    QSet<
        std::pair<std::shared_ptr<dataobject::Implant3D>, std::shared_ptr<dataobject::AnchorPin3D>>>
        implantAnchorPinCollisions;

    /// Equal if all three sets are: the sizes first, elements only if those agree, nothing if the
    /// sets are shared.
    bool operator==(const ImplantCollisions& other) const;
    bool operator!=(const ImplantCollisions& other) const;
};

/// The two implants in canonical order, the one at the lower address first: makePair(a, b) ==
/// makePair(b, a). A pair of an implant with itself is (a, a); null comes first.
COREALGORITHMS_EXPORT
std::pair<std::shared_ptr<dataobject::Implant3D>, std::shared_ptr<dataobject::Implant3D>>
makePair(std::shared_ptr<dataobject::Implant3D> a, std::shared_ptr<dataobject::Implant3D> b);

/// (implant, nerve), never reordered.
COREALGORITHMS_EXPORT
std::pair<std::shared_ptr<dataobject::Implant3D>, std::shared_ptr<dataobject::Nerve>>
makePair(std::shared_ptr<dataobject::Implant3D> implant, std::shared_ptr<dataobject::Nerve> nerve);

/// (implant, pin), never reordered.
COREALGORITHMS_EXPORT
std::pair<std::shared_ptr<dataobject::Implant3D>, std::shared_ptr<dataobject::AnchorPin3D>>
makePair(std::shared_ptr<dataobject::Implant3D> implant,
         std::shared_ptr<dataobject::AnchorPin3D> pin);

} // namespace collision
