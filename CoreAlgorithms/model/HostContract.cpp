// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/HostContract.h>

#include <CoreAlgorithms/model/data/Mesh.h>
#include <CoreAlgorithms/model/data/Shapes.h>
#include <CoreAlgorithms/model/data/Tissues.h>
#include <CoreAlgorithms/model/data/VexelImage3D.h>
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
#include <CoreAlgorithms/model/fundamentals/Optional.h>
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>
#include <CoreAlgorithms/model/linearalgebra/PlaneFit.h>
#include <CoreAlgorithms/model/math/BoundingBox.h>
#include <CoreAlgorithms/model/math/Ivec3.h>
#include <CoreAlgorithms/model/math/Operations.h>
#include <CoreAlgorithms/model/math/OrientedBoundingBox.h>
#include <CoreAlgorithms/model/math/Plane.h>
#include <CoreAlgorithms/model/math/QRay3D.h>
#include <CoreAlgorithms/model/math/Range.h>
#include <CoreAlgorithms/model/math/Spline3D.h>
#include <CoreAlgorithms/model/patterns/Observable.h>
#include <CoreAlgorithms/model/patterns/Observer.h>

#include <Eigen/Core>

#include <cstddef>
#include <map>
#include <utility>
#include <vector>

using namespace hostcontract;
using geometry::Mesh;
using primitives::BoundingBox;

// Checks the model that the library is built against, bundled or the application's own. The
// compiler names what is missing below the failed line, as "the required expression ... is
// invalid".

// Enumerations
static_assert(NumberedValue<JawType>, "JawType is neither an enumeration nor an integer");
static_assert(NumberedValue<Context>, "Context is neither an enumeration nor an integer");
static_assert(NumberedValue<CreationType>, "CreationType is neither an enumeration nor an integer");
static_assert(NumberedValue<TransformManipulationType>,
              "TransformManipulationType is neither an enumeration nor an integer");
static_assert(NumberedValue<ResliceType>, "ResliceType is neither an enumeration nor an integer");

// Values
static_assert(OptionalValue<utility::Optional<QMatrix4x4>, QMatrix4x4> &&
                  OptionalValue<utility::Optional<colormap::Tissues>, colormap::Tissues> &&
                  OptionalValue<utility::Optional<std::pair<int, int>>, std::pair<int, int>> &&
                  OptionalValue<utility::Optional<std::map<QString, QMatrix4x4>>,
                                std::map<QString, QMatrix4x4>>,
              "utility::Optional lacks an operation that the library calls");
static_assert(RangeValue<math::Range<float>>,
              "math::Range lacks a field or braces that the library uses");
static_assert(CountsValue<math::Ivec3>, "math::Ivec3 lacks a field that the library reads");
static_assert(RayValue<primitives::QRay3D>,
              "primitives::QRay3D lacks a constructor that the library calls");
static_assert(PlaneValue<primitives::Plane, primitives::QRay3D>,
              "primitives::Plane lacks an operation that the library calls");
static_assert(BoundingBoxValue<BoundingBox>,
              "primitives::BoundingBox lacks an operation that the library calls");
static_assert(OrientedBoundingBoxValue<primitives::OrientedBoundingBox, BoundingBox>,
              "primitives::OrientedBoundingBox lacks an operation that the library calls");
static_assert(MeshValue<Mesh>, "geometry::Mesh lacks an operation that the library calls");
static_assert(GridCellValue<geometry::BoundedTriangles, BoundingBox>,
              "geometry::BoundedTriangles lacks a field that the library fills");
static_assert(TissuesValue<colormap::Tissues>,
              "colormap::Tissues lacks a level that the library sets");
static_assert(AlignmentValue<SurfaceScanAlignment>,
              "SurfaceScanAlignment lacks a field that the library reads");
static_assert(PlaneFitResult<decltype(algebra::fitPlane(std::vector<Eigen::Vector3d>())),
                             algebra::Plane, Eigen::Vector3d>,
              "algebra::fitPlane returns nothing that the library can use");
static_assert(RotationOperations<math::Operations>,
              "math::Operations lacks an operation that the library calls");
static_assert(CurveModel<math::Spline3DInterface>,
              "math::Spline3DInterface lacks an operation that the library calls");

// Observers
namespace {

class Subject : public patterns::Observable<Subject, std::nullptr_t>
{};

class Listener : public patterns::Observer<GuidingLine, events::GuidingLineEvent>
{
    void changedEvent(GuidingLine* /*line*/, events::GuidingLineEvent* /*event*/) override {}
};

} // namespace
static_assert(PlainSubject<Subject>,
              "patterns::Observable lacks an operation that the library calls");
