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
/// Frame: LPS millimetres (x to the patient's left, y to posterior, z to superior); the origin is
/// the centre of voxel (0, 0, 0), so that a voxel centre lies at its index times the voxel size,
/// whatever that size is.
namespace phantom {

enum class Tissue : int {
    Air,
    SoftTissue,
    CancellousBone,
    CorticalBone,
    Dentine,
    Enamel,
    Pulp,
    NerveCanal
};
inline constexpr int kTissueCount = 8;

struct Settings
{
    /// Isotropic. Not positive, not finite, or so small that the image would have 2^31 voxels or
    /// more: an image without voxels, and all else as usual.
    float voxelSizeMm = 0.5F;
    /// Grey value of each Tissue before gain and offset, in Hounsfield units. Not finite: the value
    /// given here.
    std::array<float, kTissueCount> greyValues = {-1000.0F, 40.0F,   350.0F, 1300.0F,
                                                  1700.0F,  2600.0F, 60.0F,  20.0F};
    /// A miscalibrated scanner: painted = round(gain * grey + offset + noise), halves away from
    /// zero, limited to 16 bits. Not finite: 1.
    float gain = 1.0F;
    float offset = 0.0F; ///< grey values; not finite: 0
    /// Standard deviation of the noise, grey values. 0, negative or not finite: no noise.
    float noiseSigma = 25.0F;
    /// The seed of the noise; the same seed gives the same voxels on every machine.
    std::uint32_t seed = 2026;
};

struct Tooth
{
    /// Universal numbering, 2 to 15 and 18 to 31: a full dentition without third molars.
    ToothChart::Tooth number;
    QVector3D occlusalPoint; ///< middle of the biting edge or chewing surface
    /// Tip of the root: of the distal root of a lower molar, of the palatal root of an upper molar.
    QVector3D apex;
    QVector3D axisToCrown; ///< unit vector from apex to occlusal point
};

struct NerveCanal
{
    /// From the mandibular to the mental foramen, samples 1 mm apart or closer.
    QList<QVector3D> centreLine;
    float radiusMm;
    QVector3D mandibularForamen; ///< first point of the centre line
    QVector3D mentalForamen; ///< last point of the centre line, on the outer surface of the bone
};

/// A point on the surface of the skull, to 0.05 mm.
struct SkullLandmark
{
    landmarkDetection::LandmarkType type;
    QVector3D position;
};

class Anatomy;

/// The patient. Right and left differ as in a living one, so that a mirrored picture can be told
/// from the right one: on the left, the maxillary sinus is 3 mm wider and 5 mm longer, the ramus
/// stands 1.5 mm farther out, the mandibular canal runs 1 to 1.5 mm lower below the molars and its
/// mental foramen lies 1 mm higher; the nasal septum stands to the left.
///
/// Copies share the anatomy; const operations may run in several threads at once.
class Patient
{
public:
    explicit Patient(const Settings& settings = {});

    /// As given, values that are not usable replaced as Settings says; the voxel size is left as it
    /// is.
    const Settings& settings() const { return chosen; }
    /// Extent of the painted volume in mm along x, y and z, from the origin; independent of the
    /// voxel size.
    QVector3D extentMm() const;

    /// What is at a world position: the truth, without noise and without partial volume. Air
    /// outside the volume (its faces belong to it) and for coordinates that are not finite.
    Tissue tissueAt(const QVector3D& positionMm) const;
    /// Whose enamel, dentine or pulp that is, in Universal numbering; NoTooth elsewhere.
    ToothChart::Tooth toothAt(const QVector3D& positionMm) const;
    /// Grey value that tissueAt() is painted with before noise: gain * grey + offset, limited to
    /// what a float holds; 0 for a value that is no Tissue.
    float paintedGreyValue(Tissue tissue) const;
    /// The CT: 16-bit signed voxels, as many as have their centre in the volume, its far faces
    /// excluded. Without noise each is exactly the rounded grey value of the tissue at its centre.
    /// `progress`, if given, is told the fraction done, from 0 to 1 in ascending order; for an
    /// image without voxels it is not called.
    VexelImage3D createVolume(const std::function<void(double)>& progress = {}) const;

    /// The 28 teeth in ascending number.
    const QList<Tooth>& teeth() const { return allTeeth; }
    /// Returns the tooth of a number in Universal numbering; nothing if the patient has no such
    /// tooth.
    std::optional<Tooth> tooth(int number) const;
    /// Samples less than 1 mm apart along the arch through the teeth at the height of their necks,
    /// from the patient's right to the left, reaching one tooth's width beyond the second molars at
    /// either end.
    const QList<QVector3D>& archCurve(ToothChart::ArchType arch) const;
    const NerveCanal& rightCanal() const { return canals[0]; }
    const NerveCanal& leftCanal() const { return canals[1]; }
    /// In ascending type: on the midline, where bone is first met from in front, the subspinale
    /// point, the infradentale point and the pogonion; at the angles of the mandible, met from the
    /// sides, the right and the left gonion.
    QList<SkullLandmark> skullLandmarks() const;

private:
    Settings chosen;
    std::shared_ptr<const Anatomy> anatomy; // shared by copies, never changed
    QList<Tooth> allTeeth;
    std::array<QList<QVector3D>, 2> archCurves; // by ToothChart::ArchType
    std::array<NerveCanal, 2> canals;           // right, left
};

} // namespace phantom
