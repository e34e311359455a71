# One target for each folder. A library's public headers keep their folders below the include root, so a
# header is included by the same path inside this tree and from an installed one.
include_guard(GLOBAL)

add_library(QuorBuild INTERFACE)
target_compile_options(QuorBuild INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
  $<$<BOOL:${QUOR_WARNINGS_AS_ERRORS}>:-Werror>)
target_compile_definitions(QuorBuild INTERFACE
  QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
  QT_DISABLE_DEPRECATED_BEFORE=0x060400)
# A static library contains more than a program uses, at least the meta-objects of all its widgets. A release
# build leaves out code that is not used, and libraries that only such code calls.
target_compile_options(QuorBuild INTERFACE $<$<CONFIG:Release>:-ffunction-sections -fdata-sections>)
target_link_options(QuorBuild INTERFACE $<$<CONFIG:Release>:-Wl,--gc-sections,--as-needed>)
if(QUOR_SANITIZE)
  target_compile_options(QuorBuild INTERFACE
    -fsanitize=${QUOR_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(QuorBuild INTERFACE -fsanitize=${QUOR_SANITIZE})
endif()

function(quor_precompile name)
  if(QUOR_PRECOMPILED_HEADERS)
    target_precompile_headers(${name} PRIVATE ${ARGN})
    # Without it ccache cannot see what a precompiled header contains.
    target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
  endif()
endfunction()

# quor_add_library(<name> ROOT <include root> SOURCES ... HEADERS ... PUBLIC ... PRIVATE ... PRECOMPILE ...)
# Without HEADERS nothing is installed. Installed as Quor::<name>.
function(quor_add_library name)
  cmake_parse_arguments(arg "" "ROOT" "SOURCES;HEADERS;PUBLIC;PRIVATE;PRECOMPILE" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES} ${arg_HEADERS})
  add_library(Quor::${name} ALIAS ${name})
  target_include_directories(${name} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/${arg_ROOT}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/quor>)
  target_compile_features(${name} PUBLIC cxx_std_20)
  target_link_libraries(${name} PUBLIC ${arg_PUBLIC} PRIVATE ${arg_PRIVATE} $<BUILD_INTERFACE:QuorBuild>)
  set_target_properties(${name} PROPERTIES OUTPUT_NAME Quor${name})
  if(arg_PRECOMPILE)
    quor_precompile(${name} ${arg_PRECOMPILE})
  endif()
  foreach(header IN LISTS arg_HEADERS)
    cmake_path(ABSOLUTE_PATH header BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
    cmake_path(RELATIVE_PATH header BASE_DIRECTORY ${PROJECT_SOURCE_DIR}/${arg_ROOT} OUTPUT_VARIABLE relative)
    cmake_path(GET relative PARENT_PATH folder)
    install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quor/${folder} COMPONENT Development)
  endforeach()
  install(TARGETS ${name} EXPORT QuorTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Development)
endfunction()

# quor_add_test(<name> SOURCES ... LINK ... [RUNNER <command> ...] [TIMEOUT s] [THREADED])
# THREADED tests are run by the thread sanitizer too. A RUNNER is a command that the test is run under.
function(quor_add_test name)
  cmake_parse_arguments(arg "THREADED" "TIMEOUT" "SOURCES;LINK;RUNNER;PRECOMPILE" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/Tests)
  target_link_libraries(${name} PRIVATE ${arg_LINK} GTest::gmock QuorBuild)
  if(arg_PRECOMPILE)
    quor_precompile(${name} ${arg_PRECOMPILE})
  endif()
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 120)
  endif()
  add_test(NAME ${name} COMMAND ${arg_RUNNER} $<TARGET_FILE:${name}>)
  set_tests_properties(${name} PROPERTIES TIMEOUT ${arg_TIMEOUT})
  if(NOT arg_RUNNER)
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
  endif()
  set_property(TEST ${name} APPEND PROPERTY
    ENVIRONMENT "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/Tests/Support/leaks.supp:print_suppressions=0"
    "TSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/Tests/Support/races.supp:print_suppressions=0")
  if(arg_THREADED)
    set_tests_properties(${name} PROPERTIES LABELS threaded)
    if(NOT TARGET threaded-tests)
      add_custom_target(threaded-tests)
    endif()
    add_dependencies(threaded-tests ${name})
  endif()
endfunction()

# quor_add_example(<name> SOURCES ... LINK ...): the tests run it, without arguments.
function(quor_add_example name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LINK} QuorBuild)
  set_property(GLOBAL APPEND PROPERTY QUOR_EXAMPLES ${name})
endfunction()

# quor_add_benchmark(<name> SOURCES ... LINK ...)
function(quor_add_benchmark name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LINK} benchmark::benchmark QuorBuild)
  set_property(GLOBAL APPEND PROPERTY QUOR_BENCHMARKS ${name})
endfunction()

# quor_add_fuzzer(<name> SOURCES ... LINK ...): its corpus is Fuzz/corpus/<name>.
function(quor_add_fuzzer name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LINK} QuorBuild)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
endfunction()

# quor_copy_resources(<target> <file>...): the target copies those that have changed into the build tree's
# share/quor, where programs look for their bundles. The files are relative to the current folder.
function(quor_copy_resources name)
  foreach(file IN LISTS ARGN)
    set(copy ${PROJECT_BINARY_DIR}/share/quor/${file})
    add_custom_command(
      OUTPUT ${copy}
      COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_CURRENT_SOURCE_DIR}/${file} ${copy}
      DEPENDS ${file}
      VERBATIM)
    list(APPEND copies ${copy})
  endforeach()
  add_custom_target(${name} ALL DEPENDS ${copies})
endfunction()
