// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/report/Table.h>

#include <algorithm>

namespace planner {

namespace {

QString cellHtml(const TableCell& cell)
{
    const QString text = cell.text.toHtmlEscaped();
    switch (cell.look) {
    case TableCell::Bold:
        return QStringLiteral("<td><b>%1</b></td>").arg(text);
    case TableCell::Alarming:
        return QStringLiteral(
                   "<td style=\"background:#fbdedb;color:#9b1c16;font-weight:700\">%1</td>")
            .arg(text);
    case TableCell::Plain:
        break;
    }
    return QStringLiteral("<td>%1</td>").arg(text);
}

} // namespace

QString Table::html() const
{
    QString html = QStringLiteral("<div class=\"scroll\"><table>\n<tr>");
    for (const QString& heading : headings)
        html += QStringLiteral("<th>%1</th>").arg(heading.toHtmlEscaped());
    html += QStringLiteral("</tr>\n");
    for (const QList<TableCell>& row : rows) {
        html += QStringLiteral("<tr>");
        for (const TableCell& cell : row)
            html += cellHtml(cell);
        html += QStringLiteral("</tr>\n");
    }
    return html + QStringLiteral("</table></div>\n");
}

QString Table::text() const
{
    QList<QList<TableCell>> lines = rows;
    lines.prepend({headings.cbegin(), headings.cend()});
    QString text;
    for (const QList<TableCell>& line : lines) {
        QStringList cells;
        for (qsizetype column = 0; column < headings.size(); ++column) {
            qsizetype width = 0;
            for (const QList<TableCell>& other : lines)
                width = std::max(width, other[column].text.size());
            cells.append(column < 2 ? line[column].text.leftJustified(width)
                                    : line[column].text.rightJustified(width));
        }
        text += cells.join(QStringLiteral("  ")) + u'\n';
    }
    return text;
}

QString number(double value, int decimals)
{
    return QString::number(value, 'f', decimals);
}

} // namespace planner
