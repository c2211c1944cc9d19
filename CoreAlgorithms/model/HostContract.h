// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QMap>
#include <QMatrix4x4>
#include <QQuaternion>
#include <QSet>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <QVector3D>

#include <concepts>
#include <cstddef>
#include <map>
#include <memory>
#include <utility>
#include <vector>

/// What the algorithms require of the host's classes, one concept per family; a class of the name in the
/// comment must meet it. The bundled model does. A model of your own must offer these operations under the
/// header paths of CoreAlgorithms/model/; what they must do is documented there, at the bundled classes.
///
/// Argument and result types may differ where they convert.
namespace hostcontract {

// One requirement a line, where clang-format 14 would take three.
// clang-format off

/// CoreObject and every class derived from it.
template <typename Object>
concept TypedObject = requires(const Object& object, const QString& classTypeId)
{
    { Object::getClassTypeId() } -> std::convertible_to<QString>;
    { object.isOfType(classTypeId) } -> std::convertible_to<bool>;
};

/// Reslice, from which the three kinds are derived.
template <typename Reslice>
concept ResliceFamily = TypedObject<Reslice> && requires(const Reslice& reslice)
{
    { reslice.getWidth() } -> std::convertible_to<float>;
    { reslice.getHeight() } -> std::convertible_to<float>;
    { reslice.isMirroredHorizontallyIn2D() } -> std::convertible_to<bool>;
    { reslice.isMirroredVerticallyIn2D() } -> std::convertible_to<bool>;
};

/// PlanarReslice.
template <typename PlanarReslice>
concept PlanarResliceFamily = TypedObject<PlanarReslice> &&
    requires(const PlanarReslice& reslice, bool perSample)
{
    { reslice.getTransformationFromResliceToWorld() } -> std::convertible_to<QMatrix4x4>;
    { reslice.getOrigin() } -> std::convertible_to<QVector3D>;
    { reslice.getDirection0(perSample) } -> std::convertible_to<QVector3D>;
    { reslice.getDirection1(perSample) } -> std::convertible_to<QVector3D>;
    { reslice.getWidth() } -> std::convertible_to<float>;
    { reslice.getHeight() } -> std::convertible_to<float>;
    { reslice.getSampleSize() } -> std::convertible_to<QVector3D>;
};

/// CephReslice. The point of view whose value is 1 is the one that turns the view's x axis round.
template <typename CephReslice>
concept CephResliceFamily = TypedObject<CephReslice> && requires(const CephReslice& reslice)
{
    { reslice.getTransformation() } -> std::convertible_to<QMatrix4x4>;
    { reslice.getWidth() } -> std::convertible_to<float>;
    { reslice.getHeight() } -> std::convertible_to<float>;
    static_cast<int>(reslice.getPointOfView());
};

/// primitives::QRay3D: origin and direction.
template <typename Ray>
concept RayValue = std::constructible_from<Ray, QVector3D, QVector3D>;

/// primitives::Plane. Its constructors take three points, the normal along (b - a) x (c - a), and a point and the
/// normal.
template <typename Plane, typename Ray>
concept PlaneValue = std::copyable<Plane> &&
    std::constructible_from<Plane, QVector3D, QVector3D, QVector3D> &&
    std::constructible_from<Plane, QVector3D, QVector3D> &&
    requires(const Plane& plane, Plane& changeable, const Ray& ray, const QVector3D& vector,
             QVector3D& meetingPoint, const QMatrix4x4& matrix)
{
    { plane.getNormal() } -> std::convertible_to<QVector3D>;
    { plane.getSignedDistance(vector) } -> std::convertible_to<float>;
    { plane.intersect(ray, meetingPoint) } -> std::convertible_to<bool>;
    { plane.project(vector, vector) } -> std::convertible_to<QVector3D>;
    changeable.transform(matrix);
};

/// primitives::BoundingBox. intersects() is closed: touching boxes intersect. transformed() is the box round the
/// eight mapped corners.
template <typename Box>
concept BoundingBoxValue = std::copyable<Box> &&
    std::constructible_from<Box, float, float, float, float, float, float> &&
    std::constructible_from<Box, QVector3D, QVector3D> &&
    requires(const Box& box, Box& changeable, const QVector3D& point, const QMatrix4x4& matrix)
{
    changeable.includePoint(point);
    { box.intersects(box) } -> std::convertible_to<bool>;
    { box.transformed(matrix) } -> std::convertible_to<Box>;
    { box.min() } -> std::convertible_to<QVector3D>;
    { box.max() } -> std::convertible_to<QVector3D>;
    { box.deltaX() } -> std::convertible_to<float>;
    { box.deltaY() } -> std::convertible_to<float>;
    { box.deltaZ() } -> std::convertible_to<float>;
    { box.width() } -> std::convertible_to<float>;
    { box.height() } -> std::convertible_to<float>;
    { box.depth() } -> std::convertible_to<float>;
};

/// geometry::Mesh. Four entries a triangle in its index list, of which the fourth is not read.
template <typename Mesh>
concept MeshValue = std::copyable<Mesh> && std::default_initializable<Mesh> &&
    requires(const Mesh& mesh, Mesh& changeable, const QMatrix4x4& matrix)
{
    { mesh.getVertices() } -> std::convertible_to<QList<QVector3D>>;
    { mesh.getIndices() } -> std::convertible_to<QList<int>>;
    { mesh.getNumIndices() } -> std::convertible_to<int>;
    changeable.applyTransformation(matrix);
};

/// geometry::BoundedTriangles: one cell of a grid over a mesh.
template <typename Cell, typename Box>
concept GridCellValue = std::copyable<Cell> && std::default_initializable<Cell> && requires(Cell& cell)
{
    { cell.box } -> std::convertible_to<Box>;
    { cell.triangles } -> std::convertible_to<QList<int>>;
};

/// geometry::ShapeNode, its iterators, and the meshes and boxes that it leads to. The boxes of nodes and the
/// cumulative transforms are those that the bundled class documents.
template <typename ShapeNode, typename Mesh, typename Box>
concept ShapeNodeFamily = std::constructible_from<ShapeNode, QString> &&
    requires(const ShapeNode& node, ShapeNode& changeable, ShapeNode* child, const QMatrix4x4& matrix)
{
    { node.getTransform() } -> std::convertible_to<QMatrix4x4>;
    changeable.setTransform(matrix);
    changeable.addChild(child);
    { node.getBoundingBox() } -> std::convertible_to<Box>;
    { node.getShape()->getMesh() } -> std::convertible_to<Mesh>;
    { node.cbeginNodesWithShape() != node.cend() } -> std::convertible_to<bool>;
    { node.cbeginNodesWithShape().getCumulativeTransform() } -> std::convertible_to<QMatrix4x4>;
    { node.cbeginNodesWithShape()->getShape()->getMesh() } -> std::convertible_to<Mesh>;
    ++node.cbeginNodesWithShape();
};

/// geometry::ShapeFactory, made over a geometry::ShapeLoader. A cylinder is centred on its own origin along z, a
/// cone stands on its own origin with the tip towards +z; false flags make closed solids. The caller owns the nodes.
template <typename ShapeFactory, typename ShapeLoader, typename ShapeNode>
concept ShapeFactoryFamily = std::constructible_from<ShapeFactory, ShapeLoader&> &&
    requires(const ShapeFactory& factory, float length, bool open)
{
    { factory.generateCylinder(length, length, open, open) } -> std::convertible_to<ShapeNode*>;
    { factory.generateCone(length, length, open) } -> std::convertible_to<ShapeNode*>;
};

/// Surface3DModel and what derives from it, for instance dataobject::Nerve.
template <typename Surface, typename Mesh, typename Box>
concept SurfaceModelFamily = TypedObject<Surface> && requires(const Surface& surface)
{
    { surface.getMesh() } -> std::convertible_to<Mesh>;
    { surface.getObjectTransform() } -> std::convertible_to<QMatrix4x4>;
    { surface.getSceneBoundingBox() } -> std::convertible_to<Box>;
};

/// dataobject::Implant3D, owned by a shared pointer.
template <typename Implant>
concept ImplantFamily = TypedObject<Implant> && requires(const Implant& implant)
{
    { implant.getObjectTransform() } -> std::convertible_to<QMatrix4x4>;
    { implant.getDimensions().diameter } -> std::convertible_to<float>;
    { implant.getDimensions().length } -> std::convertible_to<float>;
    { std::dynamic_pointer_cast<const Implant>(implant.weak_from_this().lock()) }
        -> std::same_as<std::shared_ptr<const Implant>>;
};

/// dataobject::AnchorPin3D.
template <typename Pin, typename ShapeNode>
concept AnchorPinFamily = TypedObject<Pin> && requires(const Pin& pin, Pin& changeable)
{
    { changeable.getShapeNode() } -> std::convertible_to<const ShapeNode*>;
    { pin.getObjectTransform() } -> std::convertible_to<QMatrix4x4>;
};

/// A shared pointer to an implant, pin or nerve as the key of a QSet or QHash, alone and in a pair. The overload
/// must be found by the argument alone, that is, stand in namespace dataobject or come from Qt.
template <typename Object>
concept HashedByPointer = requires(const std::shared_ptr<Object>& object)
{
    { qHash(object, std::size_t(0)) } -> std::convertible_to<std::size_t>;
};

/// primitives::OrientedBoundingBox. What is inside is convex; rows of voxels are asked for at their ends.
template <typename OrientedBox, typename Box>
concept OrientedBoundingBoxValue = std::constructible_from<OrientedBox, Box> &&
    requires(const OrientedBox& box, const QMatrix4x4& matrix, const QVector3D& point)
{
    { box.transformed(matrix) } -> std::convertible_to<OrientedBox>;
    { box.isInside(point) } -> std::convertible_to<bool>;
    { box.getAABBOfTransformedBoundingBox() } -> std::convertible_to<Box>;
    { box.getCornerPoints() } -> std::convertible_to<QList<QVector3D>>;
};

/// VexelImage3D. Element types 0, 1 and 2 are unsigned and signed 16-bit and unsigned 8-bit; x runs fastest, then y,
/// without gaps; the first element is null without voxels.
template <typename Image>
concept VoxelImageValue = requires(const Image& image)
{
    static_cast<const void*>(image.dataPtr());
    static_cast<int>(image.dataType());
    { image.imageSize().x } -> std::convertible_to<int>;
    { image.imageSize().y } -> std::convertible_to<int>;
    { image.imageSize().z } -> std::convertible_to<int>;
    { image.voxelSize() } -> std::convertible_to<QVector3D>;
    { image.getValueRange().min } -> std::convertible_to<float>;
    { image.getValueRange().max } -> std::convertible_to<float>;
};

/// dataobject::LandmarkAnnotation. Context 0 asks for the position in the volume frame; the result is false without.
template <typename Landmark, typename Context>
concept LandmarkFamily = requires(const Landmark& landmark, Context context)
{
    static_cast<int>(landmark.getType());
    static_cast<bool>(landmark.getPosition(context));
    { landmark.getPosition(context).value() } -> std::convertible_to<QVector3D>;
};

/// CTData. An empty list of types asks for all landmarks; those and the image volume may be null pointers.
template <typename CTData, typename Image, typename LandmarkType, typename Box>
concept CTDataFamily = TypedObject<CTData> &&
    requires(const CTData& ct, const std::vector<LandmarkType>& types)
{
    static_cast<bool>(ct.getImageVolume());
    { ct.getImageVolume()->getImage() } -> std::convertible_to<const Image&>;
    static_cast<bool>(*ct.getLandmarkAnnotations(types).begin());
    static_cast<int>((*ct.getLandmarkAnnotations(types).begin())->getType());
    { ct.getTotalResampleNHPTransformation() } -> std::convertible_to<QMatrix4x4>;
    { ct.getBoundingBox() } -> std::convertible_to<Box>;
};

/// ToothChart and its Tooth, as far as the boxes at teeth ask.
template <typename Chart, typename Tooth>
concept ToothKinds = requires(Tooth tooth)
{
    { Chart::isMolar(tooth) } -> std::convertible_to<bool>;
    { Chart::isPremolar(tooth) } -> std::convertible_to<bool>;
    { Chart::isUpperTooth(tooth) } -> std::convertible_to<bool>;
};

/// colormap::Tissues: eleven levels, from air to enamel, and under these names.
template <typename Tissues>
concept TissuesValue = std::copyable<Tissues> && std::default_initializable<Tissues> &&
    requires(const Tissues& tissues, Tissues& changeable)
{
    { tissues.toVector() } -> std::convertible_to<std::vector<int>>;
    changeable.air = changeable.skin = changeable.fat = changeable.softTissue = 0;
    changeable.cancellousBone = changeable.boneSurface = changeable.bone = changeable.dentine = 0;
    changeable.corticalBone = changeable.denseBone = changeable.enamel = 0;
};

/// colormap::ColormapFunction and the functions derived from it.
template <typename Function>
concept ColormapFunctionFamily = TypedObject<Function> && requires(const Function& function, Function& changeable)
{
    function.getUUID();
    changeable.startEditing();
    changeable.stopEditing();
    changeable.setPreviewUpdateEnabledState(true, true);
};

/// colormap::PulpFunction.
template <typename Function>
concept PulpFunctionFamily = ColormapFunctionFamily<Function> &&
    requires(const Function& function, Function& changeable, float threshold)
{
    { function.getNormalizedPulpThreshold() } -> std::convertible_to<float>;
    { function.getNormalizedRestorationMaterialThreshold() } -> std::convertible_to<float>;
    changeable.setNormalizedPulpThreshold(threshold);
    changeable.setNormalizedRestorationMaterialThreshold(threshold);
};

/// colormap::TransferFunction.
template <typename Function>
concept TransferFunctionFamily = ColormapFunctionFamily<Function> && requires(Function& changeable, float greyValues)
{
    changeable.panFunction(greyValues);
    changeable.stretchFunction(greyValues);
};

/// VolumeObject. Functions may be null pointers.
template <typename Volume, typename Function, typename Image>
concept VolumeObjectFamily = requires(const Volume& volume, Volume& changeable, const Function& function)
{
    { volume.getMIPLevel() } -> std::convertible_to<float>;
    { volume.getMIPWindow() } -> std::convertible_to<float>;
    { *volume.getActiveVisualizationFunction() } -> std::convertible_to<Function&>;
    { **changeable.getAllVisualizationFunctions().begin() } -> std::convertible_to<const Function&>;
    { volume.getThreshold(function.getUUID()) } -> std::convertible_to<int>;
    { volume.getImage() } -> std::convertible_to<const Image&>;
    changeable.setThreshold(function.getUUID(), 0);
    changeable.setMIPLevelWindow(0.0F, 0.0F);
    changeable.visualizationChanged(true);
};

/// ToothChart: (tooth - 1) % 16 runs along either arch.
template <typename ToothChart>
concept ToothChartFamily =
    requires(typename ToothChart::Tooth tooth, typename ToothChart::ArchType arch,
             const QList<typename ToothChart::Tooth>& teeth)
{
    static_cast<int>(tooth);
    static_cast<int>(arch);
    { ToothChart::getArchTypeOfTooth(tooth) } -> std::same_as<typename ToothChart::ArchType>;
    { ToothChart::getOppositeTooth(tooth) } -> std::same_as<typename ToothChart::Tooth>;
    { ToothChart::getOppositeJaw(arch) } -> std::same_as<typename ToothChart::ArchType>;
    { ToothChart::createContinuousRegion(tooth, tooth) } -> std::convertible_to<QList<typename ToothChart::Tooth>>;
    { ToothChart::filterTeethForArchType(teeth, arch) } -> std::convertible_to<QList<typename ToothChart::Tooth>>;
};

/// Point.
template <typename Point>
concept PointFamily = requires(const Point& point)
{
    { point.getPosition() } -> std::convertible_to<QVector3D>;
};

/// GuidingLine. The path is a reference, so that a search of it copies nothing.
template <typename GuidingLine>
concept GuidingLineFamily = requires(GuidingLine& line, int pathIndex)
{
    { line.getOriginalPath() } -> std::convertible_to<const QList<QVector3D>&>;
    { line.getDirection(pathIndex) } -> std::convertible_to<QVector3D>;
    line.notifyGuidingLineObservers();
};

/// GuidingSpline, with its curve model math::Spline3DInterface.
template <typename GuidingSpline, typename Point, typename Curve>
concept GuidingSplineFamily = GuidingLineFamily<GuidingSpline> &&
    requires(GuidingSpline& spline, const GuidingSpline& constant, const QVector3D& position,
             std::unique_ptr<Curve> curve)
{
    spline.clear();
    { spline.appendControlPoint(position) } -> std::convertible_to<std::shared_ptr<Point>>;
    { spline.appendLastControlPoint(position) } -> std::convertible_to<std::shared_ptr<Point>>;
    { constant.getControlPoints() } -> std::convertible_to<QList<std::shared_ptr<Point>>>;
    { constant.getSpline() } -> std::convertible_to<const Curve*>;
    { constant.getSpline()->clone() } -> std::convertible_to<std::unique_ptr<Curve>>;
    spline.setSpline(std::move(curve));
    spline.pointsChanged();
};

/// PlanarDentalSpline, with its tooth points, its plane, its values and the switches of notification and undo.
template <typename PlanarDentalSpline, typename Point, typename Curve, typename ToothChart, typename PlanarReslice>
concept PlanarDentalSplineFamily = GuidingSplineFamily<PlanarDentalSpline, Point, Curve> &&
    requires(PlanarDentalSpline& spline, const PlanarDentalSpline& constant, typename ToothChart::Tooth tooth,
             const std::shared_ptr<Point>& point, int sliceIndex, bool enable)
{
    { constant.getObjects() } -> std::convertible_to<QMap<typename ToothChart::Tooth, std::shared_ptr<Point>>>;
    spline.setTooth(tooth, point);
    { spline.getPlane() } -> std::convertible_to<std::shared_ptr<PlanarReslice>>;
    { constant.getOcclusalIndex() } -> std::convertible_to<int>;
    spline.setOcclusalIndex(sliceIndex);
    { constant.getArchType() } -> std::convertible_to<typename ToothChart::ArchType>;
    spline.setArchType(constant.getArchType());
    spline.setCreationType(constant.getCreationType());
    spline.setNotifyObservers(enable);
    { constant.isCreateUndoEnabledForObject() } -> std::convertible_to<bool>;
    spline.enableCreateUndoForObjectAndProperties(enable);
};

/// CTData, as far as the occlusal plane asks: its voxels' size, its boxes, the definition of the plane. A PlanarReslice
/// knows the CT that it cuts.
template <typename CTData, typename BoundingBox, typename PlanarReslice>
concept OcclusalScanFamily = requires(const CTData& scan, const PlanarReslice& reslice)
{
    { reslice.getCTData() } -> std::convertible_to<std::shared_ptr<CTData>>;
    { scan.getImageVolume()->getImage().voxelSize() } -> std::convertible_to<QVector3D>;
    { scan.getBoundingBox() } -> std::convertible_to<BoundingBox>;
    { scan.getTotalResampleTransformedBoundingBox() } -> std::convertible_to<BoundingBox>;
    static_cast<int>(scan.getOcclusalPlaneDefinition());
};

/// dataobject::Mouth and its teeth. A tooth is made of its type, the status of value 0 and the category of value 1.
template <typename Mouth, typename Tooth, typename ToothChart>
concept MouthFamily =
    std::constructible_from<Tooth, typename ToothChart::Tooth, typename Tooth::Status, typename Tooth::Category> &&
    requires(const Mouth& mouth, const Tooth& tooth, typename ToothChart::Tooth toothType)
{
    { tooth.getToothType() } -> std::convertible_to<typename ToothChart::Tooth>;
    { mouth.hasTooth(toothType) } -> std::convertible_to<bool>;
    { mouth.getToothForToothType(toothType) } -> std::convertible_to<std::shared_ptr<Tooth>>;
    { mouth.getAllTeethUnsorted() } -> std::convertible_to<QSet<std::shared_ptr<Tooth>>>;
};

/// Diagnosis, by way of the anatomy.
template <typename Diagnosis, typename Mouth>
concept DiagnosisFamily = requires(const Diagnosis& diagnosis)
{
    { diagnosis.getPatientAnatomy()->getMouth() } -> std::convertible_to<std::shared_ptr<Mouth>>;
};

/// ToothAnnotation3D. getToothType() is known also of a label without a tooth; the creation type of value 0 tells that
/// the application made the label.
template <typename Annotation, typename Tooth, typename ToothChart>
concept ToothAnnotationFamily = std::default_initializable<Annotation> &&
    requires(Annotation& label, const std::shared_ptr<Tooth>& tooth, const QVector3D& vector)
{
    { label.getToothType() } -> std::convertible_to<typename ToothChart::Tooth>;
    static_cast<int>(label.getCreationType());
    label.setTooth(tooth);
    label.setPosition(vector);
    label.setDirection(vector);
};

/// PanoramicReslice, which leads to its guiding line by a pointer that may be null. The reslice type whose value
/// is 1 is the slab of getThickness().
template <typename PanoramicReslice, typename ResliceType, typename Range>
concept PanoramicResliceFamily = TypedObject<PanoramicReslice> && requires(const PanoramicReslice& reslice)
{
    { reslice.getPath() } -> std::convertible_to<QList<QVector3D>>;
    { static_cast<bool>(reslice.getGuidingLine()) };
    { reslice.getGuidingLine()->getUpperDirection() } -> std::convertible_to<QVector3D>;
    { reslice.getVerticalRange() } -> std::convertible_to<Range>;
    { reslice.getWidth() } -> std::convertible_to<float>;
    { reslice.getHeight() } -> std::convertible_to<float>;
    { reslice.getDimensions() } -> std::convertible_to<QSizeF>;
    { reslice.getSampleSize() } -> std::convertible_to<QVector3D>;
    { reslice.getThickness() } -> std::convertible_to<float>;
    { reslice.isType(static_cast<ResliceType>(1)) } -> std::convertible_to<bool>;
    { reslice.isMirroredHorizontallyIn2D() } -> std::convertible_to<bool>;
    { reslice.isMirroredVerticallyIn2D() } -> std::convertible_to<bool>;
};

/// GuidingLine, as the reslices use it.
template <typename GuidingLine>
concept ArchLineFamily = TypedObject<GuidingLine> && requires(const GuidingLine& line, int pathIndex)
{
    { line.getOriginalPath() } -> std::convertible_to<QList<QVector3D>>;
    { line.getPerpendicularDirection(pathIndex) } -> std::convertible_to<QVector3D>;
};

/// PlanarGuidingSpline, with pointers to its control points and the observers of its events. The event whose type
/// has the value 3 tells that control points were added or removed.
template <typename Spline, typename Observer, typename Event>
concept DrawnSplineFamily =
    requires(const Spline& spline, Spline& changeable, Observer* observer, const Event& event)
{
    { spline.getControlPoints().size() } -> std::convertible_to<qsizetype>;
    { (*spline.getControlPoints().begin())->getPosition() } -> std::convertible_to<QVector3D>;
    changeable.attach(observer);
    static_cast<int>(event.type);
};

/// What algebra::fitPlane returns: a plane or nothing, with the triples point and normal in double precision.
template <typename Fit>
concept PlaneFitResult = requires(const Fit& fit)
{
    static_cast<bool>(fit);
    { fit.value().point.x() } -> std::convertible_to<double>;
    { fit.value().normal.x() } -> std::convertible_to<double>;
};

/// Surface3DModel as it is moved: setObjectTransform() and refresh() together move the mesh relative to where it
/// stands.
template <typename Surface, typename Mesh>
concept MovableSurfaceFamily = TypedObject<Surface> &&
    requires(const Surface& surface, Surface& changeable, const QMatrix4x4& matrix)
{
    { surface.getMesh() } -> std::convertible_to<Mesh>;
    { surface.getCenterOfMass() } -> std::convertible_to<QVector3D>;
    changeable.setObjectTransform(matrix);
    changeable.refresh();
};

/// EditLocker over a DataObject or over nothing (null).
template <typename Locker, typename DataObject>
concept EditLockerFamily = std::constructible_from<Locker, DataObject*> &&
    requires(DataObject& object)
{
    object.startEditing();
    object.stopEditing();
};

/// SurfaceScanAlignment.
template <typename Alignment>
concept AlignmentValue = std::copyable<Alignment> && requires(const Alignment& alignment)
{
    { alignment.initialTransform } -> std::convertible_to<QMatrix4x4>;
    { alignment.freehandTransform } -> std::convertible_to<QMatrix4x4>;
    { alignment.registrationTransform } -> std::convertible_to<QMatrix4x4>;
    { alignment.referenceTransform } -> std::convertible_to<QMatrix4x4>;
    { alignment.freehandAligned } -> std::convertible_to<bool>;
};

/// AlignableSurface, whose model may be null.
template <typename Surface, typename Alignment, typename Model>
concept AlignableSurfaceFamily =
    requires(const Surface& surface, Surface& changeable, const Alignment& alignment, bool aligned,
             const QMatrix4x4& matrix)
{
    { surface.getSurfaceModel() } -> std::convertible_to<const Model*>;
    { changeable.getSurfaceModel() } -> std::convertible_to<Model*>;
    changeable.setSurfaceScanAlignment(alignment);
    { surface.getReferenceTransform() } -> std::convertible_to<QMatrix4x4>;
    { surface.getInitialTransform() } -> std::convertible_to<QMatrix4x4>;
    { surface.getRegistrationTransform() } -> std::convertible_to<QMatrix4x4>;
    { surface.isFreehandAligned() } -> std::convertible_to<bool>;
    changeable.setFreehandAligned(aligned);
    { surface.getFreehandTransform() } -> std::convertible_to<QMatrix4x4>;
    changeable.setFreehandTransform(matrix);
    { static_cast<int>(surface.getJawType()) } -> std::convertible_to<int>;
};

/// SurfaceScan, a surface model and an alignable surface at once; DentalScan is an alignable surface too.
template <typename Scan, typename Model, typename Surface>
concept SurfaceScanFamily = TypedObject<Scan> && std::derived_from<Scan, Model> &&
    std::derived_from<Scan, Surface> && requires(Scan& changeable, const QMatrix4x4& matrix)
{
    changeable.setInitialTransform(matrix);
};

/// dataobject::SurfaceObject and what derives from it, for instance SurfaceTree.
template <typename Surface, typename Box>
concept SurfaceObjectFamily = requires(const Surface& surface)
{
    { surface.getSceneBoundingBox() } -> std::convertible_to<Box>;
};

/// ScanSetup and what it leads to: regions and raw scan data are surface objects, SurfaceObject.
template <typename Setup, typename SurfaceObject>
concept ScanSetupFamily = requires(const Setup& setup, bool includeEmpty)
{
    { setup.getOcclusionScan()->isCalculated() } -> std::convertible_to<bool>;
    { setup.getOcclusionScan()->getUpperTransformation() } -> std::convertible_to<QMatrix4x4>;
    { setup.getOcclusionScan()->getLowerTransformation() } -> std::convertible_to<QMatrix4x4>;
    { setup.getOcclusionScan()->getVestibularTransformation() } -> std::convertible_to<QMatrix4x4>;
    { setup.getScannableRegions().isEmpty() } -> std::convertible_to<bool>;
    { setup.getScannableRegions().first() } -> std::convertible_to<const SurfaceObject*>;
    { static_cast<int>(setup.getScannableRegions().first()->getRegionStart()) } -> std::convertible_to<int>;
    { setup.getQuarnRawScanData(includeEmpty).isEmpty() } -> std::convertible_to<bool>;
    { setup.getQuarnRawScanData(includeEmpty).first() } -> std::convertible_to<const SurfaceObject*>;
    { setup.getQuarnRawScanData(includeEmpty).first()->hasOnlyIntermediateMesh() } -> std::convertible_to<bool>;
    { setup.getQuarnRawScanData(includeEmpty).first()->getIntermediateSurface() }
        -> std::convertible_to<const SurfaceObject*>;
    { setup.getQuarnRawScanData(includeEmpty).first()->getScannedTeeth().isEmpty() }
        -> std::convertible_to<bool>;
    static_cast<int>(setup.getQuarnRawScanData(includeEmpty).first()->getScannedTeeth().first());
};

/// SurfaceObjectHelper.
template <typename Helper, typename SurfaceObject, typename Box>
concept SurfaceBoxes = requires(const QList<const SurfaceObject*>& surfaces)
{
    { Helper::getCombinedBoundingBox(surfaces) } -> std::convertible_to<Box>;
};

/// primitives::BoundingBox as far as bites are made up from it. isNull() tells the box that stands for nothing.
template <typename Box>
concept UnitableBoxValue = requires(const Box& box)
{
    { box.isNull() } -> std::convertible_to<bool>;
    { box.isValid() } -> std::convertible_to<bool>;
    { box.center() } -> std::convertible_to<QVector3D>;
    { box.centerZ() } -> std::convertible_to<float>;
    { Box::createUnionOf(box, box) } -> std::convertible_to<Box>;
};

/// Occlusion and dataobject::VirtualOcclusion.
template <typename Occlusion>
concept OcclusionFamily = requires(const Occlusion& occlusion)
{
    { occlusion.getTransformations() } -> std::convertible_to<std::map<QString, QMatrix4x4>>;
    { occlusion.isSegmental() } -> std::convertible_to<bool>;
};

/// math::Operations.
template <typename Operations>
concept RotationOperations = requires(const QVector3D& vector)
{
    { Operations::getRotationTo(vector, vector, vector) } -> std::convertible_to<QQuaternion>;
};

/// ToothChart. The arch type of value 0 is the upper one.
template <typename Chart>
concept ToothChartOperations = requires(typename Chart::Tooth tooth)
{
    { Chart::getArchTypeOfTooth(tooth) } -> std::same_as<typename Chart::ArchType>;
};

/// Movement, MovementUndoLock over it, and its type as the constants and getters of MovementTypes name it.
template <typename Movement, typename Lock>
concept MovementFamily = std::constructible_from<Lock, Movement*> &&
    requires(const Movement& movement, Movement& changeable, const QString& text)
{
    { movement.getMovementType() } -> std::convertible_to<QString>;
    { movement.getPrimaryAffectedType() } -> std::convertible_to<QString>;
    changeable.setPrimaryAffectedType(text);
    changeable.setMovementMode(text);
    changeable.removeMovementMode(text);
};

/// OcclusionMovement, made from its type identifier.
template <typename OcclusionMovement, typename Movement, typename JawType>
concept OcclusionMovementFamily = std::derived_from<OcclusionMovement, Movement> &&
    std::constructible_from<OcclusionMovement, QString> &&
    requires(const OcclusionMovement& movement, OcclusionMovement& changeable, const QString& mode,
             const QMatrix4x4& matrix, JawType jaw)
{
    { movement.getOcclusionModeTransformation(mode).value() } -> std::convertible_to<QMatrix4x4>;
    static_cast<bool>(movement.getOcclusionModeTransformation(mode));
    changeable.addOcclusionModeTransformation(mode, matrix);
    changeable.removeOcclusionModeTransformation(mode);
    changeable.setAffectedTreatmentType(jaw);
};

/// CompositeMovement, which takes ownership of what is added.
template <typename Composite, typename Movement>
concept CompositeMovementFamily = std::derived_from<Composite, Movement> &&
    requires(const Composite& composite, Composite& changeable, Movement* movement)
{
    { composite.getMovements() } -> std::convertible_to<QList<Movement*>>;
    changeable.addMovement(movement);
};

/// MaxillofacialSurgery. Null for a movement that it does not have.
template <typename Surgery, typename Movement>
concept SurgeryFamily = requires(const Surgery& surgery, const QString& movementType)
{
    { surgery.getMovementByTypeIdentifier(movementType) } -> std::convertible_to<Movement*>;
};

/// MovementTypes.
template <typename Types>
concept MovementTypesFamily = std::constructible_from<Types, QObject*> && requires(const Types& types)
{
    { Types::m_maxillary_occlusion_movement } -> std::convertible_to<QString>;
    { Types::m_mandibular_occlusion_movement } -> std::convertible_to<QString>;
    { Types::m_maxillary_segmental_occlusion_movement } -> std::convertible_to<QString>;
    { Types::m_mandibular_segmental_occlusion_movement } -> std::convertible_to<QString>;
    { types.getMaxillarySegmentalOcclusionMovement() } -> std::convertible_to<QString>;
    { types.getMandibularSegmentalOcclusionMovement() } -> std::convertible_to<QString>;
};

/// MovementModes.
template <typename Modes>
concept MovementModesFamily = requires
{
    { Modes::OCCLUSION_PLASTER_CAST_MODE } -> std::convertible_to<QString>;
    { Modes::OCCLUSION_PATIENT_SCAN_MODE } -> std::convertible_to<QString>;
    { Modes::OCCLUSION_VIRTUAL_MODE } -> std::convertible_to<QString>;
};

/// PointAnnotation, GreyValueMeasurement.
template <typename Annotation>
concept PositionedAnnotationFamily = requires(const Annotation& annotation, Annotation& changeable, const QVector3D& position)
{
    { annotation.getPosition() } -> std::convertible_to<QVector3D>;
    changeable.changePosition(position);
};

/// LineAnnotation.
template <typename Annotation>
concept LineAnnotationFamily = requires(const Annotation& annotation, Annotation& changeable, int index, const QVector3D& position)
{
    { annotation.getPositions() } -> std::convertible_to<QList<QVector3D>>;
    changeable.changePosition(index, position);
};

/// What moves itself by a matrix: the 3-D annotations, ToothAnnotation3D, dataobject::AttachablePoint,
/// dataobject::PointBased3DAnnotationBase, CustomResliceAnnotation, CephPlaneBase.
template <typename Object>
concept TransformableFamily = requires(Object& changeable, const QMatrix4x4& matrix)
{
    changeable.applyTransform(matrix);
};

/// PolyLine with its points and its editor. A free point has a position in the frame of value 0.
template <typename PolyLine, typename Point, typename Context>
concept PolyLineFamily =
    requires(const PolyLine& line, PolyLine& changeable, int index, Context context, const QVector3D& position)
{
    { line.getNumPositions() } -> std::convertible_to<int>;
    { line.getPoint(index) } -> std::convertible_to<std::shared_ptr<Point>>;
    static_cast<bool>(line.getPoint(index)->getLinkedObject());
    static_cast<bool>(line.getPosition(index, context));
    { line.getPosition(index, context).value() } -> std::convertible_to<QVector3D>;
    { line.getSupportedContexts() } -> std::convertible_to<QList<Context>>;
    changeable.getPointEditor()->changePoint(index, position, nullptr, index);
    changeable.getPointEditor()->changePointInContext(index, position, context);
};

/// dataobject::Nerve and dataobject::TemporomandibularJoint, by their lines, which may be null.
template <typename Object>
concept LineOwnerFamily = requires(const Object& object, const QMatrix4x4& matrix)
{
    object.getGuidingLine()->transformAndCreateNewPoints(matrix);
};

/// Mandibula, Maxilla and the segments. What turns is a RotatableSurgeryPlanningPart.
template <typename Mandibula, typename RotatablePart, typename Part>
concept JawPartFamily = std::derived_from<Mandibula, Part> && std::derived_from<RotatablePart, Part> &&
    requires(const Mandibula& mandibula, Mandibula& changeable, const RotatablePart& part, RotatablePart& changeablePart,
             const QVector3D& position, bool flag)
{
    { mandibula.getCondylePositions() } -> std::convertible_to<std::pair<QVector3D, QVector3D>>;
    changeable.setCondylePositions(mandibula.getCondylePositions(), flag);
    mandibula.getLeftAutoRotationPoint()->setPosition(mandibula.getLeftAutoRotationPoint()->getPosition());
    mandibula.getRightAutoRotationPoint()->setPosition(mandibula.getRightAutoRotationPoint()->getPosition());
    { mandibula.getOcclusalPlanePositions() } -> std::convertible_to<QList<QVector3D>>;
    changeable.setOcclusalPlanePositions(mandibula.getOcclusalPlanePositions());
    { part.getRotationPosition() } -> std::convertible_to<QVector3D>;
    changeablePart.setRotationPosition(position);
};

/// Anatomy, by its models from before surgery, which may be null.
template <typename Anatomy, typename Surface>
concept OriginalModelsFamily = requires(const Anatomy& anatomy)
{
    { anatomy.getOriginalCranium() } -> std::convertible_to<std::shared_ptr<Surface>>;
    { anatomy.getOriginalMandible() } -> std::convertible_to<std::shared_ptr<Surface>>;
};

/// Distractor. Its tree may be null and is moved relatively.
template <typename Distractor>
concept DistractorFamily = requires(const Distractor& distractor, Distractor& changeable, const QMatrix4x4& matrix,
                                    const QVector3D& position)
{
    { distractor.getTransform() } -> std::convertible_to<QMatrix4x4>;
    distractor.getSurfaceTree()->setObjectTransform(matrix);
    changeable.moveTo(position);
};

/// dataobject::LockedImplantPlan.
template <typename Plan>
concept LockedPlanFamily = requires(Plan& changeable, const QMatrix4x4& matrix)
{
    changeable.updateScannerOrientation(matrix);
};

/// dataobject::Implant3D and dataobject::AnchorPin3D; the reason of value 3 is a new scanner frame.
template <typename Object, typename Reason>
concept AbsolutelyPlacedFamily =
    requires(const Object& object, Object& changeable, const QMatrix4x4& matrix, Reason reason)
{
    { object.getObjectTransform() } -> std::convertible_to<QMatrix4x4>;
    changeable.setObjectTransform(matrix, reason);
};

/// The templates and VirtualTooth: setObjectTransform() of theirs is absolute.
template <typename Surface>
concept PlacedSurfaceFamily = requires(const Surface& surface, Surface& changeable, const QMatrix4x4& matrix)
{
    { surface.getObjectTransform() } -> std::convertible_to<QMatrix4x4>;
    changeable.setObjectTransform(matrix);
};

/// dataobject::PlannedToPostOpCollection.
template <typename Collection>
concept CollectionFamily = requires(const Collection& collection, Collection& changeable, const QString& partType,
                                    const std::map<QString, QMatrix4x4>& matrices, const QVector3D& point)
{
    { collection.getTransformationSurgeryPartTypes() } -> std::convertible_to<QStringList>;
    { collection.getComparedSurgeryPartTypes() } -> std::convertible_to<QStringList>;
    { collection.getFromPreOpToPlannedTransformation(partType).value() } -> std::convertible_to<QMatrix4x4>;
    { collection.getFromPreOpToPostOpTransformation(partType).value() } -> std::convertible_to<QMatrix4x4>;
    changeable.setFromPreOpToPlannedAndPostOpTransformations(matrices, matrices);
    { collection.getPreOpRotationPoint(partType).value() } -> std::convertible_to<QVector3D>;
    changeable.setPreOpRotationPoint(partType, point);
};

/// dataobject::Apex and dataobject::RootCanal.
template <typename Apex, typename RootCanal>
concept RootFamily = requires(Apex& apex, RootCanal& canal, const QVector3D& position)
{
    { apex.getPosition() } -> std::convertible_to<QVector3D>;
    apex.setPosition(position);
    { canal.getBasePosition() } -> std::convertible_to<QVector3D>;
    canal.setBasePosition(position);
};

/// CTDataVolumeObject, whose CT may be null.
template <typename Volume, typename CTData>
concept VolumeOfCTFamily = requires(const Volume& volume)
{
    { volume.getCTData() } -> std::convertible_to<std::shared_ptr<CTData>>;
};

// clang-format on

} // namespace hostcontract
