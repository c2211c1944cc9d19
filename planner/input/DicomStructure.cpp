// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/input/DicomStructure.h>

#include <planner/input/Failure.h>

#include <QByteArray>
#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <optional>

namespace planner {

namespace {

constexpr qint64 kPreamble = 128;
constexpr quint32 kUndefined = 0xffffffff;
constexpr quint32 kItem = 0xfffee000;
constexpr quint32 kItemEnd = 0xfffee00d;
constexpr quint32 kSequenceEnd = 0xfffee0dd;
constexpr quint32 kTransferSyntax = 0x00020010;
constexpr quint32 kPixels = 0x7fe00010;
constexpr int kDeepest = 16; // sequences within sequences; real ones have about 5 levels

enum class Encoding { Implicit, Explicit, BigEndianExplicit };

struct Damage
{
    QString sentence;
};

struct Element
{
    quint32 tag = 0;
    std::array<char, 2> type = {}; ///< zeros if not stated
    quint32 length = 0;
    qint64 value = 0; ///< where it starts
};

bool isTypeName(const std::array<char, 2>& letters)
{
    return std::ranges::all_of(letters, [](char c) { return c >= 'A' && c <= 'Z'; });
}

bool hasLongLength(const std::array<char, 2>& type)
{
    static const std::array<const char*, 13> names = {"OB", "OD", "OF", "OL", "OV", "OW", "SQ",
                                                      "SV", "UC", "UN", "UR", "UT", "UV"};
    return std::ranges::any_of(
        names, [&type](const char* name) { return type[0] == name[0] && type[1] == name[1]; });
}

class Walk
{
public:
    explicit Walk(const QString& path) : file(path)
    {
        if (!file.open(QIODevice::ReadOnly))
            throw Failure(path, QStringLiteral("the file cannot be read"));
    }

    DicomStructure examine()
    {
        const std::optional<qint64> start = findStart();
        if (!start)
            return found;
        found.isDicom = true;
        try {
            const auto [data, encoding] = readMeta(*start);
            readDataSet(data, file.size(), encoding, 0);
        } catch (const Damage& damage) {
            found.damage = damage.sentence;
        }
        return found;
    }

private:
    // Behind a preamble, or, in files of old, at the first element.
    std::optional<qint64> findStart()
    {
        if (file.seek(kPreamble) && file.read(4) == "DICM")
            return kPreamble + 4;
        const std::optional<Element> first = readHead(0, file.size(), encodingAt(0));
        const bool plausible = first && (first->tag >> 16U == 2 || first->tag >> 16U == 8) &&
                               (first->tag & 0xffffU) < 0x20 &&
                               first->value + first->length <= file.size();
        return plausible ? std::optional<qint64>(0) : std::nullopt;
    }

    // Judges by the letters of the first element's type: what is stated is not always true.
    Encoding encodingAt(qint64 position)
    {
        const QByteArray head = file.seek(position) ? file.read(6) : QByteArray();
        return head.size() == 6 && isTypeName({head[4], head[5]}) ? Encoding::Explicit
                                                                  : Encoding::Implicit;
    }

    struct Start
    {
        qint64 position;
        Encoding encoding;
    };

    // Where the data behind the elements of group 2 start.
    Start readMeta(qint64 position)
    {
        QByteArray syntax;
        while (true) {
            const std::optional<Element> element =
                readHead(position, file.size(), Encoding::Explicit);
            if (!element || element->tag >> 16U != 2)
                break;
            checkLength(*element, file.size());
            if (element->tag == kTransferSyntax && file.seek(element->value))
                syntax =
                    file.read(std::min<quint32>(element->length, 64)).replace('\0', "").trimmed();
            position = element->value + element->length;
        }
        if (syntax == "1.2.840.10008.1.2.1.99")
            throw Damage{
                QStringLiteral("a DICOM file that is compressed as a whole is not supported")};
        if (syntax == "1.2.840.10008.1.2.2")
            return {position, Encoding::BigEndianExplicit};
        return {position, encodingAt(position)};
    }

