// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Writes the files that the planner's runs read, good and damaged ones, into the folder that it is
// given.
#include <tests/planner/DicomFiles.h>
#include <tests/planner/NiftiFiles.h>

#include <QDir>

int main(int argc, char** argv)
{
    if (argc != 2)
        return 1;
    const QDir folder(QFile::decodeName(argv[1]));
    bool written = folder.mkpath(QStringLiteral("."));
    const auto write = [&folder, &written](const QByteArray& name, const QByteArray& bytes) {
        written =
            niftifiles::writeBytes(folder.filePath(QString::fromLatin1(name)), bytes) && written;
    };

    // A cube of 16 mm, bone within soft tissue, around the world's origin.
    niftifiles::File good = niftifiles::countingVolume();
    good.voxels.clear();
    for (int i = 0; i < 16 * 16 * 16; ++i) {
        const bool inside = (i % 16) / 4 == 1 && (i / 16 % 16) / 4 == 1 && (i / 256) / 4 == 1;
        good.voxels += niftifiles::bytesOf<short>({static_cast<short>(inside ? 1200 : -900)});
    }
    for (int axis = 1; axis <= 3; ++axis)
        good.header.dim[axis] = 16;
    write("good.nii", niftifiles::bytesOf(good));
    write("good.json", R"({"mandibularForamen": {"right": [-12, -4, 6], "left": [-3, -4, 6]},
                           "mentalForamen": {"right": [-11, -12, 2], "left": [-4, -12, 2]}})");
    write("good.mhd", "ObjectType = Image\nNDims = 3\nBinaryData = True\nElementSpacing = 1 1 "
                      "1\nDimSize = 16 16 16\n"
                      "ElementType = MET_SHORT\nElementDataFile = good.raw\n");
    write("good.raw", good.voxels);
    write("GOOD.NRRD",
          "NRRD0004\ntype: short\ndimension: 3\nspace: left-posterior-superior\nsizes: 16 16 16\n"
          "space directions: (1,0,0) (0,1,0) (0,0,1)\nendian: little\nencoding: raw\n\n" +
              good.voxels);
    niftifiles::File meters = good;
    meters.header.xyzt_units = NIFTI_UNITS_METER;
    write("meters.nii", niftifiles::bytesOf(meters));
    niftifiles::File bomb = niftifiles::volumeOf(DT_UINT8, 8, QByteArray(1000, '\0'));
    bomb.header.dim[1] = bomb.header.dim[2] = bomb.header.dim[3] = 500;
    written = niftifiles::writeCompressed(folder.filePath(QStringLiteral("bomb.nii.gz")),
                                          niftifiles::bytesOf(bomb)) &&
              written;
    write("exchanged.json",
          R"({"mandibularForamen": {"right": [-3, -4, 6], "left": [-12, -4, 6]}})");
    write("tooth99.json", R"({"lowerTeeth": {"41": [-8, -8, 6], "99": [-8, -9, 6]}})");
    write("othergrid.json", R"({"lowerTeeth": {"41": [-8, -8, 6]},
        "mandibleBodyMidline": {"voxel": [[2, 24, 4], [8, 10, 4], [16, 6, 4], [24, 10, 4],
            [30, 24, 4]]}})");
    write("coinciding.json",
          R"({"lowerTeeth": {"35": [-8, -8, 6], "36": [-8, -8, 6], "37": [-8, -8, 6]}})");
    write("crowded.json", "{\"mandibleBodyMidline\": [" +
                              QByteArray("[-8, -8, 6],").repeated(99999) + "[-8, -8, 6]]}");
    write("zigzag.json", "{\"mandibleBodyMidline\": [" +
                             QByteArray("[-14, -8, 6], [-1, -8, 6],").repeated(499) +
                             "[-8, -8, 6]]}");
    write("elsewhere.json", "{\"mentalForamen\": {\"right\": [500, 0, 0], \"left\": [510, 0, 0]}}");

    const niftifiles::File counting = niftifiles::countingVolume();
    const QByteArray whole = niftifiles::bytesOf(counting);
    write("empty.nii", {});
    write("random.nii", niftifiles::randomBytes(5000, 1));
    write("random.nii.gz", niftifiles::randomBytes(5000, 2));
    write("random.mha", niftifiles::randomBytes(5000, 4));
    write("random.nrrd", niftifiles::randomBytes(5000, 5));
    write("short.nii", whole.chopped(1));
    write("long.nii", whole + QByteArray(16, 'x'));

    // Random voxels, so that cutting the compressed file cuts voxels off.
    niftifiles::File noise = good;
    noise.voxels = niftifiles::randomBytes(static_cast<int>(good.voxels.size()), 3);
    const QString cutOff = folder.filePath(QStringLiteral("cutoff.nii.gz"));
    written = niftifiles::writeCompressed(cutOff, niftifiles::bytesOf(noise)) &&
              QFile::resize(cutOff, 4000) && written;

    niftifiles::File frames = counting;
    frames.header.dim[0] = 4;
    frames.header.dim[4] = 3;
    frames.voxels = counting.voxels.repeated(3);
    write("frames.nii", niftifiles::bytesOf(frames));

    write("color.nii",
          niftifiles::bytesOf(niftifiles::volumeOf(DT_RGB24, 24, QByteArray(24, '\1'))));

    // Two series in subfolders, and one of them as frames of a file.
    for (const char* name : {"plain", "dicom/head", "dicom/jaw", "damaged"})
        written = folder.mkpath(QString::fromLatin1(name)) && written;
    write("plain/readme.txt", "no DICOM");
    for (int k = 0; k < 8; ++k) {
        const QByteArray number = QByteArray::number(k);
        const dicomfiles::Slice slice{.series = k < 5 ? "1.2.3.4" : "1.2.3.5",
                                      .description = k < 5 ? "Head" : "Jaw",
                                      .position = {{0.0, 0.0, static_cast<double>(k)}}};
        write((k < 5 ? "dicom/head/" : "dicom/jaw/") + number, bytesOf(slice));
        dicomfiles::Slice damaged = slice;
        if (k == 3)
            damaged.statedPixelBytes = 0x7ffffffe;
        if (k < 5)
            write("damaged/" + number, bytesOf(damaged));
    }
    write("frames.dcm", bytesOf(dicomfiles::Frames()));

    niftifiles::File zero = counting;
    zero.header.dim[2] = 0;
    write("zero.nii", niftifiles::bytesOf(zero));
    return written ? 0 : 1;
}
