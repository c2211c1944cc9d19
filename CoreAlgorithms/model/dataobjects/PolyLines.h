// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/AttachablePoint.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/dataobjects/Landmarks.h>
#include <CoreAlgorithms/model/fundamentals/Optional.h>

#include <QList>
#include <QMap>
#include <QVector3D>

#include <memory>

class PolyLine;

/// Represents a point of a poly-line: its position in each frame, and the object to which it is
/// tied. A tied point moves with its object and has no position of its own to change.
class COREALGORITHMS_MODEL_EXPORT PointInterface
{
public:
    PointInterface() = default;
    PointInterface(const PointInterface&) = delete;
    PointInterface& operator=(const PointInterface&) = delete;
    virtual ~PointInterface();

    /// Returns the object to which the point is tied, or null.
    virtual std::shared_ptr<DataObject> getLinkedObject() const = 0;
    /// Returns the position in a frame, in mm; empty if the point has none there.
    virtual utility::Optional<QVector3D> getPosition(Context context) const = 0;
};

/// Represents a free point with one position, which is valid in every frame.
class COREALGORITHMS_MODEL_EXPORT PointUnlinked : public PointInterface
{
public:
    /// Constructs a point without a position.
    PointUnlinked() = default;
    /// Constructs a point at a position in mm.
    explicit PointUnlinked(const QVector3D& positionMm) : position(positionMm) {}

    /// Returns null.
    std::shared_ptr<DataObject> getLinkedObject() const override;
    /// Returns the position, whatever the frame.
    utility::Optional<QVector3D> getPosition(Context context) const override;
    /// Sets the position in mm.
    virtual void setPosition(const QVector3D& positionMm);

private:
    utility::Optional<QVector3D> position;
};

/// Represents a point that is tied to an attachable point and has its position in every frame.
class COREALGORITHMS_MODEL_EXPORT PointLinked : public PointInterface
{
public:
    /// Constructs a point that is tied to this object. With null it has no position.
    explicit PointLinked(std::shared_ptr<dataobject::AttachablePoint> attachablePoint);

    std::shared_ptr<DataObject> getLinkedObject() const override;
    /// Returns the position of the object, whatever the frame.
    utility::Optional<QVector3D> getPosition(Context context) const override;

private:
    std::shared_ptr<dataobject::AttachablePoint> point;
};

namespace dataobject {

/// Represents a free point with a position for each frame.
class COREALGORITHMS_MODEL_EXPORT PointUnlinkedMultiPositions : public PointInterface
{
public:
    /// Returns null.
    std::shared_ptr<DataObject> getLinkedObject() const override;
    utility::Optional<QVector3D> getPosition(Context context) const override;
    /// Sets the position in a frame, in mm.
    virtual void setPosition(Context context, const QVector3D& positionMm);

private:
    QMap<Context, QVector3D> positions;
};

} // namespace dataobject

/// Changes the points of the poly-line that owns it. An index out of range changes nothing.
class COREALGORITHMS_MODEL_EXPORT PointEditor
{
public:
    /// Constructs the editor of a line, which must outlive it.
    explicit PointEditor(PolyLine& lineToEdit);
    PointEditor(const PointEditor&) = delete;
    PointEditor& operator=(const PointEditor&) = delete;
    virtual ~PointEditor();

    /// Ties the point to an attachable point or, with null, makes it a free point at the position.
    /// Notifies the observers of the line. `place` is the number of a place of the object, or -1
    /// for none; it is ignored here, because the objects of this model have one place.
    virtual void changePoint(int index, const QVector3D& positionMm,
                             const std::shared_ptr<dataobject::AttachablePoint>& object, int place);
    /// Sets the position in one frame of a PointUnlinkedMultiPositions. Notifies the observers of
    /// the line. Does nothing for other points.
    virtual void changePointInContext(int index, const QVector3D& positionMm, Context context);

private:
    PolyLine& line;
};

/// Represents a chain of points.
class COREALGORITHMS_MODEL_EXPORT PolyLine : public DataObject
{
    COREALGORITHMS_TYPE(PolyLine, DataObject)

public:
    /// Constructs a line without points.
    PolyLine();

    /// Returns the number of points.
    virtual int getNumPositions() const;
    /// Returns a point, or null for an index out of range.
    virtual std::shared_ptr<PointInterface> getPoint(int index) const;
    /// Returns the position of a point in a frame, in mm. Empty for an index out of range and if
    /// the point has no position there.
    virtual utility::Optional<QVector3D> getPosition(int index, Context context) const;
    /// Returns the frames in which the line is shown; only VolumeContext at first.
    virtual QList<Context> getSupportedContexts() const;
    /// Sets the frames in which the line is shown. Notifies the observers.
    virtual void setSupportedContexts(const QList<Context>& contexts);

    /// Appends a point. Notifies the observers. Does nothing for null.
    virtual void addPoint(std::shared_ptr<PointInterface> point);
    /// Replaces a point. Notifies the observers. Does nothing for null or an index out of range.
    virtual void replacePoint(int index, std::shared_ptr<PointInterface> point);

    /// Returns the editor of the points, which the line owns. Never null here.
    virtual PointEditor* getPointEditor();

private:
    QList<std::shared_ptr<PointInterface>> points;
    QList<Context> supportedContexts{VolumeContext};
    std::unique_ptr<PointEditor> editor;
};
