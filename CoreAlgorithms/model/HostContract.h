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
#include <cstdint>
#include <map>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

/// What the algorithms require of the host's classes, one concept per family; a class of the name
/// in the comment must meet it. The bundled model does. A model of your own must offer these
/// operations under the header paths of CoreAlgorithms/model/; what they must do is documented
/// there, at the bundled classes. Classes are no aliases, since headers of the library declare them
/// forward.
///
/// Arguments may differ where they convert. Results that are floats, values or containers are
/// exactly of the stated type, by value or by reference, since their bits count and their members
/// are used. Whole numbers and booleans may differ where they convert; shared pointers may point to
/// a derived class.
namespace hostcontract {

// One requirement a line, where clang-format 14 would take three.
// clang-format off

/// A result of this type, by value or by reference.
template <typename Result, typename Value>
concept Exactly = std::same_as<std::remove_cvref_t<Result>, Value>;

/// A result that is an lvalue of this type: a reference to it is kept beyond the expression.
template <typename Result, typename Value>
concept ReferenceTo = std::is_lvalue_reference_v<Result> && Exactly<Result, Value>;

/// A result that may be null: a pointer, a shared pointer or an optional.
template <typename Result>
concept Nullable = std::constructible_from<bool, Result>;

/// A std::shared_ptr to an object or to what is derived from it.
template <typename Result, typename Object>
concept SharedPointerTo = std::convertible_to<Result, std::shared_ptr<Object>> &&
    Exactly<Result, std::shared_ptr<typename std::remove_cvref_t<Result>::element_type>>;

/// A value that braces around its parts make, without naming its type.
template <typename Value, typename... Parts>
concept BracedFrom = requires(void (*take)(Value), const Parts&... parts) { take({parts...}); };

/// An enumeration, whose values count and not the names of its enumerators: JawType, Context,
/// CreationType, TransformManipulationType, ResliceType, ToothChart::ArchType,
/// dataobject::Tooth::Status and Category, CTData::OcclusalPlaneDefinition. Integers serve too.
template <typename Enumeration>
concept NumberedValue = std::is_enum_v<Enumeration> || std::integral<Enumeration>;

/// ToothChart::Tooth: a number that serves as a key among other numbers.
template <typename Tooth>
concept ToothNumber = NumberedValue<Tooth> && std::convertible_to<Tooth, int>;

/// utility::Optional of a value that the algorithms return, take or keep. Empty by default; a value
/// converts to it; value() of an empty one is not called.
template <typename Optional, typename Value>
concept OptionalValue = std::default_initializable<Optional> && std::copyable<Optional> &&
    BracedFrom<Optional> && std::convertible_to<const Value&, Optional> &&
    Nullable<const Optional&> && requires(const Optional& optional)
{
    { optional.value() } -> Exactly<Value>;
};

/// math::Range<float>.
template <typename Range>
concept RangeValue = std::copyable<Range> && std::default_initializable<Range> &&
    BracedFrom<Range> && BracedFrom<Range, float, float> && requires(const Range& range)
{
    { range.min } -> Exactly<float>;
    { range.max } -> Exactly<float>;
};

/// CoreObject and every class derived from it.
template <typename Object>
concept TypedObject = requires(const Object& object, const QString& classTypeId)
{
    { Object::getClassTypeId() } -> Exactly<QString>;
    { object.isOfType(classTypeId) } -> std::convertible_to<bool>;
};

/// A class that a static_cast leads to after isOfType() said so: the kinds of Reslice. The base is
/// not virtual.
template <typename Kind, typename Base>
concept StaticKindOf = TypedObject<Kind> && TypedObject<Base> && std::derived_from<Kind, Base> &&
    requires(const Base* base) { static_cast<const Kind*>(base); };

/// A class that a dynamic_cast looks for among objects of its base: the kinds of objects of a plan
/// among DataObject, as which they are reported when they have moved, the display functions among
/// colormap::ColormapFunction, the occlusion movements among Movement, the jaw parts among
/// SurgeryPlanningPart, the points of poly-lines among PointInterface.
template <typename Kind, typename Base>
concept DynamicKindOf = std::is_polymorphic_v<Base> && std::derived_from<Kind, Base>;

/// patterns::Observer of the events of a subject. Derived classes override changedEvent(), which is
/// virtual.
template <typename Observer, typename Subject, typename Event>
concept EventObserver = std::has_virtual_destructor_v<Observer> &&
    requires(Observer& observer, Subject* subject, Event* event)
{
    observer.changedEvent(subject, event);
    observer.detachAll();
};

/// A class derived from patterns::Observable of itself, whose events carry no data.
template <typename Subject>
concept PlainSubject = std::has_virtual_destructor_v<Subject> &&
    std::default_initializable<Subject> && requires(Subject& subject) { subject.notify(); };

/// Reslice, from which the three kinds are derived.
template <typename Reslice>
concept ResliceFamily = TypedObject<Reslice> && requires(const Reslice& reslice)
{
    { reslice.getWidth() } -> Exactly<float>;
    { reslice.getHeight() } -> Exactly<float>;
    { reslice.isMirroredHorizontallyIn2D() } -> std::convertible_to<bool>;
    { reslice.isMirroredVerticallyIn2D() } -> std::convertible_to<bool>;
};

/// PlanarReslice.
template <typename PlanarReslice>
concept PlanarResliceFamily = ResliceFamily<PlanarReslice> &&
    requires(const PlanarReslice& reslice, bool perSample)
{
    { reslice.getTransformationFromResliceToWorld() } -> Exactly<QMatrix4x4>;
    { reslice.getOrigin() } -> Exactly<QVector3D>;
    { reslice.getDirection0(perSample) } -> Exactly<QVector3D>;
    { reslice.getDirection1(perSample) } -> Exactly<QVector3D>;
    { reslice.getSampleSize() } -> Exactly<QVector3D>;
};

/// CephReslice. The point of view whose value is 1 is the one that mirrors the view's x axis.
template <typename CephReslice>
concept CephResliceFamily = TypedObject<CephReslice> && requires(const CephReslice& reslice)
{
    { reslice.getTransformation() } -> Exactly<QMatrix4x4>;
    { reslice.getWidth() } -> Exactly<float>;
    { reslice.getHeight() } -> Exactly<float>;
    static_cast<int>(reslice.getPointOfView());
};

/// primitives::QRay3D: origin and direction.
template <typename Ray>
concept RayValue = std::constructible_from<Ray, QVector3D, QVector3D>;

/// primitives::Plane. Its constructors take three points, the normal along (b - a) x (c - a), and a
/// point and the normal.
template <typename Plane, typename Ray>
concept PlaneValue = std::copyable<Plane> &&
    std::constructible_from<Plane, QVector3D, QVector3D, QVector3D> &&
    std::constructible_from<Plane, QVector3D, QVector3D> &&
    requires(const Plane& plane, Plane& changeable, const Ray& ray, const QVector3D& vector,
             QVector3D& meetingPoint, const QMatrix4x4& matrix)
{
    { plane.getNormal() } -> Exactly<QVector3D>;
    { plane.getSignedDistance(vector) } -> Exactly<float>;
    { plane.intersect(ray, meetingPoint) } -> std::convertible_to<bool>;
    { plane.project(vector, vector) } -> Exactly<QVector3D>;
    changeable.transform(matrix);
};

/// primitives::BoundingBox. intersects() and contains() are closed: touching boxes intersect.
/// transformed() is the box around the eight mapped corners. isNull() is true for the box that
/// stands for nothing.
template <typename Box>
concept BoundingBoxValue = std::copyable<Box> && std::default_initializable<Box> &&
    BracedFrom<Box, float, float, float, float, float, float> &&
    BracedFrom<Box, QVector3D, QVector3D> &&
    requires(const Box& box, Box& changeable, const QVector3D& point, const QMatrix4x4& matrix)
{
    changeable.includePoint(point);
    { box.isNull() } -> std::convertible_to<bool>;
    { box.isValid() } -> std::convertible_to<bool>;
    { box.contains(point) } -> std::convertible_to<bool>;
    { box.intersects(box) } -> std::convertible_to<bool>;
    { box.transformed(matrix) } -> Exactly<Box>;
    { Box::createUnionOf(box, box) } -> Exactly<Box>;
    { box.min() } -> Exactly<QVector3D>;
    { box.max() } -> Exactly<QVector3D>;
    { box.center() } -> Exactly<QVector3D>;
    { box.centerZ() } -> Exactly<float>;
    { box.deltaX() } -> Exactly<float>;
    { box.deltaY() } -> Exactly<float>;
    { box.deltaZ() } -> Exactly<float>;
    { box.width() } -> Exactly<float>;
    { box.height() } -> Exactly<float>;
    { box.depth() } -> Exactly<float>;
};

/// geometry::Mesh. Four entries a triangle in its index list, of which the fourth is not read. The
/// lists are references, so that searches of them copy nothing.
template <typename Mesh>
concept MeshValue = std::copyable<Mesh> && std::default_initializable<Mesh> &&
    requires(const Mesh& mesh, Mesh& changeable, const QMatrix4x4& matrix)
{
    { mesh.getVertices() } -> ReferenceTo<QList<QVector3D>>;
    { mesh.getIndices() } -> ReferenceTo<QList<int>>;
    { mesh.getNumIndices() } -> std::convertible_to<int>;
    changeable.applyTransformation(matrix);
};

/// geometry::BoundedTriangles: one cell of a grid over a mesh, from its box and the numbers of its
/// triangles.
template <typename Cell, typename Box>
concept GridCellValue = std::copyable<Cell> && BracedFrom<Cell, Box, QList<int>> &&
    requires(Cell& cell)
{
    { cell.box } -> Exactly<Box>;
    { cell.triangles } -> Exactly<QList<int>>;
};

/// The iterators of geometry::ShapeNode over the nodes that carry a shape.
template <typename Iterator, typename End, typename Mesh, typename Box>
concept ShapeNodeIterator = requires(Iterator& node, const End& end)
{
    { node != end } -> std::convertible_to<bool>;
    ++node;
    { node.getCumulativeTransform() } -> Exactly<QMatrix4x4>;
    { node->getBoundingBox() } -> Exactly<Box>;
    { node->getShape()->getMesh() } -> Exactly<Mesh>;
};

/// geometry::ShapeNode, its iterators, and the meshes and boxes that it leads to. The boxes of
/// nodes and the cumulative transforms are those that the bundled class documents.
template <typename ShapeNode, typename Mesh, typename Box>
concept ShapeNodeFamily = std::constructible_from<ShapeNode, QString> &&
    requires(const ShapeNode& node, ShapeNode& changeable, ShapeNode* child,
             const QMatrix4x4& matrix)
{
    { node.getTransform() } -> Exactly<QMatrix4x4>;
    changeable.setTransform(matrix);
    changeable.addChild(child);
    { node.getBoundingBox() } -> Exactly<Box>;
    requires ShapeNodeIterator<std::decay_t<decltype(node.cbeginNodesWithShape())>,
                               std::decay_t<decltype(node.cend())>, Mesh, Box>;
};

/// geometry::ShapeFactory, made over a geometry::ShapeLoader. A cylinder is centered on its own
/// origin along z, a cone stands on its own origin with the tip towards +z; false flags make closed
/// solids. The caller owns the nodes.
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
    { surface.getMesh() } -> Exactly<Mesh>;
    { surface.getObjectTransform() } -> Exactly<QMatrix4x4>;
    { surface.getSceneBoundingBox() } -> Exactly<Box>;
};

