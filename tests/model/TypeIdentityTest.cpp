// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/fundamentals/TypeIdentity.h>

// Every class of the model publishes its name as its identifier, and its objects are of its type
// and of those of its bases only.

#include <CoreAlgorithms/model/dataobjects/Annotations.h>
#include <CoreAlgorithms/model/dataobjects/CTData.h>
#include <CoreAlgorithms/model/dataobjects/ColormapFunctions.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/dataobjects/Distraction.h>
#include <CoreAlgorithms/model/dataobjects/Endodontics.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Implants.h>
#include <CoreAlgorithms/model/dataobjects/JawParts.h>
#include <CoreAlgorithms/model/dataobjects/Joints.h>
#include <CoreAlgorithms/model/dataobjects/Movements.h>
#include <CoreAlgorithms/model/dataobjects/Occlusions.h>
#include <CoreAlgorithms/model/dataobjects/PatientSurfaces.h>
#include <CoreAlgorithms/model/dataobjects/PlacedSurfaces.h>
#include <CoreAlgorithms/model/dataobjects/Plans.h>
#include <CoreAlgorithms/model/dataobjects/PolyLines.h>
#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/model/dataobjects/ScanSetups.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceScans.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceTrees.h>
#include <CoreAlgorithms/model/dataobjects/Teeth.h>
#include <CoreAlgorithms/model/dataobjects/VolumeObject.h>

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace {

class AnySurface : public dataobject::SurfaceObject
{
public:
    primitives::BoundingBox getSceneBoundingBox() const override { return {}; }
};

struct Row
{
    QString published;
    const char* identifier;
    const char* base;
    std::shared_ptr<const CoreObject> object;
};

template <typename Object, typename... Arguments>
Row row(const char* identifier, const char* base, Arguments... arguments)
{
    return {Object::getClassTypeId(), identifier, base,
            std::make_shared<Object>(std::move(arguments)...)};
}

// Returns a row for each class, which follows that of its base.
std::vector<Row> allClasses()
{
    return {
        row<CoreObject>("CoreObject", ""),
        row<PropertyObject>("PropertyObject", "CoreObject"),
        row<DataObject>("DataObject", "PropertyObject"),
        row<PointAnnotation>("PointAnnotation", "DataObject"),
        row<LineAnnotation>("LineAnnotation", "DataObject"),
        row<GreyValueMeasurement>("GreyValueMeasurement", "DataObject"),
        row<PencilAnnotation3D>("PencilAnnotation3D", "DataObject"),
        row<ArrowAnnotation3D>("ArrowAnnotation3D", "DataObject"),
        row<CircleAnnotation3D>("CircleAnnotation3D", "DataObject"),
        row<TextAnnotation3D>("TextAnnotation3D", "DataObject"),
        row<CustomResliceAnnotation>("CustomResliceAnnotation", "DataObject"),
        row<CephPlaneBase>("CephPlaneBase", "DataObject"),
        row<dataobject::AttachablePoint>("AttachablePoint", "DataObject"),
        row<dataobject::PointBased3DAnnotationBase>("PointBased3DAnnotationBase", "DataObject"),
        row<LandmarkBase>("LandmarkBase", "DataObject"),
        row<dataobject::LandmarkAnnotation>("LandmarkAnnotation", "LandmarkBase",
                                            landmarkDetection::Sella),
        row<ImageVolume>("ImageVolume", "DataObject"),
        row<CTData>("CTData", "DataObject"),
        row<colormap::ColormapFunction>("ColormapFunction", "DataObject"),
        row<colormap::LevelWindowFunction>("LevelWindowFunction", "ColormapFunction"),
        row<colormap::ThresholdFunction>("ThresholdFunction", "ColormapFunction"),
        row<colormap::PulpFunction>("PulpFunction", "ColormapFunction"),
        row<colormap::TransferFunction>("TransferFunction", "ColormapFunction"),
        row<Distractor>("Distractor", "DataObject"),
        row<dataobject::Apex>("Apex", "DataObject"),
        row<dataobject::RootCanal>("RootCanal", "DataObject"),
        row<Point>("Point", "DataObject"),
        row<GuidingLine>("GuidingLine", "DataObject"),
        row<GuidingSpline>("GuidingSpline", "GuidingLine"),
        row<PlanarGuidingSpline>("PlanarGuidingSpline", "GuidingSpline"),
        row<PlanarDentalSpline>("PlanarDentalSpline", "PlanarGuidingSpline"),
        row<dataobject::Implant3D>("Implant3D", "DataObject"),
        row<dataobject::AnchorPin3D>("AnchorPin3D", "DataObject"),
        row<dataobject::TemporomandibularJoint>("TemporomandibularJoint", "DataObject"),
        row<Movement>("Movement", "DataObject", QString()),
        row<OcclusionMovement>("OcclusionMovement", "Movement", QString()),
        row<CompositeMovement>("CompositeMovement", "Movement", QString()),
        row<FixedMovement>("FixedMovement", "Movement", QString()),
        row<MaxillofacialSurgery>("MaxillofacialSurgery", "DataObject"),
        row<OcclusionBase>("OcclusionBase", "DataObject"),
        row<Occlusion>("Occlusion", "OcclusionBase"),
        row<dataobject::VirtualOcclusion>("VirtualOcclusion", "OcclusionBase"),
        row<dataobject::LockedImplantPlan>("LockedImplantPlan", "DataObject"),
        row<dataobject::PlannedToPostOpCollection>("PlannedToPostOpCollection", "DataObject"),
        row<PolyLine>("PolyLine", "DataObject"),
        row<Reslice>("Reslice", "DataObject"),
        row<PlanarReslice>("PlanarReslice", "Reslice"),
        row<PanoramicReslice>("PanoramicReslice", "Reslice"),
        row<CephReslice>("CephReslice", "Reslice"),
        row<OcclusionScan>("OcclusionScan", "DataObject"),
        row<ScanSetup>("ScanSetup", "DataObject"),
        {dataobject::SurfaceObject::getClassTypeId(), "SurfaceObject", "DataObject",
         std::make_shared<AnySurface>()},
        row<Surface3DModel>("Surface3DModel", "SurfaceObject"),
        row<dataobject::Nerve>("Nerve", "Surface3DModel"),
        row<SurgeryPlanningPart>("SurgeryPlanningPart", "Surface3DModel"),
        row<RotatableSurgeryPlanningPart>("RotatableSurgeryPlanningPart", "SurgeryPlanningPart"),
        row<Maxilla>("Maxilla", "RotatableSurgeryPlanningPart"),
        row<Mandibula>("Mandibula", "RotatableSurgeryPlanningPart"),
        row<FrontSegment>("FrontSegment", "RotatableSurgeryPlanningPart"),
        row<LeftSegment>("LeftSegment", "RotatableSurgeryPlanningPart"),
        row<RightSegment>("RightSegment", "RotatableSurgeryPlanningPart"),
        row<SoftTissueModel>("SoftTissueModel", "Surface3DModel"),
        row<Skin>("Skin", "Surface3DModel"),
        row<OsteotomySurface>("OsteotomySurface", "Surface3DModel"),
        row<ShowObject>("ShowObject", "Surface3DModel"),
        row<dataobject::SurgicalSplint>("SurgicalSplint", "Surface3DModel"),
        row<dataobject::Airway>("Airway", "Surface3DModel"),
        row<dataobject::PatientSurfaceModel>("PatientSurfaceModel", "Surface3DModel"),
        row<PlacedSurfaceModel>("PlacedSurfaceModel", "Surface3DModel"),
        row<VirtualTooth>("VirtualTooth", "PlacedSurfaceModel"),
        row<dataobject::SurgicalTemplate3D>("SurgicalTemplate3D", "PlacedSurfaceModel"),
        row<dataobject::PreviewSurgicalTemplate>("PreviewSurgicalTemplate", "PlacedSurfaceModel"),
        row<ScannableRegion>("ScannableRegion", "Surface3DModel"),
        row<QuarnRawScanData>("QuarnRawScanData", "Surface3DModel"),
        row<SurfaceScan>("SurfaceScan", "Surface3DModel"),
        row<DentalScan>("DentalScan", "SurfaceScan"),
        row<SurfaceTree>("SurfaceTree", "SurfaceObject"),
        row<TempShell>("TempShell", "SurfaceTree"),
        row<dataobject::Tooth>("Tooth", "DataObject", ToothChart::Tooth(1),
                               dataobject::Tooth::Present, dataobject::Tooth::Permanent),
        row<dataobject::Mouth>("Mouth", "DataObject"),
        row<Anatomy>("Anatomy", "DataObject"),
        row<Diagnosis>("Diagnosis", "DataObject"),
        row<ToothAnnotation3D>("ToothAnnotation3D", "DataObject"),
        row<VolumeObject>("VolumeObject", "DataObject"),
        row<CTDataVolumeObject>("CTDataVolumeObject", "VolumeObject"),
    };
}

TEST(TypeIdentity, EveryClassPublishesItsNameAndNoTwoTheSame)
{
    QSet<QString> identifiers;
    for (const Row& row : allClasses()) {
        EXPECT_EQ(row.published.toStdString(), row.identifier);
        EXPECT_FALSE(identifiers.contains(row.published)) << row.identifier;
        identifiers.insert(row.published);
    }
}

TEST(TypeIdentity, EveryObjectIsOfTheTypesOfItsClassAndOfItsBasesOnly)
{
    const std::vector<Row> classes = allClasses();
    std::map<QString, QSet<QString>> ownAndBases;
    for (const Row& row : classes) {
        QSet<QString>& types = ownAndBases[QString(row.identifier)];
        types = ownAndBases[QString(row.base)];
        types.insert(QString(row.identifier));
        for (const Row& other : classes) {
            EXPECT_EQ(row.object->isOfType(other.published), types.contains(other.published))
                << row.identifier << " as " << other.identifier;
        }
    }
}

TEST(TypeIdentity, IdentifiersAreComparedAsAWhole)
{
    for (const Row& row : allClasses()) {
        EXPECT_FALSE(row.object->isOfType(QString())) << row.identifier;
        EXPECT_FALSE(row.object->isOfType(row.published.toLower())) << row.identifier;
        EXPECT_FALSE(row.object->isOfType(row.published + "2")) << row.identifier;
    }
}

class Crown : public dataobject::Implant3D
{
    COREALGORITHMS_TYPE(Crown, dataobject::Implant3D)

public:
    int shade = 2;
};

TEST(TypeIdentity, IsGivenToAClassOfTheApplication)
{
    const std::shared_ptr<const DataObject> crown = std::make_shared<Crown>();
    EXPECT_EQ(Crown::getClassTypeId(), "Crown");
    EXPECT_TRUE(crown->isOfType("Crown"));
    EXPECT_TRUE(crown->isOfType("Implant3D"));
    EXPECT_TRUE(crown->isOfType("CoreObject"));
    EXPECT_FALSE(crown->isOfType("AnchorPin3D"));
}

// The classes without functions in a source of the model have their type information in every
// library that uses them.
TEST(TypeIdentity, ObjectsAreFoundByDynamicCastAcrossTheModelsLibrary)
{
    for (const Row& row : allClasses()) {
        const bool isData = row.object->isOfType("DataObject");
        EXPECT_EQ(dynamic_cast<const DataObject*>(row.object.get()) != nullptr, isData)
            << row.identifier;
    }
    const std::shared_ptr<DataObject> airway = std::make_shared<dataobject::Airway>();
    EXPECT_NE(std::dynamic_pointer_cast<dataobject::Airway>(airway), nullptr);
    EXPECT_EQ(std::dynamic_pointer_cast<Skin>(airway), nullptr);
}

} // namespace
