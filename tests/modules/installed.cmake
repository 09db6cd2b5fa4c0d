# Installs what was built into a folder of its own, and builds modules against that alone, as a project of somebody else
# would: the example protocols, and the one that docs/writing-a-module.md walks through.
function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(build_project source)
  run(${CMAKE_COMMAND} -S ${source} -B ${source}-build -G ${GENERATOR} -D CMAKE_PREFIX_PATH=${WORK}/prefix
      -D CMAKE_CXX_COMPILER=${COMPILER} -D CMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER} -D CMAKE_CXX_FLAGS=${FLAGS})
  run(${CMAKE_COMMAND} --build ${source}-build)
endfunction()

# The first block of code in a language, as a file.
function(write_block page language file)
  string(FIND "${page}" "```${language}\n" begin)
  string(LENGTH "```${language}\n" mark)
  math(EXPR begin "${begin} + ${mark}")
  string(SUBSTRING "${page}" ${begin} -1 rest)
  string(FIND "${rest}" "```" length)
  string(SUBSTRING "${rest}" 0 ${length} code)
  file(WRITE ${file} "${code}")
endfunction()

file(REMOVE_RECURSE ${WORK})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/prefix)
run(${WORK}/prefix/bin/ostrandcfg --version)

file(COPY ${SOURCE}/examples/protocols DESTINATION ${WORK})
build_project(${WORK}/protocols)
file(GLOB modules ${WORK}/protocols-build/bin/protocols/Proto*)
list(LENGTH modules count)
if(NOT count EQUAL 9)
  message(FATAL_ERROR "nine modules should have been built: ${modules}")
endif()

file(READ ${SOURCE}/docs/writing-a-module.md page)
write_block("${page}" cpp ${WORK}/smallest/telnet.cpp)
write_block("${page}" cmake ${WORK}/smallest/CMakeLists.txt)
build_project(${WORK}/smallest)
