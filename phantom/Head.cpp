// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <phantom/Head_p.h>

namespace phantom {

namespace {

constexpr double kWidestY = 98.0; // where the head is widest, whatever the height

Ovoid ellipsoid(const Point& center, const Point& semiAxes)
{
    return {center, center, semiAxes};
}

Ovoid rod(const Point& from, const Point& to, double radius)
{
    return {from, to, {radius, radius, radius}};
}

Ovoid grown(const Ovoid& ovoid, double by)
{
    return {ovoid.from, ovoid.to, ovoid.semiAxes + Point{by, by, by}};
}

// Returns a bone in the patient; its x is the distance from the midline. The side is -1 for the
// right and 1 for the left.
Ovoid placed(const Ovoid& bone, double side)
{
    return {{kMidlineX + side * bone.from.x, bone.from.y, bone.from.z},
            {kMidlineX + side * bone.to.x, bone.to.y, bone.to.z},
            bone.semiAxes};
}

constexpr Ovoid kRightSinus = {
    {kMidlineX - 27.5, 60.0, 101.0}, {kMidlineX - 27.5, 60.0, 101.0}, {12.0, 14.5, 15.0}};
constexpr Ovoid kLeftSinus = {
    {kMidlineX + 28.5, 60.5, 100.5}, {kMidlineX + 28.5, 60.5, 100.5}, {13.5, 17.0, 16.0}};
constexpr double kSinusWall = 1.4; // mm of bone

// The following functions build one half of the head: x is the distance from the midline.

void addCheekbone(std::vector<Ovoid>& bones)
{
    bones.push_back(ellipsoid({40.5, 58.5, 98.0}, {9.5, 8.5, 9.5}));
    bones.push_back(rod({46.0, 61.0, 100.0}, {61.0, 80.0, 106.0}, 3.6));
    bones.push_back(rod({61.0, 80.0, 106.0}, {61.0, 104.0, 108.0}, 3.2));
    bones.push_back(rod({43.0, 57.0, 106.0}, {47.0, 60.0, 140.0}, 4.5)); // rim of the orbit
}

void addMidface(std::vector<Ovoid>& bones)
{
    bones.push_back(rod({15.5, 37.0, 87.0}, {9.0, 31.5, 132.0}, 3.8)); // frontal process
    bones.push_back(rod({0.0, 24.5, 112.0}, {0.0, 27.0, 140.0}, 3.2)); // nasal bone
    bones.push_back(rod({0.0, 28.5, 86.5}, {0.0, 34.0, 86.0}, 2.4));   // nasal spine
    // Side wall of the nose.
    bones.push_back({{13.0, 40.0, 100.0}, {13.0, 74.0, 100.0}, {1.5, 4.0, 16.0}});
    bones.push_back(rod({16.0, 81.0, 83.0}, {17.0, 84.0, 112.0}, 2.8)); // pterygoid process
    // Lower rim and floor of the orbit.
    bones.push_back({{17.0, 42.0, 117.0}, {42.0, 54.0, 115.0}, {4.0, 4.0, 2.6}});
    bones.push_back({{22.0, 52.0, 118.5}, {36.0, 74.0, 119.5}, {7.0, 6.0, 1.6}});
}

void addSkullBase(std::vector<Ovoid>& bones)
{
    bones.push_back(ellipsoid({50.0, 106.0, 111.5}, {16.0, 15.0, 6.0})); // above the condyle
    bones.push_back(ellipsoid({54.0, 126.0, 102.0}, {9.0, 9.0, 18.0}));  // mastoid
    bones.push_back(rod({0.0, 104.0, 128.0}, {0.0, 122.0, 110.0}, 7.0)); // clivus
    // Occipital bone.
    bones.push_back({{16.0, 122.0, 108.0}, {46.0, 126.0, 112.0}, {9.0, 12.0, 6.0}});
    bones.push_back(rod({0.0, 88.0, 128.0}, {0.0, 104.0, 126.0}, 4.5)); // sphenoid bone
}

// The bodies of the cervical vertebrae, their pillars at the sides and the arches behind them.
void addSpine(std::vector<Ovoid>& bones)
{
    constexpr double spacing = 17.5;
    constexpr double axisZ = 64.0; // the second vertebra
    for (int below = 0; below < 5; ++below) {
        const double z = axisZ - spacing * below;
        const double y = 120.0 + 0.8 * below;
        bones.push_back({{0.0, y - 3.5, z}, {0.0, y + 3.5, z}, {9.5, 5.0, 7.2}});
        bones.push_back({{18.0, y + 8.0, z - 3.0}, {19.0, y + 10.0, z + 3.0}, {6.5, 6.5, 6.0}});
        bones.push_back(rod({9.0, y + 2.0, z}, {18.0, y + 6.0, z}, 2.8));
        bones.push_back(rod({16.0, y + 17.0, z}, {0.0, y + 26.0, z - 2.0}, 2.6));
        bones.push_back(rod({0.0, y + 26.0, z - 2.0}, {1.5, y + 31.0, z - 5.0}, 2.8));
    }
    bones.push_back(rod({0.0, 119.0, 70.0}, {0.0, 116.5, 92.0}, 5.0));   // dens
    bones.push_back(rod({0.0, 108.5, 86.0}, {14.0, 112.5, 86.0}, 3.0));  // atlas, front
    bones.push_back(ellipsoid({21.0, 121.0, 87.0}, {9.5, 11.0, 9.0}));   // atlas, side
    bones.push_back(rod({24.0, 128.0, 87.0}, {12.0, 146.0, 87.0}, 3.2)); // atlas, behind
    bones.push_back(rod({12.0, 146.0, 87.0}, {0.0, 150.0, 87.0}, 3.2));
}

} // namespace

Skin::Skin()
    : face{{0.0, 86.0},  {4.0, 76.0},  {7.5, 58.0},  {10.0, 42.0},  {13.0, 32.5},
           {18.0, 26.5}, {24.0, 24.0}, {30.0, 25.0}, {37.0, 28.5},  {43.0, 25.5},
           {49.0, 21.0}, {54.0, 22.0}, {57.5, 26.0}, {61.0, 20.5},  {66.0, 19.0},
           {72.0, 22.0}, {78.0, 24.5}, {90.0, 26.5}, {110.0, 27.5}, {130.0, 23.5}},
      back{{0.0, 158.0}, {40.0, 162.0}, {90.0, 190.0}, {130.0, 200.0}},
      width{{0.0, 52.0}, {20.0, 57.0}, {40.0, 63.5}, {60.0, 66.5}, {100.0, 70.0}, {130.0, 70.0}},
      noseRidge{{78.0, 24.5}, {79.5, 16.0},  {83.0, 10.0}, {88.0, 8.5},
                {93.0, 10.5}, {105.0, 15.5}, {130.0, 22.0}},
      noseWidth{{78.0, 13.0}, {82.0, 16.0}, {87.0, 17.5}, {95.0, 13.0}, {108.0, 8.5}, {130.0, 9.5}}
{}

double Skin::halfWidthAt(double y, double z) const
{
    const double frontY = face.at(z);
    const double backY = back.at(z);
    const double nose = noseHalfWidthAt(y, z);
    if (y < frontY || y > backY)
        return nose;
    if (y >= kWidestY)
        return width.at(z) * std::sqrt(1.0 - square((y - kWidestY) / (backY - kWidestY)));
    // Between an ellipse and a wedge.
    const double ellipse = std::sqrt(1.0 - square((kWidestY - y) / (kWidestY - frontY)));
    const double wedge = ellipse * std::sqrt(ellipse);
    return std::max(width.at(z) * mix(ellipse, wedge, 0.55), nose);
}

double Skin::noseHalfWidthAt(double y, double z) const
{
    constexpr double lowestZ = 78.0;
    constexpr double rootBehindFace = 8.0; // mm: the wings of the nose end inside the cheeks
    const double tipY = noseRidge.at(z);
    if (z < lowestZ || y < tipY)
        return -1.0;
    const double rootY = face.at(z) + rootBehindFace;
    return y > rootY ? -1.0 : noseWidth.at(z) * std::sqrt((y - tipY) / (rootY - tipY));
}

std::vector<Ovoid> otherBones()
{
    std::vector<Ovoid> half;
    addCheekbone(half);
    addMidface(half);
    addSkullBase(half);
    addSpine(half);
    std::vector<Ovoid> bones = {grown(kRightSinus, kSinusWall), grown(kLeftSinus, kSinusWall)};
    for (const Ovoid& bone : half) {
        bones.push_back(placed(bone, -1.0));
        bones.push_back(placed(bone, 1.0));
    }
    return bones;
}

std::vector<Ovoid> airSpaces()
{
    constexpr double m = kMidlineX;
    return {
        // The right and the left half of the nose.
        {{m - 5.6, 41.0, 103.0}, {m - 5.6, 76.0, 103.0}, {5.8, 8.0, 17.0}},
        {{m + 7.0, 41.0, 103.0}, {m + 7.0, 76.0, 103.0}, {4.6, 8.0, 17.0}},
        {{m - 6.0, 17.0, 77.0}, {m - 5.6, 36.0, 93.0}, {3.2, 3.2, 3.2}}, // nostrils
        {{m + 6.0, 17.0, 77.0}, {m + 6.0, 36.0, 93.0}, {3.2, 3.2, 3.2}},
        kRightSinus,
        kLeftSinus,
        ellipsoid({m, 92.0, 95.0}, {13.0, 13.0, 16.0}),         // nasopharynx
        {{m, 101.0, 86.0}, {m, 101.0, 62.0}, {12.0, 6.0, 6.0}}, // oropharynx
        {{m, 101.0, 62.0}, {m, 96.0, 22.0}, {13.0, 6.0, 6.0}},
        {{m, 96.0, 22.0}, {m, 95.0, -10.0}, {10.0, 8.0, 8.0}}, // down to the larynx
        ellipsoid({m, 60.0, 66.0}, {18.5, 24.0, 15.0}),        // cavity of the mouth
    };
}

std::vector<Ovoid> lumpsInAirSpaces()
{
    constexpr double m = kMidlineX;
    return {
        ellipsoid({m, 63.0, 58.0}, {23.0, 28.0, 20.0}),                  // tongue
        {{m, 78.0, 83.0}, {m, 96.0, 70.0}, {12.0, 4.0, 3.5}},            // soft palate
        {{m - 9.5, 42.0, 93.5}, {m - 9.5, 74.0, 93.5}, {3.6, 5.0, 4.6}}, // turbinates
        {{m - 10.0, 48.0, 106.0}, {m - 10.0, 74.0, 106.0}, {4.0, 5.0, 4.6}},
        {{m + 10.6, 42.0, 93.5}, {m + 10.6, 74.0, 93.5}, {3.2, 5.0, 4.2}},
        {{m + 11.0, 48.0, 106.0}, {m + 11.0, 74.0, 106.0}, {3.6, 5.0, 4.2}},
    };
}

} // namespace phantom
