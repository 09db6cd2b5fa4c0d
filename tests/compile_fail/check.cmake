# cmake -DCOMPILER=... -DINCLUDE=... -DSOURCE=... -DMESSAGE=... -P check.cmake
# With a message the source must fail to compile and the compiler must say it; without one it must compile.
execute_process(
  COMMAND ${COMPILER} -std=c++20 -fsyntax-only -I${INCLUDE} ${SOURCE}
  RESULT_VARIABLE result
  OUTPUT_VARIABLE output
  ERROR_VARIABLE output
  ENCODING UTF-8)

if(MESSAGE STREQUAL "")
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "doesn't compile:\n${output}")
  endif()
  return()
endif()
if(result EQUAL 0)
  message(FATAL_ERROR "compiles, though it must not")
endif()
string(FIND "${output}" "${MESSAGE}" at)
if(at LESS 0)
  message(FATAL_ERROR "fails without saying \"${MESSAGE}\":\n${output}")
endif()
