// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Annotations.h>

#include <algorithm>

namespace {

void mapAll(QList<QVector3D>& positions, const QMatrix4x4& matrix)
{
    std::transform(positions.cbegin(), positions.cend(), positions.begin(),
                   [&matrix](const QVector3D& position) { return matrix.map(position); });
}

} // namespace

QVector3D PointAnnotation::getPosition() const
{
    return position;
}

void PointAnnotation::changePosition(const QVector3D& positionMm)
{
    position = positionMm;
    changed();
}

QList<QVector3D> LineAnnotation::getPositions() const
{
    return positions;
}

void LineAnnotation::setPositions(const QList<QVector3D>& positionsMm)
{
    positions = positionsMm;
    changed();
}

void LineAnnotation::changePosition(int index, const QVector3D& positionMm)
{
    if (index < 0 || index >= positions.size())
        return;
    positions[index] = positionMm;
    changed();
}

QVector3D GreyValueMeasurement::getPosition() const
{
    return position;
}

void GreyValueMeasurement::changePosition(const QVector3D& positionMm)
{
    position = positionMm;
    changed();
}

float GreyValueMeasurement::getGreyValue() const
{
    return greyValue;
}

void GreyValueMeasurement::setGreyValue(float value)
{
    greyValue = value;
    changed();
}

QList<QVector3D> PencilAnnotation3D::getPositions() const
{
    return positions;
}

void PencilAnnotation3D::setPositions(const QList<QVector3D>& positionsMm)
{
    positions = positionsMm;
    changed();
}

void PencilAnnotation3D::applyTransform(const QMatrix4x4& matrix)
{
    mapAll(positions, matrix);
    changed();
}

QVector3D ArrowAnnotation3D::getTail() const
{
    return tail;
}

QVector3D ArrowAnnotation3D::getTip() const
{
    return tip;
}

void ArrowAnnotation3D::setArrow(const QVector3D& tailMm, const QVector3D& tipMm)
{
    tail = tailMm;
    tip = tipMm;
    changed();
}

void ArrowAnnotation3D::applyTransform(const QMatrix4x4& matrix)
{
    tail = matrix.map(tail);
    tip = matrix.map(tip);
    changed();
}

QVector3D CircleAnnotation3D::getCenter() const
{
    return center;
}

QVector3D CircleAnnotation3D::getNormal() const
{
    return normal;
}

float CircleAnnotation3D::getRadius() const
{
    return radius;
}

void CircleAnnotation3D::setCircle(const QVector3D& centerMm, const QVector3D& direction,
                                   float radiusMm)
{
    center = centerMm;
    normal = direction.normalized();
    radius = radiusMm;
    changed();
}

void CircleAnnotation3D::applyTransform(const QMatrix4x4& matrix)
{
    center = matrix.map(center);
    normal = matrix.mapVector(normal).normalized();
    changed();
}

QString TextAnnotation3D::getText() const
{
    return text;
}

void TextAnnotation3D::setText(const QString& words)
{
    text = words;
    changed();
}

QVector3D TextAnnotation3D::getPosition() const
{
    return position;
}

void TextAnnotation3D::setPosition(const QVector3D& positionMm)
{
    position = positionMm;
    changed();
}

void TextAnnotation3D::applyTransform(const QMatrix4x4& matrix)
{
    position = matrix.map(position);
    changed();
}

QMatrix4x4 CustomResliceAnnotation::getResliceTransform() const
{
    return resliceTransform;
}

void CustomResliceAnnotation::setResliceTransform(const QMatrix4x4& worldFromReslice)
{
    resliceTransform = worldFromReslice;
    changed();
}

void CustomResliceAnnotation::applyTransform(const QMatrix4x4& matrix)
{
    resliceTransform = matrix * resliceTransform;
    changed();
}

primitives::Plane CephPlaneBase::getPlane() const
{
    return plane;
}

void CephPlaneBase::setPlane(const primitives::Plane& worldPlane)
{
    plane = worldPlane;
    changed();
}

void CephPlaneBase::applyTransform(const QMatrix4x4& matrix)
{
    plane.transform(matrix);
    changed();
}

namespace dataobject {

QList<QVector3D> PointBased3DAnnotationBase::getPositions() const
{
    return positions;
}

void PointBased3DAnnotationBase::setPositions(const QList<QVector3D>& positionsMm)
{
    positions = positionsMm;
    changed();
}

void PointBased3DAnnotationBase::applyTransform(const QMatrix4x4& matrix)
{
    mapAll(positions, matrix);
    changed();
}

} // namespace dataobject
