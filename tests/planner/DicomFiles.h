// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Writes DICOM files byte by byte, good ones and bad ones: little-endian, with the type of each
// element.
#pragma once

#include <QByteArray>
#include <QList>
#include <QtEndian>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace dicomfiles {

template <typename Number>
QByteArray littleEndian(Number number)
{
    QByteArray bytes(sizeof number, '\0');
    qToLittleEndian(number, bytes.data());
    return bytes;
}

/// An element whose stated length may differ from that of its value.
inline QByteArray element(std::uint32_t tag, const char* type, const QByteArray& value,
                          std::optional<std::uint32_t> statedLength = std::nullopt)
{
    const QByteArray name(type);
    const std::uint32_t length = statedLength.value_or(static_cast<std::uint32_t>(value.size()));
    const QByteArray head = littleEndian(static_cast<std::uint16_t>(tag >> 16U)) +
                            littleEndian(static_cast<std::uint16_t>(tag & 0xffffU)) + name;
    if (name == "SQ" || name == "OW" || name == "OB" || name == "UN")
        return head + QByteArray(2, '\0') + littleEndian(length) + value;
    return head + littleEndian(static_cast<std::uint16_t>(length)) + value;
}

inline QByteArray text(std::uint32_t tag, const char* type, const std::string& value)
{
    QByteArray bytes = QByteArray::fromStdString(value);
    if (bytes.size() % 2 != 0)
        bytes += QByteArray(type) == "UI" ? '\0' : ' ';
    return element(tag, type, bytes);
}

inline QByteArray number(std::uint32_t tag, std::uint16_t value)
{
    return element(tag, "US", littleEndian(value));
}

/// A sequence of items that state their lengths.
inline QByteArray sequence(std::uint32_t tag, const QList<QByteArray>& items)
{
    QByteArray bytes;
    for (const QByteArray& item : items)
        bytes += QByteArray("\xfe\xff\x00\xe0", 4) +
                 littleEndian(static_cast<std::uint32_t>(item.size())) + item;
    return element(tag, "SQ", bytes);
}

/// The same with marks at the ends of items and sequence instead.
inline QByteArray sequenceWithMarks(std::uint32_t tag, const QList<QByteArray>& items)
{
    QByteArray bytes;
    for (const QByteArray& item : items)
        bytes += QByteArray("\xfe\xff\x00\xe0\xff\xff\xff\xff", 8) + item +
                 QByteArray("\xfe\xff\x0d\xe0\x00\x00\x00\x00", 8);
    return element(tag, "SQ", bytes + QByteArray("\xfe\xff\xdd\xe0\x00\x00\x00\x00", 8),
                   0xffffffff);
}

template <std::size_t count>
std::string decimals(const std::array<double, count>& numbers)
{
    std::string written;
    for (const double value : numbers)
        written += (written.empty() ? "" : "\\") + QByteArray::number(value).toStdString();
    return written;
}

/// The whole file around a data set.
inline QByteArray wholeFile(const QByteArray& dataSet,
                            const std::string& transferSyntax = "1.2.840.10008.1.2.1")
{
    const QByteArray meta = element(0x00020001, "OB", QByteArray("\0\1", 2)) +
                            text(0x00020002, "UI", "1.2.840.10008.5.1.4.1.1.2") +
                            text(0x00020003, "UI", "1.2.3.4.5") +
                            text(0x00020010, "UI", transferSyntax);
    return QByteArray(128, '\0') + "DICM" +
           element(0x00020000, "UL", littleEndian(static_cast<std::uint32_t>(meta.size()))) + meta +
           dataSet;
}

/// The elements of a data set without sequences, written without their types.
inline QByteArray withoutTypes(const QByteArray& dataSet)
{
    QByteArray bytes;
    for (qsizetype at = 0; at + 8 <= dataSet.size();) {
        const QByteArray type = dataSet.sliced(at + 4, 2);
        const bool isLong = type == "OW" || type == "OB" || type == "UN";
        const qsizetype value = at + (isLong ? 12 : 8);
        const std::uint32_t length =
            isLong ? qFromLittleEndian<std::uint32_t>(dataSet.constData() + at + 8)
                   : qFromLittleEndian<std::uint16_t>(dataSet.constData() + at + 6);
        bytes += dataSet.sliced(at, 4) + littleEndian(length) + dataSet.sliced(value, length);
        at = value + length;
    }
    return bytes;
}

/// Pixels of 16 bits, compressed run by run: one fragment, in which each byte of the pixels is a
/// run of its own.
inline QByteArray inRuns(const QByteArray& pixels)
{
    QByteArray segments[2]; // upper bytes, lower bytes
    for (qsizetype i = 0; i < pixels.size(); ++i)
        segments[i % 2 == 0 ? 1 : 0] += QByteArray(1, '\0') + pixels[i];
    QByteArray fragment = littleEndian(std::uint32_t{2}) + littleEndian(std::uint32_t{64}) +
                          littleEndian(static_cast<std::uint32_t>(64 + segments[0].size()));
    fragment += QByteArray(64 - fragment.size(), '\0') + segments[0] + segments[1];
    const QByteArray item("\xfe\xff\x00\xe0", 4);
    return element(0x7fe00010, "OB",
                   item + littleEndian(std::uint32_t{0}) + item +
                       littleEndian(static_cast<std::uint32_t>(fragment.size())) + fragment +
                       QByteArray("\xfe\xff\xdd\xe0\x00\x00\x00\x00", 8),
                   0xffffffff);
}

