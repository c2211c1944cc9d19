// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/input/Landmarks.h>

#include <QVector2D>

#include <algorithm>
#include <limits>

namespace planner {

namespace {

constexpr float kLargestCanalGapMm = 10.0F;   // between the end of a canal and its foramen
constexpr double kLargestArchOffsetMm = 10.0; // mean, of teeth and mental foramina
constexpr float kNarrowestArchMm = 25.0F;     // from its right to its left end
constexpr float kWidestArchMm = 130.0F;
constexpr qsizetype kMostNamedPairs = 3; // of teeth; more are counted

QVector3D mean(const QList<QVector3D>& points)
{
    QVector3D sum;
    for (const QVector3D& point : points)
        sum += point / static_cast<float>(points.size());
    return sum;
}

// Adds the name if both sides are known and the right one is not on the right.
template <typename Side>
void addIfExchanged(QStringList& exchanged, const QString& name, const Side* right,
                    const Side* left, float (*xOf)(const Side&))
{
    if (right && left && xOf(*right) > xOf(*left))
        exchanged.append(name);
}

QStringList exchangedSides(const LandmarkFile& file)
{
    QStringList exchanged;
    const auto check = [&](const QString& name, const QString& right, const QString& left) {
        addIfExchanged<Landmark>(exchanged, name, findLandmark(file.landmarks, right),
                                 findLandmark(file.landmarks, left),
                                 [](const Landmark& landmark) { return landmark.position.x(); });
    };
    check(QStringLiteral("mandibular foramina"), QString::fromUtf16(kRightMandibularForamen),
          QString::fromUtf16(kLeftMandibularForamen));
    check(QStringLiteral("mental foramina"), QString::fromUtf16(kRightMentalForamen),
          QString::fromUtf16(kLeftMentalForamen));
    addIfExchanged<CanalLine>(exchanged, QStringLiteral("canals"), findCanal(file.canals, true),
                              findCanal(file.canals, false),
                              [](const CanalLine& canal) { return mean(canal.points).x(); });
    const qsizetype beforeTeeth = exchanged.size();
    for (const int rightQuadrant : {1, 4}) {
        const int leftQuadrant = rightQuadrant == 1 ? 2 : 3;
        for (int place = 1; place <= 8; ++place)
            check(QStringLiteral("teeth %1%3 and %2%3")
                      .arg(rightQuadrant)
                      .arg(leftQuadrant)
                      .arg(place),
                  QStringLiteral("tooth %1%2").arg(rightQuadrant).arg(place),
                  QStringLiteral("tooth %1%2").arg(leftQuadrant).arg(place));
    }
    const qsizetype pairsOfTeeth = exchanged.size() - beforeTeeth;
    if (pairsOfTeeth > kMostNamedPairs) {
        exchanged.resize(beforeTeeth);
        exchanged.append(QStringLiteral("%1 pairs of teeth").arg(pairsOfTeeth));
    }
    return exchanged;
}

void addIfApart(QStringList& doubts, const LandmarkFile& file, const CanalLine& canal, bool start)
{
    const char16_t* const foramina[] = {kLeftMentalForamen, kRightMentalForamen,
                                        kLeftMandibularForamen, kRightMandibularForamen};
    const Landmark* foramen = findLandmark(
        file.landmarks, QString::fromUtf16(foramina[(start ? 2 : 0) + (canal.right ? 1 : 0)]));
    if (!foramen)
        return;
    const float gap =
        (foramen->position - (start ? canal.points.first() : canal.points.last())).length();
    if (gap > kLargestCanalGapMm)
        doubts.append(
            QStringLiteral("The %1 canal %2 %3 mm from the \"%4\", where it should %5.")
                .arg(sideName(canal.right),
                     start ? QStringLiteral("starts") : QStringLiteral("ends"))
                .arg(gap, 0, 'f', 0)
                .arg(foramen->name, start ? QStringLiteral("start") : QStringLiteral("end")));
}

// Seen from above.
float distance(const QVector3D& point, const QVector3D& from, const QVector3D& to)
{
    const QVector2D along = to.toVector2D() - from.toVector2D();
    const QVector2D offset = point.toVector2D() - from.toVector2D();
    const float share =
        along.isNull() ? 0.0F : QVector2D::dotProduct(offset, along) / along.lengthSquared();
    return (offset - along * std::clamp(share, 0.0F, 1.0F)).length();
}

float distance(const QVector3D& point, const QList<QVector3D>& line)
{
    float nearest = std::numeric_limits<float>::infinity();
    for (qsizetype i = 0; i + 1 < line.size(); ++i)
        nearest = std::min(nearest, distance(point, line[i], line[i + 1]));
    return nearest;
}

bool runsAlongTheArch(const Landmark& landmark)
{
    const int number = landmark.label.toInt();
    return landmark.name == QString::fromUtf16(kRightMentalForamen) ||
           landmark.name == QString::fromUtf16(kLeftMentalForamen) ||
           (landmark.kind == LandmarkKind::Tooth && number >= 31);
}

void addArchDoubts(QStringList& doubts, const QList<Landmark>& landmarks)
{
    QList<QVector3D> arch;
    for (const Landmark& landmark : landmarks) {
        if (landmark.kind == LandmarkKind::Arch)
            arch.append(landmark.position);
    }
    if (arch.size() < 2)
        return;
    const auto [right, left] =
        std::minmax_element(arch.cbegin(), arch.cend(),
                            [](const QVector3D& a, const QVector3D& b) { return a.x() < b.x(); });
    const float width = left->x() - right->x();
    if (width < kNarrowestArchMm || width > kWidestArchMm)
        doubts.append(QStringLiteral("The arch points span %1 mm from right to left, which is no "
                                     "jaw: they may be voxels of another grid.")
                          .arg(width, 0, 'f', 0));

    double sum = 0.0;
    int count = 0;
    for (const Landmark& landmark : landmarks) {
        if (!runsAlongTheArch(landmark))
            continue;
        sum += distance(landmark.position, arch);
        ++count;
    }
    if (count > 0 && sum / count > kLargestArchOffsetMm)
        doubts.append(
            QStringLiteral(
                "Seen from above, the lower teeth and mental foramina are %1 mm from the line of "
                "the arch points on average: these may be voxels of another grid.")
                .arg(sum / count, 0, 'f', 0));
}

} // namespace

QStringList findContradictions(const LandmarkFile& file)
{
    QStringList doubts;
    const QStringList exchanged = exchangedSides(file);
    if (!exchanged.isEmpty())
        doubts.append(QStringLiteral("Left and right seem to be exchanged (%1): x grows to the "
                                     "patient's left, but the right one has the larger x.")
                          .arg(exchanged.join(QStringLiteral(", "))));
    for (const CanalLine& canal : file.canals) {
        addIfApart(doubts, file, canal, true);
        addIfApart(doubts, file, canal, false);
    }
    addArchDoubts(doubts, file.landmarks);
    return doubts;
}

} // namespace planner
