// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/reslice/ImplantRotationCalculator.h>

// Covered: the rotation that turns an implant square to the arch, the sample it is taken from,
// directions along the implant's axis, lines without path.

#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Implants.h>

#include <tests/support/ExactComparison.h>
#include <tests/support/ResliceBuilders.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using implantRotationCalculator::calculatePerpendicularRotation;
using test::expectFrame;
using test::RandomGeometry;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kTolerance = 0x1p-20F; // of unit vectors that went through a quaternion

const QVector3D kX(1.0F, 0.0F, 0.0F);
const QVector3D kY(0.0F, 1.0F, 0.0F);
const QVector3D kZ(0.0F, 0.0F, 1.0F);

// Has four samples along x and one direction for all, and records the queried index.
class RecordingLine : public GuidingLine
{
public:
    explicit RecordingLine(const QVector3D& perpendicularDirection)
        : direction(perpendicularDirection)
    {
        setOriginalPath(
            {{0.0F, 0.0F, 0.0F}, {10.0F, 0.0F, 0.0F}, {20.0F, 0.0F, 0.0F}, {30.0F, 0.0F, 0.0F}});
    }

    QVector3D getPerpendicularDirection(int pathIndex) const override
    {
        asked.append(pathIndex);
        return direction;
    }

    mutable QList<int> asked;

private:
    QVector3D direction;
};

void expectNear(const QVector3D& vector, const QVector3D& expected)
{
    EXPECT_LE((vector - expected).length(), kTolerance)
        << vector.x() << ", " << vector.y() << ", " << vector.z();
}

void expectIdentity(const QMatrix4x4& matrix)
{
    expectFrame(matrix, kX, kY, kZ, {});
}

TEST(ImplantRotationCalculator, TurnsLocalYToTheDirectionAcrossTheArch)
{
    RecordingLine line(kX);
    const QMatrix4x4 rotation = calculatePerpendicularRotation(line, {}, QMatrix4x4());
    expectNear(rotation.map(kY), kX); // a quarter turn, clockwise seen from above
    expectNear(rotation.map(kX), -kY);
    expectNear(rotation.map(kZ), kZ);
}

TEST(ImplantRotationCalculator, ImplantThatFacesAcrossTheArchIsNotTurned)
{
    RecordingLine line(kY);
    expectIdentity(calculatePerpendicularRotation(line, {}, QMatrix4x4()));
}

TEST(ImplantRotationCalculator, ImplantThatFacesTheOtherWayMakesAHalfTurnAboutItsAxis)
{
    RecordingLine line(-kY);
    expectFrame(calculatePerpendicularRotation(line, {}, QMatrix4x4()), -kX, -kY, kZ, {});
}

TEST(ImplantRotationCalculator, DirectionIsThatOfTheSampleNearestToThePosition)
{
    RecordingLine line(kX);
    calculatePerpendicularRotation(line, {19.0F, 40.0F, -7.0F}, QMatrix4x4());
    calculatePerpendicularRotation(line, {15.0F, 0.0F, 0.0F},
                                   QMatrix4x4()); // between two: the first
    calculatePerpendicularRotation(line, {1000.0F, 0.0F, 0.0F}, QMatrix4x4());
    EXPECT_EQ(line.asked, QList<int>({2, 1, 3}));
}

TEST(ImplantRotationCalculator, TakesTheDirectionIntoTheImplantsFrame)
{
    // The implant lies along the world's y axis: local x, y, z are the world's x, -z, y. Across the
    // arch is down, which is local y.
    RecordingLine line(-kZ);
    const QMatrix4x4 lying(1.0F, 0.0F, 0.0F, 5.0F,  //
                           0.0F, 0.0F, 1.0F, 6.0F,  //
                           0.0F, -1.0F, 0.0F, 7.0F, //
                           0.0F, 0.0F, 0.0F, 1.0F);
    expectIdentity(calculatePerpendicularRotation(line, {}, lying));

    RecordingLine toX(kX);
    expectNear(calculatePerpendicularRotation(toX, {}, lying).map(kY), kX);
}

TEST(ImplantRotationCalculator, PartOfTheDirectionAlongTheImplantsAxisIsIgnored)
{
    RecordingLine line(QVector3D(1.0F, 0.0F, 5.0F));
    expectNear(calculatePerpendicularRotation(line, {}, QMatrix4x4()).map(kY), kX);
}

