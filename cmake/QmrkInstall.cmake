# SPDX-License-Identifier: MIT
# What gets installed, in three components: the libraries, what one needs to build programs with them, and the tools.
include(CMakePackageConfigHelpers)

# Programs and libraries find each other wherever the tree is moved.
if(NOT WIN32)
  file(RELATIVE_PATH QMRK_LIBRARY_FROM_PROGRAM
    ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  set_target_properties(qmrk_log PROPERTIES INSTALL_RPATH "$ORIGIN")
endif()

install(TARGETS qmrk_log log_manager log_manager_headers
  EXPORT qmrk_log
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT libraries
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT libraries NAMELINK_COMPONENT development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
foreach(program IN ITEMS LogTest qmrkctl)
  if(TARGET ${program})
    if(NOT WIN32)
      set_target_properties(${program} PROPERTIES INSTALL_RPATH "$ORIGIN/${QMRK_LIBRARY_FROM_PROGRAM}")
    endif()
    install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tools)
  endif()
endforeach()

install(DIRECTORY include/ logmanager/include/
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/qmrk_log COMPONENT development
  FILES_MATCHING PATTERN "*.h" PATTERN "*.hpp")
install(FILES README.md CHANGELOG.md CONTRIBUTING.md SECURITY.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development)
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development
  FILES_MATCHING PATTERN "*.md" PATTERN "*.svg" PATTERN "man" EXCLUDE)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development
  PATTERN "*.sh" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
if(NOT QMRK_DEBIAN_PACKAGES)
  # There the licence is in the file "copyright" of each package.
  install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT libraries)
endif()

set(QMRK_PACKAGE_FOLDER ${CMAKE_INSTALL_LIBDIR}/cmake/qmrk_log)
set_target_properties(log_manager PROPERTIES EXPORT_NAME log_manager)
install(EXPORT qmrk_log FILE qmrk_log-targets.cmake NAMESPACE qmrk:: DESTINATION ${QMRK_PACKAGE_FOLDER}
  COMPONENT development)
configure_package_config_file(cmake/qmrk_log-config.cmake.in ${PROJECT_BINARY_DIR}/qmrk_log-config.cmake
  INSTALL_DESTINATION ${QMRK_PACKAGE_FOLDER})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/qmrk_log-config-version.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/qmrk_log-config.cmake ${PROJECT_BINARY_DIR}/qmrk_log-config-version.cmake
  DESTINATION ${QMRK_PACKAGE_FOLDER} COMPONENT development)

# The prefix of the .pc file follows the file itself, so that an installed tree can be moved.
file(RELATIVE_PATH QMRK_PREFIX_FROM_PC
  ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
get_target_property(QMRK_LOG_MANAGER_NAME log_manager OUTPUT_NAME)
configure_file(cmake/qmrk_log.pc.in ${PROJECT_BINARY_DIR}/qmrk_log.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/qmrk_log.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

if(TARGET qmrkctl)
  include(QmrkToolFiles)
endif()
include(QmrkSpdx)

if(NOT WIN32 AND NOT QMRK_DEBIAN_PACKAGES)
  configure_file(cmake/QmrkAfterInstall.cmake.in ${PROJECT_BINARY_DIR}/QmrkAfterInstall.cmake @ONLY)
  install(SCRIPT ${PROJECT_BINARY_DIR}/QmrkAfterInstall.cmake)
endif()
add_custom_target(uninstall COMMENT "Removing what was installed"
  COMMAND ${CMAKE_COMMAND} -DQMRK_BUILD=${PROJECT_BINARY_DIR} -P ${PROJECT_SOURCE_DIR}/cmake/QmrkUninstall.cmake VERBATIM)
