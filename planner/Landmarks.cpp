// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/Landmarks.h>

#include <planner/Failure.h>

#include <phantom/Phantom.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>

namespace planner {

namespace {

constexpr qint64 kLargestFileBytes = 64 << 20;
constexpr double kLargestCoordinate = 1e5; // mm or voxels; beyond it a file is damaged

QString toothName(const QString& fdi)
{
    return QStringLiteral("tooth %1").arg(fdi);
}

// Turns the entries of a landmark file into landmarks.
class LandmarkParser
{
public:
    LandmarkParser(const QString& path, const QMatrix4x4& matrix) : file(path), worldFromVoxel(matrix) {}

    QList<CanalLine> parseCanals(const QJsonObject& root) const
    {
        QList<CanalLine> canals;
        for (const bool right : {true, false}) {
            const QString side = right ? QStringLiteral("right") : QStringLiteral("left");
            const QJsonArray points = root[u"canal"][side][u"points"].toArray();
            CanalLine canal{right, {}};
            for (const auto& point : points)
                canal.points.append(position(QStringLiteral("canal, ") + side, point));
            if (!canal.points.isEmpty())
                canals.append(canal);
        }
        return canals;
    }

    QList<Landmark> parse(const QJsonObject& root)
    {
        addForamina(root[u"mandibularForamen"], QStringLiteral("mandibular foramen"));
        addForamina(root[u"mentalForamen"], QStringLiteral("mental foramen"));
        const QJsonObject teeth = root[u"teeth"].toObject();
        for (auto tooth = teeth.begin(); tooth != teeth.end(); ++tooth) {
            const QJsonObject points = tooth.value().toObject();
            if (points.contains(u"occlusal"))
                add(toothName(tooth.key()), tooth.key(), LandmarkKind::Tooth, points[u"occlusal"]);
            if (points.contains(u"apex"))
                add(toothName(tooth.key()) + QStringLiteral(", apex"), {}, LandmarkKind::Apex,
                    points[u"apex"]);
        }
        for (const QString& key : {QStringLiteral("upperTeeth"), QStringLiteral("lowerTeeth")}) {
            const QJsonObject centres = root[key].toObject();
            for (auto tooth = centres.begin(); tooth != centres.end(); ++tooth)
                add(toothName(tooth.key()), tooth.key(), LandmarkKind::Tooth, tooth.value());
        }
        addArch(root[u"mandibleBodyMidline"]);
        return found;
    }

private:
    void addForamina(const QJsonValue& pair, const QString& name)
    {
        for (const QString& side : {QStringLiteral("right"), QStringLiteral("left")}) {
            if (pair.toObject().contains(side))
                add(name + QStringLiteral(", ") + side, name + QStringLiteral(" ") + side.at(0).toUpper(),
                    LandmarkKind::Foramen, pair[side]);
        }
    }

    void addArch(const QJsonValue& arch)
    {
        const bool inWorld = arch.isArray() || arch.toObject().contains(u"lps");
        const QJsonArray points =
            arch.isArray() ? arch.toArray() : arch[inWorld ? u"lps" : u"voxel"].toArray();
        for (qsizetype i = 0; i < points.size(); ++i) {
            const QJsonValue point = points[i];
            add(QStringLiteral("arch point %1").arg(i + 1), {}, LandmarkKind::Arch,
                inWorld ? point : QJsonValue(QJsonObject{{QStringLiteral("voxel"), point}}));
        }
    }

    void add(const QString& name, const QString& label, LandmarkKind kind, const QJsonValue& value)
    {
        found.append({name, label, kind, position(name, value)});
    }

    QVector3D position(const QString& name, const QJsonValue& value) const
    {
        if (!value.isObject())
            return vectorFrom(name, value);
        const QJsonObject frames = value.toObject();
        if (frames.contains(u"lps"))
            return vectorFrom(name, frames[u"lps"]);
        return worldFromVoxel.map(vectorFrom(name, frames[u"voxel"]));
    }

