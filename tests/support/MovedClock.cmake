# tandry_move_clock(tst_Name): the test may move the clock of its own process (testclock.h).
#
# Linked rather than preloaded, where the linker lets a library stand before libc: so the clock moves in the test alone
# and not in the processes that it starts, and a sanitizer still comes first.
find_library(TANDRY_FAKETIME NAMES libfaketime.so.1 libfaketime.1.dylib
    PATHS "/usr/lib/${CMAKE_LIBRARY_ARCHITECTURE}" /usr/lib /usr/local/lib /opt/homebrew/lib
    PATH_SUFFIXES faketime)
if(NOT TANDRY_FAKETIME)
    message(FATAL_ERROR "libfaketime is missing: scripts/install-dependencies installs it")
endif()

function(tandry_move_clock test)
    set(environment "FAKETIME_NO_CACHE=1;FAKETIME_DONT_FAKE_MONOTONIC=1")
    if(APPLE)
        list(APPEND environment "DYLD_INSERT_LIBRARIES=${TANDRY_FAKETIME}" "DYLD_FORCE_FLAT_NAMESPACE=1")
    else()
        target_link_libraries(${test} PRIVATE -Wl,--no-as-needed "${TANDRY_FAKETIME}" -Wl,--as-needed)
    endif()
    set_property(TEST ${test} APPEND PROPERTY ENVIRONMENT ${environment})
endfunction()
