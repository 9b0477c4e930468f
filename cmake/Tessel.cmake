# Flags that all of our own code is built with, and the two kinds of targets there are.

add_library(tessel_flags INTERFACE)
target_compile_options(tessel_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
  # GCC 12 reports overlapping copies inside std::string that can't be (its bug 105651).
  -Wno-restrict)
if(TESSEL_SANITIZE)
  # -O1 keeps the fuzzing runs quick; tests themselves run as well without, and compile in half the time. -g1 gives
  # reports their lines. With sanitizers GCC 12 takes members of std::function inside std::regex for uninitialized;
  # what really is, the sanitizers find.
  target_compile_options(tessel_flags INTERFACE
    $<$<NOT:$<BOOL:$<TARGET_PROPERTY:TESSEL_IS_A_TEST>>>:-O1>
    -g1 -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -Wno-maybe-uninitialized)
  target_link_options(tessel_flags INTERFACE -fsanitize=address,undefined)
endif()
target_include_directories(tessel_flags INTERFACE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR})

# tessel_layer(NAME DEPENDS...): the folder it is called from as one static library.
function(tessel_layer name folder)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  if(NOT sources)
    file(GENERATE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${name}_empty.cpp CONTENT "")
    set(sources ${CMAKE_CURRENT_BINARY_DIR}/${name}_empty.cpp)
  endif()
  add_library(${name} STATIC ${sources})
  target_link_libraries(${name} PUBLIC tessel_flags ${ARGN})
endfunction()
