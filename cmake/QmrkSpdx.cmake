# SPDX-License-Identifier: MIT
# The bill of materials, an SPDX 2.3 document: the product, what it is linked with, and under which licences.
find_package(CLI11 QUIET)
find_package(nlohmann_json QUIET)
find_package(ZLIB QUIET)
string(TOLOWER ${CMAKE_SYSTEM_NAME} QMRK_SYSTEM)
qmrk_source_timestamp(QMRK_SPDX_TIME "%Y-%m-%dT%H:%M:%SZ")

set(QMRK_SPDX_PACKAGES "")
set(QMRK_SPDX_RELATIONS "")
# qmrk_spdx_part(NAME VERSION LICENCE COPYRIGHT HOME RELATION): a part that the product is linked with.
function(qmrk_spdx_part _name _version _licence _copyright _home _relation)
  if(_version STREQUAL "")
    return()
  endif()
  string(REPLACE "_" "-" id ${_name})
  string(CONFIGURE [[,
    {
      "name": "@_name@",
      "SPDXID": "SPDXRef-@id@",
      "versionInfo": "@_version@",
      "downloadLocation": "@_home@",
      "filesAnalyzed": false,
      "licenseConcluded": "@_licence@",
      "licenseDeclared": "@_licence@",
      "copyrightText": "@_copyright@"
    }]] package @ONLY)
  string(CONFIGURE [[,
    {
      "spdxElementId": "SPDXRef-qmrk-log",
      "relationshipType": "@_relation@",
      "relatedSpdxElement": "SPDXRef-@id@"
    }]] relation @ONLY)
  set(QMRK_SPDX_PACKAGES "${QMRK_SPDX_PACKAGES}${package}" PARENT_SCOPE)
  set(QMRK_SPDX_RELATIONS "${QMRK_SPDX_RELATIONS}${relation}" PARENT_SCOPE)
endfunction()

set(linked DYNAMIC_LINK)
if(WIN32)
  set(linked STATIC_LINK)
endif()
qmrk_spdx_part(Boost "${Boost_VERSION_STRING}" BSL-1.0 NOASSERTION https://www.boost.org ${linked})
if(TARGET qmrkctl)
  qmrk_spdx_part(CLI11 "${CLI11_VERSION}" BSD-3-Clause
    "2017-2022 University of Cincinnati, developed by Henry Schreiner under NSF AWARD 1414736"
    https://github.com/CLIUtils/CLI11 STATIC_LINK)
  qmrk_spdx_part(nlohmann_json "${nlohmann_json_VERSION}" MIT "2013-2022 Niels Lohmann"
    https://github.com/nlohmann/json STATIC_LINK)
  get_target_property(libraries qmrkctl_objects LINK_LIBRARIES)
  if("ZLIB::ZLIB" IN_LIST libraries)
    qmrk_spdx_part(zlib "${ZLIB_VERSION_STRING}" Zlib "1995-2022 Jean-loup Gailly and Mark Adler" https://zlib.net ${linked})
  endif()
endif()
set(exception "GPL-3.0-or-later WITH GCC-exception-3.1")
qmrk_spdx_part(gcc_runtime "${CMAKE_CXX_COMPILER_VERSION}" "${exception}" "Free Software Foundation, Inc."
  https://gcc.gnu.org ${linked})

configure_file(${PROJECT_SOURCE_DIR}/cmake/qmrk_log.spdx.json ${PROJECT_BINARY_DIR}/qmrk_log.spdx.json @ONLY)
if(QMRK_DEBIAN_PACKAGES)
  # It names the processor, so the packages of several architectures can only be installed together under names of their own.
  install(FILES ${PROJECT_BINARY_DIR}/qmrk_log.spdx.json DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libqmrk-log1
    RENAME qmrk_log.${CMAKE_SYSTEM_PROCESSOR}.spdx.json COMPONENT libraries)
else()
  install(FILES ${PROJECT_BINARY_DIR}/qmrk_log.spdx.json DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT libraries)
endif()