static_assert(EventObserver<patterns::Observer<GuidingLine, events::GuidingLineEvent>, GuidingLine,
                            events::GuidingLineEvent> &&
                  std::default_initializable<Listener>,
              "patterns::Observer lacks an operation that the library calls");

// Tooth chart
static_assert(ToothChartFamily<ToothChart>, "ToothChart lacks an operation that the library calls");
static_assert(ToothKinds<ToothChart, ToothChart::Tooth>,
              "ToothChart lacks an operation that the library calls");

// Reslices
static_assert(ResliceFamily<Reslice>, "Reslice lacks an operation that the library calls");
static_assert(PlanarResliceFamily<PlanarReslice>,
              "PlanarReslice lacks an operation that the library calls");
static_assert(CephResliceFamily<CephReslice>,
              "CephReslice lacks an operation that the library calls");
static_assert(
    PanoramicResliceFamily<PanoramicReslice, GuidingLine, ResliceType, math::Range<float>>,
    "PanoramicReslice lacks an operation that the library calls");
static_assert(StaticKindOf<PlanarReslice, Reslice> && StaticKindOf<CephReslice, Reslice> &&
                  StaticKindOf<PanoramicReslice, Reslice>,
              "PlanarReslice, CephReslice or PanoramicReslice is no Reslice");
static_assert(ResliceOfCTFamily<PlanarReslice, CTData>,
              "PlanarReslice lacks an operation that the library calls");

// Guiding lines
static_assert(PointFamily<Point>, "Point lacks an operation that the library calls");
static_assert(ArchLineFamily<GuidingLine> && GuidingLineFamily<GuidingLine>,
              "GuidingLine lacks an operation that the library calls");
static_assert(GuidingSplineFamily<GuidingSpline, GuidingLine, Point, math::Spline3DInterface>,
              "GuidingSpline lacks a base or an operation that the library calls");
static_assert(DrawnSplineFamily<PlanarGuidingSpline, Point,
                                patterns::Observer<GuidingLine, events::GuidingLineEvent>,
                                events::GuidingLineEvent>,
              "PlanarGuidingSpline lacks an operation that the library calls");
static_assert(
    GuidingSplineFamily<PlanarDentalSpline, GuidingLine, Point, math::Spline3DInterface> &&
        PlanarDentalSplineFamily<PlanarDentalSpline, Point, ToothChart, PlanarReslice,
                                 CreationType>,
    "PlanarDentalSpline lacks a base or an operation that the library calls");

// Images and display functions
static_assert(VoxelImageValue<VexelImage3D, math::Ivec3, math::Range<float>>,
              "VexelImage3D lacks an operation that the library calls");
static_assert(ImageVolumeFamily<ImageVolume, VexelImage3D>,
              "ImageVolume lacks an operation that the library calls");
static_assert(LandmarkFamily<dataobject::LandmarkAnnotation, Context>,
              "dataobject::LandmarkAnnotation lacks an operation that the library calls");
static_assert(CTDataFamily<CTData, ImageVolume, dataobject::LandmarkAnnotation, BoundingBox>,
              "CTData lacks an operation that the library calls");
static_assert(ColormapFunctionFamily<colormap::ColormapFunction>,
              "colormap::ColormapFunction lacks an operation that the library calls");
static_assert(ColormapFunctionFamily<colormap::LevelWindowFunction> &&
                  DynamicKindOf<colormap::LevelWindowFunction, colormap::ColormapFunction>,
              "colormap::LevelWindowFunction lacks an operation that the library calls");
static_assert(ColormapFunctionFamily<colormap::ThresholdFunction> &&
                  DynamicKindOf<colormap::ThresholdFunction, colormap::ColormapFunction>,
              "colormap::ThresholdFunction lacks an operation that the library calls");
static_assert(PulpFunctionFamily<colormap::PulpFunction> &&
                  DynamicKindOf<colormap::PulpFunction, colormap::ColormapFunction>,
              "colormap::PulpFunction lacks an operation that the library calls");
static_assert(TransferFunctionFamily<colormap::TransferFunction> &&
                  DynamicKindOf<colormap::TransferFunction, colormap::ColormapFunction>,
              "colormap::TransferFunction lacks an operation that the library calls");
static_assert(VolumeObjectFamily<VolumeObject, colormap::ColormapFunction, VexelImage3D>,
              "VolumeObject lacks an operation that the library calls");
