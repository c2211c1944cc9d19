// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/ImplantCollisionDetector.h>

// The context of translated texts.

#include <tests/collision/DetectorFixture.h>

#include <QCoreApplication>
#include <QTranslator>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using collision::ImplantCollisionDetector;
using testing::ElementsAre;

class RecordingTranslator : public QTranslator
{
public:
    QString translate(const char* context, const char* sourceText, const char* disambiguation,
                      int n) const override
    {
        asked = {context, sourceText, disambiguation ? disambiguation : "none", std::to_string(n)};
        return QStringLiteral("translated");
    }
    bool isEmpty() const override { return false; }

    mutable std::vector<std::string> asked;
};

TEST(ImplantCollisionDetectorTranslation, UsesTheContextOfTheClass)
{
    int argumentCount = 1;
    char name[] = "test";
    char* arguments[] = {name, nullptr};
    const QCoreApplication application(argumentCount, arguments);
    RecordingTranslator translator;
    QCoreApplication::installTranslator(&translator);
    EXPECT_EQ(ImplantCollisionDetector::tr("Too close", "warning", 3),
              QStringLiteral("translated"));
    EXPECT_THAT(translator.asked,
                ElementsAre("collision::ImplantCollisionDetector", "Too close", "warning", "3"));
    ImplantCollisionDetector::tr("Too close");
    EXPECT_THAT(translator.asked,
                ElementsAre("collision::ImplantCollisionDetector", "Too close", "none", "-1"));
    QCoreApplication::removeTranslator(&translator);
}

TEST(ImplantCollisionDetectorTranslation, IsTheSourceTextWithoutATranslator)
{
    EXPECT_EQ(ImplantCollisionDetector::tr("Too close", nullptr, 0), QStringLiteral("Too close"));
}

} // namespace
