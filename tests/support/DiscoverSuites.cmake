# One CTest entry, LABEL.SUITE, for each test suite of a program: a process for each single test takes longer to
# start, under the sanitizers, than the tests do.
#
#   discover_suites(TARGET LABEL [SUITES REGEX] [LAUNCHER SCRIPT] [ENVIRONMENT VARIABLE=VALUE...])
#
# The program is asked for its suites when CTest starts, so that none is left out; REGEX picks some of them. SCRIPT runs
# the program and its arguments, or ends with 77 where it can't. Without an environment they show nothing on a display
# that is there.

if(NOT CMAKE_SCRIPT_MODE_FILE AND COMMAND add_library)
    set(DISCOVER_SUITES_SCRIPT ${CMAKE_CURRENT_LIST_FILE})

    function(discover_suites target label)
        cmake_parse_arguments(PARSE_ARGV 2 suites "" "SUITES;LAUNCHER" "ENVIRONMENT")
        if(NOT suites_ENVIRONMENT)
            set(suites_ENVIRONMENT TRS8_BTL_TOOLKIT=headless)
        endif()
        set(include_file ${CMAKE_CURRENT_BINARY_DIR}/${label}_suites.cmake)
        file(GENERATE OUTPUT ${include_file} CONTENT
"set(program [==[$<TARGET_FILE:${target}>]==])
set(label [==[${label}]==])
set(wanted [==[${suites_SUITES}]==])
set(launcher [==[${suites_LAUNCHER}]==])
set(environment [==[${suites_ENVIRONMENT}]==])
include([==[${DISCOVER_SUITES_SCRIPT}]==])
")
        set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${include_file})
    endfunction()
    return()
endif()

if(NOT EXISTS ${program})
    add_test(${label}_NOT_BUILT ${program})
    return()
endif()
execute_process(COMMAND ${program} --gtest_list_tests OUTPUT_VARIABLE listing RESULT_VARIABLE failure)
if(failure)
    message(FATAL_ERROR "${program} doesn't tell its tests: ${failure}")
endif()
# A suite stands alone on its line, its tests follow, indented. One whose tests are all disabled is the child
# program of another one.
string(REPLACE "\n" ";" lines "${listing}")
set(suites "")
foreach(line IN LISTS lines)
    if(line MATCHES "^([^ ]+)\\.( |$)")
        set(suite ${CMAKE_MATCH_1})
    elseif(line MATCHES "^  " AND NOT line MATCHES "^  DISABLED_")
        list(APPEND suites ${suite})
    endif()
endforeach()
list(REMOVE_DUPLICATES suites)
if(wanted)
    list(FILTER suites INCLUDE REGEX "${wanted}")
endif()
if(NOT suites)
    message(FATAL_ERROR "${program} has no tests")
endif()
foreach(suite IN LISTS suites)
    add_test(${label}.${suite} ${launcher} ${program} --gtest_filter=${suite}.* --gtest_shuffle)
    set_tests_properties(${label}.${suite} PROPERTIES LABELS ${label} TIMEOUT 240 SKIP_RETURN_CODE 77
                                                      ENVIRONMENT "${environment}")
endforeach()
