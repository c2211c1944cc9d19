// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>
#include <CoreAlgorithms/model/math/Spline3D.h>

#include <QList>
#include <QMap>
#include <QMatrix4x4>
#include <QVector3D>

#include <memory>

class GuidingLine;
class PlanarReslice;

/// Who made an object: the application by itself, or the user.
enum CreationType : int { AutomaticallyCreated = 0, ManuallyCreated = 1 };

namespace events {

/// What happened to a guiding line.
struct GuidingLineEvent
{
    enum Type : int {
        PathChanged = 0,
        PointAdded = 1,
        PointRemoved = 2,
        NumberOfPointsUpdated = 3
    };

    Type type = PathChanged;
};

} // namespace events

/// A position that has identity: what a user sets and drags, in world mm.
class COREALGORITHMS_MODEL_EXPORT Point : public DataObject
{
    COREALGORITHMS_TYPE(Point, DataObject)

public:
    Point() = default;
    explicit Point(const QVector3D& positionMm) : position(positionMm) {}

    virtual QVector3D getPosition() const;
    virtual void setPosition(const QVector3D& positionMm);

private:
    QVector3D position;
};

/// A path that other objects are laid along, for instance the dental arch, as samples in world mm.
///
/// Two kinds of observers may attach: those of any data object, and those of guiding lines with
/// their events.
class COREALGORITHMS_MODEL_EXPORT GuidingLine
    : public DataObject,
      public patterns::Observable<GuidingLine, events::GuidingLineEvent>
{
    COREALGORITHMS_TYPE(GuidingLine, DataObject)

public:
    using LineObservable = patterns::Observable<GuidingLine, events::GuidingLineEvent>;
    using DataObject::attach;
    using DataObject::detach;
    using DataObject::notify;
    using LineObservable::attach;
    using LineObservable::detach;

    bool canNotifyObservers() const override;

    virtual const QList<QVector3D>& getOriginalPath() const;
    /// Tells both kinds of observers; those of the line at once, also inside an editing bracket.
    virtual void setOriginalPath(const QList<QVector3D>& samples);

    /// The points that the path is drawn through, in order; a line that is nothing but a path has
    /// none.
    virtual QList<std::shared_ptr<Point>> getControlPoints() const;

    /// The direction that counts as up along the whole line; as set, (0, 0, 1) for a new line.
    virtual QVector3D getUpperDirection() const;
    /// Tells the observers of data objects; the path stays as it is.
    virtual void setUpperDirection(const QVector3D& direction);

    /// The unit vector along the path at a sample: from the sample before to the one behind, at the
    /// ends from or to the sample itself. (0, 0, 0) for an index outside the path, and where these
    /// coincide.
    virtual QVector3D getDirection(int pathIndex) const;
    /// The unit vector along direction x upper direction at a sample. With z up, that is outwards
    /// for an arch that runs from the patient's right to the left. (0, 0, 0) where the product
    /// vanishes.
    virtual QVector3D getPerpendicularDirection(int pathIndex) const;

    /// Moves the line. Control points are replaced by new ones, so that whoever holds the former
    /// ones keeps them unmoved. Tells both kinds of observers once.
    virtual void transformAndCreateNewPoints(const QMatrix4x4& matrix);

    /// Tells the line's observers once that its path has changed.
    virtual void notifyGuidingLineObservers();

protected:
    void notifyLineObservers(events::GuidingLineEvent::Type type);

private:
    QList<QVector3D> path;
    QVector3D upperDirection{0.0F, 0.0F, 1.0F};
};

/// A guiding line that is drawn through control points by a curve model, a CatmullRomSpline3D at
/// first.
///
/// The path is sampled when it is next asked for after a change. A change in the number of points
/// is told to both kinds of observers, those of the line by NumberOfPointsUpdated. The curve and
/// the distance of the samples are set quietly: whoever sets them announces it by
/// notifyGuidingLineObservers().
class COREALGORITHMS_MODEL_EXPORT GuidingSpline : public GuidingLine
{
    COREALGORITHMS_TYPE(GuidingSpline, GuidingLine)

public:
    GuidingSpline();