TEST(ImplantRotationCalculator, TranslationOfTheImplantIsIgnored)
{
    RandomGeometry random(31);
    RecordingLine line(random.point(1.0F).normalized());
    const QMatrix4x4 placement = random.rigidPlacement();
    QMatrix4x4 atTheOrigin = placement;
    atTheOrigin.setColumn(3, QVector4D(0.0F, 0.0F, 0.0F, 1.0F));
    const QMatrix4x4 placed = calculatePerpendicularRotation(line, {}, placement);
    const QMatrix4x4 unplaced = calculatePerpendicularRotation(line, {}, atTheOrigin);
    for (int i = 0; i < 16; ++i)
        EXPECT_EQ(placed.constData()[i], unplaced.constData()[i]) << i;
}

TEST(ImplantRotationCalculator, DirectionAlongTheImplantsAxisGivesTheIdentity)
{
    RecordingLine up(kZ);
    expectIdentity(calculatePerpendicularRotation(up, {}, QMatrix4x4()));
    RecordingLine none{QVector3D()};
    expectIdentity(calculatePerpendicularRotation(none, {}, QMatrix4x4()));
}

TEST(ImplantRotationCalculator, LineWithoutPathGivesTheIdentityAndItsDirectionIsNotQueried)
{
    RecordingLine line(kX);
    line.setOriginalPath({});
    expectIdentity(calculatePerpendicularRotation(line, {}, QMatrix4x4()));
    EXPECT_TRUE(line.asked.isEmpty());
}

TEST(ImplantRotationCalculator, InputThatIsNotFiniteGivesTheIdentityOrIsIgnored)
{
    RecordingLine broken(QVector3D(kNan, 0.0F, 0.0F));
    expectIdentity(calculatePerpendicularRotation(broken, {}, QMatrix4x4()));

    RecordingLine line(kX);
    QMatrix4x4 notFinite;
    notFinite.fill(kNan);
    expectIdentity(calculatePerpendicularRotation(line, {}, notFinite));

    line.asked.clear();
    expectNear(calculatePerpendicularRotation(line, {kNan, 0.0F, 0.0F}, QMatrix4x4()).map(kY), kX);
    EXPECT_EQ(line.asked, QList<int>({0})); // the nearest sample to nowhere is the first
}

TEST(ImplantRotationCalculator, TransformWithoutInverseCountsAsTheIdentity)
{
    RecordingLine line(kX);
    QMatrix4x4 withoutInverse;
    withoutInverse.fill(0.0F);
    expectNear(calculatePerpendicularRotation(line, {}, withoutInverse).map(kY), kX);
}

TEST(ImplantRotationCalculator, TurnedImplantFacesAcrossTheArchAsFarAsItsAxisAllows)
{
    RandomGeometry random(32);
    for (int i = 0; i < 500; ++i) {
        SCOPED_TRACE(testing::Message() << "seed 32, case " << i);
        const QVector3D across = random.point(1.0F).normalized();
        RecordingLine line(across);
        dataobject::Implant3D implant;
        implant.setObjectTransform(random.rigidPlacement());
        const QMatrix4x4 rotation =
            calculatePerpendicularRotation(line, {}, implant.getObjectTransform());
        ASSERT_LE((rotation.mapVector(kZ) - kZ).length(), kTolerance);
        ASSERT_EQ(rotation.column(3), QVector4D(0.0F, 0.0F, 0.0F, 1.0F));

        const QMatrix4x4 turned = implant.getObjectTransform() * rotation;
        const QVector3D axis = turned.mapVector(kZ);
        const QVector3D wanted = across - axis * QVector3D::dotProduct(across, axis);
        if (wanted.length() < 0.1F) // hardly any direction left to face
            continue;
        ASSERT_LE((turned.mapVector(kY) - wanted.normalized()).length(), 0x1p-15F);
    }
}

// Uses the model's own line: an arch from the patient's right to the left has its perpendicular
// direction outwards.
TEST(ImplantRotationCalculator, ImplantOnAnArchFacesOutwards)
{
    GuidingLine arch;
    QList<QVector3D> path;
    for (int i = 0; i <= 180; ++i) {
        const float angle = static_cast<float>(i) * 0.0174532925F;
        path.append(QVector3D(-30.0F * std::cos(angle), -30.0F * std::sin(angle), 0.0F));
    }
    arch.setOriginalPath(path);
    const QMatrix4x4 rotation =
        calculatePerpendicularRotation(arch, {0.0F, -28.0F, 0.0F}, QMatrix4x4());
    EXPECT_LE((rotation.map(kY) - QVector3D(0.0F, -1.0F, 0.0F)).length(), 0x1p-10F);
}

} // namespace
