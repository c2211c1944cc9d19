// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/drawing/MeshView.h>

#include <planner/drawing/PictureStyle.h>
#include <planner/drawing/Sampling.h>
#include <planner/planning/Vectors.h>

#include <Eigen/Geometry>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>
#include <vector>

namespace planner {

namespace {

using Eigen::Vector3d;

constexpr int kFiner = 2;            // samples a pixel, along x and y
constexpr int kBandRows = 64;        // pixel rows that are painted at a time
constexpr double kSharpEdge = 0.766; // cosine of 40 degrees
constexpr double kRayStepMm = 0.6;
constexpr double kNormalReachMm = 1.6;
constexpr double kGlassBehindMm = 0.02; // where glass lies upon something solid, this is seen
const Eigen::Vector3f kBackground(kGroundColor.redF(), kGroundColor.greenF(), kGroundColor.blueF());

// x to the right, y down, z away from the eye; mm from the middle of the picture.
struct Axes
{
    explicit Axes(const Camera& camera)
        : origin(toEigen(camera.center)),
          forward(toEigen(camera.direction).normalized()),
          right(forward.cross(toEigen(camera.up)).normalized()),
          down(forward.cross(right))
    {}

    Vector3d turned(const Vector3d& direction) const
    {
        return {direction.dot(right), direction.dot(down), direction.dot(forward)};
    }
    Vector3d seen(const Vector3d& point) const { return turned(point - origin); }
    Vector3d world(const Vector3d& point) const
    {
        return origin + point.x() * right + point.y() * down + point.z() * forward;
    }

    Vector3d origin;
    Vector3d forward;
    Vector3d right;
    Vector3d down;
};

struct Look
{
    Vector3d color;
    double opacity;
};

Look lookOf(const QColor& color, double opacity)
{
    return {{color.redF(), color.greenF(), color.blueF()}, opacity};
}

// The look of a surface whose unit normal is seen as given.
Look lit(const Look& look, const Vector3d& normal)
{
    static const Vector3d light = Vector3d(-0.32, -0.42, -0.85).normalized();
    static const Vector3d highlight = (light + Vector3d(0.0, 0.0, -1.0)).normalized();
    const Vector3d towards = normal.z() > 0.0 ? Vector3d(-normal) : normal;
    const double diffuse = std::max(0.0, towards.dot(light));
    const double shine = std::pow(std::max(0.0, towards.dot(highlight)), 40.0);
    const Vector3d color =
        (0.42 + 0.64 * diffuse) * look.color + 0.30 * shine * Vector3d::Ones() * look.opacity;
    const double side = 1.0 + towards.z();
    const double opacity = look.opacity + (1.0 - look.opacity) * 0.7 * side * side;
    return {color.cwiseMin(1.0), opacity};
}

struct Fragment
{
    float depth;
    float opacity;
    Eigen::Vector3f color;
};

struct SeenTriangle
{
    std::array<Vector3d, 3> corners; // x and y in samples
    std::array<Vector3d, 3> normals;
    Look look;
};

bool namesVertices(const geometry::Mesh& mesh, qsizetype first)
{
    for (qsizetype k = first; k < first + 3; ++k) {
        if (mesh.getIndices()[k] < 0 || mesh.getIndices()[k] >= mesh.getNumVertices())
            return false;
    }
    return true;
}

// Each corner gets the mean of the faces that meet there at less than a sharp edge.
void addTriangles(std::vector<SeenTriangle>& triangles, const ShownMesh& shown, const Axes& axes,
                  const Camera& camera)
{
    const QList<int>& indices = shown.mesh.getIndices();
    std::vector<Vector3d> seen;
    for (const QVector3D& vertex : shown.mesh.getVertices())
        seen.push_back(axes.seen(toEigen(vertex)));
    std::vector<Vector3d> faceNormals; // as long as twice the area
    std::vector<std::vector<std::size_t>> facesOf(seen.size());
    std::vector<qsizetype> firsts;
    for (qsizetype first = 0; first + 3 < indices.size(); first += 4) {
        if (!namesVertices(shown.mesh, first))
            continue;
        const auto vertex = [&](qsizetype k) { return std::size_t(indices[first + k]); };
        for (qsizetype k = 0; k < 3; ++k)
            facesOf[vertex(k)].push_back(faceNormals.size());
        faceNormals.push_back(
            (seen[vertex(1)] - seen[vertex(0)]).cross(seen[vertex(2)] - seen[vertex(0)]));
        firsts.push_back(first);
    }
    const Look look = lookOf(shown.color, shown.opacity);
    const Vector3d scale(kFiner / camera.mmPerPixel, kFiner / camera.mmPerPixel, 1.0);
    const Vector3d middle(kFiner * camera.pixels.width() / 2.0,
                          kFiner * camera.pixels.height() / 2.0, 0.0);
    for (std::size_t face = 0; face < firsts.size(); ++face) {
        SeenTriangle triangle;
        triangle.look = look;
        const Vector3d own = faceNormals[face].normalized();
        for (std::size_t k = 0; k < 3; ++k) {
            const auto vertex = std::size_t(indices[firsts[face] + qsizetype(k)]);
            triangle.corners[k] = seen[vertex].cwiseProduct(scale) + middle;
            triangle.normals[k] = Vector3d::Zero();
            for (const std::size_t other : facesOf[vertex]) {
                if (faceNormals[other].normalized().dot(own) >= kSharpEdge)
                    triangle.normals[k] += faceNormals[other];
            }
            triangle.normals[k].normalize();
        }
        triangles.push_back(triangle);
    }
}

// A strip of the picture: for every sample, all that lies there.
class Band
{
public:
    Band(int firstRow, int rows, int columns)
        : first(firstRow),
          height(rows),
          width(columns),
          samples(std::size_t(rows) * std::size_t(columns))
    {}

