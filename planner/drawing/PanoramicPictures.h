// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/drawing/Picture.h>
#include <planner/planning/Panorama.h>
#include <planner/planning/Views.h>

#include <functional>

namespace planner {

class GreyScale;
class Sampler;

/// The depth that a panoramic picture sums, to either side of the surface.
inline constexpr float kShownDepthMm = 6.0F;

/// How long a line is in a panoramic view, in mm.
struct LengthsInView
{
    double whole = 0.0;
    double nearSurface = 0.0; ///< within one wide column of the surface
};

/// A panoramic picture, to which lines may be added before it is painted.
class PanoramicPicture
{
public:
    /// Unrolls the view and maps the landmarks into it.
    PanoramicPicture(const Case& planned, const Panorama& view, const Sampler& sampler,
                     const GreyScale& scale, const std::function<void(double)>& progress);

    /// Adds a nerve, dotted, and solid where it is near the surface.
    LengthsInView addNerve(const CanalLine& canal);
    void addImplant(const dataobject::Implant3D& implant);

    const QList<MappedLandmark>& marks() const { return content.marks; }
    /// Returns the width of a column within which a line counts as near, in mm.
    double nearMm() const { return wide->getSampleSize().x(); }
    /// Returns the size before the picture is cropped.
    QSize wholeSize() const { return content.samples.size(); }

    /// Crops the picture to what is visible and paints it. Returns the rectangle that is shown.
    QRect paint(QImage& image);

private:
    const PanoramicReslice& reslice;
    std::shared_ptr<PanoramicReslice> wide;
    PictureContent content;
};

/// Paints a close-up of an implant before and after its turn, from below.
QImage paintTurn(const Case& planned, const TurnedImplant& turned, const GuidingLine& arch,
                 const Sampler& sampler, const GreyScale& scale);

/// A planar view with the line along which the plane of another one cuts it.
struct CutView
{
    QImage image;
    QRect shown; ///< of the whole picture, which is cropped to what is not air
    QSize whole;
    std::optional<double> lineMm; ///< nothing if the plane does not meet the view
};

CutView paintCut(PlanarReslice& reslice, const PlanarReslice& cutting, bool orientationKnown,
                 const Sampler& sampler, const GreyScale& scale);

} // namespace planner
