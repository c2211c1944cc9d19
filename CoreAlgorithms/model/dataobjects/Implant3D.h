// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/dataobjects/ImplantDimensions.h>
#include <CoreAlgorithms/model/dataobjects/TransformManipulationType.h>

#include <QHashFunctions>
#include <QMatrix4x4>

#include <cstddef>
#include <memory>

namespace dataobject {

/// Represents a planned implant. In its own frame the platform is at the origin and the apex is at
/// z = -length.
class COREALGORITHMS_MODEL_EXPORT Implant3D : public DataObject
{
    COREALGORITHMS_TYPE(Implant3D, DataObject)

public:
    /// Returns diameter and length in mm; both are 0 for a new implant.
    virtual const ImplantDimensions& getDimensions() const;
    /// Sets diameter and length, stored as given. Notifies the observers.
    virtual void setDimensions(const ImplantDimensions& measures);

    /// Returns the matrix from the implant's own frame into the scene; the identity at first.
    virtual const QMatrix4x4& getObjectTransform() const;
    /// Replaces the placement and records why. Notifies the observers.
    virtual void setObjectTransform(
        const QMatrix4x4& sceneFromImplant,
        TransformManipulationType manipulation = TransformManipulationType::Unspecified);
    /// Returns the reason that the last setObjectTransform() was given.
    TransformManipulationType getLastManipulation() const { return lastManipulation; }

private:
    ImplantDimensions dimensions;
    QMatrix4x4 objectTransform;
    TransformManipulationType lastManipulation = TransformManipulationType::Unspecified;
};

// Qt 6.4 has no hash of shared pointers. The functions here and at other classes are no templates,
// so that the compiler prefers them to a template that a later Qt may bring.

/// Hashes by address, for sets and hashes of shared implants and of pairs of them.
inline std::size_t qHash(const std::shared_ptr<Implant3D>& object, std::size_t seed = 0) noexcept
{
    return ::qHash(object.get(), seed);
}

/// Hashes by address, like the function above.
inline std::size_t qHash(const std::shared_ptr<const Implant3D>& object,
                         std::size_t seed = 0) noexcept
{
    return ::qHash(object.get(), seed);
}

} // namespace dataobject
