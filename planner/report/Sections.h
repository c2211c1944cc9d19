// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Case.h>
#include <planner/report/Report.h>

// The sections of the report, each in a source of its own, in the order of the report.
namespace planner {

class Progress;

/// Shows the axial, the oblique and the cephalometric view with the landmarks mapped into them and
/// back.
Section createViewsSection(const Case& planned, Progress& progress);

/// Shows the arches with their control points and tooth labels, a missing tooth found and created,
/// and the nerves proposed from the foramina over the canals, as far as these are known.
Section createDentalSection(const Case& planned, Progress& progress);

/// Shows a plan in the lower jaw and all that collides in it: the demonstration on the built-in
/// patient, and in a CT whose canals are known the implants that its landmarks lead to. Without
/// canals or implants, a sentence says so.
Section createCollisionSection(const Case& planned, Progress& progress);

/// Shows the regions in which grey values are sampled, their histograms, the tissue levels and the
/// window estimated from them, and what drags do to the display functions. Without landmarks of the
/// skull the teeth serve; for a CT without either, or without grey values, it says so.
Section createGreyValuesSection(const Case& planned, Progress& progress);

/// Shows the panoramic view with teeth, nerves and implants, an implant turned square to the arch,
/// and where the views cut each other. Without the points that a panoramic view needs, a sentence
/// that says so takes its place.
Section createPanoramicSection(const Case& planned, Progress& progress);

/// Shows scans of the built-in patient's crowns: one is moved through its placements and back, then
/// the jaws are brought into the bite. For another CT, of which there are no scans, a sentence that
/// says so.
Section createScansSection(const Case& planned, Progress& progress);

/// Shows a whole plan on the built-in patient moved into a new scanner frame and back, object by
/// object, and a bite that is applied, undone and applied again. For another CT, for which there is
/// no such plan, a sentence that says so.
Section createScannerFrameSection(const Case& planned, Progress& progress);

} // namespace planner
