# SPDX-License-Identifier: MIT
include(GoogleTest)

set(QUAVIX_TEST_SHARDS 0 CACHE STRING
    "Run each test program as so many tests of ctest; 0: each test in a process of its own")

# quavix_tests(TARGET properties...): makes the tests of a test program known to ctest. A process for each of them says
# at a glance which one failed, but starting a thousand processes takes longer than the tests themselves, much more so
# under a sanitizer.
function(quavix_tests target)
    if(QUAVIX_TEST_SHARDS EQUAL 0)
        gtest_discover_tests(${target} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 120 ${ARGN})
        return()
    endif()
    math(EXPR last "${QUAVIX_TEST_SHARDS} - 1")
    foreach(shard RANGE ${last})
        add_test(NAME ${target}-${shard} COMMAND ${target} --gtest_brief=1)
        set_tests_properties(${target}-${shard} PROPERTIES TIMEOUT 1200 ${ARGN})
        set_property(TEST ${target}-${shard} APPEND PROPERTY ENVIRONMENT
            GTEST_TOTAL_SHARDS=${QUAVIX_TEST_SHARDS} GTEST_SHARD_INDEX=${shard})
    endforeach()
endfunction()