/// dataobject::Implant3D, owned by a shared pointer.
template <typename Implant>
concept ImplantFamily = TypedObject<Implant> && requires(const Implant& implant)
{
    { implant.getObjectTransform() } -> Exactly<QMatrix4x4>;
    { implant.getDimensions().diameter } -> Exactly<float>;
    { implant.getDimensions().length } -> Exactly<float>;
    { std::dynamic_pointer_cast<const Implant>(implant.weak_from_this().lock()) }
        -> std::same_as<std::shared_ptr<const Implant>>;
};

/// dataobject::AnchorPin3D.
template <typename Pin, typename ShapeNode>
concept AnchorPinFamily = TypedObject<Pin> && requires(const Pin& pin, Pin& changeable)
{
    { changeable.getShapeNode() } -> std::convertible_to<const ShapeNode*>;
    { pin.getObjectTransform() } -> Exactly<QMatrix4x4>;
};

/// A shared pointer to an implant, pin or nerve as the key of a QSet or QHash, alone and in a pair.
/// The overload must be found by the argument alone, that is, be in namespace dataobject or come
/// from Qt.
template <typename Object>
concept HashedByPointer = requires(const std::shared_ptr<Object>& object)
{
    { qHash(object, std::size_t(0)) } -> std::convertible_to<std::size_t>;
};

