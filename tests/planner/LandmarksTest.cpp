// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/input/Landmarks.h>

// Covered: readLandmarks() and landmarksOf(): both ways to write a position, canals, damaged files,
// tooth numbers, warnings; the example in docs.

#include <planner/input/Failure.h>

#include <phantom/Phantom.h>

#include <gmock/gmock.h>

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <utility>

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

    planner::LandmarkFile readFile(const QByteArray& json,
                                   const QMatrix4x4& worldFromVoxel = {}) const
    {
        return planner::readLandmarks(write(json), worldFromVoxel);
    }

    QList<Landmark> read(const QByteArray& json, const QMatrix4x4& worldFromVoxel = {}) const
    {
        return readFile(json, worldFromVoxel).landmarks;
    }

    std::string warnings(const QByteArray& json, const QMatrix4x4& worldFromVoxel = {}) const
    {
        return readFile(json, worldFromVoxel).warnings.join(u'\n').toStdString();
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
                                    "teeth": {"36": {"occlusal": [7, 8, 9], "apex": [10, 11, 12],
            "universal": 19}}})");
    ASSERT_EQ(landmarks.size(), 4);
    EXPECT_EQ(landmarks[0].name, QStringLiteral("mandibular foramen, right"));
    EXPECT_EQ(landmarks[0].position, QVector3D(1, 2, 3));
    EXPECT_EQ(landmarks[1].position, QVector3D(4, 5, 6));
    EXPECT_EQ(
        landmarks[2],
        (Landmark{
            QStringLiteral("tooth 36"), QStringLiteral("36"), LandmarkKind::Tooth, {7, 8, 9}}));
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
                                    "mandibleBodyMidline": {"note": "x", "voxel": [[122, 49, 36],
            [130, 51, 36]]}})",
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
    EXPECT_THAT(refusal(R"({"mentalForamen": {"left": null}})"),
                testing::HasSubstr("not three numbers"));
    EXPECT_THAT(refusal(R"({"mentalForamen": {"left": {}}})"),
                testing::HasSubstr("not three numbers"));
    EXPECT_THAT(refusal(R"({"mentalForamen": {"left": [1e300, 2, 3]}})"),
                testing::HasSubstr("not three numbers"));
    EXPECT_THAT(refusal(R"({"teeth": {"36": {"occlusal": 7}}})"),
                testing::HasSubstr("\"tooth 36\""));
}

TEST_F(Landmarks, PassOverEntriesOfAnotherShape)
{
    const auto landmarks =
        read(R"({"teeth": [1], "mandibularForamen": 3, "upperTeeth": {"11": [1, 2, 3]}})");
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

constexpr char kTooth[] = R"("teeth": {"36": {"occlusal": [90, 50, 50]}})";

QByteArray withTooth(const QByteArray& entries)
{
    return QByteArray("{") + kTooth + ", " + entries + "}";
}

QByteArray withLeftCanal(const QByteArray& course)
{
    return withTooth("\"canal\": {\"left\": " + course + "}");
}

TEST_F(Landmarks, CanalsAreReadFromRightToLeft)
{
    QMatrix4x4 twice;
    twice.scale(2);
    const auto canals = readFile(withTooth(R"("canal": {
        "left": {"points": [[1, 2, 3], {"voxel": [4, 5, 6]}], "meanRadiusMm": 1.25},
        "right": {"points": [[7, 8, 9], [7, 8, 9], [7, 8, 10]]}})"),
                                 twice)
                            .canals;
    ASSERT_EQ(canals.size(), 2);
    EXPECT_TRUE(canals[0].right);
    EXPECT_EQ(canals[0].points, (QList<QVector3D>{{7, 8, 9}, {7, 8, 10}})) << "without repetitions";
    EXPECT_EQ(canals[0].radiusMm, std::nullopt);
    EXPECT_FALSE(canals[1].right);
    EXPECT_EQ(canals[1].points, (QList<QVector3D>{{1, 2, 3}, {8, 10, 12}}));
    EXPECT_EQ(canals[1].radiusMm, 1.25F);
}

TEST_F(Landmarks, FileWithoutCanalsHasNone)
{
    EXPECT_TRUE(readFile(withTooth(R"("canal": 5)")).canals.isEmpty());
    EXPECT_TRUE(readFile(withTooth(R"("canal": {"right": {"points": []}})")).canals.isEmpty());
}

TEST_F(Landmarks, CanalOfASinglePointIsLeftOutWithAWarning)
{
    const auto file =
        readFile(withTooth(R"("canal": {"right": {"points": [[1, 2, 3], [1, 2, 3]]}})"));
    EXPECT_TRUE(file.canals.isEmpty());
    ASSERT_EQ(file.warnings.size(), 1);
    EXPECT_THAT(file.warnings.first().toStdString(),
                testing::HasSubstr("right canal has a single point"));
}

