# SPDX-License-Identifier: MIT
include(GoogleTest)

set(QUAVIX_TEST_SHARDS 0 CACHE STRING
    "Number of ctest tests per test program; 0: each test in its own process")

# quavix_tests(TARGET properties...): registers the tests of a test program with ctest. One process per test shows which
# one failed, but starting a thousand processes takes longer than the tests themselves, especially with sanitizers.
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
