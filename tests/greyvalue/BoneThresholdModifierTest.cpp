// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/greyvalue/BoneThresholdModifier.h>

// Covered: the calls on the volume and its active function and their order, for each kind of
// function.

#include <CoreAlgorithms/model/dataobjects/ColormapFunctions.h>
#include <CoreAlgorithms/model/dataobjects/VolumeObject.h>

#include <tests/support/GreyValueBuilders.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <type_traits>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

static_assert(std::is_constructible_v<BoneThresholdModifier, VolumeObject&>);
static_assert(!std::is_constructible_v<BoneThresholdModifier, const VolumeObject&>);
static_assert(!std::is_constructible_v<BoneThresholdModifier, VolumeObject>);
static_assert(std::has_virtual_destructor_v<BoneThresholdModifier>);

using Calls = std::vector<QString>;

class RecordingVolume : public VolumeObject
{
public:
    explicit RecordingVolume(Calls& log) : calls(log) {}

    void setMIPLevelWindow(float level, float window) override
    {
        calls.push_back(QStringLiteral("volume level %1 window %2").arg(level).arg(window));
        VolumeObject::setMIPLevelWindow(level, window);
    }
    void setThreshold(const QUuid& functionUuid, int threshold) override
    {
        const auto active = getActiveVisualizationFunction();
        calls.push_back(QStringLiteral("volume threshold %1%2")
                            .arg(threshold)
                            .arg(active && active->getUUID() == functionUuid
                                     ? QString()
                                     : QStringLiteral(" of another")));
        VolumeObject::setThreshold(functionUuid, threshold);
    }
    void visualizationChanged(bool redraw) override
    {
        calls.push_back(redraw ? QStringLiteral("volume changed, true")
                               : QStringLiteral("volume changed, false"));
        VolumeObject::visualizationChanged(redraw);
    }

private:
    Calls& calls;
};

class RecordingPulp : public colormap::PulpFunction
{
public:
    explicit RecordingPulp(Calls& log) : calls(log) {}

    void setNormalizedPulpThreshold(float threshold) override
    {
        calls.push_back(QStringLiteral("pulp %1").arg(threshold));
        PulpFunction::setNormalizedPulpThreshold(threshold);
    }
    void setNormalizedRestorationMaterialThreshold(float threshold) override
    {
        calls.push_back(QStringLiteral("restoration %1").arg(threshold));
        PulpFunction::setNormalizedRestorationMaterialThreshold(threshold);
    }

private:
    Calls& calls;
};

class RecordingTransfer : public colormap::TransferFunction
{
public:
    explicit RecordingTransfer(Calls& log) : calls(log) {}

    void startEditing() override { calls.push_back(QStringLiteral("start")); }
    void stopEditing() override { calls.push_back(QStringLiteral("stop")); }
    void panFunction(float greyValues) override
    {
        calls.push_back(QStringLiteral("pan %1").arg(greyValues));
    }
    void stretchFunction(float greyValues) override
    {
        calls.push_back(QStringLiteral("stretch %1").arg(greyValues));
    }

private:
    Calls& calls;
};

class RecordingPreview : public colormap::TransferFunction
{
public:
    explicit RecordingPreview(Calls& log, const QString& ownName) : calls(log), name(ownName) {}

    void setPreviewUpdateEnabledState(bool enabled, bool notify) override
    {
        calls.push_back(QStringLiteral("%1 %2 %3").arg(name).arg(enabled).arg(notify));
    }

private:
    Calls& calls;
    QString name;
};

// A function of two kinds at once, which a host may have: the first in the order of the test
// counts.
template <typename First, typename Second>
class TwoKinds : public First, public Second
{
public:
    bool isOfType(const QString& classTypeId) const override
    {
        return First::isOfType(classTypeId) || Second::isOfType(classTypeId);
    }
    void startEditing() override { First::startEditing(); }
    void stopEditing() override { First::stopEditing(); }
};

