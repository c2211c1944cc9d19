# Leaves things that the algorithms need out of copies of the bundled model's headers, compiles HostContract.cpp against
# them, and checks that the compiler names each of them below the failed assertion, and nothing else. A concept of the
# contract without a row here fails the test too.
# Variables: COMPILER, COMPILER_ID, SOURCE (the project), OVERLAY (a folder for the changed headers),
# INCLUDES (separated by |).
cmake_minimum_required(VERSION 3.25)
if(COMPILER_ID STREQUAL "GNU")
    set(complete -fmax-errors=0 -fconcepts-diagnostics-depth=3)
else()
    set(complete -ferror-limit=0)
endif()
set(model "${SOURCE}/CoreAlgorithms/model")
file(GLOB headers RELATIVE "${model}" "${model}/*/*.h")
list(FILTER headers EXCLUDE REGEX "^contract/")

# change(<concept> <class> <text> <its replacement> <what the compiler must name>)
# Replaces the first such text in the definition of a class; `class X : ` means its head with all its bases,
# `class X` for the head of a definition that gets another name behind an empty class X.
function(change concept class text replacement named)
    set(namespace "")
    if(class MATCHES "^([a-z]+)::(.*)")
        set(namespace "namespace ${CMAKE_MATCH_1} ")
        set(class "${CMAKE_MATCH_2}")
    endif()
    set(head "(class|struct) (COREALGORITHMS_MODEL_EXPORT )?${class}([ \n]*:[^;{]*)?[ \n]*{")
    set(found "")
    foreach(header IN LISTS headers)
        set(path "${model}/${header}")
        if(EXISTS "${OVERLAY}/CoreAlgorithms/model/${header}")
            set(path "${OVERLAY}/CoreAlgorithms/model/${header}")
        endif()
        file(READ "${path}" content)
        string(FIND "${content}" "${namespace}" inNamespace)
        if(content MATCHES "${head}" AND NOT inNamespace EQUAL -1)
            set(found "${header}")
            set(matched "${CMAKE_MATCH_0}")
            break()
        endif()
    endforeach()
    if(NOT found)
        message(FATAL_ERROR "no header of the model defines ${class}")
    endif()
    string(FIND "${content}" "${matched}" start)
    string(SUBSTRING "${content}" 0 ${start} before)
    string(SUBSTRING "${content}" ${start} -1 rest)
    if(text STREQUAL "class ${class} : ")
        set(text "${matched}")
        set(replacement "${replacement}\n{")
    endif()
    if(text STREQUAL "class ${class}")
        string(REPLACE "${class}" "Omitted${class}" definition "${matched}")
        set(text "${matched}")
        set(replacement "class ${class}\n{};\n${definition}")
    endif()
    string(FIND "${rest}" "${text}" at)
    string(FIND "${rest}" "\n};" end)
    if(at EQUAL -1 OR at GREATER end)
        message(FATAL_ERROR "${class} in ${found} does not contain '${text}'")
    endif()
    string(LENGTH "${text}" length)
    math(EXPR behind "${at} + ${length}")
    string(SUBSTRING "${rest}" 0 ${at} upTo)
    string(SUBSTRING "${rest}" ${behind} -1 after)
    file(WRITE "${OVERLAY}/CoreAlgorithms/model/${found}" "${before}${upTo}${replacement}${after}")
    expect(${concept} "${named}")
    set(rows "${rows}" PARENT_SCOPE)
endfunction()

# omit(<concept> <operation> <class>...)
# Renames an operation of a class, and of the classes that override it.
function(omit concept operation)
    foreach(class IN LISTS ARGN)
        change(${concept} ${class} " ${operation}(" " omitted_${operation}(" "${operation}(")
    endforeach()
    set(rows "${rows}" PARENT_SCOPE)
endfunction()

# without_base(<concept> <class>)
# Puts an empty class in the place of a class, whose definition gets another name.
function(without_base concept class)
    change(${concept} ${class} "class ${class}" "" "${class}")
    set(rows "${rows}" PARENT_SCOPE)
endfunction()

