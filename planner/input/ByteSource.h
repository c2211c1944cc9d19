// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QString>

#include <memory>
#include <vector>

struct z_stream_s;

namespace planner {

/// Reads the bytes of a file one after the other, decompressing them if they are compressed. It
/// holds no more than a buffer of them, so a file that decompresses to far more than its size does
/// no harm.
class ByteSource
{
public:
    enum class Coding {
        Plain,
        Deflated ///< gzip, in one part or several, or zlib
    };

    /// Starts at an offset into the file. Throws Failure if the file cannot be read.
    ByteSource(const QString& path, Coding coding, qint64 offset = 0);
    ~ByteSource();
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;

    /// Reads up to `most` bytes and returns how many there were: fewer only where the bytes end or
    /// are damaged.
    qint64 read(char* to, qint64 most);
    /// Returns whether nothing is left and, of compressed bytes, the end mark was read and the
    /// checksum is right. Reads a byte.
    bool endsHere();

    /// Returns how a file is coded that may or may not be compressed with gzip, by its first two
    /// bytes.
    static Coding codingOf(const QString& path);

private:
    bool refill();

    QFile file;
    std::vector<char> buffer;
    std::unique_ptr<z_stream_s> stream; ///< null for plain bytes
    bool damaged = false;
    bool ended = false; ///< the end mark of compressed bytes was read
};

} // namespace planner
