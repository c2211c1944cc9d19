// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>

/// \file
/// Declares surfaces of the patient and of devices for the patient. None derives from another, so
/// that a caller that moves one kind after the other moves no surface twice. All are moved
/// relatively, as Surface3DModel describes.

/// Represents the soft tissue of the face, which follows the planned movements of the bone.
class COREALGORITHMS_MODEL_EXPORT SoftTissueModel : public Surface3DModel
{
    COREALGORITHMS_TYPE(SoftTissueModel, Surface3DModel)
};

/// Represents the skin as the scan shows it.
class COREALGORITHMS_MODEL_EXPORT Skin : public Surface3DModel
{
    COREALGORITHMS_TYPE(Skin, Surface3DModel)
};

/// Represents a cut through bone.
class COREALGORITHMS_MODEL_EXPORT OsteotomySurface : public Surface3DModel
{
    COREALGORITHMS_TYPE(OsteotomySurface, Surface3DModel)
};

/// Represents a surface that is shown only, for instance one that was imported.
class COREALGORITHMS_MODEL_EXPORT ShowObject : public Surface3DModel
{
    COREALGORITHMS_TYPE(ShowObject, Surface3DModel)
};

namespace dataobject {

/// Represents a splint that holds the jaws in a bite during an operation.
class COREALGORITHMS_MODEL_EXPORT SurgicalSplint : public Surface3DModel
{
    COREALGORITHMS_TYPE(SurgicalSplint, Surface3DModel)
};

/// Represents the surface of the airway.
class COREALGORITHMS_MODEL_EXPORT Airway : public Surface3DModel
{
    COREALGORITHMS_TYPE(Airway, Surface3DModel)
};

/// Represents a photographed or scanned surface of the face.
class COREALGORITHMS_MODEL_EXPORT PatientSurfaceModel : public Surface3DModel
{
    COREALGORITHMS_TYPE(PatientSurfaceModel, Surface3DModel)
};

} // namespace dataobject
