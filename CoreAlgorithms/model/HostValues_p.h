// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

/// The host's values that the algorithms use by number. Hosts name the enumerators differently, so
/// that their values are what is common, and the algorithms convert to and from int.
namespace hostvalues {

// ResliceType: a reslice that is shown as a slab of its own thickness.
inline constexpr int kThickSlab = 1;

// meta::PointOfView: the view that mirrors the x axis of a cephalometric reslice.
inline constexpr int kMirroringPointOfView = 1;

// JawType.
inline constexpr int kLowerJaw = 1;
inline constexpr int kUpperJaw = 2;

// ToothChart::ArchType.
inline constexpr int kUpperArch = 0;
inline constexpr int kLowerArch = 1;

// ToothChart::Tooth.
inline constexpr int kNoTooth = 0;

// Status and category that a tooth is created with.
inline constexpr int kPresentTooth = 0;
inline constexpr int kPermanentTooth = 1;

// CreationType: an arch or label that the application made.
inline constexpr int kAutomaticallyCreated = 0;

// CTData::OcclusalPlaneDefinition: the plane at the height of the scan's center.
inline constexpr int kOcclusalPlaneAtCenter = 0;

// Context: the frame of the CT volume, and of a point that has a single position.
inline constexpr int kVolumeContext = 0;

// The place of an object at a point of a poly-line that is tied to none.
inline constexpr int kNoPlace = -1;

// TransformManipulationType: an object is placed in a new scanner frame.
inline constexpr int kScannerTransformation = 3;

// events::GuidingLineEvent: control points were added or removed.
inline constexpr int kNumberOfPointsUpdated = 3;

// image::DataType. Images of the four types from kFirstUnreadElement to kLastUnreadElement are not
// read, with a warning.
inline constexpr int kUnsigned16 = 0;
inline constexpr int kSigned16 = 1;
inline constexpr int kUnsigned8 = 2;
inline constexpr int kFirstUnreadElement = 3;
inline constexpr int kLastUnreadElement = 6;

// landmarkDetection::LandmarkType.
inline constexpr int kSubspinalePoint = 0;
inline constexpr int kSupramentalePoint = 4;
inline constexpr int kInfradentalePoint = 5;
inline constexpr int kGonionRight = 8;
inline constexpr int kGonionLeft = 9;
inline constexpr int kNasion = 14;
inline constexpr int kSella = 19;
inline constexpr int kPorionRight = 20;
inline constexpr int kPorionLeft = 21;
inline constexpr int kPogonion = 26;

} // namespace hostvalues
