// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/Landmarks.h>

// Covered: readLandmarks() and landmarksOf(): both ways to write a position, damaged files, tooth numbers.

#include <planner/Failure.h>

#include <phantom/Phantom.h>

#include <gmock/gmock.h>

#include <QFile>
#include <QTemporaryDir>

using planner::findLandmark;
using planner::Landmark;
using planner::LandmarkKind;

namespace {

class Landmarks : public testing::Test
{
protected:
    QString write(const QByteArray& json) const
    {
        QString path = folder.filePath(QStringLiteral("landmarks.json"));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(json);
        return path;
    }

    QList<Landmark> read(const QByteArray& json, const QMatrix4x4& worldFromVoxel = {}) const
    {
        return planner::readLandmarks(write(json), worldFromVoxel);
    }

    std::string refusal(const QByteArray& json) const
    {
        try {
            read(json);
        } catch (const planner::Failure& failure) {
            return failure.what();
        }
        return {};
    }

private:
    QTemporaryDir folder;
};

TEST_F(Landmarks, ReadsPositionsInTheWorld)
{
    const auto landmarks = read(R"({"mandibularForamen": {"right": [1, 2, 3], "left": [4, 5, 6]},
                                    "teeth": {"36": {"occlusal": [7, 8, 9], "apex": [10, 11, 12], "universal": 19}}})");
    ASSERT_EQ(landmarks.size(), 4);
    EXPECT_EQ(landmarks[0].name, QStringLiteral("mandibular foramen, right"));
    EXPECT_EQ(landmarks[0].position, QVector3D(1, 2, 3));
    EXPECT_EQ(landmarks[1].position, QVector3D(4, 5, 6));
    EXPECT_EQ(landmarks[2],
              (Landmark{QStringLiteral("tooth 36"), QStringLiteral("36"), LandmarkKind::Tooth, {7, 8, 9}}));
    EXPECT_EQ(landmarks[3],
              (Landmark{QStringLiteral("tooth 36, apex"), {}, LandmarkKind::Apex, {10, 11, 12}}));
}

TEST_F(Landmarks, PrefersWorldToVoxelPositions)
{
    const auto landmarks =
        read(R"({"lowerTeeth": {"43": {"voxel": [1, 1, 1], "lps": [237.5, 157, 1548.5]}}})");
    ASSERT_EQ(landmarks.size(), 1);
    EXPECT_EQ(landmarks[0].position, QVector3D(237.5F, 157, 1548.5F));
}

TEST_F(Landmarks, MapsVoxelPositionsThroughTheVolume)
{
    QMatrix4x4 worldFromVoxel;
    worldFromVoxel.translate(128, 112, 1500);
    const auto landmarks = read(R"({"mentalForamen": {"left": {"voxel": [144, 59.5, 34]}},
                                    "mandibleBodyMidline": {"note": "x", "voxel": [[122, 49, 36], [130, 51, 36]]}})",
                                worldFromVoxel);
    ASSERT_EQ(landmarks.size(), 3);
    EXPECT_EQ(landmarks[0].position, QVector3D(272, 171.5F, 1534));
    EXPECT_EQ(landmarks[1].kind, LandmarkKind::Arch);
    EXPECT_EQ(landmarks[1].name, QStringLiteral("arch point 1"));
    EXPECT_EQ(landmarks[2].position, QVector3D(258, 163, 1536));
}

TEST_F(Landmarks, AreRefusedInASentence)
{
    EXPECT_THAT(refusal(""), testing::HasSubstr("not a JSON object"));
    EXPECT_THAT(refusal("[1, 2"), testing::HasSubstr("not a JSON object"));
    EXPECT_THAT(refusal("[]"), testing::HasSubstr("not a JSON object"));
    EXPECT_THAT(refusal("{}"), testing::HasSubstr("no foramen, tooth or arch point"));
    EXPECT_THAT(refusal(R"({"mentalForamen": {"left": [1, 2]}})"),
                testing::HasSubstr("\"mental foramen, left\" is not three numbers"));
    EXPECT_THAT(refusal(R"({"mentalForamen": {"left": ["a", 2, 3]}})"),
                testing::HasSubstr("not three numbers"));
    EXPECT_THAT(refusal(R"({"mentalForamen": {"left": null}})"), testing::HasSubstr("not three numbers"));
    EXPECT_THAT(refusal(R"({"mentalForamen": {"left": {}}})"), testing::HasSubstr("not three numbers"));
    EXPECT_THAT(refusal(R"({"mentalForamen": {"left": [1e300, 2, 3]}})"),
                testing::HasSubstr("not three numbers"));
    EXPECT_THAT(refusal(R"({"teeth": {"36": {"occlusal": 7}}})"), testing::HasSubstr("\"tooth 36\""));
}

