# The settings that every target of the project shares, and the three kinds of target it has.

add_library(tarvelo_settings INTERFACE)
target_compile_features(tarvelo_settings INTERFACE cxx_std_20)
target_include_directories(tarvelo_settings INTERFACE "${CMAKE_SOURCE_DIR}")
target_compile_definitions(tarvelo_settings INTERFACE
  QT_NO_CAST_FROM_ASCII
  QT_NO_CAST_TO_ASCII
  QT_NO_CAST_FROM_BYTEARRAY
  QT_NO_URL_CAST_FROM_STRING
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
  QT_STRICT_ITERATORS
  QT_USE_QSTRINGBUILDER
  $<$<NOT:$<CONFIG:Release>>:_GLIBCXX_ASSERTIONS>
  TARVELO_VERSION_MAJOR=${PROJECT_VERSION_MAJOR}
  TARVELO_VERSION_MINOR=${PROJECT_VERSION_MINOR}
  TARVELO_VERSION_REVISION=${PROJECT_VERSION_PATCH})
target_compile_options(tarvelo_settings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast -Woverloaded-virtual
  -Wno-sign-conversion)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 sees overlapping copies in std::string where there are none (its bug 105651).
  target_compile_options(tarvelo_settings INTERFACE -Wno-restrict)
endif()

option(TARVELO_WERROR "Treat warnings as errors" ON)
if(TARVELO_WERROR)
  target_compile_options(tarvelo_settings INTERFACE -Werror)
endif()

# Sanitizers are a property of the whole build: objects with and without them don't mix.
set(TARVELO_SANITIZE "" CACHE STRING "Sanitizers, for example address;undefined")
if(TARVELO_SANITIZE)
  string(REPLACE ";" "," _sanitizers "${TARVELO_SANITIZE}")
  add_compile_options(-fsanitize=${_sanitizers} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${_sanitizers})
  # Two hundred test programs: the usual linker takes three times as long.
  find_program(TARVELO_MOLD mold)
  if(TARVELO_MOLD)
    add_link_options(-fuse-ld=mold)
  endif()
endif()

