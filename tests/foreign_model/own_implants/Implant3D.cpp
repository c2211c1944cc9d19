// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Implant3D.h>

#include <QQuaternion>

namespace dataobject {

Implant3D::Implant3D(const CatalogEntry& catalogArticle, const QVector3D& platformMm,
                     const QVector3D& towardsPlatform)
    : article(catalogArticle), platform(platformMm), axis(towardsPlatform.normalized())
{}

QMatrix4x4 Implant3D::getObjectTransform() const
{
    QMatrix4x4 sceneFromImplant;
    sceneFromImplant.translate(platform);
    sceneFromImplant.rotate(QQuaternion::rotationTo(QVector3D(0.0F, 0.0F, 1.0F), axis));
    return sceneFromImplant;
}

void Implant3D::setObjectTransform(const QMatrix4x4& sceneFromImplant,
                                   TransformManipulationType /*reason*/)
{
    platform = sceneFromImplant.map(QVector3D());
    axis = sceneFromImplant.mapVector(QVector3D(0.0F, 0.0F, 1.0F)).normalized();
    changed();
}

} // namespace dataobject
