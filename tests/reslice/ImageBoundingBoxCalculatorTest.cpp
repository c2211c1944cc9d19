// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/reslice/ImageBoundingBoxCalculator.h>

// Covered: the rectangle of visible content, the four searches and their bounds, the warnings,
// every image format.

#include <tests/support/WarningLog.h>

#include <QColor>
#include <QImage>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using test::WarningLog;

const QString kWarning = QStringLiteral("Failed to create bounding box on image");

static_assert(std::is_copy_assignable_v<ImageBoundingBoxCalculator> &&
              std::is_move_assignable_v<ImageBoundingBoxCalculator>);
static_assert(std::is_empty_v<ImageBoundingBoxCalculator>);

QImage transparent(int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(0U);
    return image;
}

QImage withPixel(int x, int y, QRgb color)
{
    QImage image = transparent(10, 8);
    image.setPixel(x, y, color);
    return image;
}

// Computes the result of law 1 in one plain pass. Logs nothing.
QRect pixelByPixel(const QImage& image)
{
    const auto content = [&image](int x, int y) { return qAlpha(image.pixel(x, y)) > 10; };
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    bool found = false;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (!content(x, y))
                continue;
            left = found ? std::min(left, x) : x;
            top = found ? top : y;
            right = std::max(right, x);
            bottom = y;
            found = true;
        }
    }
    return {QPoint(left, top), QPoint(right, bottom)};
}

TEST(ImageBoundingBoxCalculator, NullImageGivesANullRectangleWithoutAWarning)
{
    WarningLog log;
    EXPECT_EQ(ImageBoundingBoxCalculator::createBoundingBox(QImage()), QRect());
    EXPECT_EQ(ImageBoundingBoxCalculator::createBoundingBox(QImage(0, 0, QImage::Format_ARGB32)),
              QRect());
    EXPECT_EQ(ImageBoundingBoxCalculator::createBoundingBox(QImage(0, 5, QImage::Format_ARGB32)),
              QRect());
    EXPECT_TRUE(log.texts().isEmpty());
}

TEST(ImageBoundingBoxCalculator, RectangleRunsFromTheFirstToTheLastColumnAndRowWithContent)
{
    QImage image = transparent(12, 9);
    for (int y = 2; y <= 4; ++y) {
        for (int x = 3; x <= 8; ++x)
            image.setPixel(x, y, qRgba(0, 0, 0, 255));
    }
    WarningLog log;
    const QRect box = ImageBoundingBoxCalculator::createBoundingBox(image);
    EXPECT_EQ(box.topLeft(), QPoint(3, 2));
    EXPECT_EQ(box.bottomRight(), QPoint(8, 4));
    EXPECT_EQ(box.width(), 6);
    EXPECT_EQ(box.height(), 3);
    EXPECT_TRUE(log.texts().isEmpty());
}

TEST(ImageBoundingBoxCalculator, EachBorderMayComeFromAnotherPixel)
{
    QImage image = transparent(200, 150);
    for (const QPoint& pixel : {QPoint(7, 70), QPoint(90, 11), QPoint(190, 80), QPoint(60, 140)})
        image.setPixel(pixel, qRgba(1, 2, 3, 11));
    EXPECT_EQ(ImageBoundingBoxCalculator::createBoundingBox(image),
              QRect(QPoint(7, 11), QPoint(190, 140)));
}

TEST(ImageBoundingBoxCalculator, AlphaTenIsBackgroundAndElevenIsContentWhateverTheColor)
{
    WarningLog log;
    EXPECT_EQ(
        ImageBoundingBoxCalculator::createBoundingBox(withPixel(4, 3, qRgba(255, 255, 255, 10))),
        QRect(QPoint(0, 0), QPoint(0, 0)));
    EXPECT_EQ(log.texts().size(), 4);
    log.clear();
    EXPECT_EQ(ImageBoundingBoxCalculator::createBoundingBox(withPixel(4, 3, qRgba(0, 0, 0, 11))),
              QRect(QPoint(4, 3), QPoint(4, 3)));
    EXPECT_EQ(ImageBoundingBoxCalculator::createBoundingBox(withPixel(4, 3, qRgba(0, 0, 0, 128))),
              QRect(QPoint(4, 3), QPoint(4, 3))); // the top bit set: the comparison is unsigned
    EXPECT_TRUE(log.texts().isEmpty());
}

