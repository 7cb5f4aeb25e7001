# Included last. The headers that most files include, read once for all of them: under the sanitizers half of a
# build was their reading. Only there, because every other build shows that a file includes what it uses.

# aquelon_precompile(<name> HEADERS <headers> LIBS <theirs> TARGETS <those that are built, of these>)
function(aquelon_precompile name)
    cmake_parse_arguments(arg "" "" "HEADERS;LIBS;TARGETS" ${ARGN})
    set(owner precompiled_${name})
    file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/${owner}.cpp CONTENT "")
    add_library(${owner} OBJECT ${PROJECT_BINARY_DIR}/${owner}.cpp)
    set_target_properties(${owner} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
    target_link_libraries(${owner} PRIVATE ${arg_LIBS} spdlog_compiled warnings)
    target_precompile_headers(${owner} PRIVATE ${arg_HEADERS})
    foreach(target ${arg_TARGETS})
        if(TARGET ${target})
            target_precompile_headers(${target} REUSE_FROM ${owner})
        endif()
    endforeach()
endfunction()

set(core
    <algorithm> <chrono> <cmath> <functional> <memory> <optional> <span> <string> <utility> <vector>
    <QObject> <QString> <QStringList> <QTimer> <spdlog/spdlog.h>)
set(widgets
    ${core} <QApplication> <QDialog> <QLabel> <QLineEdit> <QMouseEvent> <QPainter> <QPushButton> <QWidget>)

aquelon_precompile(core HEADERS ${core} LIBS Qt6::Core
    TARGETS data lamp link simulator aquelonctl aquelon-simulator)
aquelon_precompile(widgets HEADERS ${widgets} LIBS Qt6::Widgets
    TARGETS controls workflows application aquelon aquelon-bench)
if(BUILD_TESTING)
    set(tests <gtest/gtest.h> <gmock/gmock.h>)
    get_property(coreTests GLOBAL PROPERTY AQUELON_TESTS_Core)
    aquelon_precompile(core_tests HEADERS ${tests} ${core} LIBS Qt6::Core GTest::gtest GTest::gmock
        TARGETS ${coreTests})
    get_property(widgetTests GLOBAL PROPERTY AQUELON_TESTS_Widgets)
    aquelon_precompile(widget_tests HEADERS ${tests} ${widgets} LIBS Qt6::Widgets GTest::gtest GTest::gmock
        TARGETS ${widgetTests})
endif()
