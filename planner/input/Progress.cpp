// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/input/Progress.h>

#include <planner/input/Failure.h>

#include <QtGlobal>

#include <algorithm>
#include <cerrno>

#include <unistd.h>

namespace planner {

Progress::Progress() : Progress(stdout, isatty(STDOUT_FILENO) != 0) {}

Progress::Progress(std::FILE* to, bool isTerminal) : stream(to), terminal(isTerminal) {}

void Progress::step(const QString& what)
{
    finish();
    current = what;
    shownPercent = -1;
    time.start();
    showLine(what + QStringLiteral(" ..."), !terminal);
}

void Progress::fraction(double done)
{
    const int percent = static_cast<int>(std::clamp(done, 0.0, 1.0) * 100.0);
    if (!terminal || current.isEmpty() || percent == shownPercent)
        return;
    shownPercent = percent;
    showLine(QStringLiteral("%1 ... %2 %").arg(current, QString::number(percent)), false);
}

void Progress::finish()
{
    if (terminal && !current.isEmpty())
        showLine(QStringLiteral("%1: %2 s")
                     .arg(current, QString::number(double(time.elapsed()) / 1000.0, 'f', 1)),
                 true);
    current.clear();
}

void Progress::print(const QString& lines)
{
    finish();
    write(lines);
}

void Progress::showLine(const QString& line, bool ended)
{
    // On a terminal the line before is erased first, as it may be longer.
    write((terminal ? QStringLiteral("\r\x1b[K") : QString()) + line +
          (ended ? QStringLiteral("\n") : QString()));
}

void Progress::write(const QString& text)
{
    // If a stream fails, some operations report it and others do not.
    errno = 0;
    const bool written = std::fputs(text.toLocal8Bit().constData(), stream) >= 0 &&
                         std::fflush(stream) == 0 && std::ferror(stream) == 0;
    if (!written)
        throw Failure(QStringLiteral("Standard output cannot be written: %1")
                          .arg(qt_error_string(errno != 0 ? errno : EIO)));
}

} // namespace planner