static_assert(VolumeOfCTFamily<CTDataVolumeObject, CTData>,
              "CTDataVolumeObject lacks an operation that the library calls");

// Teeth
static_assert(MouthFamily<dataobject::Mouth, dataobject::Tooth, ToothChart>,
              "dataobject::Mouth or dataobject::Tooth lacks an operation that the library calls");
static_assert(DiagnosisFamily<Diagnosis, Anatomy, dataobject::Mouth>,
              "Diagnosis or Anatomy lacks an operation that the library calls");
static_assert(OriginalModelsFamily<Anatomy, Surface3DModel>,
              "Anatomy lacks an operation that the library calls");
static_assert(ToothAnnotationFamily<ToothAnnotation3D, dataobject::Tooth, ToothChart, CreationType>,
              "ToothAnnotation3D lacks an operation that the library calls");

// Surfaces and shapes
static_assert(ShapeNodeFamily<geometry::ShapeNode, Mesh, BoundingBox>,
              "geometry::ShapeNode lacks an operation that the library calls");
static_assert(
    ShapeFactoryFamily<geometry::ShapeFactory, geometry::ShapeLoader, geometry::ShapeNode>,
    "geometry::ShapeFactory lacks an operation that the library calls");
static_assert(SurfaceModelFamily<Surface3DModel, Mesh, BoundingBox> &&
                  MovableSurfaceFamily<Surface3DModel, Mesh>,
              "Surface3DModel lacks an operation that the library calls");
static_assert(SurfaceModelFamily<dataobject::Nerve, Mesh, BoundingBox>,
              "dataobject::Nerve lacks an operation that the library calls");
static_assert(EditLockerFamily<EditLocker, DataObject> &&
                  EditLockerFamily<EditLocker, Surface3DModel>,
              "EditLocker cannot lock a DataObject or a Surface3DModel");
static_assert(SurfaceObjectFamily<SurfaceTree, BoundingBox> && MovableTreeFamily<SurfaceTree>,
              "SurfaceTree lacks an operation that the library calls");
static_assert(MovableTreeFamily<TempShell>, "TempShell lacks an operation that the library calls");
static_assert(SurfaceBoxes<SurfaceObjectHelper, dataobject::SurfaceObject, BoundingBox>,
              "SurfaceObjectHelper lacks an operation that the library calls");

// Implants
static_assert(ImplantFamily<dataobject::Implant3D>,
              "dataobject::Implant3D lacks an operation that the library calls");
static_assert(AnchorPinFamily<dataobject::AnchorPin3D, geometry::ShapeNode>,
              "dataobject::AnchorPin3D lacks an operation that the library calls");
static_assert(HashedByPointer<dataobject::Implant3D> &&
                  HashedByPointer<const dataobject::Implant3D> &&
                  HashedByPointer<dataobject::AnchorPin3D> && HashedByPointer<dataobject::Nerve>,
              "a shared pointer to an implant, pin or nerve cannot be hashed");
static_assert(AbsolutelyPlacedFamily<dataobject::Implant3D, TransformManipulationType> &&
                  AbsolutelyPlacedFamily<dataobject::AnchorPin3D, TransformManipulationType>,
              "an implant or an anchor pin lacks an operation that the library calls");
static_assert(PlacedSurfaceFamily<dataobject::PreviewSurgicalTemplate> &&
                  PlacedSurfaceFamily<dataobject::SurgicalTemplate3D> &&
                  PlacedSurfaceFamily<VirtualTooth>,
              "a template or VirtualTooth lacks an operation that the library calls");

// Scans and occlusion
static_assert(
    AlignableSurfaceFamily<AlignableSurface, SurfaceScanAlignment, Surface3DModel, JawType>,
    "AlignableSurface lacks an operation that the library calls");
static_assert(SurfaceScanFamily<SurfaceScan, Surface3DModel, AlignableSurface>,
              "SurfaceScan lacks a base or an operation that the library calls");
static_assert(std::derived_from<DentalScan, AlignableSurface>, "DentalScan is no AlignableSurface");
static_assert(OcclusionScanFamily<OcclusionScan>,
              "OcclusionScan lacks an operation that the library calls");
static_assert(ScannableRegionFamily<ScannableRegion, dataobject::SurfaceObject, ToothChart::Tooth>,
              "ScannableRegion lacks a base or an operation that the library calls");
