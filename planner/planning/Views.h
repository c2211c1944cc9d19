// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Case.h>

#include <CoreAlgorithms/model/dataobjects/Reslices.h>

#include <QString>
#include <QVector3D>

#include <memory>

namespace planner {

/// A view, with the reason for its place.
template <typename Reslice>
struct View
{
    QString id; ///< of its picture's file name
    QString title;
    QString place; ///< a sentence
    std::shared_ptr<Reslice> reslice;
};

using PlanarView = View<PlanarReslice>;
using CephView = View<CephReslice>;

/// Returns a view across the head at the height where most teeth and arch points are, 3 mm thick.
/// Anterior is up and the patient's right is on the left, as if seen from the feet. Its normal
/// points to superior, so it is mirrored vertically.
PlanarView axialView(const Case& planned);

/// Returns a tilted view, 4 mm thick: the plane of least squared distances to the four foramina;
/// without them 30 degrees down to anterior through the middle of the volume. Anterior is up and
/// the patient's right is on the left, without mirroring.
PlanarView obliqueView(const Case& planned);

/// Returns a view from the patient's right with parallel rays, so that the face looks to the right;
/// the whole volume. Points are mapped onto the plane midway between the foramina of either side,
/// or in the middle of the volume.
CephView lateralView(const Case& planned);

/// Returns where a direction points to, as the letters R, L, A, P, S, I, the strongest first: a
/// letter for each component above a quarter. A question mark follows if the orientation of the
/// volume is not known.
QString directionLetters(const QVector3D& direction, bool orientationKnown);

} // namespace planner
