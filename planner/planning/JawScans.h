// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/Mesh.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceScans.h>
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

#include <QMatrix4x4>
#include <QString>
#include <QVector3D>

#include <functional>
#include <memory>

namespace phantom {
class Patient;
}

namespace planner {

/// Returns what a scanner would see of one arch's teeth: the surface of the crowns of the built-in
/// patient in place, LPS mm, open toward the roots. Triangles are counter-clockwise seen from
/// outside.
///
/// The patient is sampled on a grid of 0.5 mm and averaged over neighboring places. The surface is
/// midway between tooth and no tooth. Antagonists are left out, also where they touch.
geometry::Mesh scanCrowns(const phantom::Patient& patient, ToothChart::ArchType arch,
                          const std::function<void(double)>& progress = {});

/// A scan of the crowns of a jaw, which are known.
struct JawScan
{
    /// Takes the crowns where they are, and the matrix by which the scanner has them elsewhere.
    JawScan(const geometry::Mesh& mesh, const QMatrix4x4& matrix, JawType jaw);

    /// Returns the mean distance of the scan's vertices from the crowns', in mm.
    double distanceFromCrowns() const;

    geometry::Mesh crowns;
    geometry::Mesh raw; ///< as scanned
    QMatrix4x4 scannerFromWorld;
    std::shared_ptr<DentalScan> scan;
};

/// Both jaws, each as a scanner has them.
struct JawScans
{
    JawScans(const geometry::Mesh& lowerCrowns, const geometry::Mesh& upperCrowns);

    QVector3D middle; ///< between both crowns
    JawScan lower;
    JawScan upper;
};

/// A placement of a scan.
struct ScanStep
{
    QString what;
    QString operation; ///< by which the scan came there
    /// The largest distance of a vertex from the place to which the placement's matrices take the
    /// raw one, computed in double precision.
    double deviationMm = 0.0;
    double fromCrownsMm = 0.0;
};

/// Imports the lower scan, aligns it by hand and by registration, moves it through all placements
/// and ends at the registration. Calls the function at each placement: as scanned, imported,
/// freehand and registration first.
void moveThroughPlacements(JawScan& lower, const phantom::Patient& patient,
                           const std::function<void(const ScanStep&)>& placed);

/// Places the upper scan at its crowns and the lower one with the mouth open by 14 degrees.
void openMouth(JawScans& scans);
/// Moves the lower scan into the bite that was recorded on an articulator.
void closeMouth(JawScans& scans);

/// Both jaws as an intra-oral scanner delivers them, with the crowns up around the same origin, and
/// the bite that is synthesized from them.
struct SynthesizedBite
{
    geometry::Mesh upper;
    geometry::Mesh lower;
    geometry::Mesh upperInBite;
    double gapMm = 0.0; ///< between the boxes of the jaws in the bite
};

SynthesizedBite synthesizeBite(const geometry::Mesh& upperCrowns,
                               const geometry::Mesh& lowerCrowns);

} // namespace planner
