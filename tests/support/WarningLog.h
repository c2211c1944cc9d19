// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

namespace test {

/// Records every message that is logged during its lifetime, unchanged, instead of printing it.
/// There may be one at a time.
class WarningLog
{
public:
    WarningLog()
    {
        messages().clear();
        before = qInstallMessageHandler(
            [](QtMsgType type, const QMessageLogContext&, const QString& text) {
                messages().append(type == QtWarningMsg ? text
                                                       : QStringLiteral("not a warning: ") + text);
            });
    }
    WarningLog(const WarningLog&) = delete;
    WarningLog& operator=(const WarningLog&) = delete;
    ~WarningLog() { qInstallMessageHandler(before); }

    const QStringList& texts() const { return messages(); }
    void clear() { messages().clear(); }

private:
    static QStringList& messages()
    {
        static QStringList texts;
        return texts;
    }

    QtMessageHandler before = nullptr;
};

} // namespace test
