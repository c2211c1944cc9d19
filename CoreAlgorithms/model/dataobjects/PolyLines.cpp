// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/PolyLines.h>

#include <utility>

PointInterface::~PointInterface() = default;

std::shared_ptr<DataObject> PointUnlinked::getLinkedObject() const
{
    return {};
}

utility::Optional<QVector3D> PointUnlinked::getPosition(Context /*context*/) const
{
    return position;
}

void PointUnlinked::setPosition(const QVector3D& positionMm)
{
    position = positionMm;
}

PointLinked::PointLinked(std::shared_ptr<dataobject::AttachablePoint> attachablePoint)
    : point(std::move(attachablePoint))
{}

std::shared_ptr<DataObject> PointLinked::getLinkedObject() const
{
    return point;
}

utility::Optional<QVector3D> PointLinked::getPosition(Context /*context*/) const
{
    return point ? utility::Optional<QVector3D>(point->getPosition())
                 : utility::Optional<QVector3D>();
}

namespace dataobject {

std::shared_ptr<DataObject> PointUnlinkedMultiPositions::getLinkedObject() const
{
    return {};
}

utility::Optional<QVector3D> PointUnlinkedMultiPositions::getPosition(Context context) const
{
    const auto found = positions.find(context);
    return found == positions.end() ? utility::Optional<QVector3D>()
                                    : utility::Optional<QVector3D>(*found);
}

void PointUnlinkedMultiPositions::setPosition(Context context, const QVector3D& positionMm)
{
    positions.insert(context, positionMm);
}

} // namespace dataobject

PointEditor::PointEditor(PolyLine& lineToEdit) : line(lineToEdit) {}

PointEditor::~PointEditor() = default;

void PointEditor::changePoint(int index, const QVector3D& positionMm,
                              const std::shared_ptr<dataobject::AttachablePoint>& object,
                              int /*place*/)
{
    if (object)
        line.replacePoint(index, std::make_shared<PointLinked>(object));
    else
        line.replacePoint(index, std::make_shared<PointUnlinked>(positionMm));
}

void PointEditor::changePointInContext(int index, const QVector3D& positionMm, Context context)
{
    const auto point =
        std::dynamic_pointer_cast<dataobject::PointUnlinkedMultiPositions>(line.getPoint(index));
    if (!point)
        return;
    point->setPosition(context, positionMm);
    line.changed();
}

PolyLine::PolyLine() : editor(std::make_unique<PointEditor>(*this)) {}

int PolyLine::getNumPositions() const
{
    return static_cast<int>(points.size());
}

std::shared_ptr<PointInterface> PolyLine::getPoint(int index) const
{
    return points.value(index);
}

utility::Optional<QVector3D> PolyLine::getPosition(int index, Context context) const
{
    const auto point = getPoint(index);
    return point ? point->getPosition(context) : utility::Optional<QVector3D>();
}

QList<Context> PolyLine::getSupportedContexts() const
{
    return supportedContexts;
}

void PolyLine::setSupportedContexts(const QList<Context>& contexts)
{
    supportedContexts = contexts;
    changed();
}

void PolyLine::addPoint(std::shared_ptr<PointInterface> point)
{
    if (!point)
        return;
    points.append(std::move(point));
    changed();
}

void PolyLine::replacePoint(int index, std::shared_ptr<PointInterface> point)
{
    if (!point || index < 0 || index >= points.size())
        return;
    points[index] = std::move(point);
    changed();
}

PointEditor* PolyLine::getPointEditor()
{
    return editor.get();
}
