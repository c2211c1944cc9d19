// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/input/Landmarks.h>

#include <planner/input/Failure.h>

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
constexpr qsizetype kMostArchPoints = 1000;
constexpr qsizetype kMostCanalPoints = 10000;
constexpr double kLongestCanalMm = 300.0; // four times the length of a long one
constexpr double kLargestRadiusMm = 5.0;  // of a canal
constexpr float kApartMm = 0.5F;          // closer points of two teeth are one point

QString toothName(const QString& fdi)
{
    return QStringLiteral("tooth %1").arg(fdi);
}

bool isFdiNumber(const QString& key)
{
    const int number = key.toInt();
    return universalNumber(number) != 0 && QString::number(number) == key;
}

// Turns the entries of a landmark file into landmarks.
class LandmarkParser
{
public:
    LandmarkParser(const QString& path, const QMatrix4x4& matrix)
        : file(path), worldFromVoxel(matrix)
    {}

    LandmarkFile parse(const QJsonObject& root)
    {
        addForamina(root[u"mandibularForamen"], QStringLiteral("mandibular foramen"));
        addForamina(root[u"mentalForamen"], QStringLiteral("mental foramen"));
        const QJsonObject teeth = root[u"teeth"].toObject();
        for (auto tooth = teeth.begin(); tooth != teeth.end(); ++tooth)
            addTooth(tooth.key(), tooth.value().toObject());
        for (const QString& key : {QStringLiteral("upperTeeth"), QStringLiteral("lowerTeeth")}) {
            const QJsonObject centers = root[key].toObject();
            for (auto tooth = centers.begin(); tooth != centers.end(); ++tooth)
                addTooth(tooth.key(), {{QStringLiteral("occlusal"), tooth.value()}});
        }
        addArch(root[u"mandibleBodyMidline"]);
        for (const bool right : {true, false})
            addCanal(root[u"canal"][right ? u"right" : u"left"], right);
        if (found.landmarks.isEmpty())
            throw Failure(
                file, QStringLiteral("the landmark file holds no foramen, tooth or arch point"));
        refuseTeethAtOnePoint();
        return found;
    }

private:
    void addForamina(const QJsonValue& pair, const QString& name)
    {
        for (const QString& side : {QStringLiteral("right"), QStringLiteral("left")}) {
            if (pair.toObject().contains(side))
                add(name + QStringLiteral(", ") + side,
                    name + QStringLiteral(" ") + side.at(0).toUpper(), LandmarkKind::Foramen,
                    pair[side]);
        }
    }

    void addTooth(const QString& fdi, const QJsonObject& points)
    {
        if (!isFdiNumber(fdi)) {
            found.warnings.append(
                QStringLiteral("There is no tooth \"%1\" (FDI numbers are 11 to 18, 21 to 28, "
                               "31 to 38 and 41 to 48): this entry is left out.")
                    .arg(fdi));
            return;
        }
        if (points.contains(u"occlusal"))
            add(toothName(fdi), fdi, LandmarkKind::Tooth, points[u"occlusal"]);
        if (points.contains(u"apex"))
            add(toothName(fdi) + QStringLiteral(", apex"), {}, LandmarkKind::Apex, points[u"apex"]);
    }

    void addCanal(const QJsonValue& entry, bool right)
    {
        const QString name = sideName(right) + QStringLiteral(" canal");
        const QJsonArray points = entry[u"points"].toArray();
        if (points.isEmpty())
            return;
        refuseTooMany(points, kMostCanalPoints, name);
        CanalLine canal{right, {}, radius(entry[u"meanRadiusMm"], name)};
        double length = 0.0;
        for (const auto& point : points) {
            const QVector3D next = position(name, point);
            if (!canal.points.isEmpty() && canal.points.last() == next)
                continue;
            if (!canal.points.isEmpty())
                length += (next - canal.points.last()).length();
            canal.points.append(next);
        }
        if (!(length <= kLongestCanalMm))
            throw Failure(file,
                          QStringLiteral("the %1 is %2 mm long, and more than %3 mm cannot be")
                              .arg(name)
                              .arg(length, 0, 'f', 0)
                              .arg(kLongestCanalMm));
        if (canal.points.size() < 2)
            found.warnings.append(
                QStringLiteral(
                    "The %1 has a single point, which does not tell its course: it is left out.")
                    .arg(name));
        else
            found.canals.append(canal);
    }

    std::optional<float> radius(const QJsonValue& value, const QString& name) const
    {
        if (value.isUndefined())
            return std::nullopt;
        const double millimeters = value.toDouble();
        if (!(millimeters > 0.0 && millimeters <= kLargestRadiusMm))
            throw Failure(
                file, QStringLiteral("the radius of the %1 is not a number above 0 and up to %2 mm")
                          .arg(name)
                          .arg(kLargestRadiusMm));
        return static_cast<float>(millimeters);
    }

