// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>

#include <QList>
#include <QMatrix4x4>
#include <QVector3D>

#include <memory>

class GuidingLine;
class Point;

namespace events {

/// Says what happened to a guiding line.
struct GuidingLineEvent
{
    enum Type : int {
        PathChanged = 0,
        PointAdded = 1,
        PointRemoved = 2,
        NumberOfPointsUpdated = 3
    };

    Type type = PathChanged;
};

} // namespace events

/// Represents a path along which other objects are laid, for instance the dental arch, as samples
/// in world mm.
///
/// Two kinds of observers can be attached: those of data objects, and those of the line, which
/// receive a GuidingLineEvent. Observers of the line are notified at once, also inside an editing
/// bracket.
class COREALGORITHMS_MODEL_EXPORT GuidingLine
    : public DataObject,
      public patterns::Observable<GuidingLine, events::GuidingLineEvent>
{
    COREALGORITHMS_TYPE(GuidingLine, DataObject)

public:
    using LineObservable = patterns::Observable<GuidingLine, events::GuidingLineEvent>;
    using DataObject::attach;
    using DataObject::detach;
    using DataObject::notify;
    using LineObservable::attach;
    using LineObservable::detach;

    /// Returns false while notification is switched off, for both kinds of observers.
    bool canNotifyObservers() const override;

    /// Returns the samples of the path in world mm.
    virtual const QList<QVector3D>& getOriginalPath() const;
    /// Replaces the path. Notifies both kinds of observers.
    virtual void setOriginalPath(const QList<QVector3D>& samples);

    /// Returns the points through which the path is drawn, in order. A line that is only a path has
    /// none.
    virtual QList<std::shared_ptr<Point>> getControlPoints() const;

    /// Returns the direction that counts as up along the whole line, as it was set; (0, 0, 1) for a
    /// new line.
    virtual QVector3D getUpperDirection() const;
    /// Sets the upper direction; the path does not change. Notifies the observers of data objects.
    virtual void setUpperDirection(const QVector3D& direction);

    /// Returns the unit vector along the path at a sample: from the previous sample to the next
    /// one, or between the sample and its only neighbor at the ends. Returns (0, 0, 0) for an index
    /// outside the path, and if the two samples coincide.
    virtual QVector3D getDirection(int pathIndex) const;
    /// Returns the unit vector along direction x upper direction at a sample. If z is up, it points
    /// outward for an arch that runs from the patient's right to the left. Returns (0, 0, 0) where
    /// the product vanishes.
    virtual QVector3D getPerpendicularDirection(int pathIndex) const;

    /// Moves the line. New control points replace the former ones, which keep their positions.
    /// Notifies both kinds of observers once.
    virtual void transformAndCreateNewPoints(const QMatrix4x4& matrix);

    /// Notifies the observers of the line once, with the event PathChanged.
    virtual void notifyGuidingLineObservers();

protected:
    /// Notifies the observers of the line once, with an event of this type.
    void notifyLineObservers(events::GuidingLineEvent::Type type);

private:
    QList<QVector3D> path;
    QVector3D upperDirection{0.0F, 0.0F, 1.0F};
};
