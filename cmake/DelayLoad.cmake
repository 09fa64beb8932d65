# Import libraries that load a DLL at the first call into it instead of at the program's start. For the DLLs that a
# program imports at its start Windows searches the program's own folder first, except for those that are "known
# DLLs" (kernel32 and msvcrt are in every version). A DLL that is loaded later is searched for only where
# WinLib::LimitDllSearch allows. The GNU linker has no switch for this, so the libraries are made here from those of
# the toolchain; their folder precedes the toolchain's in the search for libraries.
set(TAMBLEWICK_DELAY_FOLDER ${CMAKE_BINARY_DIR}/delay)
file(MAKE_DIRECTORY ${TAMBLEWICK_DELAY_FOLDER})

foreach(name comctl32 comdlg32 shell32 ole32 advapi32 bcrypt gdi32 user32)
  set(made ${TAMBLEWICK_DELAY_FOLDER}/lib${name}.a)
  set(functions ${TAMBLEWICK_DELAY_FOLDER}/${name}.def)
  if(EXISTS ${made})
    continue()
  endif()
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=lib${name}.a
    OUTPUT_VARIABLE original OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND ${CMAKE_DLLTOOL} --identify ${original}
    OUTPUT_VARIABLE dll OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND ${CMAKE_NM} --extern-only --defined-only ${original}
    OUTPUT_VARIABLE symbols ERROR_QUIET COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCHALL " T [^\n]+" symbols "${symbols}")
  list(TRANSFORM symbols REPLACE " T " "")
  list(JOIN symbols "\n" symbols)
  file(WRITE ${functions} "EXPORTS\n${symbols}\n")
  # dlltool makes names of symbols from that of the library: without the folder they are the same in each build.
  execute_process(COMMAND ${CMAKE_DLLTOOL} --dllname ${dll} --input-def ${functions} --output-delaylib lib${name}.a
    WORKING_DIRECTORY ${TAMBLEWICK_DELAY_FOLDER} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
