# Helpers shared by every folder.
#
# korvane_library(NAME DIR [DEPS ...]) makes one static library from the sources of a folder.
# Sources are globbed with CONFIGURE_DEPENDS so that adding a file needs no CMake edit.
function(korvane_library name dir)
  file(GLOB _src CONFIGURE_DEPENDS ${dir}/*.cpp ${dir}/*.h)
  add_library(${name} STATIC ${_src})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${ARGN})
endfunction()

# korvane_test(NAME DIR LIBS...) makes one GoogleTest executable from a test folder and
# registers each of its cases with CTest, and the whole program as one more test. The shared
# test main puts widget tests on the offscreen platform with headless dialogs.
function(korvane_test name dir)
  find_package(GTest REQUIRED)
  file(GLOB _src CONFIGURE_DEPENDS ${dir}/*.cpp ${dir}/*.h)
  add_executable(${name} ${_src})
  target_link_libraries(${name} PRIVATE ${ARGN} GTest::gtest Qt6::Test)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(${name} PRIVATE KORVANE_BUILD_DIR="${PROJECT_BINARY_DIR}")
  include(GoogleTest)
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60)
  # The whole program once more in one process, in a shuffled order: no test may lean on the
  # order of the others or on a fresh process.
  add_test(NAME ${name}.AllInOneShuffled COMMAND ${name} --gtest_shuffle)
endfunction()
