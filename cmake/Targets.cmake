# The few functions by which the folders declare what they build, so that warnings, the platform and the
# way a test is run are settled in one place.

# What every target of ours is compiled with.
add_library(tamblewick_options INTERFACE)
target_compile_features(tamblewick_options INTERFACE cxx_std_20)
target_compile_options(tamblewick_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
target_include_directories(tamblewick_options INTERFACE
  ${PROJECT_SOURCE_DIR}/src ${PROJECT_BINARY_DIR}/generated)
if(WIN32)
  target_compile_options(tamblewick_options INTERFACE -fstack-protector-strong)
  target_compile_definitions(tamblewick_options INTERFACE _FORTIFY_SOURCE=2)
endif()

# The header folder of utfcpp alone: the system's include folder must never reach the cross build.
find_path(UTF8CPP_INCLUDE_DIR utf8.h PATHS /usr/include/utf8cpp REQUIRED NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
add_library(utf8cpp INTERFACE)
target_include_directories(utf8cpp SYSTEM INTERFACE ${UTF8CPP_INCLUDE_DIR})

# The headers of nlohmann-json lie in the system's include folder itself, so they are reached through a link.
find_path(NLOHMANN_INCLUDE_DIR nlohmann/json.hpp PATHS /usr/include REQUIRED NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/nlohmann)
file(CREATE_LINK ${NLOHMANN_INCLUDE_DIR}/nlohmann ${PROJECT_BINARY_DIR}/nlohmann/nlohmann SYMBOLIC)
add_library(nlohmann INTERFACE)
target_include_directories(nlohmann SYSTEM INTERFACE ${PROJECT_BINARY_DIR}/nlohmann)

# The platform below the program: Windows itself, or on Linux the stand-in of tests/fakewin, whose
# windows.h is found in the place of the real one.
add_library(platform INTERFACE)
target_link_libraries(platform INTERFACE utf8cpp)
if(WIN32)
  include(cmake/DelayLoad.cmake)
  target_link_libraries(platform INTERFACE
    stackguard ssp comctl32 comdlg32 shell32 ole32 advapi32 bcrypt gdi32 user32 kernel32)
  # Without the moment of linking the same sources give the same file.
  target_link_options(platform INTERFACE -static -Wl,--no-insert-timestamp)
else()
  find_package(Threads REQUIRED)
  target_link_libraries(platform INTERFACE fakewin Threads::Threads)
endif()

# What is compiled into a program for users, on Windows: with tables of lines, in which the files are named from the
# root of the sources, so that the folder of the build shows nowhere.
add_library(tamblewick_lines INTERFACE)
if(WIN32)
  target_compile_options(tamblewick_lines INTERFACE -g1 -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=)
endif()

# tamblewick_shipped(target)
# Moves the symbols and lines of a program or module for users into NAME.debug beside it, which its section
# .gnu_debuglink names, so that an address in a report of a crash can be resolved. NAME.map names all that is linked.
function(tamblewick_shipped name)
  set(file $<TARGET_FILE:${name}>)
  target_link_libraries(${name} PRIVATE tamblewick_lines)
  target_link_options(${name} PRIVATE -Wl,-Map=${file}.map)
  # Both tools write the time into the file otherwise.
  set(dateless ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=0)
  add_custom_command(TARGET ${name} POST_BUILD
    COMMAND ${dateless} ${CMAKE_OBJCOPY} --only-keep-debug ${file} ${file}.debug
    COMMAND ${dateless} ${CMAKE_STRIP} ${file}
    COMMAND ${dateless} ${CMAKE_OBJCOPY} --add-gnu-debuglink=${file}.debug ${file}
    VERBATIM)
endfunction()

# tamblewick_library(name SOURCES file... [LIBRARIES library...])
# One folder of src/ as a static library. LIBRARIES names the folders below it.
function(tamblewick_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC ${arg_LIBRARIES} platform PRIVATE tamblewick_options tamblewick_lines)
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
endfunction()

# tamblewick_program(name [WIN32] SOURCES file... [LIBRARIES library...])
# A program for users, on Windows. It imports only kernel32 and msvcrt at its start and loads the other DLLs at the
# first call into them. Its first statement must be WinLib::LimitDllSearch.
function(tamblewick_program name)
  cmake_parse_arguments(arg "WIN32" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${name} ${arg_SOURCES} $<TARGET_OBJECTS:delayload>)
  set_target_properties(${name} PROPERTIES WIN32_EXECUTABLE ${arg_WIN32})
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} tamblewick_options)
  target_link_directories(${name} BEFORE PRIVATE ${TAMBLEWICK_DELAY_FOLDER})
  target_link_options(${name} PRIVATE -municode)
  tamblewick_shipped(${name})
endfunction()

# tamblewick_resources(target file.rc)
# Adds a resource script of this folder or of src/resources. Ninja does not track what a script includes, so all
# scripts depend on all files of src/resources.
function(tamblewick_resources target script)
  file(GLOB included CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/src/resources/*.h
    ${PROJECT_BINARY_DIR}/generated/resources/*
    ${PROJECT_SOURCE_DIR}/src/resources/*.rc
    ${PROJECT_SOURCE_DIR}/src/resources/icons/*.ico)
  find_file(path ${script} REQUIRED NO_CACHE NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH
    PATHS ${CMAKE_CURRENT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/src/resources)
  set(script ${path})
  list(REMOVE_ITEM included ${script})
  set_source_files_properties(${script} TARGET_DIRECTORY ${target} PROPERTIES OBJECT_DEPENDS "${included}")
  target_sources(${target} PRIVATE ${script})
endfunction()

# How tests are compiled. They run once for each build, so the time to compile them matters most. The assertions of
# GoogleTest contain an if with an else, which gcc reports if they follow an if without braces.
function(tamblewick_test_options target)
  target_compile_definitions(${target} PRIVATE _GLIBCXX_ASSERTIONS)
  target_compile_options(${target} PRIVATE -O0 -Wno-dangling-else)
endfunction()

# tamblewick_test(name SOURCES file... [LIBRARIES library...])
# One test program of GoogleTest cases: run as it is on Linux, through Wine in the cross build.
function(tamblewick_test name)
  cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} testsupport tamblewick_options)
  tamblewick_test_options(${name})
  target_precompile_headers(${name} REUSE_FROM testsupport)
  # Without its drive the path would count as relative under Wine.
  add_test(NAME ${name} COMMAND
    ${name} --gtest_output=xml:$<$<BOOL:${WIN32}>:Z:>${CMAKE_BINARY_DIR}/results/${name}.xml)
  set_tests_properties(${name} PROPERTIES TIMEOUT 900)
  if(WIN32)
    # The tests share one registry and one focus.
    set_tests_properties(${name} PROPERTIES RUN_SERIAL ON)
  endif()
endfunction()
