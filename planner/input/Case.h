// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Landmarks.h>
#include <planner/input/Volume.h>

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

namespace phantom {
class Patient;
}

namespace planner {

class Progress;

/// Holds a CT with the landmarks that are known of it. Every section of the report starts from it.
struct Case
{
    QString title;
    QString source; ///< where the data come from, in one or two sentences
    Volume volume;
    QList<Landmark> landmarks;
    QList<CanalLine> canals; ///< where they are known
    QStringList remarks;     ///< sentences about what had to be assumed or chosen
    QStringList warnings;    ///< sentences about what is doubtful in the data
    /// The built-in patient, of whom everything is known; null for a CT that was read.
    std::shared_ptr<const phantom::Patient> patient;
};

/// Names what to open: a CT with its landmarks, or the built-in patient.
struct CaseFiles
{
    QString ctPath;        ///< a file or a folder with a DICOM series; empty: the built-in patient
    QString landmarksPath; ///< empty: a landmarks.json beside the CT, if there is one
    /// Which of several DICOM series, by its number in the list of them or by its UID; empty: the
    /// only one.
    QString series;
    float voxelSizeMm = 0.5F; ///< of the built-in patient
};

/// Reads the CT and its landmarks, or paints the built-in patient. Failure if a file cannot be
/// used.
Case openCase(const CaseFiles& files, Progress& progress);

} // namespace planner
