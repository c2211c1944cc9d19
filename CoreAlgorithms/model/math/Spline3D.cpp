// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/math/Spline3D.h>

#include <CoreAlgorithms/model/Finite_p.h>

#include <algorithm>
#include <cmath>

namespace math {
namespace {

double distance(const QVector3D& a, const QVector3D& b)
{
    return std::hypot(double(b.x()) - a.x(), double(b.y()) - a.y(), double(b.z()) - a.z());
}

// Computes in double precision, because the difference of two finite floats may be infinite.
QVector3D between(const QVector3D& a, const QVector3D& b, double share)
{
    const auto mix = [share](float from, float to) {
        return static_cast<float>(from + (double(to) - from) * share);
    };
    return {mix(a.x(), b.x()), mix(a.y(), b.y()), mix(a.z(), b.z())};
}

QList<QVector3D> withoutRepetitions(const QList<QVector3D>& points)
{
    QList<QVector3D> distinct;
    distinct.reserve(points.size());
    for (const QVector3D& point : points) {
        if (distinct.isEmpty() || distinct.constLast() != point)
            distinct.append(point);
    }
    return distinct;
}

// Returns points at equal steps along a chain of chords, followed by its end.
QList<QVector3D> walk(const QList<QVector3D>& chain, double step)
{
    double length = 0.0;
    for (qsizetype i = 1; i < chain.size(); ++i)
        length += distance(chain[i - 1], chain[i]);
    if (!(length / step <= Spline3DInterface::maximumSampleCount() - 1))
        return {};

    QList<QVector3D> samples{chain.constFirst()};
    samples.reserve(static_cast<qsizetype>(length / step) + 2);
    double walked = 0.0; // length up to the start of the chord
    for (qsizetype i = 1; i < chain.size(); ++i) {
        const double chord = distance(chain[i - 1], chain[i]);
        for (;;) {
            const double next = static_cast<double>(samples.size()) * step;
            if (next > walked + chord || chord == 0.0)
                break;
            samples.append(between(chain[i - 1], chain[i], (next - walked) / chord));
        }
        walked += chord;
    }
    if (samples.constLast() != chain.constLast())
        samples.append(chain.constLast());
    return samples;
}

// Computes one segment of the spline, from p1 to p2, with the pyramid of Barry and Goldman on
// centripetal knots.
class CentripetalSegment
{
public:
    CentripetalSegment(const QVector3D& p0, const QVector3D& p1, const QVector3D& p2,
                       const QVector3D& p3)
        : points{p0, p1, p2, p3}
    {
        for (int i = 1; i < 4; ++i)
            knots[i] = knots[i - 1] + std::sqrt(distance(points[i - 1], points[i]));
    }

    // u runs from 0 at p1 to 1 at p2.
    QVector3D at(double u) const
    {
        const double t = knots[1] + (knots[2] - knots[1]) * u;
        const QVector3D a1 = onKnots(points[0], points[1], knots[0], knots[1], t);
        const QVector3D a2 = onKnots(points[1], points[2], knots[1], knots[2], t);
        const QVector3D a3 = onKnots(points[2], points[3], knots[2], knots[3], t);
        const QVector3D b1 = onKnots(a1, a2, knots[0], knots[2], t);
        const QVector3D b2 = onKnots(a2, a3, knots[1], knots[3], t);
        return onKnots(b1, b2, knots[1], knots[2], t);
    }

private:
    static QVector3D onKnots(const QVector3D& a, const QVector3D& b, double knotA, double knotB,
                             double t)
    {
        if (knotA == knotB) // the two are equal compared with the length so far
            return b;
        return between(a, b, (t - knotA) / (knotB - knotA));
    }

    QVector3D points[4];
    double knots[4] = {};
};

} // namespace

Spline3DInterface::~Spline3DInterface() = default;

QList<QVector3D> Spline3DInterface::sample(const QList<QVector3D>& controlPoints,
                                           float stepMm) const
{
    const auto isFinite = [](const QVector3D& point) { return finiteness::isFinite(point); };
    if (!std::isfinite(stepMm) || stepMm <= 0.0F ||
        !std::all_of(controlPoints.begin(), controlPoints.end(), isFinite))
        return {};
    QList<QVector3D> distinct = withoutRepetitions(controlPoints);
    if (distinct.size() < 2)
        return distinct;
    if (distinct.size() > maximumControlPointCount())
        return {};
    QList<QVector3D> chain = flatten(distinct);
    return chain.isEmpty() ? chain : walk(chain, stepMm);
}

std::unique_ptr<Spline3DInterface> PolylineSpline3D::clone() const
{
    return std::make_unique<PolylineSpline3D>(*this);
}

QList<QVector3D> PolylineSpline3D::flatten(const QList<QVector3D>& controlPoints) const
{
    return controlPoints;
}

CatmullRomSpline3D::CatmullRomSpline3D(int chordsPerSegment)
    : chords(std::clamp(chordsPerSegment, 1, 1000))
{}

std::unique_ptr<Spline3DInterface> CatmullRomSpline3D::clone() const
{
    return std::make_unique<CatmullRomSpline3D>(*this);
}

QList<QVector3D> CatmullRomSpline3D::flatten(const QList<QVector3D>& controlPoints) const
{
    const qsizetype last = controlPoints.size() - 1;
    const QVector3D before = controlPoints[0] * 2.0F - controlPoints[1];
    const QVector3D behind = controlPoints[last] * 2.0F - controlPoints[last - 1];

    QList<QVector3D> chain;
    chain.reserve(last * chords + 1);
    for (qsizetype i = 0; i < last; ++i) {
        const CentripetalSegment segment(i == 0 ? before : controlPoints[i - 1], controlPoints[i],
                                         controlPoints[i + 1],
                                         i + 2 > last ? behind : controlPoints[i + 2]);
        chain.append(controlPoints[i]);
        for (int chord = 1; chord < chords; ++chord)
            chain.append(segment.at(static_cast<double>(chord) / chords));
    }
    chain.append(controlPoints[last]);
    return chain;
}

} // namespace math
