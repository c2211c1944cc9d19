// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/reslice/PathSearch_p.h>

// Covered: the search finds the sample that a plain search of all samples finds.

#include <CoreAlgorithms/dental/ComputeIndexOnGuidingLine.h>

#include <tests/support/ResliceBuilders.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using test::RandomGeometry;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

void expectTheIndicesOfAPlainSearch(const QList<QVector3D>& path, const QList<QVector3D>& points)
{
    reslice::PathSearch search(path);
    for (qsizetype i = 0; i < points.size(); ++i) {
        ASSERT_EQ(search.nearestTo(points[i]),
                  ComputeIndexOnGuidingLine::getIndexOf(points[i], path))
            << "point " << i << " on " << path.size() << " samples";
    }
}

QList<QVector3D> randomPoints(RandomGeometry& random, int count, float reach)
{
    QList<QVector3D> points;
    for (int i = 0; i < count; ++i)
        points.append(random.point(reach));
    return points;
}

const QList<int> kSizes = {0, 1, 2, 7, 8, 9, 15, 16, 17, 31, 64, 65, 100, 1000};

TEST(PathSearch, EmptyPathHasNoNearestSample)
{
    reslice::PathSearch search({});
    EXPECT_EQ(search.nearestTo({1.0F, 2.0F, 3.0F}), -1);
}

TEST(PathSearch, FindsTheIndicesOfAPlainSearchOnRandomPathsOfAllSizes)
{
    RandomGeometry random(41);
    for (const int size : kSizes)
        expectTheIndicesOfAPlainSearch(randomPoints(random, size, 50.0F),
                                       randomPoints(random, 500, 80.0F));
}

TEST(PathSearch, FindsTheIndicesOfAPlainSearchOnCurves)
{
    RandomGeometry random(42);
    for (int i = 0; i < 20; ++i) {
        const auto reslice = random.panoramicReslice(300, 0.4F);
        QList<QVector3D> points = randomPoints(random, 200, 150.0F);
        for (const QVector3D& sample : reslice->getPath())
            points.append(sample + random.point(3.0F)); // follow each other closely
        expectTheIndicesOfAPlainSearch(reslice->getPath(), points);
    }
}

// Whole numbers make many samples equally near.
TEST(PathSearch, FindsTheIndicesOfAPlainSearchAmongTies)
{
    RandomGeometry random(43);
    const auto onGrid = [](QList<QVector3D> points) {
        for (QVector3D& point : points)
            point = {std::round(point.x()), std::round(point.y()), std::round(point.z())};
        return points;
    };
    for (const int size : kSizes)
        expectTheIndicesOfAPlainSearch(onGrid(randomPoints(random, size, 2.4F)),
                                       onGrid(randomPoints(random, 500, 3.4F)));
    expectTheIndicesOfAPlainSearch(QList<QVector3D>(100, QVector3D(1.0F, 2.0F, 3.0F)),
                                   randomPoints(random, 50, 10.0F));
}

TEST(PathSearch, FindsTheIndicesOfAPlainSearchWhereDistancesOverflow)
{
    RandomGeometry random(44);
    expectTheIndicesOfAPlainSearch(randomPoints(random, 100, 3e38F),
                                   randomPoints(random, 100, 3e38F));
    expectTheIndicesOfAPlainSearch(randomPoints(random, 100, 1.0F),
                                   randomPoints(random, 100, 3e38F));
    expectTheIndicesOfAPlainSearch(randomPoints(random, 100, 1e19F),
                                   randomPoints(random, 100, 1e19F));
}

TEST(PathSearch, FindsTheIndicesOfAPlainSearchForPointsAndSamplesThatAreNotFinite)
{
    RandomGeometry random(45);
    const QList<QVector3D> odd = {{kNan, 0.0F, 0.0F},
                                  {0.0F, kInfinity, 0.0F},
                                  {0.0F, 0.0F, -kInfinity},
                                  {kNan, kInfinity, kNan}};
    const QList<QVector3D> path = randomPoints(random, 50, 10.0F);
    expectTheIndicesOfAPlainSearch(path, odd + randomPoints(random, 20, 10.0F) + odd);
    for (const QVector3D& sample : odd) {
        QList<QVector3D> broken = path;
        broken[20] = sample;
        expectTheIndicesOfAPlainSearch(broken, odd + randomPoints(random, 20, 10.0F));
        broken.prepend(sample);
        expectTheIndicesOfAPlainSearch(broken, odd + randomPoints(random, 20, 10.0F));
    }
}

} // namespace
