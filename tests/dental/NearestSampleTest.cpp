// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/dental/NearestSample_p.h>

// Covered: the fast search of the nearest sample against the plain one, ties, NaN, infinity and
// every length of the remainder included.

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <vector>

namespace {

using Samples = std::vector<QVector3D>;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

// Searches as the header defines it.
int reference(const QVector3D& point, const Samples& samples)
{
    std::size_t best = 0;
    for (std::size_t i = 1; i < samples.size(); ++i) {
        const QVector3D toBest = samples[best] - point;
        const QVector3D toCandidate = samples[i] - point;
        if (toBest.lengthSquared() > toCandidate.lengthSquared())
            best = i;
    }
    return static_cast<int>(best);
}

void expectAllAgree(const QVector3D& point, const Samples& samples)
{
    const int size = static_cast<int>(samples.size());
    const int expected = reference(point, samples);
    ASSERT_EQ(dental::findNearestSamplePlain(point, samples.data(), size), expected);
    ASSERT_EQ(dental::findNearestSample(point, samples.data(), size), expected);
}

class Draw
{
public:
    explicit Draw(unsigned seed) : engine(seed) {}
    int below(int bound) { return static_cast<int>(engine() % static_cast<unsigned>(bound)); }
    float number(float reach)
    {
        return reach * (static_cast<float>(engine() >> 8) * 0x1p-23F - 1.0F);
    }
    QVector3D point(float reach) { return {number(reach), number(reach), number(reach)}; }
    // Whole numbers from 0 to 2: most distances occur many times.
    QVector3D gridPoint()
    {
        return {static_cast<float>(below(3)), static_cast<float>(below(3)),
                static_cast<float>(below(3))};
    }
    float odd()
    {
        constexpr float numbers[] = {kNan,  kInfinity, -kInfinity, 3e38F, -3e38F,
                                     2e19F, 1e-30F,    1e-45F,     0.0F,  -0.0F};
        return numbers[below(10)];
    }

private:
    std::mt19937 engine;
};

TEST(NearestSample, VersionsAgreeOnPathsOfEveryLength)
{
    Draw draw(1);
    for (int size = 1; size <= 300; ++size) {
        for (int repetition = 0; repetition < 20; ++repetition) {
            SCOPED_TRACE(testing::Message()
                         << "seed 1, size " << size << ", repetition " << repetition);
            Samples samples;
            for (int i = 0; i < size; ++i)
                samples.push_back(draw.point(100.0F));
            expectAllAgree(draw.point(120.0F), samples);
        }
    }
}

TEST(NearestSample, VersionsAgreeWhereManySamplesAreEquallyNear)
{
    Draw draw(2);
    for (int size = 1; size <= 300; ++size) {
        for (int repetition = 0; repetition < 20; ++repetition) {
            SCOPED_TRACE(testing::Message()
                         << "seed 2, size " << size << ", repetition " << repetition);
            Samples samples;
            for (int i = 0; i < size; ++i)
                samples.push_back(draw.gridPoint() + QVector3D(5.0F, 0.0F, 0.0F));
            // A few nearer ones, so that the first of them may be anywhere.
            for (int nearer = draw.below(4); nearer > 0; --nearer)
                samples[static_cast<std::size_t>(draw.below(size))] = {1.0F, 0.0F, 0.0F};
            expectAllAgree(draw.gridPoint(), samples);
        }
    }
}

TEST(NearestSample, VersionsAgreeOnNumbersThatAreNotFiniteHugeOrTiny)
{
    Draw draw(3);
    for (int size = 1; size <= 150; ++size) {
        for (int repetition = 0; repetition < 40; ++repetition) {
            SCOPED_TRACE(testing::Message()
                         << "seed 3, size " << size << ", repetition " << repetition);
            Samples samples;
            const int share = 1 + draw.below(20);
            for (int i = 0; i < size; ++i) {
                QVector3D sample = draw.point(100.0F);
                if (draw.below(share) == 0)
                    sample[draw.below(3)] = draw.odd();
                samples.push_back(sample);
            }
            QVector3D point = draw.point(100.0F);
            if (repetition % 4 == 0)
                point[draw.below(3)] = draw.odd();
            expectAllAgree(point, samples);
        }
    }
}

TEST(NearestSample, VersionsAgreeOnALongPath)
{
    Draw draw(4);
    Samples samples;
    for (int i = 0; i < 100'003; ++i)
        samples.push_back({static_cast<float>(i) * 0.01F, draw.number(1.0F), draw.number(1.0F)});
    for (int repetition = 0; repetition < 100; ++repetition) {
        SCOPED_TRACE(testing::Message() << "seed 4, repetition " << repetition);
        expectAllAgree({draw.number(1200.0F), draw.number(3.0F), draw.number(3.0F)}, samples);
    }
}

TEST(NearestSample, FirstOfEqualSamplesIsFoundInEveryPlaceOfABlock)
{
    for (int size = 1; size <= 140; ++size) {
        for (int place = 0; place < size; ++place) {
            Samples samples(static_cast<std::size_t>(size), QVector3D(9.0F, 9.0F, 9.0F));
            for (int later = place; later < size; later += 7)
                samples[static_cast<std::size_t>(later)] = {1.0F, 1.0F, 1.0F};
            ASSERT_EQ(dental::findNearestSample({}, samples.data(), size), place) << size;
            ASSERT_EQ(dental::findNearestSamplePlain({}, samples.data(), size), place) << size;
        }
    }
}

TEST(NearestSample, SampleWithNanIsSkippedInEveryPlaceOfABlockButTheFirst)
{
    for (int place = 1; place < 96; ++place) {
        Samples samples(96, QVector3D(9.0F, 9.0F, 9.0F));
        samples[static_cast<std::size_t>(place)] = {1.0F, kNan, 1.0F};
        ASSERT_EQ(dental::findNearestSample({}, samples.data(), 96), 0) << place;
        samples[95] = place == 95 ? samples[95] : QVector3D(2.0F, 2.0F, 2.0F);
        ASSERT_EQ(dental::findNearestSample({}, samples.data(), 96), place == 95 ? 0 : 95) << place;
    }
    Samples samples(96, QVector3D(1.0F, 1.0F, 1.0F));
    samples[0] = {kNan, 0.0F, 0.0F};
    EXPECT_EQ(dental::findNearestSample({}, samples.data(), 96), 0);
}

} // namespace
