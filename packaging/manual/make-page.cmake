# Converts a Markdown document to an HTML page: cmake -DCMARK=... -DTEMPLATE=... -DSOURCE=... -DPAGE=... -P make-page.cmake
# Links to other Markdown documents become links to their HTML pages.
execute_process(COMMAND "${CMARK}" --extension table "${SOURCE}"
    OUTPUT_VARIABLE body RESULT_VARIABLE result OUTPUT_STRIP_TRAILING_WHITESPACE)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "${CMARK} failed on ${SOURCE}")
endif()
string(REGEX REPLACE "href=\"([a-z]+)\\.md\"" "href=\"\\1.html\"" body "${body}")
if(NOT body MATCHES "<h1>([^<]+)</h1>")
    message(FATAL_ERROR "${SOURCE} has no title")
endif()
set(title "${CMAKE_MATCH_1}")
configure_file("${TEMPLATE}" "${PAGE}" @ONLY)
