// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/ExactTriangles_p.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace collision {
namespace {

// Half the distance from 1 to the next double: the relative error of one rounded operation.
constexpr double kRounding = std::numeric_limits<double>::epsilon() / 2.0;
// Bounds of the error of the determinants below, relative to the sum of the magnitudes of their
// terms; Shewchuk's constants for the same order of operations.
constexpr double kOrientationBound = (7.0 + 56.0 * kRounding) * kRounding;
constexpr double kTurnBound = (3.0 + 16.0 * kRounding) * kRounding;

int signOf(double value)
{
    return value > 0.0 ? 1 : (value < 0.0 ? -1 : 0);
}

// A sum of doubles without rounding: an expansion whose components do not overlap and grow in
// magnitude.
template <int MaxTerms>
class ExactSum
{
public:
    void add(double term)
    {
        int kept = 0;
        for (int i = 0; i < count; ++i) {
            const double sum = term + components[i];
            const double virtualTerm = sum - components[i];
            const double error = (components[i] - (sum - virtualTerm)) + (term - virtualTerm);
            if (error != 0.0)
                components[kept++] = error;
            term = sum;
        }
        if (term != 0.0)
            components[kept++] = term;
        count = kept;
    }

    int sign() const { return count == 0 ? 0 : signOf(components[count - 1]); }

private:
    std::array<double, MaxTerms> components{};
    int count = 0;
};

// The determinant of three rows of single-precision coordinates times `factor`, 1 or -1.
void addDeterminant(ExactSum<48>& sum, const ExactPoint& a, const ExactPoint& b,
                    const ExactPoint& c, double factor)
{
    const auto addProduct = [&](float p, float q, float r, double signOfTerm) {
        // The product of two single-precision numbers is exact in double precision.
        const double first = signOfTerm * static_cast<double>(p) * static_cast<double>(q);
        const double product = first * static_cast<double>(r);
        sum.add(std::fma(first, static_cast<double>(r), -product));
        sum.add(product);
    };
    for (int i = 0; i < 3; ++i) {
        const int j = (i + 1) % 3;
        const int k = (i + 2) % 3;
        addProduct(b[j], c[k], a[i], factor);
        addProduct(b[k], c[j], a[i], -factor);
    }
}

int exactOrientation(const ExactPoint& a, const ExactPoint& b, const ExactPoint& c,
                     const ExactPoint& d)
{
    ExactSum<48> sum;
    addDeterminant(sum, b, c, d, 1.0);
    addDeterminant(sum, a, c, d, -1.0);
    addDeterminant(sum, a, b, d, 1.0);
    addDeterminant(sum, a, b, c, -1.0);
    return sum.sign();
}

int exactTurn(const ExactPoint& a, const ExactPoint& b, const ExactPoint& c, int x, int y)
{
    ExactSum<6> sum;
    const auto addProduct = [&](float p, float q, double factor) {
        sum.add(factor * static_cast<double>(p) * static_cast<double>(q));
    };
    addProduct(a[x], b[y], 1.0);
    addProduct(a[y], b[x], -1.0);
    addProduct(b[x], c[y], 1.0);
    addProduct(b[y], c[x], -1.0);
    addProduct(c[x], a[y], 1.0);
    addProduct(c[y], a[x], -1.0);
    return sum.sign();
}

// ---- in one plane, seen along the axis that is neither x nor y

struct View
{
    int x;
    int y;
};

constexpr std::array<View, 3> kViews{{{1, 2}, {2, 0}, {0, 1}}};

// A point on the line of a segment, when seen so, is on the segment if it is in its box.
bool isBetween(const ExactPoint& a, const ExactPoint& b, const ExactPoint& point, View view)
{
    return std::min(a[view.x], b[view.x]) <= point[view.x] &&
           point[view.x] <= std::max(a[view.x], b[view.x]) &&
           std::min(a[view.y], b[view.y]) <= point[view.y] &&
           point[view.y] <= std::max(a[view.y], b[view.y]);
}

bool segmentsMeet(const ExactPoint& a, const ExactPoint& b, const ExactPoint& c,
                  const ExactPoint& d, View view)
{
    const int turnC = turn(a, b, c, view.x, view.y);
    const int turnD = turn(a, b, d, view.x, view.y);
    const int turnA = turn(c, d, a, view.x, view.y);
    const int turnB = turn(c, d, b, view.x, view.y);
    if (turnC * turnD < 0 && turnA * turnB < 0)
        return true;
    return (turnC == 0 && isBetween(a, b, c, view)) || (turnD == 0 && isBetween(a, b, d, view)) ||
           (turnA == 0 && isBetween(c, d, a, view)) || (turnB == 0 && isBetween(c, d, b, view));
}

bool isInside(const ExactTriangle& triangle, const ExactPoint& point, View view)
{
    bool left = false;
    bool right = false;
    for (int i = 0; i < 3; ++i) {
        const int side = turn(triangle[i], triangle[(i + 1) % 3], point, view.x, view.y);
        left = left || side > 0;
        right = right || side < 0;
    }
    return !(left && right);
}

// ---- in space

// Segments in one plane meet if they do so in every view along an axis: one view shows the plane
// without loss, unless all four points are on one line, where every view compares intervals.
bool segmentsMeet(const ExactPoint& a, const ExactPoint& b, const ExactPoint& c,
                  const ExactPoint& d)
{
    return orientation(a, b, c, d) == 0 &&
           std::ranges::all_of(kViews, [&](View view) { return segmentsMeet(a, b, c, d, view); });
}

// The view in which the triangle has an area, or null for a triangle without area.
const View* viewOf(const ExactTriangle& triangle)
{
    const auto view = std::ranges::find_if(kViews, [&](View candidate) {
        return turn(triangle[0], triangle[1], triangle[2], candidate.x, candidate.y) != 0;
    });
    return view != kViews.end() ? &*view : nullptr;
}

bool segmentMeetsAnEdge(const ExactPoint& p, const ExactPoint& q, const ExactTriangle& triangle)
{
    return segmentsMeet(p, q, triangle[0], triangle[1]) ||
           segmentsMeet(p, q, triangle[1], triangle[2]) ||
           segmentsMeet(p, q, triangle[2], triangle[0]);
}

// `sideP` and `sideQ` are the sides of the ends with respect to the triangle's plane.
bool segmentMeetsTriangle(const ExactPoint& p, const ExactPoint& q, int sideP, int sideQ,
                          const ExactTriangle& triangle, const View* view)
{
    if (!view)
        return segmentMeetsAnEdge(p, q, triangle);
    if (sideP * sideQ > 0)
        return false;
    if (sideP == 0 && sideQ == 0)
        return isInside(triangle, p, *view) || isInside(triangle, q, *view) ||
               segmentsMeet(p, q, triangle[0], triangle[1], *view) ||
               segmentsMeet(p, q, triangle[1], triangle[2], *view) ||
               segmentsMeet(p, q, triangle[2], triangle[0], *view);
    bool left = false;
    bool right = false;
    for (int i = 0; i < 3; ++i) {
        const int side = orientation(p, q, triangle[i], triangle[(i + 1) % 3]);
        left = left || side > 0;
        right = right || side < 0;
    }
    return !(left && right);
}

using Sides = std::array<int, 3>;

Sides sidesOf(const ExactTriangle& t, const ExactTriangle& u)
{
    return {orientation(u[0], u[1], u[2], t[0]), orientation(u[0], u[1], u[2], t[1]),
            orientation(u[0], u[1], u[2], t[2])};
}

bool areOnOneSide(const Sides& sides)
{
    return sides[0] != 0 && sides[0] == sides[1] && sides[0] == sides[2];
}

bool anEdgeMeets(const ExactTriangle& t, const Sides& sides, const ExactTriangle& u)
{
    const View* view = viewOf(u);
    for (int i = 0; i < 3; ++i) {
        const int j = (i + 1) % 3;
        if (segmentMeetsTriangle(t[i], t[j], sides[i], sides[j], u, view))
            return true;
    }
    return false;
}

} // namespace

