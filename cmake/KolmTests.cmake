# kolm_add_tests(<target> LABEL <unit|module|pages|system> [TIMEOUT <seconds>] [DISPLAY])
#
# One ctest entry, named <target>.<suite>, per GoogleTest suite of the program <target>: one process, and so one Wine
# prefix, per suite. The suites are listed by running the program after each link. LABEL is the ctest label, TIMEOUT
# the limit of one suite (default 120), DISPLAY gives each suite an X server of its own instead of the null display.
# A suite that runs no test, or a program that ends before its tests did, fails.

include_guard(GLOBAL)

set(_KOLM_GTEST_DIR "${CMAKE_CURRENT_LIST_DIR}/gtest")

function(kolm_add_tests target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "DISPLAY" "LABEL;TIMEOUT" "")
    if(arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "kolm_add_tests(${target}): unknown arguments ${arg_UNPARSED_ARGUMENTS}")
    endif()
    if(NOT arg_LABEL MATCHES "^(unit|module|pages|system)$")
        message(FATAL_ERROR "kolm_add_tests(${target}): LABEL is unit, module, pages or system")
    endif()
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()
    set(display null)
    if(arg_DISPLAY)
        set(display xvfb)
    endif()

    # Builds with run-time checks have Wine check the heap too; run_suite.sh looks for what it finds.
    set(heap_check "$<STREQUAL:${KOLM_SANITIZE},trap>")
    set(suites "${CMAKE_CURRENT_BINARY_DIR}/${target}_suites.cmake")
    set(loader "${CMAKE_CURRENT_BINARY_DIR}/${target}_include.cmake")
    get_target_property(emulator ${target} CROSSCOMPILING_EMULATOR)
    if(NOT CMAKE_CROSSCOMPILING OR NOT emulator)
        set(emulator "")
    endif()
    # Only builds with debug information have names for a backtrace.
    set(backtrace "")
    if(CMAKE_BUILD_TYPE STREQUAL "Debug")
        set(backtrace 1)
    endif()
    # A list travels through the command line of the step below with another separator.
    list(JOIN emulator "|" emulator)

    add_custom_command(TARGET ${target} POST_BUILD
        BYPRODUCTS "${suites}"
        COMMAND "${CMAKE_COMMAND}"
            -D "TARGET=${target}"
            -D "PROGRAM=$<TARGET_FILE:${target}>"
            -D "EMULATOR=${emulator}"
            -D "RUNNER=${_KOLM_GTEST_DIR}/run_suite.sh"
            -D "LABEL=${arg_LABEL}"
            -D "TIMEOUT=${arg_TIMEOUT}"
            -D "DISPLAY=${display}"
            -D "BACKTRACE=${backtrace}"
            -D "HEAP_CHECK=${heap_check}"
            -D "OUTPUT=${suites}"
            -P "${_KOLM_GTEST_DIR}/list_suites.cmake"
        COMMENT "Listing the suites of ${target}"
        VERBATIM)
    # The list's form comes from the script: after a change of it, link (and so list) again.
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${_KOLM_GTEST_DIR}/list_suites.cmake")

    file(WRITE "${loader}"
        "if(EXISTS \"${suites}\")\n"
        "    include(\"${suites}\")\n"
        "else()\n"
        "    add_test(${target}_not_built ${target}_not_built)\n"
        "    set_tests_properties(${target}_not_built PROPERTIES LABELS ${arg_LABEL})\n"
        "endif()\n")
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${loader}")
endfunction()
