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
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>
#include <CoreAlgorithms/model/linearalgebra/PlaneFit.h>
#include <CoreAlgorithms/model/math/BoundingBox.h>
#include <CoreAlgorithms/model/math/Operations.h>
#include <CoreAlgorithms/model/math/OrientedBoundingBox.h>
#include <CoreAlgorithms/model/math/Plane.h>
#include <CoreAlgorithms/model/math/QRay3D.h>
#include <CoreAlgorithms/model/math/Range.h>
#include <CoreAlgorithms/model/math/Spline3D.h>

#include <vector>

// The model that the library is built against, bundled or the application's own. What is missing stands below
// the failed line, as "the required expression ... is invalid".
static_assert(hostcontract::PlanarResliceFamily<PlanarReslice>,
              "PlanarReslice lacks an operation that the library calls");
static_assert(hostcontract::CephResliceFamily<CephReslice>,
              "CephReslice lacks an operation that the library calls");
static_assert(hostcontract::PanoramicResliceFamily<PanoramicReslice, ResliceType, math::Range<float>>,
              "PanoramicReslice lacks an operation that the library calls");
static_assert(hostcontract::ResliceFamily<Reslice>, "Reslice lacks an operation that the library calls");
static_assert(std::derived_from<PlanarReslice, Reslice> && std::derived_from<CephReslice, Reslice> &&
                  std::derived_from<PanoramicReslice, Reslice>,
              "PlanarReslice, CephReslice or PanoramicReslice is no Reslice");
static_assert(hostcontract::ArchLineFamily<GuidingLine>,
              "GuidingLine lacks an operation that the library calls");
static_assert(hostcontract::DrawnSplineFamily<PlanarGuidingSpline,
                                              patterns::Observer<GuidingLine, events::GuidingLineEvent>,
                                              events::GuidingLineEvent>,
              "PlanarGuidingSpline lacks an operation that the library calls");
static_assert(hostcontract::PlaneFitResult<decltype(algebra::fitPlane(std::vector<Eigen::Vector3d>()))>,
              "algebra::fitPlane returns nothing that the library can use");
static_assert(hostcontract::RayValue<primitives::QRay3D>,
              "primitives::QRay3D lacks a constructor that the library calls");
static_assert(hostcontract::PlaneValue<primitives::Plane, primitives::QRay3D>,
              "primitives::Plane lacks an operation that the library calls");
static_assert(hostcontract::BoundingBoxValue<primitives::BoundingBox>,
              "primitives::BoundingBox lacks an operation that the library calls");
static_assert(hostcontract::MeshValue<geometry::Mesh>,
              "geometry::Mesh lacks an operation that the library calls");
static_assert(hostcontract::GridCellValue<geometry::BoundedTriangles, primitives::BoundingBox>,
              "geometry::BoundedTriangles lacks a field that the library fills");
static_assert(hostcontract::ShapeNodeFamily<geometry::ShapeNode, geometry::Mesh, primitives::BoundingBox>,
              "geometry::ShapeNode lacks an operation that the library calls");
static_assert(
    hostcontract::ShapeFactoryFamily<geometry::ShapeFactory, geometry::ShapeLoader, geometry::ShapeNode>,
    "geometry::ShapeFactory lacks an operation that the library calls");
static_assert(hostcontract::SurfaceModelFamily<Surface3DModel, geometry::Mesh, primitives::BoundingBox>,
              "Surface3DModel lacks an operation that the library calls");
static_assert(hostcontract::SurfaceModelFamily<dataobject::Nerve, geometry::Mesh, primitives::BoundingBox>,
              "dataobject::Nerve lacks an operation that the library calls");
static_assert(hostcontract::ImplantFamily<dataobject::Implant3D>,
              "dataobject::Implant3D lacks an operation that the library calls");
static_assert(hostcontract::AnchorPinFamily<dataobject::AnchorPin3D, geometry::ShapeNode>,
              "dataobject::AnchorPin3D lacks an operation that the library calls");
static_assert(hostcontract::HashedByPointer<dataobject::Implant3D> &&
                  hostcontract::HashedByPointer<const dataobject::Implant3D> &&
                  hostcontract::HashedByPointer<dataobject::AnchorPin3D> &&
                  hostcontract::HashedByPointer<dataobject::Nerve>,
              "a shared pointer to an implant, pin or nerve cannot be hashed");
static_assert(
    hostcontract::OrientedBoundingBoxValue<primitives::OrientedBoundingBox, primitives::BoundingBox>,
    "primitives::OrientedBoundingBox lacks an operation that the library calls");
static_assert(hostcontract::VoxelImageValue<VexelImage3D>,
              "VexelImage3D lacks an operation that the library calls");
static_assert(hostcontract::LandmarkFamily<dataobject::LandmarkAnnotation, Context>,
              "dataobject::LandmarkAnnotation lacks an operation that the library calls");