    const QList<QVector3D>& getOriginalPath() const override;
    /// The samples stand until the next change of points, curve or distance.
    void setOriginalPath(const QList<QVector3D>& samples) override;
    QList<std::shared_ptr<Point>> getControlPoints() const override;
    void transformAndCreateNewPoints(const QMatrix4x4& matrix) override;

    /// Null after null was set; the path is empty then.
    virtual const math::Spline3DInterface* getSpline() const;
    virtual void setSpline(std::unique_ptr<math::Spline3DInterface> curve);

    /// Distance of the samples along the path in mm, 0.1 at first; sampling says what a bad one
    /// gets.
    virtual float getSampleDistance() const;
    virtual void setSampleDistance(float distanceMm);

    virtual std::shared_ptr<Point> appendControlPoint(const QVector3D& position);
    /// Appends the point that ends the drawing of the spline. Every other change of the number of
    /// points opens it again.
    virtual std::shared_ptr<Point> appendLastControlPoint(const QVector3D& position);
    virtual bool isFinished() const;
    /// Does nothing for a point that is none of the spline's.
    virtual void removeControlPoint(const std::shared_ptr<Point>& point);
    /// Removes all control points.
    virtual void clear();

    /// To be called after positions of control points have changed: the path is sampled anew, and
    /// the observers of data objects are told. Those of the line are told by
    /// notifyGuidingLineObservers().
    virtual void pointsChanged();

protected:
    /// Takes as many new points as there are control points in the place of these, and tells
    /// nobody.
    virtual void replaceControlPoints(const QList<std::shared_ptr<Point>>& replacements);

private:
    std::shared_ptr<Point> append(const QVector3D& position, bool last);
    void numberOfPointsChanged();

    std::unique_ptr<math::Spline3DInterface> spline;
    QList<std::shared_ptr<Point>> points;
    float sampleDistance = 0.1F;
    bool finished = false;
    mutable QList<QVector3D> sampledPath;
    mutable bool pathIsStale = false;
};

/// A guiding spline that is drawn in a planar reslice.
class COREALGORITHMS_MODEL_EXPORT PlanarGuidingSpline : public GuidingSpline
{
    COREALGORITHMS_TYPE(PlanarGuidingSpline, GuidingSpline)

public:
    /// Null for a spline without one.
    virtual std::shared_ptr<PlanarReslice> getPlane() const;
    /// Tells the observers of data objects.
    virtual void setPlane(std::shared_ptr<PlanarReslice> reslice);

private:
    std::shared_ptr<PlanarReslice> plane;
};

/// The arch of a jaw: a spline some of whose control points are tagged as teeth.
///
/// Occlusal index, arch type and creation type are set quietly, like the curve.
class COREALGORITHMS_MODEL_EXPORT PlanarDentalSpline : public PlanarGuidingSpline
{
    COREALGORITHMS_TYPE(PlanarDentalSpline, PlanarGuidingSpline)

public:
    /// The points that are tagged, by ascending tooth.
    virtual QMap<ToothChart::Tooth, std::shared_ptr<Point>> getObjects() const;
    /// Tags a control point with the tooth. A tooth has one point and a point one tooth: former
    /// tags of either are taken away. A null point only takes the tooth's tag away; a point that is
    /// none of the spline's changes nothing. Tells the observers of data objects.
    virtual void setTooth(ToothChart::Tooth tooth, const std::shared_ptr<Point>& point);

    /// Removes all control points and tags.
    void clear() override;
    void removeControlPoint(const std::shared_ptr<Point>& point) override;

    /// Number of the CT's slice that holds the occlusal plane.
    virtual int getOcclusalIndex() const;
    virtual void setOcclusalIndex(int sliceIndex);

    virtual ToothChart::ArchType getArchType() const;
    virtual void setArchType(ToothChart::ArchType arch);

    virtual CreationType getCreationType() const;
    virtual void setCreationType(CreationType type);

protected:
    /// The new points carry the tags of those they replace.
    void replaceControlPoints(const QList<std::shared_ptr<Point>>& replacements) override;

private:
    QMap<ToothChart::Tooth, std::shared_ptr<Point>> teeth;
    int occlusalIndex = 0;
    ToothChart::ArchType archType = ToothChart::UpperArch;
    CreationType creationType = AutomaticallyCreated;
};
