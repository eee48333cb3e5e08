# SPDX-License-Identifier: MIT
# The time of the latest entry in the change log of the packages, QMRK_SOURCE_TIME in seconds: whatever is made carries
# this time, so that the same sources give the same bytes wherever and whenever they are built.
if(DEFINED ENV{SOURCE_DATE_EPOCH})
  set(QMRK_SOURCE_TIME $ENV{SOURCE_DATE_EPOCH})
elseif(CMAKE_HOST_UNIX)
  set(change_log ${PROJECT_SOURCE_DIR}/packaging/debian/changelog)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${change_log})
  file(STRINGS ${change_log} line REGEX "^ -- " LIMIT_COUNT 1)
  string(REGEX REPLACE ".*>  " "" line "${line}")
  execute_process(COMMAND date --utc --date ${line} +%s
    OUTPUT_VARIABLE QMRK_SOURCE_TIME OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
else()
  string(TIMESTAMP QMRK_SOURCE_TIME %s UTC)
endif()

# qmrk_source_timestamp(VARIABLE FORMAT): that time as text.
function(qmrk_source_timestamp _variable _format)
  set(before $ENV{SOURCE_DATE_EPOCH})
  set(ENV{SOURCE_DATE_EPOCH} ${QMRK_SOURCE_TIME})
  string(TIMESTAMP text ${_format} UTC)
  set(${_variable} ${text} PARENT_SCOPE)
  if(before STREQUAL "")
    unset(ENV{SOURCE_DATE_EPOCH})
  else()
    set(ENV{SOURCE_DATE_EPOCH} ${before})
  endif()
endfunction()
