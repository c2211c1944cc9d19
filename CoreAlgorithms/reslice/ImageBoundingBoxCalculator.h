// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <QRect>

class QImage;

/// Finds the rectangle of an image that holds its visible content, for cropping a rendered view.
///
/// A pixel is content if the alpha of its color, as returned by QImage::pixel(), is greater than 10
/// of 255; the color itself is ignored. A color index without an entry in the color table is not
/// content.
///
/// (1) createBoundingBox has the result of four searches that read pixel after pixel by
///     QImage::pixel().
class COREALGORITHMS_EXPORT ImageBoundingBoxCalculator
{
public:
    /// Returns the rectangle from the first column and row with content to the last, both
    /// inclusive, in pixels; a null rectangle for a null image. A side on which no content is found
    /// has the border 0, with the warning "Failed to create bounding box on image". For an image
    /// without content all four sides do, and the rectangle is the pixel (0, 0). Takes time linear
    /// in the number of pixels.
    static QRect createBoundingBox(const QImage& image);

private:
    static int findFirstXBorder(const QImage& image);
    static int findFirstYBorder(const QImage& image);
    /// Searches from the right. Does not examine column 0.
    static int findSecondXBorder(const QImage& image);
    /// Searches from below. Does not examine row 0.
    static int findSecondYBorder(const QImage& image);
};
