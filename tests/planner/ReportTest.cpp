// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/report/Report.h>

// Covered: Report: a whole folder or nothing, also after a signal, and no file that is not its own
// is touched.

#include <planner/input/Failure.h>
#include <tests/planner/SilentProgress.h>

#include <gmock/gmock.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <cstdio>
#include <random>
#include <string>

#include <signal.h> // NOLINT(modernize-deprecated-headers): POSIX
#include <sys/resource.h>
#include <sys/stat.h>

using planner::Report;

namespace {

// Sets the file mode creation mask of the process for as long as it lives.
class MaskSetter
{
public:
    explicit MaskSetter(mode_t mask) : before(umask(mask)) {}
    ~MaskSetter() { umask(before); }
    MaskSetter(const MaskSetter&) = delete;
    MaskSetter& operator=(const MaskSetter&) = delete;

private:
    mode_t before;
};

class ReportFolder : public testing::Test
{
protected:
    static Report report()
    {
        planner::Case planned;
        planned.title = QStringLiteral("<Head & neck>");
        planner::Section section;
        section.id = QStringLiteral("views");
        section.title = QStringLiteral("Views");
        QImage image(2, 2, QImage::Format_Grayscale8);
        image.fill(0);
        section.pictures.append({QStringLiteral("a.png"), QStringLiteral("A"),
                                 QStringLiteral("<p>caption</p>"), image});
        Report whole(planned);
        whole.add(section);
        return whole;
    }

    static QString write(const QString& folder)
    {
        test::SilentProgress progress;
        return report().write(folder, progress);
    }

    QString path(const char* name) const { return folder.filePath(QString::fromLatin1(name)); }

    QStringList entries(const QString& of) const
    {
        return QDir(of).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                                  QDir::Name);
    }

    static QByteArray contentOf(const QString& file)
    {
        QFile opened(file);
        EXPECT_TRUE(opened.open(QIODevice::ReadOnly));
        return opened.readAll();
    }

    static void put(const QString& file, const QByteArray& content)
    {
        QFile opened(file);
        EXPECT_TRUE(opened.open(QIODevice::WriteOnly));
        opened.write(content);
    }

    QTemporaryDir folder;
};

TEST_F(ReportFolder, IsMadeWithPageAndPictures)
{
    EXPECT_EQ(write(path("new")), path("new/index.html"));
    EXPECT_EQ(entries(path("new")),
              QStringList({QStringLiteral("a.png"), QStringLiteral("index.html")}));
    EXPECT_EQ(entries(folder.path()), QStringList({QStringLiteral("new")}));
}

TEST_F(ReportFolder, CanBeEnteredByOthers)
{
    const MaskSetter mask(022);
    write(path("new"));
    EXPECT_TRUE(
        QFile::permissions(path("new")).testFlags(QFileDevice::ReadOther | QFileDevice::ExeOther));
}

TEST_F(ReportFolder, CannotBeChangedByOthersWhoMayChangeItsParent)
{
    const MaskSetter mask(022);
    ASSERT_EQ(chmod(QFile::encodeName(folder.path()).constData(), 01777), 0);
    write(path("new"));
    const QFile::Permissions permissions = QFile::permissions(path("new"));
    EXPECT_FALSE(permissions.testFlag(QFileDevice::WriteGroup));
    EXPECT_FALSE(permissions.testFlag(QFileDevice::WriteOther));
}

TEST_F(ReportFolder, KeepsTheFilesOfOthers)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("old")));
    put(path("old/notes.txt"), "mine");
    put(path("old/index.html"), "an older report");
    write(path("old"));
    EXPECT_EQ(contentOf(path("old/notes.txt")), "mine");
    EXPECT_TRUE(contentOf(path("old/index.html")).contains("Views"));
    EXPECT_EQ(entries(path("old")),
              QStringList({QStringLiteral("a.png"), QStringLiteral("index.html"),
                           QStringLiteral("notes.txt")}));
}

TEST_F(ReportFolder, StaysAsItWasIfAFolderStandsWhereAFileBelongs)
{
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("old/index.html")));
    EXPECT_THROW(write(path("old")), planner::Failure);
    EXPECT_EQ(entries(path("old")), QStringList({QStringLiteral("index.html")}));
}

