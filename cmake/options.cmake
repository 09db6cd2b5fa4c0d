# Warnings of our own code are errors. A target takes them by linking to ostrand_warnings.
add_library(ostrand_warnings INTERFACE)
target_compile_options(ostrand_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
target_include_directories(ostrand_warnings INTERFACE ${PROJECT_SOURCE_DIR})

# Every source below the given folders (relative to the project), picked up at the next build when one is added.
function(ostrand_sources out)
  set(sources "")
  foreach(folder IN LISTS ARGN)
    file(GLOB_RECURSE found CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp ${PROJECT_SOURCE_DIR}/${folder}/*.h)
    list(APPEND sources ${found})
  endforeach()
  set(${out} ${sources} PARENT_SCOPE)
endfunction()