    QVector3D vectorFrom(const QString& name, const QJsonValue& value) const
    {
        const QJsonArray numbers = value.toArray();
        const bool usable =
            numbers.size() == 3 && std::all_of(numbers.begin(), numbers.end(), [](const QJsonValue& number) {
                return number.isDouble() && std::abs(number.toDouble()) < kLargestCoordinate;
            });
        if (!usable)
            throw Failure(file, QStringLiteral("the position of \"%1\" is not three numbers").arg(name));
        return {static_cast<float>(numbers[0].toDouble()), static_cast<float>(numbers[1].toDouble()),
                static_cast<float>(numbers[2].toDouble())};
    }

    QString file;
    QMatrix4x4 worldFromVoxel;
    QList<Landmark> found;
};

void addCanal(QList<Landmark>& landmarks, const phantom::NerveCanal& canal, bool right)
{
    const QString side = right ? QStringLiteral(" R") : QStringLiteral(" L");
    landmarks.append({QString::fromUtf16(right ? kRightMandibularForamen : kLeftMandibularForamen),
                      QStringLiteral("mandibular foramen") + side, LandmarkKind::Foramen,
                      canal.mandibularForamen});
    landmarks.append({QString::fromUtf16(right ? kRightMentalForamen : kLeftMentalForamen),
                      QStringLiteral("mental foramen") + side, LandmarkKind::Foramen, canal.mentalForamen});
}

QJsonObject readObject(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > kLargestFileBytes)
        throw Failure(path, QStringLiteral("the landmark file cannot be read"));
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (error.error != QJsonParseError::NoError || !document.isObject())
        throw Failure(path, QStringLiteral("the landmark file is not a JSON object"));
    return document.object();
}

} // namespace

const Landmark* findLandmark(const QList<Landmark>& landmarks, const QString& name)
{
    const auto found = std::find_if(landmarks.cbegin(), landmarks.cend(),
                                    [&name](const Landmark& l) { return l.name == name; });
    return found == landmarks.cend() ? nullptr : &*found;
}

QList<Landmark> readLandmarks(const QString& path, const QMatrix4x4& worldFromVoxel)
{
    QList<Landmark> landmarks = LandmarkParser(path, worldFromVoxel).parse(readObject(path));
    if (landmarks.isEmpty())
        throw Failure(path, QStringLiteral("the landmark file holds no foramen, tooth or arch point"));
    return landmarks;
}

QList<CanalLine> readCanals(const QString& path, const QMatrix4x4& worldFromVoxel)
{
    return LandmarkParser(path, worldFromVoxel).parseCanals(readObject(path));
}

QList<Landmark> landmarksOf(const phantom::Patient& patient)
{
    QList<Landmark> landmarks;
    addCanal(landmarks, patient.rightCanal(), true);
    addCanal(landmarks, patient.leftCanal(), false);
    for (const phantom::Tooth& tooth : patient.teeth()) {
        const QString fdi = QString::number(fdiNumber(tooth.number));
        landmarks.append({toothName(fdi), fdi, LandmarkKind::Tooth, tooth.occlusalPoint});
        landmarks.append({toothName(fdi) + QStringLiteral(", apex"), {}, LandmarkKind::Apex, tooth.apex});
    }
    return landmarks;
}

QList<CanalLine> canalsOf(const phantom::Patient& patient)
{
    return {{true, patient.rightCanal().centreLine}, {false, patient.leftCanal().centreLine}};
}

int fdiNumber(int universalNumber)
{
    if (universalNumber <= 8)
        return 19 - universalNumber;
    if (universalNumber <= 16)
        return 12 + universalNumber;
    if (universalNumber <= 24)
        return 55 - universalNumber;
    return 16 + universalNumber;
}

int universalNumber(int fdiNumber)
{
    const int place = fdiNumber % 10;
    if (place < 1 || place > 8)
        return 0;
    switch (fdiNumber / 10) {
    case 1:
        return 9 - place;
    case 2:
        return 8 + place;
    case 3:
        return 25 - place;
    case 4:
        return 24 + place;
    default:
        return 0;
    }
}

} // namespace planner
