// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/dataobjects/Movements.h>

#include <QMatrix4x4>
#include <QStringList>

#include <bit>
#include <cstdint>
#include <utility>

namespace test {

/// Holds a surgery and the four occlusion movements that it owns. No mode is set.
struct SurgeryWithMovements
{
    SurgeryWithMovements()
    {
        for (Movement* movement :
             QList<Movement*>{maxillary, mandibular, maxillaryParts, mandibularParts})
            surgery.addMovement(movement);
    }

    MaxillofacialSurgery surgery;
    OcclusionMovement* maxillary =
        new OcclusionMovement(MovementTypes::m_maxillary_occlusion_movement);
    OcclusionMovement* mandibular =
        new OcclusionMovement(MovementTypes::m_mandibular_occlusion_movement);
    CompositeMovement* maxillaryParts =
        new CompositeMovement(MovementTypes::m_maxillary_segmental_occlusion_movement);
    CompositeMovement* mandibularParts =
        new CompositeMovement(MovementTypes::m_mandibular_segmental_occlusion_movement);
};

/// Returns the bits of a matrix, for comparison and to be read.
inline QString bitsOf(const QMatrix4x4& matrix)
{
    QStringList words;
    for (int i = 0; i < 16; ++i)
        words << QString::number(std::bit_cast<std::uint32_t>(matrix.constData()[i]), 16);
    return words.join(u' ');
}

/// Returns all that a movement and its parts hold, as lines that are equal if no bit differs.
inline QStringList stateOf(const Movement& movement, const QStringList& modes)
{
    QStringList lines = {movement.getMovementType() + u'/' + movement.getPrimaryAffectedType() +
                         u'/' + movement.getMovementModes().join(u',')};
    if (const auto* occlusion = dynamic_cast<const OcclusionMovement*>(&movement)) {
        lines << QString::number(occlusion->getAffectedTreatmentType());
        for (const QString& mode : modes) {
            if (const auto matrix = occlusion->getOcclusionModeTransformation(mode))
                lines << mode + QStringLiteral(": ") + bitsOf(matrix.value());
        }
    }
    if (const auto* composite = dynamic_cast<const CompositeMovement*>(&movement)) {
        for (const Movement* part : composite->getMovements())
            lines += stateOf(*part, modes);
    }
    return lines;
}

/// Returns all that the movements of a surgery hold, as lines that are equal if no bit differs.
inline QStringList stateOf(const MaxillofacialSurgery& surgery, const QStringList& modes)
{
    QStringList lines;
    for (const Movement* movement : surgery.getMovements())
        lines += stateOf(*movement, modes);
    return lines;
}

/// Records the calls on a movement, in order, in a list that may be shared.
template <typename Kind>
class RecordingMovement : public Kind
{
public:
    RecordingMovement(const QString& typeId, QStringList& log, QString callerName = {})
        : Kind(typeId), calls(log), name(std::move(callerName))
    {}

    void beginUndoRedo() override
    {
        write(QStringLiteral("lock"));
        Kind::beginUndoRedo();
    }
    void endUndoRedo() override
    {
        write(QStringLiteral("unlock"));
        Kind::endUndoRedo();
    }
    void setMovementMode(const QString& mode) override
    {
        write(QStringLiteral("set mode ") + mode);
        Kind::setMovementMode(mode);
    }
    void removeMovementMode(const QString& mode) override
    {
        write(QStringLiteral("drop mode ") + mode);
        Kind::removeMovementMode(mode);
    }

protected:
    void write(const QString& call)
    {
        calls << (name.isEmpty() ? call : name + QStringLiteral(": ") + call);
    }

private:
    QStringList& calls;
    QString name;
};

class RecordingOcclusionMovement : public RecordingMovement<OcclusionMovement>
{
public:
    using RecordingMovement::RecordingMovement;

    utility::Optional<QMatrix4x4> getOcclusionModeTransformation(const QString& mode) const override
    {
        ++reads;
        return RecordingMovement::getOcclusionModeTransformation(mode);
    }
    void addOcclusionModeTransformation(const QString& mode,
                                        const QMatrix4x4& transformation) override
    {
        write(QStringLiteral("add ") + mode);
        RecordingMovement::addOcclusionModeTransformation(mode, transformation);
    }
    void removeOcclusionModeTransformation(const QString& mode) override
    {
        write(QStringLiteral("remove ") + mode);
        RecordingMovement::removeOcclusionModeTransformation(mode);
    }

    mutable int reads = 0;
};

class RecordingCompositeMovement : public RecordingMovement<CompositeMovement>
{
public:
    using RecordingMovement::RecordingMovement;

    void addMovement(Movement* movement) override
    {
        write(QStringLiteral("add ") + movement->getMovementType() + u'/' +
              movement->getPrimaryAffectedType());
        RecordingMovement::addMovement(movement);
    }
};

} // namespace test