TEST(ImageBoundingBoxCalculator, TransparentImageWarnsFourTimesAndGivesThePixelAtTheOrigin)
{
    WarningLog log;
    EXPECT_EQ(ImageBoundingBoxCalculator::createBoundingBox(transparent(10, 8)),
              QRect(QPoint(0, 0), QPoint(0, 0)));
    EXPECT_EQ(log.texts(), QStringList({kWarning, kWarning, kWarning, kWarning}));
}

TEST(ImageBoundingBoxCalculator, BackwardSearchesStopBeforeColumnAndRowZeroByDesign)
{
    const QImage image = withPixel(0, 0, qRgba(0, 0, 0, 255));
    WarningLog log;
    EXPECT_EQ(ImageBoundingBoxCalculator::createBoundingBox(image),
              QRect(QPoint(0, 0), QPoint(0, 0)));
    EXPECT_EQ(log.texts(), QStringList({kWarning, kWarning}));

    // One pixel further in, all sides find it.
    log.clear();
    EXPECT_EQ(ImageBoundingBoxCalculator::createBoundingBox(withPixel(1, 1, qRgba(0, 0, 0, 255))),
              QRect(QPoint(1, 1), QPoint(1, 1)));
    EXPECT_TRUE(log.texts().isEmpty());
}

TEST(ImageBoundingBoxCalculator, ContentInColumnZeroAloneWarnsOnlyForTheRightBorder)
{
    WarningLog log;
    EXPECT_EQ(ImageBoundingBoxCalculator::createBoundingBox(withPixel(0, 5, qRgba(0, 0, 0, 255))),
              QRect(QPoint(0, 5), QPoint(0, 5)));
    EXPECT_EQ(log.texts(), QStringList(kWarning));
}

TEST(ImageBoundingBoxCalculator, ImageOfOnePixelWarnsForBothBackwardSearches)
{
    QImage image(1, 1, QImage::Format_RGB32);
    image.fill(Qt::black);
    WarningLog log;
    EXPECT_EQ(ImageBoundingBoxCalculator::createBoundingBox(image),
              QRect(QPoint(0, 0), QPoint(0, 0)));
    EXPECT_EQ(log.texts().size(), 2);
}

// Rows longer than the blocks that are tested at once, content at every offset within a block.
TEST(ImageBoundingBoxCalculator, FindsAPixelAtEveryColumn)
{
    WarningLog log;
    for (int x = 1; x < 200; ++x) {
        QImage image = transparent(200, 3);
        image.setPixel(x, 1, qRgba(0, 0, 0, 11));
        EXPECT_EQ(ImageBoundingBoxCalculator::createBoundingBox(image),
                  QRect(QPoint(x, 1), QPoint(x, 1)));
    }
    EXPECT_TRUE(log.texts().isEmpty());
}

class EveryFormat : public testing::TestWithParam<int>
{
protected:
    QImage blank(int width, int height) const
    {
        return {width, height, static_cast<QImage::Format>(GetParam())};
    }
};

TEST_P(EveryFormat, Law1HasTheResultOfReadingPixelByPixel)
{
    SCOPED_TRACE(GetParam());
    std::mt19937 engine(17);
    for (int round = 0; round < 20; ++round) {
        QImage source = transparent(150, 90);
        const int pixels = round % 5;
        for (int i = 0; i < pixels; ++i) {
            const int x = static_cast<int>(engine() % 150U);
            const int y = static_cast<int>(engine() % 90U);
            source.setPixel(x, y, qRgba(200, 100, 50, static_cast<int>(engine() % 30U)));
        }
        const QImage image = source.convertToFormat(static_cast<QImage::Format>(GetParam()));
        ASSERT_FALSE(image.isNull());
        WarningLog log;
        EXPECT_EQ(ImageBoundingBoxCalculator::createBoundingBox(image), pixelByPixel(image));
    }
}