/// primitives::OrientedBoundingBox. What is inside is convex; rows of voxels are tested at their
/// ends.
template <typename OrientedBox, typename Box>
concept OrientedBoundingBoxValue = std::constructible_from<OrientedBox, const Box&> &&
    std::move_constructible<OrientedBox> &&
    requires(const OrientedBox& box, const QMatrix4x4& matrix, const QVector3D& point)
{
    { box.transformed(matrix) } -> Exactly<OrientedBox>;
    { box.isInside(point) } -> std::convertible_to<bool>;
    { box.getAABBOfTransformedBoundingBox() } -> Exactly<Box>;
    { box.getCornerPoints() } -> Exactly<QList<QVector3D>>;
};

/// math::Ivec3.
template <typename Counts>
concept CountsValue = std::copyable<Counts> && requires(const Counts& counts)
{
    { counts.x } -> std::convertible_to<int>;
    { counts.y } -> std::convertible_to<int>;
    { counts.z } -> std::convertible_to<int>;
};

/// VexelImage3D. Element types 0, 1 and 2 are unsigned and signed 16-bit and unsigned 8-bit; x runs
/// fastest, then y, without gaps; the first element is null without voxels, and has no type until
/// it is read.
template <typename Image, typename Counts, typename Range>
concept VoxelImageValue = requires(const Image& image)
{
    static_cast<const std::uint16_t*>(image.dataPtr());
    static_cast<const std::int16_t*>(image.dataPtr());
    static_cast<const std::uint8_t*>(image.dataPtr());
    static_cast<int>(image.dataType());
    { image.imageSize() } -> Exactly<Counts>;
    { image.voxelSize() } -> Exactly<QVector3D>;
    { image.getValueRange() } -> Exactly<Range>;
};

/// ImageVolume.
template <typename Volume, typename Image>
concept ImageVolumeFamily = requires(const Volume& volume)
{
    { volume.getImage() } -> Exactly<Image>;
};

/// dataobject::LandmarkAnnotation. The position in context 0, the volume frame, is queried; a
/// landmark without one has an empty optional.
template <typename Landmark, typename Context>
concept LandmarkFamily = requires(const Landmark& landmark, Context context)
{
    static_cast<int>(landmark.getType());
    { landmark.getPosition(context) } -> Nullable;
    { landmark.getPosition(context).value() } -> Exactly<QVector3D>;
};

/// CTData. Braces without a type, {}, select all landmarks; those and the image volume may be null
/// pointers. The definition of the occlusal plane is of an enumeration
/// CTData::OcclusalPlaneDefinition.
template <typename CTData, typename ImageVolume, typename Landmark, typename Box>
concept CTDataFamily = TypedObject<CTData> &&
    NumberedValue<typename CTData::OcclusalPlaneDefinition> && requires(const CTData& ct)
{
    { ct.getImageVolume() } -> SharedPointerTo<ImageVolume>;
    { *ct.getLandmarkAnnotations({}).begin() } -> SharedPointerTo<Landmark>;
    { ct.getTotalResampleNHPTransformation() } -> Exactly<QMatrix4x4>;
    { ct.getBoundingBox() } -> Exactly<Box>;
    { ct.getTotalResampleTransformedBoundingBox() } -> Exactly<Box>;
    { ct.getOcclusalPlaneDefinition() } -> Exactly<typename CTData::OcclusalPlaneDefinition>;
};

