# Libraries of others, as imported targets with the same names in every build:
# from Debian's packages in Linux builds, from the cached static ones in Windows builds.

# An imported target that only brings others under a name of ours; their headers are not ours
# to warn about.
function(import_as name)
    add_library(vs5::${name} INTERFACE IMPORTED GLOBAL)
    target_link_libraries(vs5::${name} INTERFACE ${ARGN})
endfunction()

if(WIN32)
    include(third_party_windows)
else()
    include(third_party_linux)
endif()