static_assert(hostcontract::CTDataFamily<CTData, VexelImage3D, landmarkDetection::LandmarkType,
                                         primitives::BoundingBox>,
              "CTData lacks an operation that the library calls");
static_assert(hostcontract::ToothKinds<ToothChart, ToothChart::Tooth>,
              "ToothChart lacks an operation that the library calls");
static_assert(hostcontract::TissuesValue<colormap::Tissues>,
              "colormap::Tissues lacks a level that the library sets");
static_assert(hostcontract::ColormapFunctionFamily<colormap::ColormapFunction>,
              "colormap::ColormapFunction lacks an operation that the library calls");
static_assert(hostcontract::ColormapFunctionFamily<colormap::LevelWindowFunction>,
              "colormap::LevelWindowFunction lacks an operation that the library calls");
static_assert(hostcontract::ColormapFunctionFamily<colormap::ThresholdFunction>,
              "colormap::ThresholdFunction lacks an operation that the library calls");
static_assert(hostcontract::PulpFunctionFamily<colormap::PulpFunction>,
              "colormap::PulpFunction lacks an operation that the library calls");
static_assert(hostcontract::TransferFunctionFamily<colormap::TransferFunction>,
              "colormap::TransferFunction lacks an operation that the library calls");
static_assert(hostcontract::VolumeObjectFamily<VolumeObject, colormap::ColormapFunction, VexelImage3D>,
              "VolumeObject lacks an operation that the library calls");
static_assert(hostcontract::ToothChartFamily<ToothChart>,
              "ToothChart lacks an operation that the library calls");
static_assert(hostcontract::PointFamily<Point>, "Point lacks an operation that the library calls");
static_assert(hostcontract::GuidingLineFamily<GuidingLine>,
              "GuidingLine lacks an operation that the library calls");
static_assert(hostcontract::GuidingSplineFamily<GuidingSpline, Point, math::Spline3DInterface>,
              "GuidingSpline lacks an operation that the library calls");
static_assert(hostcontract::PlanarDentalSplineFamily<PlanarDentalSpline, Point, math::Spline3DInterface,
                                                     ToothChart, PlanarReslice>,
              "PlanarDentalSpline lacks an operation that the library calls");
static_assert(hostcontract::OcclusalScanFamily<CTData, primitives::BoundingBox, PlanarReslice>,
              "CTData or PlanarReslice lacks an operation that the library calls");
static_assert(hostcontract::MouthFamily<dataobject::Mouth, dataobject::Tooth, ToothChart>,
              "dataobject::Mouth or dataobject::Tooth lacks an operation that the library calls");
static_assert(hostcontract::DiagnosisFamily<Diagnosis, dataobject::Mouth>,
              "Diagnosis or Anatomy lacks an operation that the library calls");
static_assert(hostcontract::ToothAnnotationFamily<ToothAnnotation3D, dataobject::Tooth, ToothChart>,
              "ToothAnnotation3D lacks an operation that the library calls");
static_assert(hostcontract::MovableSurfaceFamily<Surface3DModel, geometry::Mesh>,
              "Surface3DModel lacks an operation that the library calls");
static_assert(hostcontract::EditLockerFamily<EditLocker, DataObject>,
              "EditLocker or DataObject lacks an operation that the library calls");
static_assert(hostcontract::AlignmentValue<SurfaceScanAlignment>,
              "SurfaceScanAlignment lacks a field that the library reads");
static_assert(hostcontract::AlignableSurfaceFamily<AlignableSurface, SurfaceScanAlignment, Surface3DModel>,
              "AlignableSurface lacks an operation that the library calls");
static_assert(hostcontract::SurfaceScanFamily<SurfaceScan, Surface3DModel, AlignableSurface>,
              "SurfaceScan lacks a base or an operation that the library calls");
static_assert(std::derived_from<DentalScan, AlignableSurface>, "DentalScan is no AlignableSurface");
static_assert(hostcontract::SurfaceObjectFamily<SurfaceTree, primitives::BoundingBox>,
              "SurfaceTree lacks an operation that the library calls");
static_assert(hostcontract::ScanSetupFamily<ScanSetup, dataobject::SurfaceObject>,
              "ScanSetup or what it leads to lacks an operation that the library calls");
static_assert(
    hostcontract::SurfaceBoxes<SurfaceObjectHelper, dataobject::SurfaceObject, primitives::BoundingBox>,
    "SurfaceObjectHelper lacks an operation that the library calls");
static_assert(hostcontract::UnitableBoxValue<primitives::BoundingBox>,
              "primitives::BoundingBox lacks an operation that the library calls");
static_assert(hostcontract::ToothChartOperations<ToothChart>,
              "ToothChart lacks an operation that the library calls");
static_assert(hostcontract::OcclusionFamily<Occlusion> &&
                  hostcontract::OcclusionFamily<dataobject::VirtualOcclusion>,
              "an occlusion lacks an operation that the library calls");