// Floating-point formats are left out: arbitrary bytes are no colors in them.
class EveryIntegerFormat : public EveryFormat
{};

TEST_P(EveryIntegerFormat, Law1HoldsForArbitraryBytes)
{
    SCOPED_TRACE(GetParam());
    std::mt19937 engine(18);
    for (int round = 0; round < 10; ++round) {
        QImage image = blank(70, 12);
        if (image.format() == QImage::Format_Indexed8) {
            QList<QRgb> colors;
            for (int i = 0; i < 256; ++i)
                colors.append(qRgba(i, i, i, i / 24)); // alpha 11 only and not for many
            image.setColorTable(colors);
        }
        for (int y = 0; y < image.height(); ++y) {
            std::generate_n(image.scanLine(y), image.bytesPerLine(),
                            [&engine] { return static_cast<uchar>(engine() % 256U); });
        }
        WarningLog log;
        EXPECT_EQ(ImageBoundingBoxCalculator::createBoundingBox(image), pixelByPixel(image));
    }
}

// Names the row of a format by its bits per pixel and its number.
std::string nameOfFormat(const testing::TestParamInfo<int>& format)
{
    const int bits =
        QImage::toPixelFormat(static_cast<QImage::Format>(format.param)).bitsPerPixel();
    return "QImageFormat" + std::to_string(format.param) + "With" + std::to_string(bits) + "Bits";
}

INSTANTIATE_TEST_SUITE_P(ImageBoundingBoxCalculator, EveryFormat,
                         testing::Range(int{QImage::Format_Invalid} + 1,
                                        int{QImage::NImageFormats}),
                         nameOfFormat);
INSTANTIATE_TEST_SUITE_P(ImageBoundingBoxCalculator, EveryIntegerFormat,
                         testing::Range(int{QImage::Format_Invalid} + 1,
                                        int{QImage::Format_RGBX16FPx4}),
                         nameOfFormat);

TEST(ImageBoundingBoxCalculator, ColorIndicesBeyondTheColorTableAreNoContent)
{
    QImage image(9, 7, QImage::Format_Indexed8);
    image.setColorTable({qRgba(0, 0, 0, 0), qRgba(9, 9, 9, 255)});
    image.fill(0U);
    image.scanLine(2)[3] = 1;
    image.scanLine(5)[6] = 200;
    EXPECT_EQ(ImageBoundingBoxCalculator::createBoundingBox(image),
              QRect(QPoint(3, 2), QPoint(3, 2)));

    for (const QImage::Format format : {QImage::Format_Mono, QImage::Format_MonoLSB}) {
        QImage mono(9, 7, format);
        mono.setColorTable({});
        std::fill_n(mono.bits(), mono.sizeInBytes(), uchar{0xff});
        WarningLog log;
        EXPECT_EQ(ImageBoundingBoxCalculator::createBoundingBox(mono),
                  QRect(QPoint(0, 0), QPoint(0, 0)));
        EXPECT_EQ(log.texts().size(), 4);
    }
}

TEST(ImageBoundingBoxCalculator, ReadsImagesOverForeignMemoryWithPaddedRows)
{
    // Each row has two visible pixels; the third is padding and opaque.
    std::vector<QRgb> memory = {0, 0, 0xffffffff, 0, 0xff000000, 0xffffffff};
    const QImage image(reinterpret_cast<const uchar*>(memory.data()), 2, 2, 12,
                       QImage::Format_ARGB32);
    EXPECT_EQ(ImageBoundingBoxCalculator::createBoundingBox(image),
              QRect(QPoint(1, 1), QPoint(1, 1)));
}

} // namespace
