# Compiles HostContract.cpp against a copy of the bundled model whose headers each lack one thing that the algorithms
# need, and checks that the compiler names every one of them.
# Variables: COMPILER, ALL_ERRORS (its flag for errors without limit), SOURCE (the project),
# OVERLAY (a folder for the changed headers), INCLUDES (separated by |).
file(REMOVE_RECURSE "${OVERLAY}")
set(expected "")

# omit(<header below CoreAlgorithms/model/> <text> <its replacement> <the sentence that the contract must print>)
function(omit header text replacement sentence)
    set(changed "${OVERLAY}/CoreAlgorithms/model/${header}")
    if(EXISTS "${changed}")
        file(READ "${changed}" content)
    else()
        file(READ "${SOURCE}/CoreAlgorithms/model/${header}" content)
    endif()
    string(REPLACE "${text}" "${replacement}" lacking "${content}")
    if(lacking STREQUAL content)
        message(FATAL_ERROR "${header} does not contain '${text}'")
    endif()
    file(WRITE "${changed}" "${lacking}")
    set(expected ${expected} "${sentence}" PARENT_SCOPE)
endfunction()

# Bases
omit(dataobjects/Implants.h
    "Implant3D : public DataObject"
    "Implant3D : public CoreObject, public std::enable_shared_from_this<CoreObject>"
    "an implant, a pin, a template or a locked plan is no DataObject")
omit(dataobjects/Distraction.h
    "Distractor : public DataObject"
    "Distractor : public CoreObject"
    "an anatomy, a distractor, a joint, a collection or a root is no DataObject")
omit(dataobjects/Annotations.h
    "ArrowAnnotation3D : public DataObject"
    "ArrowAnnotation3D : public CoreObject"
    "an arch, a label, an annotation or a line is no DataObject")
omit(dataobjects/Reslices.h
    "CephReslice : public Reslice"
    "CephReslice : public virtual Reslice"
    "PlanarReslice, CephReslice or PanoramicReslice is no Reslice")

# Results of another type, though they convert
omit(dataobjects/Reslices.h
    "virtual QSizeF getDimensions() const;"
    "virtual QSize getDimensions() const;"
    "PanoramicReslice lacks an operation that the library calls")
omit(dataobjects/Occlusions.h
    "virtual const std::map<QString, QMatrix4x4>& getTransformations() const;"
    "virtual QMap<QString, QMatrix4x4> getTransformations() const;"
    "an occlusion lacks an operation that the library calls")
omit(dataobjects/CTData.h
    "virtual OcclusalPlaneDefinition getOcclusalPlaneDefinition() const;"
    "virtual int getOcclusalPlaneDefinition() const;"
    "CTData lacks an operation that the library calls")
omit(dataobjects/VolumeObject.h
    "virtual float getMIPLevel() const;"
    "virtual double getMIPLevel() const;"
    "VolumeObject lacks an operation that the library calls")
omit(dataobjects/ScanSetups.h
    "virtual ToothChart::Tooth getRegionStart() const;"
    "virtual int getRegionStart() const;"
    "ScannableRegion lacks a base or an operation that the library calls")
omit(dataobjects/Movements.h
    "virtual utility::Optional<QMatrix4x4> getOcclusionModeTransformation("
    "virtual std::optional<QMatrix4x4> getOcclusionModeTransformation("
    "OcclusionMovement lacks a base or an operation that the library calls")
omit(data/VexelImage3D.h
    "const void* dataPtr() const"
    "const std::byte* dataPtr() const"
    "VexelImage3D lacks an operation that the library calls")
omit(linearalgebra/PlaneFit.h
    "Eigen::Vector3d point = Eigen::Vector3d::Zero()"
    "Eigen::Vector3f point = Eigen::Vector3f::Zero()"
    "algebra::fitPlane returns nothing that the library can use")

# Pointers of another kind
omit(dataobjects/Teeth.h
    "virtual std::shared_ptr<Anatomy> getPatientAnatomy() const;"
    "virtual Anatomy* getPatientAnatomy() const;"
    "Diagnosis or Anatomy lacks an operation that the library calls")
omit(dataobjects/PolyLines.h
    "virtual PointEditor* getPointEditor();"
    "virtual std::shared_ptr<PointEditor> getPointEditor();"
    "PolyLine or PointInterface lacks an operation that the library calls")

# Containers, braces, conversions and operations
omit(data/Mesh.h
    "const QList<int>& getIndices() const"
    "QList<int> getIndices() const"
    "geometry::Mesh lacks an operation that the library calls")
omit(data/Shapes.h
    "bool operator!=(const ShapeNodeIteratorBase& other) const;"
    "bool operator!=(ShapeNodeIteratorBase& other) const;"
    "geometry::ShapeNode lacks an operation that the library calls")
omit(math/BoundingBox.h
    "bool contains(const QVector3D& point) const;"
    ""
    "primitives::BoundingBox lacks an operation that the library calls")
omit(math/Ivec3.h
    "int z = 0;"
    "int slices = 0;"
    "math::Ivec3 lacks a field that the library reads")
omit(fundamentals/Optional.h
    "    Optional(T engagedValue)"
    "    explicit Optional(T engagedValue)"
    "utility::Optional lacks an operation that the library calls")
omit(patterns/Observer.h
    "virtual void changedEvent(Subject* subject, Event* event) = 0;"
    "virtual void changedEvent(Subject* subject, Event* event) = 0;\n    virtual void closed() = 0;"
    "patterns::Observer lacks an operation that the library calls")

string(REPLACE "|" ";" includes "${OVERLAY}|${INCLUDES}")
list(TRANSFORM includes PREPEND "-I")
execute_process(
    COMMAND "${COMPILER}" -std=c++20 -fPIC -fsyntax-only ${ALL_ERRORS} ${includes}
        "${SOURCE}/CoreAlgorithms/model/HostContract.cpp"
    RESULT_VARIABLE status ERROR_VARIABLE errors OUTPUT_QUIET)
if(status EQUAL 0)
    message(FATAL_ERROR "a model that lacks ${expected} compiles")
endif()
foreach(sentence IN LISTS expected)
    string(FIND "${errors}" "${sentence}" found)
    if(found EQUAL -1)
        message(SEND_ERROR "not named: ${sentence}")
    endif()
endforeach()
# Each omission fails one assertion, so that no sentence stands for another omission.
string(REGEX MATCHALL "error: static[_ ]assert(ion)? failed" failures "${errors}")
list(LENGTH failures numFailures)
list(LENGTH expected numExpected)
if(NOT numFailures EQUAL numExpected)
    message(SEND_ERROR "${numExpected} omissions fail ${numFailures} assertions:\n${errors}")
endif()
if(errors MATCHES "\n?([^\n]*CoreAlgorithms/model/[a-z]+/[A-Za-z0-9]+\\.h:[0-9]+:[0-9]+: (fatal )?error[^\n]*)")
    message(SEND_ERROR "a changed header does not compile by itself: ${CMAKE_MATCH_1}")
endif()
