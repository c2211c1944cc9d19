// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QVector3D>

#include <array>
#include <vector>

namespace reslice {

/// Finds the sample of a path nearest to a point, for many points on one path.
///
/// The result is that of ComputeIndexOnGuidingLine::getIndexOf() for every path and point, ties,
/// NaN and overflow included.
///
/// The constructor cuts the path into runs of consecutive samples and builds boxes around the runs,
/// then boxes around the boxes. A search starts from the sample that was found before. It skips a
/// box only if the distance of the box, in the arithmetic of the samples' distances, is larger than
/// the smallest so far: rounding is monotonic, so no sample of the box can be nearer, or as near.
class PathSearch
{
public:
    /// Builds the boxes in one pass over the samples.
    explicit PathSearch(const QList<QVector3D>& samples);

    /// Returns the index of the nearest sample, or -1 for an empty path.
    int nearestTo(const QVector3D& point);

private:
    // The layout is by coordinate, so that compilers process several samples or boxes at once.
    static constexpr int RUN_LENGTH = 16;
    static constexpr int GROUP_SIZE = 8;

    struct Run
    {
        std::array<float, RUN_LENGTH> x, y, z;
    };

    struct BoxGroup
    {
        std::array<float, GROUP_SIZE> lowX, lowY, lowZ, highX, highY, highZ;
    };

    struct Nearest
    {
        int index;
        float squaredDistance;
    };

    void searchGroup(std::size_t level, std::size_t group, const QVector3D& point,
                     Nearest& nearest) const;
    void searchRun(std::size_t run, const QVector3D& point, Nearest& nearest) const;

    QList<QVector3D> path;
    bool isSearchable; // by boxes: all samples are finite, and an int can count them
    std::vector<Run> runs;
    // The first level holds the boxes of the runs, the last a single group.
    std::vector<std::vector<BoxGroup>> levels;
    int nearestBefore = 0;
};

} // namespace reslice
