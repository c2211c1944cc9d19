// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/transforms/OcclusionTransformation.h>

// Covered: the default record, copies and moves, and equality field by field.

#include <gtest/gtest.h>

#include <limits>
#include <utility>

namespace {

QMatrix4x4 translation(float x)
{
    QMatrix4x4 matrix;
    matrix.translate(x, 0.0F, 0.0F);
    return matrix;
}

OcclusionTransformation aBite()
{
    return {translation(1.0F), translation(2.0F), translation(3.0F)};
}

TEST(OcclusionTransformation, IsThreeIdentitiesByDefault)
{
    const OcclusionTransformation bite;
    EXPECT_TRUE(bite.upperTransformation.isIdentity());
    EXPECT_TRUE(bite.lowerTransformation.isIdentity());
    EXPECT_TRUE(bite.vestibularTransformation.isIdentity());
}

TEST(OcclusionTransformation, FieldsAreUpperLowerVestibularInThisOrder)
{
    const auto [upper, lower, vestibular] = aBite();
    EXPECT_EQ(upper, translation(1.0F));
    EXPECT_EQ(lower, translation(2.0F));
    EXPECT_EQ(vestibular, translation(3.0F));
}

TEST(OcclusionTransformation, CopyAndMoveAssignmentTakeAllThree)
{
    OcclusionTransformation copy;
    copy = aBite();
    EXPECT_TRUE(copy == aBite());
    OcclusionTransformation moved;
    moved = std::move(copy); // NOLINT(performance-move-const-arg): the operation that is tested
    EXPECT_TRUE(moved == aBite());
}

TEST(OcclusionTransformation, EqualityNeedsEveryMatrixAndInequalityIsItsNegation)
{
    const OcclusionTransformation bite = aBite();
    OcclusionTransformation other = bite;
    EXPECT_TRUE(bite == other);
    EXPECT_FALSE(bite != other);
    for (QMatrix4x4* matrix : {&other.upperTransformation, &other.lowerTransformation,
                               &other.vestibularTransformation}) {
        other = bite;
        (*matrix)(2, 3) = std::numeric_limits<float>::denorm_min();
        EXPECT_FALSE(bite == other);
        EXPECT_TRUE(bite != other);
    }
}

TEST(OcclusionTransformation, ComparesNumbersSoThatMinusZeroIsZeroAndNanIsNothing)
{
    OcclusionTransformation bite;
    OcclusionTransformation other;
    other.lowerTransformation(0, 3) = -0.0F;
    EXPECT_TRUE(bite == other);
    bite.vestibularTransformation(0, 0) = std::numeric_limits<float>::quiet_NaN();
    other = bite;
    EXPECT_FALSE(bite == other);
    EXPECT_TRUE(bite != other);
}

} // namespace
