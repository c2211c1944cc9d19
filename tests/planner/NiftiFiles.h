// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Writes NIfTI files byte by byte, good ones and bad ones.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <nifti/nifti1.h>
#include <zlib.h>

#include <array>
#include <cstring>
#include <initializer_list>

namespace niftifiles {

struct File
{
    nifti_1_header header{};
    QByteArray voxels;
};

template <typename Element>
QByteArray bytesOf(std::initializer_list<Element> values)
{
    return {reinterpret_cast<const char*>(values.begin()),
            static_cast<qsizetype>(values.size() * sizeof(Element))};
}

/// A 2 x 2 x 2 volume of 1 mm voxels with an sform that says RAS at the origin.
inline File volumeOf(short niftiType, short bitsPerVoxel, const QByteArray& voxels)
{
    File file;
    file.header.sizeof_hdr = 348;
    const std::array<short, 8> dimensions = {3, 2, 2, 2, 1, 1, 1, 1};
    std::memcpy(file.header.dim, dimensions.data(), sizeof file.header.dim);
    file.header.datatype = niftiType;
    file.header.bitpix = bitsPerVoxel;
    const std::array<float, 8> spacing = {1.0F, 1.0F, 1.0F, 1.0F, 1.0F, 1.0F, 1.0F, 1.0F};
    std::memcpy(file.header.pixdim, spacing.data(), sizeof file.header.pixdim);
    file.header.vox_offset = 352.0F;
    file.header.sform_code = NIFTI_XFORM_SCANNER_ANAT;
    file.header.srow_x[0] = 1.0F;
    file.header.srow_y[1] = 1.0F;
    file.header.srow_z[2] = 1.0F;
    std::memcpy(file.header.magic, "n+1", 4);
    file.voxels = voxels;
    return file;
}

/// The volume with the values 0 to 7.
inline File countingVolume()
{
    return volumeOf(DT_INT16, 16, bytesOf<short>({0, 1, 2, 3, 4, 5, 6, 7}));
}

inline QByteArray bytesOf(const File& file)
{
    QByteArray bytes(reinterpret_cast<const char*>(&file.header), sizeof file.header);
    bytes.append(4, '\0'); // no extensions
    return bytes + file.voxels;
}

inline bool writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

inline bool writeCompressed(const QString& path, const QByteArray& bytes)
{
    const gzFile file = gzopen(QFile::encodeName(path).constData(), "wb");
    if (!file)
        return false;
    const bool written =
        gzwrite(file, bytes.constData(), static_cast<unsigned>(bytes.size())) == bytes.size();
    return gzclose(file) == Z_OK && written;
}

/// Bytes that look like nothing, the same on every run.
inline QByteArray randomBytes(int count, unsigned seed)
{
    QByteArray bytes;
    for (int i = 0; i < count; ++i) {
        seed = seed * 1664525U + 1013904223U;
        bytes.append(static_cast<char>(seed >> 24U));
    }
    return bytes;
}

} // namespace niftifiles
