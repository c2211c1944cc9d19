// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QGuiApplication>

#include <memory>

namespace test {

/// A fixture with the application that painting text needs, without a display.
class GuiTest : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        static int argumentCount = 1;
        static char name[] = "planner_tests";
        static char* arguments[] = {name, nullptr};
        application = std::make_unique<QGuiApplication>(argumentCount, arguments);
    }

    static void TearDownTestSuite() { application.reset(); }

private:
    static inline std::unique_ptr<QGuiApplication> application;
};

} // namespace test
