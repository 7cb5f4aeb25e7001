find_package(GTest REQUIRED)
find_package(Qt6 6.4 REQUIRED COMPONENTS Test)

# main() of the tests, with an application object, and of those that show widgets.
foreach(library Core Widgets)
    add_library(test_main_${library} STATIC ${PROJECT_SOURCE_DIR}/tests/main.cpp)
    set_target_properties(test_main_${library} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
    target_link_libraries(test_main_${library}
        PUBLIC GTest::gtest PRIVATE Qt6::${library} spdlog_compiled warnings)
endforeach()

# aquelon_test(NAME <name> LABEL <label> SOURCES <files> LIBS <targets> [DISPLAY] [ALONE] [TIMEOUT <s>]
#     [LAUNCHER <program> [<arguments>]])
# One GoogleTest program, one CTest entry. A test with DISPLAY runs on Qt's offscreen platform, one
# with a LAUNCHER is run by that program, one that is ALONE with no other beside it. main() is that of
# tests/main.cpp, unless the libraries bring one.
function(aquelon_test)
    cmake_parse_arguments(arg "DISPLAY;ALONE" "NAME;LABEL;TIMEOUT" "SOURCES;LIBS;LAUNCHER" ${ARGN})
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 60)
    endif()
    set(kind Core)
    if(arg_DISPLAY)
        set(kind Widgets)
    endif()
    if(NOT "GTest::gtest_main" IN_LIST arg_LIBS)
        list(PREPEND arg_LIBS test_main_${kind})
        set_property(GLOBAL APPEND PROPERTY AQUELON_TESTS_${kind} ${arg_NAME})
    endif()
    add_executable(${arg_NAME} ${arg_SOURCES})
    set_target_properties(${arg_NAME} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
    target_include_directories(${arg_NAME} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${arg_NAME} PRIVATE ${arg_LIBS} GTest::gtest GTest::gmock warnings)
    add_test(NAME ${arg_NAME} COMMAND ${arg_LAUNCHER} $<TARGET_FILE:${arg_NAME}>)
    set(environment "TZ=UTC" "LC_ALL=C.UTF-8")
    if(arg_DISPLAY)
        list(APPEND environment "QT_QPA_PLATFORM=offscreen")
    endif()
    set_tests_properties(${arg_NAME} PROPERTIES
        LABELS ${arg_LABEL} TIMEOUT ${arg_TIMEOUT} RUN_SERIAL ${arg_ALONE} ENVIRONMENT "${environment}")
endfunction()
