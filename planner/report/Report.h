// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Case.h>

#include <QImage>
#include <QList>
#include <QString>

namespace planner {

class Progress;

/// A picture of a section. The file name must be the report's own, such as "axial.png".
struct SectionPicture
{
    QString fileName;
    QString title;
    QString captionHtml;
    QImage image;
};

/// What one topic contributes to the report.
struct Section
{
    QString id; ///< anchor in the page
    QString title;
    QString introductionHtml = {};
    QList<SectionPicture> pictures = {};
    QString detailsHtml = {}; ///< below the pictures: tables
    QString plainText = {};   ///< what is printed on standard output, lines

    /// Adds a sentence to the introduction and to what is printed.
    void introduce(const QString& sentence);
};

/// A folder with index.html and its pictures, linked relatively.
class Report
{
public:
    /// Describes the case at the top of the page.
    explicit Report(const Case& planned);

    /// Adds a section below the others.
    void add(const Section& section) { sections.append(section); }

    /// Throws Failure if a report could not be written to the folder; leaves nothing behind.
    static void checkFolder(const QString& folder);
    /// Writes everything or, with a Failure, nothing; also if SIGINT, SIGTERM or SIGHUP arrives
    /// meanwhile. In a folder that exists already, files with the names of this report's own are
    /// replaced and all others are unchanged. Returns the path of the page.
    QString write(const QString& folder, Progress& progress) const;

private:
    QString page() const;

    QString title;
    QString headHtml;
    QList<Section> sections;
};

} // namespace planner
