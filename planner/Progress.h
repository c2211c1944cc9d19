// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QString>

#include <cstdio>

namespace planner {

/// Tells which step the program is at: one line a step, and on a terminal a percentage that is updated in
/// place.
class Progress
{
public:
    /// On standard output.
    Progress();
    /// The stream must outlive the progress.
    Progress(std::FILE* to, bool isTerminal);

    /// Starts a step, which ends the one before.
    void step(const QString& what);
    /// Fraction done of the current step, 0 to 1. Cheap to call often.
    void fraction(double done);
    /// Ends the current step.
    void finish();

private:
    void showLine(const QString& line, bool ended);

    std::FILE* stream;
    bool terminal;
    QString current;
    int shownPercent = -1;
    QElapsedTimer time;
};

} // namespace planner
