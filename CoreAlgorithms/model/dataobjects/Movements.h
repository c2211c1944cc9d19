// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/fundamentals/Optional.h>
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

#include <QList>
#include <QMatrix4x4>
#include <QObject>
#include <QString>
#include <QStringList>

#include <map>
#include <memory>

/// Which movement of a surgery a Movement is. The constants serve C++, the getters whoever holds an
/// object.
class COREALGORITHMS_MODEL_EXPORT MovementTypes : public QObject
{
public:
    // NOLINTBEGIN(readability-identifier-naming): the host's own names
    static const QString m_maxillary_occlusion_movement;
    static const QString m_mandibular_occlusion_movement;
    static const QString m_maxillary_segmental_occlusion_movement;
    static const QString m_mandibular_segmental_occlusion_movement;
    // NOLINTEND(readability-identifier-naming)

    explicit MovementTypes(QObject* parent);

    QString getMaxillaryOcclusionMovement() const;
    QString getMandibularOcclusionMovement() const;
    QString getMaxillarySegmentalOcclusionMovement() const;
    QString getMandibularSegmentalOcclusionMovement() const;
};

/// Where the bite of an occlusion movement comes from.
class COREALGORITHMS_MODEL_EXPORT MovementModes
{
public:
    // NOLINTBEGIN(readability-identifier-naming): the host's own names
    static const QString OCCLUSION_PLASTER_CAST_MODE;
    static const QString OCCLUSION_PATIENT_SCAN_MODE;
    static const QString OCCLUSION_VIRTUAL_MODE;
    // NOLINTEND(readability-identifier-naming)
};

/// A movement of jaw parts in a surgery: what it is, the part it moves first of all, and its modes.
class COREALGORITHMS_MODEL_EXPORT Movement : public DataObject
{
    COREALGORITHMS_TYPE(Movement, DataObject)

public:
    explicit Movement(const QString& movementTypeId);

    /// An identifier of MovementTypes, or the application's own.
    virtual QString getMovementType() const;

    /// Class identifier of the jaw part; empty for a new movement.
    virtual QString getPrimaryAffectedType() const;
    virtual void setPrimaryAffectedType(const QString& classTypeId);

    /// The mode in force: the one that was set last among those not removed; empty for none.
    virtual QString getMovementMode() const;
    /// All modes that were set and not removed, each once, the one in force last.
    virtual QStringList getMovementModes() const;
    virtual void setMovementMode(const QString& mode);
    /// Drops the mode; the one that was in force before it is in force again. Nothing for a mode
    /// not set.
    virtual void removeMovementMode(const QString& mode);

    /// Between the two, which nest, changes are those of undo or redo, not of the user. An end
    /// without a beginning does nothing.
    virtual void beginUndoRedo();
    virtual void endUndoRedo();
    bool isChangedByUndoRedo() const { return undoRedoDepth > 0; }

private:
    QString movementType;
    QString primaryAffectedType;
    QStringList modes;
    int undoRedoDepth = 0;
};

/// Marks a movement as being changed by undo or redo, for a scope. A null movement is allowed and
/// does nothing; the movement must outlive the lock.
class COREALGORITHMS_MODEL_EXPORT MovementUndoLock
{
public:
    explicit MovementUndoLock(Movement* movementToChange);
    MovementUndoLock(const MovementUndoLock&) = delete;
    MovementUndoLock& operator=(const MovementUndoLock&) = delete;
    ~MovementUndoLock();

private:
    Movement* movement;
};

/// A movement into a recorded bite: one transformation for each mode.
class COREALGORITHMS_MODEL_EXPORT OcclusionMovement : public Movement
{
    COREALGORITHMS_TYPE(OcclusionMovement, Movement)

public:
    using Movement::Movement;

    /// Of planning space onto itself; empty if the mode has none.
    virtual utility::Optional<QMatrix4x4> getOcclusionModeTransformation(const QString& mode) const;
    /// Adds or replaces.
    virtual void addOcclusionModeTransformation(const QString& mode,
                                                const QMatrix4x4& transformation);
    virtual void removeOcclusionModeTransformation(const QString& mode);

    /// The jaw that is treated; NoJaw for a new movement.
    virtual JawType getAffectedTreatmentType() const;
    virtual void setAffectedTreatmentType(JawType jaw);

private:
    std::map<QString, QMatrix4x4> transformations;
    JawType affectedTreatmentType = NoJaw;
};

/// A movement made of movements, for instance one for each segment of a jaw.
class COREALGORITHMS_MODEL_EXPORT CompositeMovement : public Movement
{
    COREALGORITHMS_TYPE(CompositeMovement, Movement)

public:
    using Movement::Movement;

    /// In the order in which they were added.
    virtual QList<Movement*> getMovements() const;
    /// Takes ownership; of a movement that is shared already, a share. Null, itself and one that is
    /// here already are ignored.
    virtual void addMovement(Movement* movement);

private:
    QList<std::shared_ptr<Movement>> movements;
};

/// A movement by one matrix, whatever the mode.
class COREALGORITHMS_MODEL_EXPORT FixedMovement : public Movement
{
    COREALGORITHMS_TYPE(FixedMovement, Movement)

public:
    using Movement::Movement;

    virtual QMatrix4x4 getTransformation() const;
    virtual void setTransformation(const QMatrix4x4& matrix);

private:
    QMatrix4x4 transformation;
};

/// A planned operation on the jaws: its movements.
class COREALGORITHMS_MODEL_EXPORT MaxillofacialSurgery : public DataObject
{
    COREALGORITHMS_TYPE(MaxillofacialSurgery, DataObject)

public:
    /// The first movement of this type; null for none.
    virtual Movement* getMovementByTypeIdentifier(const QString& movementType) const;
    /// In the order in which they were added.
    virtual QList<Movement*> getMovements() const;
    /// As CompositeMovement::addMovement().
    virtual void addMovement(Movement* movement);

private:
    QList<std::shared_ptr<Movement>> movements;
};
