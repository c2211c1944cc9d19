#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
# SPDX-License-Identifier: MIT
"""Measures percentiles of ten million floats by numpy, to be compared with percentile_benchmarks. Needs
python3-numpy."""
import time

import numpy

COUNT = 10_000_000
PERCENTILES = [0.5, 5.0, 25.0, 50.0, 75.0, 95.0, 99.5]
REPETITIONS = 5


def samples():
    """Returns the samples of PercentileBenchmark.cpp, from the same linear congruential generator, in blocks of powers
    of its factor."""
    states = numpy.empty(COUNT, dtype=numpy.uint32)
    factor, offset, filled = 1664525, 1013904223, 1
    states[0] = (factor + offset) & 0xFFFFFFFF
    while filled < COUNT:
        block = min(filled, COUNT - filled)
        states[filled : filled + block] = states[:block] * numpy.uint32(factor) + numpy.uint32(offset)
        factor, offset = factor * factor & 0xFFFFFFFF, (factor * offset + offset) & 0xFFFFFFFF
        filled += block
    return (states >> 8).astype(numpy.float32) * numpy.float32(4000.0 / 16777216.0) - numpy.float32(1000.0)


def median_ms(run):
    times = []
    for _ in range(REPETITIONS):
        start = time.perf_counter()
        run()
        times.append((time.perf_counter() - start) * 1000.0)
    return sorted(times)[REPETITIONS // 2]


values = samples()
print("first:", round(median_ms(lambda: numpy.percentile(values, 95.0, method="hazen")), 1), "ms")
print("seven at once:", round(median_ms(lambda: numpy.percentile(values, PERCENTILES, method="hazen")), 1), "ms")
print("seven one by one:",
      round(median_ms(lambda: [numpy.percentile(values, p, method="hazen") for p in PERCENTILES]), 1), "ms")
print("results:", [float(numpy.percentile(values, p, method="hazen")) for p in PERCENTILES])
