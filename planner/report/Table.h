// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <utility>

namespace planner {

struct TableCell
{
    enum Look { Plain, Bold, Alarming };

    // NOLINTNEXTLINE(google-explicit-constructor): most cells are a text
    TableCell(QString shown, Look how = Plain) : text(std::move(shown)), look(how) {}

    QString text;
    Look look;
};

/// A table of the report. Each row has as many cells as there are headings.
struct Table
{
    QStringList headings;
    QList<QList<TableCell>> rows = {};

    /// Returns the table for the page.
    QString html() const;
    /// Returns the table for a terminal, a line for each row: the first two columns are flush left,
    /// the others flush right.
    QString text() const;
};

/// Returns a number with the given count of decimals.
QString number(double value, int decimals);

} // namespace planner
