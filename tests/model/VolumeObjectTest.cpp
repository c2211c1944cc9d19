// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/VolumeObject.h>

// Volumes as they are shown, the kinds of color-map functions, the eleven tissue levels.

#include <CoreAlgorithms/model/data/Tissues.h>
#include <CoreAlgorithms/model/dataobjects/CTData.h>
#include <CoreAlgorithms/model/dataobjects/ColormapFunctions.h>

#include <tests/support/ModelRecorders.h>

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>
#include <set>

namespace {

std::shared_ptr<const VexelImage3D> someImage(int size)
{
    return std::make_shared<const VexelImage3D>(math::Ivec3{size, 1, 1},
                                                QVector3D(1.0F, 1.0F, 1.0F), image::UInt8);
}

QList<float> greyValuesOf(const colormap::TransferFunction& function)
{
    QList<float> values;
    for (const auto& point : function.getControlPoints())
        values.append(point.greyValue);
    return values;
}

// Tissues

TEST(Tissues, AreGivenInTheOrderOfTheirFields)
{
    const colormap::Tissues tissues{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
    EXPECT_EQ(tissues.toVector(), std::vector<int>({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
    EXPECT_EQ(tissues.air, 1);
    EXPECT_EQ(tissues.softTissue, 4);
    EXPECT_EQ(tissues.dentine, 8);
    EXPECT_EQ(tissues.denseBone, 10);
    EXPECT_EQ(tissues.enamel, 11);
    EXPECT_EQ(colormap::Tissues().toVector(), std::vector<int>(11, 0));
}

// Functions

TEST(ColormapFunctions, HaveAUuidOfTheirOwn)
{
    const colormap::ThresholdFunction a;
    const colormap::ThresholdFunction b;
    EXPECT_FALSE(a.getUUID().isNull());
    EXPECT_EQ(a.getUUID(), a.getUUID());
    EXPECT_NE(a.getUUID(), b.getUUID());
}

TEST(ColormapFunctions, NotifyOfAnotherPreviewStateOnRequest)
{
    colormap::ColormapFunction function;
    test::ChangeCounter counter;
    function.attach(&counter);
    EXPECT_FALSE(function.isPreviewUpdateEnabled());
    function.setPreviewUpdateEnabledState(true, false);
    EXPECT_TRUE(function.isPreviewUpdateEnabled());
    EXPECT_EQ(counter.changes, 0);
    function.setPreviewUpdateEnabledState(true, true);
    EXPECT_EQ(counter.changes, 0) << "as before";
    function.setPreviewUpdateEnabledState(false, true);
    EXPECT_EQ(counter.changes, 1);
}

TEST(PulpFunction, StoresItsThresholdsAsSet)
{
    colormap::PulpFunction function;
    EXPECT_EQ(function.getNormalizedPulpThreshold(), 0.0F);
    EXPECT_EQ(function.getNormalizedRestorationMaterialThreshold(), 1.0F);
    function.setNormalizedPulpThreshold(-3.0F);
    function.setNormalizedRestorationMaterialThreshold(7.0F);
    EXPECT_EQ(function.getNormalizedPulpThreshold(), -3.0F);
    EXPECT_EQ(function.getNormalizedRestorationMaterialThreshold(), 7.0F);
}

TEST(TransferFunction, PansEveryControlPoint)
{
    colormap::TransferFunction function;
    function.setControlPoints(
        {{-100.0F, QColor(Qt::black)}, {0.0F, QColor(Qt::red)}, {300.0F, QColor(Qt::white)}});
    function.panFunction(50.0F);
    EXPECT_EQ(greyValuesOf(function), QList<float>({-50.0F, 50.0F, 350.0F}));
    EXPECT_EQ(function.getControlPoints()[1].color, QColor(Qt::red));
}

TEST(TransferFunction, StretchesAroundItsMiddleAndKeepsALengthOfOne)
{
    colormap::TransferFunction function;
    function.setControlPoints({{0.0F, {}}, {25.0F, {}}, {100.0F, {}}});
    function.stretchFunction(100.0F);
    EXPECT_EQ(greyValuesOf(function), QList<float>({-50.0F, 0.0F, 150.0F}));
    function.stretchFunction(-1000.0F);
    EXPECT_EQ(greyValuesOf(function), QList<float>({49.5F, 49.75F, 50.5F}));
}

TEST(TransferFunction, IsNotStretchedWithoutLengthOrBySomethingThatIsNotFinite)
{
    colormap::TransferFunction function;
    function.stretchFunction(10.0F);
    EXPECT_TRUE(function.getControlPoints().isEmpty());
    function.setControlPoints({{5.0F, {}}, {5.0F, {}}});
    function.stretchFunction(10.0F);
    EXPECT_EQ(greyValuesOf(function), QList<float>({5.0F, 5.0F}));
    function.setControlPoints({{5.0F, {}}, {7.0F, {}}});
    function.stretchFunction(std::numeric_limits<float>::infinity());
    function.stretchFunction(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(greyValuesOf(function), QList<float>({5.0F, 7.0F}));
}

// Volumes

TEST(VolumeObject, StartsWithoutImageFunctionsAndParameters)
{
    const VolumeObject volume;
    EXPECT_TRUE(volume.getImage().isEmpty());
    EXPECT_EQ(volume.getMIPLevel(), 0.0F);
    EXPECT_EQ(volume.getMIPWindow(), 0.0F);
    EXPECT_EQ(volume.getThreshold(QUuid::createUuid()), 0);
    EXPECT_EQ(volume.getActiveVisualizationFunction(), nullptr);
    EXPECT_TRUE(volume.getAllVisualizationFunctions().isEmpty());
}

TEST(VolumeObject, GivesWhatIsSet)
{
    VolumeObject volume;
    const auto function = std::make_shared<colormap::ThresholdFunction>();
    const auto other = std::make_shared<colormap::ThresholdFunction>();
    volume.setMIPLevelWindow(300.0F, 1500.0F);
    volume.setThreshold(function->getUUID(), 400);
    volume.setActiveVisualizationFunction(function);
    volume.setAllVisualizationFunctions({function, nullptr, other});
    EXPECT_EQ(volume.getMIPLevel(), 300.0F);
    EXPECT_EQ(volume.getMIPWindow(), 1500.0F);
    EXPECT_EQ(volume.getThreshold(function->getUUID()), 400);
    EXPECT_EQ(volume.getThreshold(other->getUUID()), 0);
    EXPECT_EQ(volume.getActiveVisualizationFunction(), function);
    EXPECT_EQ(volume.getAllVisualizationFunctions().size(), 3);
}

TEST(CTDataVolumeObject, ShowsTheImageOfItsScanUnlessItHasItsOwn)
{
    CTDataVolumeObject volume;
    EXPECT_EQ(volume.getCTData(), nullptr);
    EXPECT_TRUE(volume.getImage().isEmpty());
    const auto ct = std::make_shared<CTData>();
    volume.setCTData(ct);
    EXPECT_EQ(volume.getCTData(), ct);
    EXPECT_TRUE(volume.getImage().isEmpty());
    const auto images = std::make_shared<ImageVolume>();
    const auto scanned = someImage(3);
    images->setImage(scanned);
    ct->setImageVolume(images);
    EXPECT_EQ(&volume.getImage(), scanned.get());
    const auto own = someImage(5);
    volume.setImage(own);
    EXPECT_EQ(&volume.getImage(), own.get());
}

TEST(VolumeObject, EverySetterNotifiesOnce)
{
    CTDataVolumeObject volume;
    colormap::PulpFunction pulp;
    colormap::TransferFunction transfer;
    transfer.setControlPoints({{0.0F, {}}, {10.0F, {}}});
    const struct
    {
        const char* name;
        DataObject* object;
        std::function<void()> set;
        int times = 1;
    } setters[] = {
        {"setImage", &volume, [&] { volume.setImage(nullptr); }},
        {"setMIPLevelWindow", &volume, [&] { volume.setMIPLevelWindow(1.0F, 2.0F); }},
        {"setThreshold", &volume, [&] { volume.setThreshold(QUuid(), 2); }},
        {"setActiveVisualizationFunction", &volume,
         [&] { volume.setActiveVisualizationFunction(nullptr); }},
        {"setAllVisualizationFunctions", &volume, [&] { volume.setAllVisualizationFunctions({}); }},
        {"setCTData", &volume, [&] { volume.setCTData(nullptr); }},
        {"visualizationChanged to be redrawn", &volume, [&] { volume.visualizationChanged(true); }},
        {"visualizationChanged not to be redrawn", &volume,
         [&] { volume.visualizationChanged(false); }, 0},
        {"setNormalizedPulpThreshold", &pulp, [&] { pulp.setNormalizedPulpThreshold(0.5F); }},
        {"setNormalizedRestorationMaterialThreshold", &pulp,
         [&] { pulp.setNormalizedRestorationMaterialThreshold(0.5F); }},
        {"panFunction", &transfer, [&] { transfer.panFunction(5.0F); }},
        {"stretchFunction", &transfer, [&] { transfer.stretchFunction(5.0F); }},
        {"setControlPoints", &transfer, [&] { transfer.setControlPoints({}); }},
    };
    for (const auto& setter : setters) {
        test::ChangeCounter counter;
        setter.object->attach(&counter);
        setter.set();
        EXPECT_EQ(counter.changes, setter.times) << setter.name;
    }
}

} // namespace
