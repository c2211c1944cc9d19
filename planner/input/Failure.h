// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <stdexcept>

namespace planner {

/// Why the program cannot do what it was asked, as one sentence for the user. main() prints it and
/// exits with status 2.
class Failure : public std::runtime_error
{
public:
    explicit Failure(const QString& sentence) : std::runtime_error(sentence.toStdString()) {}
    /// Says what is wrong with a file or folder.
    Failure(const QString& path, const QString& what)
        : Failure(QStringLiteral("%1: %2").arg(path, what))
    {}
};

} // namespace planner
