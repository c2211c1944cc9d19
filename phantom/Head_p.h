// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <phantom/Geometry_p.h>

#include <vector>

/// The parts around the jaws: skin, airways and the other bones in the field of view.
namespace phantom {

/// The skin's surface: lower face and neck.
class Skin
{
public:
    Skin();

    /// Returns half the head's width along a line in x, negative where the line misses the head.
    double halfWidthAt(double y, double z) const;

private:
    double noseHalfWidthAt(double y, double z) const;

    Profile face; // y of the front on the midline, without the nose, by z
    Profile back;
    Profile width; // half of the largest width, by z
    Profile noseRidge;
    Profile noseWidth;
};

/// Returns cheekbones, walls of the maxillary sinuses, skull base and spine.
std::vector<Ovoid> otherBones();
/// Returns the air inside the head. The left maxillary sinus is the larger one, and the nasal
/// septum is to the left.
std::vector<Ovoid> airSpaces();
/// Returns soft tissue that fills part of the air spaces: tongue, soft palate and turbinates.
std::vector<Ovoid> lumpsInAirSpaces();

} // namespace phantom
