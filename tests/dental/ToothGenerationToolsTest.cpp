// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/dental/ToothGenerationTools.h>

// Covered: teeth created for labels without one, and the pairing of teeth with labels.

#include <CoreAlgorithms/model/dataobjects/Teeth.h>

#include <tests/support/DentalBuilders.h>

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using Tools = ToothGenerationTools;
using Labels = QList<std::shared_ptr<ToothAnnotation3D>>;
using test::makeMouth;
using test::makeTooth;

static_assert(std::is_empty_v<Tools> && std::is_copy_assignable_v<Tools>);

std::unique_ptr<Diagnosis> makeDiagnosis(std::shared_ptr<dataobject::Mouth> mouth)
{
    auto diagnosis = std::make_unique<Diagnosis>();
    diagnosis->setPatientAnatomy(std::make_shared<Anatomy>());
    diagnosis->getPatientAnatomy()->setMouth(std::move(mouth));
    return diagnosis;
}

Labels labelsOf(std::initializer_list<int> numbers)
{
    Labels labels;
    for (const int number : numbers) {
        labels.append(std::make_shared<ToothAnnotation3D>());
        labels.last()->setToothType(ToothChart::Tooth(number));
    }
    return labels;
}

std::vector<int> createdNumbers(const Diagnosis& diagnosis, std::initializer_list<int> labels)
{
    std::vector<int> numbers;
    for (const auto& tooth : Tools::createMissingTeeth(&diagnosis, labelsOf(labels)))
        numbers.push_back(tooth->getToothType());
    return numbers;
}

class MouthWithNullTooth : public dataobject::Mouth
{
public:
    QSet<std::shared_ptr<dataobject::Tooth>> getAllTeethUnsorted() const override
    {
        return {nullptr, makeTooth(4)};
    }
};

// Records when the labels are queried and linked.
class RecordingLabel : public ToothAnnotation3D
{
public:
    RecordingLabel(std::string labelName, std::vector<std::string>& common)
        : name(std::move(labelName)), log(common)
    {}

    void setTooth(const std::shared_ptr<dataobject::Tooth>& linked) override
    {
        log.push_back("link " + name);
        ToothAnnotation3D::setTooth(linked);
    }
    ToothChart::Tooth getToothType() const override
    {
        log.push_back("ask " + name);
        return ToothAnnotation3D::getToothType();
    }

private:
    std::string name;
    std::vector<std::string>& log;
};

// ---- missing teeth

TEST(ToothGenerationTools, CreatesTheTeethThatAreLabeledButMissing)
{
    const auto diagnosis = makeDiagnosis(makeMouth({4}));
    const auto created = Tools::createMissingTeeth(diagnosis.get(), labelsOf({3, 4, 5}));
    ASSERT_EQ(created.size(), 2U);
    EXPECT_EQ(created[0]->getToothType(), ToothChart::Tooth(3));
    EXPECT_EQ(created[1]->getToothType(), ToothChart::Tooth(5));
    for (const auto& tooth : created) {
        EXPECT_EQ(static_cast<int>(tooth->getStatus()), 0);
        EXPECT_EQ(static_cast<int>(tooth->getCategory()), 1);
    }
    EXPECT_EQ(diagnosis->getPatientAnatomy()->getMouth()->getAllTeethUnsorted().size(), 1)
        << "not added here";
}

TEST(ToothGenerationTools, CreatesInAscendingOrderWhateverThatOfTheLabels)
{
    EXPECT_EQ(createdNumbers(*makeDiagnosis(makeMouth({8})), {30, 2, 17, 8, 9}),
              (std::vector{2, 9, 17, 30}));
}

TEST(ToothGenerationTools, ToothThatIsLabeledTwiceButMissingIsCreatedTwice)
{
    EXPECT_EQ(createdNumbers(*makeDiagnosis(makeMouth({4})), {3, 3, 5}), (std::vector{3, 3, 5}));
    EXPECT_EQ(createdNumbers(*makeDiagnosis(makeMouth({4})), {4, 4}), std::vector{4})
        << "one of the two is in the mouth";
}

TEST(ToothGenerationTools, TeethWithoutLabelsAreIgnored)
{
    EXPECT_EQ(createdNumbers(*makeDiagnosis(makeMouth({1, 4, 32})), {4}), std::vector<int>());
}

TEST(ToothGenerationTools, EmptyLabelListCreatesNothing)
{
    EXPECT_TRUE(Tools::createMissingTeeth(makeDiagnosis(makeMouth({4})).get(), {}).empty());
}