static_assert(RawScanDataFamily<QuarnRawScanData, dataobject::SurfaceObject, ToothChart::Tooth>,
              "QuarnRawScanData lacks a base or an operation that the library calls");
static_assert(ScanSetupFamily<ScanSetup, OcclusionScan, ScannableRegion, QuarnRawScanData>,
              "ScanSetup lacks an operation that the library calls");
static_assert(OcclusionFamily<Occlusion> && OcclusionFamily<dataobject::VirtualOcclusion>,
              "an occlusion lacks an operation that the library calls");

// Movements and jaw parts
static_assert(MovementFamily<Movement, MovementUndoLock>,
              "Movement or MovementUndoLock lacks an operation that the library calls");
static_assert(
    OcclusionMovementFamily<OcclusionMovement, Movement, JawType, utility::Optional<QMatrix4x4>>,
    "OcclusionMovement lacks a base or an operation that the library calls");
static_assert(CompositeMovementFamily<CompositeMovement, Movement>,
              "CompositeMovement lacks a base or an operation that the library calls");
static_assert(DynamicKindOf<OcclusionMovement, Movement> &&
                  DynamicKindOf<CompositeMovement, Movement>,
              "OcclusionMovement or CompositeMovement is no Movement");
static_assert(SurgeryFamily<MaxillofacialSurgery, Movement>,
              "MaxillofacialSurgery lacks an operation that the library calls");
static_assert(MovementTypesFamily<MovementTypes>,
              "MovementTypes lacks a constant or an operation that the library uses");
static_assert(MovementModesFamily<MovementModes>,
              "MovementModes lacks a constant that the library uses");
static_assert(TypedObject<Maxilla> && TypedObject<Mandibula> && TypedObject<FrontSegment> &&
                  TypedObject<LeftSegment> && TypedObject<RightSegment>,
              "a jaw part lacks its type identifier");
static_assert(
    JawPartFamily<Mandibula, RotatableSurgeryPlanningPart, Point>,
    "Mandibula or RotatableSurgeryPlanningPart lacks an operation that the library calls");
static_assert(DynamicKindOf<Mandibula, SurgeryPlanningPart> &&
                  DynamicKindOf<RotatableSurgeryPlanningPart, SurgeryPlanningPart>,
              "Mandibula or RotatableSurgeryPlanningPart is no SurgeryPlanningPart");

// The other objects of a plan
static_assert(PositionedAnnotationFamily<PointAnnotation> &&
                  PositionedAnnotationFamily<GreyValueMeasurement>,
              "PointAnnotation or GreyValueMeasurement lacks an operation that the library calls");
static_assert(LineAnnotationFamily<LineAnnotation>,
              "LineAnnotation lacks an operation that the library calls");
static_assert(TransformableFamily<ToothAnnotation3D> && TransformableFamily<PencilAnnotation3D> &&
                  TransformableFamily<ArrowAnnotation3D> &&
                  TransformableFamily<CircleAnnotation3D> &&
                  TransformableFamily<TextAnnotation3D> &&
                  TransformableFamily<CustomResliceAnnotation> &&
                  TransformableFamily<CephPlaneBase> &&
                  TransformableFamily<dataobject::AttachablePoint> &&
                  TransformableFamily<dataobject::PointBased3DAnnotationBase>,
              "an annotation, an attachable point or a ceph plane lacks its applyTransform()");
static_assert(PointEditorFamily<PointEditor, Context>,
              "PointEditor lacks an operation that the library calls");
static_assert(PolyLineFamily<PolyLine, PointInterface, PointEditor, Context>,
              "PolyLine or PointInterface lacks an operation that the library calls");
static_assert(DynamicKindOf<PointUnlinked, PointInterface> &&
                  DynamicKindOf<dataobject::PointUnlinkedMultiPositions, PointInterface>,
              "PointUnlinked or PointUnlinkedMultiPositions is no PointInterface");
static_assert(LineOwnerFamily<dataobject::Nerve, GuidingLine> &&
                  LineOwnerFamily<dataobject::TemporomandibularJoint, GuidingLine>,
              "the guiding line of a nerve or a joint lacks an operation that the library calls");
static_assert(DistractorFamily<Distractor, SurfaceTree>,
              "Distractor lacks an operation that the library calls");
static_assert(LockedPlanFamily<dataobject::LockedImplantPlan>,
              "dataobject::LockedImplantPlan lacks an operation that the library calls");
static_assert(CollectionFamily<dataobject::PlannedToPostOpCollection>,
              "dataobject::PlannedToPostOpCollection lacks an operation that the library calls");
