// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/dataobjects/TransformManipulationType.h>

#include <QMatrix4x4>
#include <QString>
#include <QVector3D>

#include <cstddef>
#include <memory>

namespace dataobject {

/// Represents an article of the clinic's catalog.
struct CatalogEntry
{
    QString number;
    float diameter;
    float length;
};

/// Represents an implant of the clinic by an article of the catalog, the point of its platform in
/// mm and its axis from the apex to the platform. It stores no matrix.
class Implant3D : public DataObject
{
    COREALGORITHMS_TYPE(Implant3D, DataObject)

public:
    Implant3D(const CatalogEntry& article, const QVector3D& platform, const QVector3D& axis);

    const CatalogEntry& getDimensions() const { return article; }
    QMatrix4x4 getObjectTransform() const;
    void setObjectTransform(const QMatrix4x4& sceneFromImplant, TransformManipulationType reason);

private:
    CatalogEntry article;
    QVector3D platform;
    QVector3D axis;
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

} // namespace dataobject
