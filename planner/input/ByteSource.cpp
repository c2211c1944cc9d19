// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/input/ByteSource.h>

#include <planner/input/Failure.h>

#include <zlib.h>

#include <algorithm>
#include <limits>

namespace planner {

namespace {

constexpr std::size_t kBufferBytes = 1 << 16;
constexpr int kGzipOrZlib = 32 + MAX_WBITS; // zlib looks at the first bytes
constexpr unsigned char kGzipMark[] = {0x1f, 0x8b};

} // namespace

ByteSource::ByteSource(const QString& path, Coding coding, qint64 offset) : file(path)
{
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) || !file.seek(offset))
        throw Failure(path, QStringLiteral("the file cannot be read"));
    if (coding == Coding::Plain)
        return;
    buffer.resize(kBufferBytes);
    stream = std::make_unique<z_stream_s>();
    if (inflateInit2(stream.get(), kGzipOrZlib) != Z_OK)
        throw Failure(QStringLiteral("There is not enough memory"));
}

ByteSource::~ByteSource()
{
    if (stream)
        inflateEnd(stream.get());
}

// Whether there is input.
bool ByteSource::refill()
{
    if (stream->avail_in == 0) {
        const qint64 count = file.read(buffer.data(), static_cast<qint64>(buffer.size()));
        stream->next_in = reinterpret_cast<Bytef*>(buffer.data());
        stream->avail_in = static_cast<uInt>(std::max(qint64{0}, count));
    }
    return stream->avail_in > 0;
}

qint64 ByteSource::read(char* to, qint64 most)
{
    if (!stream) {
        qint64 done = 0;
        qint64 count = 0;
        while (done < most && (count = file.read(to + done, most - done)) > 0)
            done += count;
        return done;
    }
    qint64 done = 0;
    while (done < most && !damaged) {
        if (!refill()) {
            damaged = !ended;
            break;
        }
        if (ended) { // another part, or bytes that do not belong to the stream
            if (stream->next_in[0] != kGzipMark[0])
                break;
            damaged = inflateReset(stream.get()) != Z_OK;
            ended = false;
        }
        const auto room = std::min(most - done, qint64{std::numeric_limits<uInt>::max()});
        stream->next_out = reinterpret_cast<Bytef*>(to + done);
        stream->avail_out = static_cast<uInt>(room);
        const int status = inflate(stream.get(), Z_NO_FLUSH);
        done += room - static_cast<qint64>(stream->avail_out);
        ended = status == Z_STREAM_END;
        damaged = damaged || (status != Z_OK && status != Z_STREAM_END && status != Z_BUF_ERROR);
    }
    return done;
}

bool ByteSource::endsHere()
{
    char next = 0;
    return read(&next, 1) == 0 && !damaged;
}

ByteSource::Coding ByteSource::codingOf(const QString& path)
{
    ByteSource start(path, Coding::Plain);
    char mark[2] = {};
    const bool isGzip = start.read(mark, 2) == 2 &&
                        static_cast<unsigned char>(mark[0]) == kGzipMark[0] &&
                        static_cast<unsigned char>(mark[1]) == kGzipMark[1];
    return isGzip ? Coding::Deflated : Coding::Plain;
}

} // namespace planner
