// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Describes annotations, poly-lines, distractors, root canals and collections of a plan.

#include <CoreAlgorithms/model/contract/Requirements.h>

#include <QList>
#include <QMatrix4x4>
#include <QString>
#include <QStringList>
#include <QVector3D>

#include <concepts>
#include <map>

namespace hostcontract {

// One requirement per line.
// clang-format off

/// Describes PointAnnotation and GreyValueMeasurement.
template <typename Annotation>
concept PositionedAnnotationFamily =
    requires(const Annotation& annotation, Annotation& changeable, const QVector3D& position)
{
    { annotation.getPosition() } -> Exactly<QVector3D>;
    changeable.changePosition(position);
};

/// Describes LineAnnotation.
template <typename Annotation>
concept LineAnnotationFamily =
    requires(const Annotation& annotation, Annotation& changeable, int index,
             const QVector3D& position)
{
    { annotation.getPositions() } -> Exactly<QList<QVector3D>>;
    changeable.changePosition(index, position);
};

/// Describes the objects that move themselves by a matrix: the 3-D annotations, ToothAnnotation3D,
/// dataobject::AttachablePoint, dataobject::PointBased3DAnnotationBase, CustomResliceAnnotation,
/// CephPlaneBase.
template <typename Object>
concept TransformableFamily = requires(Object& changeable, const QMatrix4x4& matrix)
{
    changeable.applyTransform(matrix);
};

/// Describes PointEditor. The place -1 and a null object stand for a free point.
template <typename Editor, typename Context>
concept PointEditorFamily =
    requires(Editor& editor, int index, Context context, const QVector3D& position)
{
    editor.changePoint(index, position, nullptr, index);
    editor.changePointInContext(index, position, context);
};

/// Describes PolyLine with its points and its editor, which may be null. A free point has a
/// position in the frame of value 0.
template <typename PolyLine, typename Point, typename Editor, typename Context>
concept PolyLineFamily =
    requires(const PolyLine& line, PolyLine& changeable, const Point& point, int index,
             Context context)
{
    { line.getNumPositions() } -> std::convertible_to<int>;
    { line.getPoint(index) } -> SharedPointerTo<Point>;
    { point.getLinkedObject() } -> Nullable;
    { line.getPosition(index, context) } -> Nullable;
    { line.getPosition(index, context).value() } -> Exactly<QVector3D>;
    { line.getSupportedContexts() } -> Exactly<QList<Context>>;
    { changeable.getPointEditor() } -> std::convertible_to<Editor*>;
};

/// Describes Distractor. Its tree may be null.
template <typename Distractor, typename Tree>
concept DistractorFamily =
    requires(const Distractor& distractor, Distractor& changeable, const QVector3D& position)
{
    { distractor.getTransform() } -> Exactly<QMatrix4x4>;
    { distractor.getSurfaceTree() } -> SharedPointerTo<Tree>;
    changeable.moveTo(position);
};

/// Describes dataobject::PlannedToPostOpCollection. It returns an empty optional for what it does
/// not hold.
template <typename Collection>
concept CollectionFamily =
    requires(const Collection& collection, Collection& changeable, const QString& partType,
             const std::map<QString, QMatrix4x4>& matrices, const QVector3D& point)
{
    { collection.getTransformationSurgeryPartTypes() } -> Exactly<QStringList>;
    { collection.getComparedSurgeryPartTypes() } -> Exactly<QStringList>;
    { collection.getFromPreOpToPlannedTransformation(partType) } -> Nullable;
    { collection.getFromPreOpToPlannedTransformation(partType).value() } -> Exactly<QMatrix4x4>;
    { collection.getFromPreOpToPostOpTransformation(partType) } -> Nullable;
    { collection.getFromPreOpToPostOpTransformation(partType).value() } -> Exactly<QMatrix4x4>;
    changeable.setFromPreOpToPlannedAndPostOpTransformations(matrices, matrices);
    { collection.getPreOpRotationPoint(partType) } -> Nullable;
    { collection.getPreOpRotationPoint(partType).value() } -> Exactly<QVector3D>;
    changeable.setPreOpRotationPoint(partType, point);
};

/// Describes dataobject::Apex and dataobject::RootCanal.
template <typename Apex, typename RootCanal>
concept RootFamily = requires(Apex& apex, RootCanal& canal, const QVector3D& position)
{
    { apex.getPosition() } -> Exactly<QVector3D>;
    apex.setPosition(position);
    { canal.getBasePosition() } -> Exactly<QVector3D>;
    canal.setBasePosition(position);
};

// clang-format on

} // namespace hostcontract
