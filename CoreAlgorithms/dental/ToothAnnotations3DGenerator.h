// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

#include <QList>
#include <QVector3D>

#include <memory>

class PlanarDentalSpline;
class ToothAnnotation3D;

namespace dataobject {
class Mouth;
class Tooth;
} // namespace dataobject

/// Creates the labels that mark teeth in the 3-D view.
///
/// A label is at the tooth's place on an arch spline (see ComputeIndexOnGuidingLine), 9 mm above
/// the occlusal height for teeth of the arch of value 0 and 9 mm below it for others, with the
/// spline's direction at that place; positions are in world mm. The occlusal height, the height at
/// which the teeth meet, is that of the CT of the spline's plane: the height of the center of its
/// bounding box times the occlusal center percentage (see occlusalPropertiesCalculator). Without a
/// CT it is the height of the path.
///
/// A tooth whose place is not found is labeled at (0, 0, occlusal height + offset). Null splines,
/// teeth and mouths get no labels. Nothing but the new labels is changed.
class COREALGORITHMS_EXPORT ToothAnnotations3DGenerator
{
public:
    /// Returns the labels of a mouth along one spline, or along two, each with the requested teeth
    /// of its own arch. Returns none for any other number of splines.
    ///
    /// Labels every tooth of the mouth between the first and the last tooth of a spline, requested
    /// or not. If teeth of both arches are requested, labels the requested opposites too, at the
    /// same place; those that the mouth lacks get labels without a tooth.
    static QList<std::shared_ptr<ToothAnnotation3D>>
    generate(const QList<PlanarDentalSpline*>& splines, const QList<ToothChart::Tooth>& teeth,
             dataobject::Mouth* mouth);

    /// Returns the label of one tooth, on the first spline of its arch or, without one, at its
    /// opposite's place on the first spline. Null if there is no spline or the tooth is not
    /// requested.
    static std::shared_ptr<ToothAnnotation3D> generate(const QList<PlanarDentalSpline*>& splines,
                                                       const QList<ToothChart::Tooth>& teeth,
                                                       std::shared_ptr<dataobject::Tooth> tooth);

private:
    friend struct ToothAnnotations3DGeneratorTestAccess;

    static QList<std::shared_ptr<ToothAnnotation3D>> generate(PlanarDentalSpline* spline,
                                                              const QList<ToothChart::Tooth>& teeth,
                                                              dataobject::Mouth* mouth);
    static QList<std::shared_ptr<ToothAnnotation3D>>
    createToothAnnotation(std::shared_ptr<dataobject::Tooth> tooth, ToothChart::ArchType archType,
                          QVector3D position, float offset, QVector3D direction,
                          const QList<ToothChart::Tooth>& teeth, bool bothArches,
                          dataobject::Mouth* mouth);
    static std::shared_ptr<ToothAnnotation3D>
    makeToothAnnotation(const std::shared_ptr<dataobject::Tooth>& tooth, QVector3D position,
                        float offset, const QVector3D& direction);
    /// Returns the occlusal height, or `height` if the plane of the spline has no CT.
    static float occlusalHeightOfSpline(PlanarDentalSpline* spline, float height);
    static QVector3D getDirection(PlanarDentalSpline* spline, QVector3D position);
    static ToothChart::Tooth getToothFromArchType(ToothChart::Tooth tooth,
                                                  ToothChart::ArchType archType);
};
