// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Occlusions.h>

// Occlusions and the jaw parts whose type identifiers are their keys.

#include <CoreAlgorithms/model/dataobjects/JawParts.h>

#include <tests/support/ModelRecorders.h>

#include <gtest/gtest.h>

namespace {

TEST(Occlusions, KeepMatricesAndFlagAndNotify)
{
    Occlusion occlusion;
    EXPECT_TRUE(occlusion.getTransformations().empty());
    EXPECT_FALSE(occlusion.isSegmental());
    test::ChangeCounter counter;
    occlusion.attach(&counter);
    QMatrix4x4 matrix;
    matrix.translate(1.0F, 2.0F, 3.0F);
    occlusion.setTransformations({{Maxilla::getClassTypeId(), matrix}});
    occlusion.setSegmental(true);
    EXPECT_EQ(occlusion.getTransformations().size(), 1U);
    EXPECT_EQ(occlusion.getTransformations().at(Maxilla::getClassTypeId()), matrix);
    EXPECT_TRUE(occlusion.isSegmental());
    EXPECT_EQ(counter.changes, 2);
}

} // namespace
