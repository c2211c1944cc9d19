// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/ImplantCollisionDetector.h>

#include <CoreAlgorithms/model/data/Shapes.h>
#include <CoreAlgorithms/model/dataobjects/Implant3D.h>

#include <memory>

using dataobject::CatalogEntry;
using dataobject::Implant3D;

int main()
{
    // Two implants of 4 mm collide, because they are 3 mm apart. The third one, 5 mm away, is free.
    const CatalogEntry article{"4010", 4.0F, 10.0F};
    const QVector3D up(0.0F, 0.0F, 1.0F);
    const auto left = std::make_shared<Implant3D>(article, QVector3D(0.0F, 0.0F, 0.0F), up);
    const auto middle = std::make_shared<Implant3D>(article, QVector3D(3.0F, 0.0F, 0.0F), up);
    const auto right = std::make_shared<Implant3D>(article, QVector3D(8.0F, 0.0F, 0.0F), up);

    geometry::ShapeLoader shapes;
    collision::ImplantCollisionDetector detector(shapes);
    detector.prepareAndStartDetection({left, middle, right}, {left, middle, right}, {}, {}, {}, {});
    return detector.isColliding(*left) && detector.isColliding(*middle) &&
                   !detector.isColliding(*right)
               ? 0
               : 1;
}
