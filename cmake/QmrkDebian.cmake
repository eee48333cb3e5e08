# SPDX-License-Identifier: MIT
# The three Debian packages: the libraries, what one needs to build programs with them, and the tools with the folders
# and files of the machine. The texts are in packaging/debian/.
set(texts ${PROJECT_SOURCE_DIR}/packaging/debian)
set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL libraries development tools)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Quillmark founders <founders@quillmark.orvane>")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/QmrkDebianFields.cmake)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/include ${PROJECT_BINARY_DIR}/logmanager)

# Each package has a summary of its own, not that of the project.
file(APPEND ${CPACK_PROJECT_CONFIG_FILE} "unset(CPACK_PACKAGE_DESCRIPTION_SUMMARY)\n")

# qmrk_debian_package(COMPONENT NAME SECTION SUMMARY DESCRIPTION): also installs what every package has.
function(qmrk_debian_package _component _name _section _summary _description)
  string(TOUPPER ${_component} key)
  set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${_name} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${_section} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_DESCRIPTION "${_summary}\n${_description}" PARENT_SCOPE)
  set(folder ${CMAKE_INSTALL_DATADIR}/doc/${_name})
  install(FILES ${texts}/copyright DESTINATION ${folder} COMPONENT ${_component})
  install(FILES ${PROJECT_BINARY_DIR}/changelog.Debian.gz DESTINATION ${folder} COMPONENT ${_component})
  if(EXISTS ${texts}/${_name}.lintian-overrides)
    install(FILES ${texts}/${_name}.lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides
      RENAME ${_name} COMPONENT ${_component})
  endif()
endfunction()
execute_process(COMMAND gzip --best --no-name --stdout ${texts}/changelog
  OUTPUT_FILE ${PROJECT_BINARY_DIR}/changelog.Debian.gz COMMAND_ERROR_IS_FATAL ANY)

qmrk_debian_package(libraries libqmrk-log1 libs "logging set-up library of the Quillmark product family"
  "Applications call the library once at their start. It decides from the\nconfiguration files of the family where their log lines go, how each line\nis stamped, and which log classes are on.\n.\nThis package has the set-up library and the log manager.")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_LIBRARIES_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/debian/symbols ${texts}/triggers)
configure_file(cmake/QmrkDebianSymbols.cmake.in ${PROJECT_BINARY_DIR}/QmrkDebianSymbols.cmake @ONLY)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_BINARY_DIR}/QmrkDebianSymbols.cmake)

# boost::function is part of the interface of the log manager, and has another layout in another Boost.
qmrk_debian_package(development libqmrk-log-dev libdevel "logging set-up library of the Quillmark product family: development"
  "Headers, CMake package, pkg-config file, documentation and examples for\nprograms that use libqmrk_log or the log manager.")
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS libraries)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS libboost${Boost_VERSION_MAJOR}.${Boost_VERSION_MINOR}-dev)

qmrk_debian_package(tools qmrk-log-tools admin "logging set-up library of the Quillmark product family: tools"
  "Programs that show and steer the logging of running applications (qmrkctl),\nand that try the set-up of a machine (LogTest).\n.\nAlso the folders and the configuration of the machine, which all\napplications of the family share.")
set(CPACK_COMPONENT_TOOLS_DEPENDS libraries)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS passwd)
set(CPACK_DEBIAN_TOOLS_PACKAGE_CONTROL_EXTRA ${texts}/conffiles ${texts}/postinst ${texts}/prerm ${texts}/postrm)
install(FILES examples/qmrk_logging_GE.cfg examples/qmrk_logging_CA12.cfg
  DESTINATION "${CMAKE_INSTALL_FULL_SYSCONFDIR}/xdg/Orvane Shared/qmrk/logging/cfg" COMPONENT tools)
install(FILES examples/qmrk_logging_CA12.init DESTINATION ${CMAKE_INSTALL_DATADIR}/qmrk_log COMPONENT tools)
install(FILES ${texts}/qmrk-log-tools.sysusers DESTINATION lib/sysusers.d RENAME qmrk-log-tools.conf COMPONENT tools)
install(FILES ${texts}/qmrk-log-tools.tmpfiles DESTINATION lib/tmpfiles.d RENAME qmrk-log-tools.conf COMPONENT tools)
install(FILES integrations/systemd/qmrk-lease-sweep.service integrations/systemd/qmrk-lease-sweep.timer
  DESTINATION lib/systemd/system COMPONENT tools)
