// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Case.h>

#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Implants.h>
#include <CoreAlgorithms/model/dataobjects/Reslices.h>

#include <QList>
#include <QMatrix4x4>
#include <QString>

#include <array>
#include <memory>
#include <optional>

namespace planner {

/// A panoramic view, with the reason for its place.
struct Panorama
{
    QString place; ///< a sentence
    std::shared_ptr<GuidingSpline> arch;
    std::shared_ptr<PanoramicReslice> reslice;
};

/// Returns a view along the lower jaw from the patient's right to the left, at the height of the
/// points that lead it, up being superior: through the arch points, without five of them through
/// every other lower tooth, and on through the mandibular foramina. Returns nothing if there are
/// less than five points, or if they make no arch of 20 to 600 mm.
std::optional<Panorama> panorama(const Case& planned);
/// Returns the reason for which there is no panorama, as a sentence; empty if there is one.
QString whyNoPanorama(const Case& planned);

/// Returns the same view with columns of 5 mm. Their positions in mm are the same but for the
/// arch's curvature within a column; lines count as in slice up to 5 mm from the surface.
std::shared_ptr<PanoramicReslice> withWideColumns(const PanoramicReslice& reslice);

/// The teeth whose places implants take, by FDI number.
inline constexpr std::array<const char*, 2> kImplantSites = {"46", "36"};

/// Returns an implant in the place of a tooth whose occlusal point and apex are known: along the
/// tooth, its platform toward the crown, its local y axis to posterior as far as the tooth allows.
/// Null without them.
std::shared_ptr<dataobject::Implant3D> implantAt(const Case& planned, const QString& fdi);

/// Turns the implant about its axis, square to the arch. Returns by how many degrees.
double turnSquare(dataobject::Implant3D& implant, GuidingLine& arch);

/// An implant that was turned square to the arch.
struct TurnedImplant
{
    QString fdi;
    std::shared_ptr<dataobject::Implant3D> implant;
    QMatrix4x4 before;
    double turnedDegrees;
};

/// Returns the implants at those of kImplantSites where one can be placed, turned.
QList<TurnedImplant> placeTurnedImplants(const Case& planned, GuidingLine& arch);

} // namespace planner
