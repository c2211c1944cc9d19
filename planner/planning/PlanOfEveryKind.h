// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/Mesh.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/dataobjects/Movements.h>

#include <QList>
#include <QMatrix4x4>
#include <QString>
#include <QVector3D>

#include <functional>
#include <memory>

namespace phantom {
class Patient;
}

namespace planner {

/// An object of the plan and how to read it.
struct PlannedObject
{
    int step;     ///< of PlanningApplyTransform, 1 to 37
    QString kind; ///< in words, for the table
    std::shared_ptr<DataObject> object;
    /// All its coordinates as they stand, mm; of a placement, its origin and the tips of its axes.
    std::function<QList<QVector3D>()> coordinates;
};

enum class SurfaceKind { Crowns, Arch, Nerve, Implant, Pin, Mark };

/// A surface of the plan, for pictures.
struct PlanSurface
{
    geometry::Mesh mesh; ///< in the world
    SurfaceKind kind = SurfaceKind::Crowns;
};

/// Returns the origin of a placement and the tips of its axes.
QList<QVector3D> cornersOf(const QMatrix4x4& placement);

/// A plan on the built-in patient with an object of every kind that a new scanner frame moves:
/// arches, labels and annotations at teeth and foramina, nerves along the canals, scans of the
/// crowns, implants, templates, a surgery with a recorded bite, and so on.
struct PlanOfEveryKind
{
    QList<PlannedObject> objects;                    ///< by step
    std::shared_ptr<MaxillofacialSurgery> surgery;   ///< with its four occlusion movements
    QList<std::shared_ptr<DataObject>> otherObjects; ///< those that no step moves: the CT, the bite
    /// Return the surfaces of scans, arches, nerves, implants, pins and marks as they stand.
    QList<std::function<QList<PlanSurface>()>> shown;

    QList<PlanSurface> surfaces() const;
    /// Returns all objects, as the library takes them.
    QList<DataObject*> dataObjects() const;

    void add(int step, const QString& kind, const std::shared_ptr<DataObject>& object,
             std::function<QList<QVector3D>()> coordinates);
    /// Adds an object that knows its positions, its position or its placement.
    template <typename Kind>
    void add(int step, const QString& kind, const std::shared_ptr<Kind>& object)
    {
        add(step, kind, object, [object]() -> QList<QVector3D> {
            if constexpr (requires { object->getPositions(); })
                return object->getPositions();
            else if constexpr (requires { object->getPosition(); })
                return {object->getPosition()};
            else
                return cornersOf(object->getObjectTransform());
        });
    }
};

/// Adds labels, marks, measurements and drawings: steps 2 to 13.
void addAnnotations(PlanOfEveryKind& plan, const phantom::Patient& patient);

/// Plans on the built-in patient. The crowns are the surfaces that a scanner sees.
PlanOfEveryKind planEveryKind(const phantom::Patient& patient, const geometry::Mesh& upperCrowns,
                              const geometry::Mesh& lowerCrowns);

} // namespace planner
