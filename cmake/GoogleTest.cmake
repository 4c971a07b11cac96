# GoogleTest and GoogleMock, built for the target at hand from the distribution's source package.

set(KOLM_GOOGLETEST_SOURCE /usr/src/googletest CACHE PATH "Source folder of GoogleTest")
if(NOT EXISTS "${KOLM_GOOGLETEST_SOURCE}/CMakeLists.txt")
    message(FATAL_ERROR "No GoogleTest in ${KOLM_GOOGLETEST_SOURCE}: run cmake/setup.sh, "
                        "or configure with -DKOLM_BUILD_TESTS=OFF")
endif()

set(INSTALL_GTEST OFF)
set(CMAKE_POLICY_DEFAULT_CMP0077 NEW)
add_subdirectory("${KOLM_GOOGLETEST_SOURCE}" "${PROJECT_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)
foreach(library IN ITEMS gtest gmock gtest_main gmock_main)
    # Not our code: its warnings are not ours to mend. Its archives stay out of the folder of programs.
    target_compile_options(${library} PRIVATE -w)
    set_target_properties(${library} PROPERTIES
        ARCHIVE_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib" DEBUG_POSTFIX "")
endforeach()
