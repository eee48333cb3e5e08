# SPDX-License-Identifier: MIT
# What cpack makes of what gets installed: an archive, or the Debian packages. An archive for Windows has the licences of
# what is linked statically, too.
set(CPACK_PACKAGE_NAME qmrk_log)
set(CPACK_PACKAGE_VENDOR Orvane)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_STRIP_FILES ON)

# Run by cpack before it begins: the same sources give the same bytes.
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/QmrkPack.cmake @ONLY
  CONTENT "if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})\n  set(ENV{SOURCE_DATE_EPOCH} @QMRK_SOURCE_TIME@)\nendif()
# An archive for Windows has local times.\nset(ENV{TZ} UTC)\n")
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_BINARY_DIR}/QmrkPack.cmake)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

if(WIN32)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME qmrk_log-${PROJECT_VERSION}-windows-${CMAKE_SYSTEM_PROCESSOR})
  foreach(part IN ITEMS
      boost:libboost1.74-dev cli11:libcli11-dev gcc:gcc-mingw-w64-base mingw-w64:mingw-w64-common
      nlohmann-json:nlohmann-json3-dev zlib:libz-mingw-w64-dev)
    string(REGEX MATCH "^([^:]*):(.*)$" part ${part})
    set(name ${CMAKE_MATCH_1})
    set(copyright /usr/share/doc/${CMAKE_MATCH_2}/copyright)
    if(EXISTS ${copyright})
      install(FILES ${copyright} DESTINATION ${CMAKE_INSTALL_DOCDIR}/licences RENAME ${name}.txt COMPONENT libraries)
      list(APPEND QMRK_LICENCES ${name})
    endif()
  endforeach()
  if(TARGET qmrkctl AND CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
    include(QmrkMsi)
  endif()
elseif(QMRK_DEBIAN_PACKAGES)
  include(QmrkDebian)
else()
  set(CPACK_GENERATOR TGZ)
  set(CPACK_PACKAGE_FILE_NAME qmrk_log-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR})
endif()
include(CPack)
