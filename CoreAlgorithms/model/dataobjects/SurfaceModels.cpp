// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>

const geometry::Mesh& Surface3DModel::getMesh() const
{
    return mesh;
}

void Surface3DModel::setMesh(const geometry::Mesh& surface)
{
    mesh = surface;
    objectTransform.setToIdentity();
    changed();
}

const QMatrix4x4& Surface3DModel::getObjectTransform() const
{
    return objectTransform;
}

void Surface3DModel::setObjectTransform(const QMatrix4x4& matrix)
{
    objectTransform = matrix * objectTransform;
    changed();
}

void Surface3DModel::refresh()
{
    mesh.applyTransformation(objectTransform);
    objectTransform.setToIdentity();
    changed();
}

QVector3D Surface3DModel::getCenterOfMass() const
{
    const QList<QVector3D>& vertices = getMesh().getVertices();
    if (vertices.isEmpty())
        return {};
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    for (const QVector3D& vertex : vertices) {
        x += double(vertex.x());
        y += double(vertex.y());
        z += double(vertex.z());
    }
    const auto count = static_cast<double>(vertices.size());
    return {static_cast<float>(x / count), static_cast<float>(y / count),
            static_cast<float>(z / count)};
}

primitives::BoundingBox Surface3DModel::getSceneBoundingBox() const
{
    geometry::PointSet placed(getMesh().getVertices());
    placed.applyTransformation(getObjectTransform());
    return placed.getBoundingBox();
}
