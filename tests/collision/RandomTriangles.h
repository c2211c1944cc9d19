// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <tests/support/ResliceBuilders.h>

#include <QMatrix4x4>
#include <QVector3D>

#include <array>
#include <cmath>
#include <cstddef>

namespace test {

using Corners = std::array<QVector3D, 3>;

/// Draws pairs of triangles of every kind that is hard on rounding.
class RandomTriangles
{
public:
    explicit RandomTriangles(unsigned seed) : random(seed) {}

    static constexpr int KINDS = 12;

    void draw(int kind, Corners& v, Corners& u)
    {
        switch (kind) {
        case 0: // anywhere
            v = around({}, 10.0F);
            u = around({}, 10.0F);
            break;
        case 1: // close to each other at the coordinates of a jaw
        {
            const QVector3D center = random.point(100.0F);
            v = around(center, 2.0F);
            u = around(center, 2.0F);
            break;
        }
        case 2: // on a lattice: touching, coplanar, degenerate, parallel to the axes
            v = onLattice(2);
            u = onLattice(2);
            break;
        case 3: // the same, tilted: nearly touching, nearly coplanar
            v = onLattice(2);
            u = onLattice(2);
            map(v, u, random.rigidPlacement());
            break;
        case 4: // in the plane z = 0
            v = flat(2.0F);
            u = flat(2.0F);
            break;
        case 5: // in a tilted plane
            v = flat(2.0F);
            u = flat(2.0F);
            map(v, u, random.rigidPlacement());
            break;
        case 6: // in parallel planes, 2^-29 to 1 mm apart
        {
            v = flat(2.0F);
            u = flat(2.0F);
            const float gap = std::ldexp(1.0F, -static_cast<int>(random.number(0.0F, 30.0F)));
            for (QVector3D& p : u)
                p.setZ(gap);
            map(v, u, random.rigidPlacement());
            break;
        }
        case 7: // common vertices
            v = around(random.point(60.0F), 3.0F);
            u = around(v[0], 3.0F);
            u[0] = v[0];
            if (random.number(0.0F, 1.0F) < 0.5F)
                u[1] = v[1];
            break;
        case 8: // a vertex in the other's face or on its edge
        {
            v = around(random.point(60.0F), 3.0F);
            u = around(v[0], 3.0F);
            const float s = random.number(0.0F, 1.0F);
            const float t = random.number(0.0F, 2.0F) < 1.0F ? 0.0F : random.number(0.0F, 1.0F - s);
            u[2] = v[0] + s * (v[1] - v[0]) + t * (v[2] - v[0]);
            break;
        }
        case 9: // at least one of them without area
            v = around(random.point(60.0F), 3.0F);
            u = around(v[0], 3.0F);
            u[1] = u[0];
            if (random.number(0.0F, 1.0F) < 0.5F)
                v[2] = v[0] + random.number(-1.0F, 2.0F) * (v[1] - v[0]);
            if (random.number(0.0F, 1.0F) < 0.2F)
                u[2] = u[0];
            break;
        case 10: // needles, and a large triangle with a small one
            v = around({}, 200.0F);
            u = around(v[0], 0.01F);
            u[0] = v[1];
            break;
        default: // so large or small that products overflow or underflow
        {
            const float scale = std::ldexp(1.0F, static_cast<int>(random.number(-140.0F, 125.0F)));
            v = around({}, 1.0F);
            u = around({}, 1.0F);
            for (std::size_t i = 0; i < 3; ++i) {
                v[i] *= scale;
                u[i] *= scale;
            }
            break;
        }
        }
    }

    RandomGeometry random;

private:
    Corners around(const QVector3D& center, float reach)
    {
        return {center + random.point(reach), center + random.point(reach),
                center + random.point(reach)};
    }

    QVector3D latticePoint(int reach)
    {
        const auto whole = [&] {
            return std::floor(random.number(0.0F, static_cast<float>(2 * reach + 1))) -
                   float(reach);
        };
        const float x = whole();
        const float y = whole();
        return {x, y, whole()};
    }

    Corners onLattice(int reach)
    {
        return {latticePoint(reach), latticePoint(reach), latticePoint(reach)};
    }

    Corners flat(float reach)
    {
        Corners corners = around({}, reach);
        for (QVector3D& p : corners)
            p.setZ(0.0F);
        return corners;
    }

    static void map(Corners& v, Corners& u, const QMatrix4x4& placement)
    {
        for (std::size_t i = 0; i < 3; ++i) {
            v[i] = placement.map(v[i]);
            u[i] = placement.map(u[i]);
        }
    }
};

} // namespace test
