# Warnings are enabled per target, never globally: generated and third-party code is exempt.
option(TANDRY_WARNINGS_AS_ERRORS "Treat warnings as errors, as CI does" OFF)

function(tandry_enable_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
    if(TANDRY_WARNINGS_AS_ERRORS)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    target_compile_definitions(${target} PRIVATE QT_DEPRECATED_WARNINGS)
endfunction()
