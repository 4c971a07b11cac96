# Import library for ksproxy.ax, the kernel-streaming proxy: target ksproxy_import.
#
# The toolchain's own libksproxy.a names the library "ksproxy.dll", which does not exist; modules that link against
# ksproxy_import import KsSynchronousDeviceControl from "ksproxy.ax" by name. The simulator's stand-in of the same name
# serves that import where no camera driver is present.

if(TARGET ksproxy_import)
  return()
endif()

if(NOT CMAKE_DLLTOOL)
  find_program(CMAKE_DLLTOOL NAMES x86_64-w64-mingw32-dlltool dlltool REQUIRED)
endif()

set(_ksproxy_def "${CMAKE_BINARY_DIR}/import/ksproxy.def")
set(_ksproxy_lib "${CMAKE_BINARY_DIR}/import/libksproxy_import.a")

file(CONFIGURE OUTPUT "${_ksproxy_def}"
     CONTENT "LIBRARY \"ksproxy.ax\"\nEXPORTS\n    KsSynchronousDeviceControl\n" @ONLY)

add_custom_command(
  OUTPUT "${_ksproxy_lib}"
  COMMAND "${CMAKE_DLLTOOL}" -m i386:x86-64 -d "${_ksproxy_def}" -l "${_ksproxy_lib}"
  DEPENDS "${_ksproxy_def}"
  COMMENT "Making the import library of ksproxy.ax"
  VERBATIM)
add_custom_target(ksproxy_import_library DEPENDS "${_ksproxy_lib}")

add_library(ksproxy_import INTERFACE)
add_dependencies(ksproxy_import ksproxy_import_library)
target_link_libraries(ksproxy_import INTERFACE "${_ksproxy_lib}")

unset(_ksproxy_def)
unset(_ksproxy_lib)
