# What a program carries of its own drawings.

# tarvex_pictures(RESULT LIST): in the variable RESULT the list of resources that a library takes among its
# sources: LIST itself, a .qrc of drawings, or, where the toolkit cannot draw them, one of the same drawings
# in the widths that windows_drawing.cpp looks for: ":/tarvex/program.svg/32.png".
function(tarvex_pictures result list)
    if(NOT CMAKE_SYSTEM_NAME STREQUAL "Windows")
        set(${result} "${list}" PARENT_SCOPE)
        return()
    endif()
    find_program(RSVG_CONVERT rsvg-convert REQUIRED)
    get_filename_component(list "${list}" ABSOLUTE)
    get_filename_component(folder "${list}" DIRECTORY)
    get_filename_component(name "${list}" NAME)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${list}")
    file(STRINGS "${list}" drawings REGEX "<file>")
    set(entries "")
    set(rendered)
    foreach(drawing IN LISTS drawings)
        string(REGEX REPLACE ".*<file>(.*)</file>.*" "\\1" drawing "${drawing}")
        file(MAKE_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}/${drawing}")
        foreach(width 16 24 32 48 64 96 128 256 480 960 1440)
            set(picture "${CMAKE_CURRENT_BINARY_DIR}/${drawing}/${width}.png")
            add_custom_command(
                OUTPUT "${picture}"
                COMMAND "${RSVG_CONVERT}" --width ${width} --keep-aspect-ratio --output "${picture}"
                        "${folder}/${drawing}"
                DEPENDS "${folder}/${drawing}"
                VERBATIM)
            string(APPEND entries "<file>${drawing}/${width}.png</file>\n")
            list(APPEND rendered "${picture}")
        endforeach()
    endforeach()
    set(made "${CMAKE_CURRENT_BINARY_DIR}/${name}")
    file(CONFIGURE OUTPUT "${made}" @ONLY
         CONTENT "<RCC>\n<qresource prefix=\"/tarvex\">\n@entries@</qresource>\n</RCC>\n")
    set_source_files_properties("${made}" PROPERTIES OBJECT_DEPENDS "${rendered}")
    set(${result} "${made}" ${rendered} PARENT_SCOPE)
endfunction()