# expect(<concept> <what the compiler must name>)
# Adds what a change above breaks in a second concept.
macro(expect concept named)
    list(APPEND rows "${concept}|${named}")
    list(REMOVE_DUPLICATES rows)
endmacro()

# compile_against_omissions()
# Compiles the contract against the changes since the last call.
function(compile_against_omissions)
    string(REPLACE "|" ";" includes "${OVERLAY}|${INCLUDES}")
    list(TRANSFORM includes PREPEND "-I")
    execute_process(
        COMMAND "${COMPILER}" -std=c++20 -fPIC -fsyntax-only ${complete} ${includes} "${model}/HostContract.cpp"
        ERROR_VARIABLE errors OUTPUT_QUIET)
    string(JOIN "|" folders patterns fundamentals math linearalgebra data dataobjects)
    if(errors MATCHES "([^\n]*CoreAlgorithms/model/(${folders})/[A-Za-z0-9]+\\.h:[0-9]+:[0-9]+: (fatal )?error[^\n]*)")
        message(SEND_ERROR "a changed header does not compile by itself: ${CMAKE_MATCH_1}")
    endif()
    # One list entry per failed assertion: the error with the notes that follow it.
    string(REPLACE ";" "," errors "${errors}")
    string(REPLACE "[" "(" errors "${errors}")
    string(REPLACE "]" ")" errors "${errors}")
    string(REGEX REPLACE "error: static[_ ]assert(ion)? failed" ";" failures "${errors}")
    list(POP_FRONT failures)
    foreach(row IN LISTS rows)
        string(REPLACE "|" ";" row "${row}")
        list(GET row 0 concept)
        list(GET row 1 named)
        set(isNamed FALSE)
        set(others "")
        foreach(failure IN LISTS failures)
            string(FIND "${failure}" "${concept}" hasConcept)
            string(FIND "${failure}" "${named}" hasNamed)
            if(hasConcept EQUAL -1 OR hasNamed EQUAL -1)
                list(APPEND others "${failure}")
            else()
                set(isNamed TRUE)
                list(APPEND explained "${failure}")
            endif()
        endforeach()
        if(NOT isNamed)
            message(SEND_ERROR "${concept}: '${named}' is left out, and the compiler does not name it")
        endif()
    endforeach()
    foreach(failure IN LISTS failures)
        if(NOT failure IN_LIST explained)
            message(SEND_ERROR "an assertion fails for another reason than what was left out${failure}")
        endif()
    endforeach()
    set(tested ${tested} ${rows} PARENT_SCOPE)
    set(rows "" PARENT_SCOPE)
    file(REMOVE_RECURSE "${OVERLAY}")
endfunction()

file(REMOVE_RECURSE "${OVERLAY}")
set(rows "")
set(tested "")

# Values
change(RangeValue Range "T min{}" "T least{}" "range.min")
change(CountsValue Ivec3 "int z = 0;" "int slices = 0;" "counts.z")
change(RayValue QRay3D "rayDirection)" "rayDirection, int)" "constructible")
omit(PlaneValue project primitives::Plane)
omit(BoundingBoxValue contains BoundingBox)
omit(OrientedBoundingBoxValue isInside OrientedBoundingBox)
omit(RotationOperations getRotationTo Operations)
omit(CurveModel clone Spline3DInterface PolylineSpline3D CatmullRomSpline3D)
change(PlaneFitResult algebra::Plane "Eigen::Vector3d point = Eigen::Vector3d" "Eigen::Vector3f point = Eigen::Vector3f"
    "plane.point")
change(OptionalValue Optional "    Optional(T engagedValue)" "    explicit Optional(T engagedValue)" "convertible")

# Observers
change(PlainSubject ObservableBase "virtual void notify()" "virtual void notifyAll()" "subject.notify()")
change(EventObserver Observer "    void detachAll()" "protected:\n    void detachAll()" "observer.detachAll()")

# Shapes
omit(MeshValue applyTransformation PointSet)
change(GridCellValue BoundedTriangles "QList<int> triangles;" "QList<int> numbers;" "cell.triangles")
change(ShapeNodeIterator ShapeNodeIteratorBase "(const ShapeNodeIteratorBase& other)" "(ShapeNodeIteratorBase& other)"
    "node != end")
