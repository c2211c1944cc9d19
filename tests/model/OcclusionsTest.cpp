// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Occlusions.h>

// Occlusions and the jaw parts whose type identifiers are their keys.

#include <CoreAlgorithms/model/dataobjects/JawParts.h>

#include <tests/support/ModelRecorders.h>

#include <gtest/gtest.h>

namespace {

TEST(JawParts, IdentifiersAreTheirNames)
{
    EXPECT_EQ(Maxilla::getClassTypeId(), QStringLiteral("Maxilla"));
    EXPECT_EQ(Mandibula::getClassTypeId(), QStringLiteral("Mandibula"));
    EXPECT_EQ(FrontSegment::getClassTypeId(), QStringLiteral("FrontSegment"));
    EXPECT_EQ(LeftSegment::getClassTypeId(), QStringLiteral("LeftSegment"));
    EXPECT_EQ(RightSegment::getClassTypeId(), QStringLiteral("RightSegment"));
}

TEST(JawParts, AreSurgeryPlanningPartsAndSurfaceModelsButNotEachOther)
{
    const QList<QString> ids{Maxilla::getClassTypeId(), Mandibula::getClassTypeId(),
                             FrontSegment::getClassTypeId(), LeftSegment::getClassTypeId(),
                             RightSegment::getClassTypeId()};
    const Maxilla maxilla;
    const Mandibula mandibula;
    const FrontSegment front;
    const LeftSegment left;
    const RightSegment right;
    const QList<const CoreObject*> parts{&maxilla, &mandibula, &front, &left, &right};
    for (int part = 0; part < 5; ++part) {
        EXPECT_TRUE(parts[part]->isOfType(SurgeryPlanningPart::getClassTypeId()));
        EXPECT_TRUE(parts[part]->isOfType(Surface3DModel::getClassTypeId()));
        for (int id = 0; id < 5; ++id)
            EXPECT_EQ(parts[part]->isOfType(ids[id]), part == id);
    }
}

TEST(Occlusions, AreOfDifferentTypesWithOneBase)
{
    EXPECT_TRUE(Occlusion().isOfType(QStringLiteral("Occlusion")));
    EXPECT_TRUE(Occlusion().isOfType(OcclusionBase::getClassTypeId()));
    EXPECT_TRUE(Occlusion().isOfType(DataObject::getClassTypeId()));
    EXPECT_FALSE(Occlusion().isOfType(QStringLiteral("VirtualOcclusion")));
    EXPECT_TRUE(dataobject::VirtualOcclusion().isOfType(QStringLiteral("VirtualOcclusion")));
    EXPECT_TRUE(dataobject::VirtualOcclusion().isOfType(OcclusionBase::getClassTypeId()));
    EXPECT_FALSE(dataobject::VirtualOcclusion().isOfType(QStringLiteral("Occlusion")));
}

TEST(Occlusions, KeepMatricesAndFlagAndNotify)
{
    Occlusion occlusion;
    EXPECT_TRUE(occlusion.getTransformations().empty());
    EXPECT_FALSE(occlusion.isSegmental());
    test::ChangeCounter counter;
    occlusion.attach(&counter);
    QMatrix4x4 matrix;
    matrix.translate(1.0F, 2.0F, 3.0F);
    occlusion.setTransformations({{Maxilla::getClassTypeId(), matrix}});
    occlusion.setSegmental(true);
    EXPECT_EQ(occlusion.getTransformations().size(), 1U);
    EXPECT_EQ(occlusion.getTransformations().at(Maxilla::getClassTypeId()), matrix);
    EXPECT_TRUE(occlusion.isSegmental());
    EXPECT_EQ(counter.changes, 2);
}

} // namespace
