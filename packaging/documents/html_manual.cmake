find_program(PANDOC pandoc REQUIRED)

# html_manual(NAME DOCDIR): NAME.html of docs/NAME.md, with the pictures that it shows, in the folder
# html of DOCDIR.
function(html_manual name docdir)
    set(page "${CMAKE_CURRENT_BINARY_DIR}/${name}.html")
    set(source "${CMAKE_SOURCE_DIR}/docs/${name}.md")
    add_custom_command(
        OUTPUT ${name}.html
        COMMAND "${PANDOC}" --from gfm --to html5 --standalone --toc --toc-depth 2
                --shift-heading-level-by -1 --variable lang=en --variable maxwidth=60em
                --output "${page}" "${source}"
        DEPENDS "${source}"
        VERBATIM)
    install(FILES "${page}" DESTINATION "${docdir}/html")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${source}")
    file(READ "${source}" text)
    string(REGEX MATCHALL "screenshots/[a-z-]+\\.(png|gif)" pictures "${text}")
    list(TRANSFORM pictures PREPEND "${CMAKE_SOURCE_DIR}/docs/")
    install(FILES ${pictures} DESTINATION "${docdir}/html/screenshots")
    set(documents ${documents} "${page}" PARENT_SCOPE)
    if(BUILD_TESTING)
        add_test(NAME manual_pictures_${name}
                 COMMAND "${CMAKE_SOURCE_DIR}/packaging/documents/check-pictures" "${page}" ${pictures})
    endif()
endfunction()
