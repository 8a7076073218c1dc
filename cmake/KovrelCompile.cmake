# Compile settings that every target shares, through the interface target kovrel_compile.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_library(kovrel_compile INTERFACE)
target_compile_options(kovrel_compile INTERFACE -Wall -Wextra -Wconversion -Werror)

if(WIN32)
  target_compile_definitions(
    kovrel_compile INTERFACE UNICODE _UNICODE WINVER=0x0601 _WIN32_WINNT=0x0601 NOMINMAX
                             WIN32_LEAN_AND_MEAN)
  # Interfaces are laid out by hand (see src/automation), which aliases unrelated types.
  target_compile_options(kovrel_compile INTERFACE -fno-strict-aliasing)
  # One file is all that a user copies: nothing but system DLLs may be imported.
  # The linker drops unused functions, for which each needs a section of its own.
  target_compile_options(kovrel_compile INTERFACE -ffunction-sections -fdata-sections)
  target_link_options(kovrel_compile INTERFACE -Wl,--gc-sections)
  target_link_options(kovrel_compile INTERFACE -static -static-libgcc -static-libstdc++
                      -Wl,--dynamicbase -Wl,--nxcompat)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    target_link_options(kovrel_compile INTERFACE -Wl,--high-entropy-va)
  else()
    # SSE arithmetic as in 64 bits: x87 registers keep more digits than memory, so that the difference
    # of equal times may not be zero.
    target_compile_options(kovrel_compile INTERFACE -msse2 -mfpmath=sse)
  endif()
endif()

if(KOVREL_UB_TRAPS)
  # Script engines align their variables to four bytes only, which the processor allows.
  target_compile_options(kovrel_compile INTERFACE -fsanitize=undefined -fno-sanitize=alignment
                                                  -fsanitize-undefined-trap-on-error)
endif()
if(KOVREL_SANITIZE)
  target_compile_options(kovrel_compile INTERFACE -fsanitize=address,undefined
                                                  -fno-sanitize-recover=all
                                                  -fno-omit-frame-pointer)
  target_link_options(kovrel_compile INTERFACE -fsanitize=address,undefined)
  # What the tests reach, of headers too; the runs of a program add up in one file.
  target_compile_options(
    kovrel_compile INTERFACE -fcoverage-mapping
                             -fprofile-instr-generate=${CMAKE_BINARY_DIR}/profiles/%m.profraw)
  target_link_options(kovrel_compile INTERFACE -fprofile-instr-generate)
endif()

# Headers that most sources of a target include are read once. Each source includes them all the same:
# the second compiler and its linter read them without.
option(KOVREL_PRECOMPILED "Precompile headers" OFF)

# kovrel_precompile(name HEADERS headers... FOR targets...)
function(kovrel_precompile name)
  if(NOT KOVREL_PRECOMPILED)
    return()
  endif()
  cmake_parse_arguments(PARSE_ARGV 1 PRECOMPILE "" "" "HEADERS;FOR;USES")
  file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp CONTENT "")
  add_library(${name} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  target_link_libraries(${name} PRIVATE kovrel_compile ${PRECOMPILE_USES})
  target_precompile_headers(${name} PRIVATE ${PRECOMPILE_HEADERS})
  foreach(target ${PRECOMPILE_FOR})
    target_precompile_headers(${target} REUSE_FROM ${name})
  endforeach()
endfunction()

# kovrel_version_resource(target product description) adds a version resource to a DLL.
function(kovrel_version_resource target product description)
  set(resource ${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc)
  configure_file(${CMAKE_SOURCE_DIR}/cmake/version.rc.in ${resource} @ONLY)
  target_sources(${target} PRIVATE ${resource})
endfunction()
