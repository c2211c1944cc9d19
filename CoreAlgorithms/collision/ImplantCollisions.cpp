// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/ImplantCollisions.h>

#include <functional>

namespace collision {

bool ImplantCollisions::operator==(const ImplantCollisions& other) const
{
    return implantImplantCollisions == other.implantImplantCollisions &&
           implantNerveCollisions == other.implantNerveCollisions &&
           implantAnchorPinCollisions == other.implantAnchorPinCollisions;
}

bool ImplantCollisions::operator!=(const ImplantCollisions& other) const
{
    return !(*this == other);
}

std::pair<std::shared_ptr<dataobject::Implant3D>, std::shared_ptr<dataobject::Implant3D>>
makePair(std::shared_ptr<dataobject::Implant3D> a, std::shared_ptr<dataobject::Implant3D> b)
{
    if (std::less<>()(a.get(), b.get()))
        return {std::move(a), std::move(b)};
    return {std::move(b), std::move(a)};
}

std::pair<std::shared_ptr<dataobject::Implant3D>, std::shared_ptr<dataobject::Nerve>>
makePair(std::shared_ptr<dataobject::Implant3D> implant, std::shared_ptr<dataobject::Nerve> nerve)
{
    return {std::move(implant), std::move(nerve)};
}

std::pair<std::shared_ptr<dataobject::Implant3D>, std::shared_ptr<dataobject::AnchorPin3D>>
makePair(std::shared_ptr<dataobject::Implant3D> implant,
         std::shared_ptr<dataobject::AnchorPin3D> pin)
{
    return {std::move(implant), std::move(pin)};
}

} // namespace collision
