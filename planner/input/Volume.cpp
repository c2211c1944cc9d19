// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/input/Volume.h>

namespace planner {

QVector3D Volume::counts() const
{
    const math::Ivec3 size = image.imageSize();
    return {static_cast<float>(size.x), static_cast<float>(size.y), static_cast<float>(size.z)};
}

std::array<QVector3D, 8> Volume::corners() const
{
    const QVector3D last = counts() - QVector3D(0.5F, 0.5F, 0.5F);
    std::array<QVector3D, 8> positions;
    for (unsigned i = 0; i < positions.size(); ++i)
        positions[i] = worldFromVoxel.map(QVector3D((i & 1U) != 0 ? last.x() : -0.5F,
                                                    (i & 2U) != 0 ? last.y() : -0.5F,
                                                    (i & 4U) != 0 ? last.z() : -0.5F));
    return positions;
}

QVector3D Volume::center() const
{
    return (corners().front() + corners().back()) / 2.0F;
}

primitives::BoundingBox Volume::extent() const
{
    const QVector3D half(0.5F, 0.5F, 0.5F);
    return primitives::BoundingBox(-half, counts() - half).transformed(worldFromVoxel);
}

QString unknownOrientationRemark()
{
    return QStringLiteral("The file does not state its orientation: right and left, front and back "
                          "are assumed, not known.");
}

} // namespace planner
