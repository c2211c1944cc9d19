// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Reslices.h>

// The reslices: values of new ones, extents, directions, and notification by setters.

#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>

#include <tests/support/ModelRecorders.h>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <memory>

namespace {

static_assert(meta::FromLeft == 1, "the point of view that mirrors the x axis");

TEST(Reslice, GivesItsOwningPointer)
{
    const auto owner = std::make_shared<PanoramicReslice>();
    EXPECT_EQ(owner->shared_from_this(), owner);
}

// ---- Reslice

TEST(Reslice, NewOneHasNoExtentAndIsASingleSliceThatIsNotMirrored)
{
    const Reslice reslice;
    EXPECT_EQ(reslice.getWidth(), 0.0F);
    EXPECT_EQ(reslice.getHeight(), 0.0F);
    EXPECT_TRUE(reslice.isType(SingleSlice));
    EXPECT_FALSE(reslice.isType(ThickSlab));
    EXPECT_FALSE(reslice.isMirroredHorizontallyIn2D());
    EXPECT_FALSE(reslice.isMirroredVerticallyIn2D());
}

TEST(Reslice, ExtentIsDimensionsTimesSampleSize)
{
    Reslice reslice;
    reslice.setDimensions({200.0, 80.0});
    reslice.setSampleSize({0.25F, 0.5F, 7.0F});
    EXPECT_EQ(reslice.getWidth(), 50.0F);
    EXPECT_EQ(reslice.getHeight(), 40.0F);
}

TEST(Reslice, ExtentIsComputedInDoublePrecision)
{
    // 16777217 does not fit single precision. The product 16777217 * 3 = 50331651 has the nearest
    // float 50331652; if the count were narrowed first, 16777216 * 3 = 50331648.
    Reslice reslice;
    reslice.setDimensions({16777217.0, 16777217.0});
    reslice.setSampleSize({3.0F, 3.0F, 1.0F});
    EXPECT_EQ(reslice.getWidth(), 50331652.0F);
    EXPECT_EQ(reslice.getHeight(), 50331652.0F);
}

TEST(Reslice, ExtentFollowsDimensionsAndSampleSizeWhateverTheyAre)
{
    Reslice reslice;
    reslice.setDimensions({-4.0, 0.0});
    reslice.setSampleSize({0.5F, -1.0F, 0.0F});
    EXPECT_EQ(reslice.getWidth(), -2.0F);
    EXPECT_EQ(reslice.getHeight(), 0.0F);
    reslice.setSampleSize(
        {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(), 0.0F});
    EXPECT_TRUE(std::isnan(reslice.getWidth()));
    EXPECT_TRUE(std::isnan(reslice.getHeight())) << "zero times infinity";
}

TEST(Reslice, GivesWhatIsSet)
{
    Reslice reslice;
    reslice.setDimensions({200.0, 80.5});
    reslice.setSampleSize({0.25F, 0.5F, 7.0F});
    reslice.setThickness(2.5F);
    EXPECT_EQ(reslice.getDimensions(), QSizeF(200.0, 80.5));
    EXPECT_EQ(reslice.getSampleSize(), QVector3D(0.25F, 0.5F, 7.0F));
    EXPECT_EQ(reslice.getThickness(), 2.5F);
}

TEST(Reslice, IsOfExactlyOneKind)
{
    Reslice reslice;
    reslice.setType(ThickSlab);
    EXPECT_TRUE(reslice.isType(ThickSlab));
    EXPECT_FALSE(reslice.isType(SingleSlice));
    reslice.setType(SingleSlice);
    EXPECT_TRUE(reslice.isType(SingleSlice));
    EXPECT_FALSE(reslice.isType(ThickSlab));
}

TEST(Reslice, IsMirroredAlongEachAxisByItself)
{
    Reslice reslice;
    reslice.setMirroredIn2D(true, false);
    EXPECT_TRUE(reslice.isMirroredHorizontallyIn2D());
    EXPECT_FALSE(reslice.isMirroredVerticallyIn2D());
    reslice.setMirroredIn2D(false, true);
    EXPECT_FALSE(reslice.isMirroredHorizontallyIn2D());
    EXPECT_TRUE(reslice.isMirroredVerticallyIn2D());
}

// ---- PlanarReslice

// Columns: direction 0, direction 1, normal, origin.
const QMatrix4x4 kPlacement(0.0F, 0.0F, 3.0F, 10.0F, //
                            2.0F, 0.0F, 0.0F, 20.0F, //
                            0.0F, 4.0F, 0.0F, 30.0F, //
                            0.0F, 0.0F, 0.0F, 1.0F);

TEST(PlanarReslice, IsPlacedByTheIdentityAtFirst)
{
    const PlanarReslice reslice;
    EXPECT_EQ(reslice.getTransformationFromResliceToWorld(), QMatrix4x4());
    EXPECT_EQ(reslice.getOrigin(), QVector3D());
    EXPECT_EQ(reslice.getDirection0(false), QVector3D(1.0F, 0.0F, 0.0F));
    EXPECT_EQ(reslice.getDirection1(false), QVector3D(0.0F, 1.0F, 0.0F));
}

TEST(PlanarReslice, OriginAndDirectionsAreColumnsOfTheTransformation)
{
    PlanarReslice reslice;
    reslice.setTransformationFromResliceToWorld(kPlacement);
    EXPECT_EQ(reslice.getTransformationFromResliceToWorld(), kPlacement);
    EXPECT_EQ(reslice.getOrigin(), QVector3D(10.0F, 20.0F, 30.0F));
    EXPECT_EQ(reslice.getDirection0(false), QVector3D(0.0F, 2.0F, 0.0F)) << "not normalized";
    EXPECT_EQ(reslice.getDirection1(false), QVector3D(0.0F, 0.0F, 4.0F)) << "not normalized";
}

TEST(PlanarReslice, DirectionPerSampleIsTheStepOfOneSample)
{
    PlanarReslice reslice;
    reslice.setTransformationFromResliceToWorld(kPlacement);
    reslice.setSampleSize({0.25F, 0.5F, 8.0F});
    EXPECT_EQ(reslice.getDirection0(true), QVector3D(0.0F, 0.5F, 0.0F));
    EXPECT_EQ(reslice.getDirection1(true), QVector3D(0.0F, 0.0F, 2.0F));
}

TEST(PlanarReslice, OriginIsWhereTheTransformationTakesTheLocalOrigin)
{
    PlanarReslice reslice;
    QMatrix4x4 placement;
    placement.translate(1.0F, 2.0F, 3.0F);
    placement.rotate(30.0F, 1.0F, 1.0F, 0.0F);
    reslice.setTransformationFromResliceToWorld(placement);
    EXPECT_EQ(reslice.getOrigin(), placement.map(QVector3D()));
}

// ---- PanoramicReslice

TEST(PanoramicReslice, StartsWithoutPathLineOrHeights)
{
    const PanoramicReslice reslice;
    EXPECT_TRUE(reslice.getPath().isEmpty());
    EXPECT_EQ(reslice.getGuidingLine(), nullptr);
    EXPECT_EQ(reslice.getVerticalRange(), (math::Range<float>{0.0F, 0.0F}));
}

TEST(PanoramicReslice, GivesWhatIsSet)
{
    PanoramicReslice reslice;
    const QList<QVector3D> path{{0.0F, 0.0F, 0.0F}, {1.0F, 2.0F, 3.0F}};
    reslice.setPath(path);
    reslice.setVerticalRange({-20.0F, 15.0F});
    EXPECT_EQ(reslice.getPath(), path);
    EXPECT_EQ(reslice.getVerticalRange(), (math::Range<float>{-20.0F, 15.0F}));
}

TEST(PanoramicReslice, SharesItsGuidingLine)
{
    PanoramicReslice reslice;
    auto line = std::make_shared<GuidingLine>();
    const std::weak_ptr<GuidingLine> watch = line;
    reslice.setGuidingLine(line);
    EXPECT_EQ(reslice.getGuidingLine(), line);
    line.reset();
    EXPECT_FALSE(watch.expired());
    reslice.setGuidingLine(nullptr);
    EXPECT_EQ(reslice.getGuidingLine(), nullptr);
    EXPECT_TRUE(watch.expired());
}

// ---- CephReslice

TEST(CephReslice, IsSeenFromTheRightAndPlacedByTheIdentityAtFirst)
{
    const CephReslice reslice;
    EXPECT_EQ(reslice.getPointOfView(), meta::FromRight);
    EXPECT_EQ(reslice.getTransformation(), QMatrix4x4());
}

TEST(CephReslice, GivesWhatIsSet)
{
    CephReslice reslice;
    reslice.setTransformation(kPlacement);
    reslice.setPointOfView(meta::FromLeft);
    EXPECT_EQ(reslice.getTransformation(), kPlacement);
    EXPECT_EQ(reslice.getPointOfView(), meta::FromLeft);
}

// ---- notification

TEST(Reslices, EverySetterNotifiesOnce)
{
    PlanarReslice planar;
    PanoramicReslice panoramic;
    CephReslice ceph;
    const struct
    {
        const char* name;
        DataObject* object;
        std::function<void()> set;
    } setters[] = {
        {"setDimensions", &planar,
         [&] {
             planar.setDimensions({2.0, 3.0});
         }},
        {"setSampleSize", &planar,
         [&] {
             planar.setSampleSize({2.0F, 3.0F, 4.0F});
         }},
        {"setThickness", &planar, [&] { planar.setThickness(2.0F); }},
        {"setType", &planar, [&] { planar.setType(ThickSlab); }},
        {"setMirroredIn2D", &planar, [&] { planar.setMirroredIn2D(true, true); }},
        {"setTransformationFromResliceToWorld", &planar,
         [&] { planar.setTransformationFromResliceToWorld(kPlacement); }},
        {"setPath", &panoramic,
         [&] {
             panoramic.setPath({{1.0F, 2.0F, 3.0F}});
         }},
        {"setGuidingLine", &panoramic,
         [&] { panoramic.setGuidingLine(std::make_shared<GuidingLine>()); }},
        {"setVerticalRange", &panoramic,
         [&] {
             panoramic.setVerticalRange({1.0F, 2.0F});
         }},
        {"setTransformation", &ceph, [&] { ceph.setTransformation(kPlacement); }},
        {"setPointOfView", &ceph, [&] { ceph.setPointOfView(meta::FromFront); }},
    };
    for (const auto& setter : setters) {
        test::ChangeCounter counter;
        setter.object->attach(&counter);
        setter.set();
        EXPECT_EQ(counter.changes, 1) << setter.name;
    }
}

TEST(Reslices, SeveralSettersInABracketNotifyOnce)
{
    PlanarReslice reslice;
    test::ChangeCounter counter;
    reslice.attach(&counter);
    {
        const EditLocker lock(&reslice);
        reslice.setDimensions({2.0, 3.0});
        reslice.setThickness(2.0F);
        reslice.setTransformationFromResliceToWorld(kPlacement);
    }
    EXPECT_EQ(counter.changes, 1);
}

} // namespace
