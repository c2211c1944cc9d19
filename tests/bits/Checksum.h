// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLineF>
#include <QMatrix4x4>
#include <QPointF>
#include <QVector3D>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace bits {

// FNV-1a over the bytes of every number. The sign and payload of a NaN are left out: no standard
// fixes them.
class Checksum
{
public:
    void add(double number)
    {
        auto bits = std::isnan(number) ? 0x7ff8000000000000U : std::bit_cast<std::uint64_t>(number);
        for (int byte = 0; byte < 8; ++byte, bits >>= 8U)
            hash = (hash ^ (bits & 0xffU)) * 0x100000001b3U;
    }
    void add(const QPointF& point)
    {
        add(point.x());
        add(point.y());
    }
    void add(const QLineF& line)
    {
        add(line.p1());
        add(line.p2());
    }
    void add(const QVector3D& vector)
    {
        add(double(vector.x()));
        add(double(vector.y()));
        add(double(vector.z()));
    }
    void add(const QMatrix4x4& matrix)
    {
        for (int i = 0; i < 16; ++i)
            add(double(matrix.constData()[i]));
    }
    void print(const char* name) const
    {
        std::printf("%-10s %016llx\n", name, static_cast<unsigned long long>(hash));
    }

private:
    std::uint64_t hash = 0xcbf29ce484222325U;
};

} // namespace bits
