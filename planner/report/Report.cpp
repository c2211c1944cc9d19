// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/report/Report.h>

#include <planner/input/Failure.h>
#include <planner/input/Progress.h>
#include <planner/report/InterruptionHold.h>
#include <planner/report/Style.h>

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <filesystem>
#include <memory>
#include <new>
#include <system_error>

#include <sys/stat.h>

namespace planner {

namespace {

constexpr char16_t kPageName[] = u"index.html";

QString paragraph(const QString& text, const QString& cssClass)
{
    return QStringLiteral("<p class=\"%1\">%2</p>\n").arg(cssClass, text.toHtmlEscaped());
}

// "a file or folder in DIR or beside it", where what is not yet the report is kept: beside a folder
// that is yet to be made, inside one that is there, so that moving it into place is always a rename
// within one file system.
std::unique_ptr<QTemporaryDir> stagingFolder(const QString& folder)
{
    if (QFileInfo::exists(folder))
        return std::make_unique<QTemporaryDir>(
            QDir(folder).filePath(QStringLiteral(".report-XXXXXX")));
    return std::make_unique<QTemporaryDir>(folder + QStringLiteral(".part-XXXXXX"));
}

std::filesystem::path nativePath(const QString& path)
{
    return {QFile::encodeName(path).toStdString()};
}

std::error_code rename(const QString& from, const QString& to)
{
    std::error_code error;
    std::filesystem::rename(nativePath(from), nativePath(to), error);
    return error;
}

// Nothing, or why the file cannot be written.
QString writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    // As much as there is room for is written without an error; only the next call tells why there
    // is no more.
    for (qint64 written = 0; written < bytes.size();) {
        const qint64 more = file.write(bytes.constData() + written, bytes.size() - written);
        if (more <= 0)
            return file.errorString();
        written += more;
    }
    return file.flush() ? QString() : file.errorString();
}

// Works in memory, since the codec has a word of its own on standard error for a file that cannot
// be written.
QByteArray pngOf(const QImage& image)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "PNG"))
        throw std::bad_alloc();
    return buffer.data();
}

// Gives a temporary folder, which is its owner's alone, the permissions of a folder made by mkdir.
void openToOthers(const QString& folder)
{
    const mode_t mask = umask(0);
    umask(mask);
    std::error_code notAllowed; // then it remains its owner's alone
    std::filesystem::permissions(nativePath(folder), std::filesystem::perms(0777 & ~mask),
                                 std::filesystem::perm_options::add, notAllowed);
}

Failure notWritten(const QString& folder, const QString& why)
{
    return {folder, QStringLiteral("the report cannot be written to this folder: %1").arg(why)};
}

QString absolute(const QString& folder)
{
    return QDir::cleanPath(QFileInfo(folder).absoluteFilePath());
}

} // namespace

void Section::introduce(const QString& sentence)
{
    introductionHtml += QStringLiteral("<p>%1</p>\n").arg(sentence.toHtmlEscaped());
    plainText += sentence + u'\n';
}

Report::Report(const Case& planned) : title(planned.title)
{
    headHtml =
        paragraph(planned.source, QStringLiteral("source")) +
        paragraph(QStringLiteral("CT: %1.").arg(planned.volume.description),
                  QStringLiteral("facts")) +
        paragraph(
            QStringLiteral(
                "All positions are LPS millimeters: x to the patient's left, y to posterior, z to "
                "superior. Letters at the edges of a picture: R right, L left, A anterior, "
                "P posterior, S superior, I inferior of the patient."),
            QStringLiteral("facts"));
    for (const QString& warning : planned.warnings)
        headHtml += paragraph(warning, QStringLiteral("warning"));
    for (const QString& remark : planned.remarks)
        headHtml += paragraph(remark, QStringLiteral("remarks"));
}

void Report::checkFolder(const QString& folder)
{
    const QFileInfo info(absolute(folder));
    if (info.exists() && !info.isDir())
        throw Failure(folder, QStringLiteral("this is a file, the report needs a folder"));
    if (!info.exists() && !info.dir().exists())
        throw Failure(
            folder, QStringLiteral("the report cannot be written, its parent folder is not there"));
    const InterruptionHold hold;
    const std::unique_ptr<QTemporaryDir> probe = stagingFolder(info.filePath());
    if (!probe->isValid())
        throw notWritten(folder, probe->errorString());
}

