# Compiles the host interface header alone for a 32-bit target; skips where -m32 can't work.
execute_process(COMMAND ${CXX} -m32 -std=c++17 -fsyntax-only ${TEST_DIR}/m32_probe.cpp
                RESULT_VARIABLE probe OUTPUT_QUIET ERROR_QUIET)
if(NOT probe EQUAL 0)
    message("SKIPPED: ${CXX} can't build for a 32-bit target here")
    return()
endif()
execute_process(COMMAND ${CXX} -m32 -std=c++17 -Wall -Wextra -Werror -fsyntax-only
                        -I${SOURCE_DIR} ${TEST_DIR}/interfaces_32bit.cpp
                RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "host/velko_interfaces.h doesn't hold its 32-bit layout")
endif()
