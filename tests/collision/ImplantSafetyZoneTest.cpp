// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/ImplantSafetyZone.h>

// Safety zones: the requests to the factory, the places of the parts, and invalid measures. The
// parameter keys.

#include <CoreAlgorithms/model/data/Shapes.h>
#include <CoreAlgorithms/model/dataobjects/Implants.h>

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace {

using collision::generateSafetyZone;

struct Request
{
    std::string solid;
    std::vector<float> lengths;
    std::vector<bool> flags;

    friend bool operator==(const Request&, const Request&) = default;
};

// Records its requests, and gives every node the transform that it was constructed with.
class RecordingFactory : public geometry::ShapeFactory
{
public:
    explicit RecordingFactory(geometry::ShapeLoader& shapeLoader, std::vector<Request>& requestLog,
                              const QMatrix4x4& transformOfNodes = {})
        : ShapeFactory(shapeLoader), log(requestLog), nodeTransform(transformOfNodes)
    {}

    geometry::ShapeNode* generateCylinder(float radius, float height, bool openTop,
                                          bool openBottom) const override
    {
        log.push_back({"cylinder", {radius, height}, {openTop, openBottom}});
        return placed(ShapeFactory::generateCylinder(radius, height, openTop, openBottom));
    }

    geometry::ShapeNode* generateCone(float radius, float height, bool openBase) const override
    {
        log.push_back({"cone", {radius, height}, {openBase}});
        return placed(ShapeFactory::generateCone(radius, height, openBase));
    }

private:
    geometry::ShapeNode* placed(geometry::ShapeNode* node) const
    {
        node->setTransform(nodeTransform);
        return node;
    }

    std::vector<Request>& log;
    QMatrix4x4 nodeTransform;
};

class BarrenFactory : public geometry::ShapeFactory
{
public:
    using ShapeFactory::ShapeFactory;
    geometry::ShapeNode* generateCylinder(float, float, bool, bool) const override
    {
        return nullptr;
    }
    geometry::ShapeNode* generateCone(float, float, bool) const override { return nullptr; }
};

// Counts how often its measures are read.
class CountingImplant : public dataobject::Implant3D
{
public:
    const dataobject::ImplantDimensions& getDimensions() const override
    {
        ++reads;
        return Implant3D::getDimensions();
    }
    mutable int reads = 0;
};

class SafetyZoneTest : public testing::Test
{
protected:
    std::unique_ptr<geometry::ShapeNode> zone(float diameter, float length, float margin)
    {
        implant.setDimensions({diameter, length});
        return generateSafetyZone(factory, implant, margin);
    }

    geometry::ShapeLoader loader;
    std::vector<Request> requests;
    std::unique_ptr<geometry::ShapeFactory> factory =
        std::make_unique<RecordingFactory>(loader, requests);
    CountingImplant implant;
};

primitives::BoundingBox placedBox(const geometry::ShapeNode& node)
{
    return node.getShape()->getBoundingBox().transformed(node.getTransform());
}

TEST_F(SafetyZoneTest, IsATreeOfBodyThenApexCap)
{
    const auto root = zone(4.0F, 10.0F, 3.0F);
    EXPECT_EQ(root->getName(), QStringLiteral("ImplantSafetyZone"));
    EXPECT_TRUE(root->getTransform().isIdentity());
    EXPECT_EQ(root->getShape(), nullptr);
    ASSERT_EQ(root->getNumChildren(), 2);
    EXPECT_EQ(root->getChild(0)->getName(), QStringLiteral("Cylinder"));
    EXPECT_EQ(root->getChild(1)->getName(), QStringLiteral("Cone"));
}

TEST_F(SafetyZoneTest, RequestsAClosedCylinderThenAClosedCone)
{
    zone(4.0F, 10.0F, 3.0F);
    EXPECT_EQ(requests, (std::vector<Request>{{"cylinder", {3.5F, 10.0F}, {false, false}},
                                              {"cone", {3.5F, 3.0F}, {false}}}));
}

TEST_F(SafetyZoneTest, WithoutMarginIsTheImplantsEnvelopeWithAFlatCone)
{
    zone(4.0F, 10.0F, 0.0F);
    EXPECT_EQ(requests, (std::vector<Request>{{"cylinder", {2.0F, 10.0F}, {false, false}},
                                              {"cone", {2.0F, 0.0F}, {false}}}));
}

// Computed by hand: the radius is 4 / 2 + 3 / 2, the body reaches from the platform at z = 0 to the
// apex at -10, and the cone from there to -13.
TEST_F(SafetyZoneTest, ReachesFromThePlatformAtTheOriginDownToTheTipOfTheCone)
{
    const auto root = zone(4.0F, 10.0F, 3.0F);
    EXPECT_EQ(placedBox(*root->getChild(0)),
              primitives::BoundingBox(-3.5F, -3.5F, -10.0F, 3.5F, 3.5F, 0.0F));
    EXPECT_EQ(placedBox(*root->getChild(1)),
              primitives::BoundingBox(-3.5F, -3.5F, -13.0F, 3.5F, 3.5F, -10.0F));
    EXPECT_EQ(root->getBoundingBox(),
              primitives::BoundingBox(-3.5F, -3.5F, -13.0F, 3.5F, 3.5F, 0.0F));
}

TEST_F(SafetyZoneTest, TipOfTheConePointsDownwards)
{
    const auto root = zone(4.0F, 10.0F, 3.0F);
    const geometry::ShapeNode& cap = *root->getChild(1);
    int tips = 0;
    for (const QVector3D& vertex : cap.getShape()->getMesh().getVertices())
        tips += cap.getTransform().map(vertex) == QVector3D(0.0F, 0.0F, -13.0F) ? 1 : 0;
    EXPECT_EQ(tips, 1);
}

TEST_F(SafetyZoneTest, ClearanceIsHalfTheMarginToTheSidesAndTheWholeMarginBelowByDesign)
{
    const primitives::BoundingBox tight = zone(4.0F, 10.0F, 0.0F)->getBoundingBox();
    const primitives::BoundingBox wide = zone(4.0F, 10.0F, 2.0F)->getBoundingBox();
    EXPECT_EQ(wide.max().x() - tight.max().x(), 1.0F);
    EXPECT_EQ(wide.max().y() - tight.max().y(), 1.0F);
    EXPECT_EQ(tight.min().z() - wide.min().z(), 2.0F);
    EXPECT_EQ(wide.max().z(), tight.max().z());
}

// The factory rotates its nodes by 90 degrees about x, so that z becomes -y, and moves them by 100
// along x. The zone's own matrices are on the left: they move the rotated node.
TEST_F(SafetyZoneTest, AppliesItsPlacementAfterTheTransformOfTheFactory)
{
    QMatrix4x4 ofFactory;
    ofFactory.translate(100.0F, 0.0F, 0.0F);
    ofFactory.rotate(90.0F, 1.0F, 0.0F, 0.0F);
    factory = std::make_unique<RecordingFactory>(loader, requests, ofFactory);
    const auto root = zone(4.0F, 10.0F, 3.0F);
    // Body: (0, 0, 5) to (100, -5, 0), then down by 5.
    const QVector3D body = root->getChild(0)->getTransform().map(QVector3D(0.0F, 0.0F, 5.0F));
    EXPECT_NEAR(body.x(), 100.0F, 1e-5F);
    EXPECT_NEAR(body.y(), -5.0F, 1e-5F);
    EXPECT_NEAR(body.z(), -5.0F, 1e-5F);
    // Cap: (0, 0, 3) to (100, -3, 0), up by 10 to (100, -3, 10), then turned over to (100, 3, -10).
    const QVector3D cap = root->getChild(1)->getTransform().map(QVector3D(0.0F, 0.0F, 3.0F));
    EXPECT_NEAR(cap.x(), 100.0F, 1e-5F);
    EXPECT_NEAR(cap.y(), 3.0F, 1e-5F);
    EXPECT_NEAR(cap.z(), -10.0F, 1e-5F);
}

TEST_F(SafetyZoneTest, LeavesThePlacementOfTheImplantToTheCaller)
{
    QMatrix4x4 placement;
    placement.translate(50.0F, 60.0F, 70.0F);
    implant.setObjectTransform(placement);
    EXPECT_EQ(zone(4.0F, 10.0F, 3.0F)->getBoundingBox(),
              primitives::BoundingBox(-3.5F, -3.5F, -13.0F, 3.5F, 3.5F, 0.0F));
    EXPECT_EQ(implant.getObjectTransform(), placement);
}

TEST_F(SafetyZoneTest, EveryStepReadsTheMeasuresAgain)
{
    zone(4.0F, 10.0F, 3.0F);
    EXPECT_EQ(implant.reads, 5); // radius, length, half length; radius, length
}

// Has other measures at every reading: 1 and 10 mm, then 2 and 20 mm and so on.
class GrowingImplant : public dataobject::Implant3D
{
public:
    const dataobject::ImplantDimensions& getDimensions() const override
    {
        measures = {measures.diameter + 1.0F, measures.length + 10.0F};
        return measures;
    }

private:
    mutable dataobject::ImplantDimensions measures;
};

TEST_F(SafetyZoneTest, ReadsDiameterThenLengthForTheBodyThenForTheCap)
{
    GrowingImplant growing;
    const auto root = generateSafetyZone(factory, growing, 0.0F);
    EXPECT_EQ(requests, (std::vector<Request>{{"cylinder", {0.5F, 20.0F}, {false, false}},
                                              {"cone", {2.0F, 0.0F}, {false}}}));
    EXPECT_EQ(root->getChild(0)->getTransform().column(3).z(), -15.0F); // half of the third reading
    EXPECT_EQ(root->getChild(1)->getTransform().column(3).z(), -50.0F);
}

TEST_F(SafetyZoneTest, InvalidMeasuresArePassedToTheFactoryUnchanged)
{
    zone(0.0F, 0.0F, 0.0F);
    zone(-4.0F, -10.0F, -1.0F);
    EXPECT_EQ(requests, (std::vector<Request>{{"cylinder", {0.0F, 0.0F}, {false, false}},
                                              {"cone", {0.0F, 0.0F}, {false}},
                                              {"cylinder", {-2.5F, -10.0F}, {false, false}},
                                              {"cone", {-2.5F, -1.0F}, {false}}}));
    EXPECT_EQ(zone(std::nanf(""), 10.0F, 3.0F)->getNumChildren(), 2);
}

TEST_F(SafetyZoneTest, WithoutFactoryOrSolidsIsTheRootAlone)
{
    factory = nullptr;
    EXPECT_EQ(zone(4.0F, 10.0F, 3.0F)->getName(), QStringLiteral("ImplantSafetyZone"));
    EXPECT_EQ(zone(4.0F, 10.0F, 3.0F)->getNumChildren(), 0);
    factory = std::make_unique<BarrenFactory>(loader);
    EXPECT_EQ(zone(4.0F, 10.0F, 3.0F)->getNumChildren(), 0);
}

// ---- the keys

TEST(ImplantShapeParameters, AreThirtyFiveInOrder)
{
    const QStringList expected =
        QStringLiteral(
            "ConnectionShape ConnectionHeight ConnectionRadius ConnectionOffset ConnectionBond "
            "ConnectionMaterial "
            "TissueLevelRestorationPoint TissueLevelNeckEdgeWidth TissueLevelNeckRadius "
            "TissueLevelBending "
            "TissueLevelMaterial CollarHeight CollarTopRadius CollarBottomRadius "
            "CollarThreadHeight "
            "CollarThreadEdgeWidth CollarThreadEdgeThickness CollarInterThreadDistance "
            "CollarDistanceBeforeFirstThread CollarMaterial BodyHeight BodyTopRadius "
            "BodyBottomRadius "
            "BodyTaperHeight BodyThreadHeight BodyThreadEdgeWidth BodyThreadEdgeThickness "
            "BodyInterThreadDistance BodyDistanceBeforeFirstThread BodyThreadTaperWidth "
            "BodyThreadTaperHeight "
            "BodyMaterial ApexHeight ApexRadius ApexMaterial")
            .split(QLatin1Char(' '));
    EXPECT_EQ(expected.size(), 35);
    EXPECT_EQ(collision::implantShapeParameters::kAll, expected);
}

TEST(ImplantShapeParameters, CarryTheirNames)
{
    using namespace collision::implantShapeParameters;
    EXPECT_EQ(kConnectionShape, QStringLiteral("ConnectionShape"));
    EXPECT_EQ(kTissueLevelMaterial, QStringLiteral("TissueLevelMaterial"));
    EXPECT_EQ(kCollarDistanceBeforeFirstThread, QStringLiteral("CollarDistanceBeforeFirstThread"));
    EXPECT_EQ(kBodyThreadTaperWidth, QStringLiteral("BodyThreadTaperWidth"));
    EXPECT_EQ(kApexMaterial, QStringLiteral("ApexMaterial"));
}

} // namespace