/// ToothChart and its Tooth, as far as the boxes at teeth need them.
template <typename Chart, typename Tooth>
concept ToothKinds = requires(Tooth tooth)
{
    { Chart::isMolar(tooth) } -> std::convertible_to<bool>;
    { Chart::isPremolar(tooth) } -> std::convertible_to<bool>;
    { Chart::isUpperTooth(tooth) } -> std::convertible_to<bool>;
};

/// colormap::Tissues: eleven levels, from air to enamel, in this order and under these names.
template <typename Tissues>
concept TissuesValue = std::copyable<Tissues> && std::default_initializable<Tissues> &&
    BracedFrom<Tissues, int, int, int, int, int, int, int, int, int, int, int> &&
    requires(const Tissues& tissues, Tissues& changeable)
{
    { tissues.toVector() } -> Exactly<std::vector<int>>;
    changeable.air = changeable.skin = changeable.fat = changeable.softTissue = 0;
    changeable.cancellousBone = changeable.boneSurface = changeable.bone = changeable.dentine = 0;
    changeable.corticalBone = changeable.denseBone = changeable.enamel = 0;
};

/// colormap::ColormapFunction and the functions derived from it.
template <typename Function>
concept ColormapFunctionFamily = TypedObject<Function> &&
    requires(const Function& function, Function& changeable)
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
    { function.getNormalizedPulpThreshold() } -> Exactly<float>;
    { function.getNormalizedRestorationMaterialThreshold() } -> Exactly<float>;
    changeable.setNormalizedPulpThreshold(threshold);
    changeable.setNormalizedRestorationMaterialThreshold(threshold);
};

/// colormap::TransferFunction.
template <typename Function>
concept TransferFunctionFamily = ColormapFunctionFamily<Function> &&
    requires(Function& changeable, float greyValues)
{
    changeable.panFunction(greyValues);
    changeable.stretchFunction(greyValues);
};

/// VolumeObject. Functions may be null pointers. The image is a reference to what the volume shows.
template <typename Volume, typename Function, typename Image>
concept VolumeObjectFamily =
    requires(const Volume& volume, Volume& changeable, const Function& function)
{
    { volume.getMIPLevel() } -> Exactly<float>;
    { volume.getMIPWindow() } -> Exactly<float>;
    { volume.getActiveVisualizationFunction() } -> SharedPointerTo<Function>;
    { *changeable.getAllVisualizationFunctions().begin() } -> SharedPointerTo<Function>;
    { volume.getThreshold(function.getUUID()) } -> std::convertible_to<int>;
    { volume.getImage() } -> ReferenceTo<Image>;
    changeable.setThreshold(function.getUUID(), 0);
    changeable.setMIPLevelWindow(0.0F, 0.0F);
    changeable.visualizationChanged(true);
};

/// ToothChart: (tooth - 1) % 16 runs along either arch. The arch type of value 0 is the upper one.
template <typename ToothChart>
concept ToothChartFamily = ToothNumber<typename ToothChart::Tooth> &&
    NumberedValue<typename ToothChart::ArchType> &&
    requires(typename ToothChart::Tooth tooth, typename ToothChart::ArchType arch,
             const QList<typename ToothChart::Tooth>& teeth)
{
    { ToothChart::getArchTypeOfTooth(tooth) } -> Exactly<typename ToothChart::ArchType>;
    { ToothChart::getOppositeTooth(tooth) } -> Exactly<typename ToothChart::Tooth>;
    { ToothChart::getOppositeJaw(arch) } -> Exactly<typename ToothChart::ArchType>;
    { ToothChart::createContinuousRegion(tooth, tooth) }
        -> Exactly<QList<typename ToothChart::Tooth>>;
    { ToothChart::filterTeethForArchType(teeth, arch) }
        -> Exactly<QList<typename ToothChart::Tooth>>;
};

/// Point.
template <typename Point>
concept PointFamily = requires(const Point& point, Point& changeable, const QVector3D& position)
{
    { point.getPosition() } -> Exactly<QVector3D>;
    changeable.setPosition(position);
};

/// GuidingLine. The path should be a reference, so that a search of it copies nothing.
template <typename GuidingLine>
concept GuidingLineFamily = requires(GuidingLine& line, int pathIndex, const QMatrix4x4& matrix)
{
    { line.getOriginalPath() } -> Exactly<QList<QVector3D>>;
    { line.getDirection(pathIndex) } -> Exactly<QVector3D>;
    line.notifyGuidingLineObservers();
    line.transformAndCreateNewPoints(matrix);
};

/// math::Spline3DInterface, deleted through a pointer to it.
template <typename Curve>
concept CurveModel = std::has_virtual_destructor_v<Curve> && requires(const Curve& curve)
{
    { curve.clone() } -> Exactly<std::unique_ptr<Curve>>;
};

/// GuidingSpline, with its curve model math::Spline3DInterface.
template <typename GuidingSpline, typename GuidingLine, typename Point, typename Curve>
concept GuidingSplineFamily = GuidingLineFamily<GuidingSpline> &&
    std::derived_from<GuidingSpline, GuidingLine> &&
    requires(GuidingSpline& spline, const GuidingSpline& constant, const QVector3D& position,
             std::unique_ptr<Curve> curve)
{
    spline.clear();
    { spline.appendControlPoint(position) } -> SharedPointerTo<Point>;
    { spline.appendLastControlPoint(position) } -> SharedPointerTo<Point>;
    { constant.getControlPoints() } -> Exactly<QList<std::shared_ptr<Point>>>;
    { constant.getSpline() } -> std::convertible_to<const Curve*>;
    spline.setSpline(std::move(curve));
    spline.pointsChanged();
};

