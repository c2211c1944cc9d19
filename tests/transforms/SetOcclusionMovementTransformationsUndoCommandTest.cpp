// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/transforms/SetOcclusionMovementTransformationsUndoCommand.h>

// A bite stored on the movements of a surgery: the children and their order, movements made for
// segments, undo and redo on a stack.

#include <CoreAlgorithms/model/dataobjects/JawParts.h>
#include <CoreAlgorithms/transforms/OcclusionMovementCalculator.h>

#include <tests/support/MovementBuilders.h>
#include <tests/support/ResliceBuilders.h>
#include <tests/support/ScanBuilders.h>
#include <tests/support/UndoLaws.h>

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

namespace {

using Command = SetOcclusionMovementTransformationsUndoCommand;
using Matrices = std::map<QString, QMatrix4x4>;
using test::RecordingCompositeMovement;
using test::RecordingOcclusionMovement;
using test::stateOf;
using test::translation;

static_assert(std::has_virtual_destructor_v<Command>);
static_assert(std::is_base_of_v<QUndoCommand, Command>);

const QString kMode = QStringLiteral("mode");

OcclusionMovement* partOf(const CompositeMovement& composite, int index)
{
    return dynamic_cast<OcclusionMovement*>(composite.getMovements().value(index));
}

class SetOcclusionMovementTransformationsUndoCommandTest : public testing::Test
{
protected:
    test::SurgeryWithMovements made;
    OcclusionMovements movements = utility::getOcclusionMovements(made.surgery);
    OcclusionMovementTransformations bite;
};

using SetOcclusionMovements = SetOcclusionMovementTransformationsUndoCommandTest;

TEST_F(SetOcclusionMovements, NothingToStoreMakesNoChildrenAndChangesNothing)
{
    const QStringList before = stateOf(made.surgery, {kMode});
    Command command(bite, movements, kMode, nullptr);
    EXPECT_EQ(command.childCount(), 0);
    command.redo();
    command.undo();
    EXPECT_EQ(stateOf(made.surgery, {kMode}), before);
}

TEST_F(SetOcclusionMovements, NullMovementsAreSkipped)
{
    bite.maxillaryTransformation = translation(1.0F, 0.0F, 0.0F);
    bite.mandibularTransformation = translation(2.0F, 0.0F, 0.0F);
    bite.maxillarySegmentalTransformations = Matrices{{QStringLiteral("a"), QMatrix4x4()}};
    bite.mandibularSegmentalTransformations = Matrices{{QStringLiteral("a"), QMatrix4x4()}};
    Command command(bite, OcclusionMovements(), kMode, nullptr);
    EXPECT_EQ(command.childCount(), 0);
    command.redo();
    command.undo();
}

TEST_F(SetOcclusionMovements, EachFieldGoesToItsOwnMovement)
{
    bite.maxillaryTransformation = translation(1.0F, 0.0F, 0.0F);
    bite.mandibularTransformation = translation(2.0F, 0.0F, 0.0F);
    bite.maxillarySegmentalTransformations =
        Matrices{{QStringLiteral("a"), translation(3.0F, 0.0F, 0.0F)}};
    bite.mandibularSegmentalTransformations =
        Matrices{{QStringLiteral("b"), translation(4.0F, 0.0F, 0.0F)}};
    Command command(bite, movements, kMode, nullptr);
    EXPECT_EQ(command.childCount(), 4);
    EXPECT_FALSE(made.maxillary->getOcclusionModeTransformation(kMode)) << "not before redo";
    command.redo();
    const auto x = [](const OcclusionMovement* movement) {
        return movement->getOcclusionModeTransformation(kMode).value()(0, 3);
    };
    EXPECT_EQ(x(made.maxillary), 1.0F);
    EXPECT_EQ(x(made.mandibular), 2.0F);
    EXPECT_EQ(x(partOf(*made.maxillaryParts, 0)), 3.0F);
    EXPECT_EQ(x(partOf(*made.mandibularParts, 0)), 4.0F);
}

TEST(SetOcclusionMovementsOrder, IsMaxillaMandibleMaxillarySegmentsMandibularSegmentsEachByKey)
{
    QStringList calls;
    RecordingOcclusionMovement maxillary(QStringLiteral("t"), calls, QStringLiteral("maxilla"));
    RecordingOcclusionMovement mandibular(QStringLiteral("t"), calls, QStringLiteral("mandible"));
    CompositeMovement upper(MovementTypes::m_maxillary_segmental_occlusion_movement);
    CompositeMovement lower(MovementTypes::m_mandibular_segmental_occlusion_movement);
    const auto addPart = [&calls](CompositeMovement& composite, const char* name,
                                  const char* part) {
        auto* movement =
            new RecordingOcclusionMovement(QStringLiteral("t"), calls, QString::fromLatin1(name));
        movement->setPrimaryAffectedType(QString::fromLatin1(part));
        composite.addMovement(movement);
    };
    addPart(upper, "upper b", "b"); // found by their part, wherever they are in the composite
    addPart(upper, "upper a", "a");
    addPart(lower, "lower b", "b");
    addPart(lower, "lower a", "a");

    OcclusionMovementTransformations bite;
    const Matrices parts = {{QStringLiteral("b"), QMatrix4x4()},
                            {QStringLiteral("a"), QMatrix4x4()}};
    bite.maxillaryTransformation = QMatrix4x4();
    bite.mandibularTransformation = QMatrix4x4();
    bite.maxillarySegmentalTransformations = parts;
    bite.mandibularSegmentalTransformations = parts;
    Command command(bite, {&maxillary, &mandibular, &upper, &lower}, kMode, nullptr);
    EXPECT_EQ(calls, QStringList());
    command.redo();
    EXPECT_EQ(calls.filter(QStringLiteral("add mode")),
              QStringList({"maxilla: add mode", "mandible: add mode", "upper a: add mode",
                           "upper b: add mode", "lower a: add mode", "lower b: add mode"}));
    calls.clear();
    command.undo();
    EXPECT_EQ(
        calls.filter(QStringLiteral("remove mode")),
        QStringList({"lower b: remove mode", "lower a: remove mode", "upper b: remove mode",
                     "upper a: remove mode", "mandible: remove mode", "maxilla: remove mode"}));
}

TEST_F(SetOcclusionMovements, MissingSegmentOfTheUpperJawGetsAMovementOfJawType2)
{
    bite.maxillarySegmentalTransformations =
        Matrices{{QStringLiteral("part"), translation(1.0F, 0.0F, 0.0F)}};
    Command command(bite, movements, kMode, nullptr);
    ASSERT_EQ(made.maxillaryParts->getMovements().size(), 1);
    const OcclusionMovement* created = partOf(*made.maxillaryParts, 0);
    ASSERT_NE(created, nullptr);
    EXPECT_EQ(int(created->getAffectedTreatmentType()), 2);
    EXPECT_EQ(created->getMovementType(), MovementTypes::m_maxillary_occlusion_movement);
    EXPECT_EQ(created->getPrimaryAffectedType(), QStringLiteral("part"));
    EXPECT_FALSE(created->getOcclusionModeTransformation(kMode)) << "not before redo";
}

TEST_F(SetOcclusionMovements, MissingSegmentOfTheLowerJawGetsAMovementOfJawType1)
{
    bite.mandibularSegmentalTransformations =
        Matrices{{QStringLiteral("part"), translation(1.0F, 0.0F, 0.0F)}};
    Command command(bite, movements, kMode, nullptr);
    const OcclusionMovement* created = partOf(*made.mandibularParts, 0);
    ASSERT_NE(created, nullptr);
    EXPECT_EQ(int(created->getAffectedTreatmentType()), 1);
    EXPECT_EQ(created->getMovementType(), MovementTypes::m_mandibular_occlusion_movement);
    EXPECT_EQ(created->getPrimaryAffectedType(), QStringLiteral("part"));
}

TEST_F(SetOcclusionMovements, CreatedMovementStaysOnUndoWithItsModeDroppedByDesign)
{
    bite.maxillarySegmentalTransformations =
        Matrices{{QStringLiteral("part"), translation(1.0F, 0.0F, 0.0F)}};
    Command command(bite, movements, kMode, nullptr);
    command.redo();
    const OcclusionMovement* created = partOf(*made.maxillaryParts, 0);
    EXPECT_EQ(created->getMovementMode(), kMode);
    command.undo();
    EXPECT_EQ(made.maxillaryParts->getMovements().size(), 1);
    EXPECT_EQ(created->getMovementModes(), QStringList());
    EXPECT_FALSE(created->getOcclusionModeTransformation(kMode));
    EXPECT_EQ(made.maxillaryParts->getMovementMode(), kMode)
        << "the composite's own mode is not undone";
}

TEST_F(SetOcclusionMovements, CreatedMovementOutlivesTheCommand)
{
    bite.maxillarySegmentalTransformations =
        Matrices{{QStringLiteral("part"), translation(1.0F, 0.0F, 0.0F)}};
    auto command = std::make_unique<Command>(bite, movements, kMode, nullptr);
    command->redo();
    command.reset();
    EXPECT_EQ(partOf(*made.maxillaryParts, 0)->getOcclusionModeTransformation(kMode).value(),
              translation(1.0F, 0.0F, 0.0F));
}

TEST_F(SetOcclusionMovements, SecondBiteFindsTheMovementsOfTheFirst)
{
    bite.maxillarySegmentalTransformations =
        Matrices{{QStringLiteral("a"), QMatrix4x4()}, {QStringLiteral("b"), QMatrix4x4()}};
    Command first(bite, movements, kMode, nullptr);
    Command second(bite, movements, QStringLiteral("another"), nullptr);
    EXPECT_EQ(made.maxillaryParts->getMovements().size(), 2);
}

TEST_F(SetOcclusionMovements, FirstOfSeveralMovementsOfASegmentIsTaken)
{
    for (int i = 0; i < 2; ++i) {
        auto* movement = new OcclusionMovement(MovementTypes::m_maxillary_occlusion_movement);
        movement->setPrimaryAffectedType(QStringLiteral("part"));
        made.maxillaryParts->addMovement(movement);
    }
    bite.maxillarySegmentalTransformations =
        Matrices{{QStringLiteral("part"), translation(1.0F, 0.0F, 0.0F)}};
    Command command(bite, movements, kMode, nullptr);
    command.redo();
    EXPECT_TRUE(partOf(*made.maxillaryParts, 0)->getOcclusionModeTransformation(kMode).hasValue());
    EXPECT_FALSE(partOf(*made.maxillaryParts, 1)->getOcclusionModeTransformation(kMode));
}

TEST_F(SetOcclusionMovements, MovementsThatAreNoOcclusionMovementsAreSkippedInTheSearch)
{
    auto* fixed = new FixedMovement(QStringLiteral("type"));
    fixed->setPrimaryAffectedType(QStringLiteral("part"));
    made.maxillaryParts->addMovement(fixed);
    bite.maxillarySegmentalTransformations =
        Matrices{{QStringLiteral("part"), translation(1.0F, 0.0F, 0.0F)}};
    Command command(bite, movements, kMode, nullptr);
    ASSERT_EQ(made.maxillaryParts->getMovements().size(), 2);
    command.redo();
    EXPECT_TRUE(partOf(*made.maxillaryParts, 1)->getOcclusionModeTransformation(kMode).hasValue());
    EXPECT_EQ(fixed->getMovementModes(), QStringList());
}

TEST_F(SetOcclusionMovements, EntryForACompositeOfNeitherSegmentalTypeIsSkipped)
{
    CompositeMovement other(QStringLiteral("neither"));
    auto* known = new OcclusionMovement(QStringLiteral("type"));
    known->setPrimaryAffectedType(QStringLiteral("known"));
    other.addMovement(known);
    bite.maxillarySegmentalTransformations =
        Matrices{{QStringLiteral("known"), translation(1.0F, 0.0F, 0.0F)},
                 {QStringLiteral("unknown"), QMatrix4x4()}};
    Command command(bite, {nullptr, nullptr, &other, nullptr}, kMode, nullptr);
    EXPECT_EQ(command.childCount(), 1);
    EXPECT_EQ(other.getMovements(), QList<Movement*>({known}));
    EXPECT_EQ(other.getMovementMode(), kMode);
    command.redo();
    EXPECT_TRUE(known->getOcclusionModeTransformation(kMode).hasValue());
}

TEST_F(SetOcclusionMovements, EmptySegmentalMapAddsNoChildButSetsTheModeOfTheCompositeByDesign)
{
    bite.maxillarySegmentalTransformations = Matrices();
    Command command(bite, movements, kMode, nullptr);
    EXPECT_EQ(command.childCount(), 0);
    EXPECT_EQ(made.maxillaryParts->getMovementMode(), kMode);
    EXPECT_EQ(made.mandibularParts->getMovementMode(), QString()) << "its field is empty";
}

TEST(SetOcclusionMovementsOrder, CompositeIsLockedFromTheFirstSegmentToItsMode)
{
    QStringList calls;
    RecordingCompositeMovement composite(MovementTypes::m_mandibular_segmental_occlusion_movement,
                                         calls);
    OcclusionMovementTransformations bite;
    bite.mandibularSegmentalTransformations =
        Matrices{{QStringLiteral("b"), QMatrix4x4()}, {QStringLiteral("a"), QMatrix4x4()}};
    Command command(bite, {nullptr, nullptr, nullptr, &composite}, kMode, nullptr);
    const QString added =
        QStringLiteral("add ") + MovementTypes::m_mandibular_occlusion_movement + u'/';
    EXPECT_EQ(calls, QStringList({"lock", added + u'a', added + u'b', "set mode mode", "unlock"}));
    calls.clear();
    command.redo();
    command.undo();
    EXPECT_EQ(calls, QStringList()) << "redo and undo are those of the children";
}

TEST_F(SetOcclusionMovements, BelongsToItsParent)
{
    bite.maxillaryTransformation = translation(1.0F, 0.0F, 0.0F);
    QUndoCommand parent;
    new Command(bite, movements, kMode, &parent);
    EXPECT_EQ(parent.childCount(), 1);
    parent.redo();
    EXPECT_TRUE(made.maxillary->getOcclusionModeTransformation(kMode).hasValue());
}

// ---- laws

const QStringList kModes = {MovementModes::OCCLUSION_PLASTER_CAST_MODE,
                            MovementModes::OCCLUSION_PATIENT_SCAN_MODE,
                            MovementModes::OCCLUSION_VIRTUAL_MODE};

// A random bite of whole jaws or with segments, stored for a random mode.
QUndoCommand* randomBite(const OcclusionMovements& movements, test::RandomGeometry& random)
{
    OcclusionMovementCalculator::Data data;
    data.maxillaRegistration = random.rigidPlacement();
    data.mandibulaRegistration = random.rigidPlacement();
    for (const QString& part :
         {Maxilla::getClassTypeId(), Mandibula::getClassTypeId(), FrontSegment::getClassTypeId(),
          LeftSegment::getClassTypeId(), RightSegment::getClassTypeId()}) {
        if (random.number(0.0F, 1.0F) < 0.6F)
            data.occlusionTransformations.emplace(part, random.rigidPlacement());
    }
    const QString& mode = kModes[int(random.number(0.0F, 2.99F))];
    return new Command(OcclusionMovementCalculator(data).calculate(), movements, mode, nullptr);
}

class SetOcclusionMovementsLaws : public SetOcclusionMovementTransformationsUndoCommandTest
{
protected:
    SetOcclusionMovementsLaws()
        : former(qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {
              // Bites without a reference segment warn.
          }))
    {}
    ~SetOcclusionMovementsLaws() override { qInstallMessageHandler(former); }

    test::UndoLaws laws{
        [this](test::RandomGeometry& random) { return randomBite(movements, random); },
        [this] { return stateOf(made.surgery, kModes); }};

private:
    QtMessageHandler former;
};

// The constructor makes movements for segments and sets the modes of composites, which stay.
TEST_F(SetOcclusionMovementsLaws, Law1UndoRestoresEveryMovementBitForBit)
{
    laws.expectUndoRestores(false);
    QList<Movement*> all = {made.maxillary, made.mandibular};
    all += made.maxillaryParts->getMovements() + made.mandibularParts->getMovements();
    EXPECT_GT(all.size(), 4) << "movements were made for segments";
    for (const Movement* movement : all)
        EXPECT_EQ(movement->getMovementModes(), QStringList()) << "in no mode when all is undone";
}

TEST_F(SetOcclusionMovementsLaws, Law2RedoAfterUndoRepeatsTheFirstRedo)
{
    laws.expectRedoRepeats();
}

} // namespace
