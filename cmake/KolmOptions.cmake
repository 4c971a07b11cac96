# What every target of ours is built with: the interface target kolm_options.

set(KOLM_SANITIZE "" CACHE STRING "Run-time checks: empty, \"trap\" (any target), \"address\" or \"fuzz\" (native builds)")
set_property(CACHE KOLM_SANITIZE PROPERTY STRINGS "" trap address fuzz)

option(KOLM_COVERAGE "Count what of src/ is executed (./coverage)" OFF)

# -- Build types

# Wine's backtraces name functions only with DWARF 4.
set(CMAKE_CXX_FLAGS_DEBUG "-Og -gdwarf-4")
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
# Release binaries carry no symbols; the debug builds are the ones for backtraces.
set(CMAKE_EXE_LINKER_FLAGS_RELEASE "-s")
set(CMAKE_SHARED_LINKER_FLAGS_RELEASE "-s")

# -- Run-time checks: for all code, GoogleTest included, so that they see whole call chains.

if(KOLM_SANITIZE STREQUAL "trap")
    # No sanitizer library exists for this target: undefined behavior ends the program with an illegal instruction.
    add_compile_options(-fsanitize=undefined -fsanitize-undefined-trap-on-error -fstack-protector-strong)
    # Told so, the linker takes the library of the stack check along.
    add_link_options(-fstack-protector-strong)
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
elseif(KOLM_SANITIZE STREQUAL "address")
    if(CMAKE_CROSSCOMPILING)
        message(FATAL_ERROR "KOLM_SANITIZE=address needs a native build")
    endif()
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
elseif(KOLM_SANITIZE STREQUAL "fuzz")
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "KOLM_SANITIZE=fuzz needs clang")
    endif()
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -g -gdwarf-4)
    set(CMAKE_EXE_LINKER_FLAGS_RELEASE "")  # the names in a finding's stack
    add_link_options(-fsanitize=address,undefined)
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
elseif(NOT KOLM_SANITIZE STREQUAL "")
    message(FATAL_ERROR "KOLM_SANITIZE: unknown value \"${KOLM_SANITIZE}\"")
endif()

# -- Coverage: counters in the code of src/ only (src/CMakeLists.txt), their runtime in whatever links it.

if(KOLM_COVERAGE)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        message(FATAL_ERROR "KOLM_COVERAGE needs GCC")
    endif()
    add_link_options(--coverage)
endif()

add_library(kolm_options INTERFACE)
target_compile_features(kolm_options INTERFACE cxx_std_20)
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

# -- Warnings, all of them errors. Platform headers are system headers, so these hold for our own code only.

set(_kolm_warnings
    -Werror
    -Wall
    -Wextra
    -Wpedantic
    -Wcast-qual
    -Wconversion
    -Wextra-semi
    -Wfloat-equal
    -Wformat=2
    -Wold-style-cast
    -Woverloaded-virtual
    -Wredundant-decls
    -Wshadow
    -Wsign-conversion
    -Wsuggest-override
    -Wundef
    -Wunused
    -Wwrite-strings
    # Tables hold the format texts of the decoders; each table's own audit checks them.
    -Wno-format-nonliteral
)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    list(APPEND _kolm_warnings -Wduplicated-branches -Wduplicated-cond -Wimplicit-fallthrough=5 -Wlogical-op)
endif()
# Not -Wnon-virtual-dtor: COM interfaces have none by their binary contract.
# Optimization reports made worse by the sanitizers' extra branches are left to the other builds.
if(KOLM_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    list(APPEND _kolm_warnings -Wno-maybe-uninitialized)
endif()
target_compile_options(kolm_options INTERFACE "$<$<COMPILE_LANGUAGE:CXX>:${_kolm_warnings}>")
unset(_kolm_warnings)

# -- Windows

if(WIN32)
    # UNICODE stays undefined: the A and W forms of calls are spelled out. 0x0601 is Windows 7.
    target_compile_definitions(kolm_options INTERFACE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601 WINVER=0x0601)
    # The runtime goes into each binary: they import only Windows' own libraries.
    target_link_options(kolm_options INTERFACE
        -static
        -Wl,--dynamicbase
        -Wl,--high-entropy-va
        -Wl,--nxcompat
        -Wl,--no-undefined
    )
    # Address randomization works only where a relocation section exists, which GNU's linker would leave out of
    # programs.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_link_options(kolm_options INTERFACE -Wl,--enable-reloc-section)
    endif()
    # Our modules are named without "lib".
    set(CMAKE_SHARED_LIBRARY_PREFIX "")
    set(CMAKE_SHARED_MODULE_PREFIX "")
endif()
