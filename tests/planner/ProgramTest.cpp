// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT

// Covered: the program itself, run with a standard output that cannot be written, and with signals
// at different steps.

#include <gmock/gmock.h>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <array>
#include <string>

#include <fcntl.h>
#include <signal.h> // NOLINT(modernize-deprecated-headers): POSIX
#include <sys/wait.h>
#include <unistd.h>

namespace {

// One run of the planner on the built-in patient in large voxels.
class Program : public testing::Test
{
protected:
    // Starts with standard output on the file descriptor, which is closed here; on none if it is
    // -1.
    void start(int output, const char* argument)
    {
        const QByteArray report = QFile::encodeName(folder.filePath(QStringLiteral("report")));
        const QByteArray errorPath = QFile::encodeName(errorFile());
        process = fork();
        if (process == 0) {
            const int errorDescriptor =
                open(errorPath.constData(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
            dup2(errorDescriptor, STDERR_FILENO);
            close(errorDescriptor);
            output < 0 ? close(STDOUT_FILENO) : dup2(output, STDOUT_FILENO);
            if (output >= 0)
                close(output);
            if (lines >= 0)
                close(lines);
            execl(PLANNER, PLANNER, "--report", report.constData(), argument,
                  static_cast<char*>(nullptr));
            _exit(127);
        }
        if (output >= 0)
            close(output);
    }

    // Starts with standard output to be read.
    void start()
    {
        std::array<int, 2> ends{};
        ASSERT_EQ(pipe(ends.data()), 0);
        lines = ends[0];
        start(ends[1], "--voxel-size=4");
    }

    // Reads standard output up to the beginning of a line; false if it ends before.
    bool waitFor(const std::string& beginning)
    {
        char next = 0;
        for (std::string line; line != beginning;) {
            if (read(lines, &next, 1) != 1)
                return false;
            if (next == '\n')
                line.clear();
            else
                line += next;
        }
        return true;
    }

    void readToTheEnd()
    {
        char next = 0;
        while (read(lines, &next, 1) == 1) {
        }
    }

    int waitStatus()
    {
        int status = 0;
        EXPECT_EQ(waitpid(process, &status, 0), process);
        return status;
    }

    std::string errorText() const
    {
        QFile file(errorFile());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().toStdString();
    }

    // What it has left where the report would be, and next to it.
    QStringList left() const
    {
        return QDir(folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    void expectRefusal(const char* sentence)
    {
        const int status = waitStatus();
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 2) << status;
        EXPECT_EQ(errorText(), std::string("planner: ") + sentence + "\n");
        EXPECT_TRUE(left().isEmpty());
    }

    void TearDown() override
    {
        if (lines >= 0)
            close(lines);
    }

    pid_t process = 0;
    int lines = -1;
    QTemporaryDir folder;

private:
    QString errorFile() const { return errors.filePath(QStringLiteral("errors")); }

    QTemporaryDir errors;
};

TEST_F(Program, RefusesAFullStandardOutput)
{
    for (const char* argument : {"--voxel-size=4", "--help"}) {
        const int full = open("/dev/full", O_WRONLY);
        ASSERT_GE(full, 0);
        start(full, argument);
        const int status = waitStatus();
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 2) << argument << ": " << status;
        EXPECT_THAT(errorText(),
                    testing::MatchesRegex("planner: Standard output cannot be written.*\n"));
        EXPECT_TRUE(left().isEmpty());
    }
}

TEST_F(Program, RefusesAClosedStandardOutput)
{
    start(-1, "--voxel-size=4");
    expectRefusal("Standard output is closed");
}

TEST_F(Program, RefusesAStandardOutputWhoseReaderIsGone)
{
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    close(ends[0]);
    start(ends[1], "--voxel-size=4");
    expectRefusal("Standard output cannot be written: Broken pipe");
}

TEST_F(Program, EndsByASignalDuringItsWorkAndLeavesNothing)
{
    for (const int number : {SIGINT, SIGTERM}) {
        start();
        ASSERT_TRUE(waitFor("Painting the built-in patient"));
        ASSERT_EQ(kill(process, number), 0);
        const int status = waitStatus();
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == number) << status;
        EXPECT_EQ(errorText(), "");
        EXPECT_TRUE(left().isEmpty());
        close(lines);
        lines = -1;
    }
}

// However late the signal arrives, there is a whole report or none.
TEST_F(Program, EndsByASignalDuringItsWritingAndLeavesAWholeReportOrNone)
{
    start();
    ASSERT_TRUE(waitFor("Writing the report"));
    ASSERT_EQ(kill(process, SIGTERM), 0);
    readToTheEnd();
    const int status = waitStatus();
    const QStringList entries = left();
    if (WIFSIGNALED(status) && entries.isEmpty()) {
        EXPECT_EQ(WTERMSIG(status), SIGTERM);
    } else {
        EXPECT_EQ(entries, QStringList(QStringLiteral("report")));
        EXPECT_TRUE(QFile::exists(folder.filePath(QStringLiteral("report/index.html"))));
    }
    EXPECT_EQ(errorText(), "");
}

} // namespace