TEST_F(ReportFolder, IsNotMadeInPlaceOfAFileOrBelowNothing)
{
    put(path("file"), "x");
    EXPECT_THROW(write(path("file")), planner::Failure);
    EXPECT_THROW(write(path("file/below")), planner::Failure);
    EXPECT_THROW(write(path("nowhere/below")), planner::Failure);
    EXPECT_EQ(entries(folder.path()), QStringList({QStringLiteral("file")}));
}

TEST_F(ReportFolder, IsOnlyProbedByTheCheck)
{
    EXPECT_NO_THROW(Report::checkFolder(path("new")));
    EXPECT_TRUE(entries(folder.path()).isEmpty());
}

// Limits the size of files that the process writes for as long as it lives; more is an error as on
// a full disk.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes) : handler(signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit limit{bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &before);
        signal(SIGXFSZ, handler);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    void (*handler)(int);
    rlimit before{};
};

TEST_F(ReportFolder, ThatCannotHoldAPictureIsAFailureWithItsReasonAndNothingIsLeft)
{
    Report large = report();
    planner::Section section;
    QImage image(300, 300, QImage::Format_RGB32);
    std::mt19937 noise; // which cannot be compressed
    for (int i = 0; i < 300 * 300; ++i)
        image.setPixel(i % 300, i / 300, static_cast<uint>(noise()));
    section.pictures.append({QStringLiteral("large.png"), QStringLiteral("A"), {}, image});
    large.add(section);

    std::string sentence;
    testing::internal::CaptureStderr();
    {
        test::SilentProgress progress;
        const FileSizeLimit limit(20000);
        try {
            large.write(path("new"), progress);
        } catch (const planner::Failure& failure) {
            sentence = failure.what();
        }
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "the codec says nothing of its own";
    EXPECT_THAT(sentence,
                testing::HasSubstr("the report cannot be written to this folder: File too large"));
    EXPECT_TRUE(entries(folder.path()).isEmpty());
}

// A stream that raises a signal whenever something is printed on it.
std::FILE* streamThatRaises(int signal)
{
    cookie_io_functions_t functions{};
    functions.write = [](void* number, const char*, std::size_t size) -> ssize_t {
        raise(*static_cast<int*>(number));
        return static_cast<ssize_t>(size);
    };
    static int raised = 0;
    raised = signal;
    return fopencookie(&raised, "w", functions);
}

// Writes in a child process. The signal arrives when the unfinished folder is there.
void writeInterrupted(const Report& report, const QString& folder, int signal)
{
    planner::Progress progress(streamThatRaises(signal), false);
    report.write(folder, progress);
}

TEST_F(ReportFolder, IsNotLeftHalfWrittenByASignal)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        EXPECT_EXIT(writeInterrupted(report(), path("new"), signal),
                    testing::KilledBySignal(signal), "");
        EXPECT_TRUE(entries(folder.path()).isEmpty()) << signal;
    }
}

TEST_F(ReportFolder, ThatIsThereIsAsItWasAfterASignal)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("old")));
    put(path("old/index.html"), "an older report");
    EXPECT_EXIT(writeInterrupted(report(), path("old"), SIGTERM), testing::KilledBySignal(SIGTERM),
                "");
    EXPECT_EQ(entries(path("old")), QStringList({QStringLiteral("index.html")}));
    EXPECT_EQ(contentOf(path("old/index.html")), "an older report");
}

TEST_F(ReportFolder, HasAPageWithWarningsAndRemarks)
{
    planner::Case planned;
    planned.warnings = {QStringLiteral("Left < right.")};
    planned.remarks = {QStringLiteral("Nothing is marked.")};
    test::SilentProgress progress;
    Report(planned).write(path("new"), progress);
    const QByteArray page = contentOf(path("new/index.html"));
    EXPECT_TRUE(page.contains("<p class=\"warning\">Left &lt; right.</p>"));
    EXPECT_TRUE(page.contains("<p class=\"remarks\">Nothing is marked.</p>"));
}

TEST_F(ReportFolder, HasAPageInWhichTextIsEscaped)
{
    write(path("new"));
    const QByteArray page = contentOf(path("new/index.html"));
    EXPECT_TRUE(page.contains("<h1>&lt;Head &amp; neck&gt;</h1>"));
    EXPECT_TRUE(page.contains("<p>caption</p>"));
    EXPECT_TRUE(page.contains("src=\"a.png\""));
    EXPECT_TRUE(page.contains("Not for clinical use"));
}

} // namespace
