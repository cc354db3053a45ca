# The package: <build folder>/package is the root of a complete one. The linker puts the programs
# into their places in it; the target `package` brings the rest, and removes what is gone.

if(WIN32)
    set(VS5_PROGRAM_FOLDER installer/windows/${VS5_WINDOWS_MACHINE})
else()
    set(VS5_PROGRAM_FOLDER installer/linux/${CMAKE_SYSTEM_PROCESSOR})
endif()
set(VS5_PACKAGE_ROOT ${PROJECT_BINARY_DIR}/package)

define_property(GLOBAL PROPERTY VS5_PACKAGE_PROGRAMS BRIEF_DOCS "Targets that lie in the package")

function(put_into_package target folder)
    set_target_properties(${target} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${VS5_PACKAGE_ROOT}/${folder})
    set_property(GLOBAL APPEND PROPERTY VS5_PACKAGE_PROGRAMS ${target})
endfunction()

# Called once, after all programs are known.
function(finish_package)
    if(NOT VS5_PRODUCT)
        return()
    endif()
    get_property(programs GLOBAL PROPERTY VS5_PACKAGE_PROGRAMS)
    set(files)
    foreach(program IN LISTS programs)
        list(APPEND files $<TARGET_FILE:${program}>)
    endforeach()
    add_custom_target(package ALL
        COMMAND ${PROJECT_SOURCE_DIR}/cmake/assemble_package.py
            --source ${PROJECT_SOURCE_DIR}/package
            --fonts ${VS5_FONTS}
            --package ${VS5_PACKAGE_ROOT}
            --program-folder ${VS5_PROGRAM_FOLDER}
            --programs ${files}
        VERBATIM)
    if(programs)
        add_dependencies(package ${programs})
    endif()
endfunction()
