// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/drawing/GreyScale.h>
#include <planner/drawing/Picture.h>
#include <planner/drawing/Sampling.h>
#include <planner/planning/DentalArchPlan.h>

#include <functional>

namespace planner {

/// How far a slice of an arch lies within the crowns, from their occlusal points.
inline constexpr float kIntoTheCrownsMm = 4.0F;

/// Returns the height of the slice on which an arch is shown, in mm.
float sliceHeight(PlanarDentalSpline& arch);
/// Returns the mean height of the proposals, in mm.
float meanHeight(const QList<NerveProposal>& nerves);
/// Returns whether a label is of a tooth of the arch.
bool isOfArch(const ToothAnnotation3D& label, const PlanarDentalSpline& arch);

/// Paints arches and nerves onto slices of a case, which must outlive it.
class DentalPictures
{
public:
    /// The function receives the fraction done of each picture, 0 to 1.
    DentalPictures(const Case& openedCase, std::function<void(double)> onFraction);

    /// Paints an arch with its control points and labels, anterior up.
    QImage paintArch(const DentalArchPlan& plan, PlanarDentalSpline& arch) const;
    /// Paints the proposals and the known canals, projected onto their mean height.
    QImage paintNerves(const QList<NerveProposal>& nerves) const;
    /// Paints a proposal and its canal, if that is known, in an upright cut through both foramina.
    QImage paintFromSide(const NerveProposal& nerve) const;

private:
    PictureContent cut(const PlanarReslice& reslice) const;

    const Case& planned;
    std::function<void(double)> progress;
    GreyScale scale;
    Sampler sampler;
};

} // namespace planner
