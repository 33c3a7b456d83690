# Installs the library, its public headers under include/ovela/, a CMake
# package (find_package(OvelaTuning) -> OvelaTuning::ovelatuning) and a
# pkg-config file. Both packages name every path relative to where they are
# installed, so an installed tree may be moved; what they give a consumer is
# what the interface needs: its headers, libutils' headers, and the library.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(OVELA_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/OvelaTuning)

target_include_directories(ovelatuning PUBLIC $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)

install(TARGETS ovelatuning EXPORT OvelaTuningTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${OVELA_PUBLIC_DIR}/ovela DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
    FILES_MATCHING PATTERN "*.h")
install(EXPORT OvelaTuningTargets NAMESPACE OvelaTuning:: DESTINATION ${OVELA_CMAKE_DIR})

configure_package_config_file(cmake/OvelaTuningConfig.cmake.in
    ${CMAKE_CURRENT_BINARY_DIR}/OvelaTuningConfig.cmake INSTALL_DESTINATION ${OVELA_CMAKE_DIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/OvelaTuningConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/OvelaTuningConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/OvelaTuningConfigVersion.cmake
    DESTINATION ${OVELA_CMAKE_DIR})

# Relative to the .pc file, so that an installed tree can be moved.
file(RELATIVE_PATH OVELA_PC_TO_PREFIX /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
configure_file(cmake/ovelatuning.pc.in ${CMAKE_CURRENT_BINARY_DIR}/ovelatuning.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ovelatuning.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