/// PlanarDentalSpline, with its tooth points, its plane, its values and the switches of
/// notification and undo.
template <typename PlanarDentalSpline, typename Point, typename ToothChart, typename PlanarReslice,
          typename CreationType>
concept PlanarDentalSplineFamily =
    requires(PlanarDentalSpline& spline, const PlanarDentalSpline& constant,
             typename ToothChart::Tooth tooth, const std::shared_ptr<Point>& point, int sliceIndex,
             typename ToothChart::ArchType arch, CreationType creationType, bool enable)
{
    { constant.getObjects() } -> Exactly<QMap<typename ToothChart::Tooth, std::shared_ptr<Point>>>;
    spline.setTooth(tooth, point);
    { spline.getPlane() } -> SharedPointerTo<PlanarReslice>;
    { constant.getOcclusalIndex() } -> std::convertible_to<int>;
    spline.setOcclusalIndex(sliceIndex);
    { constant.getArchType() } -> Exactly<typename ToothChart::ArchType>;
    spline.setArchType(arch);
    { constant.getCreationType() } -> Exactly<CreationType>;
    spline.setCreationType(creationType);
    spline.setNotifyObservers(enable);
    { constant.isCreateUndoEnabledForObject() } -> std::convertible_to<bool>;
    spline.enableCreateUndoForObjectAndProperties(enable);
};

/// PlanarReslice as the plane of an arch, by the CT that it cuts, which may be null.
template <typename PlanarReslice, typename CTData>
concept ResliceOfCTFamily = requires(const PlanarReslice& reslice)
{
    { reslice.getCTData() } -> SharedPointerTo<CTData>;
};

/// dataobject::Mouth and its teeth. A tooth is made of its type, the status of value 0 and the
/// category of value 1.
template <typename Mouth, typename Tooth, typename ToothChart>
concept MouthFamily = NumberedValue<typename Tooth::Status> &&
    NumberedValue<typename Tooth::Category> &&
    std::constructible_from<Tooth, typename ToothChart::Tooth, typename Tooth::Status,
                            typename Tooth::Category> &&
    requires(const Mouth& mouth, const Tooth& tooth, typename ToothChart::Tooth toothType)
{
    { tooth.getToothType() } -> Exactly<typename ToothChart::Tooth>;
    { mouth.hasTooth(toothType) } -> std::convertible_to<bool>;
    { mouth.getToothForToothType(toothType) } -> SharedPointerTo<Tooth>;
    { mouth.getAllTeethUnsorted() } -> Exactly<QSet<std::shared_ptr<Tooth>>>;
};

/// Diagnosis, by way of the anatomy.
template <typename Diagnosis, typename Anatomy, typename Mouth>
concept DiagnosisFamily = requires(const Diagnosis& diagnosis, const Anatomy& anatomy)
{
    { diagnosis.getPatientAnatomy() } -> SharedPointerTo<Anatomy>;
    { anatomy.getMouth() } -> SharedPointerTo<Mouth>;
};

/// ToothAnnotation3D. getToothType() is known also of a label without a tooth; the creation type of
/// value 0 means that the application made the label.
template <typename Annotation, typename Tooth, typename ToothChart, typename CreationType>
concept ToothAnnotationFamily = std::default_initializable<Annotation> &&
    requires(Annotation& label, const std::shared_ptr<Tooth>& tooth, const QVector3D& vector)
{
    { label.getToothType() } -> Exactly<typename ToothChart::Tooth>;
    { label.getCreationType() } -> Exactly<CreationType>;
    label.setTooth(tooth);
    label.setPosition(vector);
    label.setDirection(vector);
};

/// PanoramicReslice, which leads to its guiding line by a pointer that may be null. The reslice
/// type whose value is 1 is the slab of getThickness().
template <typename PanoramicReslice, typename GuidingLine, typename ResliceType, typename Range>
concept PanoramicResliceFamily = ResliceFamily<PanoramicReslice> &&
    requires(const PanoramicReslice& reslice, const GuidingLine& line, ResliceType type)
{
    { reslice.getPath() } -> Exactly<QList<QVector3D>>;
    { reslice.getGuidingLine() } -> SharedPointerTo<GuidingLine>;
    { line.getUpperDirection() } -> Exactly<QVector3D>;
    { reslice.getVerticalRange() } -> Exactly<Range>;
    { reslice.getDimensions() } -> Exactly<QSizeF>;
    { reslice.getSampleSize() } -> Exactly<QVector3D>;
    { reslice.getThickness() } -> Exactly<float>;
    { reslice.isType(type) } -> std::convertible_to<bool>;
};

/// GuidingLine, as the reslices use it.
template <typename GuidingLine>
concept ArchLineFamily = TypedObject<GuidingLine> &&
    requires(const GuidingLine& line, int pathIndex)
{
    { line.getOriginalPath() } -> Exactly<QList<QVector3D>>;
    { line.getPerpendicularDirection(pathIndex) } -> Exactly<QVector3D>;
};

/// PlanarGuidingSpline, with pointers to its control points and the observers of its events. The
/// event whose type has the value 3 means that control points were added or removed.
template <typename Spline, typename Point, typename Observer, typename Event>
concept DrawnSplineFamily =
    requires(const Spline& spline, Spline& changeable, Observer* observer, const Event& event)
{
    { spline.getControlPoints() } -> Exactly<QList<std::shared_ptr<Point>>>;
    changeable.attach(observer);
    static_cast<int>(event.type);
};

