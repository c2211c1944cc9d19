// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/Mesh.h>
#include <CoreAlgorithms/model/dataobjects/Implants.h>

#include <QList>
#include <QString>
#include <QVector3D>

#include <memory>

namespace phantom {
class Patient;
}

namespace planner {

struct Case;

/// The radius of a canal, in mm, where it is not known.
inline constexpr float kAssumedCanalRadiusMm = 1.2F;

struct PlannedImplant
{
    QString name; ///< FDI number of the tooth that it replaces
    std::shared_ptr<dataobject::Implant3D> object;
};

struct PlannedNerve
{
    QString name;
    std::shared_ptr<dataobject::Nerve> object;
    QList<QVector3D> centerLine; ///< of the tube that the object's mesh is
    float radiusMm = 0.0F;
};

/// A shaft and a head. In the pin's own frame the tip is at the origin and the head on the z axis.
struct PlannedPin
{
    QString name;
    std::shared_ptr<dataobject::AnchorPin3D> object;
    float radiusMm = 0.0F; ///< of the shaft
    float lengthMm = 0.0F;
};

/// Implants, nerves and pins in a jaw, to be tested for collisions.
struct CollisionPlan
{
    QList<PlannedImplant> implants;
    QList<PlannedNerve> nerves;
    QList<PlannedPin> pins;
};

/// Plans in the lower jaw of the built-in patient: its teeth give way to eight implants, from right
/// to left, with both nerves as tubes in their canals and four pins for the surgical template, from
/// right to left. Not all is well with it: 36 is too long and leans over the nerve, 34 leans into
/// 33, and the third pin stands too near to 32.
CollisionPlan createCollisionPlan(const phantom::Patient& patient);
/// Plans in the built-in patient as above, and in another CT as far as its landmarks allow: an
/// implant in the place of each tooth of kImplantSites and a tube along each known canal.
CollisionPlan createCollisionPlan(const Case& planned);

/// Returns the surface of the implant's safety zone in the scene; of margin 0 the implant's
/// envelope.
geometry::Mesh zoneMesh(const PlannedImplant& implant, float margin);
/// Returns the surface of a pin in the scene.
geometry::Mesh pinMesh(const PlannedPin& pin);

} // namespace planner
