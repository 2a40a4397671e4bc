# windows_program(TARGET PICTURE): a program without a console window, whose file shows the icon drawn from
# the picture, and its version.
function(windows_program target picture)
    find_program(RSVG_CONVERT rsvg-convert REQUIRED)
    find_program(ICOTOOL icotool REQUIRED)
    set(windows "${PROJECT_SOURCE_DIR}/packaging/windows")
    set(icon "${CMAKE_CURRENT_BINARY_DIR}/${target}.ico")
    set(drawn)
    foreach(size 16 24 32 48 64 128 256)
        set(drawing "${CMAKE_CURRENT_BINARY_DIR}/${target}-${size}.png")
        add_custom_command(
            OUTPUT "${drawing}"
            COMMAND "${RSVG_CONVERT}" --width ${size} --height ${size} --output "${drawing}" "${picture}"
            DEPENDS "${picture}"
            VERBATIM)
        list(APPEND drawn "${drawing}")
    endforeach()
    add_custom_command(
        OUTPUT "${icon}"
        COMMAND "${ICOTOOL}" --create --output "${icon}" ${drawn}
        DEPENDS ${drawn}
        VERBATIM)
    string(REPLACE "." "," numbers "${PROJECT_VERSION}")
    set(resources "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc")
    configure_file("${windows}/program.rc.in" "${resources}" @ONLY)
    set_source_files_properties("${resources}" PROPERTIES OBJECT_DEPENDS "${icon}")
    target_sources(${target} PRIVATE "${resources}")
    set_target_properties(${target} PROPERTIES WIN32_EXECUTABLE ON)
endfunction()