omit(ShapeFactoryFamily generateCone ShapeFactory)

# Images and display functions
omit(VoxelImageValue voxelSize VexelImage3D)
omit(ImageVolumeFamily getImage ImageVolume)
omit(LandmarkFamily getType LandmarkAnnotation)
omit(CTDataFamily getBoundingBox CTData)
omit(VolumeOfCTFamily getCTData CTDataVolumeObject)
omit(TissuesValue toVector Tissues)
omit(PulpFunctionFamily getNormalizedPulpThreshold PulpFunction)
omit(TransferFunctionFamily panFunction TransferFunction)
omit(VolumeObjectFamily visualizationChanged VolumeObject)

# Teeth
omit(ToothChartFamily getOppositeTooth ToothChart)
omit(ToothKinds isMolar ToothChart)
omit(MouthFamily getAllTeethUnsorted Mouth)
omit(DiagnosisFamily getMouth Anatomy)
omit(OriginalModelsFamily getOriginalMandible Anatomy)
omit(ToothAnnotationFamily setDirection ToothAnnotation3D)

# Guiding lines and reslices
omit(PointFamily setPosition Point)
omit(ArchLineFamily getPerpendicularDirection GuidingLine)
omit(PlanarDentalSplineFamily setOcclusalIndex PlanarDentalSpline)
change(DrawnSplineFamily GuidingLineEvent "Type type = " "Type kind = " "event.type")
omit(LineOwnerFamily getGuidingLine TemporomandibularJoint)
omit(PlanarResliceFamily getOrigin PlanarReslice)
omit(ResliceOfCTFamily getCTData Reslice)
omit(PanoramicResliceFamily getVerticalRange PanoramicReslice)
omit(CephResliceFamily getPointOfView CephReslice)

# Surfaces and implants
omit(MovableSurfaceFamily getCenterOfMass Surface3DModel)
expect(SurfaceScanFamily getCenterOfMass)
change(EditLockerFamily EditLocker "(DataObject* objectToEdit)" "(DataObject* objectToEdit, int)" "constructible")
omit(MovableTreeFamily setObjectTransform SurfaceTree)
change(PlacedSurfaceFamily PlacedSurfaceModel "    void setObjectTransform(" "private:\n    void setObjectTransform("
    "setObjectTransform(")
omit(SurfaceBoxes getCombinedBoundingBox SurfaceObjectHelper)
omit(ImplantFamily getDimensions Implant3D)
omit(AnchorPinFamily getShapeNode AnchorPin3D)
omit(AbsolutelyPlacedFamily setObjectTransform AnchorPin3D)
change(HashedByPointer Nerve "public:"
    "    friend int qHash(const std::shared_ptr<Nerve>&, std::size_t, int = 0) { return 0; } // makes calls ambiguous\npublic:"
    "qHash(")
omit(LockedPlanFamily updateScannerOrientation LockedImplantPlan)

# Scans and movements
change(AlignmentValue SurfaceScanAlignment "QMatrix4x4 referenceTransform;" "QMatrix4x4 storedTransform;"
    "alignment.referenceTransform")
omit(AlignableSurfaceFamily isFreehandAligned AlignableSurface SurfaceScan)
omit(OcclusionScanFamily getVestibularTransformation OcclusionScan)
omit(ScannableRegionFamily getRegionStart ScannableRegion)
omit(RawScanDataFamily getScannedTeeth QuarnRawScanData)
omit(ScanSetupFamily getScannableRegions ScanSetup)
omit(OcclusionFamily isSegmental OcclusionBase)
omit(MovementFamily removeMovementMode Movement)
omit(OcclusionMovementFamily setAffectedTreatmentType OcclusionMovement)
omit(CompositeMovementFamily addMovement CompositeMovement)
omit(SurgeryFamily getMovementByTypeIdentifier MaxillofacialSurgery)
omit(MovementTypesFamily getMandibularSegmentalOcclusionMovement MovementTypes)
change(MovementModesFamily MovementModes "OCCLUSION_VIRTUAL_MODE;" "OCCLUSION_MODE;" "OCCLUSION_VIRTUAL_MODE")
omit(JawPartFamily setOcclusalPlanePositions Mandibula)

