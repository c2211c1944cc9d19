// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/Landmarks.h>
#include <planner/Volume.h>

#include <QList>
#include <QString>
#include <QStringList>

namespace planner {

struct Options;
class Progress;

/// What is planned on: a CT with the landmarks that are known of it. Every section of the report starts from
/// here.
struct Case
{
    QString title;
    QString source; ///< where the data come from, in one or two sentences
    Volume volume;
    QList<Landmark> landmarks;
    QStringList remarks; ///< sentences about what had to be assumed or chosen
};

/// Reads the CT and its landmarks, or paints the built-in patient.
Case openCase(const Options& options, Progress& progress);

} // namespace planner
