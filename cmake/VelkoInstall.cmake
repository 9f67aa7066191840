# What `cmake --install` puts where, in Debian's layout under any prefix: the extension, the one
# header a host needs, the tool with its man page and the module it reads pictures back with,
# the documents, and the files by which a host's build finds the header and the extension
# (pkg-config and find_package). The last two name every path from their own place, so the tree
# stays usable wherever it is moved.
include(CMakePackageConfigHelpers)

set(VELKO_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/velko-barcode)
set(VELKO_INSTALL_PKGCONFIGDIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
set(VELKO_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/VelkoBarcode)

# Debian keeps liblog in a private folder (lib/<triplet>/android) that its users reach by run
# path, as the build does; the installed files keep that run path.
set_target_properties(com_velko_VelkoBarcod velko-barcode PROPERTIES
                      INSTALL_RPATH_USE_LINK_PATH TRUE)
install(TARGETS com_velko_VelkoBarcod LIBRARY DESTINATION ${VELKO_INSTALL_EXTENSIONDIR})
install(FILES ${PROJECT_SOURCE_DIR}/host/velko_interfaces.h
        DESTINATION ${VELKO_INSTALL_INCLUDEDIR})
install(TARGETS velko-barcode RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
# Beside the extension, where the tool looks for it (tools/cli/library_choice.h).
install(TARGETS velko_reader LIBRARY DESTINATION ${VELKO_INSTALL_EXTENSIONDIR})
install(FILES ${PROJECT_SOURCE_DIR}/tools/cli/velko-barcode.1
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${PROJECT_SOURCE_DIR}/README.md
        DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/velko-barcode)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/
        DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/velko-barcode/docs
        FILES_MATCHING PATTERN "*.md")

file(RELATIVE_PATH VELKO_PREFIX_FROM_PKGCONFIGDIR /${VELKO_INSTALL_PKGCONFIGDIR} /)
string(REGEX REPLACE "/$" "" VELKO_PREFIX_FROM_PKGCONFIGDIR ${VELKO_PREFIX_FROM_PKGCONFIGDIR})
if(CMAKE_DL_LIBS)
    set(VELKO_PKGCONFIG_LIBS -l${CMAKE_DL_LIBS})
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/velko-barcode.pc.in
               ${PROJECT_BINARY_DIR}/velko-barcode.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/velko-barcode.pc DESTINATION ${VELKO_INSTALL_PKGCONFIGDIR})

configure_package_config_file(
    ${CMAKE_CURRENT_LIST_DIR}/VelkoBarcodeConfig.cmake.in
    ${PROJECT_BINARY_DIR}/VelkoBarcodeConfig.cmake INSTALL_DESTINATION ${VELKO_INSTALL_CMAKEDIR}
    PATH_VARS VELKO_INSTALL_INCLUDEDIR VELKO_INSTALL_EXTENSIONDIR)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/VelkoBarcodeConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/VelkoBarcodeConfig.cmake
              ${PROJECT_BINARY_DIR}/VelkoBarcodeConfigVersion.cmake
        DESTINATION ${VELKO_INSTALL_CMAKEDIR})