# The other objects of a plan
omit(PositionedAnnotationFamily changePosition GreyValueMeasurement)
omit(LineAnnotationFamily getPositions LineAnnotation)
omit(TransformableFamily applyTransform CephPlaneBase)
omit(PointEditorFamily changePointInContext PointEditor)
omit(PolyLineFamily getSupportedContexts PolyLine)
omit(DistractorFamily moveTo Distractor)
omit(CollectionFamily getPreOpRotationPoint PlannedToPostOpCollection)
omit(RootFamily setBasePosition RootCanal)
compile_against_omissions()

# What several assertions check
omit(ShapeNodeFamily addChild ShapeNode)
omit(ColormapFunctionFamily setPreviewUpdateEnabledState ColormapFunction)
omit(ResliceFamily isMirroredVerticallyIn2D Reslice)
omit(GuidingSplineFamily appendLastControlPoint GuidingSpline)
omit(SurfaceModelFamily getSceneBoundingBox SurfaceObject Surface3DModel SurfaceTree)
expect(SurfaceObjectFamily getSceneBoundingBox)

# Classes without any base (without_base() needs one without constructors)
without_base(TypedObject Maxilla)
without_base(DynamicKindOf PointUnlinkedMultiPositions)
without_base(DynamicKindOf SoftTissueModel)
expect(derived_from SoftTissueModel)
change(StaticKindOf CephReslice "class CephReslice : " "class CephReslice : public virtual Reslice" "CephReslice")

# Results of another type, though they convert, and pointers of another kind
change(OcclusionFamily OcclusionBase "const std::map<QString, QMatrix4x4>& getTransformations()"
    "QMap<QString, QMatrix4x4> getTransformations()" "getTransformations()")
change(CTDataFamily CTData "OcclusalPlaneDefinition getOcclusalPlaneDefinition()" "int getOcclusalPlaneDefinition()"
    "getOcclusalPlaneDefinition()")
change(VolumeObjectFamily VolumeObject "float getMIPLevel()" "double getMIPLevel()" "getMIPLevel()")
change(ScannableRegionFamily ScannableRegion "ToothChart::Tooth getRegionStart()" "int getRegionStart()"
    "getRegionStart()")
change(OcclusionMovementFamily OcclusionMovement "utility::Optional<QMatrix4x4> getOcclusionModeTransformation("
    "std::optional<QMatrix4x4> getOcclusionModeTransformation(" "getOcclusionModeTransformation(")
change(VoxelImageValue VexelImage3D "const void* dataPtr()" "const std::byte* dataPtr()" "dataPtr()")
change(DiagnosisFamily Diagnosis "std::shared_ptr<Anatomy> getPatientAnatomy()" "Anatomy* getPatientAnatomy()"
    "getPatientAnatomy()")
change(PolyLineFamily PolyLine "PointEditor* getPointEditor()" "std::shared_ptr<PointEditor> getPointEditor()"
    "getPointEditor()")
change(MeshValue Mesh "const QList<int>& getIndices()" "QList<int> getIndices()" "getIndices()")
compile_against_omissions()

omit(GuidingLineFamily getDirection GuidingLine)
change(PanoramicResliceFamily Reslice "QSizeF getDimensions()" "QSize getDimensions()" "getDimensions()")
compile_against_omissions()

# The parts of other concepts, and enumerations, which the headers of the model cannot do without.
set(withoutRow Exactly ReferenceTo Nullable SharedPointerTo BracedFrom NumberedValue ToothNumber)
file(GLOB families "${model}/contract/*.h")
foreach(family IN LISTS families)
    file(READ "${family}" content)
    string(REGEX MATCHALL "concept [A-Za-z]+" concepts "${content}")
    foreach(concept IN LISTS concepts)
        string(REPLACE "concept " "" concept "${concept}")
        if(NOT concept IN_LIST withoutRow AND NOT "${tested}" MATCHES "(^|;)${concept}\\|")
            message(SEND_ERROR "nothing that ${concept} requires is left out above")
        endif()
    endforeach()
endforeach()
