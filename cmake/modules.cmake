# The vocabulary of the CMakeLists.txt files: modules, programs, tests, fuzz targets.
#
# A dependency is the path of a module below src ("inst/installation"), or a target.

define_property(GLOBAL PROPERTY VS5_MODULES BRIEF_DOCS "Paths of all modules, in order")

# The target of a module: its path with '_' for '/'. Any other name stands for itself.
function(target_of result)
    set(targets)
    foreach(name IN LISTS ARGN)
        if(NOT name MATCHES "::")
            string(REPLACE "/" "_" name ${name})
        endif()
        list(APPEND targets ${name})
    endforeach()
    set(${result} ${targets} PARENT_SCOPE)
endfunction()

# The sources that the system being built for needs.
macro(pick_sources prefix)
    set(sources ${${prefix}_SOURCES})
    if(WIN32)
        list(APPEND sources ${${prefix}_WINDOWS})
    else()
        list(APPEND sources ${${prefix}_POSIX})
    endif()
endmacro()

macro(reject_unknown_arguments prefix)
    if(${prefix}_UNPARSED_ARGUMENTS OR ${prefix}_KEYWORDS_MISSING_VALUES)
        message(FATAL_ERROR "${${prefix}_NAME}: cannot read "
            "'${${prefix}_UNPARSED_ARGUMENTS}${${prefix}_KEYWORDS_MISSING_VALUES}'")
    endif()
endmacro()

# Targets of several sources read the headers that most of those include once. The headers are
# named in the sources all the same.
function(precompile_headers target)
    list(LENGTH ARGN count)
    if(VS5_PRECOMPILE AND count GREATER 3)
        get_target_property(libraries ${target} LINK_LIBRARIES)
        target_precompile_headers(${target} PRIVATE
            <algorithm> <array> <cmath> <cstddef> <cstdint> <fstream> <functional> <map> <memory>
            <optional> <sstream> <stdexcept> <string> <string_view> <utility> <vector>)
        if("vs5::gtest" IN_LIST libraries)
            target_precompile_headers(${target} PRIVATE <gtest/gtest.h>)
        endif()
    endif()
endfunction()

# Builds without the product compile a library only if one of their programs needs it.
function(exclude_from_partial_builds target)
    if(NOT VS5_PRODUCT)
        set_target_properties(${target} PROPERTIES EXCLUDE_FROM_ALL ON)
    endif()
endfunction()

# A static library of the folder that calls it, NAME being its path below src. PUBLIC are the
# dependencies that its headers include, PRIVATE those that only its sources do;
# WINDOWS_LIBRARIES are system libraries (ole32, ...).
function(add_module)
    cmake_parse_arguments(MODULE "" "NAME;LEVEL"
        "SOURCES;WINDOWS;POSIX;PUBLIC;PRIVATE;WINDOWS_LIBRARIES" ${ARGN})
    reject_unknown_arguments(MODULE)
    cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR
        BASE_DIRECTORY ${PROJECT_SOURCE_DIR}/src OUTPUT_VARIABLE folder)
    if(NOT folder STREQUAL MODULE_NAME)
        message(FATAL_ERROR "module ${MODULE_NAME} lies in src/${folder}")
    endif()
    if(NOT MODULE_LEVEL MATCHES "^[0-9]+$")
        message(FATAL_ERROR "module ${MODULE_NAME} has no level")
    endif()

    target_of(target ${MODULE_NAME})
    target_of(public ${MODULE_PUBLIC})
    target_of(private ${MODULE_PRIVATE})
    pick_sources(MODULE)
    if(sources)
        add_library(${target} STATIC ${sources})
        exclude_from_partial_builds(${target})
        target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR}/src)
        target_link_libraries(${target} PUBLIC ${public} PRIVATE ${private} vs5_warnings)
        if(WIN32)
            target_link_libraries(${target} PRIVATE ${MODULE_WINDOWS_LIBRARIES})
        endif()
        precompile_headers(${target} ${sources})
    else()
        add_library(${target} INTERFACE)
        target_include_directories(${target} INTERFACE ${PROJECT_SOURCE_DIR}/src)
        target_link_libraries(${target} INTERFACE ${public} ${private})
    endif()

    set_property(GLOBAL APPEND PROPERTY VS5_MODULES ${MODULE_NAME})
    set_property(GLOBAL PROPERTY VS5_LEVEL_${target} ${MODULE_LEVEL})
    set_property(GLOBAL PROPERTY VS5_DEPENDENCIES_${target} ${MODULE_PUBLIC} ${MODULE_PRIVATE})
