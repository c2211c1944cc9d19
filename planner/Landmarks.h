// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QMatrix4x4>
#include <QString>
#include <QVector3D>

namespace phantom {
class Patient;
}

namespace planner {

enum class LandmarkKind { Foramen, Tooth, Apex, Arch };

/// A named point of the anatomy.
struct Landmark
{
    QString name;  ///< in words, for tables
    QString label; ///< short, for pictures; empty: none
    LandmarkKind kind = LandmarkKind::Foramen;
    QVector3D position; ///< LPS mm

    friend bool operator==(const Landmark&, const Landmark&) = default;
};

/// Names of the four foramina, by which a view asks for them.
inline constexpr char16_t kRightMandibularForamen[] = u"mandibular foramen, right";
inline constexpr char16_t kLeftMandibularForamen[] = u"mandibular foramen, left";
inline constexpr char16_t kRightMentalForamen[] = u"mental foramen, right";
inline constexpr char16_t kLeftMentalForamen[] = u"mental foramen, left";

/// The landmark with the name, or null.
const Landmark* findLandmark(const QList<Landmark>& landmarks, const QString& name);

/// Reads a landmark file; Failure if it is not JSON, holds none of the known entries, or one that is not a
/// position.
///
/// Known are: mandibularForamen and mentalForamen, each with right and left; teeth, by FDI number, each with
/// occlusal and apex; lowerTeeth and upperTeeth, by FDI number; mandibleBodyMidline, a list. A position is
/// three numbers, LPS mm, or an object with either these as "lps" or indices of the volume as "voxel". Other
/// entries are passed over.
QList<Landmark> readLandmarks(const QString& path, const QMatrix4x4& worldFromVoxel);

/// Foramina, occlusal points and apices of the built-in patient.
QList<Landmark> landmarksOf(const phantom::Patient& patient);

/// The centre line of a mandibular canal, from the mandibular to the mental foramen.
struct CanalLine
{
    bool right = false;
    QList<QVector3D> points; ///< LPS mm
};

/// The entry canal of a landmark file: right and left, each with points, positions as above. Empty without one;
/// Failure as above.
QList<CanalLine> readCanals(const QString& path, const QMatrix4x4& worldFromVoxel);
/// Those of the built-in patient.
QList<CanalLine> canalsOf(const phantom::Patient& patient);

/// FDI number of a tooth in Universal numbering, 1 to 32: 1 is 18, 32 is 48.
int fdiNumber(int universalNumber);
/// The reverse; 0 for a number that is no permanent tooth's.
int universalNumber(int fdiNumber);

} // namespace planner
