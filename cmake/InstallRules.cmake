# What an installation holds: both libraries, the public headers, a CMake package, a pkg-config file, and the sources
# for applications with a model of their own.
# An installation of a build against an application's own model would dangle, so there is none.
if(NOT CoreAlgorithms_MODEL_TARGET STREQUAL "CoreAlgorithms::Model")
    return()
endif()

include(CMakePackageConfigHelpers)

set(CoreAlgorithms_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/CoreAlgorithms")
set(CoreAlgorithms_INSTALLED_SOURCE "${CMAKE_INSTALL_DATADIR}/CoreAlgorithms/source")

install(TARGETS CoreAlgorithms CoreAlgorithmsModel
    EXPORT CoreAlgorithmsTargets
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
    FILE_SET generated_headers DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
    INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(EXPORT CoreAlgorithmsTargets
    NAMESPACE CoreAlgorithms::
    DESTINATION "${CoreAlgorithms_CMAKE_DIR}")

configure_package_config_file(
    "${PROJECT_SOURCE_DIR}/cmake/CoreAlgorithmsConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/CoreAlgorithmsConfig.cmake"
    INSTALL_DESTINATION "${CoreAlgorithms_CMAKE_DIR}"
    PATH_VARS CoreAlgorithms_INSTALLED_SOURCE)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/CoreAlgorithmsConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion) # until 1.0 a new minor version may break callers
install(FILES
    "${PROJECT_BINARY_DIR}/CoreAlgorithmsConfig.cmake"
    "${PROJECT_BINARY_DIR}/CoreAlgorithmsConfigVersion.cmake"
    DESTINATION "${CoreAlgorithms_CMAKE_DIR}")

install(FILES "${PROJECT_SOURCE_DIR}/CMakeLists.txt" "${PROJECT_SOURCE_DIR}/LICENSE"
    DESTINATION "${CoreAlgorithms_INSTALLED_SOURCE}")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/CoreAlgorithms" "${PROJECT_SOURCE_DIR}/cmake"
    DESTINATION "${CoreAlgorithms_INSTALLED_SOURCE}")

# Relative, so that the installation can be moved.
file(RELATIVE_PATH prefixFromPkgConfigDir "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
configure_file("${PROJECT_SOURCE_DIR}/cmake/CoreAlgorithms.pc.in" "${PROJECT_BINARY_DIR}/CoreAlgorithms.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/CoreAlgorithms.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
