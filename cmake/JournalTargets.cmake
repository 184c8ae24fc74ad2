# What every target of ours is built with, and the two shapes that repeat: a folder's static library and a test suite.

add_library(journal_flags INTERFACE)
target_include_directories(journal_flags INTERFACE ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/platform/include)
target_compile_options(journal_flags INTERFACE -Wall -Wextra -Wshadow -Werror)
# 0x0A00: Windows 10, the oldest we run on.
target_compile_definitions(journal_flags INTERFACE WINVER=0x0A00 _WIN32_WINNT=0x0A00)
# The C++ runtime goes into each binary, so that nothing has to be installed beside ours.
target_link_options(journal_flags INTERFACE -static)
if(JOURNAL_CHECKED)
  # GNU's linker takes up to ten seconds for a test program, LLVM's a part of one.
  find_program(JOURNAL_LLD ld.lld)
  if(JOURNAL_LLD AND CMAKE_CROSSCOMPILING)
    target_link_options(journal_flags INTERFACE -wrapper ${CMAKE_SOURCE_DIR}/tools/link_with_lld.sh)
  endif()
  target_compile_options(journal_flags INTERFACE -fsanitize=undefined -fsanitize-undefined-trap-on-error)
  target_compile_definitions(journal_flags INTERFACE _GLIBCXX_ASSERTIONS)
endif()

# The system's headers cost more than most of our files, so they are compiled once. win.h alone: what a file needs of the
# C++ library or of ours it still has to include. A target takes this with journal_precompiled, when nothing it is built
# with differs.
file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/precompiled.cpp CONTENT "")
add_library(journal_precompiled OBJECT ${CMAKE_BINARY_DIR}/precompiled.cpp)
target_link_libraries(journal_precompiled PRIVATE journal_flags)
target_precompile_headers(journal_precompiled PRIVATE <win.h>)

function(journal_precompiled target)
  target_precompile_headers(${target} REUSE_FROM journal_precompiled)
endfunction()

# journal_library(<folder> SOURCES <file>... [LIBS <target>...])
# A static library named after its folder.
function(journal_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;LIBS" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC journal_flags ${arg_LIBS})
  journal_precompiled(${name})
endfunction()

# journal_test(<subject> SOURCES <file>... [LIBS <target>...] [LABELS <label>...])
# One program <subject>_tests, run by CTest as one process. Labels: unit, store, ui, e2e.
function(journal_test subject)
  cmake_parse_arguments(arg "" "" "SOURCES;LIBS;LABELS" ${ARGN})
  add_executable(${subject}_tests ${arg_SOURCES})
  target_compile_options(${subject}_tests PRIVATE -O0)
  target_precompile_headers(${subject}_tests REUSE_FROM test_precompiled)
  target_link_libraries(${subject}_tests PRIVATE test_support ${arg_LIBS})
  add_test(NAME ${subject} COMMAND ${subject}_tests)
  set_tests_properties(${subject} PROPERTIES LABELS "${arg_LABELS}" TIMEOUT 300)
endfunction()

# journal_resources(<program target>)
# Links the program's resources (strings, dialogs, menus, pictures) into an executable. The resource compiler does not
# say what it reads, so every file it might is named here: a change in any of them compiles the resources anew.
function(journal_resources target)
  file(GLOB parts CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/res/*)
  list(REMOVE_ITEM parts ${CMAKE_SOURCE_DIR}/res/journal.rc)
  set_source_files_properties(${CMAKE_SOURCE_DIR}/res/journal.rc TARGET_DIRECTORY ${target}
    PROPERTIES OBJECT_DEPENDS "${parts}")
  target_sources(${target} PRIVATE ${CMAKE_SOURCE_DIR}/res/journal.rc)
endfunction()
