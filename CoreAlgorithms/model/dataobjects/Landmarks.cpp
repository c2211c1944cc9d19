// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Landmarks.h>

utility::Optional<QVector3D> LandmarkBase::getPosition(Context context) const
{
    const auto found = positions.constFind(context);
    if (found == positions.constEnd())
        return {};
    return *found;
}

void LandmarkBase::setPosition(Context context, const QVector3D& positionMm)
{
    positions.insert(context, positionMm);
    changed();
}

void LandmarkBase::clearPosition(Context context)
{
    positions.remove(context);
    changed();
}

namespace dataobject {

LandmarkAnnotation::LandmarkAnnotation(landmarkDetection::LandmarkType landmarkType)
    : type(landmarkType)
{}

landmarkDetection::LandmarkType LandmarkAnnotation::getType() const
{
    return type;
}

} // namespace dataobject
