// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/Mesh.h>
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

#include <functional>

namespace phantom {
class Patient;
}

namespace planner {

/// What a scanner would see of one arch's teeth: the surface of the crowns of the built-in patient,
/// where they stand, LPS mm, open towards the roots. Triangles are counter-clockwise seen from
/// outside.
///
/// The patient is asked on a grid of 0.5 mm, averaged over neighbouring places, and the surface
/// laid midway between tooth and no tooth. Antagonists are left out, also where they touch.
geometry::Mesh scanCrowns(const phantom::Patient& patient, ToothChart::ArchType arch,
                          const std::function<void(double)>& progress = {});

} // namespace planner
