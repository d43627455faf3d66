# tarvex_library(NAME DEPS folder... [LINK target...])
#
# One static library made of all sources of the current folder. DEPS is the folder's whole permission: it
# links these folders, and the includes test fails when a file of the folder includes any other. LINK names
# libraries from outside the project.
function(tarvex_library name)
  cmake_parse_arguments(arg "" "" "DEPS;LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  list(FILTER sources EXCLUDE REGEX "_main\\.cpp$|_generator\\.cpp$")
  set(scope PUBLIC)
  if(sources)
    add_library(tarvex_${name} STATIC ${sources})
  else()
    add_library(tarvex_${name} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_include_directories(tarvex_${name} ${scope} ${PROJECT_SOURCE_DIR})
  target_link_libraries(tarvex_${name} ${scope} fmt::fmt ${arg_LINK})
  foreach(dep ${arg_DEPS})
    target_link_libraries(tarvex_${name} ${scope} tarvex_${dep})
  endforeach()
endfunction()

# tarvex_tests(FOLDER) builds tests/FOLDER/*_test.cpp, and the helpers beside them, into one program and
# registers its tests. Does nothing while the folder has no tests.
function(tarvex_tests folder)
  cmake_parse_arguments(arg "" "" "LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
  if(NOT sources OR NOT TARGET tarvex_${folder})
    return()
  endif()
  add_executable(${folder}_tests ${sources})
  target_link_libraries(${folder}_tests PRIVATE tarvex_${folder} ${arg_LINK} GTest::gtest GTest::gtest_main)
  target_precompile_headers(${folder}_tests PRIVATE <gtest/gtest.h>)
  add_test(NAME ${folder} COMMAND ${folder}_tests)
endfunction()
