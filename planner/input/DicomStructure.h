// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtGlobal>

namespace planner {

/// What the lengths in a DICOM file say about it.
struct DicomStructure
{
    bool isDicom = false;
    /// What is wrong, for the reader of a message; empty if every element lies within the file.
    QString damage;
    /// Where the element with the pixels starts; -1 if none was found before the end or the damage.
    qint64 pixelsAt = -1;
    bool compressed = false; ///< pixels in fragments, whose length says nothing about their number
    qint64 pixelBytes = -1;  ///< of pixels that are not compressed; -1 without such
};

/// Reads the tag and length of every element of a file and compares them with the end of the file
/// and of the sequence that holds the element. It reads no value and reserves no memory, so it may
/// come before a library that believes what a file states. Failure if the file cannot be opened.
DicomStructure examineDicom(const QString& path);

} // namespace planner
