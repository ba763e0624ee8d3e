# Makes one page of the manual. Links between the Markdown pages become links between the HTML pages.
file(READ ${PAGE} markdown)
string(REGEX MATCH "^# ([^\n]+)" heading "${markdown}")
set(TITLE "${CMAKE_MATCH_1}")
execute_process(COMMAND ${CMARK_GFM} --extension table ${PAGE} OUTPUT_VARIABLE CONTENT RESULT_VARIABLE failed)
if(failed)
    message(FATAL_ERROR "${CMARK_GFM} failed on ${PAGE}: ${failed}")
endif()
string(REGEX REPLACE "href=\"([a-z-]+)\\.md\"" "href=\"\\1.html\"" CONTENT "${CONTENT}")
file(READ ${TEMPLATE} template)
string(CONFIGURE "${template}" html @ONLY)
file(WRITE ${OUTPUT} "${html}") # always, so that the build sees a newer file
