// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/Annotations.h>
#include <CoreAlgorithms/model/dataobjects/CTData.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/fundamentals/Optional.h>

#include <QList>
#include <QMap>
#include <QVector3D>

#include <memory>

class PolyLine;

/// A point of a poly-line: where it is in each frame, and what it is tied to. A tied point moves
/// with its object and has no position of its own to change.
class COREALGORITHMS_MODEL_EXPORT PointInterface
{
public:
    PointInterface() = default;
    PointInterface(const PointInterface&) = delete;
    PointInterface& operator=(const PointInterface&) = delete;
    virtual ~PointInterface();

    /// The object that the point is tied to; null for none.
    virtual std::shared_ptr<DataObject> getLinkedObject() const = 0;
    /// In mm; empty if the point has none in that frame.
    virtual utility::Optional<QVector3D> getPosition(Context context) const = 0;
};

/// A free point with one position, which holds in every frame.
class COREALGORITHMS_MODEL_EXPORT PointUnlinked : public PointInterface
{
public:
    PointUnlinked() = default;
    explicit PointUnlinked(const QVector3D& positionMm) : position(positionMm) {}

    std::shared_ptr<DataObject> getLinkedObject() const override;
    utility::Optional<QVector3D> getPosition(Context context) const override;
    virtual void setPosition(const QVector3D& positionMm);

private:
    utility::Optional<QVector3D> position;
};

/// A point that is tied to an attachable point and lies where that lies, in every frame.
class COREALGORITHMS_MODEL_EXPORT PointLinked : public PointInterface
{
public:
    explicit PointLinked(std::shared_ptr<dataobject::AttachablePoint> attachablePoint);

    std::shared_ptr<DataObject> getLinkedObject() const override;
    utility::Optional<QVector3D> getPosition(Context context) const override;

private:
    std::shared_ptr<dataobject::AttachablePoint> point;
};

namespace dataobject {

/// A free point with a position for each frame.
class COREALGORITHMS_MODEL_EXPORT PointUnlinkedMultiPositions : public PointInterface
{
public:
    std::shared_ptr<DataObject> getLinkedObject() const override;
    utility::Optional<QVector3D> getPosition(Context context) const override;
    virtual void setPosition(Context context, const QVector3D& positionMm);

private:
    QMap<Context, QVector3D> positions;
};

} // namespace dataobject

/// Changes points of a poly-line, which owns it. Points out of range stay out of reach: nothing
/// happens.
class COREALGORITHMS_MODEL_EXPORT PointEditor
{
public:
    explicit PointEditor(PolyLine& lineToEdit);
    PointEditor(const PointEditor&) = delete;
    PointEditor& operator=(const PointEditor&) = delete;
    virtual ~PointEditor();

    /// Ties the point to an attachable point; with null, sets it free at the position. `place`
    /// counts the places of the object that a point may be tied to, -1 for none; the objects of
    /// this model have one, and it plays no part.
    virtual void changePoint(int index, const QVector3D& positionMm,
                             const std::shared_ptr<dataobject::AttachablePoint>& object, int place);
    /// Sets the position of a point with a position for each frame in one of them. Other points
    /// stay.
    virtual void changePointInContext(int index, const QVector3D& positionMm, Context context);

private:
    PolyLine& line;
};

/// A chain of points.
class COREALGORITHMS_MODEL_EXPORT PolyLine : public DataObject
{
    COREALGORITHMS_TYPE(PolyLine, DataObject)

public:
    PolyLine();

    virtual int getNumPositions() const;
    /// Null for an index out of range.
    virtual std::shared_ptr<PointInterface> getPoint(int index) const;
    /// Of the point in a frame, in mm; empty for an index out of range and for a point that has
    /// none there.
    virtual utility::Optional<QVector3D> getPosition(int index, Context context) const;
    /// The frames that the line is shown in, VolumeContext alone at first.
    virtual QList<Context> getSupportedContexts() const;
    virtual void setSupportedContexts(const QList<Context>& contexts);

    /// Null is ignored.
    virtual void addPoint(std::shared_ptr<PointInterface> point);
    /// Null and an index out of range are ignored.
    virtual void replacePoint(int index, std::shared_ptr<PointInterface> point);

    /// Owned by the line, never null here.
    virtual PointEditor* getPointEditor();

private:
    QList<std::shared_ptr<PointInterface>> points;
    QList<Context> supportedContexts{VolumeContext};
    std::unique_ptr<PointEditor> editor;
};