    void add(int column, int row, const Fragment& fragment)
    {
        samples[std::size_t(row - first) * std::size_t(width) + std::size_t(column)].push_back(
            fragment);
    }

    void paint(const SeenTriangle& t)
    {
        const auto& [a, b, c] = t.corners;
        const double area = cross(a, b, c);
        if (!(std::abs(area) > 1e-9) || !std::isfinite(area))
            return;
        const auto [left, right] = range(a.x(), b.x(), c.x(), 0, width);
        const auto [top, bottom] = range(a.y(), b.y(), c.y(), first, first + height);
        for (int row = top; row < bottom; ++row) {
            for (int column = left; column < right; ++column) {
                const Vector3d at(column + 0.5, row + 0.5, 0.0);
                const double u = cross(b, c, at) / area;
                const double v = cross(c, a, at) / area;
                const double w = 1.0 - u - v;
                if (u < 0.0 || v < 0.0 || w < 0.0)
                    continue;
                const Vector3d normal =
                    (u * t.normals[0] + v * t.normals[1] + w * t.normals[2]).normalized();
                const Look look = lit(t.look, normal);
                const double depth = u * a.z() + v * b.z() + w * c.z() +
                                     (t.look.opacity < 1.0 ? kGlassBehindMm : 0.0);
                add(column, row,
                    {static_cast<float>(depth), static_cast<float>(look.opacity),
                     look.color.cast<float>()});
            }
        }
    }

    // Goes from the eye away; what is behind something solid does not count.
    Eigen::Vector3f colorAt(int column, int row)
    {
        auto& fragments =
            samples[std::size_t(row - first) * std::size_t(width) + std::size_t(column)];
        std::ranges::sort(fragments,
                          [](const Fragment& a, const Fragment& b) { return a.depth < b.depth; });
        Eigen::Vector3f color = Eigen::Vector3f::Zero();
        float open = 1.0F;
        for (const Fragment& fragment : fragments) {
            color += open * fragment.opacity * fragment.color;
            open *= 1.0F - fragment.opacity;
        }
        return color + open * kBackground;
    }

private:
    static double cross(const Vector3d& a, const Vector3d& b, const Vector3d& c)
    {
        return (b.x() - a.x()) * (c.y() - a.y()) - (b.y() - a.y()) * (c.x() - a.x());
    }

    static std::pair<int, int> range(double a, double b, double c, int low, int high)
    {
        const auto limited =
            [low, high](double value) { // in double: nothing is too large for an int then
                return static_cast<int>(std::clamp(value, double(low), double(high)));
            };
        return {limited(std::floor(std::min({a, b, c}))), limited(std::ceil(std::max({a, b, c})))};
    }

    int first;
    int height;
    int width;
    std::vector<std::vector<Fragment>> samples;
};

// The first place on the ray of a pixel where there is bone.
class BoneCaster
{
public:
    BoneCaster(const ShownBone& shown, const Axes& seenAxes)
        : bone(shown),
          axes(seenAxes),
          look(lookOf(shown.color, shown.opacity)),
          low(toEigen(shown.low)),
          high(toEigen(shown.high))
    {}

