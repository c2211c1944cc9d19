// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/report/Sections.h>

// Covered: createScannerFrameSection(), with the built-in patient and without.

#include <tests/planner/GuiTest.h>
#include <tests/planner/SilentProgress.h>

#include <phantom/Phantom.h>

#include <gtest/gtest.h>

#include <memory>

namespace {

using planner::Case;
using planner::createScannerFrameSection;
using planner::Section;

using ScannerFrameSection = test::GuiTest;

TEST_F(ScannerFrameSection, IsLeftOutWithASentenceForAnotherCt)
{
    test::SilentProgress progress;
    const Section section = createScannerFrameSection(Case(), progress);
    EXPECT_EQ(section.id, QStringLiteral("plan"));
    EXPECT_TRUE(
        section.introductionHtml.contains(QStringLiteral("exists for the built-in patient only")));
    EXPECT_TRUE(section.pictures.isEmpty());
    EXPECT_TRUE(section.plainText.contains(QStringLiteral("none was moved")));
}

TEST_F(ScannerFrameSection, ShowsTheWayBackAndABiteThatIsUndoneAndRedone)
{
    Case built;
    built.patient = std::make_shared<const phantom::Patient>();
    test::SilentProgress progress;
    const Section section = createScannerFrameSection(built, progress);
    EXPECT_EQ(section.pictures.size(), 2);
    EXPECT_TRUE(section.plainText.contains(QStringLiteral("46 objects")));
    EXPECT_TRUE(section.plainText.contains(QStringLiteral("the bits of the first time")));
    EXPECT_FALSE(section.plainText.contains(QStringLiteral("NOT")));
    EXPECT_EQ(section.detailsHtml.count(QStringLiteral("<tr><td>")), 46 + 4);
}

} // namespace