QString Report::write(const QString& folder, Progress& progress) const
{
    checkFolder(folder);
    const QString target = absolute(folder);
    const InterruptionHold hold; // until what is unfinished is in its place or removed
    const std::unique_ptr<QTemporaryDir> staging = stagingFolder(target);
    if (!staging->isValid())
        throw notWritten(folder, staging->errorString());
    progress.step(QStringLiteral("Writing the report"));

    qsizetype pictures = 0;
    for (const Section& section : sections)
        pictures += section.pictures.size();
    QStringList names;
    const auto put = [&](const QString& name, const QByteArray& bytes) {
        if (InterruptionHold::isRequested())
            throw notWritten(folder, QStringLiteral("the program is asked to end"));
        const QString why = writeFile(staging->filePath(name), bytes);
        if (!why.isEmpty())
            throw notWritten(folder, why);
        names.append(name);
        progress.fraction(static_cast<double>(names.size()) / static_cast<double>(pictures + 1));
    };
    for (const Section& section : sections) {
        for (const SectionPicture& picture : section.pictures)
            put(picture.fileName, pngOf(picture.image));
    }
    put(QString::fromUtf16(kPageName),
        page().toUtf8()); // last: it is there only with all its pictures
    progress.finish();

    if (!QFileInfo::exists(target)) {
        openToOthers(staging->path());
        if (const std::error_code error = rename(staging->path(), target))
            throw notWritten(folder, QString::fromStdString(error.message()));
        staging->setAutoRemove(false);
        return QDir(target).filePath(names.last());
    }
    for (const QString& name : names) {
        if (QFileInfo(QDir(target).filePath(name)).isDir())
            throw Failure(
                folder, QStringLiteral("a folder stands where the report's %1 belongs").arg(name));
    }
    for (const QString& name : names) {
        if (const std::error_code error =
                rename(staging->filePath(name), QDir(target).filePath(name)))
            throw notWritten(folder, QString::fromStdString(error.message()));
    }
    return QDir(target).filePath(names.last());
}

QString Report::page() const
{
    QString html =
        QStringLiteral(
            "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
            "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
            "<title>Planner report: %1</title>\n<style>%2</style>\n</head>\n<body>\n<header><div>\n"
            "<h1>%1</h1>\n<span class=\"notice\">Not for clinical use</span>\n%3<nav>")
            .arg(title.toHtmlEscaped(), QString::fromUtf8(kStyle), headHtml);
    for (const Section& section : sections)
        html +=
            QStringLiteral("<a href=\"#%1\">%2</a>").arg(section.id, section.title.toHtmlEscaped());
    html += QStringLiteral("</nav>\n</div></header>\n<main>\n");
    for (const Section& section : sections) {
        html += QStringLiteral("<section id=\"%1\">\n<h2>%2</h2>\n%3\n<div class=\"pictures\">\n")
                    .arg(section.id, section.title.toHtmlEscaped(), section.introductionHtml);
        for (const SectionPicture& picture : section.pictures) {
            html += QStringLiteral("<figure><a href=\"%1\"><img src=\"%1\" width=\"%2\" "
                                   "height=\"%3\" alt=\"%4\"></a>"
                                   "<figcaption><h3>%4</h3>%5</figcaption></figure>\n")
                        .arg(picture.fileName)
                        .arg(picture.image.width())
                        .arg(picture.image.height())
                        .arg(picture.title.toHtmlEscaped(), picture.captionHtml);
        }
        html += QStringLiteral("</div>\n%1</section>\n").arg(section.detailsHtml);
    }
    html +=
        QStringLiteral(
            "<footer>Written by the planner of CoreAlgorithms %1. Not for clinical use.</footer>\n"
            "</main>\n</body>\n</html>\n")
            .arg(QStringLiteral(PLANNER_VERSION));
    return html;
}

} // namespace planner