    std::optional<Fragment> cast(double x, double y) const
    {
        const auto [first, last] = spanWithin(low, high, axes.world({x, y, 0.0}), axes.forward);
        for (int step = 0; first + step * kRayStepMm <= last; ++step) {
            const double z = first + step * kRayStepMm;
            if (!isBone({x, y, z}))
                continue;
            double outside = z - kRayStepMm;
            double inside = z;
            for (int i = 0; i < 6; ++i) {
                const double middle = 0.5 * (outside + inside);
                (isBone({x, y, middle}) ? inside : outside) = middle;
            }
            const Look seen = lit(look, normalAt({x, y, inside}));
            return Fragment{static_cast<float>(inside), static_cast<float>(seen.opacity),
                            seen.color.cast<float>()};
        }
        return std::nullopt;
    }

private:
    bool isBone(const Vector3d& seen) const
    {
        const QVector3D world = toQt(axes.world(seen));
        return bone.isShown(world) && bone.sampler->valueAt(world) >= bone.threshold;
    }

    // Points from the bone to where there is none. The voxels' steps are evened out by asking
    // around in all directions.
    Vector3d normalAt(const Vector3d& seen) const
    {
        Vector3d outwards = Vector3d::Zero();
        for (int i = 0; i < 27; ++i) {
            const int row = i / 3;
            const int layer = i / 9;
            const Vector3d way(i % 3 - 1, row % 3 - 1, layer - 1);
            if (i == 13)
                continue;
            const Vector3d unit = way.normalized();
            for (const double reach : {0.5 * kNormalReachMm, kNormalReachMm}) {
                if (!isBone(seen + reach * unit))
                    outwards += unit;
            }
        }
        return outwards.norm() > 0.0 ? outwards.normalized() : Vector3d(0.0, 0.0, -1.0);
    }

    const ShownBone& bone;
    const Axes& axes;
    Look look;
    Vector3d low;
    Vector3d high;
};

QRgb pixelOf(const Eigen::Vector3f& color)
{
    const auto byte = [](float value) {
        return static_cast<int>(std::lround(std::clamp(value, 0.0F, 1.0F) * 255.0F));
    };
    return qRgb(byte(color.x()), byte(color.y()), byte(color.z()));
}

void addBone(Band& band, const BoneCaster& caster, const Camera& camera, int firstRow, int rows)
{
    for (int row = firstRow; row < firstRow + rows; ++row) {
        for (int column = 0; column < camera.pixels.width(); ++column) {
            const auto fragment =
                caster.cast((column + 0.5 - camera.pixels.width() / 2.0) * camera.mmPerPixel,
                            (row + 0.5 - camera.pixels.height() / 2.0) * camera.mmPerPixel);
            if (!fragment)
                continue;
            for (int i = 0; i < kFiner * kFiner; ++i)
                band.add(kFiner * column + i % kFiner, kFiner * row + i / kFiner, *fragment);
        }
    }
}

} // namespace

QPointF Camera::project(const QVector3D& point) const
{
    const Vector3d seen = Axes(*this).seen(toEigen(point));
    return {pixels.width() / 2.0 + seen.x() / mmPerPixel,
            pixels.height() / 2.0 + seen.y() / mmPerPixel};
}

QImage paintScene(const Camera& camera, const QList<ShownMesh>& meshes,
                  const std::optional<ShownBone>& bone, const std::function<void(double)>& progress)
{
    const Axes axes(camera);
    std::vector<SeenTriangle> triangles;
    for (const ShownMesh& mesh : meshes)
        addTriangles(triangles, mesh, axes, camera);
    std::optional<BoneCaster> caster;
    if (bone)
        caster.emplace(*bone, axes);

    QImage image(camera.pixels, QImage::Format_RGB32);
    for (int firstRow = 0; firstRow < image.height(); firstRow += kBandRows) {
        const int rows = std::min(kBandRows, image.height() - firstRow);
        Band band(kFiner * firstRow, kFiner * rows, kFiner * image.width());
        for (const SeenTriangle& triangle : triangles)
            band.paint(triangle);
        if (caster)
            addBone(band, *caster, camera, firstRow, rows);
        for (int row = firstRow; row < firstRow + rows; ++row) {
            for (int column = 0; column < image.width(); ++column) {
                Eigen::Vector3f sum = Eigen::Vector3f::Zero();
                for (int i = 0; i < kFiner * kFiner; ++i)
                    sum += band.colorAt(kFiner * column + i % kFiner, kFiner * row + i / kFiner);
                image.setPixel(column, row, pixelOf(sum / float(kFiner * kFiner)));
            }
        }
        if (progress)
            progress(static_cast<double>(firstRow + rows) / image.height());
    }
    return image;
}

} // namespace planner
