# Packages: `cpack --preset deb` makes one of the program with the library, one for drawing PNG (which
# brings a library of its own), and one for developers.
set(CPACK_PACKAGE_NAME vaultry)
set(CPACK_PACKAGE_VENDOR "The Vaultry developers")
set(CPACK_PACKAGE_CONTACT "The Vaultry developers <vaultry@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_RESOURCE_FILE_README ${PROJECT_SOURCE_DIR}/README.md)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL Runtime Development)
if(TARGET vaultry_png)
  list(APPEND CPACK_COMPONENTS_ALL Png)
endif()
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/lib)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME vaultry)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION games)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS vaultry-png)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
  "Generates dungeon interiors from an XML configuration and writes them as\n plug-ins in the TES3 format, with maps, reports and checks.")
set(CPACK_DEBIAN_PNG_PACKAGE_NAME vaultry-png)
set(CPACK_DEBIAN_PNG_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PNG_PACKAGE_DEPENDS "vaultry (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_PNG_DESCRIPTION "Lets vaultry draw its maps as PNG.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libvaultry-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "vaultry (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
  "Headers of the library, and what build systems find it by.")

include(CPack)