int orientation(const ExactPoint& a, const ExactPoint& b, const ExactPoint& c, const ExactPoint& d)
{
    double row[3][3];
    for (int i = 0; i < 3; ++i) {
        row[0][i] = static_cast<double>(a[i]) - static_cast<double>(d[i]);
        row[1][i] = static_cast<double>(b[i]) - static_cast<double>(d[i]);
        row[2][i] = static_cast<double>(c[i]) - static_cast<double>(d[i]);
    }
    double determinant = 0.0;
    double magnitude = 0.0;
    for (int i = 0; i < 3; ++i) {
        const int j = (i + 1) % 3;
        const int k = (i + 2) % 3;
        const double first = row[0][i] * row[1][j];
        const double second = row[0][j] * row[1][i];
        determinant += row[2][k] * (first - second);
        magnitude += std::abs(row[2][k]) * (std::abs(first) + std::abs(second));
    }
    // |a - d, b - d, c - d| is -|b - a, c - a, d - a|.
    if (std::abs(determinant) > kOrientationBound * magnitude)
        return -signOf(determinant);
    return exactOrientation(a, b, c, d);
}

int turn(const ExactPoint& a, const ExactPoint& b, const ExactPoint& c, int x, int y)
{
    const double first = (static_cast<double>(a[x]) - static_cast<double>(c[x])) *
                         (static_cast<double>(b[y]) - static_cast<double>(c[y]));
    const double second = (static_cast<double>(a[y]) - static_cast<double>(c[y])) *
                          (static_cast<double>(b[x]) - static_cast<double>(c[x]));
    const double determinant = first - second;
    if (std::abs(determinant) > kTurnBound * (std::abs(first) + std::abs(second)))
        return signOf(determinant);
    return exactTurn(a, b, c, x, y);
}

bool haveCommonPoint(const ExactTriangle& t, const ExactTriangle& u)
{
    const Sides sidesOfT = sidesOf(t, u);
    if (areOnOneSide(sidesOfT))
        return false;
    const Sides sidesOfU = sidesOf(u, t);
    if (areOnOneSide(sidesOfU))
        return false;
    return anEdgeMeets(t, sidesOfT, u) || anEdgeMeets(u, sidesOfU, t);
}

} // namespace collision
