// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Teeth.h>

// Teeth, mouth, anatomy, diagnosis and the labels of teeth.

#include <gtest/gtest.h>

#include <memory>

namespace {

using dataobject::Mouth;
using dataobject::Tooth;

ToothChart::Tooth number(int tooth)
{
    return ToothChart::Tooth(tooth);
}

std::shared_ptr<Tooth> makeTooth(int tooth)
{
    return std::make_shared<Tooth>(number(tooth), Tooth::Present, Tooth::Permanent);
}

class Recorder : public patterns::Observer<DataObject, std::nullptr_t>
{
public:
    int changes = 0;

private:
    void changedEvent(DataObject*) override { ++changes; }
};

TEST(Tooth, GivesWhatItWasMadeOf)
{
    Tooth tooth(number(14), Tooth::Missing, Tooth::Deciduous);
    EXPECT_EQ(tooth.getToothType(), number(14));
    EXPECT_EQ(tooth.getStatus(), Tooth::Missing);
    EXPECT_EQ(tooth.getCategory(), Tooth::Deciduous);
    Recorder recorder;
    tooth.attach(&recorder);
    tooth.setStatus(Tooth::Planned);
    EXPECT_EQ(tooth.getStatus(), Tooth::Planned);
    EXPECT_EQ(recorder.changes, 1);
}

TEST(Tooth, StatusAndCategoryHaveTheirValues)
{
    EXPECT_EQ(int(Tooth::Present), 0);
    EXPECT_EQ(int(Tooth::Permanent), 1);
}

TEST(Mouth, FindsItsTeethByNumber)
{
    Mouth mouth;
    const auto first = makeTooth(3);
    const auto second = makeTooth(19);
    mouth.addTooth(first);
    mouth.addTooth(second);
    EXPECT_TRUE(mouth.hasTooth(number(3)));
    EXPECT_FALSE(mouth.hasTooth(number(4)));
    EXPECT_EQ(mouth.getToothForToothType(number(19)), second);
    EXPECT_EQ(mouth.getToothForToothType(number(4)), nullptr);
    EXPECT_EQ(mouth.getAllTeethUnsorted(), (QSet<std::shared_ptr<Tooth>>{first, second}));
    EXPECT_TRUE(Mouth().getAllTeethUnsorted().isEmpty());
}

TEST(Mouth, ToothTakesThePlaceOfOneOfTheSameNumber)
{
    Mouth mouth;
    mouth.addTooth(makeTooth(3));
    const auto later = makeTooth(3);
    mouth.addTooth(later);
    EXPECT_EQ(mouth.getAllTeethUnsorted(), QSet<std::shared_ptr<Tooth>>{later});
}

TEST(Mouth, NotifiesWhenTeethAreAddedAndRemoved)
{
    Mouth mouth;
    Recorder recorder;
    mouth.attach(&recorder);
    const auto tooth = makeTooth(3);
    mouth.addTooth(tooth);
    mouth.addTooth(nullptr);
    mouth.removeTooth(makeTooth(3));
    mouth.removeTooth(nullptr);
    EXPECT_EQ(recorder.changes, 1);
    EXPECT_TRUE(mouth.hasTooth(number(3)));
    mouth.removeTooth(tooth);
    EXPECT_EQ(recorder.changes, 2);
    EXPECT_FALSE(mouth.hasTooth(number(3)));
}

TEST(Diagnosis, LeadsToTheMouthByWayOfTheAnatomy)
{
    Diagnosis diagnosis;
    EXPECT_EQ(diagnosis.getPatientAnatomy(), nullptr);
    const auto anatomy = std::make_shared<Anatomy>();
    EXPECT_EQ(anatomy->getMouth(), nullptr);
    Recorder recorder;
    diagnosis.attach(&recorder);
    anatomy->attach(&recorder);
    const auto mouth = std::make_shared<Mouth>();
    diagnosis.setPatientAnatomy(anatomy);
    anatomy->setMouth(mouth);
    EXPECT_EQ(diagnosis.getPatientAnatomy()->getMouth(), mouth);
    EXPECT_EQ(recorder.changes, 2);
}

TEST(ToothAnnotation3D, IsOfTheTypeOfItsTooth)
{
    ToothAnnotation3D label;
    EXPECT_EQ(label.getToothType(), ToothChart::NoTooth);
    label.setToothType(number(4));
    EXPECT_EQ(label.getToothType(), number(4));
    EXPECT_EQ(label.getTooth(), nullptr);
    const auto tooth = makeTooth(9);
    label.setTooth(tooth);
    EXPECT_EQ(label.getTooth(), tooth);
    EXPECT_EQ(label.getToothType(), number(9));
    label.setTooth(nullptr);
    EXPECT_EQ(label.getToothType(), number(9)) << "of the last one";
}

TEST(ToothAnnotation3D, GivesPlaceDirectionAndCreationTypeAsSet)
{
    ToothAnnotation3D label;
    EXPECT_EQ(label.getCreationType(), AutomaticallyCreated);
    Recorder recorder;
    label.attach(&recorder);
    label.setPosition({1.0F, 2.0F, 3.0F});
    label.setDirection({0.0F, 1.0F, 0.0F});
    label.setCreationType(ManuallyCreated);
    label.setToothType(number(4));
    label.setTooth(makeTooth(4));
    EXPECT_EQ(label.getPosition(), QVector3D(1.0F, 2.0F, 3.0F));
    EXPECT_EQ(label.getDirection(), QVector3D(0.0F, 1.0F, 0.0F));
    EXPECT_EQ(label.getCreationType(), ManuallyCreated);
    EXPECT_EQ(recorder.changes, 5);
}

TEST(ToothAnnotation3D, IsMovedWithItsDirection)
{
    ToothAnnotation3D label;
    label.setPosition({1.0F, 2.0F, 3.0F});
    label.setDirection({1.0F, 0.0F, 0.0F});
    Recorder recorder;
    label.attach(&recorder);
    const QMatrix4x4 quarterTurn(0.0F, -1.0F, 0.0F, 10.0F, //
                                 1.0F, 0.0F, 0.0F, 0.0F,   //
                                 0.0F, 0.0F, 1.0F, 0.0F,   //
                                 0.0F, 0.0F, 0.0F, 1.0F);
    label.applyTransform(quarterTurn);
    EXPECT_EQ(label.getPosition(), QVector3D(8.0F, 1.0F, 3.0F));
    EXPECT_EQ(label.getDirection(), QVector3D(0.0F, 1.0F, 0.0F)) << "turned, not shifted";
    EXPECT_EQ(recorder.changes, 1);
}

} // namespace
