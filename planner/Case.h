// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/Landmarks.h>
#include <planner/Volume.h>

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

namespace phantom {
class Patient;
}

namespace planner {

struct Options;
class Progress;

/// What is planned on: a CT with the landmarks that are known of it. Every section of the report
/// starts from here.
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

/// Reads the CT and its landmarks, or paints the built-in patient.
Case openCase(const Options& options, Progress& progress);

} // namespace planner
