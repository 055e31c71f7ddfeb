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
if(WIN32)
  target_compile_definitions(quorvane_options INTERFACE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00)
endif()

# A library whose sources are added by the folders.
function(quorvane_library name)
  add_library(${name} STATIC)
  target_link_libraries(${name} PUBLIC quorvane_options)
endfunction()

# A program from the given sources. On Windows it carries the compiler's libraries and wants nothing beside it.
function(quorvane_program name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE quorvane_options)
  if(WIN32)
    target_link_options(${name} PRIVATE -static)
  endif()
endfunction()
