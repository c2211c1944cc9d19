// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>

#include <QObject>
#include <QString>

/// Holds the identifiers of a surgery's movements. The constants serve C++, and the getters serve
/// callers that have an object.
class COREALGORITHMS_MODEL_EXPORT MovementTypes : public QObject
{
public:
    // NOLINTBEGIN(readability-identifier-naming): the host's own names
    static const QString m_maxillary_occlusion_movement;
    static const QString m_mandibular_occlusion_movement;
    static const QString m_maxillary_segmental_occlusion_movement;
    static const QString m_mandibular_segmental_occlusion_movement;
    // NOLINTEND(readability-identifier-naming)

    /// Constructs an object that belongs to the parent, which may be null.
    explicit MovementTypes(QObject* parent);

    /// Returns m_maxillary_occlusion_movement.
    QString getMaxillaryOcclusionMovement() const;
    /// Returns m_mandibular_occlusion_movement.
    QString getMandibularOcclusionMovement() const;
    /// Returns m_maxillary_segmental_occlusion_movement.
    QString getMaxillarySegmentalOcclusionMovement() const;
    /// Returns m_mandibular_segmental_occlusion_movement.
    QString getMandibularSegmentalOcclusionMovement() const;
};

/// Holds the modes of an occlusion movement, which say where its bite comes from.
class COREALGORITHMS_MODEL_EXPORT MovementModes
{
public:
    // NOLINTBEGIN(readability-identifier-naming): the host's own names
    static const QString OCCLUSION_PLASTER_CAST_MODE;
    static const QString OCCLUSION_PATIENT_SCAN_MODE;
    static const QString OCCLUSION_VIRTUAL_MODE;
    // NOLINTEND(readability-identifier-naming)
};
