# Whether the survey program is built: by default where all its packages are there, or as the option says.

find_package(CLI11 QUIET)
find_package(nlohmann_json 3.11 QUIET)
if(NOT CMAKE_SYSTEM_NAME STREQUAL "Windows")
    find_package(Qt6 6.4 REQUIRED COMPONENTS PrintSupport)
endif()
find_package(QCustomPlotQt6 QUIET)
find_library(TARVEX_XLSXWRITER xlsxwriter)
find_path(TARVEX_XLSXWRITER_INCLUDE xlsxwriter.h)

set(survey_packages TRUE)
if(NOT (CLI11_FOUND AND nlohmann_json_FOUND AND QCustomPlotQt6_FOUND AND TARVEX_XLSXWRITER
        AND TARVEX_XLSXWRITER_INCLUDE AND CMAKE_SYSTEM_NAME STREQUAL "Linux"))
    set(survey_packages FALSE)
endif()

option(TARVEX_BUILD_SURVEY "Build tarvex-survey, which looks at downloaded surveys"
       ${survey_packages})
if(TARVEX_BUILD_SURVEY AND NOT survey_packages)
    message(FATAL_ERROR "TARVEX_BUILD_SURVEY wants CLI11, nlohmann_json, QCustomPlot for Qt 6 and "
                        "libxlsxwriter; see scripts/packages")
endif()

if(TARVEX_BUILD_SURVEY)
    add_library(tarvex_xlsxwriter INTERFACE)
    target_link_libraries(tarvex_xlsxwriter INTERFACE "${TARVEX_XLSXWRITER}")
    target_include_directories(tarvex_xlsxwriter SYSTEM INTERFACE "${TARVEX_XLSXWRITER_INCLUDE}")
endif()
