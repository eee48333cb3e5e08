# SPDX-License-Identifier: MIT
# Runs the compiler on public_calls.cpp as an application of the library would be compiled, and judges the outcome.
# COMPILER, SOURCE, INCLUDE_DIR, STANDARD; then one of
#   REFUSED_CALL=<n>: the call must be refused because the function is deleted (0: everything must compile)
#   MAX_LINES=<n>: HEADER must preprocess to at most so many lines.
set(flags -std=${STANDARD} -Wall -Wextra -pedantic -Werror -I${INCLUDE_DIR} -x c++)

if(DEFINED MAX_LINES)
  execute_process(COMMAND ${COMPILER} ${flags} -E ${HEADER}
    OUTPUT_VARIABLE preprocessed RESULT_VARIABLE result ERROR_VARIABLE errors)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "cannot be preprocessed: ${errors}")
  endif()
  string(REGEX MATCHALL "\n" lineEnds "${preprocessed}")
  list(LENGTH lineEnds lines)
  if(lines LESS 1000 OR lines GREATER MAX_LINES)
    message(FATAL_ERROR "${lines} preprocessed lines")
  endif()
  return()
endif()

execute_process(COMMAND ${COMPILER} ${flags} -DREFUSED_CALL=${REFUSED_CALL} -fsyntax-only ${SOURCE}
  RESULT_VARIABLE result OUTPUT_VARIABLE errors ERROR_VARIABLE errors)
if(REFUSED_CALL EQUAL 0)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "does not compile:\n${errors}")
  endif()
elseif(result EQUAL 0)
  message(FATAL_ERROR "call ${REFUSED_CALL} compiles")
elseif(NOT errors MATCHES "use of deleted function|call to deleted function")
  message(FATAL_ERROR "call ${REFUSED_CALL} fails for another reason:\n${errors}")
endif()