TEST_F(Landmarks, CanalsThatCannotBeAreRefused)
{
    EXPECT_THAT(refusal(withTooth(R"("canal": {"right": {"points": [[1, 2]]}})")),
                testing::HasSubstr("\"right canal\" is not three numbers"));
    EXPECT_THAT(refusal(withLeftCanal(R"({"points": [[0, 0, 0], [0, 0, 301]]})")),
                testing::HasSubstr("the left canal is 301 mm long"));
    for (const char* radius : {"0", "-1", "5.1", "\"1\"", "null"})
        EXPECT_THAT(refusal(withLeftCanal(
                        QByteArray(R"({"points": [[0, 0, 0], [0, 0, 1]], "meanRadiusMm": )") +
                        radius + "}")),
                    testing::HasSubstr("radius of the left canal"))
            << radius;
    EXPECT_THAT(refusal(withLeftCanal("{\"points\": [" + QByteArray("[1,2,3],").repeated(10000) +
                                      "[1,2,3]]}")),
                testing::HasSubstr("the left canal has 10001 points"));
}

TEST_F(Landmarks, MoreArchPointsThanAnArchHasAreRefused)
{
    EXPECT_THAT(refusal("{\"mandibleBodyMidline\": [" + QByteArray("[1,2,3],").repeated(99999) +
                        "[1,2,3]]}"),
                testing::HasSubstr("the arch has 100000 points, and at most 1000 are read"));
}

TEST_F(Landmarks, TeethAtOnePointAreRefused)
{
    EXPECT_THAT(refusal(R"({"lowerTeeth": {"35": [1, 2, 3], "36": [9, 2, 3], "37": [1, 2, 3.4]}})"),
                testing::HasSubstr("\"tooth 35\" and \"tooth 37\" are at the same point"));
    EXPECT_THAT(refusal(R"({"teeth": {"35": {"occlusal": [1, 2, 3], "apex": [1, 2, 3]}}})"),
                testing::HasSubstr("\"tooth 35\" and \"tooth 35, apex\""));
    EXPECT_EQ(read(R"({"lowerTeeth": {"35": [1, 2, 3]}, "teeth": {"35": {"occlusal": [1, 2, 3]}}})")
                  .size(),
              2)
        << "one tooth, given twice";
}

TEST_F(Landmarks, ToothNumbersThatDoNotExistAreLeftOutWithAWarning)
{
    for (const char* number :
         {"19", "99", "10", "0", "3", "51", "036", "+36", " 36", "36.0", "x", ""}) {
        const auto file =
            readFile(withTooth(QByteArray("\"lowerTeeth\": {\"") + number + "\": [1, 2, 3]}"));
        EXPECT_EQ(file.landmarks.size(), 1) << number;
        ASSERT_EQ(file.warnings.size(), 1) << number;
        EXPECT_TRUE(file.warnings.first().contains(
            QStringLiteral("There is no tooth \"%1\"").arg(QLatin1String(number))));
    }
    EXPECT_THAT(
        warnings(R"({"mentalForamen": {"left": [1, 2, 3]}, "teeth": {"49": {"apex": [1, 2, 3]}}})"),
        testing::HasSubstr("There is no tooth \"49\""));
}

TEST_F(Landmarks, WithLeftAndRightExchangedGetAWarning)
{
    EXPECT_THAT(warnings(R"({"mandibularForamen": {"right": [90, 0, 0], "left": [10, 0, 0]}})"),
                testing::HasSubstr("exchanged (mandibular foramina)"));
    EXPECT_THAT(warnings(R"({"mentalForamen": {"right": [90, 0, 0], "left": [10, 0, 0]}})"),
                testing::HasSubstr("exchanged (mental foramina)"));
    EXPECT_THAT(warnings(
                    R"({"upperTeeth": {"16": [90, 0, 0], "26": [10, 0, 0], "11": [40, 0, 0],
            "21": [60, 0, 0]},
                             "lowerTeeth": {"47": [90, 0, 9], "37": [10, 0, 9]}})"),
                testing::HasSubstr("exchanged (teeth 16 and 26, teeth 47 and 37)"));
    EXPECT_THAT(warnings(
                    R"({"lowerTeeth": {"41": [90, 0, 0], "42": [80, 0, 0], "43": [70, 0, 0],
            "44": [60, 0, 0],
                             "31": [9, 0, 0], "32": [8, 0, 0], "33": [7, 0, 0],
            "34": [6, 0, 0]}})"),
                testing::HasSubstr("exchanged (4 pairs of teeth)"));
    EXPECT_THAT(warnings(withTooth(R"("canal": {"right": {"points": [[90, 0, 0], [90, 9, 0]]},
                                                "left": {"points": [[10, 0, 0], [10, 9, 0]]}})")),
                testing::HasSubstr("exchanged (canals)"));
    EXPECT_EQ(warnings(R"({"mandibularForamen": {"right": [10, 0, 0], "left": [90, 0, 0]},
                           "mentalForamen": {"right": [20, 0, 0], "left": [80, 0, 0]},
                           "upperTeeth": {"16": [10, 0, 0], "26": [90, 0, 0], "17": [99, 0, 0]}})"),
              "");
}

