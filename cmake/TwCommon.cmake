# Shared settings of both builds and the helpers the module lists use.

# Flags for every target of ours (not for third-party code).
add_library(tw_flags INTERFACE)
target_compile_options(tw_flags INTERFACE -Wall -Wextra -Wno-unused-parameter)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(tw_flags INTERFACE -finput-charset=UTF-8 -fexec-charset=cp1252)
else()
  # clang (the fuzzing build) only knows UTF-8 literals; the fuzz targets
  # check robustness and round trips, which do not depend on the code page.
  set(TW_UTF8_LITERALS ON)
endif()

if(TW_WINDOWS)
  target_compile_definitions(tw_flags INTERFACE
    _WIN32_WINNT=0x0A00 WINVER=0x0A00 _WIN32_IE=0x0A00
    __USE_MINGW_ANSI_STDIO=1 NOMINMAX STRICT)
  # One shared C++ runtime for all modules: framework exceptions cross DLLs.
  target_link_options(tw_flags INTERFACE -shared-libgcc)
  set(CMAKE_RC_FLAGS "${CMAKE_RC_FLAGS} --codepage=65001" CACHE STRING "" FORCE)

  # The runtime DLLs beside the binaries, so that Wine and a user find them.
  set(TW_RUNTIME_DLLS)
  foreach(dll libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${dll}
                    OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT IS_ABSOLUTE "${path}")
      find_file(path_${dll} ${dll} PATHS /usr/x86_64-w64-mingw32/lib NO_DEFAULT_PATH
                NO_CMAKE_FIND_ROOT_PATH)
      set(path ${path_${dll}})
    endif()
    list(APPEND TW_RUNTIME_DLLS ${path})
  endforeach()
  add_custom_target(tw_runtime_dlls ALL
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/bin
    COMMAND ${CMAKE_COMMAND} -E copy_if_different ${TW_RUNTIME_DLLS} ${CMAKE_BINARY_DIR}/bin/
    COMMENT "Copying the C++ runtime DLLs")

  # Every Windows executable runs under Wine through our runner.
  configure_file(${CMAKE_SOURCE_DIR}/tools/winerun.in ${CMAKE_BINARY_DIR}/winerun @ONLY
                 FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                  WORLD_READ WORLD_EXECUTE)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_BINARY_DIR}/winerun)
else()
  set(TW_SANITIZE_FLAGS -fsanitize=address,undefined -fno-sanitize-recover=undefined
                        -fno-omit-frame-pointer)
  option(TW_SANITIZE "Build the native units with ASan and UBSan" ON)
  option(TW_FUZZ "Build the libFuzzer targets (clang)" OFF)
  if(TW_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
  elseif(TW_SANITIZE)
    add_compile_options(${TW_SANITIZE_FLAGS})
    add_link_options(${TW_SANITIZE_FLAGS})
  endif()
  target_compile_definitions(tw_flags INTERFACE AFX_STATIC TWUTIL_STATIC TWSTDDLG_STATIC)
endif()

# GoogleTest from the Debian sources, built by each build with its compiler.
macro(tw_setup_googletest)
  set(gtest_force_shared_crt ON CACHE BOOL "" FORCE)
  set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
  if(TW_WINDOWS)
    set(gtest_disable_pthreads ON CACHE BOOL "" FORCE)
  endif()
  add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
endmacro()

# A module: a DLL in the Windows build, a static library of its portable
# units in the native build.
#   tw_add_module(name EXPORT_DEFINE def PORTABLE srcs... WIN srcs... NATIVE srcs...
#                 DEPENDS libs... WIN_LIBS libs... RC files...)
function(tw_add_module name)
  cmake_parse_arguments(M "" "EXPORT_DEFINE" "PORTABLE;WIN;NATIVE;DEPENDS;WIN_LIBS;RC;INCLUDE" ${ARGN})
  if(TW_WINDOWS)
    add_library(${name} SHARED ${M_PORTABLE} ${M_WIN} ${M_RC})
    set_target_properties(${name} PROPERTIES PREFIX "" IMPORT_PREFIX "lib")
    target_link_libraries(${name} PRIVATE ${M_WIN_LIBS})
    add_dependencies(${name} tw_runtime_dlls)
  elseif(M_PORTABLE OR M_NATIVE)
    add_library(${name} STATIC ${M_PORTABLE} ${M_NATIVE})
  else()
    # No portable units yet: headers only.
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${M_INCLUDE})
    target_link_libraries(${name} INTERFACE tw_flags ${M_DEPENDS})
    return()
  endif()
  target_compile_definitions(${name} PRIVATE ${M_EXPORT_DEFINE})
  target_include_directories(${name} PUBLIC ${M_INCLUDE})
  target_link_libraries(${name} PUBLIC tw_flags ${M_DEPENDS})
endfunction()

# A GoogleTest executable. Natively each test case is a CTest test; under
# Wine the whole binary is one CTest test (one Wine start per binary).
function(tw_add_gtest name)
  cmake_parse_arguments(T "NO_MAIN" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${T_SOURCES})
  target_link_libraries(${name} PRIVATE ${T_LIBS} tw_flags GTest::gtest)
  if(NOT T_NO_MAIN)
    target_link_libraries(${name} PRIVATE GTest::gtest_main)
  endif()
  if(TW_WINDOWS)
    add_test(NAME win.${name} COMMAND ${name})
    # One Windows test at a time: keyboard focus and the foreground window
    # belong to the one Wine desktop that all test programs share.
    set_tests_properties(win.${name} PROPERTIES FIXTURES_REQUIRED wine TIMEOUT 600
                         RESOURCE_LOCK wine_desktop)
  else()
    include(GoogleTest)
    gtest_discover_tests(${name} TEST_PREFIX native. DISCOVERY_TIMEOUT 60)
  endif()
endfunction()

# A libFuzzer target (native fuzzing build only): fuzz_<name>, run by
# `make fuzz` for a bounded time with its corpus folder fuzz/corpus/<name>.
function(tw_add_fuzzer name)
  cmake_parse_arguments(F "" "" "SOURCES;LIBS" ${ARGN})
  if(NOT TW_FUZZ)
    return()
  endif()
  add_executable(fuzz_${name} ${F_SOURCES})
  target_link_libraries(fuzz_${name} PRIVATE ${F_LIBS} tw_flags)
  target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
  add_dependencies(tw_fuzzers fuzz_${name})
endfunction()
