# Included last. The headers that most files include, read once for all of them: under the sanitizers half of a
# build was their reading. Only there, because every other build shows that a file includes what it uses.
foreach(kind Core Widgets TestCore TestWidgets)
    file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/precompiled/${kind}.cpp CONTENT "")
    add_library(precompiled_${kind} OBJECT ${PROJECT_BINARY_DIR}/precompiled/${kind}.cpp)
    set_target_properties(precompiled_${kind} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
    target_link_libraries(precompiled_${kind} PRIVATE Qt6::Core spdlog_compiled warnings)
    target_precompile_headers(precompiled_${kind} PRIVATE
        <algorithm> <chrono> <cmath> <functional> <memory> <optional> <span> <string> <utility> <vector>
        <QObject> <QString> <QStringList> <QTimer> <spdlog/spdlog.h>)
endforeach()
foreach(kind Widgets TestWidgets)
    target_link_libraries(precompiled_${kind} PRIVATE Qt6::Widgets)
    target_precompile_headers(precompiled_${kind} PRIVATE
        <QApplication> <QDialog> <QLabel> <QLineEdit> <QMouseEvent> <QPainter> <QPushButton> <QWidget>)
endforeach()

function(aquelon_precompile kind)
    foreach(target ${ARGN})
        target_precompile_headers(${target} REUSE_FROM precompiled_${kind})
    endforeach()
endfunction()

aquelon_precompile(Core data lamp link simulator aquelonctl aquelon-simulator)
aquelon_precompile(Widgets controls workflows application aquelon aquelon-bench)
foreach(kind TestCore TestWidgets)
    target_link_libraries(precompiled_${kind} PRIVATE GTest::gtest GTest::gmock)
    target_precompile_headers(precompiled_${kind} PRIVATE <gtest/gtest.h> <gmock/gmock.h>)
    get_property(tests GLOBAL PROPERTY AQUELON_${kind})
    aquelon_precompile(${kind} ${tests})
endforeach()
