# Writes the ctest entries of one GoogleTest program: see KolmTests.cmake. Run with cmake -P after the program's link.
# Inputs: TARGET PROGRAM EMULATOR RUNNER LABEL TIMEOUT DISPLAY BACKTRACE HEAP_CHECK OUTPUT

cmake_minimum_required(VERSION 3.25)

string(REPLACE "|" ";" EMULATOR "${EMULATOR}")
execute_process(
    COMMAND ${EMULATOR} "${PROGRAM}" --gtest_list_tests
    OUTPUT_VARIABLE listing
    ERROR_VARIABLE errors
    RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "${TARGET} --gtest_list_tests ended with ${status}\n${listing}${errors}")
endif()

# Characters that CMake lists give a meaning to can only stand in the comments behind a "#": those go first.
string(REPLACE "\r" "" listing "${listing}")
string(REGEX REPLACE "  # [^\n]*" "" listing "${listing}")
string(REPLACE ";" "" listing "${listing}")
string(REPLACE "\n" ";" lines "${listing}")

# A suite's line is "Name." (also "Prefix/Name." and "Name/0."); its tests follow with two blanks before each.
set(suites "")
set(disabled "")
set(suite "")
foreach(line IN LISTS lines)
    if(line MATCHES "^([A-Za-z0-9_/]+)\\.$")
        set(suite "${CMAKE_MATCH_1}")
        list(APPEND disabled "${suite}")
        list(APPEND suites "${suite}")
    elseif(line MATCHES "^  ([A-Za-z0-9_/]+)$")
        if(suite STREQUAL "")
            message(FATAL_ERROR "${TARGET}: a test without a suite: ${line}")
        endif()
        # One enabled test is enough to have something to run.
        if(NOT "${suite}.${CMAKE_MATCH_1}" MATCHES "(^|[./])DISABLED_")
            list(REMOVE_ITEM disabled "${suite}")
        endif()
    elseif(NOT line STREQUAL "" AND NOT line MATCHES "^Running main\\(\\) from")
        message(FATAL_ERROR "${TARGET}: not understood in the list of tests: \"${line}\"")
    endif()
endforeach()
if(suites STREQUAL "")
    message(FATAL_ERROR "${TARGET} has no test")
endif()

set(environment "ASAN_OPTIONS=detect_stack_use_after_return=1:strict_string_checks=1"
                "UBSAN_OPTIONS=print_stacktrace=1")
set(limit ${TIMEOUT})
if(NOT EMULATOR STREQUAL "")
    # The emulator ends the program at the limit and clears up; ctest's own limit is for the case that it cannot.
    set(environment "KOLM_WINE_TIMEOUT=${TIMEOUT}" "KOLM_WINE_DISPLAY=${DISPLAY}"
                    "KOLM_WINE_BACKTRACE=${BACKTRACE}")
    if(HEAP_CHECK)
        list(APPEND environment "WINEDEBUG=-all,err+heap,warn+heap")
    endif()
    math(EXPR limit "${TIMEOUT} + 30")
endif()

set(text "# Written by list_suites.cmake after each link of ${TARGET}.\n")
foreach(suite IN LISTS suites)
    set(name "${TARGET}.${suite}")
    set(command "${RUNNER}" ${EMULATOR} "${PROGRAM}" "--gtest_filter=${suite}.*")
    string(APPEND text "add_test([==[${name}]==]")
    foreach(word IN LISTS command)
        string(APPEND text " [==[${word}]==]")
    endforeach()
    string(APPEND text ")\nset_tests_properties([==[${name}]==] PROPERTIES LABELS ${LABEL} TIMEOUT ${limit}"
                       " ENVIRONMENT [==[${environment}]==]")
    if(suite IN_LIST disabled)
        string(APPEND text " DISABLED TRUE")
    endif()
    string(APPEND text ")\n")
endforeach()
file(WRITE "${OUTPUT}" "${text}")