static_assert(hostcontract::TypedObject<Maxilla> && hostcontract::TypedObject<Mandibula> &&
                  hostcontract::TypedObject<FrontSegment> && hostcontract::TypedObject<LeftSegment> &&
                  hostcontract::TypedObject<RightSegment>,
              "a jaw part lacks its type identifier");
static_assert(hostcontract::RotationOperations<math::Operations>,
              "math::Operations lacks an operation that the library calls");
static_assert(hostcontract::MovementFamily<Movement, MovementUndoLock>,
              "Movement or MovementUndoLock lacks an operation that the library calls");
static_assert(hostcontract::OcclusionMovementFamily<OcclusionMovement, Movement, JawType>,
              "OcclusionMovement lacks an operation that the library calls");
static_assert(hostcontract::CompositeMovementFamily<CompositeMovement, Movement>,
              "CompositeMovement lacks an operation that the library calls");
static_assert(hostcontract::SurgeryFamily<MaxillofacialSurgery, Movement>,
              "MaxillofacialSurgery lacks an operation that the library calls");
static_assert(hostcontract::MovementTypesFamily<MovementTypes>,
              "MovementTypes lacks a constant or an operation that the library uses");
static_assert(hostcontract::MovementModesFamily<MovementModes>,
              "MovementModes lacks a constant that the library uses");
static_assert(hostcontract::PositionedAnnotationFamily<PointAnnotation> &&
                  hostcontract::PositionedAnnotationFamily<GreyValueMeasurement>,
              "PointAnnotation or GreyValueMeasurement lacks an operation that the library calls");
static_assert(hostcontract::LineAnnotationFamily<LineAnnotation>,
              "LineAnnotation lacks an operation that the library calls");
static_assert(hostcontract::TransformableFamily<ToothAnnotation3D> &&
                  hostcontract::TransformableFamily<PencilAnnotation3D> &&
                  hostcontract::TransformableFamily<ArrowAnnotation3D> &&
                  hostcontract::TransformableFamily<CircleAnnotation3D> &&
                  hostcontract::TransformableFamily<TextAnnotation3D> &&
                  hostcontract::TransformableFamily<CustomResliceAnnotation> &&
                  hostcontract::TransformableFamily<CephPlaneBase> &&
                  hostcontract::TransformableFamily<dataobject::AttachablePoint> &&
                  hostcontract::TransformableFamily<dataobject::PointBased3DAnnotationBase>,
              "an annotation, an attachable point or a ceph plane lacks its applyTransform()");
static_assert(hostcontract::PolyLineFamily<PolyLine, PointInterface, Context> &&
                  std::derived_from<PointUnlinked, PointInterface> &&
                  std::derived_from<dataobject::PointUnlinkedMultiPositions, PointInterface>,
              "PolyLine, its points or its editor lacks an operation that the library calls");
static_assert(hostcontract::LineOwnerFamily<dataobject::Nerve> &&
                  hostcontract::LineOwnerFamily<dataobject::TemporomandibularJoint>,
              "the guiding line of a nerve or a joint lacks an operation that the library calls");
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
static_assert(hostcontract::JawPartFamily<Mandibula, RotatableSurgeryPlanningPart, SurgeryPlanningPart>,
              "Mandibula or RotatableSurgeryPlanningPart lacks an operation that the library calls");
static_assert(hostcontract::OriginalModelsFamily<Anatomy, Surface3DModel>,
              "Anatomy lacks an operation that the library calls");
static_assert(hostcontract::DistractorFamily<Distractor> && std::derived_from<TempShell, SurfaceTree>,
              "Distractor lacks an operation that the library calls, or TempShell is no SurfaceTree");
static_assert(hostcontract::LockedPlanFamily<dataobject::LockedImplantPlan>,
              "dataobject::LockedImplantPlan lacks an operation that the library calls");
static_assert(hostcontract::AbsolutelyPlacedFamily<dataobject::Implant3D, TransformManipulationType> &&
                  hostcontract::AbsolutelyPlacedFamily<dataobject::AnchorPin3D, TransformManipulationType>,
              "an implant or an anchor pin lacks an operation that the library calls");
static_assert(hostcontract::PlacedSurfaceFamily<dataobject::PreviewSurgicalTemplate> &&
                  hostcontract::PlacedSurfaceFamily<dataobject::SurgicalTemplate3D> &&
                  hostcontract::PlacedSurfaceFamily<VirtualTooth>,
              "a template or VirtualTooth lacks an operation that the library calls");
static_assert(hostcontract::CollectionFamily<dataobject::PlannedToPostOpCollection>,
              "dataobject::PlannedToPostOpCollection lacks an operation that the library calls");
static_assert(hostcontract::RootFamily<dataobject::Apex, dataobject::RootCanal>,
              "dataobject::Apex or dataobject::RootCanal lacks an operation that the library calls");
static_assert(hostcontract::VolumeOfCTFamily<CTDataVolumeObject, CTData>,
              "CTDataVolumeObject lacks an operation that the library calls");
