# One test is one executable. It links the libraries that ship and never compiles their sources again.
#
#   tandry_add_test(tst_Name
#       SOURCES tst_Name.cpp ...
#       LIBRARIES tandry_platform ...
#       [ENVIRONMENT NAME=value ...]      added to the environment below, and overrides it
#       [TIMEOUT seconds])                default 120; five times as long under a sanitizer
function(tandry_add_test name)
    cmake_parse_arguments(arg "" "TIMEOUT" "SOURCES;LIBRARIES;ENVIRONMENT" ${ARGN})
    if(arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "tandry_add_test(${name}): what is \"${arg_UNPARSED_ARGUMENTS}\"?")
    endif()
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()
    if(CMAKE_CXX_FLAGS MATCHES "-fsanitize=") # records the stack of every allocation
        math(EXPR arg_TIMEOUT "${arg_TIMEOUT} * 5")
    endif()

    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} tandry_test_support Qt5::Test)
    tandry_enable_warnings(${name})

    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_QUICK_BACKEND=software;LANG=C.UTF-8;TZ=Europe/Paris;${arg_ENVIRONMENT}"
        TIMEOUT ${arg_TIMEOUT})
endfunction()
