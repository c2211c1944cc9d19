// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Failure.h>

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QtGlobal>

#include <array>
#include <optional>

namespace planner {

/// The lines of text at the beginning of a MetaImage or NRRD file, each with the name and the value
/// of a field.
///
/// The formats are read here rather than by a library: of the packaged ones, ITK reads both, but
/// takes voxels that are cut off for zeros, opens a data file in any folder, and does not end for
/// some headers, so that every field would have to be checked before anyway.
class TextHeader
{
public:
    /// Reads lines up to one that is empty or has a field of the name `last`, or up to the end of
    /// the file. Lines that begin with # or have no separator are skipped. Failure if the header is
    /// too long or names a field twice.
    TextHeader(const QString& path, const QByteArray& separator, const QByteArray& last = {});

    const QString& path() const { return headerPath; }
    /// Returns the first line, which may say what format this is.
    const QByteArray& firstLine() const { return first; }
    /// Returns where the header ends in the file.
    qint64 size() const { return bytes; }

    /// Returns the value of the first of the fields that is there, or nothing. Names are in lower
    /// case.
    std::optional<QByteArray> value(const QList<QByteArray>& names) const;
    /// Returns the same as a list of finite numbers, or nothing without such a field; Failure if it
    /// has another value.
    std::optional<QList<double>> numbers(const QList<QByteArray>& names, qsizetype count) const;
    /// Returns the same as whole numbers.
    std::optional<QList<qint64>> wholeNumbers(const QList<QByteArray>& names,
                                              qsizetype count) const;

    /// Returns a whole number, or `otherwise` without such a field.
    qint64 wholeNumber(const QList<QByteArray>& names, qint64 otherwise) const
    {
        return wholeNumbers(names, 1).value_or(QList<qint64>{otherwise}).first();
    }
    /// Returns the numbers of voxels along three axes, which pass checkVoxelCounts(), from the
    /// field that the format spells so. Failure if the other field does not state three dimensions.
    std::array<qint64, 3> voxelCounts(const QByteArray& dimensions, const QByteArray& sizes) const;
    /// Returns why an element type is refused.
    Failure unsupportedType(const QByteArray& name) const;

    /// Returns the file with the voxels that the header names, which must lie in the header's
    /// folder or below it.
    QString dataFile(const QString& name) const;

private:
    QString headerPath;
    QByteArray first;
    QHash<QByteArray, QByteArray> fields;
    qint64 bytes = 0;
};

} // namespace planner
