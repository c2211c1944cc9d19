// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/Report.h>

// Covered: Report: a whole folder or nothing, and no file that is not its own is touched.

#include <planner/Failure.h>

#include <gmock/gmock.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

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
        section.pictures.append(
            {QStringLiteral("a.png"), QStringLiteral("A"), QStringLiteral("<p>caption</p>"), image});
        Report whole(planned);
        whole.add(section);
        return whole;
    }

    QString path(const char* name) const { return folder.filePath(QString::fromLatin1(name)); }

    QStringList entries(const QString& of) const
    {
        return QDir(of).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
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
    EXPECT_EQ(report().write(path("new")), path("new/index.html"));
    EXPECT_EQ(entries(path("new")), QStringList({QStringLiteral("a.png"), QStringLiteral("index.html")}));
    EXPECT_EQ(entries(folder.path()), QStringList({QStringLiteral("new")}));
}

TEST_F(ReportFolder, CanBeEnteredByOthers)
{
    const MaskSetter mask(022);
    report().write(path("new"));
    EXPECT_TRUE(QFile::permissions(path("new")).testFlags(QFileDevice::ReadOther | QFileDevice::ExeOther));
}

TEST_F(ReportFolder, CannotBeChangedByOthersWhoMayChangeItsParent)
{
    const MaskSetter mask(022);
    ASSERT_EQ(chmod(QFile::encodeName(folder.path()).constData(), 01777), 0);
    report().write(path("new"));
    const QFile::Permissions permissions = QFile::permissions(path("new"));
    EXPECT_FALSE(permissions.testFlag(QFileDevice::WriteGroup));
    EXPECT_FALSE(permissions.testFlag(QFileDevice::WriteOther));
}

TEST_F(ReportFolder, KeepsTheFilesOfOthers)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("old")));
    put(path("old/notes.txt"), "mine");
    put(path("old/index.html"), "an older report");
    report().write(path("old"));
    EXPECT_EQ(contentOf(path("old/notes.txt")), "mine");
    EXPECT_TRUE(contentOf(path("old/index.html")).contains("Views"));
    EXPECT_EQ(entries(path("old")), QStringList({QStringLiteral("a.png"), QStringLiteral("index.html"),
                                                 QStringLiteral("notes.txt")}));
}

TEST_F(ReportFolder, StaysAsItWasIfAFolderStandsWhereAFileBelongs)
{
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("old/index.html")));
    EXPECT_THROW(report().write(path("old")), planner::Failure);
    EXPECT_EQ(entries(path("old")), QStringList({QStringLiteral("index.html")}));
}

TEST_F(ReportFolder, IsNotMadeInPlaceOfAFileOrBelowNothing)
{
    put(path("file"), "x");
    EXPECT_THROW(report().write(path("file")), planner::Failure);
    EXPECT_THROW(report().write(path("file/below")), planner::Failure);
    EXPECT_THROW(report().write(path("nowhere/below")), planner::Failure);
    EXPECT_EQ(entries(folder.path()), QStringList({QStringLiteral("file")}));
}

TEST_F(ReportFolder, IsOnlyProbedByTheCheck)
{
    EXPECT_NO_THROW(Report::checkFolder(path("new")));
    EXPECT_TRUE(entries(folder.path()).isEmpty());
}

TEST_F(ReportFolder, HasAPageInWhichTextIsEscaped)
{
    report().write(path("new"));
    const QByteArray page = contentOf(path("new/index.html"));
    EXPECT_TRUE(page.contains("<h1>&lt;Head &amp; neck&gt;</h1>"));
    EXPECT_TRUE(page.contains("<p>caption</p>"));
    EXPECT_TRUE(page.contains("src=\"a.png\""));
    EXPECT_TRUE(page.contains("Not for clinical use"));
}

} // namespace
