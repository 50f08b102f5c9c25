# tandry_move_clock(target [test ...]): lets the tests of this target set the clock of their own process (testclock.h).
# Without a list, the target's only test has the target's name.
#
# libfaketime is linked rather than preloaded, where the linker can place a library before libc: only the test's clock
# changes, not that of the processes that it starts, and a sanitizer's runtime still comes first.
find_library(TANDRY_FAKETIME NAMES libfaketime.so.1 libfaketime.1.dylib
    PATHS "/usr/lib/${CMAKE_LIBRARY_ARCHITECTURE}" /usr/lib /usr/local/lib /opt/homebrew/lib
    PATH_SUFFIXES faketime)
if(NOT TANDRY_FAKETIME)
    message(FATAL_ERROR "libfaketime is missing: scripts/install-dependencies installs it")
endif()

function(tandry_move_clock target)
    set(tests ${ARGN})
    if(NOT tests)
        set(tests ${target})
    endif()
    set(environment "FAKETIME_NO_CACHE=1;FAKETIME_DONT_FAKE_MONOTONIC=1")
    if(APPLE)
        list(APPEND environment "DYLD_INSERT_LIBRARIES=${TANDRY_FAKETIME}" "DYLD_FORCE_FLAT_NAMESPACE=1")
    else()
        target_link_libraries(${target} PRIVATE -Wl,--no-as-needed "${TANDRY_FAKETIME}" -Wl,--as-needed)
    endif()
    set_property(TEST ${tests} APPEND PROPERTY ENVIRONMENT ${environment})
endfunction()
