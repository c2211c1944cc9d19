// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <phantom/Teeth_p.h>

#include <array>

namespace phantom {

namespace {

using Kind = ToothForm::Kind;

constexpr int kTeethPerSide = 7;

// The teeth of one side, from the midline to the second molar.
constexpr std::array<ToothForm, kTeethPerSide> kUpperForms = {{
    {Kind::Incisor, 8.6, 7.0, 10.5, 23.5, 8.0, 59.0},
    {Kind::Incisor, 6.7, 6.2, 9.5, 22.5, 7.0, 59.3},
    {Kind::Canine, 7.6, 8.0, 10.5, 25.0, 5.0, 58.6},
    {Kind::Premolar, 7.1, 9.0, 8.5, 21.5, 2.0, 60.7},
    {Kind::Premolar, 6.9, 9.0, 8.2, 21.5, 1.5, 60.8},
    {Kind::UpperMolar, 10.4, 11.0, 7.5, 20.0, 0.5, 60.8},
    {Kind::UpperMolar, 9.8, 10.8, 7.0, 19.0, 0.0, 60.8},
}};
constexpr std::array<ToothForm, kTeethPerSide> kLowerForms = {{
    {Kind::Incisor, 5.4, 6.0, 9.0, 21.0, 5.0, 61.0},
    {Kind::Incisor, 5.9, 6.3, 9.2, 22.0, 4.5, 61.0},
    {Kind::Canine, 6.9, 7.5, 10.5, 24.5, 3.0, 61.0},
    {Kind::Premolar, 7.0, 7.6, 8.5, 21.0, 1.0, 59.4},
    {Kind::Premolar, 7.2, 8.2, 8.0, 21.5, 0.0, 59.4},
    {Kind::LowerMolar, 11.2, 10.4, 7.5, 20.5, -1.0, 59.3},
    {Kind::LowerMolar, 10.6, 10.2, 7.2, 19.5, -2.0, 59.3},
}};

// The line of the occlusal points: y = front + depth * (u^2 + u^4) / 2 with u = x / halfWidth.
struct ArchLine
{
    double front;
    double depth;
    double halfWidth;

