find_package(Boost 1.74 REQUIRED COMPONENTS filesystem)
import_as(boost_filesystem Boost::filesystem)

find_package(pugixml 1.13 REQUIRED)
import_as(pugixml pugixml::pugixml)

find_package(nlohmann_json 3.11 REQUIRED)
import_as(json nlohmann_json::nlohmann_json)

find_path(RAPIDJSON_INCLUDE rapidjson/document.h REQUIRED)
import_as(rapidjson)
target_include_directories(vs5::rapidjson SYSTEM INTERFACE ${RAPIDJSON_INCLUDE})

find_package(SDL2 2.26 REQUIRED)
import_as(sdl2 SDL2::SDL2)
# Only Windows needs an entry point of SDL's own.
import_as(sdl2_main)

# Debian's file leaves the version unfilled, so none is asked for.
find_package(SDL2_image REQUIRED)
import_as(sdl2_image SDL2_image::SDL2_image vs5::sdl2)

find_package(OpenGL REQUIRED)
import_as(opengl OpenGL::GL OpenGL::GLU)

find_package(GLEW 2.2 REQUIRED)
import_as(glew GLEW::GLEW vs5::opengl)

find_package(Freetype 2.12 REQUIRED)
import_as(freetype Freetype::Freetype)

find_path(FTGL_INCLUDE FTGL/ftgl.h REQUIRED)
find_library(FTGL_LIBRARY ftgl REQUIRED)
import_as(ftgl ${FTGL_LIBRARY} vs5::freetype vs5::opengl)
target_include_directories(vs5::ftgl SYSTEM INTERFACE ${FTGL_INCLUDE})

# Text as the desktop writes it; Windows has GDI for that.
find_package(PkgConfig REQUIRED)
pkg_check_modules(PANGOCAIRO REQUIRED IMPORTED_TARGET pangocairo>=1.50)
pkg_check_modules(FONTCONFIG REQUIRED IMPORTED_TARGET fontconfig)
import_as(native_text PkgConfig::PANGOCAIRO PkgConfig::FONTCONFIG)

# What SDL does not tell of the keyboard.
find_package(X11 REQUIRED)
import_as(native_input X11::X11)

if(VS5_SANITIZE STREQUAL "thread")
    # The thread sanitizer must see GoogleTest's own locks, so it is built along.
    add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
    import_as(gtest gmock gtest gtest_main)
else()
    find_package(GTest 1.12 REQUIRED)
    import_as(gtest GTest::gmock GTest::gtest GTest::gtest_main)
endif()
