# How every target of this project is compiled and linked.

option(VS5_WERROR "Treat warnings as errors" OFF)
option(VS5_FUZZ "Build the fuzz targets, and nothing else" OFF)
option(VS5_PRECOMPILE "Precompile the headers that are included most" OFF)
set(VS5_SANITIZE "" CACHE STRING "Argument of -fsanitize for all code, or empty")

# The builds for the thread sanitizer and the fuzzers hold only what those run.
if(VS5_FUZZ OR VS5_SANITIZE STREQUAL "thread")
    set(VS5_PRODUCT OFF)
else()
    set(VS5_PRODUCT ON)
endif()

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_COLOR_DIAGNOSTICS ON)

add_library(vs5_warnings INTERFACE)
target_compile_options(vs5_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual
    -Wold-style-cast -Wsuggest-override -Wimplicit-fallthrough
    $<$<CXX_COMPILER_ID:Clang>:-Wreserved-identifier>
    $<$<BOOL:${VS5_WERROR}>:-Werror>)

# Same input, same bytes, wherever the project lies: its path is in no file name that gets
# compiled in (__FILE__, std::source_location, debug information).
add_compile_options(-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=)

if(VS5_SANITIZE)
    add_compile_options(-fsanitize=${VS5_SANITIZE} -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${VS5_SANITIZE})
    if(VS5_SANITIZE MATCHES undefined)
        add_compile_options(-fno-sanitize-recover=undefined
            -fsanitize-ignorelist=${PROJECT_SOURCE_DIR}/cmake/sanitizer_ignore.txt)
    endif()
    add_library(vs5_sanitizer_defaults OBJECT ${PROJECT_SOURCE_DIR}/cmake/sanitizer_defaults.cpp)
else()
    add_library(vs5_sanitizer_defaults INTERFACE)
endif()

if(WIN32)
    add_compile_definitions(
        UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX
        WINVER=0x0A00 _WIN32_WINNT=0x0A00 BOOST_ALL_NO_LIB)
    add_link_options(-static -s -Wl,--no-insert-timestamp)
    if(VS5_WINDOWS_MACHINE STREQUAL x86)
        # The older unit keeps more digits than a float has, so that a stored value differs from
        # the one it was worked out from, and sizes from those of the other builds.
        add_compile_options(-msse2 -mfpmath=sse)
    endif()
endif()
