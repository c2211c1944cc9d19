// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/input/TextHeader.h>

#include <planner/input/VolumeLimits.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cmath>

namespace planner {

namespace {

constexpr qint64 kLongest = 65'536; // bytes; real ones have some hundred

// A fixed number of numbers, separated by blanks.
template <typename Number, typename Convert>
std::optional<QList<Number>> listFrom(const std::optional<QByteArray>& value, qsizetype count,
                                      const QString& path, const QByteArray& name,
                                      const Convert& convert)
{
    if (!value)
        return std::nullopt;
    QList<Number> list;
    bool good = true;
    for (const QByteArray& part : value->simplified().split(' ')) {
        bool isNumber = false;
        list.append(convert(part, isNumber));
        good = good && isNumber;
    }
    if (!good || list.size() != count)
        throw Failure(path,
                      QStringLiteral("the header's field \"%1\" should be %2 numbers and is \"%3\"")
                          .arg(QString::fromLatin1(name))
                          .arg(count)
                          .arg(QString::fromLatin1(value->left(60)).simplified()));
    return list;
}

} // namespace

TextHeader::TextHeader(const QString& path, const QByteArray& separator, const QByteArray& last)
    : headerPath(path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure(path, QStringLiteral("the file cannot be read"));
    const QByteArray text = file.read(kLongest);
    while (bytes < text.size()) {
        const qsizetype lineEnd = text.indexOf('\n', bytes);
        if (lineEnd < 0 && text.size() == kLongest)
            break;
        const QByteArray line =
            text.sliced(bytes, (lineEnd < 0 ? text.size() : lineEnd) - bytes).trimmed();
        if (bytes == 0)
            first = line;
        bytes = lineEnd < 0 ? text.size() : lineEnd + 1;
        if (line.isEmpty())
            return;
        const qsizetype at = line.indexOf(separator);
        if (at <= 0 || line.startsWith('#') || line.sliced(at).startsWith(":="))
            continue;
        const QByteArray name = line.first(at).trimmed().toLower();
        if (fields.contains(name))
            throw Failure(
                path,
                QStringLiteral("the header has two fields \"%1\"").arg(QString::fromLatin1(name)));
        fields.insert(name, line.sliced(at + separator.size()).trimmed());
        if (name == last)
            return;
    }
    if (file.size() > kLongest)
        throw Failure(path,
                      QStringLiteral("the header does not end within %1 bytes").arg(kLongest));
}

std::optional<QByteArray> TextHeader::value(const QList<QByteArray>& names) const
{
    for (const QByteArray& name : names) {
        const auto field = fields.constFind(name);
        if (field != fields.cend())
            return *field;
    }
    return std::nullopt;
}

std::optional<QList<double>> TextHeader::numbers(const QList<QByteArray>& names,
                                                 qsizetype count) const
{
    return listFrom<double>(value(names), count, headerPath, names.first(),
                            [](const QByteArray& part, bool& isNumber) {
                                const double number = part.toDouble(&isNumber);
                                isNumber = isNumber && std::isfinite(number);
                                return number;
                            });
}

std::optional<QList<qint64>> TextHeader::wholeNumbers(const QList<QByteArray>& names,
                                                      qsizetype count) const
{
    return listFrom<qint64>(
        value(names), count, headerPath, names.first(),
        [](const QByteArray& part, bool& isNumber) { return qint64{part.toLongLong(&isNumber)}; });
}

std::array<qint64, 3> TextHeader::voxelCounts(const QByteArray& dimensions,
                                              const QByteArray& sizes) const
{
    if (wholeNumber({dimensions}, 0) != 3)
        throw Failure(headerPath,
                      QStringLiteral("a volume has 3 dimensions, the header says %1")
                          .arg(QString::fromLatin1(value({dimensions}).value_or("none").left(20))));
    const auto counts = wholeNumbers({sizes.toLower()}, 3);
    if (!counts)
        throw Failure(headerPath,
                      QStringLiteral("the header does not state the number of voxels (%1)")
                          .arg(QString::fromLatin1(sizes)));
    const std::array<qint64, 3> all = {(*counts)[0], (*counts)[1], (*counts)[2]};
    checkVoxelCounts(headerPath, all);
    return all;
}

Failure TextHeader::unsupportedType(const QByteArray& name) const
{
    return {headerPath,
            QStringLiteral("voxels of the type \"%1\" are not supported, only integers up to 32 "
                           "bits and floating-point numbers up to 64 bits")
                .arg(QString::fromLatin1(name.left(40)))};
}

QString TextHeader::dataFile(const QString& name) const
{
    const QDir folder = QFileInfo(headerPath).dir();
    const QFileInfo named(folder.filePath(name));
    if (name.contains(QChar::Null) || !named.isFile())
        throw Failure(headerPath,
                      QStringLiteral("the file %1 with its voxels is not there").arg(name));
    QString inFolder = named.canonicalFilePath();
    if (!inFolder.startsWith(folder.canonicalPath() + u'/'))
        throw Failure(
            headerPath,
            QStringLiteral(
                "the file %1 with its voxels is in another folder; put it beside the header")
                .arg(name));
    return inFolder;
}

} // namespace planner
