# SPDX-License-Identifier: MIT
# What belongs to the tools beside the programs: schemas of results, completions of the shells, and files by which other
# systems take part in the logs.
install(DIRECTORY tools/qmrkctl/schemas DESTINATION ${CMAKE_INSTALL_DATADIR}/qmrk_log COMPONENT tools)
if(WIN32)
  return()
endif()

# Each shell looks into a folder of its own for a file that is named after the program in its own way.
set(QMRK_COMPLETION_bash bash-completion/completions/qmrkctl)
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
  set(QMRK_COMPLETION_zsh zsh/vendor-completions/_qmrkctl)
else()
  # Below /usr/local zsh looks into this folder only.
  set(QMRK_COMPLETION_zsh zsh/site-functions/_qmrkctl)
endif()
set(QMRK_COMPLETION_fish fish/vendor_completions.d/qmrkctl.fish)
# A program under a sanitizer does not start everywhere.
if(NOT CMAKE_CROSSCOMPILING AND NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
  foreach(shell IN ITEMS bash zsh fish)
    set(made ${PROJECT_BINARY_DIR}/completions/${shell})
    add_custom_command(OUTPUT ${made} DEPENDS qmrkctl VERBATIM
      COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/completions
      COMMAND qmrkctl completion ${shell} > ${made})
    list(APPEND completions ${made})
    cmake_path(SET place ${CMAKE_INSTALL_DATADIR}/${QMRK_COMPLETION_${shell}})
    cmake_path(GET place PARENT_PATH folder)
    cmake_path(GET place FILENAME name)
    install(FILES ${made} DESTINATION ${folder} RENAME ${name} COMPONENT tools)
  endforeach()
  add_custom_target(completions ALL DEPENDS ${completions})
endif()

# Man pages carry the time of the sources, too.
find_program(QMRK_SCDOC scdoc)
if(QMRK_SCDOC)
  file(GLOB pages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/man/*.scd)
  foreach(page IN LISTS pages)
    cmake_path(GET page STEM LAST_ONLY name)
    string(REGEX MATCH "[0-9]$" section ${name})
    set(made ${PROJECT_BINARY_DIR}/man/${name}.gz)
    add_custom_command(OUTPUT ${made} DEPENDS ${page} VERBATIM
      COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/man
      COMMAND ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=${QMRK_SOURCE_TIME}
        sh -c "\"$0\" <\"$1\" | gzip --best --no-name >\"$2\"" ${QMRK_SCDOC} ${page} ${made})
    list(APPEND made_pages ${made})
    install(FILES ${made} DESTINATION ${CMAKE_INSTALL_MANDIR}/man${section} COMPONENT tools)
  endforeach()
  add_custom_target(man_pages ALL DEPENDS ${made_pages})
elseif(QMRK_DEBIAN_PACKAGES)
  message(FATAL_ERROR "scdoc was not found, which makes the man pages. On Debian: apt-get install scdoc")
else()
  message(STATUS "No man pages: scdoc was not found, which makes them. On Debian: apt-get install scdoc")
endif()

# Examples, to be adapted: none of them is at work where they are installed.
if(QMRK_DEBIAN_PACKAGES)
  set(QMRK_INTEGRATIONS_FOLDER ${CMAKE_INSTALL_DATADIR}/doc/qmrk-log-tools/examples)
else()
  set(QMRK_INTEGRATIONS_FOLDER ${CMAKE_INSTALL_DOCDIR}/examples)
endif()
if(EXISTS ${PROJECT_SOURCE_DIR}/integrations)
  install(DIRECTORY integrations DESTINATION ${QMRK_INTEGRATIONS_FOLDER} COMPONENT tools
    PATTERN "*.cpp" EXCLUDE PATTERN "*.h" EXCLUDE PATTERN "CMakeLists.txt" EXCLUDE)
endif()
