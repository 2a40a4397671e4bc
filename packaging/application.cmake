# application(ID PICTURE): what a desktop needs to offer a program: the menu entry and the
# software-centre data of their templates in this folder, and the icon in the sizes that desktops use.

find_program(RSVG_CONVERT rsvg-convert REQUIRED)
if(BUILD_TESTING)
    find_program(DESKTOP_FILE_VALIDATE desktop-file-validate REQUIRED)
    find_program(APPSTREAMCLI appstreamcli REQUIRED)
endif()

# application_icons(ID PICTURE): the icon drawn from the picture, which scalable ones are a copy of.
function(application_icons id picture)
    set(icons)
    set(themed "${CMAKE_INSTALL_DATADIR}/icons/hicolor")
    foreach(size 16 22 24 32 48 64 96 128 256 512)
        set(folder "${CMAKE_CURRENT_BINARY_DIR}/icons/${size}x${size}")
        file(MAKE_DIRECTORY "${folder}")
        add_custom_command(
            OUTPUT "${folder}/${id}.png"
            COMMAND "${RSVG_CONVERT}" --width ${size} --height ${size}
                    --output "${folder}/${id}.png" "${picture}"
            DEPENDS "${picture}"
            VERBATIM)
        install(FILES "${folder}/${id}.png" DESTINATION "${themed}/${size}x${size}/apps")
        list(APPEND icons "${folder}/${id}.png")
    endforeach()
    add_custom_target(icons-${id} ALL DEPENDS ${icons})
    install(FILES "${picture}" RENAME ${id}.svg DESTINATION "${themed}/scalable/apps")
endfunction()

# application_tests(ID): the menu entry and the software-centre data as their own tools see them.
function(application_tests id)
    # The validator ends well on some warnings; what it prints counts.
    add_test(NAME desktop_file_${id} COMMAND "${DESKTOP_FILE_VALIDATE}"
                                             "${CMAKE_CURRENT_BINARY_DIR}/${id}.desktop")
    set_tests_properties(desktop_file_${id} PROPERTIES FAIL_REGULAR_EXPRESSION
                                                       "error:;warning:;hint:")
    # The neutral id under .example is no registered domain, which is worth a note elsewhere.
    add_test(NAME metainfo_${id}
             COMMAND "${APPSTREAMCLI}" validate --no-net --strict --pedantic
                     --override=cid-maybe-not-rdns=pedantic
                     "${CMAKE_CURRENT_BINARY_DIR}/${id}.metainfo.xml")
endfunction()

function(application id picture)
    configure_file(${id}.desktop.in ${id}.desktop @ONLY)
    configure_file(${id}.metainfo.xml.in ${id}.metainfo.xml @ONLY)
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/${id}.desktop"
            DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/${id}.metainfo.xml"
            DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")
    application_icons(${id} "${picture}")
    if(BUILD_TESTING)
        application_tests(${id})
    endif()
endfunction()
