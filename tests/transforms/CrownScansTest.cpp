// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/transforms/OcclusionTransformCalculator.h>
#include <CoreAlgorithms/transforms/SurfaceScanTransformations.h>

// Covered: crowns of a real dentition, cut out of the teeth's surfaces and moved away by known
// matrices. The alignment chain must bring them back onto the teeth, the occlusion calculator the
// jaws onto each other.

#include <CoreAlgorithms/model/dataobjects/JawParts.h>
#include <CoreAlgorithms/model/dataobjects/Occlusions.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceScans.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <map>
#include <ostream>
#include <set>

namespace {

using Operations = SurfaceScanTransformations;

QByteArray contentsOf(const QString& name)
{
    QFile file(QStringLiteral(CROWN_SCANS_DIR "/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The distinct vertices of a binary STL file.
QList<QVector3D> verticesOf(const QString& name)
{
    const QByteArray bytes = contentsOf(QStringLiteral("meshes/") + name);
    constexpr int header = 84;
    constexpr int triangle = 50;
    std::set<std::array<float, 3>> seen;
    QList<QVector3D> vertices;
    for (qsizetype at = header; at + triangle <= bytes.size(); at += triangle) {
        std::array<std::array<float, 3>, 3> corners{};
        std::memcpy(corners.data(), bytes.constData() + at + 12, sizeof(corners));
        for (const auto& corner : corners) {
            if (seen.insert(corner).second)
                vertices.append({corner[0], corner[1], corner[2]});
        }
    }
    return vertices;
}

QJsonObject landmarks()
{
    static const QJsonObject once =
        QJsonDocument::fromJson(contentsOf(QStringLiteral("landmarks.json"))).object();
    return once;
}

using Rows = std::array<std::array<double, 4>, 4>;

// The inverse of the known matrix by which a raw scan was moved away.
Rows ctFromScanInDouble(const QString& jaw)
{
    const QJsonArray rows =
        landmarks()["surfaceScanStandIns"].toObject()[jaw].toObject()["ctFromScan"].toArray();
    Rows matrix{};
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            matrix[row][column] = rows[row].toArray()[column].toDouble();
    }
    return matrix;
}

QMatrix4x4 ctFromScan(const QString& jaw)
{
    const Rows rows = ctFromScanInDouble(jaw);
    QMatrix4x4 matrix;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            matrix(row, column) = static_cast<float>(rows[row][column]);
    }
    return matrix;
}

QMatrix4x4 rigid(float degrees, const QVector3D& axis, const QVector3D& shift)
{
    QMatrix4x4 matrix;
    matrix.translate(shift);
    matrix.rotate(degrees, axis);
    return matrix;
}

// Distances from vertices to the nearest vertex of the true teeth, in mm; 1 if there is none that
// near.
class Teeth
{
public:
    explicit Teeth(const QString& jaw)
    {
        for (const QVector3D& vertex : verticesOf(jaw + QStringLiteral("_teeth.stl")))
            cells[cellOf(vertex)].append(vertex);
    }

    bool isEmpty() const { return cells.empty(); }

    float distanceTo(const QVector3D& point) const
    {
        float nearest = 1.0F;
        for (int neighbour = 0; neighbour < 27; ++neighbour) {
            const int alongY = neighbour / 3 % 3 - 1;
            const int alongZ = neighbour / 9 - 1;
            const QVector3D step(float(neighbour % 3 - 1), float(alongY), float(alongZ));
            const auto found = cells.find(cellOf(point + step));
            if (found == cells.end())
                continue;
            for (const QVector3D& vertex : found->second)
                nearest = std::min(nearest, (vertex - point).length());
        }
        return nearest;
    }

private:
    static std::array<int, 3> cellOf(const QVector3D& point)
    {
        return {int(std::floor(point.x())), int(std::floor(point.y())), int(std::floor(point.z()))};
    }

    std::map<std::array<int, 3>, QList<QVector3D>> cells;
};

struct Jaw
{
    QString name;
    int verticesOfTheTeeth; // those of the scan that are vertices of the teeth too, counted in
                            // double precision
    int vertices;
};

void PrintTo(const Jaw& jaw, std::ostream* out)
{
    *out << jaw.name.toStdString();
}

const Jaw kLower{QStringLiteral("lower"), 9277, 10681};
const Jaw kUpper{QStringLiteral("upper"), 9111, 10457};

// Largest distance of a vertex from where the known matrix has the raw one, in double precision.
double distanceFromItsPlace(const QList<QVector3D>& vertices, const QString& jaw)
{
    const QList<QVector3D> raw = verticesOf(jaw + QStringLiteral("_scan.stl"));
    const Rows matrix = ctFromScanInDouble(jaw);
    double largest = raw.size() == vertices.size() ? 0.0 : std::numeric_limits<double>::infinity();
    for (qsizetype i = 0; i < std::min(raw.size(), vertices.size()); ++i) {
        double squared = 0.0;
        for (int row = 0; row < 3; ++row) {
            const double expected = matrix[row][0] * double(raw[i].x()) +
                                    matrix[row][1] * double(raw[i].y()) +
                                    matrix[row][2] * double(raw[i].z()) + matrix[row][3];
            const double off = double(vertices[i][row]) - expected;
            squared += off * off;
        }
        largest = std::max(largest, std::sqrt(squared));
    }
    return largest;
}

// Expects every vertex within 1e-3 mm of its true place. All but 5 of the vertices that the scan
// shares with the teeth are that near to a vertex of the teeth; the rest, from the cut, are on
// their surface, less than 1 mm from a vertex.
void expectOnTheTeeth(const SurfaceScan& scan, const Jaw& jaw)
{
    const Teeth teeth(jaw.name);
    ASSERT_FALSE(teeth.isEmpty());
    const QList<QVector3D>& vertices = scan.getMesh().getVertices();
    ASSERT_EQ(vertices.size(), jaw.vertices);
    EXPECT_LT(distanceFromItsPlace(vertices, jaw.name), 1e-3) << jaw.name.toStdString();
    int own = 0;
    int far = 0;
    for (const QVector3D& vertex : vertices) {
        const float distance = teeth.distanceTo(vertex);
        own += distance < 1e-3F ? 1 : 0;
        far += distance >= 1.0F ? 1 : 0;
    }
    EXPECT_GE(own, jaw.verticesOfTheTeeth - 5) << jaw.name.toStdString();
    EXPECT_EQ(far, 0) << jaw.name.toStdString();
}

const QMatrix4x4 kPlanning = rigid(25.0F, {1.0F, -2.0F, 0.5F}, {12.0F, -30.0F, 8.0F});

// The hand leaves the scan 3 mm and 4 degrees off, and the registration takes it to the teeth: with
// M = P and the error K of the hand, G = P^-1 * K^-1 * P.
SurfaceScanAlignment recordedAlignment(const QString& jaw)
{
    const QMatrix4x4 error = rigid(4.0F, {0.3F, 1.0F, -0.2F}, {2.0F, -1.0F, 2.0F});
    SurfaceScanAlignment alignment;
    alignment.initialTransform = rigid(-70.0F, {0.0F, 1.0F, 0.2F}, {40.0F, 10.0F, 60.0F});
    alignment.freehandTransform = error * ctFromScan(jaw) * alignment.initialTransform.inverted();
    alignment.referenceTransform = kPlanning;
    alignment.registrationTransform = kPlanning.inverted() * error.inverted() * kPlanning;
    return alignment;
}

class CrownScans : public testing::TestWithParam<Jaw>
{};

INSTANTIATE_TEST_SUITE_P(BothJaws, CrownScans, testing::Values(kLower, kUpper),
                         [](const auto& row) { return row.param.name.toStdString(); });

TEST_P(CrownScans, AreBroughtOntoTheTeethByTheAlignmentChainHoweverOftenTheyAreMoved)
{
    DentalScan scan;
    scan.setMesh(geometry::Mesh(verticesOf(GetParam().name + QStringLiteral("_scan.stl")), {}));
    scan.setSurfaceScanAlignment(recordedAlignment(GetParam().name));
    Operations::applyTransform(&scan, scan.getInitialTransform());
    for (int round = 0; round < 3; ++round) {
        Operations::initialToFreehand(&scan, kPlanning);
        Operations::freehandToRegistration(&scan, kPlanning);
        expectOnTheTeeth(scan, GetParam());
        Operations::freehandOrRegistratedToInitial(&scan, kPlanning);
    }
    Operations::initialToRegistrated(&scan, kPlanning);
    expectOnTheTeeth(scan, GetParam());
}

// A scan at its registered place, or 30 mm off where the hand has left it.
void place(DentalScan& scan, const Jaw& jaw, bool atItsPlace)
{
    SurfaceScanAlignment alignment = recordedAlignment(jaw.name);
    if (!atItsPlace) {
        alignment.freehandAligned = true;
        alignment.freehandTransform =
            rigid(50.0F, {0.1F, 0.2F, 1.0F}, {0.0F, 10.0F, -30.0F}) * alignment.freehandTransform;
    }
    scan.setMesh(geometry::Mesh(verticesOf(jaw.name + QStringLiteral("_scan.stl")), {}));
    Operations::setAlignment(&scan, alignment, kPlanning);
}

// The bite, in a frame of its own: both raw scans as they are to each other in the patient.
Occlusion& biteOf(Occlusion& occlusion)
{
    const QMatrix4x4 articulator = rigid(110.0F, {1.0F, 1.0F, 0.0F}, {-50.0F, 20.0F, 5.0F});
    occlusion.setTransformations(
        {{Maxilla::getClassTypeId(), articulator * ctFromScan(kUpper.name)},
         {Mandibula::getClassTypeId(), articulator * ctFromScan(kLower.name)}});
    return occlusion;
}

TEST(CrownScansInTheBite, LowerCrownsMoveUnderTheUpperOnesAsInThePatient)
{
    DentalScan maxilla;
    DentalScan mandibula;
    place(maxilla, kUpper, true);
    place(mandibula, kLower, false);
    Occlusion occlusion;
    OcclusionTransformCalculator calculator(biteOf(occlusion), maxilla, mandibula, kPlanning);
    Operations::applyTransform(
        &mandibula,
        calculator.calculateTransformations(OcclusionTransformCalculator::MandibulaToMaxilla)
            .at(Mandibula::getClassTypeId()));
    expectOnTheTeeth(mandibula, kLower);

    // and the occlusal points of the lower teeth lie on the scan's surface
    const QJsonObject teeth = landmarks()["teeth"].toObject();
    int lowerTeeth = 0;
    for (const QString& fdi : teeth.keys()) {
        if (fdi.toInt() < 31)
            continue;
        const QJsonArray position = teeth[fdi].toObject()["occlusal"].toArray();
        const QVector3D occlusal(float(position[0].toDouble()), float(position[1].toDouble()),
                                 float(position[2].toDouble()));
        float nearest = 100.0F;
        for (const QVector3D& vertex : mandibula.getMesh().getVertices())
            nearest = std::min(nearest, (vertex - occlusal).length());
        EXPECT_LT(nearest, 2.0F) << fdi.toStdString();
        ++lowerTeeth;
    }
    EXPECT_EQ(lowerTeeth, 14);
}

TEST(CrownScansInTheBite, UpperCrownsMoveOntoTheLowerOnesAsInThePatient)
{
    DentalScan maxilla;
    DentalScan mandibula;
    place(maxilla, kUpper, false);
    place(mandibula, kLower, true);
    Occlusion occlusion;
    OcclusionTransformCalculator calculator(biteOf(occlusion), maxilla, mandibula, kPlanning);
    Operations::applyTransform(
        &maxilla,
        calculator.calculateTransformations(OcclusionTransformCalculator::MaxillaToMandibula)
            .at(Maxilla::getClassTypeId()));
    expectOnTheTeeth(maxilla, kUpper);
}

} // namespace
