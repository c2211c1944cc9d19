// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Writes MetaImage and NRRD files, good ones and bad ones.
#pragma once

#include <planner/input/Failure.h>
#include <planner/input/Volume.h>
#include <tests/planner/NiftiFiles.h>

#include <gtest/gtest.h>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QList>
#include <QTemporaryDir>

#include <string>
#include <utility>

namespace textvolumes {

using Fields = QList<std::pair<QByteArray, QByteArray>>;

/// The values 0 to 7 of 2 x 2 x 2 voxels, in 16-bit integers.
inline QByteArray countingVoxels()
{
    return niftifiles::countingVolume().voxels;
}

/// As zlib writes it, without the length that Qt puts before it.
inline QByteArray deflated(const QByteArray& bytes)
{
    return qCompress(bytes).sliced(4);
}

/// The fields with some of them changed, or added before the last, or left out if their values are
/// empty.
inline Fields with(Fields fields, const Fields& changes)
{
    for (const auto& [name, value] : changes) {
        bool known = false;
        for (auto& field : fields) {
            if (field.first == name) {
                field.second = value;
                known = true;
            }
        }
        if (!known)
            fields.insert(fields.size() - 1, {name, value});
    }
    return fields;
}

inline QByteArray text(const Fields& fields, const QByteArray& separator)
{
    QByteArray lines;
    for (const auto& [name, value] : fields) {
        if (!value.isEmpty())
            lines += name + separator + value + '\n';
    }
    return lines;
}

/// Returns the header of the counting voxels, 1 mm apart.
inline QByteArray metaHeader(const Fields& changes)
{
    return text(with({{"ObjectType", "Image"},
                      {"NDims", "3"},
                      {"BinaryData", "True"},
                      {"TransformMatrix", "1 0 0 0 1 0 0 0 1"},
                      {"Offset", "0 0 0"},
                      {"ElementSpacing", "1 1 1"},
                      {"DimSize", "2 2 2"},
                      {"ElementType", "MET_SHORT"},
                      {"ElementDataFile", "LOCAL"}},
                     changes),
                " = ");
}

/// The same.
inline QByteArray nrrdHeader(const Fields& changes)
{
    return "NRRD0004\n" +
           text(with({{"type", "short"},
                      {"dimension", "3"},
                      {"space", "left-posterior-superior"},
                      {"sizes", "2 2 2"},
                      {"space directions", "(1,0,0) (0,1,0) (0,0,1)"},
                      {"endian", "little"},
                      {"space origin", "(0,0,0)"},
                      {"encoding", "raw"}},
                     changes),
                ": ") +
           '\n';
}

/// A folder of a test's own.
class Folder : public testing::Test
{
protected:
    QString path(const char* name) const { return folder.filePath(QString::fromLatin1(name)); }

    void put(const char* name, const QByteArray& bytes) const
    {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path(name)).path()));
        ASSERT_TRUE(niftifiles::writeBytes(path(name), bytes));
    }

    // The sentence with which reading is refused; empty if it is not.
    std::string refusalBy(planner::Volume (*read)(const QString&), const char* name) const
    {
        try {
            read(path(name));
        } catch (const planner::Failure& failure) {
            return failure.what();
        }
        return {};
    }

private:
    QTemporaryDir folder;
};

} // namespace textvolumes