TEST_F(Landmarks, PassOverEntriesOfAnotherShape)
{
    const auto landmarks = read(R"({"teeth": [1], "mandibularForamen": 3, "upperTeeth": {"11": [1, 2, 3]}})");
    ASSERT_EQ(landmarks.size(), 1);
    EXPECT_EQ(landmarks[0].name, QStringLiteral("tooth 11"));
}

TEST_F(Landmarks, OfTheBuiltInPatientAreFourForaminaAndTwentyEightTeeth)
{
    const phantom::Patient patient;
    const auto landmarks = planner::landmarksOf(patient);
    EXPECT_EQ(landmarks.size(), 60);
    const Landmark* right = findLandmark(landmarks, QStringLiteral("mandibular foramen, right"));
    const Landmark* left = findLandmark(landmarks, QStringLiteral("mandibular foramen, left"));
    ASSERT_TRUE(right && left);
    EXPECT_LT(right->position.x(), left->position.x()); // x points to the patient's left
    EXPECT_EQ(right->position, patient.rightCanal().mandibularForamen);
    ASSERT_TRUE(findLandmark(landmarks, QStringLiteral("tooth 11")));
    EXPECT_LT(findLandmark(landmarks, QStringLiteral("tooth 11"))->position.x(),
              findLandmark(landmarks, QStringLiteral("tooth 21"))->position.x());
    EXPECT_EQ(findLandmark(landmarks, QStringLiteral("tooth 18")), nullptr);
}

TEST_F(Landmarks, ConvertUniversalToFdiNumbers)
{
    EXPECT_EQ(planner::fdiNumber(1), 18);
    EXPECT_EQ(planner::fdiNumber(8), 11);
    EXPECT_EQ(planner::fdiNumber(9), 21);
    EXPECT_EQ(planner::fdiNumber(16), 28);
    EXPECT_EQ(planner::fdiNumber(17), 38);
    EXPECT_EQ(planner::fdiNumber(24), 31);
    EXPECT_EQ(planner::fdiNumber(25), 41);
    EXPECT_EQ(planner::fdiNumber(32), 48);
}

TEST_F(Landmarks, ConvertFdiToUniversalNumbersAndBack)
{
    EXPECT_EQ(planner::universalNumber(18), 1);
    EXPECT_EQ(planner::universalNumber(11), 8);
    EXPECT_EQ(planner::universalNumber(38), 17);
    EXPECT_EQ(planner::universalNumber(41), 25);
    for (int universal = 1; universal <= 32; ++universal)
        EXPECT_EQ(planner::universalNumber(planner::fdiNumber(universal)), universal);
    for (const int none : {-11, 0, 5, 10, 19, 20, 49, 51, 111})
        EXPECT_EQ(planner::universalNumber(none), 0) << none;
}

TEST_F(Landmarks, CanalsAreReadFromRightToLeft)
{
    QMatrix4x4 twice;
    twice.scale(2);
    const auto canals =
        planner::readCanals(write(R"({"canal": {"left": {"points": [[1, 2, 3], {"voxel": [4, 5, 6]}]},
                                                                "right": {"points": [[7, 8, 9]]}}})"),
                            twice);
    ASSERT_EQ(canals.size(), 2);
    EXPECT_TRUE(canals[0].right);
    EXPECT_EQ(canals[0].points, (QList<QVector3D>{{7, 8, 9}}));
    EXPECT_FALSE(canals[1].right);
    EXPECT_EQ(canals[1].points, (QList<QVector3D>{{1, 2, 3}, {8, 10, 12}}));
}

TEST_F(Landmarks, FileWithoutCanalsHasNone)
{
    EXPECT_TRUE(planner::readCanals(write(R"({"canal": 5})"), {}).isEmpty());
    EXPECT_TRUE(planner::readCanals(write(R"({"canal": {"right": {"points": []}}})"), {}).isEmpty());
    EXPECT_THROW(planner::readCanals(write(R"({"canal": {"right": {"points": [[1, 2]]}}})"), {}),
                 planner::Failure);
}

TEST_F(Landmarks, CanalsOfTheBuiltInPatientRunFromForamenToForamen)
{
    const phantom::Patient patient;
    const auto canals = planner::canalsOf(patient);
    ASSERT_EQ(canals.size(), 2);
    EXPECT_TRUE(canals[0].right);
    EXPECT_EQ(canals[0].points.first(), patient.rightCanal().mandibularForamen);
    EXPECT_EQ(canals[1].points.last(), patient.leftCanal().mentalForamen);
}

} // namespace
