// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/dataobjects/MovementTypes.h>
#include <CoreAlgorithms/model/fundamentals/Optional.h>
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

#include <QList>
#include <QMatrix4x4>
#include <QString>
#include <QStringList>

#include <map>
#include <memory>

/// Represents a movement of jaw parts in a surgery by its type, the part that it moves first, and
/// its modes.
class COREALGORITHMS_MODEL_EXPORT Movement : public DataObject
{
    COREALGORITHMS_TYPE(Movement, DataObject)

public:
    /// Constructs a movement without modes. Its type does not change.
    explicit Movement(const QString& movementTypeId);

    /// Returns the type: an identifier of MovementTypes, or one of the application.
    virtual QString getMovementType() const;

    /// Returns the type identifier of the jaw part that is moved first; empty for a new movement.
    virtual QString getPrimaryAffectedType() const;
    /// Sets the type identifier of the jaw part that is moved first. Notifies the observers.
    virtual void setPrimaryAffectedType(const QString& classTypeId);

    /// Returns the mode in force, which is the last of getMovementModes(); empty if there is none.
    virtual QString getMovementMode() const;
    /// Returns all modes that were set and not removed, each once, in the order of setting.
    virtual QStringList getMovementModes() const;
    /// Puts a mode in force. Notifies the observers.
    virtual void setMovementMode(const QString& mode);
    /// Removes a mode; the mode before it is in force again. Notifies the observers. Does nothing
    /// for a mode that was not set.
    virtual void removeMovementMode(const QString& mode);

    /// Marks the following changes as those of undo or redo, not of the user, until the matching
    /// endUndoRedo(). Pairs nest.
    virtual void beginUndoRedo();
    /// Ends what beginUndoRedo() began. Does nothing without a beginning.
    virtual void endUndoRedo();
    /// Returns true while changes are those of undo or redo.
    bool isChangedByUndoRedo() const { return undoRedoDepth > 0; }

private:
    QString movementType;
    QString primaryAffectedType;
    QStringList modes;
    int undoRedoDepth = 0;
};

/// Marks a movement as being changed by undo or redo, for a scope. The movement may be null and
/// must outlive the lock.
class COREALGORITHMS_MODEL_EXPORT MovementUndoLock
{
public:
    /// Calls Movement::beginUndoRedo(). Does nothing for null.
    explicit MovementUndoLock(Movement* movementToChange);
    MovementUndoLock(const MovementUndoLock&) = delete;
    MovementUndoLock& operator=(const MovementUndoLock&) = delete;
    /// Calls Movement::endUndoRedo().
    ~MovementUndoLock();

private:
    Movement* movement;
};

/// Represents a movement into a recorded bite, with one transformation for each mode.
class COREALGORITHMS_MODEL_EXPORT OcclusionMovement : public Movement
{
    COREALGORITHMS_TYPE(OcclusionMovement, Movement)

public:
    using Movement::Movement;

    /// Returns the transformation of planning space onto itself for a mode; empty if there is none.
    virtual utility::Optional<QMatrix4x4> getOcclusionModeTransformation(const QString& mode) const;
    /// Adds or replaces the transformation of a mode. Notifies the observers.
    virtual void addOcclusionModeTransformation(const QString& mode,
                                                const QMatrix4x4& transformation);
    /// Removes the transformation of a mode. Notifies the observers if there was one.
    virtual void removeOcclusionModeTransformation(const QString& mode);

    /// Returns the jaw that is treated; NoJaw for a new movement.
    virtual JawType getAffectedTreatmentType() const;
    /// Sets the jaw that is treated. Notifies the observers.
    virtual void setAffectedTreatmentType(JawType jaw);

private:
    std::map<QString, QMatrix4x4> transformations;
    JawType affectedTreatmentType = NoJaw;
};

/// Represents a movement that consists of movements, for instance one for each segment of a jaw.
class COREALGORITHMS_MODEL_EXPORT CompositeMovement : public Movement
{
    COREALGORITHMS_TYPE(CompositeMovement, Movement)

public:
    using Movement::Movement;

    /// Returns the movements in the order in which they were added.
    virtual QList<Movement*> getMovements() const;
    /// Adds a movement and takes ownership of it, or a share if it is owned by shared pointers.
    /// Notifies the observers. Does nothing for null, for itself and for a movement that it has.
    virtual void addMovement(Movement* movement);

private:
    QList<std::shared_ptr<Movement>> movements;
};

/// Represents a movement by one matrix for all modes.
class COREALGORITHMS_MODEL_EXPORT FixedMovement : public Movement
{
    COREALGORITHMS_TYPE(FixedMovement, Movement)

public:
    using Movement::Movement;

    /// Returns the matrix; the identity at first.
    virtual QMatrix4x4 getTransformation() const;
    /// Sets the matrix. Notifies the observers.
    virtual void setTransformation(const QMatrix4x4& matrix);

private:
    QMatrix4x4 transformation;
};

/// Represents a planned operation on the jaws by its movements.
class COREALGORITHMS_MODEL_EXPORT MaxillofacialSurgery : public DataObject
{
    COREALGORITHMS_TYPE(MaxillofacialSurgery, DataObject)

public:
    /// Returns the first movement of this type, or null if there is none.
    virtual Movement* getMovementByTypeIdentifier(const QString& movementType) const;
    /// Returns the movements in the order in which they were added.
    virtual QList<Movement*> getMovements() const;
    /// Adds a movement as CompositeMovement::addMovement() does.
    virtual void addMovement(Movement* movement);

private:
    QList<std::shared_ptr<Movement>> movements;
};
