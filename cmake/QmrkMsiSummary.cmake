# SPDX-License-Identifier: MIT
# cmake -D MSI=... -D MSIINFO=... -D MSIBUILD=... -D PACKAGE=... -D TIME=... -D FOLDER=... -P QmrkMsiSummary.cmake: the
# summary of an installer gets this code of the package and this time (UTC), for which wixl takes a random one and now.
set(table ${FOLDER}/_SummaryInformation.idt)
execute_process(COMMAND ${MSIINFO} export ${MSI} _SummaryInformation OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
# 9 is the code, 12 and 13 are the times of making and of saving.
string(REGEX REPLACE "\n9\t[^\r\n]*" "\n9\t{${PACKAGE}}" text "${text}")
string(REGEX REPLACE "\n(1[23])\t[^\r\n]*" "\n\\1\t${TIME}" text "${text}")
file(CONFIGURE OUTPUT ${table} CONTENT "${text}" @ONLY NEWLINE_STYLE CRLF)
execute_process(COMMAND ${CMAKE_COMMAND} -E env TZ=UTC ${MSIBUILD} ${MSI} -i ${table} COMMAND_ERROR_IS_FATAL ANY)
file(REMOVE ${table})