    // Nothing if fewer bytes are left than a tag and a length take.
    std::optional<Element> readHead(qint64 position, qint64 end, Encoding encoding)
    {
        if (end - position < 8 || !file.seek(position))
            return std::nullopt;
        const QByteArray head = file.read(8);
        if (head.size() != 8)
            return std::nullopt;
        const bool bigEndian = encoding == Encoding::BigEndianExplicit;
        const auto read16 = [bigEndian](const char* at) {
            return bigEndian ? qFromBigEndian<quint16>(at) : qFromLittleEndian<quint16>(at);
        };
        const auto read32 = [bigEndian](const char* at) {
            return bigEndian ? qFromBigEndian<quint32>(at) : qFromLittleEndian<quint32>(at);
        };
        Element element;
        element.tag = quint32{read16(head.constData())} << 16U | read16(head.constData() + 2);
        element.value = position + 8;
        element.length = read32(head.constData() + 4);
        if (encoding == Encoding::Implicit || element.tag >> 16U == 0xfffe)
            return element;
        element.type = {head[4], head[5]};
        element.length = read16(head.constData() + 6);
        if (hasLongLength(element.type)) {
            const QByteArray length = end - position >= 12 ? file.read(4) : QByteArray();
            if (length.size() != 4)
                return std::nullopt;
            element.length = read32(length.constData());
            element.value += 4;
        }
        return element;
    }

    static void checkLength(const Element& element, qint64 end)
    {
        if (element.length > end - element.value)
            throw Damage{QStringLiteral(
                             "the file is damaged or cut off: its element (%1,%2) states %3 bytes, "
                             "%4 are left")
                             .arg(element.tag >> 16U, 4, 16, QLatin1Char('0'))
                             .arg(element.tag & 0xffffU, 4, 16, QLatin1Char('0'))
                             .arg(element.length)
                             .arg(end - element.value)};
    }

    // Reads elements up to `end` or to the mark that ends an item, and returns where they end.
    qint64 readDataSet(qint64 position, qint64 end, Encoding encoding, int depth)
    {
        if (depth > kDeepest)
            throw Damage{
                QStringLiteral("the file is damaged: its sequences are nested too deeply")};
        while (const std::optional<Element> element = readHead(position, end, encoding)) {
            if (element->tag == kItemEnd)
                return element->value;
            const bool behindPixels = depth == 0 && found.pixelsAt >= 0;
            if (depth == 0 && element->tag == kPixels)
                readPixels(position, *element);
            if (encoding != Encoding::Implicit && !isTypeName(element->type)) {
                if (behindPixels)
                    return end; // padding
                throw Damage{QStringLiteral("the file is damaged: an element has no type")};
            }
            position = readValue(*element, end, encoding, depth);
        }
        return end;
    }

    void readPixels(qint64 position, const Element& element)
    {
        found.pixelsAt = position;
        found.compressed = element.length == kUndefined;
        found.pixelBytes = found.compressed ? -1 : qint64{element.length};
    }

    // Returns where the value ends.
    qint64 readValue(const Element& element, qint64 end, Encoding encoding, int depth)
    {
        const bool isSequence = element.type == std::array{'S', 'Q'};
        if (element.length == kUndefined) {
            // What a program of old did not know is written as by one that states no types.
            const bool isUnknown = element.type == std::array{'U', 'N'};
            return readItems(element.value, end, isUnknown ? Encoding::Implicit : encoding, depth,
                             element.tag == kPixels);
        }
        checkLength(element, end);
        const qint64 valueEnd = element.value + element.length;
        if (isSequence ||
            (encoding == Encoding::Implicit && element.tag != kPixels && startsWithItem(element)))
            readItems(element.value, valueEnd, encoding, depth, false);
        return valueEnd;
    }

    bool startsWithItem(const Element& element)
    {
        return element.length >= 8 && file.seek(element.value) &&
               file.read(4) == QByteArray("\xfe\xff\x00\xe0", 4);
    }

    qint64 readItems(qint64 position, qint64 end, Encoding encoding, int depth, bool areFragments)
    {
        while (const std::optional<Element> item = readHead(position, end, encoding)) {
            if (item->tag == kSequenceEnd)
                return item->value;
            if (item->tag != kItem)
                throw Damage{QStringLiteral(
                    "the file is damaged: a sequence holds something else than items")};
            if (item->length != kUndefined)
                checkLength(*item, end);
            const qint64 itemEnd = item->length == kUndefined ? end : item->value + item->length;
            position =
                areFragments ? itemEnd : readDataSet(item->value, itemEnd, encoding, depth + 1);
        }
        return end;
    }

    QFile file;
    DicomStructure found;
};

} // namespace

DicomStructure examineDicom(const QString& path)
{
    return Walk(path).examine();
}

} // namespace planner
