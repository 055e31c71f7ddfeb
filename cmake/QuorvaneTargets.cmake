# What every target of this project has in common.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()

# ccache is taken when it is there and never asked for.
find_program(QUORVANE_CCACHE ccache)
if(QUORVANE_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${QUORVANE_CCACHE}")
endif()

add_library(quorvane_options INTERFACE)
target_include_directories(quorvane_options INTERFACE "${CMAKE_SOURCE_DIR}")
target_compile_options(quorvane_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
if(QUORVANE_WERROR)
  target_compile_options(quorvane_options INTERFACE -Werror)
endif()
if(QUORVANE_SANITIZE)
  set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_compile_options(quorvane_options INTERFACE ${sanitizers})
  target_link_options(quorvane_options INTERFACE ${sanitizers})
endif()
if(QUORVANE_FUZZ)
  set(hostile -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_compile_options(quorvane_options INTERFACE ${hostile})
  target_link_options(quorvane_options INTERFACE ${hostile})
endif()
if(WIN32)
  target_compile_definitions(quorvane_options INTERFACE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00)
endif()

# With CMAKE_UNITY_BUILD the sources of a folder are compiled as one, which reads the headers once for all of them. That
# hides a missing include, so each source is compiled alone somewhere: by the preset dev, those of platform/windows in
# every build. clang-tidy follows the paths through joined sources only when the name of the file that joins them
# contains "UnifiedSource".
function(quorvane_join_folders name)
  if(CMAKE_UNITY_BUILD) # once all folders have added theirs
    cmake_language(EVAL CODE "cmake_language(DEFER DIRECTORY ${CMAKE_SOURCE_DIR} CALL quorvane_join_now ${name})")
  endif()
endfunction()
function(quorvane_join_now name)
  set_target_properties(${name} PROPERTIES UNITY_BUILD_MODE GROUP)
  get_target_property(directory ${name} SOURCE_DIR)
  get_target_property(sources ${name} SOURCES)
  list(FILTER sources INCLUDE REGEX "\\.cpp$")
  foreach(source IN LISTS sources)
    cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY "${directory}")
    cmake_path(GET source PARENT_PATH folder)
    cmake_path(RELATIVE_PATH folder BASE_DIRECTORY "${CMAKE_SOURCE_DIR}")
    if(NOT folder STREQUAL platform/windows)
      string(MAKE_C_IDENTIFIER "UnifiedSource/${folder}" group)
      set_source_files_properties("${source}" TARGET_DIRECTORY ${name} PROPERTIES UNITY_GROUP "${group}")
    endif()
  endforeach()
endfunction()

# A library whose sources are added by the folders.
function(quorvane_library name)
  add_library(${name} STATIC)
  target_link_libraries(${name} PUBLIC quorvane_options)
  quorvane_join_folders(${name})
endfunction()

# A program from the given sources. On Windows it carries the compiler's libraries and wants nothing beside it.
function(quorvane_program name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE quorvane_options)
  if(WIN32)
    target_link_options(${name} PRIVATE -static)
  endif()
  quorvane_join_folders(${name})
endfunction()
