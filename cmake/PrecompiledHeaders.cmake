# What nearly every source includes, compiled once for all targets: with it a fresh build takes about half the processor
# time. Off unless a preset asks for it, and clang-tidy reads the sources without, so that every file keeps naming what it
# uses.
#
# corealgorithms_precompile_headers(<target>)
option(CoreAlgorithms_PRECOMPILE_HEADERS "Compile common headers once: faster builds for those who develop" OFF)

set(CoreAlgorithms_COMMON_HEADERS
    <algorithm> <array> <cmath> <cstdint> <functional> <limits> <map> <memory> <optional> <random> <set> <span> <string>
    <utility> <vector>
    <QColor> <QHash> <QImage> <QList> <QLineF> <QMap> <QMatrix4x4> <QPainter> <QPointF> <QQuaternion> <QRectF> <QSet>
    <QString> <QStringList> <QVector3D>)

function(corealgorithms_precompile_headers target)
    if(NOT CoreAlgorithms_PRECOMPILE_HEADERS)
        return()
    endif()
    if(NOT TARGET common_headers)
        file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/common_headers.cpp" CONTENT "")
        add_library(common_headers OBJECT "${PROJECT_BINARY_DIR}/common_headers.cpp")
        corealgorithms_keep_promises(common_headers)
        target_precompile_headers(common_headers PRIVATE ${CoreAlgorithms_COMMON_HEADERS})
        target_link_libraries(common_headers PRIVATE Qt6::Core Qt6::Gui)
    endif()
    target_precompile_headers(${target} REUSE_FROM common_headers)
endfunction()
