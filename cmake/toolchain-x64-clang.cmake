# A second compiler for the 64-bit libraries: clang, over the headers, the run time and the binutils of
# the mingw-w64 GCC of toolchain-x64.cmake.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER clang-14)
set(CMAKE_CXX_COMPILER clang++-14)
set(CMAKE_C_COMPILER_TARGET x86_64-w64-mingw32)
set(CMAKE_CXX_COMPILER_TARGET x86_64-w64-mingw32)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_SYSROOT /usr/x86_64-w64-mingw32)
# clang looks for GCC's files by version number, and Debian's folder is named after the flavour too.
execute_process(COMMAND x86_64-w64-mingw32-g++-posix -print-libgcc-file-name
                OUTPUT_VARIABLE gcc_folder OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
cmake_path(GET gcc_folder PARENT_PATH gcc_folder)
set(CMAKE_CXX_FLAGS_INIT "-stdlib++-isystem ${gcc_folder}/include/c++ \
-stdlib++-isystem ${gcc_folder}/include/c++/x86_64-w64-mingw32")
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-B${gcc_folder} -L${gcc_folder} -pthread")
endforeach()
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_CROSSCOMPILING_EMULATOR wine)
