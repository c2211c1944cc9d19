// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>

#include <QHashFunctions>

#include <cstddef>
#include <memory>

class GuidingSpline;

namespace dataobject {

/// Represents a nerve as a surface of the scene, and the line along which the surface was made.
class COREALGORITHMS_MODEL_EXPORT Nerve : public Surface3DModel
{
    COREALGORITHMS_TYPE(Nerve, Surface3DModel)

public:
    /// Returns the line of the nerve, or null until one is set.
    virtual std::shared_ptr<GuidingSpline> getGuidingLine() const;
    /// Sets the line of the nerve, which may be null. Line and surface are moved separately.
    /// Notifies the observers.
    virtual void setGuidingLine(std::shared_ptr<GuidingSpline> guidingLine);

private:
    std::shared_ptr<GuidingSpline> line;
};

/// Hashes by address, for sets and hashes of shared nerves and of pairs of them.
inline std::size_t qHash(const std::shared_ptr<Nerve>& object, std::size_t seed = 0) noexcept
{
    return ::qHash(object.get(), seed);
}

} // namespace dataobject
