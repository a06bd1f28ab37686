# What an installation brings, and packages of it: behind the target "staged", `cpack` in the build
# folder of the preset "release" makes a Debian package. `cpack --config CPackSourceConfig.cmake` makes a
# tarball of the sources.

include(GNUInstallDirs)
set(KELVRO_HOMEPAGE "https://kelvro.example" CACHE STRING "Address of the project")
set(KELVRO_RELEASE_DATE "2026-11-22")
set(KELVRO_RELEASE_TIME "Sun, 22 Nov 2026 12:00:00 +0000")
set(CPACK_PACKAGE_CONTACT "Kelvro maintainers <maintainers@kelvro.example>")

set(staged ${CMAKE_BINARY_DIR}/staged)  # all files of an installation besides the programs
file(MAKE_DIRECTORY ${staged}/icons)
foreach(name org.kelvro.Kelvro.desktop org.kelvro.Kelvro.mime.xml copyright)
  configure_file(packaging/${name} ${staged}/${name} COPYONLY)
endforeach()
foreach(name org.kelvro.Kelvro.metainfo.xml changelog.Debian)
  configure_file(packaging/${name}.in ${staged}/${name} @ONLY)
endforeach()

add_executable(kelvro-documents EXCLUDE_FROM_ALL cli/documents/main.cpp)
target_link_libraries(kelvro-documents PRIVATE kelvro_cli)
add_executable(kelvro-icons EXCLUDE_FROM_ALL ui/icon_files/main.cpp)
target_link_libraries(kelvro-icons PRIVATE kelvro_ui)

# The tables of --help as manual pages and completion; the icon in all sizes.
add_custom_command(
  OUTPUT ${staged}/done
  COMMAND kelvro-documents ${staged} ${KELVRO_RELEASE_DATE}
  COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen $<TARGET_FILE:kelvro-icons>
          ${staged}/icons
  COMMAND gzip -9nkf kelvro.1 kelvro-cli.1
  COMMAND ${CMAKE_COMMAND} -E copy changelog.Debian changelog
  COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_SOURCE_DIR}/CHANGELOG.md NEWS.md
  COMMAND gzip -9nf changelog NEWS.md
  COMMAND ${CMAKE_COMMAND} -E touch ${staged}/done
  WORKING_DIRECTORY ${staged}
  DEPENDS kelvro-documents kelvro-icons ${CMAKE_SOURCE_DIR}/CHANGELOG.md
          ${staged}/changelog.Debian
  COMMENT "Manual pages, completion and icons")
add_custom_target(staged DEPENDS ${staged}/done)
add_dependencies(staged kelvro kelvro-cli kelvro-pictures)

# Inlined in the install script of the build folder, which finds its files beside itself: a folder
# that has moved since it was configured can still be installed.
file(READ packaging/install.cmake.in install_code)
string(CONFIGURE "${install_code}" install_code @ONLY)
install(CODE "${install_code}")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kelvro)
set(CPACK_PACKAGE_VENDOR "Kelvro")
set(CPACK_PACKAGE_HOMEPAGE_URL "${KELVRO_HOMEPAGE}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Designer of impedance-matching networks")
set(CPACK_PACKAGE_DESCRIPTION
    "Kelvro designs radio-frequency matching networks, resistive attenuators and
the output networks of power amplifiers. An optimizer that knows the losses of
real coils and capacitors refines the components on every keystroke; plots,
tolerance analysis, a Smith chart and exports for simulators come with it.
.
kelvro-cli runs the same calculations without a window.")
set(CPACK_RESOURCE_FILE_LICENSE ${CMAKE_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# What Qt itself says in its dialogs.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "ngspice")
set(CPACK_SOURCE_GENERATOR TGZ)
set(CPACK_SOURCE_IGNORE_FILES "/build/" "/\\\\.git/" "/\\\\.git$" "/\\\\.cache/" "/CMakeUserPresets\\\\.json$")
include(CPack)
