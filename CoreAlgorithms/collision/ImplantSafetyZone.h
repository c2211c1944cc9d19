// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <QString>
#include <QStringList>

#include <memory>

namespace dataobject {
class Implant3D;
} // namespace dataobject

namespace geometry {
class ShapeFactory;
class ShapeNode;
} // namespace geometry

namespace collision {

/// Returns the safety zone of an implant: a closed solid that represents the implant in collision
/// tests, made of a cylinder around the body and a cone below the apex. It is in the implant's own
/// frame, in mm; the implant's placement is ignored. With the diameter D, the length L and the
/// margin m:
///
///     z = 0            platform  +-------+    radius of both D / 2 + m / 2
///                                | body  |
///     z = -L           apex      +-------+
///     z = -(L + m)                 \___/      tip of the cone
///
/// The clearance is half the margin to the sides and the whole margin below the apex. With margin 0
/// the zone is the implant's own envelope, closed by a flat cone.
///
/// The root of the returned tree is named "ImplantSafetyZone" and has two children, the body and
/// the apex cap. Measures that are zero, negative or NaN are passed to the factory unchanged. A
/// child is missing if the factory is null or returns null for it.
COREALGORITHMS_EXPORT std::unique_ptr<geometry::ShapeNode>
generateSafetyZone(const std::unique_ptr<geometry::ShapeFactory>& factory,
                   dataobject::Implant3D& implant, float margin);

/// Names the parameters that describe an implant's shape in the host model. The text of each key is
/// its name without the leading k. No computation of this library reads the parameters.
namespace implantShapeParameters {

COREALGORITHMS_EXPORT extern const QString kConnectionShape;
COREALGORITHMS_EXPORT extern const QString kConnectionHeight;
COREALGORITHMS_EXPORT extern const QString kConnectionRadius;
COREALGORITHMS_EXPORT extern const QString kConnectionOffset;
COREALGORITHMS_EXPORT extern const QString kConnectionBond;
COREALGORITHMS_EXPORT extern const QString kConnectionMaterial;

COREALGORITHMS_EXPORT extern const QString kTissueLevelRestorationPoint;
COREALGORITHMS_EXPORT extern const QString kTissueLevelNeckEdgeWidth;
COREALGORITHMS_EXPORT extern const QString kTissueLevelNeckRadius;
COREALGORITHMS_EXPORT extern const QString kTissueLevelBending;
COREALGORITHMS_EXPORT extern const QString kTissueLevelMaterial;

COREALGORITHMS_EXPORT extern const QString kCollarHeight;
COREALGORITHMS_EXPORT extern const QString kCollarTopRadius;
COREALGORITHMS_EXPORT extern const QString kCollarBottomRadius;
COREALGORITHMS_EXPORT extern const QString kCollarThreadHeight;
COREALGORITHMS_EXPORT extern const QString kCollarThreadEdgeWidth;
COREALGORITHMS_EXPORT extern const QString kCollarThreadEdgeThickness;
COREALGORITHMS_EXPORT extern const QString kCollarInterThreadDistance;
COREALGORITHMS_EXPORT extern const QString kCollarDistanceBeforeFirstThread;
COREALGORITHMS_EXPORT extern const QString kCollarMaterial;

COREALGORITHMS_EXPORT extern const QString kBodyHeight;
COREALGORITHMS_EXPORT extern const QString kBodyTopRadius;
COREALGORITHMS_EXPORT extern const QString kBodyBottomRadius;
COREALGORITHMS_EXPORT extern const QString kBodyTaperHeight;
COREALGORITHMS_EXPORT extern const QString kBodyThreadHeight;
COREALGORITHMS_EXPORT extern const QString kBodyThreadEdgeWidth;
COREALGORITHMS_EXPORT extern const QString kBodyThreadEdgeThickness;
COREALGORITHMS_EXPORT extern const QString kBodyInterThreadDistance;
COREALGORITHMS_EXPORT extern const QString kBodyDistanceBeforeFirstThread;
COREALGORITHMS_EXPORT extern const QString kBodyThreadTaperWidth;
COREALGORITHMS_EXPORT extern const QString kBodyThreadTaperHeight;
COREALGORITHMS_EXPORT extern const QString kBodyMaterial;

COREALGORITHMS_EXPORT extern const QString kApexHeight;
COREALGORITHMS_EXPORT extern const QString kApexRadius;
COREALGORITHMS_EXPORT extern const QString kApexMaterial;

/// Holds all 35 keys in the order above.
COREALGORITHMS_EXPORT extern const QStringList kAll;

} // namespace implantShapeParameters

} // namespace collision