/// 2 rows of `columns` pixels, 12 bits stored; columns 0.5 mm and rows 0.25 mm apart. What is empty
/// is not written.
struct Slice
{
    std::string series = "1.2.3.4";
    std::string seriesNumber = {};
    std::string description = {};
    std::optional<std::array<double, 3>> position = {{0.0, 0.0, 0.0}};
    std::optional<std::array<double, 6>> orientation = {{1.0, 0.0, 0.0, 0.0, 1.0, 0.0}};
    std::string spacing = "0.25\\0.5"; ///< of rows, of columns
    double slope = 1.0;
    double intercept = 0.0;
    std::uint16_t columns = 3;
    std::uint16_t firstValue = 0; ///< the others count on from it
    std::string frames = {};
    std::optional<std::uint32_t> statedPixelBytes = {};
    QByteArray behindPixels = {};
    enum { Typed, Untyped, InRuns } form = Typed;
};

inline QByteArray pixels(int count, std::uint16_t firstValue)
{
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes += littleEndian(static_cast<std::uint16_t>(firstValue + i));
    return bytes;
}

/// Returns the tags from the number of samples a pixel to the representation of pixels, but not the
/// number of frames.
inline QByteArray pixelTags(std::uint16_t columns)
{
    return number(0x00280010, 2) + number(0x00280011, columns);
}

inline QByteArray pixelTypeTags()
{
    return number(0x00280100, 16) + number(0x00280101, 12) + number(0x00280102, 11) +
           number(0x00280103, 0);
}

inline QByteArray bytesOf(const Slice& slice)
{
    QByteArray data =
        text(0x00080016, "UI", "1.2.840.10008.5.1.4.1.1.2") + text(0x00080018, "UI", "1.2.3.4.5");
    if (!slice.description.empty())
        data += text(0x0008103e, "LO", slice.description);
    data += text(0x0020000e, "UI", slice.series);
    if (!slice.seriesNumber.empty())
        data += text(0x00200011, "IS", slice.seriesNumber);
    if (slice.position)
        data += text(0x00200032, "DS", decimals(*slice.position));
    if (slice.orientation)
        data += text(0x00200037, "DS", decimals(*slice.orientation));
    data += number(0x00280002, 1) + text(0x00280004, "CS", "MONOCHROME2");
    if (!slice.frames.empty())
        data += text(0x00280008, "IS", slice.frames);
    data += pixelTags(slice.columns);
    if (!slice.spacing.empty())
        data += text(0x00280030, "DS", slice.spacing);
    data += pixelTypeTags() + text(0x00281052, "DS", decimals(std::array{slice.intercept})) +
            text(0x00281053, "DS", decimals(std::array{slice.slope}));
    return wholeFile(data +
                     element(0x7fe00010, "OW", pixels(2 * slice.columns, slice.firstValue),
                             slice.statedPixelBytes) +
                     slice.behindPixels);
}

/// A file of several slices, as scanners write it since 2003: each frame says where it is, one item
/// says the rest for all. 2 rows of 3 pixels, counted on from 100 times the number of the frame.
struct Frames
{
    QList<std::array<double, 3>> positions = {{0, 0, 0}, {0, 0, 1}, {0, 0, 2}};
    QList<double> intercepts = {};     ///< one for each frame; empty: of none
    std::string stated = "3";          ///< the number of frames
    std::string spacing = "0.25\\0.5"; ///< empty: not written
    bool marks = false;                ///< at the ends of items and sequences, instead of lengths
};

inline QByteArray bytesOf(const Frames& frames)
{
    const auto group = [&frames](std::uint32_t tag, const QList<QByteArray>& items) {
        return frames.marks ? sequenceWithMarks(tag, items) : sequence(tag, items);
    };
    QByteArray allFrames = group(0x00209116, {text(0x00200037, "DS", "1\\0\\0\\0\\1\\0")});
    if (!frames.spacing.empty())
        allFrames = group(0x00289110, {text(0x00280030, "DS", frames.spacing)}) + allFrames;
    QList<QByteArray> perFrame;
    QByteArray voxels;
    for (qsizetype i = 0; i < frames.positions.size(); ++i) {
        QByteArray own = group(0x00209113, {text(0x00200032, "DS", decimals(frames.positions[i]))});
        if (i < frames.intercepts.size())
            own += group(0x00289145,
                         {text(0x00281052, "DS", decimals(std::array{frames.intercepts[i]})) +
                          text(0x00281053, "DS", "1")});
        perFrame.append(own);
        voxels += pixels(6, static_cast<std::uint16_t>(100 * i));
    }
    const QByteArray data = text(0x00080016, "UI", "1.2.840.10008.5.1.4.1.1.2.1") +
                            text(0x00080018, "UI", "1.2.3.4.5") +
                            text(0x0020000e, "UI", "1.2.3.4") + number(0x00280002, 1) +
                            text(0x00280004, "CS", "MONOCHROME2") +
                            text(0x00280008, "IS", frames.stated) + pixelTags(3) + pixelTypeTags() +
                            group(0x52009229, {allFrames}) + group(0x52009230, perFrame) +
                            element(0x7fe00010, "OW", voxels);
    return wholeFile(data);
}

} // namespace dicomfiles
