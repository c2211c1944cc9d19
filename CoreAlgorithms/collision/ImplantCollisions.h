// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>
#include <CoreAlgorithms/model/dataobjects/Implants.h>

#include <QSet>

#include <memory>
#include <utility>

namespace collision {

/// Records which objects of a plan collide, as three sets of pairs. This is a value type: copies
/// share their sets until one is changed, and a moved-from record has three empty sets.
///
/// Make pairs with makePair(), so that a pair that is found from both of its members is in the set
/// once. Pairs are compared and hashed by the addresses of their members, and keep them alive.
struct COREALGORITHMS_EXPORT ImplantCollisions
{
    /// Holds the pairs of implants whose envelopes (safety zones of margin 0.0) intersect.
    QSet<std::pair<std::shared_ptr<dataobject::Implant3D>, std::shared_ptr<dataobject::Implant3D>>>
        implantImplantCollisions;
    /// Holds each implant whose safety zone of margin 3.0 intersects a nerve, with that nerve.
    QSet<std::pair<std::shared_ptr<dataobject::Implant3D>, std::shared_ptr<dataobject::Nerve>>>
        implantNerveCollisions;
    /// Holds each implant whose safety zone of margin 3.0 intersects an anchor pin, with that pin.
    QSet<
        std::pair<std::shared_ptr<dataobject::Implant3D>, std::shared_ptr<dataobject::AnchorPin3D>>>
        implantAnchorPinCollisions;

    /// Returns whether all three sets are equal. Compares the sets in the order above and stops at
    /// the first difference. Elements are looked up only if the sizes agree and the set is not
    /// shared.
    bool operator==(const ImplantCollisions& other) const;
    /// Returns whether a set differs.
    bool operator!=(const ImplantCollisions& other) const;
};

/// Returns the two implants in canonical order, with the one at the lower address first, so that
/// makePair(a, b) == makePair(b, a). Null comes first. An implant with itself gives (a, a).
COREALGORITHMS_EXPORT
std::pair<std::shared_ptr<dataobject::Implant3D>, std::shared_ptr<dataobject::Implant3D>>
makePair(std::shared_ptr<dataobject::Implant3D> a, std::shared_ptr<dataobject::Implant3D> b);

/// Returns (implant, nerve), whatever their addresses. Either may be null.
COREALGORITHMS_EXPORT
std::pair<std::shared_ptr<dataobject::Implant3D>, std::shared_ptr<dataobject::Nerve>>
makePair(std::shared_ptr<dataobject::Implant3D> implant, std::shared_ptr<dataobject::Nerve> nerve);

/// Returns (implant, pin), whatever their addresses. Either may be null.
COREALGORITHMS_EXPORT
std::pair<std::shared_ptr<dataobject::Implant3D>, std::shared_ptr<dataobject::AnchorPin3D>>
makePair(std::shared_ptr<dataobject::Implant3D> implant,
         std::shared_ptr<dataobject::AnchorPin3D> pin);

} // namespace collision