class BoneThresholdModifierTest : public testing::Test
{
protected:
    BoneThresholdModifierTest()
    {
        volume.setImage(
            test::makeImage<std::int16_t>({2, 1, 1}, {1.0F, 1.0F, 1.0F}, image::Int16,
                                          [](int x, int, int) { return x == 0 ? -1000 : 1000; }));
        volume.setMIPLevelWindow(300.0F, 1500.0F);
        calls.clear();
    }

    template <typename Function>
    std::shared_ptr<Function> activate(std::shared_ptr<Function> function)
    {
        volume.setActiveVisualizationFunction(function);
        calls.clear();
        return function;
    }

    // 30 pixels to the right, 10 up.
    void drag() { modifier.update({100.0, 100.0}, {130.0, 90.0}); }

    Calls calls;
    RecordingVolume volume{calls};
    BoneThresholdModifier modifier{volume};
};

TEST_F(BoneThresholdModifierTest, SetsLevelAndWindowOnTheVolume)
{
    activate(std::make_shared<colormap::LevelWindowFunction>());
    drag();
    EXPECT_THAT(calls, ElementsAre("volume level 310 window 1530"));
    calls.clear();
    modifier.update(-2);
    EXPECT_THAT(calls, ElementsAre("volume level 290 window 1530"));
}

TEST_F(BoneThresholdModifierTest, SetsTheThresholdOfTheFunctionOnTheVolume)
{
    const auto function = activate(std::make_shared<colormap::ThresholdFunction>());
    volume.setThreshold(function->getUUID(), 400);
    calls.clear();
    drag();
    EXPECT_THAT(calls, ElementsAre("volume threshold 370"));
    EXPECT_EQ(volume.getThreshold(function->getUUID()), 370);
    calls.clear();
    modifier.update(1200);
    EXPECT_THAT(calls, ElementsAre("volume threshold 1200"));
}

TEST_F(BoneThresholdModifierTest, SetsPulpBeforeRestorationThreshold)
{
    const auto function = std::make_shared<RecordingPulp>(calls);
    function->colormap::PulpFunction::setNormalizedPulpThreshold(0.25F);
    function->colormap::PulpFunction::setNormalizedRestorationMaterialThreshold(0.75F);
    activate(function);
    drag();
    EXPECT_THAT(calls, ElementsAre("pulp 0.265", "restoration 0.75"));
    calls.clear();
    modifier.update(0);
    EXPECT_THAT(calls, ElementsAre("pulp 0.5", "restoration 0.75"));
}

TEST_F(BoneThresholdModifierTest, PansBeforeItStretchesInABracketAndAnnouncesItAfterwards)
{
    activate(std::make_shared<RecordingTransfer>(calls));
    drag();
    EXPECT_THAT(calls, ElementsAre("start", "pan 5", "stretch 30", "stop", "volume changed, true"));
}

TEST_F(BoneThresholdModifierTest, HalvesThePanByDesign)
{
    activate(std::make_shared<RecordingTransfer>(calls));
    modifier.update(3);
    EXPECT_THAT(calls, ElementsAre("start", "pan 15", "stretch 0", "stop", "volume changed, true"));
}

TEST_F(BoneThresholdModifierTest, ADragOfLessThanAPixelSetsThePresentValuesAgain)
{
    const QPointF from(0.0, 0.0);
    const QPointF to(0.9, 0.9);
    activate(std::make_shared<colormap::LevelWindowFunction>());
    modifier.update(from, to);
    EXPECT_THAT(calls, ElementsAre("volume level 300 window 1500"));
    activate(std::make_shared<colormap::ThresholdFunction>());
    modifier.update(from, to);
    EXPECT_THAT(calls, ElementsAre("volume threshold 0"));
    activate(std::make_shared<RecordingPulp>(calls));
    modifier.update(from, to);
    EXPECT_THAT(calls, ElementsAre("pulp 0", "restoration 1"));
    activate(std::make_shared<RecordingTransfer>(calls));
    modifier.update(from, to);
    EXPECT_THAT(calls, ElementsAre("start", "pan 0", "stretch 0", "stop", "volume changed, true"));
}

