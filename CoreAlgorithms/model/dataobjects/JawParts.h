// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>

/// A part of the skull that a surgery moves, as a surface. The class type identifiers of the jaw parts below
/// are the keys of every map of occlusion matrices.
class COREALGORITHMS_MODEL_EXPORT SurgeryPlanningPart : public Surface3DModel
{
public:
    static QString getClassTypeId();
    bool isOfType(const QString& classTypeId) const override;
};

/// The upper jaw in one piece.
class COREALGORITHMS_MODEL_EXPORT Maxilla : public SurgeryPlanningPart
{
public:
    static QString getClassTypeId();
    bool isOfType(const QString& classTypeId) const override;
};

/// The lower jaw.
class COREALGORITHMS_MODEL_EXPORT Mandibula : public SurgeryPlanningPart
{
public:
    static QString getClassTypeId();
    bool isOfType(const QString& classTypeId) const override;
};

/// The front teeth's segment of an upper jaw that is cut into segments.
class COREALGORITHMS_MODEL_EXPORT FrontSegment : public SurgeryPlanningPart
{
public:
    static QString getClassTypeId();
    bool isOfType(const QString& classTypeId) const override;
};

/// The segment on the patient's left.
class COREALGORITHMS_MODEL_EXPORT LeftSegment : public SurgeryPlanningPart
{
public:
    static QString getClassTypeId();
    bool isOfType(const QString& classTypeId) const override;
};

/// The segment on the patient's right.
class COREALGORITHMS_MODEL_EXPORT RightSegment : public SurgeryPlanningPart
{
public:
    static QString getClassTypeId();
    bool isOfType(const QString& classTypeId) const override;
};
