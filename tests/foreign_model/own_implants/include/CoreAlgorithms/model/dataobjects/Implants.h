// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/Shapes.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>

#include <QMatrix4x4>
#include <QString>
#include <QVector3D>

#include <cstddef>
#include <memory>

class GuidingSpline;

enum class TransformManipulationType : int { Dragged = 0, NewScannerFrame = 3 };

namespace dataobject {

/// An article of the clinic's catalog.
struct CatalogEntry
{
    QString number;
    float diameter;
    float length;
};

/// An implant of the clinic: an article of the catalog, the point of its platform in mm and its
/// axis from the apex to the platform. It stores no matrix.
class Implant3D : public DataObject
{
public:
    Implant3D(const CatalogEntry& article, const QVector3D& platform, const QVector3D& axis);

    static QString getClassTypeId() { return "clinic.implant"; }
    bool isOfType(const QString& id) const override
    {
        return id == getClassTypeId() || DataObject::isOfType(id);
    }

    const CatalogEntry& getDimensions() const { return article; }
    QMatrix4x4 getObjectTransform() const;
    void setObjectTransform(const QMatrix4x4& sceneFromImplant, TransformManipulationType reason);

private:
    CatalogEntry article;
    QVector3D platform;
    QVector3D axis;
};

/// A pin that holds a drilling template in the bone.
class AnchorPin3D : public DataObject
{
public:
    static QString getClassTypeId() { return "clinic.pin"; }
    bool isOfType(const QString& id) const override
    {
        return id == getClassTypeId() || DataObject::isOfType(id);
    }

    geometry::ShapeNode* getShapeNode() { return &shape; }
    QMatrix4x4 getObjectTransform() const { return placement; }
    void setObjectTransform(const QMatrix4x4& sceneFromPin, TransformManipulationType /*reason*/)
    {
        placement = sceneFromPin;
    }

private:
    geometry::ShapeNode shape{"pin"};
    QMatrix4x4 placement;
};

/// The surface around a nerve of the lower jaw, and the line along it.
class Nerve : public Surface3DModel
{
public:
    static QString getClassTypeId() { return "clinic.nerve"; }
    bool isOfType(const QString& id) const override
    {
        return id == getClassTypeId() || Surface3DModel::isOfType(id);
    }

    std::shared_ptr<GuidingSpline> getGuidingLine() const { return line; }

private:
    std::shared_ptr<GuidingSpline> line;
};

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
