// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/math/Spline3D.h>

// The curve models: sampling at equal steps, the two kinds of curves, their clones, and invalid
// input.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>
#include <memory>
#include <type_traits>

namespace {

using math::CatmullRomSpline3D;
using math::PolylineSpline3D;
using math::Spline3DInterface;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

static_assert(std::is_abstract_v<Spline3DInterface> &&
              std::has_virtual_destructor_v<Spline3DInterface>);

using Path = QList<QVector3D>;

Path alongX(std::initializer_list<float> coordinates)
{
    Path path;
    for (const float x : coordinates)
        path.append(QVector3D(x, 0.0F, 0.0F));
    return path;
}

bool isFinite(const Path& path)
{
    return std::all_of(path.begin(), path.end(), [](const QVector3D& point) {
        return std::isfinite(point.x()) && std::isfinite(point.y()) && std::isfinite(point.z());
    });
}

// Gives access to the chords of the curve.
class OpenCatmullRom : public CatmullRomSpline3D
{
public:
    using CatmullRomSpline3D::CatmullRomSpline3D;
    using CatmullRomSpline3D::flatten;
};

// ---- sampling, on straight lines, where every sample is known

TEST(Spline3D, SamplesAtEqualStepsFromTheFirstControlPointToTheLast)
{
    EXPECT_EQ(PolylineSpline3D().sample(alongX({0.0F, 10.0F}), 2.5F),
              alongX({0.0F, 2.5F, 5.0F, 7.5F, 10.0F}));
}

TEST(Spline3D, AppendsTheLastControlPointIfTheLastStepFallsShortOfIt)
{
    EXPECT_EQ(PolylineSpline3D().sample(alongX({0.0F, 10.0F}), 4.0F),
              alongX({0.0F, 4.0F, 8.0F, 10.0F}));
}

TEST(Spline3D, StepLongerThanTheCurveGivesItsEnds)
{
    EXPECT_EQ(PolylineSpline3D().sample(alongX({0.0F, 10.0F}), 25.0F), alongX({0.0F, 10.0F}));
    EXPECT_EQ(PolylineSpline3D().sample(alongX({0.0F, 10.0F}), 3e38F), alongX({0.0F, 10.0F}));
}

TEST(Spline3D, StepsFollowCornersByArcLength)
{
    // The legs are 3 and 4 mm long and the steps 2 mm, so that 1 mm remains at the corner.
    const Path corner{{0.0F, 0.0F, 0.0F}, {3.0F, 0.0F, 0.0F}, {3.0F, 4.0F, 0.0F}};
    const Path expected{{0.0F, 0.0F, 0.0F},
                        {2.0F, 0.0F, 0.0F},
                        {3.0F, 1.0F, 0.0F},
                        {3.0F, 3.0F, 0.0F},
                        {3.0F, 4.0F, 0.0F}};
    EXPECT_EQ(PolylineSpline3D().sample(corner, 2.0F), expected);
}

TEST(Spline3D, StepsLongerThanControlPointsAreApartPassThemOver)
{
    EXPECT_EQ(PolylineSpline3D().sample(alongX({0.0F, 1.0F, 2.0F, 3.0F, 7.0F}), 2.5F),
              alongX({0.0F, 2.5F, 5.0F, 7.0F}));
}

TEST(Spline3D, CurveMayReturnToItsStart)
{
    EXPECT_EQ(PolylineSpline3D().sample(alongX({0.0F, 2.0F, 0.0F}), 1.0F),
              alongX({0.0F, 1.0F, 2.0F, 1.0F, 0.0F}));
}

TEST(Spline3D, RepeatedControlPointsCountOnce)
{
    EXPECT_EQ(PolylineSpline3D().sample(alongX({0.0F, 0.0F, 4.0F, 4.0F, 4.0F}), 2.0F),
              alongX({0.0F, 2.0F, 4.0F}));
    EXPECT_EQ(CatmullRomSpline3D().sample(alongX({0.0F, 0.0F, 4.0F, 4.0F, 4.0F}), 2.0F),
              CatmullRomSpline3D().sample(alongX({0.0F, 4.0F}), 2.0F));
}

TEST(Spline3D, OneControlPointIsItsOnlySample)
{
    EXPECT_EQ(PolylineSpline3D().sample(alongX({7.0F}), 1.0F), alongX({7.0F}));
    EXPECT_EQ(CatmullRomSpline3D().sample(alongX({7.0F}), 1.0F), alongX({7.0F}));
    EXPECT_EQ(CatmullRomSpline3D().sample(alongX({7.0F, 7.0F, 7.0F}), 1.0F), alongX({7.0F}));
}

TEST(Spline3D, WithoutControlPointsThereAreNoSamples)
{
    EXPECT_TRUE(PolylineSpline3D().sample({}, 1.0F).isEmpty());
    EXPECT_TRUE(CatmullRomSpline3D().sample({}, 1.0F).isEmpty());
}

TEST(Spline3D, StepThatIsNotPositiveAndFiniteGivesNoSamples)
{
    for (const float step : {0.0F, -0.0F, -1.0F, kNan, kInfinity, -kInfinity}) {
        EXPECT_TRUE(PolylineSpline3D().sample(alongX({0.0F, 10.0F}), step).isEmpty()) << step;
        EXPECT_TRUE(CatmullRomSpline3D().sample(alongX({0.0F, 10.0F}), step).isEmpty()) << step;
        EXPECT_TRUE(PolylineSpline3D().sample(alongX({7.0F}), step).isEmpty()) << step;
    }
}

TEST(Spline3D, CoordinateThatIsNotFiniteGivesNoSamples)
{
    for (const float bad : {kNan, kInfinity, -kInfinity}) {
        EXPECT_TRUE(PolylineSpline3D().sample(alongX({0.0F, bad, 10.0F}), 1.0F).isEmpty()) << bad;
        EXPECT_TRUE(CatmullRomSpline3D().sample(alongX({0.0F, 10.0F, bad}), 1.0F).isEmpty()) << bad;
        EXPECT_TRUE(PolylineSpline3D().sample({{0.0F, 0.0F, bad}}, 1.0F).isEmpty()) << bad;
    }
}

TEST(Spline3D, GivesUpToAMillionSamples)
{
    EXPECT_EQ(Spline3DInterface::maximumSampleCount(), 1'000'000);
    EXPECT_EQ(PolylineSpline3D().sample(alongX({0.0F, 999998.0F}), 1.0F).size(), 999'999);
    EXPECT_EQ(PolylineSpline3D().sample(alongX({0.0F, 999998.5F}), 1.0F).size(), 1'000'000)
        << "with the end";
}

TEST(Spline3D, GivesExactlyAMillionSamplesWhenTheLastStepReachesTheEnd)
{
    EXPECT_EQ(PolylineSpline3D().sample(alongX({0.0F, 999999.0F}), 1.0F).size(), 1'000'000);
}

TEST(Spline3D, MoreThanAMillionSamplesAreNone)
{
    EXPECT_TRUE(PolylineSpline3D().sample(alongX({0.0F, 999999.5F}), 1.0F).isEmpty());
    EXPECT_TRUE(PolylineSpline3D().sample(alongX({0.0F, 1000000.0F}), 1.0F).isEmpty());
    EXPECT_TRUE(PolylineSpline3D()
                    .sample(alongX({0.0F, 1.0F}), std::numeric_limits<float>::denorm_min())
                    .isEmpty());
    EXPECT_TRUE(CatmullRomSpline3D().sample(alongX({0.0F, 1e30F}), 1.0F).isEmpty());
}

TEST(Spline3D, SamplesAreFiniteAlsoWhereCoordinatesNearTheLimitOfFloatLieApart)
{
    EXPECT_TRUE(isFinite(PolylineSpline3D().sample(alongX({-3e38F, 3e38F}), 1e38F)));
    EXPECT_TRUE(isFinite(CatmullRomSpline3D().sample(alongX({-3e38F, 3e38F}), 1e38F)));
}

TEST(Spline3D, ControlPointsTheSmallestFloatApartAreACurve)
{
    const float tiny = std::numeric_limits<float>::denorm_min();
    EXPECT_EQ(PolylineSpline3D().sample(alongX({0.0F, tiny}), 1.0F), alongX({0.0F, tiny}));
    EXPECT_EQ(CatmullRomSpline3D().sample(alongX({0.0F, tiny}), 1.0F), alongX({0.0F, tiny}));
    EXPECT_TRUE(isFinite(CatmullRomSpline3D().sample(alongX({0.0F, tiny, 5.0F, 5e30F}), 1e29F)));
}

// ---- the Catmull-Rom curve

TEST(CatmullRomSpline3D, PassesThroughItsControlPoints)
{
    const Path points{
        {0.0F, 0.0F, 0.0F}, {5.0F, 1.0F, 2.0F}, {6.0F, 9.0F, 2.5F}, {-3.0F, 9.0F, 0.0F}};
    const Path chain = OpenCatmullRom(8).flatten(points);
    ASSERT_EQ(chain.size(), 25);
    for (qsizetype i = 0; i < 4; ++i)
        EXPECT_EQ(chain[8 * i], points[i]) << i;
}

TEST(CatmullRomSpline3D, HalfWayBetweenEvenlySpacedPointsIsTheClassicalWeighting)
{
    // All parameterizations agree for even spacing: half way is (-p0 + 9 p1 + 9 p2 - p3) / 16. The
    // neighbors beyond the ends are (-1, 0, 0) and (1, 2, 0), the mirror images.
    const Path chain =
        OpenCatmullRom(2).flatten({{0.0F, 0.0F, 0.0F}, {1.0F, 0.0F, 0.0F}, {1.0F, 1.0F, 0.0F}});
    const Path expected{{0.0F, 0.0F, 0.0F},
                        {0x1.2p-1F, -0x1p-4F, 0.0F}, // 9/16, -1/16
                        {1.0F, 0.0F, 0.0F},
                        {0x1.1p+0F, 0x1.cp-2F, 0.0F}, // 17/16, 7/16
                        {1.0F, 1.0F, 0.0F}};
    EXPECT_EQ(chain, expected);
}

TEST(CatmullRomSpline3D, IsCentripetal)
{
    // Distances 4 (mirrored), 4, 1 give the knots 0, 2, 4, 5. Half way through the first segment,
    // at knot 3, the pyramid is 2, 2, 3, then 2, 7/3, then 13/6. Uniform knots would give 35/16,
    // chordal ones 2.
    const Path chain = OpenCatmullRom(2).flatten(alongX({0.0F, 4.0F, 5.0F}));
    ASSERT_EQ(chain.size(), 5);
    EXPECT_FLOAT_EQ(chain[1].x(), 2.1666667F); // thirds are rounded
}

TEST(CatmullRomSpline3D, BetweenTwoPointsIsStraightAndEven)
{
    EXPECT_EQ(OpenCatmullRom(4).flatten(alongX({0.0F, 4.0F})),
              alongX({0.0F, 1.0F, 2.0F, 3.0F, 4.0F}));
}

TEST(CatmullRomSpline3D, OfOneChordPerSegmentIsThePolyline)
{
    const Path points{{0.0F, 0.0F, 0.0F}, {3.0F, 0.0F, 0.0F}, {3.0F, 4.0F, 0.0F}};
    EXPECT_EQ(CatmullRomSpline3D(1).sample(points, 2.0F), PolylineSpline3D().sample(points, 2.0F));
}

TEST(CatmullRomSpline3D, ClampsTheChordsPerSegment)
{
    EXPECT_EQ(CatmullRomSpline3D().chordsPerSegment(), 64);
    EXPECT_EQ(CatmullRomSpline3D(1).chordsPerSegment(), 1);
    EXPECT_EQ(CatmullRomSpline3D(1000).chordsPerSegment(), 1000);
    EXPECT_EQ(CatmullRomSpline3D(0).chordsPerSegment(), 1);
    EXPECT_EQ(CatmullRomSpline3D(-1).chordsPerSegment(), 1);
    EXPECT_EQ(CatmullRomSpline3D(std::numeric_limits<int>::min()).chordsPerSegment(), 1);
    EXPECT_EQ(CatmullRomSpline3D(1001).chordsPerSegment(), 1000);
    EXPECT_EQ(CatmullRomSpline3D(std::numeric_limits<int>::max()).chordsPerSegment(), 1000);
}

TEST(CatmullRomSpline3D, SamplesOfAnArchAreEvenlySpacedAndLieOnIt)
{
    // A half circle of 25 mm with control points every 10 degrees.
    Path points;
    for (int degree = 0; degree <= 180; degree += 10) {
        const double angle = degree * 3.14159265358979323846 / 180.0;
        points.append(QVector3D(static_cast<float>(25.0 * std::cos(angle)),
                                static_cast<float>(25.0 * std::sin(angle)), 0.0F));
    }
    const Path samples = CatmullRomSpline3D().sample(points, 1.0F);
    // The arc is 78.54 mm long, and the length of the curve differs by at most 0.1 mm: there are
    // the steps 0 to 78 and the end.
    ASSERT_EQ(samples.size(), 80);
    EXPECT_EQ(samples.first(), points.first());
    EXPECT_EQ(samples.last(), points.last());
    for (qsizetype i = 1; i + 1 < samples.size(); ++i) {
        // The chord of an arc of 1 mm is 50 sin(1/50) = 0.99993 mm long, and longer where the curve
        // is flatter.
        ASSERT_NEAR(samples[i].distanceToPoint(samples[i - 1]), 0.99995F, 1e-3F) << i;
        // Half way between control points the weighting gives 25 (9 cos 5 - cos 15) / 8 = 24.9994
        // mm; in the first and the last segment, with the mirrored neighbor, 25 (17 cos 5 - cos
        // 15) / 16 = 24.952 mm.
        const bool inEndSegment = i < 6 || i > 72;
        ASSERT_NEAR(samples[i].length(), 25.0F, inEndSegment ? 0.06F : 2e-3F) << i;
    }
}

// ---- clones

TEST(Spline3D, CloneIsOfTheSameKind)
{
    const PolylineSpline3D polyline;
    const CatmullRomSpline3D smooth;
    EXPECT_NE(dynamic_cast<PolylineSpline3D*>(polyline.clone().get()), nullptr);
    EXPECT_NE(dynamic_cast<CatmullRomSpline3D*>(smooth.clone().get()), nullptr);
}

TEST(Spline3D, CloneHasTheSameSettingsAndOutlivesTheOriginal)
{
    auto original = std::make_unique<CatmullRomSpline3D>(7);
    const std::unique_ptr<Spline3DInterface> clone = original->clone();
    EXPECT_NE(clone.get(), original.get());
    original.reset();
    const auto* smooth = dynamic_cast<const CatmullRomSpline3D*>(clone.get());
    ASSERT_NE(smooth, nullptr);
    EXPECT_EQ(smooth->chordsPerSegment(), 7);
    EXPECT_EQ(clone->sample(alongX({0.0F, 4.0F}), 2.0F), alongX({0.0F, 2.0F, 4.0F}));
}

} // namespace