/// What algebra::fitPlane returns: an algebra::Plane or nothing, with the triples point and normal
/// in double precision.
template <typename Fit, typename Plane, typename Triple>
concept PlaneFitResult = Nullable<const Fit&> && requires(const Fit& fit, const Plane& plane)
{
    { fit.value() } -> Exactly<Plane>;
    { plane.point } -> Exactly<Triple>;
    { plane.normal } -> Exactly<Triple>;
};

/// Surface3DModel as it is moved: setObjectTransform() and refresh() together move the mesh
/// relative to its present place.
template <typename Surface, typename Mesh>
concept MovableSurfaceFamily = TypedObject<Surface> &&
    requires(const Surface& surface, Surface& changeable, const QMatrix4x4& matrix)
{
    { surface.getMesh() } -> Exactly<Mesh>;
    { surface.getCenterOfMass() } -> Exactly<QVector3D>;
    changeable.setObjectTransform(matrix);
    changeable.refresh();
};

/// EditLocker over an object, Surface3DModel for instance, or over nothing (null).
template <typename Locker, typename Object>
concept EditLockerFamily = std::constructible_from<Locker, Object*> &&
    requires(Object& object)
{
    object.startEditing();
    object.stopEditing();
};

/// SurfaceScanAlignment.
template <typename Alignment>
concept AlignmentValue = std::copyable<Alignment> && requires(const Alignment& alignment)
{
    { alignment.initialTransform } -> Exactly<QMatrix4x4>;
    { alignment.freehandTransform } -> Exactly<QMatrix4x4>;
    { alignment.registrationTransform } -> Exactly<QMatrix4x4>;
    { alignment.referenceTransform } -> Exactly<QMatrix4x4>;
    { alignment.freehandAligned } -> std::convertible_to<bool>;
};

/// AlignableSurface, whose model may be null.
template <typename Surface, typename Alignment, typename Model, typename JawType>
concept AlignableSurfaceFamily =
    requires(const Surface& surface, Surface& changeable, const Alignment& alignment, bool aligned)
{
    { surface.getSurfaceModel() } -> std::convertible_to<const Model*>;
    { changeable.getSurfaceModel() } -> std::convertible_to<Model*>;
    changeable.setSurfaceScanAlignment(alignment);
    { surface.getReferenceTransform() } -> Exactly<QMatrix4x4>;
    { surface.getInitialTransform() } -> Exactly<QMatrix4x4>;
    { surface.getRegistrationTransform() } -> Exactly<QMatrix4x4>;
    { surface.isFreehandAligned() } -> std::convertible_to<bool>;
    changeable.setFreehandAligned(aligned);
    { surface.getFreehandTransform() } -> Exactly<QMatrix4x4>;
    { surface.getJawType() } -> Exactly<JawType>;
};

/// SurfaceScan, a surface model and an alignable surface at once; DentalScan is an alignable
/// surface too.
template <typename Scan, typename Model, typename Surface>
concept SurfaceScanFamily = TypedObject<Scan> && std::derived_from<Scan, Model> &&
    std::derived_from<Scan, Surface> &&
    requires(const Scan& scan, Scan& changeable, const QMatrix4x4& matrix)
{
    { scan.getCenterOfMass() } -> Exactly<QVector3D>;
    changeable.setInitialTransform(matrix);
    changeable.setFreehandTransform(matrix);
    changeable.startEditing();
    changeable.stopEditing();
    changeable.setObjectTransform(matrix);
    changeable.refresh();
};

/// dataobject::SurfaceObject and what derives from it, for instance SurfaceTree.
template <typename Surface, typename Box>
concept SurfaceObjectFamily = requires(const Surface& surface)
{
    { surface.getSceneBoundingBox() } -> Exactly<Box>;
};

/// OcclusionScan.
template <typename Scan>
concept OcclusionScanFamily = requires(const Scan& scan)
{
    { scan.isCalculated() } -> std::convertible_to<bool>;
    { scan.getUpperTransformation() } -> Exactly<QMatrix4x4>;
    { scan.getLowerTransformation() } -> Exactly<QMatrix4x4>;
    { scan.getVestibularTransformation() } -> Exactly<QMatrix4x4>;
};

/// ScannableRegion.
template <typename Region, typename SurfaceObject, typename Tooth>
concept ScannableRegionFamily = std::convertible_to<const Region*, const SurfaceObject*> &&
    requires(const Region& region)
{
    { region.getRegionStart() } -> Exactly<Tooth>;
};

/// QuarnRawScanData, whose intermediate surface may be null.
template <typename Data, typename SurfaceObject, typename Tooth>
concept RawScanDataFamily = std::convertible_to<const Data*, const SurfaceObject*> &&
    requires(const Data& data)
{
    { data.hasOnlyIntermediateMesh() } -> std::convertible_to<bool>;
    { data.getIntermediateSurface() } -> std::convertible_to<const SurfaceObject*>;
    { data.getScannedTeeth() } -> Exactly<QList<Tooth>>;
};

/// ScanSetup and the lists that it leads to, whose entries may be null.
template <typename Setup, typename OcclusionScan, typename Region, typename Data>
concept ScanSetupFamily = requires(const Setup& setup, bool includeEmpty)
{
    { setup.getOcclusionScan() } -> std::convertible_to<const OcclusionScan*>;
    { setup.getScannableRegions().isEmpty() } -> std::convertible_to<bool>;
    { *setup.getScannableRegions().begin() } -> std::convertible_to<const Region*>;
    { setup.getQuarnRawScanData(includeEmpty).isEmpty() } -> std::convertible_to<bool>;
    { *setup.getQuarnRawScanData(includeEmpty).begin() } -> std::convertible_to<const Data*>;
};

