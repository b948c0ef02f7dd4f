# Installs the CMake package (find_package(ztlinear CONFIG) gives ztlinear::ztlinear and
# ztutil::ztutil) and the pkg-config file ztlinear.pc.
include(CMakePackageConfigHelpers)

set(ZT_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/ztlinear)

install(EXPORT ztutilTargets NAMESPACE ztutil:: DESTINATION ${ZT_CMAKE_DIR})
install(EXPORT ztlinearTargets NAMESPACE ztlinear:: DESTINATION ${ZT_CMAKE_DIR})

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/ztlinearConfig.cmake.in
    ${PROJECT_BINARY_DIR}/ztlinearConfig.cmake
    INSTALL_DESTINATION ${ZT_CMAKE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ztlinearConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/ztlinearConfig.cmake
              ${PROJECT_BINARY_DIR}/ztlinearConfigVersion.cmake
        DESTINATION ${ZT_CMAKE_DIR})

configure_file(${PROJECT_SOURCE_DIR}/cmake/ztlinear.pc.in ${PROJECT_BINARY_DIR}/ztlinear.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/ztlinear.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
