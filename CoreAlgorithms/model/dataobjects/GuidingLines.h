// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>

#include <QList>
#include <QVector3D>

class GuidingLine;

namespace events {

/// What happened to a guiding line.
struct GuidingLineEvent
{
    enum Type : int { PathChanged = 0, PointAdded = 1, PointRemoved = 2, NumberOfPointsUpdated = 3 };

    Type type = PathChanged;
};

} // namespace events

/// A path that other objects are laid along, for instance the dental arch, as samples in world mm.
///
/// Two kinds of observers may attach: those of any data object, and those of guiding lines with their events.
class COREALGORITHMS_MODEL_EXPORT GuidingLine
    : public DataObject,
      public patterns::Observable<GuidingLine, events::GuidingLineEvent>
{
public:
    using LineObservable = patterns::Observable<GuidingLine, events::GuidingLineEvent>;
    using DataObject::attach;
    using DataObject::detach;
    using DataObject::notify;
    using LineObservable::attach;
    using LineObservable::detach;

    static QString getClassTypeId();
    bool isOfType(const QString& classTypeId) const override;
    bool canNotifyObservers() const override;

    virtual const QList<QVector3D>& getOriginalPath() const;
    /// Tells both kinds of observers; those of the line at once, also inside an editing bracket.
    virtual void setOriginalPath(const QList<QVector3D>& samples);

    /// The direction that counts as up along the whole line; as set, (0, 0, 1) for a new line.
    virtual QVector3D getUpperDirection() const;
    /// Tells the observers of data objects; the path stays as it is.
    virtual void setUpperDirection(const QVector3D& direction);

    /// Tells the line's observers once that its path has changed.
    virtual void notifyGuidingLineObservers();

private:
    QList<QVector3D> path;
    QVector3D upperDirection{0.0F, 0.0F, 1.0F};
};
