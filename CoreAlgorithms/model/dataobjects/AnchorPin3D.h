// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/data/Shapes.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/dataobjects/TransformManipulationType.h>

#include <QHashFunctions>
#include <QMatrix4x4>

#include <cstddef>
#include <memory>

namespace dataobject {

/// Represents a pin that fixes a surgical template to the jaw: a tree of shapes and its placement.
class COREALGORITHMS_MODEL_EXPORT AnchorPin3D : public DataObject
{
    COREALGORITHMS_TYPE(AnchorPin3D, DataObject)

public:
    /// Returns the root of the shapes, which the pin owns, or null until one is set.
    virtual geometry::ShapeNode* getShapeNode();
    /// Replaces the shapes; null removes them. Notifies the observers.
    virtual void setShapeNode(std::unique_ptr<geometry::ShapeNode> tree);

    /// Returns the matrix from the pin's own frame into the scene; the identity at first.
    virtual const QMatrix4x4& getObjectTransform() const;
    /// Replaces the placement and records why. Notifies the observers.
    virtual void setObjectTransform(
        const QMatrix4x4& sceneFromPin,
        TransformManipulationType manipulation = TransformManipulationType::Unspecified);
    /// Returns the reason that the last setObjectTransform() was given.
    TransformManipulationType getLastManipulation() const { return lastManipulation; }

private:
    std::unique_ptr<geometry::ShapeNode> shapeNode;
    QMatrix4x4 objectTransform;
    TransformManipulationType lastManipulation = TransformManipulationType::Unspecified;
};

/// Hashes by address, for sets and hashes of shared pins and of pairs of them.
inline std::size_t qHash(const std::shared_ptr<AnchorPin3D>& object, std::size_t seed = 0) noexcept
{
    return ::qHash(object.get(), seed);
}

} // namespace dataobject
