# Warnings are a property of our own targets, never a global flag: generated and third-party code stays out of it.
option(TANDRY_WARNINGS_AS_ERRORS "Treat warnings as errors (what CI does)" OFF)

function(tandry_enable_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
    if(TANDRY_WARNINGS_AS_ERRORS)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    target_compile_definitions(${target} PRIVATE QT_DEPRECATED_WARNINGS)
endfunction()
