// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Calls one operation of every module with the same objects, which Scene.h makes in one of the two
// models, and prints the bits of the results.
#include <CoreAlgorithms/collision/ImplantSafetyZone.h>
#include <CoreAlgorithms/dental/ComputeIndexOnGuidingLine.h>
#include <CoreAlgorithms/greyvalue/BoneThresholdCalculator.h>
#include <CoreAlgorithms/reslice/IntersectionCalculator.h>
#include <CoreAlgorithms/transforms/OcclusionMovementCalculator.h>

#include <CoreAlgorithms/model/dataobjects/JawParts.h>

#include <Scene.h>

#include <QPointF>

#include <cstdio>

namespace {

void print(const char* what, float number)
{
    std::printf("%s %a\n", what, double(number));
}

void print(const char* what, const QVector3D& point)
{
    std::printf("%s %a %a %a\n", what, double(point.x()), double(point.y()), double(point.z()));
}

void print(const char* what, const QMatrix4x4& matrix)
{
    for (int column = 0; column < 4; ++column)
        print(what, matrix.column(column).toVector3D());
}

QMatrix4x4 placed(float x, float y, float z, float degrees, const QVector3D& axis)
{
    QMatrix4x4 matrix;
    matrix.translate(x, y, z);
    matrix.rotate(degrees, axis);
    return matrix;
}

void dental()
{
    QList<QVector3D> path;
    for (int sample = 0; sample <= 64; ++sample) {
        const float x = 0.5F * float(sample) - 16.0F;
        path.append({x, 0.5F * x * x, 0.25F});
    }
    const auto arch = scene::arch(path, {{3, path[4]}, {6, path[20]}, {11, path[49]}});
    const auto mouth = scene::mouth({4, 5, 9});
    print("index", float(ComputeIndexOnGuidingLine::getIndexOf({3.125F, 1.5F, 0.0F}, arch.get())));
    print("index",
          float(ComputeIndexOnGuidingLine::getToothIndex(ToothChart::Tooth(8), arch.get(), false)));
    for (const auto& [tooth, place] :
         ComputeIndexOnGuidingLine::getIntermediateTeeth(arch.get(), mouth.get())) {
        print("tooth", float(tooth));
        print("place", place);
    }
}

void reslice()
{
    const auto view = scene::view(placed(3.0F, -7.0F, 11.0F, 31.0F, {1.0F, 2.0F, 3.0F}), 64, 48);
    const QList<QVector3D> meetings = IntersectionCalculator::calculatePlaneIntersections(
        {20.0F, 9.0F, 18.0F}, {0.3F, 0.9F, -0.2F}, view.get());
    for (const QVector3D& meeting : meetings)
        print("meeting", meeting);
}

void collisionZones()
{
    const auto implant = scene::implant(4.1F, 11.5F);
    const auto zone = collision::generateSafetyZone(scene::factory(), *implant, 3.0F);
    for (const QMatrix4x4& placement : scene::placements(*zone))
        print("part", placement);
    for (const float measure : scene::measures(*zone))
        print("measure", measure);
}

void greyvalue()
{
    const auto volume = scene::volume(350.0F, 1200.0F, -1000, 3071);
    const auto pulp = scene::pulp(0.4F, 0.7F);
    BoneThresholdCalculator calculator(*volume);
    const auto shown = calculator.calculateMIPLevelWindowFunction({10.0, 20.0}, {33.0, 5.0});
    print("level", shown.level);
    print("window", shown.window);
    const auto dragged = calculator.calculatePulpFunction(*pulp, {10.0, 20.0}, {57.0, 15.0});
    print("pulp", dragged.pulpThreshold);
    print("material", dragged.restorationMaterialThreshold);
}

void transforms()
{
    OcclusionMovementCalculator::Data data;
    data.occlusionTransformations = {
        {Maxilla::getClassTypeId(), placed(1.0F, 2.0F, 3.0F, 10.0F, {0.0F, 1.0F, 1.0F})},
        {Mandibula::getClassTypeId(), placed(-2.0F, 0.5F, 7.0F, -25.0F, {1.0F, 0.0F, 2.0F})}};
    data.maxillaRegistration = placed(0.25F, 0.0F, -4.0F, 5.0F, {1.0F, 1.0F, 0.0F});
    data.mandibulaRegistration = placed(6.0F, -3.0F, 1.0F, 40.0F, {0.0F, 0.0F, 1.0F});
    const auto moves = OcclusionMovementCalculator(data).calculate();
    if (moves.maxillaryTransformation)
        print("maxilla", moves.maxillaryTransformation.value());
    if (moves.mandibularTransformation)
        print("mandibula", moves.mandibularTransformation.value());
}

} // namespace

int main()
{
    dental();
    reslice();
    collisionZones();
    greyvalue();
    transforms();
}