static_assert(
    RootFamily<dataobject::Apex, dataobject::RootCanal>,
    "dataobject::Apex or dataobject::RootCanal lacks an operation that the library calls");

// What a plan in a new scanner frame moves
static_assert(std::derived_from<SurfaceScan, Surface3DModel> &&
                  std::derived_from<SurgeryPlanningPart, Surface3DModel> &&
                  std::derived_from<SoftTissueModel, Surface3DModel> &&
                  std::derived_from<Skin, Surface3DModel> &&
                  std::derived_from<OsteotomySurface, Surface3DModel> &&
                  std::derived_from<ShowObject, Surface3DModel> &&
                  std::derived_from<dataobject::Nerve, Surface3DModel> &&
                  std::derived_from<dataobject::SurgicalSplint, Surface3DModel> &&
                  std::derived_from<dataobject::Airway, Surface3DModel> &&
                  std::derived_from<dataobject::PatientSurfaceModel, Surface3DModel>,
              "a surface that is moved is no Surface3DModel");
static_assert(DynamicKindOf<PlanarDentalSpline, DataObject> &&
                  DynamicKindOf<ToothAnnotation3D, DataObject> &&
                  DynamicKindOf<PointAnnotation, DataObject> &&
                  DynamicKindOf<LineAnnotation, DataObject> &&
                  DynamicKindOf<PencilAnnotation3D, DataObject> &&
                  DynamicKindOf<ArrowAnnotation3D, DataObject> &&
                  DynamicKindOf<CircleAnnotation3D, DataObject> &&
                  DynamicKindOf<TextAnnotation3D, DataObject> &&
                  DynamicKindOf<dataobject::PointBased3DAnnotationBase, DataObject> &&
                  DynamicKindOf<CustomResliceAnnotation, DataObject> &&
                  DynamicKindOf<GreyValueMeasurement, DataObject> &&
                  DynamicKindOf<PolyLine, DataObject> &&
                  DynamicKindOf<dataobject::AttachablePoint, DataObject>,
              "an arch, a label, an annotation or a line is no DataObject");
static_assert(DynamicKindOf<SurfaceScan, DataObject> &&
                  DynamicKindOf<SurgeryPlanningPart, DataObject> &&
                  DynamicKindOf<SoftTissueModel, DataObject> && DynamicKindOf<Skin, DataObject> &&
                  DynamicKindOf<OsteotomySurface, DataObject> &&
                  DynamicKindOf<ShowObject, DataObject> &&
                  DynamicKindOf<dataobject::Nerve, DataObject> &&
                  DynamicKindOf<dataobject::SurgicalSplint, DataObject> &&
                  DynamicKindOf<dataobject::Airway, DataObject> &&
                  DynamicKindOf<dataobject::PatientSurfaceModel, DataObject> &&
                  DynamicKindOf<TempShell, DataObject>,
              "a surface that is moved is no DataObject");
static_assert(DynamicKindOf<dataobject::Implant3D, DataObject> &&
                  DynamicKindOf<dataobject::AnchorPin3D, DataObject> &&
                  DynamicKindOf<dataobject::PreviewSurgicalTemplate, DataObject> &&
                  DynamicKindOf<dataobject::SurgicalTemplate3D, DataObject> &&
                  DynamicKindOf<VirtualTooth, DataObject> &&
                  DynamicKindOf<dataobject::LockedImplantPlan, DataObject>,
              "an implant, a pin, a template or a locked plan is no DataObject");
static_assert(DynamicKindOf<Anatomy, DataObject> && DynamicKindOf<Distractor, DataObject> &&
                  DynamicKindOf<dataobject::TemporomandibularJoint, DataObject> &&
                  DynamicKindOf<dataobject::PlannedToPostOpCollection, DataObject> &&
                  DynamicKindOf<dataobject::Apex, DataObject> &&
                  DynamicKindOf<dataobject::RootCanal, DataObject>,
              "an anatomy, a distractor, a joint, a collection or a root is no DataObject");
static_assert(DynamicKindOf<CTDataVolumeObject, DataObject> &&
                  DynamicKindOf<MaxillofacialSurgery, DataObject> &&
                  DynamicKindOf<DentalScan, DataObject> && DynamicKindOf<Occlusion, DataObject> &&
                  DynamicKindOf<dataobject::VirtualOcclusion, DataObject> &&
                  DynamicKindOf<CephPlaneBase, DataObject>,
              "a volume, a surgery, a dental scan, an occlusion or a ceph plane is no DataObject");
