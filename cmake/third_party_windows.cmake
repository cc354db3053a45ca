execute_process(
    COMMAND ${PROJECT_SOURCE_DIR}/scripts/build_windows_libraries --where ${VS5_WINDOWS_MACHINE}
    OUTPUT_VARIABLE libraries OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
if(NOT EXISTS ${libraries})
    message(FATAL_ERROR
        "no Windows libraries: run scripts/build_windows_libraries ${VS5_WINDOWS_MACHINE}")
endif()
list(PREPEND CMAKE_FIND_ROOT_PATH ${libraries})
add_compile_options(-ffile-prefix-map=${libraries}/include/=)

# A static library without a CMake file of its own.
function(import_archive name archive)
    add_library(vs5::${name} STATIC IMPORTED GLOBAL)
    set_target_properties(vs5::${name} PROPERTIES
        IMPORTED_LOCATION ${libraries}/lib/lib${archive}.a
        INTERFACE_INCLUDE_DIRECTORIES ${libraries}/include)
    target_link_libraries(vs5::${name} INTERFACE ${ARGN})
endfunction()

import_archive(boost_filesystem boost_filesystem)
target_compile_definitions(vs5::boost_filesystem INTERFACE
    BOOST_FILESYSTEM_STATIC_LINK=1 BOOST_SYSTEM_NO_DEPRECATED)

foreach(name IN ITEMS json rapidjson)
    import_as(${name})
    target_include_directories(vs5::${name} SYSTEM INTERFACE ${libraries}/include)
endforeach()

find_package(pugixml 1.13 CONFIG REQUIRED)
import_as(pugixml pugixml::static)

find_package(SDL2 2.26 CONFIG REQUIRED)
import_as(sdl2 SDL2::SDL2-static)
# With the parent folder too, the headers are <SDL2/...> in every build.
target_include_directories(vs5::sdl2 SYSTEM INTERFACE ${libraries}/include)
# The entry point that hands main its arguments as UTF-8; for programs, not for tests.
import_as(sdl2_main SDL2::SDL2main)

import_archive(sdl2_image SDL2_image vs5::sdl2)

import_as(opengl glu32 opengl32)

import_as(native_text gdi32 uxtheme user32)
import_as(native_input user32)

import_archive(glew glew32 vs5::opengl)
target_compile_definitions(vs5::glew INTERFACE GLEW_STATIC)

find_package(freetype 2.12 CONFIG REQUIRED)
import_as(freetype freetype)

import_archive(ftgl ftgl vs5::freetype vs5::opengl)
target_compile_definitions(vs5::ftgl INTERFACE FTGL_LIBRARY_STATIC)

find_package(GTest 1.12 CONFIG REQUIRED)
import_as(gtest GTest::gmock GTest::gtest GTest::gtest_main)
