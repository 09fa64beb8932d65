# Writes OUTPUT, a source file with the page of a report: PAGE with the style, the scripts, the library with its notice
# and the hashes of the three in their places. A browser runs and applies only what has one of these hashes, so that
# nothing in the data can become a script or a style.
cmake_minimum_required(VERSION 3.25)

# to_base64(out HEX): the base64 text of the bytes that HEX gives, whose number must be 2 more than a multiple of 3,
# as that of a SHA-256 hash is.
function(to_base64 out hex)
  set(alphabet ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/)
  set(text "")
  string(REGEX MATCHALL "......" triples "${hex}00")
  foreach(triple IN LISTS triples)
    foreach(shift 18 12 6 0)
      math(EXPR index "(0x${triple} >> ${shift}) & 63")
      string(SUBSTRING ${alphabet} ${index} 1 character)
      string(APPEND text ${character})
    endforeach()
  endforeach()
  string(REGEX REPLACE ".$" "=" text ${text})
  set(${out} ${text} PARENT_SCOPE)
endfunction()

# source_of_hash(out TEXT): the expression by which a content security policy allows TEXT.
function(source_of_hash out text)
  string(SHA256 hash "${text}")
  to_base64(base64 ${hash})
  set(${out} "'sha256-${base64}'" PARENT_SCOPE)
endfunction()

# array_of(out NAME TEXT): the definition of an array of characters with this name and text; the length of literals is
# limited.
function(array_of out name text)
  string(HEX "${text}" bytes)
  string(REPEAT "." 40 line)
  string(REGEX REPLACE "(${line})" "\\1\n" bytes "${bytes}")
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," bytes "${bytes}")
  set(${out} "constexpr char ${name}[] = {\n${bytes}\n};\n" PARENT_SCOPE)
endfunction()

file(READ ${PAGE} page)
file(READ ${STYLE} style)
file(READ ${LIBRARY} library)
file(READ ${NOTICE} notice)
string(REPLACE "|" ";" SCRIPTS "${SCRIPTS}")
set(script "")
foreach(path IN LISTS SCRIPTS)
  file(READ ${path} text)
  string(APPEND script "${text}\n")
endforeach()

if(notice MATCHES "\\*/")
  message(FATAL_ERROR "The notice of the library does not fit into a comment.")
endif()
set(library "/*\n${notice}*/\n${library}")
set(style "\n${style}")
set(script "\n${script}")
foreach(text "${style}" "${library}" "${script}")
  if(text MATCHES "</[sS]|<!--")
    message(FATAL_ERROR "A script or the style ends its own element.")
  endif()
endforeach()

foreach(part style library script)
  source_of_hash(${part}_hash "${${part}}")
  string(REPLACE "{{${part}}}" "${${part}}" page "${page}")
  string(REPLACE "{{hash of ${part}}}" "${${part}_hash}" page "${page}")
endforeach()

string(FIND "${page}" "{{data}}" place)
if(place EQUAL -1)
  message(FATAL_ERROR "The page has no place for the data.")
endif()
string(SUBSTRING "${page}" 0 ${place} start)
math(EXPR place "${place} + 8")
string(SUBSTRING "${page}" ${place} -1 end)

array_of(start_bytes StartBytes "${start}")
array_of(end_bytes EndBytes "${end}")
file(WRITE ${OUTPUT} "// Made from the sources of the page by MakePage.cmake.
#include \"report/Page.h\"

namespace Report {

namespace {

${start_bytes}
${end_bytes}
}  // namespace

const std::string_view PageStart(StartBytes, sizeof(StartBytes));
const std::string_view PageEnd(EndBytes, sizeof(EndBytes));

}  // namespace Report
")
