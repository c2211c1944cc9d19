// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/reslice/ImageBoundingBoxCalculator.h>

#include <QImage>
#include <QMessageLogger>

#include <algorithm>
#include <array>

namespace {

constexpr QRgb kAlphaMask = 0xff000000U;
constexpr QRgb kFaintestBackground = 10U << 24U; // alpha 10 of 255 is still background
constexpr int kBlock = 64;                       // pixels that are tested at once

bool isContent(QRgb pixel)
{
    return (pixel & kAlphaMask) > kFaintestBackground;
}

bool hasPalette(QImage::Format format)
{
    return format == QImage::Format_Mono || format == QImage::Format_MonoLSB ||
           format == QImage::Format_Indexed8;
}

bool storesArgb(QImage::Format format)
{
    return format == QImage::Format_ARGB32 || format == QImage::Format_ARGB32_Premultiplied;
}

// Finds the content of an image row by row.
class Content
{
public:
    explicit Content(const QImage& shown)
        : image(shown), palette(hasPalette(shown.format())), argb(storesArgb(shown.format()))
    {
        if (!palette)
            return;
        const QList<QRgb> colors = image.colorTable();
        const auto count = std::min<qsizetype>(colors.size(), paletteContent.size());
        std::transform(colors.begin(), colors.begin() + count, paletteContent.begin(), isContent);
    }
    explicit Content(QImage&&) = delete; // the image must outlive its content

    // Returns the first column with content in [begin, end) of the row, or `end`.
    int firstIn(int row, int begin, int end) const
    {
        if (!argb)
            return firstSingly(row, begin, end);
        const QRgb* pixels = argbRow(row);
        int x = begin;
        while (x + kBlock <= end && !anyInBlock(pixels + x))
            x += kBlock;
        return static_cast<int>(std::find_if(pixels + x, pixels + end, isContent) - pixels);
    }

    // Returns the last column with content in [begin, end) of the row, or begin - 1.
    int lastIn(int row, int begin, int end) const
    {
        int x = end;
        if (argb) {
            const QRgb* pixels = argbRow(row);
            while (x - kBlock >= begin && !anyInBlock(pixels + x - kBlock))
                x -= kBlock;
        }
        while (x > begin && !at(x - 1, row))
            --x;
        return x - 1;
    }

    int width() const { return image.width(); }
    int height() const { return image.height(); }

    bool anyInRow(int row) const { return firstIn(row, 0, image.width()) < image.width(); }

private:
    const QRgb* argbRow(int row) const
    {
        return reinterpret_cast<const QRgb*>(image.constScanLine(row));
    }

    // The loop has no early exit, so that compilers test several pixels at once.
    static bool anyInBlock(const QRgb* pixels)
    {
        QRgb any = 0;
        for (int i = 0; i < kBlock; ++i)
            any |= static_cast<QRgb>(isContent(pixels[i]));
        return any != 0;
    }

    int firstSingly(int row, int begin, int end) const
    {
        int x = begin;
        while (x < end && !at(x, row))
            ++x;
        return x;
    }

    bool at(int x, int y) const
    {
        // QImage::pixel() trusts that the color table has an entry for every index.
        return palette ? paletteContent[image.pixelIndex(x, y)] : isContent(image.pixel(x, y));
    }

    const QImage& image;
    bool palette;
    bool argb;
    std::array<bool, 256> paletteContent{}; // by color index
};

int warnThatNothingWasFound()
{
    QMessageLogger().warning("Failed to create bounding box on image");
    return 0;
}

// Returns the rows from the given one on; they share the memory of the image.
QImage rowsFrom(const QImage& image, int row)
{
    if (row == 0)
        return image;
    QImage rows(image.constScanLine(row), image.width(), image.height() - row, image.bytesPerLine(),
                image.format());
    rows.setColorTable(image.colorTable());
    return rows;
}

} // namespace

QRect ImageBoundingBoxCalculator::createBoundingBox(const QImage& image)
{
    if (image.isNull())
        return {};
    const int top = findFirstYBorder(image);
    // The searches by columns skip the rows that are known to have no content.
    const QImage rows = rowsFrom(image, top);
    const int left = findFirstXBorder(rows);
    const int bottom = findSecondYBorder(image);
    const int right = findSecondXBorder(rows);
    return {QPoint(left, top), QPoint(right, bottom)};
}

// The searches by columns also read the image row by row, in the order of memory. Each row is
// searched only in the columns that would improve the border found so far.
int ImageBoundingBoxCalculator::findFirstXBorder(const QImage& image)
{
    const Content content(image);
    int border = content.width();
    for (int row = 0; row < content.height() && border > 0; ++row)
        border = content.firstIn(row, 0, border);
    return border < content.width() ? border : warnThatNothingWasFound();
}

int ImageBoundingBoxCalculator::findFirstYBorder(const QImage& image)
{
    const Content content(image);
    for (int row = 0; row < content.height(); ++row) {
        if (content.anyInRow(row))
            return row;
    }
    return warnThatNothingWasFound();
}

int ImageBoundingBoxCalculator::findSecondXBorder(const QImage& image)
{
    // Intended: column 0 is not examined; the application's crops rely on the warning when only the
    // first column has content.
    const Content content(image);
    int border = 0;
    for (int row = 0; row < content.height() && border < content.width() - 1; ++row)
        border = content.lastIn(row, border + 1, content.width());
    return border > 0 ? border : warnThatNothingWasFound();
}

int ImageBoundingBoxCalculator::findSecondYBorder(const QImage& image)
{
    // Intended: row 0 is not examined, as column 0 in findSecondXBorder().
    const Content content(image);
    for (int row = content.height() - 1; row > 0; --row) {
        if (content.anyInRow(row))
            return row;
    }
    return warnThatNothingWasFound();
}
