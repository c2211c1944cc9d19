// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/report/Table.h>

#include <gtest/gtest.h>

using planner::Table;
using planner::TableCell;

namespace {

TEST(Table, EscapesWhatHtmlWouldInterpret)
{
    const Table table{{QStringLiteral("a < b")}, {{QStringLiteral("<i>")}}};
    EXPECT_EQ(table.html(),
              QStringLiteral("<div class=\"scroll\"><table>\n<tr><th>a &lt; b</th></tr>\n"
                             "<tr><td>&lt;i&gt;</td></tr>\n</table></div>\n"));
}

TEST(Table, MarksBoldAndAlarmingCells)
{
    const Table table{
        {QStringLiteral("a"), QStringLiteral("b")},
        {{{QStringLiteral("x"), TableCell::Bold}, {QStringLiteral("y"), TableCell::Alarming}}}};
    EXPECT_TRUE(table.html().contains(QStringLiteral("<td><b>x</b></td><td style=")));
}

TEST(Table, AlignsTheFirstTwoColumnsToTheLeftAndTheOthersToTheRight)
{
    const Table table{{QStringLiteral("name"), QStringLiteral("b"), QStringLiteral("mm")},
                      {{QStringLiteral("x"), QStringLiteral("long"), QStringLiteral("1")},
                       {QStringLiteral("y"), QString(), QStringLiteral("10.5")}}};
    EXPECT_EQ(table.text(), QStringLiteral("name  b       mm\n"
                                           "x     long     1\n"
                                           "y           10.5\n"));
}

TEST(Number, HasTheGivenCountOfDecimals)
{
    EXPECT_EQ(planner::number(1.005, 1), QStringLiteral("1.0"));
    EXPECT_EQ(planner::number(-2.0, 3), QStringLiteral("-2.000"));
}

} // namespace
