// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Implant3D.h>

namespace dataobject {

const ImplantDimensions& Implant3D::getDimensions() const
{
    return dimensions;
}

void Implant3D::setDimensions(const ImplantDimensions& measures)
{
    dimensions = measures;
    changed();
}

const QMatrix4x4& Implant3D::getObjectTransform() const
{
    return objectTransform;
}

void Implant3D::setObjectTransform(const QMatrix4x4& sceneFromImplant,
                                   TransformManipulationType manipulation)
{
    objectTransform = sceneFromImplant;
    lastManipulation = manipulation;
    changed();
}

} // namespace dataobject
