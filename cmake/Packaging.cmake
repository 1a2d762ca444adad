# Debian packages, made by scripts/package: the program, the library, the module that draws PNG (which
# brings a library of its own), and what developers need.
set(CPACK_PACKAGE_NAME vaultry)
set(CPACK_PACKAGE_VENDOR "The Vaultry developers")
set(CPACK_PACKAGE_CONTACT "The Vaultry developers <developers@vaultry.invalid>")
# Each package has one of its own, which this would be put before.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_RESOURCE_FILE_README ${PROJECT_SOURCE_DIR}/README.md)
set(CPACK_STRIP_FILES ON)
# Whatever the umask of whoever makes them.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/lib)

# A package with the install component of the same name; what every one of them has to have comes from
# cmake/debian.
function(vaultry_package component package section summary description)
  string(TOUPPER ${component} COMPONENT)
  set(CPACK_DEBIAN_${COMPONENT}_PACKAGE_NAME ${package} PARENT_SCOPE)
  set(CPACK_DEBIAN_${COMPONENT}_PACKAGE_SECTION ${section} PARENT_SCOPE)
  set(CPACK_DEBIAN_${COMPONENT}_DESCRIPTION "${summary}\n${description}" PARENT_SCOPE)
  set(CPACK_DEBIAN_${COMPONENT}_PACKAGE_DEPENDS "${ARGN}" PARENT_SCOPE)
  set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} ${component} PARENT_SCOPE)
  install(CODE "set(PACKAGE ${package})" COMPONENT ${component} EXCLUDE_FROM_ALL)
  install(SCRIPT ${PROJECT_BINARY_DIR}/PackageDocuments.cmake COMPONENT ${component} EXCLUDE_FROM_ALL)
endfunction()

configure_file(cmake/debian/PackageDocuments.cmake.in PackageDocuments.cmake @ONLY)
set(CPACK_COMPONENTS_ALL "")
# The library's package is named by what programs are linked to, so that those of two versions can be
# installed together.
set(LIBRARY_PACKAGE libvaultry${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set(SAME_VERSION "(= ${PROJECT_VERSION})")
vaultry_package(Library ${LIBRARY_PACKAGE} libs
  "dungeon interiors as TES3 plug-ins (library)"
  "Generates dungeon interiors from an XML configuration and writes them as
plug-ins in the TES3 format.")
# Which package programs that are linked to it depend on, and that the system looks for libraries anew.
file(WRITE ${PROJECT_BINARY_DIR}/debian/shlibs
  "libvaultry ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR} ${LIBRARY_PACKAGE} (>= ${PROJECT_VERSION})\n")
file(WRITE ${PROJECT_BINARY_DIR}/debian/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA
  ${PROJECT_BINARY_DIR}/debian/shlibs ${PROJECT_BINARY_DIR}/debian/triggers)
install(FILES cmake/debian/lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides
  RENAME ${LIBRARY_PACKAGE} COMPONENT Library EXCLUDE_FROM_ALL)
vaultry_package(Runtime vaultry utils
  "dungeon interiors as TES3 plug-ins"
  "Generates dungeon interiors from an XML configuration and writes them as
plug-ins in the TES3 format, with maps, reports and checks.
.
The configurations that come with it name the game's own pieces; the game
itself is not needed to make a plug-in."
  "${LIBRARY_PACKAGE} ${SAME_VERSION}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS vaultry-png)
if(TARGET vaultry_png)
  vaultry_package(Png vaultry-png utils
    "maps of vaultry's dungeons as PNG"
    "Lets vaultry draw its maps as pictures in PNG, by librsvg and cairo.
Maps in the terminal, as SVG and as pages do not need it."
    "vaultry ${SAME_VERSION}")
endif()
vaultry_package(Development libvaultry-dev libdevel
  "dungeon interiors as TES3 plug-ins (development files)"
  "Headers of the library that generates dungeon interiors and writes them as
plug-ins in the TES3 format, and what build systems find it by: CMake and
pkg-config. Examples and documentation are in the package vaultry."
  "${LIBRARY_PACKAGE} ${SAME_VERSION}, vaultry ${SAME_VERSION}")

include(CPack)