    double yAt(double x) const
    {
        const double u2 = square(x / halfWidth);
        return front + depth * 0.5 * (u2 + u2 * u2);
    }
    double slopeAt(double x) const
    {
        const double u = x / halfWidth;
        return depth / halfWidth * (u + 2.0 * u * u * u);
    }
};

constexpr ArchLine kUpperLine = {30.0, 39.0, 25.6};
constexpr ArchLine kLowerLine = {33.0, 36.0, 23.0};

// Returns the distance from the midline of the point at a length of arch from it.
double offsetAtArchLength(const ArchLine& line, double archLength)
{
    constexpr double step = 0.005;
    double x = 0.0;
    for (double walked = 0.0; walked < archLength; x += step)
        walked += step * std::sqrt(1.0 + square(line.slopeAt(x + 0.5 * step)));
    return x;
}

// side: -1 for the patient's right, 1 for the left.
ToothPlace placeAt(const ArchLine& line, double archLength, double side)
{
    const double offset = offsetAtArchLength(line, archLength);
    const double slope = line.slopeAt(offset);
    const double norm = std::sqrt(1.0 + slope * slope);
    ToothPlace place;
    place.x = kMidlineX + side * offset;
    place.y = line.yAt(offset);
    place.mesial = {-side / norm, -slope / norm, 0.0};
    place.out = {side * slope / norm, -1.0 / norm, 0.0};
    return place;
}

double archLengthTo(const std::array<ToothForm, kTeethPerSide>& forms, int fromMidline)
{
    double archLength = 0.5 * forms[fromMidline].width;
    for (int i = 0; i < fromMidline; ++i)
        archLength += forms[i].width;
    return archLength;
}

ToothShape growTooth(ToothChart::Tooth number)
{
    const bool upper = ToothChart::isUpperTooth(number);
    // 2 to 15 from right to left in both arches.
    const int across = upper ? int(number) : 33 - int(number);
    const bool right = across <= 8;
    const int fromMidline = right ? 8 - across : across - 9;
    const auto& forms = upper ? kUpperForms : kLowerForms;
    return ToothShape(number, forms[fromMidline],
                      placeAt(upper ? kUpperLine : kLowerLine, archLengthTo(forms, fromMidline),
                              right ? -1.0 : 1.0));
}

// Returns a parabola that is 0 at 0 and 2 and 1 at 1, and 0 elsewhere.
double hump(double value)
{
    return std::max(value * (2.0 - value), 0.0);
}

// Returns the half-width factor of a crown: `edge` at the occlusal surface (0), 1 where it is
// widest, `neck` at its end (1).
double crownBulge(double fraction, double widestAt, double edge, double neck)
{
    if (fraction < widestAt)
        return mix(edge, 1.0, hump(fraction / widestAt));
    return mix(1.0, neck, square((fraction - widestAt) / (1.0 - widestAt)));
}

// Returns the half-width factor of a root from the neck (0) to the rounded tip (1).
double rootTaper(double fraction)
{
    return (1.0 - 0.5 * fraction) * std::sqrt(std::max(1.0 - square(square(fraction)), 0.0));
}

constexpr double kNeckRatio = 0.8;         // neck to crown, of the widths
constexpr double kSideEnamel = 1.1;        // mm, thinning out to the neck
constexpr double kOcclusalEnamel = 1.7;    // mm
constexpr double kCuspHeight = 1.5;        // mm above the middle of the chewing surface
constexpr double kCanineSlope = 1.8;       // mm from the tip down to either side of the edge
constexpr double kPulpShare = 0.3;         // of the neck's widths
constexpr double kRootCanalShare = 0.25;   // of the root's widths
constexpr double kEndOfRootCanal = 0.88;   // of the root's length
constexpr double kTopOfChamber = 0.5;      // of the crown's length from the occlusal surface
constexpr double kFurcation = 0.4;         // of the root's length: a molar's trunk has split
constexpr double kRootSpreadAtNeck = 0.55; // of the spread of the tips
constexpr double kMolarSquareness = 0.8;
constexpr double kPremolarSquareness = 0.35;

} // namespace

// One root; the first of a tooth carries the apex.
struct ToothShape::Root
{
    double tipMesial; // from the long axis, mm
    double tipOut;
    double semiMesial; // at the neck, mm
    double semiOut;
    double shorter; // than the first, mm
};

bool ToothShape::Section::contains(double alongMesial, double alongOut) const
{
    if (semiMesial <= 0.0 || semiOut <= 0.0)
        return false;
    const double u2 = square((alongMesial - mesial) / semiMesial);
    const double w2 = square((alongOut - out) / semiOut);
    return u2 <= 1.0 && w2 <= 1.0 && u2 + w2 - squareness * u2 * w2 <= 1.0;
}

ToothShape::ToothShape(ToothChart::Tooth toothNumber, const ToothForm& toothForm,
                       const ToothPlace& toothPlace)
    : number(toothNumber), form(toothForm), place(toothPlace)
{}

std::span<const ToothShape::Root> ToothShape::roots() const
{
    static constexpr std::array<Root, 2> distalAndMesial = {
        {{-3.2, 0.0, 2.3, 3.8, 0.0}, {3.2, 0.0, 2.3, 4.0, 0.7}}};
    static constexpr std::array<Root, 3> palatalAndTwoBuccal = {
        {{0.0, -4.2, 2.7, 2.5, 0.0}, {2.9, 3.2, 1.9, 2.5, 1.2}, {-2.9, 3.0, 1.8, 2.2, 1.5}}};
    switch (form.kind) {
    case ToothForm::LowerMolar:
        return distalAndMesial;
    case ToothForm::UpperMolar:
        return palatalAndTwoBuccal;
    case ToothForm::Incisor:
    case ToothForm::Canine:
    case ToothForm::Premolar:
        break;
    }
    return {};
}

Point ToothShape::onLongAxis(double belowOcclusal) const
{
    const double inwards = form.lean * belowOcclusal / form.wholeLength;
    return Point{place.x, place.y, form.occlusalZ - crownwards() * belowOcclusal} -
           inwards * place.out;
}

Point ToothShape::apex() const
{
    const Point axisEnd = onLongAxis(form.wholeLength);
    if (!isMolar())
        return axisEnd;
    const Root& first = roots().front();
    return axisEnd + first.tipMesial * place.mesial + first.tipOut * place.out;
}

Point ToothShape::neck() const
{
    return onLongAxis(form.crownLength);
}

Tooth ToothShape::description() const
{
    const Point top = onLongAxis(0.0);
    const Point tip = apex();
    const Point axis = (1.0 / length(top - tip)) * (top - tip);
    return {number, QVector3D(float(top.x), float(top.y), float(top.z)),
            QVector3D(float(tip.x), float(tip.y), float(tip.z)),
            QVector3D(float(axis.x), float(axis.y), float(axis.z))};
}

double ToothShape::highestZ() const
{
    return ToothChart::isUpperTooth(number) ? form.occlusalZ + form.wholeLength
                                            : form.occlusalZ + kCuspHeight;
}

double ToothShape::lowestZ() const
{
    return ToothChart::isUpperTooth(number) ? form.occlusalZ - kCuspHeight
                                            : form.occlusalZ - form.wholeLength;
}

bool ToothShape::reaches(double y, double z) const
{
    if (z < lowestZ() || z > highestZ())
        return false;
    const double reach = form.width + form.thickness + std::max(form.lean, -form.lean);
    return y >= place.y - reach && y <= place.y + reach;
}

// Returns how far the occlusal surface rises above the occlusal point: cusps, or the slopes of a
// canine's edge.
double ToothShape::riseOfSurface(double alongMesial, double alongOut) const
{
    const double u = std::abs(alongMesial) / (0.5 * form.width);
    const double w = std::abs(alongOut) / (0.5 * form.thickness);
    switch (form.kind) {
    case ToothForm::Incisor:
        return 0.0;
    case ToothForm::Canine:
        return -kCanineSlope * u;
    case ToothForm::Premolar:
        return kCuspHeight * hump(w / 0.55) * (1.0 - 0.6 * u * u);
    case ToothForm::LowerMolar:
    case ToothForm::UpperMolar:
        break;
    }
    return kCuspHeight * hump(w / 0.55) * mix(0.5, 1.0, hump(u / 0.5));
}

ToothShape::Section ToothShape::neckSection() const
{
    Section neckOutline;
    neckOutline.semiMesial = 0.5 * form.width * kNeckRatio;
    neckOutline.semiOut = 0.5 * form.thickness * (isMolar() ? 0.88 : 0.92);
    if (form.kind == ToothForm::Incisor)
        neckOutline.semiMesial *= 0.85;
    return neckOutline;
}

void ToothShape::sliceCrown(Slice& slice) const
{
    const double fraction = std::clamp(slice.belowOcclusal / form.crownLength, 0.0, 1.0);
    const Section neckOutline = neckSection();
    const bool hasEdge = form.kind == ToothForm::Incisor || form.kind == ToothForm::Canine;
    const double edgeThickness = form.kind == ToothForm::Incisor ? 0.2 : 0.3; // of the crown's
    const double neckMesial = neckOutline.semiMesial / (0.5 * form.width);
    const double neckOut = neckOutline.semiOut / (0.5 * form.thickness);

    slice.outline.semiMesial =
        0.5 * form.width *
        crownBulge(fraction, hasEdge ? 0.25 : 0.35, hasEdge ? 0.88 : 0.84, neckMesial);
    slice.outline.semiOut =
        0.5 * form.thickness *
        (hasEdge ? mix(edgeThickness, neckOut, 0.5 * (fraction + hump(fraction)))
                 : crownBulge(fraction, 0.5, 0.74, neckOut));
    slice.outline.squareness = isMolar() ? kMolarSquareness : kPremolarSquareness;

    const double enamel = kSideEnamel * (1.0 - fraction * fraction);
    slice.core = slice.outline;
    slice.core.semiMesial -= enamel;
    slice.core.semiOut -= enamel;

    if (fraction >= kTopOfChamber) {
        slice.chamber.semiMesial = kPulpShare * neckOutline.semiMesial;
        slice.chamber.semiOut = kPulpShare * neckOutline.semiOut;
    }
}

void ToothShape::sliceRoots(Slice& slice) const
{
    const double rootLength = form.wholeLength - form.crownLength;
    const double belowNeck = slice.belowOcclusal - form.crownLength;
    const Section neckOutline = neckSection();

    const auto addRoot = [&slice](Section outline, double semiMesial, double semiOut,
                                  double fraction, double endOfCanal) {
        outline.semiMesial = semiMesial * rootTaper(fraction);
        outline.semiOut = semiOut * rootTaper(fraction);
        slice.roots.append(outline);
        if (fraction > endOfCanal)
            return;
        outline.semiMesial *= kRootCanalShare;
        outline.semiOut *= kRootCanalShare;
        outline.squareness = 0.0;
        slice.rootCanals.append(outline);
    };

    const double wholeFraction = belowNeck / rootLength;
    if (!isMolar()) {
        addRoot({}, neckOutline.semiMesial, neckOutline.semiOut, wholeFraction, kEndOfRootCanal);
        return;
    }
    if (wholeFraction <= kFurcation) {
        Section trunk;
        trunk.squareness = mix(kMolarSquareness, 0.0, wholeFraction / kFurcation);
        addRoot(trunk, neckOutline.semiMesial, neckOutline.semiOut, wholeFraction / kFurcation,
                0.4);
    }
    for (const Root& root : roots()) {
        const double fraction = belowNeck / (rootLength - root.shorter);
        if (fraction > 1.0)
            continue;
        const double spread = mix(kRootSpreadAtNeck, 1.0, fraction);
        Section outline;
        outline.mesial = spread * root.tipMesial;
        outline.out = spread * root.tipOut;
        addRoot(outline, root.semiMesial, root.semiOut, fraction, kEndOfRootCanal);
    }
}

ToothShape::Slice ToothShape::sliceAt(double z) const
{
    Slice slice;
    slice.tooth = this;
    slice.belowOcclusal = (form.occlusalZ - z) * crownwards();
    const Point axis = onLongAxis(slice.belowOcclusal);
    slice.axisX = axis.x;
    slice.axisY = axis.y;
    slice.reach = 0.75 * (form.width + form.thickness);
    if (slice.belowOcclusal < form.crownLength)
        sliceCrown(slice);
    else
        sliceRoots(slice);
    return slice;
}

std::optional<Tissue> ToothShape::tissueIn(const Slice& slice, double x, double y)
{
    const double dx = x - slice.axisX;
    const double dy = y - slice.axisY;
    if (dx < -slice.reach || dx > slice.reach || dy < -slice.reach || dy > slice.reach)
        return std::nullopt;
    const ToothPlace& place = slice.tooth->place;
    const double alongMesial = dx * place.mesial.x + dy * place.mesial.y;
    const double alongOut = dx * place.out.x + dy * place.out.y;
    if (slice.roots.isEmpty())
        return tissueInCrown(slice, alongMesial, alongOut);
    return tissueInRoots(slice, alongMesial, alongOut);
}

std::optional<Tissue> ToothShape::tissueInCrown(const Slice& slice, double alongMesial,
                                                double alongOut)
{
    if (!slice.outline.contains(alongMesial, alongOut))
        return std::nullopt;
    const double belowSurface =
        slice.belowOcclusal + slice.tooth->riseOfSurface(alongMesial, alongOut);
    if (belowSurface < 0.0)
        return std::nullopt;
    if (belowSurface < kOcclusalEnamel || !slice.core.contains(alongMesial, alongOut))
        return Tissue::Enamel;
    return slice.chamber.contains(alongMesial, alongOut) ? Tissue::Pulp : Tissue::Dentine;
}

std::optional<Tissue> ToothShape::tissueInRoots(const Slice& slice, double alongMesial,
                                                double alongOut)
{
    const auto isInside = [=](const Section& section) {
        return section.contains(alongMesial, alongOut);
    };
    if (std::ranges::none_of(slice.roots, isInside))
        return std::nullopt;
    const bool inCanal = std::ranges::any_of(slice.rootCanals, isInside);
    return inCanal ? Tissue::Pulp : Tissue::Dentine;
}

std::vector<ToothShape> growTeeth()
{
    std::vector<ToothShape> teeth;
    for (const auto& [first, last] : {std::pair{2, 15}, std::pair{18, 31}}) {
        for (int number = first; number <= last; ++number)
            teeth.push_back(growTooth(ToothChart::Tooth(number)));
    }
    return teeth;
}

std::vector<Point> archThroughNecks(const std::vector<ToothShape>& teeth, ToothChart::ArchType arch)
{
    std::vector<Point> necks;
    double endWidth = 0.0;
    for (const ToothShape& tooth : teeth) {
        if (ToothChart::getArchTypeOfTooth(tooth.description().number) != arch)
            continue;
        necks.push_back(tooth.neck());
        endWidth = tooth.width();
    }
    if (arch == ToothChart::LowerArch)
        std::ranges::reverse(necks);
    const auto beyond = [endWidth](const Point& end, const Point& before) {
        const Point direction = end - before;
        return end + (endWidth / length(direction)) * direction;
    };
    necks.insert(necks.begin(), beyond(necks[0], necks[1]));
    necks.push_back(beyond(necks[necks.size() - 1], necks[necks.size() - 2]));
    constexpr int samplesPerTooth = 16;
    return smoothThrough(std::span<const Point>(necks), samplesPerTooth);
}

} // namespace phantom
