# One INTERFACE target carries the warnings of all our own code.
add_library(warnings INTERFACE)
target_compile_options(warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual)
# Every log line is compiled in; which are written is decided when the program runs.
target_compile_definitions(warnings INTERFACE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII
    SPDLOG_ACTIVE_LEVEL=SPDLOG_LEVEL_TRACE)

# A library of our own: its sources are listed by name in the folder's CMakeLists.txt,
# and headers are included by folder ("data/AQSequence.h").
function(aquelon_library name)
    add_library(${name} STATIC ${ARGN})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PRIVATE warnings)
endfunction()
