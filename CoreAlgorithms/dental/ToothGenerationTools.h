// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <QList>

#include <memory>
#include <vector>

class Diagnosis;
class ToothAnnotation3D;

namespace dataobject {
class Tooth;
}

/// Which labelled teeth does the patient's mouth lack, and which label belongs to which tooth?
///
/// A label and a tooth belong together when their tooth types are equal. A null diagnosis, or one
/// without anatomy or mouth, has nothing to create or to link; labels and teeth that are null are
/// passed over.
class COREALGORITHMS_EXPORT ToothGenerationTools
{
public:
    /// A new tooth, with the status of value 0 and the category of value 1, for every label whose
    /// tooth the mouth lacks, by ascending number. A tooth that is labelled twice is created twice.
    /// The caller adds them to the mouth.
    static std::vector<std::shared_ptr<dataobject::Tooth>>
    createMissingTeeth(const Diagnosis* diagnosis,
                       const QList<std::shared_ptr<ToothAnnotation3D>>& annotations);

    /// Links every tooth of the mouth to the first label of its type. Other labels stay as they
    /// are.
    static void
    linkTeethWithToothAnnotations(Diagnosis* diagnosis,
                                  const QList<std::shared_ptr<ToothAnnotation3D>>& annotations);
};