TEST_F(BoneThresholdModifierTest, StartsFromThePresentValuesAtEachCall)
{
    activate(std::make_shared<colormap::LevelWindowFunction>());
    drag();
    drag();
    EXPECT_EQ(volume.getMIPLevel(), 320.0F);
    EXPECT_EQ(volume.getMIPWindow(), 1560.0F);
}

TEST_F(BoneThresholdModifierTest, DoesNothingForOtherFunctionsOrWithoutOne)
{
    const auto other = activate(std::make_shared<colormap::ColormapFunction>());
    drag();
    modifier.update(7);
    EXPECT_THAT(calls, IsEmpty());
    activate(std::shared_ptr<colormap::ColormapFunction>());
    drag();
    modifier.update(7);
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(BoneThresholdModifierTest, TestsForThresholdBeforePulpBeforeTransferByDesign)
{
    using ThresholdAndPulp = TwoKinds<colormap::PulpFunction, colormap::ThresholdFunction>;
    const auto first = std::make_shared<ThresholdAndPulp>();
    const auto* firstPulp = static_cast<colormap::PulpFunction*>(first.get());
    volume.setActiveVisualizationFunction(std::shared_ptr<colormap::ColormapFunction>(
        first, static_cast<colormap::ThresholdFunction*>(first.get())));
    calls.clear();
    modifier.update(77);
    EXPECT_THAT(calls, ElementsAre("volume threshold 77"));
    EXPECT_EQ(firstPulp->getNormalizedPulpThreshold(), 0.0F);

    using PulpAndTransfer = TwoKinds<colormap::TransferFunction, colormap::PulpFunction>;
    const auto second = std::make_shared<PulpAndTransfer>();
    volume.setActiveVisualizationFunction(std::shared_ptr<colormap::ColormapFunction>(
        second, static_cast<colormap::PulpFunction*>(second.get())));
    calls.clear();
    modifier.update(500);
    EXPECT_THAT(calls, IsEmpty()) << "the volume does not announce a changed transfer function";
    EXPECT_EQ(second->getNormalizedPulpThreshold(), 0.75F);
}

TEST_F(BoneThresholdModifierTest, TestsForLevelAndWindowFirstByDesign)
{
    using LevelAndThreshold = TwoKinds<colormap::ThresholdFunction, colormap::LevelWindowFunction>;
    const auto function = std::make_shared<LevelAndThreshold>();
    volume.setActiveVisualizationFunction(std::shared_ptr<colormap::ColormapFunction>(
        function, static_cast<colormap::ThresholdFunction*>(function.get())));
    calls.clear();
    modifier.update(1);
    EXPECT_THAT(calls, ElementsAre("volume level 310 window 1500"));
}

TEST_F(BoneThresholdModifierTest, AFunctionThatOnlyClaimsToBeOfAKindIsUnchanged)
{
    class Claims : public colormap::ColormapFunction
    {
    public:
        bool isOfType(const QString&) const override { return true; }
    };
    activate(std::make_shared<Claims>());
    drag();
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(BoneThresholdModifierTest, SetsThePreviewStateOfEveryFunctionAndSkipsNull)
{
    volume.setAllVisualizationFunctions(
        {std::make_shared<RecordingPreview>(calls, QStringLiteral("a")), nullptr,
         std::make_shared<RecordingPreview>(calls, QStringLiteral("b"))});
    calls.clear();
    modifier.setPreviewUpdateEnabledState(true);
    modifier.setPreviewUpdateEnabledState(false);
    EXPECT_THAT(calls, ElementsAre("a 1 1", "b 1 1", "a 0 1", "b 0 1"));
}

TEST_F(BoneThresholdModifierTest, NotANumberMovesNothing)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    activate(std::make_shared<RecordingTransfer>(calls));
    modifier.update({nan, nan}, {nan, nan});
    EXPECT_THAT(calls, ElementsAre("start", "pan 0", "stretch 0", "stop", "volume changed, true"));
}

} // namespace