/// SurfaceObjectHelper.
template <typename Helper, typename SurfaceObject, typename Box>
concept SurfaceBoxes = requires(const QList<const SurfaceObject*>& surfaces)
{
    { Helper::getCombinedBoundingBox(surfaces) } -> Exactly<Box>;
};

/// Occlusion and dataobject::VirtualOcclusion.
template <typename Occlusion>
concept OcclusionFamily = requires(const Occlusion& occlusion)
{
    { occlusion.getTransformations() } -> Exactly<std::map<QString, QMatrix4x4>>;
    { occlusion.isSegmental() } -> std::convertible_to<bool>;
};

/// math::Operations.
template <typename Operations>
concept RotationOperations = requires(const QVector3D& vector)
{
    { Operations::getRotationTo(vector, vector, vector) } -> Exactly<QQuaternion>;
};

/// Movement, MovementUndoLock over it, and its type as the constants and getters of MovementTypes
/// name it.
template <typename Movement, typename Lock>
concept MovementFamily = std::constructible_from<Lock, Movement*> &&
    requires(const Movement& movement, Movement& changeable, const QString& text)
{
    { movement.getMovementType() } -> Exactly<QString>;
    { movement.getPrimaryAffectedType() } -> Exactly<QString>;
    changeable.setPrimaryAffectedType(text);
    changeable.setMovementMode(text);
    changeable.removeMovementMode(text);
};

/// OcclusionMovement, made from its type identifier.
template <typename OcclusionMovement, typename Movement, typename JawType, typename OptionalMatrix>
concept OcclusionMovementFamily = std::derived_from<OcclusionMovement, Movement> &&
    std::constructible_from<OcclusionMovement, QString> &&
    requires(OcclusionMovement& changeable, const QString& mode, const QMatrix4x4& matrix,
             JawType jaw)
{
    { changeable.getOcclusionModeTransformation(mode) } -> Exactly<OptionalMatrix>;
    changeable.addOcclusionModeTransformation(mode, matrix);
    changeable.removeOcclusionModeTransformation(mode);
    changeable.setAffectedTreatmentType(jaw);
};

/// CompositeMovement, which takes ownership of what is added.
template <typename Composite, typename Movement>
concept CompositeMovementFamily = std::derived_from<Composite, Movement> &&
    requires(const Composite& composite, Composite& changeable, Movement* movement)
{
    { composite.getMovements() } -> Exactly<QList<Movement*>>;
    changeable.addMovement(movement);
};

/// MaxillofacialSurgery. Null for a movement that it does not have.
template <typename Surgery, typename Movement>
concept SurgeryFamily = requires(const Surgery& surgery, const QString& movementType)
{
    { surgery.getMovementByTypeIdentifier(movementType) } -> Exactly<Movement*>;
};

/// MovementTypes, made with a null parent.
template <typename Types>
concept MovementTypesFamily = std::constructible_from<Types, std::nullptr_t> &&
    requires(const Types& types)
{
    { Types::m_maxillary_occlusion_movement } -> Exactly<QString>;
    { Types::m_mandibular_occlusion_movement } -> Exactly<QString>;
    { Types::m_maxillary_segmental_occlusion_movement } -> Exactly<QString>;
    { Types::m_mandibular_segmental_occlusion_movement } -> Exactly<QString>;
    { types.getMaxillarySegmentalOcclusionMovement() } -> Exactly<QString>;
    { types.getMandibularSegmentalOcclusionMovement() } -> Exactly<QString>;
};

/// MovementModes.
template <typename Modes>
concept MovementModesFamily = requires
{
    { Modes::OCCLUSION_PLASTER_CAST_MODE } -> Exactly<QString>;
    { Modes::OCCLUSION_PATIENT_SCAN_MODE } -> Exactly<QString>;
    { Modes::OCCLUSION_VIRTUAL_MODE } -> Exactly<QString>;
};

/// PointAnnotation, GreyValueMeasurement.
template <typename Annotation>
concept PositionedAnnotationFamily =
    requires(const Annotation& annotation, Annotation& changeable, const QVector3D& position)
{
    { annotation.getPosition() } -> Exactly<QVector3D>;
    changeable.changePosition(position);
};

/// LineAnnotation.
template <typename Annotation>
concept LineAnnotationFamily =
    requires(const Annotation& annotation, Annotation& changeable, int index,
             const QVector3D& position)
{
    { annotation.getPositions() } -> Exactly<QList<QVector3D>>;
    changeable.changePosition(index, position);
};

/// What moves itself by a matrix: the 3-D annotations, ToothAnnotation3D,
/// dataobject::AttachablePoint, dataobject::PointBased3DAnnotationBase, CustomResliceAnnotation,
/// CephPlaneBase.
template <typename Object>
concept TransformableFamily = requires(Object& changeable, const QMatrix4x4& matrix)
{
    changeable.applyTransform(matrix);
};

/// PointEditor. The place -1 and a null object stand for a free point.
template <typename Editor, typename Context>
concept PointEditorFamily =
    requires(Editor& editor, int index, Context context, const QVector3D& position)
{
    editor.changePoint(index, position, nullptr, index);
    editor.changePointInContext(index, position, context);
};

