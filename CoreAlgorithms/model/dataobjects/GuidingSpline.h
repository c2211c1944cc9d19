// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLine.h>
#include <CoreAlgorithms/model/dataobjects/Point.h>
#include <CoreAlgorithms/model/math/Spline3D.h>

#include <QList>
#include <QVector3D>

#include <memory>

/// Represents a guiding line that a curve model draws through control points.
///
/// The path is sampled when it is queried for the first time after a change. A change of the number
/// of points notifies both kinds of observers, those of the line with NumberOfPointsUpdated.
class COREALGORITHMS_MODEL_EXPORT GuidingSpline : public GuidingLine
{
    COREALGORITHMS_TYPE(GuidingSpline, GuidingLine)

public:
    /// Constructs a spline without points, with a math::CatmullRomSpline3D as its curve.
    GuidingSpline();

    /// Returns the samples of the curve in world mm. Samples them first if something has changed.
    const QList<QVector3D>& getOriginalPath() const override;
    /// Replaces the samples until the next change of points, curve or sample distance. Notifies
    /// both kinds of observers.
    void setOriginalPath(const QList<QVector3D>& samples) override;
    /// Returns the control points in order.
    QList<std::shared_ptr<Point>> getControlPoints() const override;
    /// Moves the line as GuidingLine does. Moves the path if there are no control points.
    void transformAndCreateNewPoints(const QMatrix4x4& matrix) override;

    /// Returns the curve, which may be null (see setSpline()); the path is then empty.
    virtual const math::Spline3DInterface* getSpline() const;
    /// Sets the curve. Notifies nobody; notifyGuidingLineObservers() announces the change.
    virtual void setSpline(std::unique_ptr<math::Spline3DInterface> curve);

    /// Returns the distance of the samples along the path in mm; 0.1 at first.
    virtual float getSampleDistance() const;
    /// Sets the distance of the samples; math::Spline3DInterface::sample() says what an invalid one
    /// gives. Notifies nobody, like setSpline().
    virtual void setSampleDistance(float distanceMm);

    /// Appends a control point at a position in world mm and returns it. Notifies both kinds of
    /// observers.
    virtual std::shared_ptr<Point> appendControlPoint(const QVector3D& position);
    /// Appends the control point that finishes the spline, as appendControlPoint() does. Every
    /// other change of the number of points makes it unfinished again.
    virtual std::shared_ptr<Point> appendLastControlPoint(const QVector3D& position);
    /// Returns true if appendLastControlPoint() made the last change of the number of points.
    virtual bool isFinished() const;
    /// Removes a control point. Notifies both kinds of observers. Does nothing if the point does
    /// not belong to the spline.
    virtual void removeControlPoint(const std::shared_ptr<Point>& point);
    /// Removes all control points. Notifies both kinds of observers if there were any.
    virtual void clear();

    /// Announces that positions of control points have changed: the path is sampled again, and the
    /// observers of data objects are notified. notifyGuidingLineObservers() notifies those of the
    /// line.
    virtual void pointsChanged();

protected:
    /// Replaces the control points by as many others. Notifies nobody.
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
