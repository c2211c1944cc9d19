// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/CreationType.h>
#include <CoreAlgorithms/model/dataobjects/PlanarGuidingSpline.h>
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

#include <QMap>

#include <memory>

/// Represents the arch of a jaw: a spline some of whose control points are tagged as teeth.
class COREALGORITHMS_MODEL_EXPORT PlanarDentalSpline : public PlanarGuidingSpline
{
    COREALGORITHMS_TYPE(PlanarDentalSpline, PlanarGuidingSpline)

public:
    /// Returns the tagged control points by ascending tooth.
    virtual QMap<ToothChart::Tooth, std::shared_ptr<Point>> getObjects() const;
    /// Tags a control point with a tooth. A tooth has one point and a point has one tooth: former
    /// tags of both are removed. A null point only removes the tag of the tooth. Notifies the
    /// observers of data objects. Does nothing if the point does not belong to the spline.
    virtual void setTooth(ToothChart::Tooth tooth, const std::shared_ptr<Point>& point);

    /// Removes all control points and tags. Notifies as GuidingSpline::clear() does.
    void clear() override;
    /// Removes a control point and its tag. Notifies as GuidingSpline::removeControlPoint() does.
    void removeControlPoint(const std::shared_ptr<Point>& point) override;

    /// Returns the number of the CT slice that holds the occlusal plane; 0 at first.
    virtual int getOcclusalIndex() const;
    /// Sets the number of the CT slice that holds the occlusal plane. Notifies nobody.
    virtual void setOcclusalIndex(int sliceIndex);

    /// Returns the arch; UpperArch at first.
    virtual ToothChart::ArchType getArchType() const;
    /// Sets the arch. Notifies nobody.
    virtual void setArchType(ToothChart::ArchType arch);

    /// Returns who made the arch; AutomaticallyCreated at first.
    virtual CreationType getCreationType() const;
    /// Sets who made the arch. Notifies nobody.
    virtual void setCreationType(CreationType type);

protected:
    /// Replaces the control points; the new ones take over the tags. Notifies nobody.
    void replaceControlPoints(const QList<std::shared_ptr<Point>>& replacements) override;

private:
    QMap<ToothChart::Tooth, std::shared_ptr<Point>> teeth;
    int occlusalIndex = 0;
    ToothChart::ArchType archType = ToothChart::UpperArch;
    CreationType creationType = AutomaticallyCreated;
};
