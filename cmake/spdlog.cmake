# Every line is formatted before spdlog gets it, SPDLOG_ERROR(fmt::format("{}: {}", file, fault)): spdlog's own
# way compiles the whole of fmt into each file that logs, 8 s a file under the sanitizers.
add_library(spdlog_compiled STATIC ${CMAKE_CURRENT_LIST_DIR}/spdlog.cpp)
set_target_properties(spdlog_compiled PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
target_compile_definitions(spdlog_compiled PUBLIC SPDLOG_COMPILED_LIB)
target_link_libraries(spdlog_compiled PUBLIC spdlog::spdlog_header_only)