    void addArch(const QJsonValue& arch)
    {
        const bool inWorld = arch.isArray() || arch.toObject().contains(u"lps");
        const QJsonArray points =
            arch.isArray() ? arch.toArray() : arch[inWorld ? u"lps" : u"voxel"].toArray();
        refuseTooMany(points, kMostArchPoints, QStringLiteral("arch"));
        for (qsizetype i = 0; i < points.size(); ++i) {
            const QJsonValue point = points[i];
            add(QStringLiteral("arch point %1").arg(i + 1), {}, LandmarkKind::Arch,
                inWorld ? point : QJsonValue(QJsonObject{{QStringLiteral("voxel"), point}}));
        }
    }

    void add(const QString& name, const QString& label, LandmarkKind kind, const QJsonValue& value)
    {
        found.landmarks.append({name, label, kind, position(name, value)});
    }

    void refuseTooMany(const QJsonArray& points, qsizetype most, const QString& name) const
    {
        if (points.size() > most)
            throw Failure(file, QStringLiteral("the %1 has %2 points, and at most %3 are read")
                                    .arg(name)
                                    .arg(points.size())
                                    .arg(most));
    }

    // Neither an arch through the teeth nor the axis of a tooth is defined by points that coincide.
    void refuseTeethAtOnePoint() const
    {
        QList<Landmark> ofTeeth = found.landmarks;
        ofTeeth.removeIf([](const Landmark& landmark) {
            return landmark.kind != LandmarkKind::Tooth && landmark.kind != LandmarkKind::Apex;
        });
        for (auto one = ofTeeth.cbegin(); one != ofTeeth.cend(); ++one) {
            for (auto other = one + 1; other != ofTeeth.cend(); ++other) {
                if (one->name != other->name &&
                    (one->position - other->position).length() < kApartMm)
                    throw Failure(file, QStringLiteral("\"%1\" and \"%2\" are at the same point")
                                            .arg(one->name, other->name));
            }
        }
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
            numbers.size() == 3 &&
            std::all_of(numbers.begin(), numbers.end(), [](const QJsonValue& number) {
                return number.isDouble() && std::abs(number.toDouble()) < kLargestCoordinate;
            });
        if (!usable)
            throw Failure(file,
                          QStringLiteral("the position of \"%1\" is not three numbers").arg(name));
        return {static_cast<float>(numbers[0].toDouble()),
                static_cast<float>(numbers[1].toDouble()),
                static_cast<float>(numbers[2].toDouble())};
    }

    QString file;
    QMatrix4x4 worldFromVoxel;
    LandmarkFile found;
};

void addForamina(QList<Landmark>& landmarks, const phantom::NerveCanal& canal, bool right)
{
    const QString side = right ? QStringLiteral(" R") : QStringLiteral(" L");
    landmarks.append({QString::fromUtf16(right ? kRightMandibularForamen : kLeftMandibularForamen),
                      QStringLiteral("mandibular foramen") + side, LandmarkKind::Foramen,
                      canal.mandibularForamen});
    landmarks.append({QString::fromUtf16(right ? kRightMentalForamen : kLeftMentalForamen),
                      QStringLiteral("mental foramen") + side, LandmarkKind::Foramen,
                      canal.mentalForamen});
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
    const auto found = std::ranges::find(landmarks, name, &Landmark::name);
    return found == landmarks.cend() ? nullptr : &*found;
}

QString sideName(bool right)
{
    return right ? QStringLiteral("right") : QStringLiteral("left");
}

const CanalLine* findCanal(const QList<CanalLine>& canals, bool right)
{
    const auto found = std::ranges::find(canals, right, &CanalLine::right);
    return found == canals.cend() ? nullptr : &*found;
}

LandmarkFile readLandmarks(const QString& path, const QMatrix4x4& worldFromVoxel)
{
    LandmarkFile file = LandmarkParser(path, worldFromVoxel).parse(readObject(path));
    file.warnings += findContradictions(file);
    return file;
}

QList<Landmark> landmarksOf(const phantom::Patient& patient)
{
    QList<Landmark> landmarks;
    addForamina(landmarks, patient.rightCanal(), true);
    addForamina(landmarks, patient.leftCanal(), false);
    for (const phantom::Tooth& tooth : patient.teeth()) {
        const QString fdi = QString::number(fdiNumber(tooth.number));
        landmarks.append({toothName(fdi), fdi, LandmarkKind::Tooth, tooth.occlusalPoint});
        landmarks.append(
            {toothName(fdi) + QStringLiteral(", apex"), {}, LandmarkKind::Apex, tooth.apex});
    }
    return landmarks;
}

QList<CanalLine> canalsOf(const phantom::Patient& patient)
{
    const auto line = [](const phantom::NerveCanal& canal, bool right) {
        return CanalLine{right, canal.centerLine, canal.radiusMm};
    };
    return {line(patient.rightCanal(), true), line(patient.leftCanal(), false)};
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

int toothNumberOf(const Landmark& landmark)
{
    return landmark.kind == LandmarkKind::Tooth ? universalNumber(landmark.label.toInt()) : 0;
}

} // namespace planner
