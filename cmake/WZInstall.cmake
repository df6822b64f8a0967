# Installs the three libraries with their headers and exports the CMake package WZ (target WZ::WZ).
include(CMakePackageConfigHelpers)

foreach(dir NK QM WZSources)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/${dir} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/WZ
          FILES_MATCHING PATTERN "*.hpp")
endforeach()

install(TARGETS NK QM WZ EXPORT WZTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/WZ)
install(EXPORT WZTargets NAMESPACE WZ:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/WZ)

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/WZConfig.cmake.in
  ${PROJECT_BINARY_DIR}/WZConfig.cmake INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/WZ)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/WZConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/WZConfig.cmake ${PROJECT_BINARY_DIR}/WZConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/WZ)
