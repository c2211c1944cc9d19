// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/ImplantSafetyZone.h>

#include <CoreAlgorithms/model/data/Shapes.h>
#include <CoreAlgorithms/model/dataobjects/Implants.h>

#include <QMatrix4x4>
#include <QVector3D>

namespace collision {
namespace {

// Intended: the zone is half the margin wider on each side, though the cone below the apex is as
// high as the whole margin. The verdicts of existing plans rely on this solid.
float zoneRadius(const dataobject::Implant3D& implant, float margin)
{
    return margin * 0.5F + implant.getDimensions().diameter * 0.5F;
}

// Gives the node to the root. The transform that the factory has set acts before the placement.
void addPlaced(geometry::ShapeNode& root, geometry::ShapeNode* node, const QMatrix4x4& placement)
{
    if (!node)
        return;
    node->setTransform(placement * node->getTransform());
    root.addChild(node);
}

void addBody(geometry::ShapeNode& root, const geometry::ShapeFactory& factory,
             const dataobject::Implant3D& implant, float margin)
{
    // Evaluated before the call, since the order of a call's arguments is the compiler's choice and
    // the order of calls on the host is not.
    const float radius = zoneRadius(implant, margin);
    const float height = implant.getDimensions().length;
    geometry::ShapeNode* body = factory.generateCylinder(radius, height, false, false);
    QMatrix4x4 placement;
    placement.translate(QVector3D(0.0F, 0.0F, -implant.getDimensions().length * 0.5F));
    addPlaced(root, body, placement);
}

void addApexCap(geometry::ShapeNode& root, const geometry::ShapeFactory& factory,
                const dataobject::Implant3D& implant, float margin)
{
    geometry::ShapeNode* cap = factory.generateCone(zoneRadius(implant, margin), margin, false);
    QMatrix4x4 placement;
    placement.rotate(180.0F, QVector3D(1.0F, 0.0F, 0.0F));
    placement.translate(QVector3D(0.0F, 0.0F, implant.getDimensions().length));
    addPlaced(root, cap, placement);
}

} // namespace

std::unique_ptr<geometry::ShapeNode>
generateSafetyZone(const std::unique_ptr<geometry::ShapeFactory>& factory,
                   dataobject::Implant3D& implant, float margin)
{
    auto root = std::make_unique<geometry::ShapeNode>(QStringLiteral("ImplantSafetyZone"));
    if (!factory)
        return root;
    addBody(*root, *factory, implant, margin);
    addApexCap(*root, *factory, implant, margin);
    return root;
}

namespace implantShapeParameters {

const QString kConnectionShape = QStringLiteral("ConnectionShape");
const QString kConnectionHeight = QStringLiteral("ConnectionHeight");
const QString kConnectionRadius = QStringLiteral("ConnectionRadius");
const QString kConnectionOffset = QStringLiteral("ConnectionOffset");
const QString kConnectionBond = QStringLiteral("ConnectionBond");
const QString kConnectionMaterial = QStringLiteral("ConnectionMaterial");

const QString kTissueLevelRestorationPoint = QStringLiteral("TissueLevelRestorationPoint");
const QString kTissueLevelNeckEdgeWidth = QStringLiteral("TissueLevelNeckEdgeWidth");
const QString kTissueLevelNeckRadius = QStringLiteral("TissueLevelNeckRadius");
const QString kTissueLevelBending = QStringLiteral("TissueLevelBending");
const QString kTissueLevelMaterial = QStringLiteral("TissueLevelMaterial");

const QString kCollarHeight = QStringLiteral("CollarHeight");
const QString kCollarTopRadius = QStringLiteral("CollarTopRadius");
const QString kCollarBottomRadius = QStringLiteral("CollarBottomRadius");
const QString kCollarThreadHeight = QStringLiteral("CollarThreadHeight");
const QString kCollarThreadEdgeWidth = QStringLiteral("CollarThreadEdgeWidth");
const QString kCollarThreadEdgeThickness = QStringLiteral("CollarThreadEdgeThickness");
const QString kCollarInterThreadDistance = QStringLiteral("CollarInterThreadDistance");
const QString kCollarDistanceBeforeFirstThread = QStringLiteral("CollarDistanceBeforeFirstThread");
const QString kCollarMaterial = QStringLiteral("CollarMaterial");

const QString kBodyHeight = QStringLiteral("BodyHeight");
const QString kBodyTopRadius = QStringLiteral("BodyTopRadius");
const QString kBodyBottomRadius = QStringLiteral("BodyBottomRadius");
const QString kBodyTaperHeight = QStringLiteral("BodyTaperHeight");
const QString kBodyThreadHeight = QStringLiteral("BodyThreadHeight");
const QString kBodyThreadEdgeWidth = QStringLiteral("BodyThreadEdgeWidth");
const QString kBodyThreadEdgeThickness = QStringLiteral("BodyThreadEdgeThickness");
const QString kBodyInterThreadDistance = QStringLiteral("BodyInterThreadDistance");
const QString kBodyDistanceBeforeFirstThread = QStringLiteral("BodyDistanceBeforeFirstThread");
const QString kBodyThreadTaperWidth = QStringLiteral("BodyThreadTaperWidth");
const QString kBodyThreadTaperHeight = QStringLiteral("BodyThreadTaperHeight");
const QString kBodyMaterial = QStringLiteral("BodyMaterial");

const QString kApexHeight = QStringLiteral("ApexHeight");
const QString kApexRadius = QStringLiteral("ApexRadius");
const QString kApexMaterial = QStringLiteral("ApexMaterial");

const QStringList kAll{
    kConnectionShape,
    kConnectionHeight,
    kConnectionRadius,
    kConnectionOffset,
    kConnectionBond,
    kConnectionMaterial,
    kTissueLevelRestorationPoint,
    kTissueLevelNeckEdgeWidth,
    kTissueLevelNeckRadius,
    kTissueLevelBending,
    kTissueLevelMaterial,
    kCollarHeight,
    kCollarTopRadius,
    kCollarBottomRadius,
    kCollarThreadHeight,
    kCollarThreadEdgeWidth,
    kCollarThreadEdgeThickness,
    kCollarInterThreadDistance,
    kCollarDistanceBeforeFirstThread,
    kCollarMaterial,
    kBodyHeight,
    kBodyTopRadius,
    kBodyBottomRadius,
    kBodyTaperHeight,
    kBodyThreadHeight,
    kBodyThreadEdgeWidth,
    kBodyThreadEdgeThickness,
    kBodyInterThreadDistance,
    kBodyDistanceBeforeFirstThread,
    kBodyThreadTaperWidth,
    kBodyThreadTaperHeight,
    kBodyMaterial,
    kApexHeight,
    kApexRadius,
    kApexMaterial,
};

} // namespace implantShapeParameters
} // namespace collision
