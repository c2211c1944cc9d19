// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QMatrix4x4>
#include <QString>
#include <QStringList>
#include <QVector3D>

#include <optional>

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

/// Returns the landmark with the name, or null.
const Landmark* findLandmark(const QList<Landmark>& landmarks, const QString& name);

/// The center line of a mandibular canal, from the mandibular to the mental foramen.
struct CanalLine
{
    bool right = false;
    QList<QVector3D> points;       ///< LPS mm; two or more, neighbors differ
    std::optional<float> radiusMm; ///< nothing if it is not known
};

/// Returns "right" or "left".
QString sideName(bool right);
/// Returns the canal of a side, or null.
const CanalLine* findCanal(const QList<CanalLine>& canals, bool right);

/// What a landmark file holds.
struct LandmarkFile
{
    QList<Landmark> landmarks;
    QList<CanalLine> canals; ///< right before left
    QStringList warnings;    ///< sentences about entries that are left out
};

/// Reads a landmark file, whose format docs/landmarks.md describes. `worldFromVoxel` maps positions
/// that the file gives as voxels. Throws Failure if the file is not a JSON object, holds no
/// landmark, holds a known entry that is no position, places two teeth at one point, or holds more
/// points than an arch or a canal can have.
LandmarkFile readLandmarks(const QString& path, const QMatrix4x4& worldFromVoxel);

/// Returns a sentence for each way in which landmarks contradict one another or what is known of
/// every jaw: left and right exchanged, canals that do not start and end at their foramina, arch
/// points that do not run along the teeth or span no jaw. Empty if there is nothing to doubt.
QStringList findContradictions(const LandmarkFile& file);

/// Returns foramina, occlusal points and apices of the built-in patient.
QList<Landmark> landmarksOf(const phantom::Patient& patient);

/// Returns both canals of the built-in patient, the right one first.
QList<CanalLine> canalsOf(const phantom::Patient& patient);

/// Returns the FDI number of a tooth in Universal numbering, 1 to 32: 1 is 18, 32 is 48.
int fdiNumber(int universalNumber);
/// Returns the Universal number of a tooth in FDI notation; 0 for a number that no permanent tooth
/// has.
int universalNumber(int fdiNumber);
/// Returns the Universal number of a landmark's tooth; 0 if the landmark is no tooth.
int toothNumberOf(const Landmark& landmark);

} // namespace planner
