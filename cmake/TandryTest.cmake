# One test is one executable. It links the libraries that ship and never compiles their sources again.
#
#   tandry_add_test(tst_Name
#       SOURCES tst_Name.cpp ...
#       LIBRARIES tandry_platform ...
#       [ENVIRONMENT NAME=value ...]      added to the environment below, and overrides it
#       [TIMEOUT seconds])                default 120; see tandry_limit_tests
function(tandry_add_test name)
    cmake_parse_arguments(arg "" "TIMEOUT" "SOURCES;LIBRARIES;ENVIRONMENT" ${ARGN})
    if(arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "tandry_add_test(${name}): what is \"${arg_UNPARSED_ARGUMENTS}\"?")
    endif()
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()

    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} tandry_test_support Qt5::Test)
    tandry_enable_warnings(${name})

    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_QUICK_BACKEND=software;LANG=C.UTF-8;TZ=Europe/Paris;${arg_ENVIRONMENT}")
    tandry_limit_tests(${arg_TIMEOUT} ${name})
endfunction()

# tandry_limit_tests(seconds test ...): the time after which ctest ends these tests; five times as long under a sanitizer,
# which records the stack of every allocation.
function(tandry_limit_tests seconds)
    if(CMAKE_CXX_FLAGS MATCHES "-fsanitize=")
        math(EXPR seconds "${seconds} * 5")
    endif()
    set_tests_properties(${ARGN} PROPERTIES TIMEOUT ${seconds})
endfunction()
