// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

#include <memory>
#include <set>

namespace dataobject {

struct Tooth
{};

/// Represents a mouth by the numbers of its teeth.
class Mouth
{
public:
    explicit Mouth(std::set<int> present) : numbers(std::move(present)) {}
    std::shared_ptr<Tooth> getToothForToothType(ToothChart::Tooth tooth) const
    {
        return numbers.contains(tooth) ? std::make_shared<Tooth>() : nullptr;
    }

private:
    std::set<int> numbers;
};

} // namespace dataobject
