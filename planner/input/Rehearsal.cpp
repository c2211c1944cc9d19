// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/input/Rehearsal.h>

#include <planner/input/Failure.h>

#include <QByteArray>
#include <QFile>

#include <cerrno>
#include <cstring>
#include <exception>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace planner {

namespace {

enum Outcome { Succeeded = 0, Refused = 1, Died = 2 };

bool inRehearsal = false;

// The bytes of this process, or -1 where the system does not say.
qint64 addressSpaceBytes()
{
    QFile statistics(QStringLiteral("/proc/self/statm"));
    if (!statistics.open(QIODevice::ReadOnly))
        return -1;
    bool isNumber = false;
    const qint64 pages = statistics.readLine().split(' ').first().toLongLong(&isNumber);
    return isNumber ? pages * sysconf(_SC_PAGESIZE) : -1;
}

[[noreturn]] void runAsChild(const std::function<void()>& work, int sentenceTo)
{
    inRehearsal = true;
    const rlimit noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    // Libraries complain, and what is not yet written must not be written twice.
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    try {
        work();
    } catch (const Failure& failure) {
        const char* sentence = failure.what();
        if (write(sentenceTo, sentence, std::strlen(sentence)) >= 0)
            _exit(Refused);
        _exit(Died);
    } catch (const std::exception&) {
        _exit(Died);
    }
    _exit(Succeeded);
}

QByteArray readAll(int from)
{
    QByteArray all;
    char buffer[512];
    ssize_t count = 0;
    while ((count = read(from, buffer, sizeof buffer)) > 0 || (count < 0 && errno == EINTR))
        all.append(buffer, static_cast<qsizetype>(count > 0 ? count : 0));
    return all;
}

} // namespace

void rehearse(const std::function<void()>& work, const Failure& otherwise)
{
    int sentence[2] = {-1, -1};
    if (pipe2(sentence, O_CLOEXEC) != 0)
        throw Failure(QStringLiteral("The system has no resources left to read a file safely"));
    const pid_t child = fork();
    if (child == 0) {
        close(sentence[0]);
        runAsChild(work, sentence[1]);
    }
    close(sentence[1]);
    if (child < 0) {
        close(sentence[0]);
        throw Failure(QStringLiteral("The system has no resources left to read a file safely"));
    }
    const QByteArray why = readAll(sentence[0]);
    close(sentence[0]);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (WIFEXITED(status) && WEXITSTATUS(status) == Succeeded)
        return;
    // Without a sentence, a library has ended the process by itself.
    if (WIFEXITED(status) && WEXITSTATUS(status) == Refused && !why.isEmpty())
        throw Failure(QString::fromUtf8(why));
    throw otherwise;
}

void allowMemory(qint64 bytes)
{
    const qint64 now = inRehearsal ? addressSpaceBytes() : -1;
    if (now < 0)
        return;
    rlimit limit{};
    getrlimit(RLIMIT_AS, &limit);
    limit.rlim_cur = std::min(limit.rlim_max, static_cast<rlim_t>(now + bytes));
    setrlimit(RLIMIT_AS, &limit);
}

} // namespace planner