# What is handed out is built against the usual attacks. Only where it is optimised: the checks of library calls need that,
# and sanitizers have better ones.
set(_hardened FALSE)
if(CMAKE_BUILD_TYPE MATCHES "^(Release|RelWithDebInfo|MinSizeRel)$" AND CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang"
   AND NOT TARVELO_SANITIZE)
  set(_hardened TRUE)
  set(CMAKE_POSITION_INDEPENDENT_CODE ON)
  include(CheckPIESupported)
  check_pie_supported(LANGUAGES CXX)
  target_compile_options(tarvelo_settings INTERFACE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fstack-protector-strong)
  if(UNIX AND NOT APPLE)
    target_link_options(tarvelo_settings INTERFACE -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
  endif()
endif()
if(MINGW)
  # Brings the library that has the check of the stack, which the database has in every build.
  target_link_options(tarvelo_settings INTERFACE -fstack-protector-strong)
endif()

# tarvelo_check_hardening(TARGET)
# Looks into a program that is handed out: the build fails where one lacks the hardening.
function(tarvelo_check_hardening target)
  if(_hardened AND UNIX AND NOT APPLE AND CMAKE_READELF)
    add_custom_command(TARGET ${target} POST_BUILD
      COMMAND ${CMAKE_COMMAND} -DREADELF=${CMAKE_READELF} -DPROGRAM=$<TARGET_FILE:${target}> -P "${CMAKE_SOURCE_DIR}/cmake/Hardening.cmake"
      VERBATIM)
  endif()
endfunction()

# tarvelo_library(NAME SOURCES file... LINK target...)
# One static library a folder. What it may use is what it links.
function(tarvelo_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC tarvelo_settings ${ARG_LINK})
  _tarvelo_moc(${name} ${ARG_LINK})
endfunction()

# tarvelo_program(NAME SOURCES file... LINK target...)
function(tarvelo_program name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE tarvelo_settings ${ARG_LINK})
endfunction()

# tarvelo_host_program(NAME)
# Lets the build run the folder's program NAME as host::NAME. Built for another system, that is the one of the host's own
# build, whose folder TARVELO_HOST_BUILD names.
function(tarvelo_host_program name)
  if(NOT CMAKE_CROSSCOMPILING)
    add_executable(host::${name} ALIAS ${name})
    return()
  endif()
  file(RELATIVE_PATH folder "${CMAKE_SOURCE_DIR}" "${CMAKE_CURRENT_SOURCE_DIR}")
  set(program "${TARVELO_HOST_BUILD}/${folder}/${name}")
  if(NOT EXISTS "${program}")
    message(FATAL_ERROR "${program} is missing: TARVELO_HOST_BUILD has to name a build of this system.")
  endif()
  add_executable(host::${name} IMPORTED GLOBAL)
  set_target_properties(host::${name} PROPERTIES IMPORTED_LOCATION "${program}")
endfunction()

# All that is handed out, as one target.
add_custom_target(instalacao)

# tarvelo_install(TARGET [NAME])
# A program that is handed out: beside the others in a portable folder, in the program folder of the package (as NAME, where
# its own name is too common for one) with its manual page. A plain installation is the portable one; the package's files are
# the component `pacote`.
function(tarvelo_install target)
  get_target_property(name ${target} OUTPUT_NAME)
  if(ARGC GREATER 1)
    set(name ${ARGV1})
  elseif(NOT name)
    set(name ${target})
  endif()
  install(TARGETS ${target} RUNTIME DESTINATION .)
  install(PROGRAMS $<TARGET_FILE:${target}> DESTINATION bin RENAME ${name} COMPONENT pacote EXCLUDE_FROM_ALL)
  # In the language that the program speaks, and for a session in another one, which would be shown no page at all.
  foreach(pages IN ITEMS share/man/pt_BR/man1 share/man/man1)
    install(FILES "${CMAKE_SOURCE_DIR}/packaging/man/${name}.1" DESTINATION ${pages} COMPONENT pacote EXCLUDE_FROM_ALL)
  endforeach()
  tarvelo_check_hardening(${target})
  if(WIN32)
    tarvelo_windows_resource(${target})
  endif()
  add_dependencies(instalacao ${target})
endfunction()

# tarvelo_install_data(file...)
# What is shipped and not the user's to change: beside the programs, in the package's folder of data.
function(tarvelo_install_data)
  install(FILES ${ARGN} DESTINATION .)
  install(FILES ${ARGN} DESTINATION share/tarvelo COMPONENT pacote EXCLUDE_FROM_ALL)
endfunction()

# What a build for Windows has no use for, each with its reason.
set(_left_out)
if(WIN32)
  file(STRINGS "${CMAKE_SOURCE_DIR}/tests/windows.txt" _lines REGEX "^[a-z]")
  foreach(_line IN LISTS _lines)
    string(REGEX MATCH "^[a-zA-Z_]+" _name "${_line}")
    list(APPEND _left_out ${_name})
  endforeach()
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/tests/windows.txt")
endif()

# tarvelo_test(NAME SOURCES file... LINK target...)
# A Qt Test program under ctest, off screen, with the folder of the test data at hand. The limits are for what hangs: Qt's
# own, five minutes a function, ends the long random tests on a busy machine.
function(tarvelo_test name)
  cmake_parse_arguments(ARG "" "TIMEOUT" "SOURCES;LINK" ${ARGN})
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 900)
  endif()
  add_executable(tst_${name} ${ARG_SOURCES})
  if(name IN_LIST _left_out)
    set_target_properties(tst_${name} PROPERTIES EXCLUDE_FROM_ALL ON)
    return()
  endif()
  set_target_properties(tst_${name} PROPERTIES AUTOMOC ON)
  target_compile_definitions(tst_${name} PRIVATE TARVELO_TESTS_DIR="${CMAKE_SOURCE_DIR}/tests")
  # What a test does itself is quick: it is the compiler that a run of all tests waits for.
  target_compile_options(tst_${name} PRIVATE $<$<CONFIG:Debug>:-O0>)
  target_link_libraries(tst_${name} PRIVATE tarvelo_settings Qt6::Test ${ARG_LINK})
  add_test(NAME ${name} COMMAND tst_${name})
  set_tests_properties(${name} PROPERTIES
    TIMEOUT ${ARG_TIMEOUT}
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QTEST_FUNCTION_TIMEOUT=900000;LC_ALL=C.UTF-8;UBSAN_OPTIONS=print_stacktrace=1;LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/support/lsan.supp:print_suppressions=0")
endfunction()

# Folders with windows need moc and uic; the lower layers are kept free of both.
function(_tarvelo_moc name)
  if("ui" IN_LIST ARGN OR "Qt6::Widgets" IN_LIST ARGN)
    set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOUIC ON AUTORCC ON)
  endif()
endfunction()
