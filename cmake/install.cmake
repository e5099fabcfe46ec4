# Installation: headers, both libraries, a CMake package giving klo::klo_cpp
# and klo::klo, and a pkg-config file.
include(CMakePackageConfigHelpers)

install(FILES include/klo_c.h include/klo_cpp.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
# The engines that klo loads at run time from its own folder (MIP, MINLP).
install(TARGETS klo_cbc klo_bonmin klo_csdp klo_ipopt LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(TARGETS klo_cpp klo EXPORT kloTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

set(KLO_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/klo)
install(EXPORT kloTargets NAMESPACE klo:: DESTINATION ${KLO_CMAKE_DIR})
configure_package_config_file(cmake/kloConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/kloConfig.cmake INSTALL_DESTINATION ${KLO_CMAKE_DIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/kloConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/kloConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/kloConfigVersion.cmake
        DESTINATION ${KLO_CMAKE_DIR})

# The .pc file finds its prefix relative to itself, so the tree can be moved.
file(RELATIVE_PATH KLO_PC_TO_PREFIX "/root/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/root")
configure_file(cmake/klo.pc.in ${CMAKE_CURRENT_BINARY_DIR}/klo.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/klo.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
