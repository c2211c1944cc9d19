// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT

// A user drags over the view of a CT to change the grey value from which on voxels are shown as
// bone. Leftward and upward drags raise the threshold by one grey value for each pixel.

#include <CoreAlgorithms/greyvalue/BoneThresholdModifier.h>
#include <CoreAlgorithms/model/dataobjects/ColormapFunctions.h>
#include <CoreAlgorithms/model/dataobjects/VolumeObject.h>

#include <QPointF>

#include <iostream>
#include <memory>
#include <vector>

int main()
{
    const auto bone = std::make_shared<colormap::ThresholdFunction>();
    VolumeObject volume;
    volume.setAllVisualizationFunctions({bone});
    volume.setActiveVisualizationFunction(bone);
    volume.setThreshold(bone->getUUID(), 400);

    // Screen positions of the mouse, in pixels, y downward: 30 to the left, then 20 up.
    const std::vector<QPointF> path{{200.0, 150.0}, {185.0, 152.0}, {170.0, 150.0}, {171.0, 130.0}};

    // [BoneThresholdModifier]
    BoneThresholdModifier modifier(volume);
    modifier.setPreviewUpdateEnabledState(true); // while the mouse button is down
    QPointF last = path.front();
    for (const QPointF& point : path) {
        modifier.update(last, point); // each part of the drag starts where the last one ended
        last = point;
    }
    modifier.setPreviewUpdateEnabledState(false);
    // [BoneThresholdModifier]

    const int threshold = volume.getThreshold(bone->getUUID());
    std::cout << "Voxels count as bone from the grey value " << threshold << " on.\n";
    const bool isExpected = threshold == 400 + 30 + 20 && !bone->isPreviewUpdateEnabled();
    return isExpected ? 0 : 1;
}
