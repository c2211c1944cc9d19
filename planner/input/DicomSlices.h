// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Elements.h>

#include <QList>
#include <QString>
#include <QStringList>
#include <QVector3D>
#include <QtGlobal>

namespace planner {

/// A slice of a DICOM series by its tags: a file, or a frame of a file that holds several.
struct DicomSlice
{
    QString file;
    int frame = 0; ///< within the file, from 0
    int framesInFile = 1;
    QVector3D position; ///< of the center of the first voxel
    QVector3D rowDirection;
    QVector3D columnDirection;
    double columnSpacingMm = 0.0; ///< between neighbors in a row
    double rowSpacingMm = 0.0;    ///< between rows
    int columns = 0;
    int rows = 0;
    Scaling scaling;
    QString damage; ///< of the file's pixels, for a message; empty if there is none
};

/// The slices of one series with one orientation, in no particular order.
struct DicomStack
{
    QString seriesUid;
    QString description;
    int seriesNumber = 0;
    QList<DicomSlice> slices;
};

struct DicomStacks
{
    QList<DicomStack> stacks; ///< by series number, then by UID and orientation
    QStringList skipped;      ///< why pictures belong to none of them, a file each: "name: reason"
};

/// Reads the tags of all DICOM pictures among the files. Files that are not DICOM, or hold no
/// picture, are ignored.
DicomStacks readDicomStacks(const QStringList& files);

} // namespace planner
