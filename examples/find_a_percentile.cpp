// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT

// Finds the grey value below which 60 percent of a few samples lie. The ranks of five samples are
// 10, 30, 50, 70 and 90, so that percentile 60 is midway between the third and the fourth.

#include <CoreAlgorithms/greyvalue/CalculatePercentile.h>

#include <QList>

#include <iostream>

int main()
{
    // [CalculatePercentile]
    QList<float> samples{40.0F, 10.0F, 50.0F, 30.0F, 20.0F};
    CalculatePercentile calculator;
    calculator.setData(&samples);
    calculator.setPercentile(60.0F);
    if (!calculator.execute())
        return 1;
    const float percentile = calculator.getResult(); // 35, midway between 30 and 40
    // [CalculatePercentile]

    std::cout << "60 percent of the samples lie below " << percentile << ".\n";
    return percentile == 35.0F ? 0 : 1;
}
