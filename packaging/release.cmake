# Sets `release_date`, YYYY-MM-DD, by the newest entry of the package's changelog, whose version must
# be the program's.
set(changelog "${CMAKE_SOURCE_DIR}/debian/changelog")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${changelog}")

file(STRINGS "${changelog}" newest LIMIT_COUNT 1)
if(NOT newest MATCHES "^tar-vex-manager \\(([^)]*)\\)" OR NOT CMAKE_MATCH_1 STREQUAL PROJECT_VERSION)
    message(FATAL_ERROR "${changelog} does not begin with tar-vex-manager ${PROJECT_VERSION}")
endif()

file(STRINGS "${changelog}" signed LIMIT_COUNT 1 REGEX "^ -- ")
if(NOT signed MATCHES ">  [A-Z][a-z][a-z], ([0-9][0-9]) ([A-Z][a-z][a-z]) ([0-9][0-9][0-9][0-9]) ")
    message(FATAL_ERROR "${changelog} does not tell when its newest entry was written")
endif()
set(day "${CMAKE_MATCH_1}")
set(year "${CMAKE_MATCH_3}")
set(months Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec)
list(FIND months "${CMAKE_MATCH_2}" month)
math(EXPR month "${month} + 101")
string(SUBSTRING "${month}" 1 2 month)
set(release_date "${year}-${month}-${day}")
