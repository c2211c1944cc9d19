// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

#include <QMatrix4x4>
#include <QSet>
#include <QVector3D>

#include <memory>

class Surface3DModel;

namespace dataobject {

/// One tooth of the patient.
class COREALGORITHMS_MODEL_EXPORT Tooth : public DataObject
{
    COREALGORITHMS_TYPE(Tooth, DataObject)

public:
    enum Status : int { Present = 0, Missing = 1, Planned = 2 };
    enum Category : int { Deciduous = 0, Permanent = 1 };

    Tooth(ToothChart::Tooth toothType, Status toothStatus, Category toothCategory);

    /// The tooth's number.
    virtual ToothChart::Tooth getToothType() const;
    virtual Status getStatus() const;
    virtual void setStatus(Status toothStatus);
    virtual Category getCategory() const;

private:
    ToothChart::Tooth type;
    Status status;
    Category category;
};

/// All teeth of the patient.
class COREALGORITHMS_MODEL_EXPORT Mouth : public DataObject
{
    COREALGORITHMS_TYPE(Mouth, DataObject)

public:
    /// A tooth takes the place of one of the same number; null is ignored.
    virtual void addTooth(const std::shared_ptr<Tooth>& tooth);
    /// Does nothing for a tooth that is none of the mouth's.
    virtual void removeTooth(const std::shared_ptr<Tooth>& tooth);

    virtual bool hasTooth(ToothChart::Tooth toothType) const;
    /// Null if the mouth has no such tooth.
    virtual std::shared_ptr<Tooth> getToothForToothType(ToothChart::Tooth toothType) const;
    virtual QSet<std::shared_ptr<Tooth>> getAllTeethUnsorted() const;

private:
    QMap<ToothChart::Tooth, std::shared_ptr<Tooth>> teeth;
};

} // namespace dataobject

/// What is known of the patient's body.
class COREALGORITHMS_MODEL_EXPORT Anatomy : public DataObject
{
    COREALGORITHMS_TYPE(Anatomy, DataObject)

public:
    /// Null while none has been set.
    virtual std::shared_ptr<dataobject::Mouth> getMouth() const;
    virtual void setMouth(std::shared_ptr<dataobject::Mouth> patientMouth);

    /// Skull and lower jaw as found before any surgery; null while none has been set.
    virtual std::shared_ptr<Surface3DModel> getOriginalCranium() const;
    virtual std::shared_ptr<Surface3DModel> getOriginalMandible() const;
    virtual void setOriginalModels(std::shared_ptr<Surface3DModel> originalCranium,
                                   std::shared_ptr<Surface3DModel> originalMandible);

private:
    std::shared_ptr<dataobject::Mouth> mouth;
    std::shared_ptr<Surface3DModel> cranium;
    std::shared_ptr<Surface3DModel> mandible;
};

/// The patient as found before any planning.
class COREALGORITHMS_MODEL_EXPORT Diagnosis : public DataObject
{
    COREALGORITHMS_TYPE(Diagnosis, DataObject)

public:
    /// Null while none has been set.
    virtual std::shared_ptr<Anatomy> getPatientAnatomy() const;
    virtual void setPatientAnatomy(std::shared_ptr<Anatomy> patientAnatomy);

private:
    std::shared_ptr<Anatomy> anatomy;
};

/// A label that marks a tooth in the 3-D view.
class COREALGORITHMS_MODEL_EXPORT ToothAnnotation3D : public DataObject
{
    COREALGORITHMS_TYPE(ToothAnnotation3D, DataObject)

public:
    /// Of the linked tooth; without one, the number that was set last or that the last linked tooth
    /// had. NoTooth for a new label.
    virtual ToothChart::Tooth getToothType() const;
    /// The number of a label that has no tooth yet; a linked tooth goes before it.
    virtual void setToothType(ToothChart::Tooth toothType);

    virtual std::shared_ptr<dataobject::Tooth> getTooth() const;
    /// Links the label to a tooth; null takes the link away.
    virtual void setTooth(const std::shared_ptr<dataobject::Tooth>& linkedTooth);

    /// World mm.
    virtual QVector3D getPosition() const;
    virtual void setPosition(const QVector3D& positionMm);
    /// Along the arch.
    virtual QVector3D getDirection() const;
    virtual void setDirection(const QVector3D& alongArch);

    virtual CreationType getCreationType() const;
    virtual void setCreationType(CreationType type);

    /// Moves position and direction.
    virtual void applyTransform(const QMatrix4x4& matrix);

private:
    std::shared_ptr<dataobject::Tooth> tooth;
    ToothChart::Tooth typeWithoutTooth = ToothChart::NoTooth;
    QVector3D position;
    QVector3D direction;
    CreationType creationType = AutomaticallyCreated;
};