/// PolyLine with its points and its editor, which may be null. A free point has a position in the
/// frame of value 0.
template <typename PolyLine, typename Point, typename Editor, typename Context>
concept PolyLineFamily =
    requires(const PolyLine& line, PolyLine& changeable, const Point& point, int index,
             Context context)
{
    { line.getNumPositions() } -> std::convertible_to<int>;
    { line.getPoint(index) } -> SharedPointerTo<Point>;
    { point.getLinkedObject() } -> Nullable;
    { line.getPosition(index, context) } -> Nullable;
    { line.getPosition(index, context).value() } -> Exactly<QVector3D>;
    { line.getSupportedContexts() } -> Exactly<QList<Context>>;
    { changeable.getPointEditor() } -> std::convertible_to<Editor*>;
};

/// dataobject::Nerve and dataobject::TemporomandibularJoint, by their lines, which may be null.
template <typename Object, typename GuidingLine>
concept LineOwnerFamily = requires(const Object& object)
{
    { object.getGuidingLine() } -> SharedPointerTo<GuidingLine>;
};

/// Mandibula, and the jaw parts that rotate.
template <typename Mandibula, typename RotatablePart, typename Point>
concept JawPartFamily =
    requires(const Mandibula& mandibula, Mandibula& changeable, const RotatablePart& part,
             RotatablePart& changeablePart, const QVector3D& position,
             const QList<QVector3D>& positions, bool flag)
{
    { mandibula.getCondylePositions() } -> Exactly<std::pair<QVector3D, QVector3D>>;
    changeable.setCondylePositions({position, position}, flag);
    { mandibula.getLeftAutoRotationPoint() } -> Exactly<std::shared_ptr<Point>>;
    { mandibula.getRightAutoRotationPoint() } -> Exactly<std::shared_ptr<Point>>;
    { mandibula.getOcclusalPlanePositions() } -> Exactly<QList<QVector3D>>;
    changeable.setOcclusalPlanePositions(positions);
    { part.getRotationPosition() } -> Exactly<QVector3D>;
    changeablePart.setRotationPosition(position);
};

/// Anatomy, by its models from before surgery, which may be null.
template <typename Anatomy, typename Surface>
concept OriginalModelsFamily = requires(const Anatomy& anatomy)
{
    { anatomy.getOriginalCranium() } -> Exactly<std::shared_ptr<Surface>>;
    { anatomy.getOriginalMandible() } -> Exactly<std::shared_ptr<Surface>>;
};

/// Distractor. Its tree may be null.
template <typename Distractor, typename Tree>
concept DistractorFamily =
    requires(const Distractor& distractor, Distractor& changeable, const QVector3D& position)
{
    { distractor.getTransform() } -> Exactly<QMatrix4x4>;
    { distractor.getSurfaceTree() } -> SharedPointerTo<Tree>;
    changeable.moveTo(position);
};

/// SurfaceTree and TempShell, which are moved relatively.
template <typename Tree>
concept MovableTreeFamily = requires(Tree& changeable, const QMatrix4x4& matrix)
{
    changeable.setObjectTransform(matrix);
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
    { object.getObjectTransform() } -> Exactly<QMatrix4x4>;
    changeable.setObjectTransform(matrix, reason);
};

/// The templates and VirtualTooth: setObjectTransform() of theirs is absolute.
template <typename Surface>
concept PlacedSurfaceFamily =
    requires(const Surface& surface, Surface& changeable, const QMatrix4x4& matrix)
{
    { surface.getObjectTransform() } -> Exactly<QMatrix4x4>;
    changeable.setObjectTransform(matrix);
};

/// dataobject::PlannedToPostOpCollection. What it does not hold are empty optionals.
template <typename Collection>
concept CollectionFamily =
    requires(const Collection& collection, Collection& changeable, const QString& partType,
             const std::map<QString, QMatrix4x4>& matrices, const QVector3D& point)
{
    { collection.getTransformationSurgeryPartTypes() } -> Exactly<QStringList>;
    { collection.getComparedSurgeryPartTypes() } -> Exactly<QStringList>;
    { collection.getFromPreOpToPlannedTransformation(partType) } -> Nullable;
    { collection.getFromPreOpToPlannedTransformation(partType).value() } -> Exactly<QMatrix4x4>;
    { collection.getFromPreOpToPostOpTransformation(partType) } -> Nullable;
    { collection.getFromPreOpToPostOpTransformation(partType).value() } -> Exactly<QMatrix4x4>;
    changeable.setFromPreOpToPlannedAndPostOpTransformations(matrices, matrices);
    { collection.getPreOpRotationPoint(partType) } -> Nullable;
    { collection.getPreOpRotationPoint(partType).value() } -> Exactly<QVector3D>;
    changeable.setPreOpRotationPoint(partType, point);
};

/// dataobject::Apex and dataobject::RootCanal.
template <typename Apex, typename RootCanal>
concept RootFamily = requires(Apex& apex, RootCanal& canal, const QVector3D& position)
{
    { apex.getPosition() } -> Exactly<QVector3D>;
    apex.setPosition(position);
    { canal.getBasePosition() } -> Exactly<QVector3D>;
    canal.setBasePosition(position);
};

/// CTDataVolumeObject, whose CT may be null.
template <typename Volume, typename CTData>
concept VolumeOfCTFamily = requires(const Volume& volume)
{
    { volume.getCTData() } -> SharedPointerTo<CTData>;
};

// clang-format on

} // namespace hostcontract
