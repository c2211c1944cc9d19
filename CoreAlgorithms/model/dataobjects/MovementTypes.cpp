// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/MovementTypes.h>

const QString MovementTypes::m_maxillary_occlusion_movement =
    QStringLiteral("MaxillaryOcclusionMovement");
const QString MovementTypes::m_mandibular_occlusion_movement =
    QStringLiteral("MandibularOcclusionMovement");
const QString MovementTypes::m_maxillary_segmental_occlusion_movement =
    QStringLiteral("MaxillarySegmentalOcclusionMovement");
const QString MovementTypes::m_mandibular_segmental_occlusion_movement =
    QStringLiteral("MandibularSegmentalOcclusionMovement");

MovementTypes::MovementTypes(QObject* parent) : QObject(parent) {}

QString MovementTypes::getMaxillaryOcclusionMovement() const
{
    return m_maxillary_occlusion_movement;
}

QString MovementTypes::getMandibularOcclusionMovement() const
{
    return m_mandibular_occlusion_movement;
}

QString MovementTypes::getMaxillarySegmentalOcclusionMovement() const
{
    return m_maxillary_segmental_occlusion_movement;
}

QString MovementTypes::getMandibularSegmentalOcclusionMovement() const
{
    return m_mandibular_segmental_occlusion_movement;
}

const QString MovementModes::OCCLUSION_PLASTER_CAST_MODE = QStringLiteral("OcclusionPlasterCast");
const QString MovementModes::OCCLUSION_PATIENT_SCAN_MODE = QStringLiteral("OcclusionPatientScan");
const QString MovementModes::OCCLUSION_VIRTUAL_MODE = QStringLiteral("OcclusionVirtual");
