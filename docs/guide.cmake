# Makes the page of the guide: the text between head and foot, and an anchor for each heading, named as
# code forges name them.
#   cmake -D CMARK_GFM=... -D GUIDE=guide.md -D PAGE=index.html -P guide.cmake
execute_process(COMMAND ${CMARK_GFM} --extension table ${GUIDE} OUTPUT_VARIABLE body COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "<h2>[^<]*</h2>" headings "${body}")
foreach(heading ${headings})
    string(REGEX REPLACE "</?h2>" "" title "${heading}")
    string(TOLOWER "${title}" anchor)
    string(REGEX REPLACE "[^a-z0-9 -]" "" anchor "${anchor}")
    string(REPLACE " " "-" anchor "${anchor}")
    string(REPLACE "${heading}" "<h2 id=\"${anchor}\">${title}</h2>" body "${body}")
endforeach()
configure_file(${CMAKE_CURRENT_LIST_DIR}/guide.html.in ${PAGE} @ONLY)
