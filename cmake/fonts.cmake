# The fonts that the program falls back to, from Debian's packages: VS5_FONTS is a folder with the
# files under the names that the program knows, and their licences. Test programs and fuzzers find
# them beside themselves.

set(VS5_FONTS ${PROJECT_BINARY_DIR}/fonts)

function(provide_font name file package)
    foreach(folder IN ITEMS fonts tests/fonts fuzzers/fonts)
        configure_file(/usr/share/fonts/truetype/${file} "${PROJECT_BINARY_DIR}/${folder}/${name}.ttf" COPYONLY)
        configure_file(/usr/share/doc/${package}/copyright "${PROJECT_BINARY_DIR}/${folder}/${name} licence.txt" COPYONLY)
    endforeach()
endfunction()

provide_font("NotoSans-Regular" noto/NotoSans-Regular.ttf fonts-noto-core)
provide_font("Nanum Gothic" nanum/NanumGothic.ttf fonts-nanum)
