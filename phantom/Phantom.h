// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/VexelImage3D.h>
#include <CoreAlgorithms/model/dataobjects/CTData.h>
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

#include <QList>
#include <QMatrix4x4>
#include <QVector3D>

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

/// A synthetic patient built from formulas: every position and grey value is known before a voxel
/// is painted.
///
/// The frame is LPS in millimeters: x to the patient's left, y to posterior, z to superior. Its
/// origin is the center of voxel (0, 0, 0), so that the center of a voxel is at its index times the
/// voxel size, whatever that size is.
namespace phantom {

enum class Tissue : int {
    Air,
    SoftTissue,
    CancellousBone, ///< the spongy core of a bone
    CorticalBone,   ///< the dense shell of a bone
    Dentine,
    Enamel,
    Pulp,
    NerveCanal
};
inline constexpr int kTissueCount = 8;

/// The scanner and the noise of the painted volume. Values that are not usable are replaced.
struct Settings
{
    /// The edge of a voxel. The volume has no voxels if it is not positive, not finite, or so small
    /// that there would be 2^31 voxels or more.
    float voxelSizeMm = 0.5F;
    /// The grey value of each Tissue before gain and offset, in Hounsfield units (the scale of CT
    /// on which air is -1000 and water 0). A value that is not finite is replaced by the one given
    /// here.
    std::array<float, kTissueCount> greyValues = {-1000.0F, 40.0F,   350.0F, 1300.0F,
                                                  1700.0F,  2600.0F, 60.0F,  20.0F};
    /// The gain of a miscalibrated scanner: painted = round(gain * grey + offset + noise), halves
    /// away from zero, limited to 16 bits. It is replaced by 1 if it is not finite.
    float gain = 1.0F;
    /// The offset in grey values. It is replaced by 0 if it is not finite.
    float offset = 0.0F;
    /// The standard deviation of the noise in grey values. There is no noise if it is not positive
    /// or not finite.
    float noiseSigma = 25.0F;
    /// The seed of the noise. The same seed gives the same voxels on every machine.
    std::uint32_t seed = 2026;
};

struct Tooth
{
    /// The Universal number, 2 to 15 or 18 to 31: a full dentition without third molars.
    ToothChart::Tooth number;
    QVector3D occlusalPoint; ///< the middle of the biting edge or chewing surface
    /// The tip of the root: the distal (rear) root of a lower molar, the palatal (inner) root of an
    /// upper one.
    QVector3D apex;
    QVector3D axisToCrown; ///< the unit vector from apex to occlusal point
};

/// The canal of the lower jaw's nerve on one side.
struct NerveCanal
{
    /// Samples 1 mm apart or closer, from the mandibular to the mental foramen.
    QList<QVector3D> centerLine;
    float radiusMm;
    QVector3D mandibularForamen; ///< where the nerve enters: the first point of the center line
    QVector3D mentalForamen; ///< where it leaves, on the outer surface of the bone: the last one
};

/// A point on the surface of the skull, to 0.05 mm.
struct SkullLandmark
{
    landmarkDetection::LandmarkType type;
    QVector3D position;
};

class Anatomy;

/// The patient.
///
/// Right and left differ as in a living one, so that a mirrored picture can be recognized. On the
/// left, the maxillary sinus (the air space above the back teeth) is 3 mm wider and 5 mm longer,
/// the ramus (the rear plate of the lower jaw) is 1.5 mm farther out, and the mandibular canal runs
/// 1 to 1.5 mm lower below the molars with its mental foramen 1 mm higher. The nasal septum is to
/// the left.
///
/// Copies share the anatomy. Operations that are const may run in several threads at once.
class Patient
{
public:
    /// Creates the patient for the settings of a scanner.
    explicit Patient(const Settings& settings = {});

    /// Returns the settings, the unusable ones replaced except for the voxel size.
    const Settings& settings() const { return chosen; }
    /// Returns the extent of the painted volume along x, y and z from the origin, in mm. It does
    /// not depend on the voxel size.
    QVector3D extentMm() const;

    /// Returns the tissue at a position, without noise and partial volume. Returns Air outside the
    /// volume, whose faces belong to it, and for coordinates that are not finite.
    Tissue tissueAt(const QVector3D& positionMm) const;
    /// Returns the Universal number of the tooth whose enamel, dentine or pulp is at a position, or
    /// NoTooth elsewhere.
    ToothChart::Tooth toothAt(const QVector3D& positionMm) const;
    /// Returns the grey value that a tissue is painted with before noise: gain * grey + offset,
    /// limited to the range of float. Returns 0 for a value that is no Tissue.
    float paintedGreyValue(Tissue tissue) const;
    /// Returns the CT in signed 16-bit voxels, as many as have their center in the volume, its far
    /// faces excluded. Without noise, each is exactly the rounded grey value of the tissue at its
    /// center.
    ///
    /// Calls `progress`, if given, with the fraction done, from 0 to 1 in ascending order. It is
    /// not called for an image without voxels.
    VexelImage3D createVolume(const std::function<void(double)>& progress = {}) const;

    /// Returns the 28 teeth in ascending number.
    const QList<Tooth>& teeth() const { return allTeeth; }
    /// Returns the tooth of a Universal number, or nothing if the patient has no such tooth.
    std::optional<Tooth> tooth(int number) const;
    /// Returns samples less than 1 mm apart along the arch, from the patient's right to the left,
    /// at the height of the necks (where crown and root meet). The curve reaches one tooth's width
    /// beyond the second molars at either end.
    const QList<QVector3D>& archCurve(ToothChart::ArchType arch) const;
    /// Returns the canal on the patient's right.
    const NerveCanal& rightCanal() const { return canals[0]; }
    /// Returns the canal on the patient's left.
    const NerveCanal& leftCanal() const { return canals[1]; }
    /// Returns five landmarks in ascending type. Three are where a line from the front on the
    /// midline meets bone: the subspinale point (below the nose), the infradentale point (below the
    /// lower front teeth) and the pogonion (at the chin). Two are where a line from the side meets
    /// the angle of the lower jaw: the right and the left gonion.
    QList<SkullLandmark> skullLandmarks() const;

private:
    Settings chosen;
    std::shared_ptr<const Anatomy> anatomy; // shared by copies, never changed
    QList<Tooth> allTeeth;
    std::array<QList<QVector3D>, 2> archCurves; // by ToothChart::ArchType
    std::array<NerveCanal, 2> canals;           // right, left
};

} // namespace phantom
