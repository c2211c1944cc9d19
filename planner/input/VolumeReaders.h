// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Volume.h>

#include <QString>

#include <functional>

// Readers of volumes, each in a source of its own. NIfTI and DICOM are parsed by libraries.
// MetaImage and NRRD are not: ITK 5.2.1, which reads both, accepts MetaImage files whose voxels are
// cut off or do not decompress, opens data files in any folder, mirrors the wrong axis of NRRD's
// space LAS, and shows a missing spacing as 1 mm.
namespace planner {

/// Reads a NIfTI-1 volume from one file, .nii or .nii.gz; Failure if it cannot be read as such or
/// is not a plain 3-D volume of numbers.
///
/// The position of a voxel is that of the header's sform, without one that of its qform. With
/// neither, the voxel axes are taken to point to right, anterior and superior as NIfTI's do, and
/// the volume says that its orientation is unknown. Values are scaled by the header's slope and
/// intercept; a scaled volume holds 16-bit integers if these can hold every value exactly, else
/// single precision.
Volume readNifti(const QString& path);

/// Reads a MetaImage volume: .mha, or .mhd with its voxels in another file in the same folder or
/// below it, compressed or not. Failure if it cannot be read as such or is not a plain 3-D volume
/// of numbers.
///
/// Positions are LPS, as the programs take them that write this format. Without a matrix of
/// directions, the voxel axes are taken to point to left, posterior and superior, and the volume
/// says that its orientation is unknown.
Volume readMetaImage(const QString& path);

/// Reads an NRRD volume: .nrrd, or .nhdr with its voxels in another file in the same folder or
/// below it, raw or compressed with gzip. Failure if it cannot be read as such or is not a plain
/// 3-D volume of numbers.
///
/// Positions follow the header's space, which may be LPS, RAS or LAS. Without one of these, or
/// without directions, the voxel axes are taken to point to left, posterior and superior, and the
/// volume says that its orientation is unknown.
Volume readNrrd(const QString& path);

/// Returns whether a file begins as DICOM files do, behind a preamble.
bool isDicomFile(const QString& path);

/// Reads a DICOM series: of a folder with its subfolders, or of a file that holds all slices as
/// frames. Failure if there is none that makes a volume.
///
/// Files that are not DICOM are ignored; pictures that are not slices, or are damaged, are left
/// out, and the volume says so. Slices belong together if they have the same series and
/// orientation. If there are several such stacks of more than one slice, `series` chooses one: by
/// its number in the list that the Failure without a choice gives, or by its UID. Slices are
/// ordered by their position along the normal, whatever their files are called, and must be evenly
/// spaced. Values are scaled by each slice's slope and intercept; the volume holds 16-bit integers
/// if these can hold every value exactly, else single precision. `progress`, if given, receives the
/// fraction done, 0 to 1.
Volume readDicom(const QString& path, const QString& series = {},
                 const std::function<void(double)>& progress = {});

} // namespace planner
