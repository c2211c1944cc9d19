// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <QRect>

class QImage;

/// Which rectangle of an image holds its visible content, for cropping a rendered view?
///
/// A pixel is content if the alpha of its colour, as QImage::pixel() tells it, is greater than 10
/// of 255; the colour itself plays no part. An index without an entry in the colour table is no
/// content.
///
/// (1) createBoundingBox has the result of four searches that ask QImage::pixel() for pixel after
/// pixel.
///
/// Linear in the number of pixels; ARGB32 images take the time of reading their memory about once.
class COREALGORITHMS_EXPORT ImageBoundingBoxCalculator
{
public:
    /// From the first column and row with content to the last, both inclusive, in pixels. Null for
    /// a null image. A side on which no content is found has border 0, with the warning "Failed to
    /// create bounding box on image": all four in an image without content, whose rectangle is the
    /// pixel (0, 0).
    static QRect createBoundingBox(const QImage& image);

private:
    friend struct ImageBoundingBoxCalculatorTestAccess;

    static int findFirstXBorder(const QImage& image);
    static int findFirstYBorder(const QImage& image);
    /// Column 0 is not examined from this side.
    static int findSecondXBorder(const QImage& image);
    /// Row 0 is not examined from this side.
    static int findSecondYBorder(const QImage& image);
};