TEST(ToothGenerationTools, WithoutAMouthNothingIsCreated)
{
    EXPECT_TRUE(Tools::createMissingTeeth(nullptr, labelsOf({3})).empty());
    EXPECT_TRUE(
        Tools::createMissingTeeth(std::make_unique<Diagnosis>().get(), labelsOf({3})).empty());
    EXPECT_TRUE(Tools::createMissingTeeth(makeDiagnosis(nullptr).get(), labelsOf({3})).empty());
}

TEST(ToothGenerationTools, NumbersThatAreNoTeethAreCreatedAsTheyAre)
{
    EXPECT_EQ(
        createdNumbers(*makeDiagnosis(makeMouth({4})), {std::numeric_limits<int>::max(), -1, 0}),
        (std::vector{-1, 0, std::numeric_limits<int>::max()}));
}

// ---- pairs

TEST(ToothGenerationTools, LinksEveryToothToItsLabel)
{
    const auto mouth = makeMouth({3, 4});
    const auto diagnosis = makeDiagnosis(mouth);
    const Labels labels = labelsOf({4, 5, 3});
    Tools::linkTeethWithToothAnnotations(diagnosis.get(), labels);
    EXPECT_EQ(labels[0]->getTooth(), mouth->getToothForToothType(ToothChart::Tooth(4)));
    EXPECT_EQ(labels[1]->getTooth(), nullptr) << "no such tooth";
    EXPECT_EQ(labels[2]->getTooth(), mouth->getToothForToothType(ToothChart::Tooth(3)));
}

TEST(ToothGenerationTools, OfTwoLabelsOfATypeOnlyTheFirstIsLinked)
{
    const auto mouth = makeMouth({3});
    const Labels labels = labelsOf({5, 3, 3});
    Tools::linkTeethWithToothAnnotations(makeDiagnosis(mouth).get(), labels);
    EXPECT_NE(labels[1]->getTooth(), nullptr);
    EXPECT_EQ(labels[2]->getTooth(), nullptr);
}

TEST(ToothGenerationTools, LabelThatWasLinkedToAnotherToothOfItsTypeIsLinkedAgain)
{
    const auto mouth = makeMouth({3});
    const Labels labels = labelsOf({3});
    labels[0]->setTooth(makeTooth(3));
    Tools::linkTeethWithToothAnnotations(makeDiagnosis(mouth).get(), labels);
    EXPECT_EQ(labels[0]->getTooth(), mouth->getToothForToothType(ToothChart::Tooth(3)));
}

TEST(ToothGenerationTools, QueriesTheLabelsInListOrderAndLinksTheFirstThatFits)
{
    std::vector<std::string> log;
    Labels labels;
    for (const auto& [name, number] : {std::pair("a", 5), std::pair("b", 3), std::pair("c", 3)}) {
        auto label = std::make_shared<RecordingLabel>(name, log);
        label->setToothType(ToothChart::Tooth(number));
        labels.append(label);
    }
    Tools::linkTeethWithToothAnnotations(makeDiagnosis(makeMouth({3})).get(), labels);
    EXPECT_EQ(log, (std::vector<std::string>{"ask a", "ask b", "link b"}));
}

TEST(ToothGenerationTools, EmptyLabelListOrNoMouthLinksNothing)
{
    const auto mouth = makeMouth({3});
    Tools::linkTeethWithToothAnnotations(makeDiagnosis(mouth).get(), {});
    const Labels labels = labelsOf({3});
    Tools::linkTeethWithToothAnnotations(nullptr, labels);
    Tools::linkTeethWithToothAnnotations(std::make_unique<Diagnosis>().get(), labels);
    Tools::linkTeethWithToothAnnotations(makeDiagnosis(nullptr).get(), labels);
    EXPECT_EQ(labels[0]->getTooth(), nullptr);
    EXPECT_EQ(labels[0]->getToothType(), ToothChart::Tooth(3));
}

TEST(ToothGenerationTools, NullLabelsAndTeethAreSkipped)
{
    const auto diagnosis = makeDiagnosis(std::make_shared<MouthWithNullTooth>());
    Labels labels = labelsOf({4, 5});
    labels.prepend(nullptr);
    Tools::linkTeethWithToothAnnotations(diagnosis.get(), labels);
    EXPECT_NE(labels[1]->getTooth(), nullptr);
    const auto created = Tools::createMissingTeeth(diagnosis.get(), labels);
    ASSERT_EQ(created.size(), 1U);
    EXPECT_EQ(created[0]->getToothType(), ToothChart::Tooth(5));
}

} // namespace
