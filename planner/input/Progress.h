// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QString>

#include <cstdio>
#include <functional>

namespace planner {

/// Prints what the program does and finds: one line a step, and on a terminal a percentage that is
/// updated in place. Every operation throws Failure if the stream cannot be written.
class Progress
{
public:
    /// Prints on standard output.
    Progress();
    /// Prints on a stream that must outlive the progress.
    Progress(std::FILE* to, bool isTerminal);

    /// Starts a step, which ends the one before.
    void step(const QString& what);
    /// Shows the fraction done of the current step, 0 to 1. Cheap to call often.
    void fraction(double done);
    /// Returns a function that shows the fraction done, for work that knows no progress.
    std::function<void(double)> onFraction()
    {
        return [this](double done) { fraction(done); };
    }
    /// Ends the current step.
    void finish();
    /// Prints whole lines about what was found. Ends the current step.
    void print(const QString& lines);

private:
    void showLine(const QString& line, bool ended);
    void write(const QString& text);

    std::FILE* stream;
    bool terminal;
    QString current;
    int shownPercent = -1;
    QElapsedTimer time;
};

} // namespace planner