TEST_F(Landmarks, WithACanalAwayFromItsForaminaGetAWarning)
{
    const char foramina[] =
        R"({"mandibularForamen": {"right": [0, 60, 0]}, "mentalForamen": {"right": [0, 0, 0]},)";
    const auto canal = [&foramina](const char* points) {
        return QByteArray(foramina) + R"("canal": {"right": {"points": )" + points + "}}}";
    };
    EXPECT_EQ(warnings(canal("[[0, 69, 0], [0, -9, 0]]")), "");
    EXPECT_EQ(warnings(canal("[[0, 71, 0], [0, -9, 0]]")),
              "The right canal starts 11 mm from the \"mandibular foramen, right\", where it "
              "should start.");
    EXPECT_EQ(
        warnings(canal("[[0, 69, 0], [0, -11, 0]]")),
        "The right canal ends 11 mm from the \"mental foramen, right\", where it should end.");
    EXPECT_THAT(warnings(canal("[[0, 0, 0], [0, 60, 0]]")), testing::HasSubstr("starts 60 mm"))
        << "reversed";
}

// An arch of 80 by 40 mm and the lower teeth and foramina outside it, all in voxels of 1 mm.
QByteArray archInVoxels(double scale)
{
    QByteArray arch;
    for (const auto& [x, y] :
         {std::pair{40, 80}, {50, 60}, {65, 45}, {80, 40}, {95, 45}, {110, 60}, {120, 80}})
        arch += (arch.isEmpty() ? "[" : ", [") + QByteArray::number(x * scale) + ", " +
                QByteArray::number(y * scale) + ", 30]";
    return R"({"lowerTeeth": {"45": {"voxel": [50, 55, 40]}, "41": {"voxel": [75, 36, 40]},
            "35": {"voxel": [112, 58, 40]}},
               "mentalForamen": {"right": {"voxel": [55, 48, 30]},
            "left": {"voxel": [103, 49, 30]}},
               "mandibleBodyMidline": {"voxel": [)" +
           arch + "]}}";
}

TEST_F(Landmarks, WithAnArchInVoxelsOfAnotherGridGetAWarning)
{
    EXPECT_EQ(warnings(archInVoxels(1.0)), "");
    EXPECT_THAT(warnings(archInVoxels(1.25)),
                testing::HasSubstr("from the line of the arch points on average"));
    EXPECT_THAT(warnings(archInVoxels(0.75)),
                testing::HasSubstr("from the line of the arch points on average"));
    EXPECT_THAT(warnings(archInVoxels(2.0)), testing::HasSubstr("span 160 mm from right to left"));
    EXPECT_THAT(warnings(R"({"mandibleBodyMidline": [[10, 20, 0], [20, 10, 0], [30, 20, 0]]})"),
                testing::HasSubstr("span 20 mm from right to left"));
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

TEST(LandmarkExample, DescribesTheBuiltInPatient)
{
    QMatrix4x4 halfMillimeters;
    halfMillimeters.scale(0.5F);
    const auto file =
        planner::readLandmarks(QStringLiteral(DOCS "/landmarks.json"), halfMillimeters);
    EXPECT_TRUE(file.warnings.isEmpty());

    const phantom::Patient patient;
    const QList<Landmark> known = planner::landmarksOf(patient);
    const auto& neckLine = patient.archCurve(ToothChart::LowerArch);
    int archPoints = 0;
    for (const Landmark& landmark : file.landmarks) {
        if (landmark.kind == LandmarkKind::Arch) {
            ++archPoints;
            EXPECT_TRUE(std::any_of(neckLine.cbegin(), neckLine.cend(),
                                    [&landmark](const QVector3D& sample) {
                                        return (sample - landmark.position).length() < 0.6F;
                                    }))
                << landmark.name.toStdString();
            continue;
        }
        const Landmark* truth = findLandmark(known, landmark.name);
        ASSERT_TRUE(truth) << landmark.name.toStdString();
        EXPECT_LT((truth->position - landmark.position).length(), 0.1F)
            << landmark.name.toStdString();
    }
    EXPECT_EQ(archPoints, 7);
    EXPECT_EQ(file.landmarks.size(), 4 + 8 + 7) << "foramina, crowns and apices, arch";

    ASSERT_EQ(file.canals.size(), 2);
    for (const planner::CanalLine& canal : file.canals) {
        const phantom::NerveCanal& truth = canal.right ? patient.rightCanal() : patient.leftCanal();
        EXPECT_EQ(canal.radiusMm, truth.radiusMm);
        for (const QVector3D& point : canal.points)
            EXPECT_TRUE(
                std::any_of(truth.centerLine.cbegin(), truth.centerLine.cend(),
                            [&point](const QVector3D& s) { return (s - point).length() < 0.1F; }));
    }
}

TEST(LandmarkExample, IsTheOneThatTheDocumentShows)
{
    const QByteArray example = contentOf(QStringLiteral(DOCS "/landmarks.json"));
    EXPECT_FALSE(example.isEmpty());
    EXPECT_TRUE(
        contentOf(QStringLiteral(DOCS "/landmarks.md")).contains("```json\n" + example + "```\n"));
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
