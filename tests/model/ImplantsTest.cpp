// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Implants.h>

// Implants, anchor pins and nerves: storage, notification, and shared pointers to them as
// keys.

#include <tests/support/Matrices.h>
#include <tests/support/ModelRecorders.h>

#include <QHash>
#include <QSet>

#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace {

using dataobject::AnchorPin3D;
using dataobject::Implant3D;
using dataobject::Nerve;

static_assert(static_cast<int>(TransformManipulationType::ScannerTransformation) == 3);

TEST(Implant3D, KeepsDimensionsAndPlacement)
{
    Implant3D implant;
    EXPECT_EQ(implant.getDimensions(), (dataobject::ImplantDimensions{0.0F, 0.0F}));
    EXPECT_TRUE(implant.getObjectTransform().isIdentity());
    implant.setDimensions({4.0F, 10.0F});
    implant.setObjectTransform(test::translation(1.0F, 2.0F, 3.0F));
    EXPECT_EQ(implant.getDimensions().diameter, 4.0F);
    EXPECT_EQ(implant.getDimensions().length, 10.0F);
    EXPECT_EQ(implant.getObjectTransform(), test::translation(1.0F, 2.0F, 3.0F));
    EXPECT_EQ(implant.getLastManipulation(), TransformManipulationType::Unspecified);
}

TEST(Implant3D, PlacementIsReplacedNotComposed)
{
    Implant3D implant;
    implant.setObjectTransform(test::translation(1.0F, 0.0F, 0.0F));
    implant.setObjectTransform(test::translation(5.0F, 0.0F, 0.0F),
                               TransformManipulationType::Translation);
    EXPECT_EQ(implant.getObjectTransform(), test::translation(5.0F, 0.0F, 0.0F));
    EXPECT_EQ(implant.getLastManipulation(), TransformManipulationType::Translation);
}

TEST(Implant3D, NotifiesOfEachChange)
{
    Implant3D implant;
    test::ChangeCounter counter;
    implant.attach(&counter);
    implant.setDimensions({4.0F, 10.0F});
    implant.setObjectTransform({});
    EXPECT_EQ(counter.changes, 2);
}

TEST(AnchorPin3D, OwnsItsTreeOfShapes)
{
    AnchorPin3D pin;
    EXPECT_EQ(pin.getShapeNode(), nullptr);
    test::ChangeCounter counter;
    pin.attach(&counter);
    auto tree = std::make_unique<geometry::ShapeNode>(QStringLiteral("Pin"));
    const geometry::ShapeNode* address = tree.get();
    pin.setShapeNode(std::move(tree));
    EXPECT_EQ(pin.getShapeNode(), address);
    pin.setObjectTransform(test::translation(1.0F, 2.0F, 3.0F),
                           TransformManipulationType::ScannerTransformation);
    EXPECT_EQ(pin.getObjectTransform(), test::translation(1.0F, 2.0F, 3.0F));
    EXPECT_EQ(pin.getLastManipulation(), TransformManipulationType::ScannerTransformation);
    EXPECT_EQ(counter.changes, 2);
}

TEST(Nerve, IsASurfaceOfTheScene)
{
    Nerve nerve;
    nerve.setMesh(geometry::Mesh({{1.0F, 1.0F, 1.0F}}, {}));
    nerve.setObjectTransform(test::translation(1.0F, 0.0F, 0.0F));
    EXPECT_EQ(nerve.getSceneBoundingBox().min(), QVector3D(2.0F, 1.0F, 1.0F));
}

TEST(SharedPointers, AreHashedByAddressAloneAndInPairs)
{
    const auto a = std::make_shared<Implant3D>();
    const auto b = std::make_shared<Implant3D>();
    const auto pin = std::make_shared<AnchorPin3D>();
    const auto nerve = std::make_shared<Nerve>();

    EXPECT_EQ(QSet<std::shared_ptr<Implant3D>>({a, b, a}).size(), 2);
    EXPECT_EQ(QSet<std::shared_ptr<const Implant3D>>({a, b, a}).size(), 2);
    EXPECT_EQ(QSet<std::shared_ptr<AnchorPin3D>>({pin, pin}).size(), 1);
    EXPECT_EQ(QSet<std::shared_ptr<Nerve>>({nerve, nerve}).size(), 1);

    QSet<std::pair<std::shared_ptr<Implant3D>, std::shared_ptr<Nerve>>> pairs;
    pairs.insert({a, nerve});
    pairs.insert({a, nerve});
    pairs.insert({b, nerve});
    EXPECT_EQ(pairs.size(), 2);
    EXPECT_TRUE(pairs.contains({b, nerve}));

    QHash<std::pair<std::shared_ptr<Implant3D>, float>, int> byMargin;
    byMargin.insert({a, 0.0F}, 1);
    byMargin.insert({a, 3.0F}, 2);
    EXPECT_EQ(byMargin.value({a, 0.0F}), 1);
    EXPECT_EQ(byMargin.value({a, 3.0F}), 2);
    EXPECT_FALSE(byMargin.contains({b, 0.0F}));
}

TEST(SharedPointers, HashAsTheirAddresses)
{
    const auto implant = std::make_shared<Implant3D>();
    const auto nerve = std::make_shared<Nerve>();
    EXPECT_EQ(qHash(implant, 7), ::qHash(implant.get(), 7));
    EXPECT_EQ(qHash(nerve, 7), ::qHash(nerve.get(), 7));
}

TEST(SharedPointers, NullIsAKeyLikeAnyOther)
{
    QSet<std::shared_ptr<Implant3D>> implants;
    implants.insert(nullptr);
    EXPECT_TRUE(implants.contains(nullptr));
}

} // namespace
