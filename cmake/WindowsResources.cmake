# What files of Windows carry beside their code. On other systems nothing happens.
if(WIN32)
  enable_language(RC)
endif()

# A program whose narrow text is UTF-8.
function(vaultry_add_manifest target)
  if(WIN32)
    target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/cmake/windows/program.rc)
  endif()
endfunction()

# The version in the properties of the file; the type is VFT_APP or VFT_DLL.
function(vaultry_add_version target FILE_NAME FILE_TYPE)
  if(WIN32)
    string(REPLACE "." "," VERSION_NUMBERS ${PROJECT_VERSION}.0)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/windows/version.rc.in ${target}.rc @ONLY)
    target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
  endif()
endfunction()
