find_package(GTest REQUIRED)
find_package(Qt6 6.4 REQUIRED COMPONENTS Test)

# aquelon_test(NAME <name> LABEL <label> SOURCES <files> LIBS <targets> [DISPLAY] [TIMEOUT <s>]
#     [LAUNCHER <program> [<arguments>]])
# One GoogleTest program, one CTest entry. A test with DISPLAY runs on Qt's offscreen platform, one
# with a LAUNCHER is run by that program. main() is that of tests/main.cpp, with an application object,
# unless the libraries bring one.
function(aquelon_test)
    cmake_parse_arguments(arg "DISPLAY" "NAME;LABEL;TIMEOUT" "SOURCES;LIBS;LAUNCHER" ${ARGN})
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 60)
    endif()
    if(NOT "GTest::gtest_main" IN_LIST arg_LIBS)
        list(APPEND arg_SOURCES ${PROJECT_SOURCE_DIR}/tests/main.cpp)
    endif()
    add_executable(${arg_NAME} ${arg_SOURCES})
    target_include_directories(${arg_NAME} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${arg_NAME} PRIVATE ${arg_LIBS} GTest::gtest GTest::gmock warnings)
    add_test(NAME ${arg_NAME} COMMAND ${arg_LAUNCHER} $<TARGET_FILE:${arg_NAME}>)
    set(environment "TZ=UTC" "LC_ALL=C.UTF-8")
    if(arg_DISPLAY)
        list(APPEND environment "QT_QPA_PLATFORM=offscreen")
    endif()
    set_tests_properties(${arg_NAME} PROPERTIES
        LABELS ${arg_LABEL} TIMEOUT ${arg_TIMEOUT} ENVIRONMENT "${environment}")
endfunction()
