// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/data/Shapes.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>

#include <QHashFunctions>
#include <QMatrix4x4>

#include <cstddef>
#include <memory>

class GuidingSpline;

/// Why an object was placed anew.
enum class TransformManipulationType : int {
    Unspecified = 0,
    Translation = 1,
    Rotation = 2,
    ScannerTransformation = 3
};

namespace dataobject {

/// Outer measures of an implant in mm.
struct ImplantDimensions
{
    float diameter = 0.0F;
    float length = 0.0F;

    friend bool operator==(const ImplantDimensions&, const ImplantDimensions&) = default;
};

/// A planned implant. In its own frame the platform is at the origin and the apex at z = -length.
class COREALGORITHMS_MODEL_EXPORT Implant3D : public DataObject
{
    COREALGORITHMS_TYPE(Implant3D, DataObject)

public:
    virtual const ImplantDimensions& getDimensions() const;
    virtual void setDimensions(const ImplantDimensions& measures);

    /// From the implant's own frame into the scene.
    virtual const QMatrix4x4& getObjectTransform() const;
    /// Replaces the placement.
    virtual void setObjectTransform(
        const QMatrix4x4& sceneFromImplant,
        TransformManipulationType manipulation = TransformManipulationType::Unspecified);
    /// The kind of the last setObjectTransform().
    TransformManipulationType getLastManipulation() const { return lastManipulation; }

private:
    ImplantDimensions dimensions;
    QMatrix4x4 objectTransform;
    TransformManipulationType lastManipulation = TransformManipulationType::Unspecified;
};

/// A pin that fixes a surgical template to the jaw: a tree of shapes and its placement.
class COREALGORITHMS_MODEL_EXPORT AnchorPin3D : public DataObject
{
    COREALGORITHMS_TYPE(AnchorPin3D, DataObject)

public:
    /// Owned by the pin; null for a pin that has no shape yet.
    virtual geometry::ShapeNode* getShapeNode();
    virtual void setShapeNode(std::unique_ptr<geometry::ShapeNode> tree);

    /// From the pin's own frame into the scene.
    virtual const QMatrix4x4& getObjectTransform() const;
    /// Replaces the placement.
    virtual void setObjectTransform(
        const QMatrix4x4& sceneFromPin,
        TransformManipulationType manipulation = TransformManipulationType::Unspecified);
    /// The kind of the last setObjectTransform().
    TransformManipulationType getLastManipulation() const { return lastManipulation; }

private:
    std::unique_ptr<geometry::ShapeNode> shapeNode;
    QMatrix4x4 objectTransform;
    TransformManipulationType lastManipulation = TransformManipulationType::Unspecified;
};

/// A nerve as a surface of the scene.
class COREALGORITHMS_MODEL_EXPORT Nerve : public Surface3DModel
{
    COREALGORITHMS_TYPE(Nerve, Surface3DModel)

public:
    /// The line that the surface was made along; null until one is set. It is moved on its own.
    virtual std::shared_ptr<GuidingSpline> getGuidingLine() const;
    virtual void setGuidingLine(std::shared_ptr<GuidingSpline> guidingLine);

private:
    std::shared_ptr<GuidingSpline> line;
};

// Hashing by address, for sets and hashes of shared objects and of pairs of them. Qt 6.4 hashes
// neither. These are no templates: should a later Qt bring a template for every shared pointer, the
// compiler still prefers these.

inline std::size_t qHash(const std::shared_ptr<Implant3D>& object, std::size_t seed = 0) noexcept
{
    return ::qHash(object.get(), seed);
}

inline std::size_t qHash(const std::shared_ptr<const Implant3D>& object,
                         std::size_t seed = 0) noexcept
{
    return ::qHash(object.get(), seed);
}

inline std::size_t qHash(const std::shared_ptr<AnchorPin3D>& object, std::size_t seed = 0) noexcept
{
    return ::qHash(object.get(), seed);
}

inline std::size_t qHash(const std::shared_ptr<Nerve>& object, std::size_t seed = 0) noexcept
{
    return ::qHash(object.get(), seed);
}

} // namespace dataobject
