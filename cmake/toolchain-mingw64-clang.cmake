# Cross build for Windows x86-64 with clang and lld, on the headers and libraries of mingw-w64 GCC: a second compiler's
# opinion of the same code.
include("${CMAKE_CURRENT_LIST_DIR}/toolchain-mingw64.cmake")

# Where the library of GCC is, by the word of GCC itself.
execute_process(
    COMMAND "${CMAKE_CXX_COMPILER}" -print-libgcc-file-name
    OUTPUT_VARIABLE _kolm_gcc_folder
    OUTPUT_STRIP_TRAILING_WHITESPACE
    COMMAND_ERROR_IS_FATAL ANY)
cmake_path(GET _kolm_gcc_folder PARENT_PATH _kolm_gcc_folder)

set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_C_COMPILER_TARGET x86_64-w64-mingw32)
set(CMAKE_CXX_COMPILER_TARGET x86_64-w64-mingw32)
set(CMAKE_SYSROOT /usr/x86_64-w64-mingw32)

# clang does not know folders like "12-posix". The posix flavor's libraries need that of threads.
set(CMAKE_CXX_FLAGS_INIT
    "-stdlib++-isystem ${_kolm_gcc_folder}/include/c++ \
-stdlib++-isystem ${_kolm_gcc_folder}/include/c++/x86_64-w64-mingw32")
# What GCC's headers have inline and its library has besides, lld would count twice: the comparison of type_info.
foreach(_kolm_kind IN ITEMS EXE SHARED MODULE)
    set(CMAKE_${_kolm_kind}_LINKER_FLAGS_INIT
        "-fuse-ld=lld -pthread -B${_kolm_gcc_folder} -L${_kolm_gcc_folder} -Wl,--allow-multiple-definition")
endforeach()
# lld joins the resources of several sources only in this form.
set(CMAKE_RC_FLAGS_INIT "-O res")

unset(_kolm_kind)
unset(_kolm_gcc_folder)
