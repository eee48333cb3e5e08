# SPDX-License-Identifier: MIT
# The target windows-msi: an installer for machines, made by wixl.
find_program(QMRK_WIXL wixl)
find_program(QMRK_MSIBUILD msibuild)
find_program(QMRK_MSIINFO msiinfo)
if(NOT QMRK_WIXL OR NOT QMRK_MSIBUILD OR NOT QMRK_MSIINFO)
  return()
endif()

# The same sources give the same identifiers; another version is another product of the same line.
function(qmrk_msi_identifier _variable _name)
  string(UUID id NAMESPACE 6ba7b811-9dad-11d1-80b4-00c04fd430c8 NAME qmrk_log/${_name} TYPE SHA1 UPPER)
  set(QMRK_MSI_${_variable} ${id} PARENT_SCOPE)
endfunction()
qmrk_msi_identifier(UPGRADES line)
qmrk_msi_identifier(PRODUCT product/${PROJECT_VERSION})
qmrk_msi_identifier(PACKAGE package/${PROJECT_VERSION}/${QMRK_SOURCE_TIME})
qmrk_source_timestamp(QMRK_MSI_TIME "%Y/%m/%d %H:%M:%S")
foreach(component IN ITEMS PROGRAMS LICENCE LINKED_LICENCES TASK GENERIC64 ADAPTATION64 GENERIC32 ADAPTATION32 CLASS_LIST)
  qmrk_msi_identifier(${component} ${component})
endforeach()

# wixl takes only files that are below the folder of its description.
set(stage ${PROJECT_BINARY_DIR}/msi)
set(examples ${PROJECT_SOURCE_DIR}/examples)
set(QMRK_MSI_LICENCE_FILES "")
foreach(name IN LISTS QMRK_LICENCES)
  string(APPEND QMRK_MSI_LICENCE_FILES
    "                <File Id=\"${name}.txt\" Source=\"msi/${CMAKE_INSTALL_DOCDIR}/licences/${name}.txt\"/>\n")
endforeach()
string(STRIP "${QMRK_MSI_LICENCE_FILES}" QMRK_MSI_LICENCE_FILES)
configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/qmrk_log.wxs.in ${PROJECT_BINARY_DIR}/qmrk_log.wxs @ONLY)

set(QMRK_MSI ${PROJECT_BINARY_DIR}/qmrk_log-${PROJECT_VERSION}-windows-${CMAKE_SYSTEM_PROCESSOR}.msi)
# What wixl has no attribute for. What an administrator may have changed stays as it is, at an upgrade and at the removal:
# permanent (16), never overwritten (128), in folders of 64 bits (256). An earlier version goes before anything is installed.
foreach(component IN ITEMS Generic64 Adaptation64 ClassList)
  list(APPEND changes -q "UPDATE `Component` SET `Attributes` = 400 WHERE `Component` = '${component}'")
endforeach()
foreach(component IN ITEMS Generic32 Adaptation32)
  list(APPEND changes -q "UPDATE `Component` SET `Attributes` = 144 WHERE `Component` = '${component}'")
endforeach()
list(APPEND changes -q
  "UPDATE `InstallExecuteSequence` SET `Sequence` = 1450 WHERE `Action` = 'RemoveExistingProducts'")
add_custom_target(windows-msi VERBATIM COMMENT "Making ${QMRK_MSI}"
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${stage}
  # What is stripped gets a time of its own.
  COMMAND ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=${QMRK_SOURCE_TIME}
    ${CMAKE_COMMAND} --install ${PROJECT_BINARY_DIR} --strip --component libraries --prefix ${stage}
  COMMAND ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=${QMRK_SOURCE_TIME}
    ${CMAKE_COMMAND} --install ${PROJECT_BINARY_DIR} --strip --component tools --prefix ${stage}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${stage}/files
  COMMAND ${CMAKE_COMMAND} -E copy ${examples}/qmrk_logging_GE.cfg ${examples}/qmrk_logging_CA12.cfg
    ${examples}/qmrk_logging_CA12.init ${PROJECT_SOURCE_DIR}/packaging/windows/lease_sweep.xml ${stage}/files
  # The times of the files are in the installer.
  COMMAND find ${stage} -exec touch --date=@${QMRK_SOURCE_TIME} {} +
  COMMAND ${CMAKE_COMMAND} -E env TZ=UTC
    ${QMRK_WIXL} --arch x64 --output ${QMRK_MSI} ${PROJECT_BINARY_DIR}/qmrk_log.wxs
  COMMAND ${QMRK_MSIBUILD} ${QMRK_MSI} ${changes}
  COMMAND ${CMAKE_COMMAND} -D MSI=${QMRK_MSI} -D MSIINFO=${QMRK_MSIINFO} -D MSIBUILD=${QMRK_MSIBUILD}
    -D PACKAGE=${QMRK_MSI_PACKAGE} -D TIME=${QMRK_MSI_TIME} -D FOLDER=${PROJECT_BINARY_DIR}
    -P ${PROJECT_SOURCE_DIR}/cmake/QmrkMsiSummary.cmake)
add_dependencies(windows-msi qmrk_log log_manager LogTest qmrkctl)