endfunction()

# Shared by the kinds of executables; leaves the name of the target in `target`.
macro(add_executable_of_kind kind target_name)
    set(target ${target_name})
    pick_sources(${kind})
    if(WIN32 AND ${kind}_MANIFEST)
        cmake_path(ABSOLUTE_PATH ${kind}_MANIFEST OUTPUT_VARIABLE manifest)
        # 1 and 24 are CREATEPROCESS_MANIFEST_RESOURCE_ID and RT_MANIFEST.
        set(content "1 24 \"${manifest}\"\n")
        set(parts ${manifest})
        if(${kind}_ICON)
            cmake_path(ABSOLUTE_PATH ${kind}_ICON OUTPUT_VARIABLE icon)
            string(APPEND content "1 ICON \"${icon}\"\n")
            list(APPEND parts ${icon})
        endif()
        set(resource ${CMAKE_CURRENT_BINARY_DIR}/${target}_resources.rc)
        file(CONFIGURE OUTPUT ${resource} CONTENT "${content}")
        set_source_files_properties(${resource} PROPERTIES OBJECT_DEPENDS "${parts}")
        list(APPEND sources ${resource})
    endif()
    add_executable(${target} ${sources})
    target_of(private ${${kind}_PRIVATE})
    target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${target} PRIVATE ${private} vs5_warnings vs5_sanitizer_defaults)
    if(WIN32)
        target_link_libraries(${target} PRIVATE ${${kind}_WINDOWS_LIBRARIES})
        if(NOT ${kind}_CONSOLE)
            target_link_options(${target} PRIVATE -mwindows)
        endif()
    endif()
    precompile_headers(${target} ${sources})
endmacro()

# A program of the product, put into its place in the package. Without CONSOLE it is a
# program of the Windows subsystem.
function(add_program)
    cmake_parse_arguments(PROGRAM "CONSOLE" "NAME;MANIFEST;ICON"
        "SOURCES;WINDOWS;POSIX;PRIVATE;WINDOWS_LIBRARIES" ${ARGN})
    reject_unknown_arguments(PROGRAM)
    if(VS5_PRODUCT)
        add_executable_of_kind(PROGRAM ${PROGRAM_NAME})
        put_into_package(${target} ${VS5_PROGRAM_FOLDER})
    endif()
endfunction()

# A program that the product installs: DESTINATION is its folder below the package's root.
function(add_payload_program)
    cmake_parse_arguments(PROGRAM "CONSOLE" "NAME;MANIFEST;DESTINATION"
        "SOURCES;WINDOWS;POSIX;PRIVATE;WINDOWS_LIBRARIES" ${ARGN})
    reject_unknown_arguments(PROGRAM)
    if(VS5_PRODUCT)
        add_executable_of_kind(PROGRAM ${PROGRAM_NAME})
        put_into_package(${target} ${PROGRAM_DESTINATION})
    endif()
endfunction()

# A console program for developers, at <build folder>/tools: no part of the package.
function(add_tool)
    cmake_parse_arguments(TOOL "" "NAME"
        "SOURCES;WINDOWS;POSIX;PRIVATE;WINDOWS_LIBRARIES" ${ARGN})
    reject_unknown_arguments(TOOL)
    if(VS5_PRODUCT)
        set(TOOL_CONSOLE ON)
        add_executable_of_kind(TOOL ${TOOL_NAME})
        set_target_properties(${target} PROPERTIES
            RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tools)
    endif()
endfunction()

# Vocabulary of tests: a static library, with the target NAME, of the folder that calls it.
function(add_test_support)
    cmake_parse_arguments(SUPPORT "" "NAME" "SOURCES;WINDOWS;POSIX;PUBLIC" ${ARGN})
    reject_unknown_arguments(SUPPORT)
    if(NOT VS5_FUZZ)
        pick_sources(SUPPORT)
        target_of(public ${SUPPORT_PUBLIC})
        add_library(${SUPPORT_NAME} STATIC ${sources})
        exclude_from_partial_builds(${SUPPORT_NAME})
        target_include_directories(${SUPPORT_NAME} PUBLIC ${PROJECT_SOURCE_DIR}/tests)
        target_link_libraries(${SUPPORT_NAME} PUBLIC ${public} vs5::gtest PRIVATE vs5_warnings)
    endif()
