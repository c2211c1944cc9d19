// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/planning/Views.h>

#include <planner/planning/Vectors.h>

#include <CoreAlgorithms/model/linearalgebra/PlaneFit.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

namespace planner {

namespace {

constexpr float kAxialSlabMm = 3.0F;
constexpr float kObliqueSlabMm = 4.0F;
constexpr float kMarginMm = 25.0F;    // of a planar view around the landmarks
constexpr int kPlanarSamples = 800;   // at most, along the longer side
constexpr int kCephSamples = 480;     // likewise; each of them is a ray through the whole head
constexpr float kDefaultTilt = 30.0F; // degrees, for the oblique view without foramina

struct Interval
{
    float low = std::numeric_limits<float>::max();
    float high = std::numeric_limits<float>::lowest();

    void include(float value)
    {
        low = std::min(low, value);
        high = std::max(high, value);
    }
};

// A rectangle in a plane: `point` is on it, the intervals are distances from `point` along the
// axes.
struct Frame
{
    QVector3D point;
    QVector3D direction0;
    QVector3D direction1;
    Interval along0;
    Interval along1;
};

void include(Frame& frame, const QVector3D& position)
{
    frame.along0.include(QVector3D::dotProduct(position - frame.point, frame.direction0));
    frame.along1.include(QVector3D::dotProduct(position - frame.point, frame.direction1));
}

void coverVolume(Frame& frame, const Volume& volume)
{
    for (const QVector3D& corner : volume.corners())
        include(frame, corner);
}

Interval clipped(const Interval& inner, const Interval& outer)
{
    const Interval result{std::max(inner.low - kMarginMm, outer.low),
                          std::min(inner.high + kMarginMm, outer.high)};
    return result.low < result.high ? result : outer;
}

// The landmarks with a margin, as far as the volume reaches; without landmarks the volume.
void coverLandmarks(Frame& frame, const Case& planned)
{
    Frame whole = frame;
    coverVolume(whole, planned.volume);
    for (const Landmark& landmark : planned.landmarks)
        include(frame, landmark.position);
    frame.along0 = planned.landmarks.isEmpty() ? whole.along0 : clipped(frame.along0, whole.along0);
    frame.along1 = planned.landmarks.isEmpty() ? whole.along1 : clipped(frame.along1, whole.along1);
}

// The finest of a row of plain numbers with which the longer side takes at most so many samples.
float sampleSpacing(float longerSideMm, int mostSamples)
{
    float decade = 0.1F;
    while (true) {
        for (const float step : {1.0F, 2.0F, 2.5F, 5.0F}) {
            if (longerSideMm <= step * decade * static_cast<float>(mostSamples))
                return step * decade;
        }
        decade *= 10.0F;
    }
}

QMatrix4x4 rasterFrame(Reslice& reslice, const Frame& frame, float slabMm, int mostSamples)
{
    const float width = frame.along0.high - frame.along0.low;
    const float height = frame.along1.high - frame.along1.low;
    const float spacing = sampleSpacing(std::max(width, height), mostSamples);
    reslice.setSampleSize({spacing, spacing, slabMm});
    reslice.setDimensions({std::max(1.0, std::ceil(width / spacing - 1e-3)),
                           std::max(1.0, std::ceil(height / spacing - 1e-3))});
    return frameOf(frame.direction0, frame.direction1,
                   QVector3D::crossProduct(frame.direction0, frame.direction1),
                   frame.point + frame.direction0 * frame.along0.low +
                       frame.direction1 * frame.along1.low);
}

// Height of the slab that holds the most teeth and arch points, in the middle of those; of the
// volume without any.
float axialHeight(const Case& planned, float slabMm)
{
    std::vector<float> heights;
    for (const Landmark& landmark : planned.landmarks) {
        if (landmark.kind == LandmarkKind::Tooth || landmark.kind == LandmarkKind::Arch)
            heights.push_back(landmark.position.z());
    }
    if (heights.empty())
        return planned.volume.center().z();
    std::ranges::sort(heights);
    auto bestFirst = heights.cbegin();
    auto bestLast = heights.cbegin();
    for (auto first = heights.cbegin(); first != heights.cend(); ++first) {
        const auto last = std::upper_bound(first, heights.cend(), *first + slabMm) - 1;
        if (last - first > bestLast - bestFirst) {
            bestFirst = first;
            bestLast = last;
        }
    }
    return (*bestFirst + *bestLast) / 2.0F;
}

std::vector<Eigen::Vector3d> foramina(const Case& planned)
{
    std::vector<Eigen::Vector3d> positions;
    for (const Landmark& landmark : planned.landmarks) {
        if (landmark.kind == LandmarkKind::Foramen)
            positions.push_back(toEigen(landmark.position));
    }
    return positions;
}

} // namespace

PlanarView axialView(const Case& planned)
{
    Frame frame;
    frame.point = planned.volume.center();
    frame.point.setZ(axialHeight(planned, kAxialSlabMm));
    frame.direction0 = {1.0F, 0.0F, 0.0F};
    frame.direction1 = {0.0F, 1.0F, 0.0F};
    coverLandmarks(frame, planned);

    PlanarView view;
    view.id = QStringLiteral("axial");
    view.title = QStringLiteral("Axial view");
    view.place =
        planned.landmarks.isEmpty()
            ? QStringLiteral("Through the middle of the volume, z = %1 mm.")
                  .arg(frame.point.z(), 0, 'f', 1)
            : QStringLiteral("At the height where most tooth and arch points lie, z = %1 mm.")
                  .arg(frame.point.z(), 0, 'f', 1);
    view.reslice = std::make_shared<PlanarReslice>();
    view.reslice->setTransformationFromResliceToWorld(
        rasterFrame(*view.reslice, frame, kAxialSlabMm, kPlanarSamples));
    view.reslice->setMirroredIn2D(false, true);
    return view;
}

PlanarView obliqueView(const Case& planned)
{
    const std::vector<Eigen::Vector3d> points = foramina(planned);
    const auto plane = algebra::fitPlane(points);
    const QVector3D left(1.0F, 0.0F, 0.0F);
    constexpr float tilt = kDefaultTilt * std::numbers::pi_v<float> / 180.0F;

    Frame frame;
    frame.point = planned.volume.center();
    QVector3D normal(0.0F, std::sin(tilt), -std::cos(tilt));
    const bool usable = plane.hasValue() &&
                        std::abs(plane.value().normal.x()) < 0.9; // a sagittal one has no left edge
    if (usable) {
        frame.point = toQt(plane.value().point);
        normal = toQt(plane.value().normal);
    }
    frame.direction0 = (left - normal * QVector3D::dotProduct(left, normal)).normalized();
    frame.direction1 = QVector3D::crossProduct(normal, frame.direction0).normalized();
    if (frame.direction1.y() > 0.0F)
        frame.direction1 = -frame.direction1; // anterior is up
    coverLandmarks(frame, planned);

    PlanarView view;
    view.id = QStringLiteral("oblique");
    view.title = QStringLiteral("Oblique view");
    const double degrees = std::acos(std::min(1.0, std::abs(static_cast<double>(normal.z())))) *
                           180.0 / std::numbers::pi;
    view.place =
        QStringLiteral("%1, tilted %2 degrees from the axial plane.")
            .arg(usable ? QStringLiteral("The plane of least squared distances to the foramina")
                        : QStringLiteral("Through the middle of the volume"))
            .arg(degrees, 0, 'f', 1);
    view.reslice = std::make_shared<PlanarReslice>();
    view.reslice->setTransformationFromResliceToWorld(
        rasterFrame(*view.reslice, frame, kObliqueSlabMm, kPlanarSamples));
    return view;
}

CephView lateralView(const Case& planned)
{
    Frame frame;
    frame.point = planned.volume.center();
    Interval sides;
    for (const Eigen::Vector3d& foramen : foramina(planned))
        sides.include(static_cast<float>(foramen.x()));
    if (sides.low <= sides.high)
        frame.point.setX((sides.low + sides.high) / 2.0F);
    frame.direction0 = {0.0F, -1.0F, 0.0F};
    frame.direction1 = {0.0F, 0.0F, 1.0F};
    coverVolume(frame, planned.volume);
    // Between voxels, a projection shows nothing more.
    const QVector3D voxel = planned.volume.image.voxelSize();
    const float side =
        std::max(frame.along0.high - frame.along0.low, frame.along1.high - frame.along1.low);
    const float voxels = std::ceil(side / std::min({voxel.x(), voxel.y(), voxel.z()}));
    const int samples = static_cast<int>(std::min(static_cast<float>(kCephSamples), voxels));

    CephView view;
    view.id = QStringLiteral("cephalogram");
    view.title = QStringLiteral("Lateral cephalogram");
    view.place = QStringLiteral("Parallel rays along x through the whole volume; points are mapped "
                                "onto the plane x = %1 mm.")
                     .arg(frame.point.x(), 0, 'f', 1);
    view.reslice = std::make_shared<CephReslice>();
    view.reslice->setTransformation(rasterFrame(*view.reslice, frame, 1.0F, samples));
    view.reslice->setPointOfView(meta::FromRight);
    return view;
}

QString directionLetters(const QVector3D& direction, bool orientationKnown)
{
    struct Part
    {
        float strength;
        QChar letter;
    };
    const QVector3D unit = direction.normalized();
    std::array<Part, 3> parts = {Part{std::abs(unit.x()), unit.x() > 0.0F ? u'L' : u'R'},
                                 Part{std::abs(unit.y()), unit.y() > 0.0F ? u'P' : u'A'},
                                 Part{std::abs(unit.z()), unit.z() > 0.0F ? u'S' : u'I'}};
    std::ranges::stable_sort(parts,
                             [](const Part& a, const Part& b) { return a.strength > b.strength; });
    QString letters;
    for (const Part& part : parts) {
        if (part.strength > 0.25F)
            letters += part.letter;
    }
    return orientationKnown ? letters : letters + u'?';
}

} // namespace planner
