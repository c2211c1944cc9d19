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

/// Creates the teeth that are labeled but missing in the patient's mouth, and links labels to
/// teeth.
///
/// A label and a tooth belong together when their tooth types are equal. A null diagnosis, or one
/// without anatomy or mouth, has nothing to create or to link; labels and teeth that are null are
/// skipped.
class COREALGORITHMS_EXPORT ToothGenerationTools
{
public:
    /// Returns a new tooth, with the status of value 0 and the category of value 1, for every label
    /// whose tooth the mouth lacks, by ascending number. A tooth that is labeled twice is created
    /// twice. The caller adds the teeth to the mouth.
    static std::vector<std::shared_ptr<dataobject::Tooth>>
    createMissingTeeth(const Diagnosis* diagnosis,
                       const QList<std::shared_ptr<ToothAnnotation3D>>& annotations);

    /// Links every tooth of the mouth to the first label of its type. Other labels do not change.
    static void
    linkTeethWithToothAnnotations(Diagnosis* diagnosis,
                                  const QList<std::shared_ptr<ToothAnnotation3D>>& annotations);
};