endfunction()

# The one test program of a module. CTest runs it whole, through scripts/run_test_program.
# THREADS are those of its SOURCES where threads meet: the thread sanitizer's build has only them.
function(add_module_test)
    cmake_parse_arguments(TEST "" "NAME"
        "SOURCES;THREADS;WINDOWS;POSIX;PRIVATE;WINDOWS_LIBRARIES" ${ARGN})
    reject_unknown_arguments(TEST)
    if(VS5_SANITIZE STREQUAL "thread")
        set(TEST_SOURCES ${TEST_THREADS})
        unset(TEST_POSIX)
    endif()
    if(VS5_FUZZ OR NOT TEST_SOURCES)
        return()
    endif()
    set(TEST_CONSOLE ON)
    list(APPEND TEST_PRIVATE ${TEST_NAME} vs5::gtest)
    target_of(module ${TEST_NAME})
    add_executable_of_kind(TEST ${module}_test)
    target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    # Optimising them takes longer than they run.
    target_compile_options(${target} PRIVATE -O0)
    set_target_properties(${target} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
    add_test(NAME ${target}
        COMMAND ${PROJECT_SOURCE_DIR}/scripts/run_test_program
            ${PROJECT_BINARY_DIR} $<TARGET_FILE:${target}>
        WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}/tests)
endfunction()

# A measurement program of bench/, at <build folder>/bench.
function(add_benchmark)
    cmake_parse_arguments(BENCHMARK "" "NAME"
        "SOURCES;WINDOWS;POSIX;PRIVATE;WINDOWS_LIBRARIES" ${ARGN})
    reject_unknown_arguments(BENCHMARK)
    if(VS5_PRODUCT)
        add_executable_of_kind(BENCHMARK ${BENCHMARK_NAME}_bench)
        set_target_properties(${target} PROPERTIES
            RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bench)
    endif()
endfunction()

# A libFuzzer target, at <build folder>/fuzzers. SEEDS are folders of first inputs, relative to
# the folder that calls.
function(add_fuzzer)
    cmake_parse_arguments(FUZZER "" "NAME" "SOURCES;PRIVATE;SEEDS" ${ARGN})
    reject_unknown_arguments(FUZZER)
    if(NOT VS5_FUZZ)
        return()
    endif()
    add_executable_of_kind(FUZZER ${FUZZER_NAME}_fuzzer)
    target_include_directories(${target} PRIVATE
        ${PROJECT_SOURCE_DIR}/fuzz ${PROJECT_SOURCE_DIR}/tests)
    target_link_options(${target} PRIVATE -fsanitize=fuzzer)
    set_target_properties(${target} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/fuzzers)
    set(seeds)
    foreach(folder IN LISTS FUZZER_SEEDS)
        cmake_path(ABSOLUTE_PATH folder NORMALIZE)
        string(APPEND seeds "${folder}\n")
    endforeach()
    file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/fuzzers/${target}.seeds CONTENT "${seeds}")
endfunction()

# Called once, after all modules are known: holds the dependencies against the list of modules
# and writes modules.json for the layer check.
function(finish_modules)
    get_property(modules GLOBAL PROPERTY VS5_MODULES)
    set(entries)
    foreach(module IN LISTS modules)
        target_of(target ${module})
        get_property(level GLOBAL PROPERTY VS5_LEVEL_${target})
        get_property(dependencies GLOBAL PROPERTY VS5_DEPENDENCIES_${target})
        set(names)
        foreach(dependency IN LISTS dependencies)
            if(dependency IN_LIST modules)
                list(APPEND names "\"${dependency}\"")
            elseif(NOT dependency MATCHES "::")
                message(FATAL_ERROR "module ${module}: there is no module ${dependency}")
            endif()
        endforeach()
        list(JOIN names ", " names)
        list(APPEND entries "  {\"module\": \"${module}\", \"level\": ${level}, \
\"folder\": \"src/${module}\", \"dependencies\": [${names}]}")
    endforeach()
    list(JOIN entries ",\n" entries)
    file(WRITE ${PROJECT_BINARY_DIR}/modules.json "[\n${entries}\n]\n")
endfunction()
