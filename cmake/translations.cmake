# Catalogues of the windows' texts, compiled and built into the program. "texts" brings them up to
# date with the sources; tests.texts fails where that is due.

find_program(LRELEASE lrelease PATHS /usr/lib/qt6/bin NO_DEFAULT_PATH REQUIRED)
find_program(LUPDATE lupdate PATHS /usr/lib/qt6/bin NO_DEFAULT_PATH REQUIRED)
find_program(SYSTEM_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH)

set(catalogues ${CMAKE_BINARY_DIR}/translations)
file(MAKE_DIRECTORY ${catalogues})
file(GLOB ts_files CONFIGURE_DEPENDS translations/*.ts)
set(qm_files)
set(resources)
foreach(ts ${ts_files})
  get_filename_component(language ${ts} NAME_WE)
  add_custom_command(
    OUTPUT ${catalogues}/${language}.qm
    COMMAND ${LRELEASE} -silent ${ts} -qm ${catalogues}/${language}.qm
    DEPENDS ${ts})
  list(APPEND qm_files ${catalogues}/${language}.qm)
  string(APPEND resources "<file>${language}.qm</file>\n")
endforeach()
file(CONFIGURE OUTPUT ${catalogues}/translations.qrc CONTENT
"<!DOCTYPE RCC><RCC version=\"1.0\"><qresource prefix=\"/translations\">
${resources}<file alias=\"texts.txt\">${CMAKE_SOURCE_DIR}/translations/texts.txt</file>
</qresource></RCC>\n")
add_custom_command(
  OUTPUT ${catalogues}/qrc_translations.cpp
  COMMAND Qt6::rcc --name translations --output ${catalogues}/qrc_translations.cpp
          ${catalogues}/translations.qrc
  DEPENDS ${qm_files} ${catalogues}/translations.qrc ${CMAKE_SOURCE_DIR}/translations/texts.txt)
set_source_files_properties(${catalogues}/qrc_translations.cpp
                            PROPERTIES SKIP_AUTOGEN ON SKIP_PRECOMPILE_HEADERS ON)
target_sources(kelvro_ui PRIVATE ${catalogues}/qrc_translations.cpp)

add_custom_target(texts COMMAND ${SYSTEM_PYTHON} ${CMAKE_SOURCE_DIR}/translations/texts.py update
                                ${CMAKE_SOURCE_DIR} ${LUPDATE})
