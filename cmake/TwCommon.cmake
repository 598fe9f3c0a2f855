# Shared settings of both builds and the helpers the module lists use.

include(GNUInstallDirs)

# What a program using our modules must compile and link with as well: the
# code page of narrow literals, the Windows defines, the one shared runtime.
# The modules carry it, and it is installed with them (twstddlg::host_flags).
add_library(tw_host_flags INTERFACE)
set_target_properties(tw_host_flags PROPERTIES EXPORT_NAME host_flags)
target_compile_features(tw_host_flags INTERFACE cxx_std_20)
# The framework's debug build: ASSERT, TRACE and DEBUG_NEW are active (afxdebug.h).
target_compile_definitions(tw_host_flags INTERFACE $<$<CONFIG:Debug>:_DEBUG>)

# Flags for every target of ours (not for third-party code); the warnings
# stay inside this build.
add_library(tw_flags INTERFACE)
target_link_libraries(tw_flags INTERFACE tw_host_flags)
target_compile_options(tw_flags INTERFACE -Wall -Wextra -Wno-unused-parameter)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(tw_flags INTERFACE -finput-charset=UTF-8)
  target_compile_options(tw_host_flags INTERFACE -fexec-charset=cp1252)
else()
  # clang (the fuzzing build) only knows UTF-8 literals; the fuzz targets
  # check robustness and round trips, which do not depend on the code page.
  set(TW_UTF8_LITERALS ON)
endif()

if(TW_WINDOWS)
  target_compile_definitions(tw_host_flags INTERFACE
    _WIN32_WINNT=0x0A00 WINVER=0x0A00 _WIN32_IE=0x0A00
    __USE_MINGW_ANSI_STDIO=1 NOMINMAX STRICT)
  # One shared C++ runtime for all modules: framework exceptions cross DLLs.
  target_link_options(tw_host_flags INTERFACE -shared-libgcc)
  # A plain variable, so that configuring again adds nothing to the cache
  # (changed flags would rebuild every target).
  string(APPEND CMAKE_RC_FLAGS " --codepage=65001")

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
  install(FILES ${TW_RUNTIME_DLLS} DESTINATION ${CMAKE_INSTALL_BINDIR})

  # Every Windows executable runs under Wine through our runner.
  configure_file(${CMAKE_SOURCE_DIR}/tools/winerun.in ${CMAKE_BINARY_DIR}/winerun @ONLY
                 FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                  WORLD_READ WORLD_EXECUTE)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_BINARY_DIR}/winerun)
else()
  # float-cast-overflow is not part of GCC's "undefined" (clang's has it).
  set(TW_SANITIZE_FLAGS -fsanitize=address,undefined,float-cast-overflow
                        -fno-sanitize-recover=undefined,float-cast-overflow -fno-omit-frame-pointer)
  option(TW_SANITIZE "Build the native units with ASan and UBSan" ON)
  option(TW_FUZZ "Build the libFuzzer targets (clang)" OFF)
  if(TW_FUZZ)
    # Undefined behaviour stops the run, as a crash does, instead of a
    # report in the log that the run would survive.
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
  elseif(TW_SANITIZE)
    add_compile_options(${TW_SANITIZE_FLAGS})
    add_link_options(${TW_SANITIZE_FLAGS})
  endif()
  target_compile_definitions(tw_host_flags INTERFACE AFX_STATIC TWUTIL_STATIC TWSTDDLG_STATIC)
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

# The installed package (Windows build): every module's DLL, import library
# and public headers, exported as twstddlg::<module> in the export set
# twstddlgTargets (see cmake/TwInstall.cmake).
if(TW_WINDOWS)
  install(TARGETS tw_host_flags EXPORT twstddlgTargets)
endif()

# A module: a DLL in the Windows build, a static library of its portable
# units in the native build.
#   tw_add_module(name EXPORT_DEFINE def STATIC_DEFINE def
#                 PORTABLE srcs... WIN srcs... NATIVE srcs...
#                 DEPENDS libs... WIN_LIBS libs... RC files... INCLUDE dirs...
#                 HEADERS files...)
# <name>_objects names the module's compiled units in both builds: the DLL
# is linked from exactly these objects (resources included), and a test of
# what the DLL does not export (rules, seams) links them instead of the DLL.
# Whoever links them gets STATIC_DEFINE, so the module's headers declare
# its interface without dllimport.
# HEADERS are the public headers to install, each named explicitly; each
# goes below include/ under the path by which the first INCLUDE folder
# holding it resolves it (so twstddlg/values/color.h becomes
# include/values/color.h).
function(tw_add_module name)
  cmake_parse_arguments(M "" "EXPORT_DEFINE;STATIC_DEFINE"
                        "PORTABLE;WIN;NATIVE;DEPENDS;WIN_LIBS;RC;INCLUDE;HEADERS" ${ARGN})
  # Source folders while building; the installed include/ for hosts.
  set(includes)
  foreach(dir ${M_INCLUDE})
    list(APPEND includes $<BUILD_INTERFACE:${dir}>)
  endforeach()
  list(APPEND includes $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  if(TW_WINDOWS)
    add_library(${name}_objects OBJECT ${M_PORTABLE} ${M_WIN} ${M_RC})
    target_compile_definitions(${name}_objects PRIVATE ${M_EXPORT_DEFINE} INTERFACE ${M_STATIC_DEFINE})
    target_include_directories(${name}_objects PUBLIC ${includes})
    target_link_libraries(${name}_objects PUBLIC tw_flags ${M_DEPENDS} ${M_WIN_LIBS})
    add_dependencies(${name}_objects tw_runtime_dlls)
    add_library(${name} SHARED $<TARGET_OBJECTS:${name}_objects>)
    set_target_properties(${name} PROPERTIES PREFIX "" IMPORT_PREFIX "lib")
    target_link_libraries(${name} PRIVATE ${M_WIN_LIBS})
    tw_install_module(${name} INCLUDE ${M_INCLUDE} HEADERS ${M_HEADERS})
  elseif(M_PORTABLE OR M_NATIVE)
    add_library(${name} STATIC ${M_PORTABLE} ${M_NATIVE})
    add_library(${name}_objects ALIAS ${name})
  else()
    # No portable units yet: headers only.
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${includes})
    target_link_libraries(${name} INTERFACE $<BUILD_INTERFACE:tw_flags> tw_host_flags ${M_DEPENDS})
    return()
  endif()
  target_compile_definitions(${name} PRIVATE ${M_EXPORT_DEFINE})
  target_include_directories(${name} PUBLIC ${includes})
  # Hosts get the host flags; our warnings stay in this build.
  target_link_libraries(${name} PUBLIC $<BUILD_INTERFACE:tw_flags> tw_host_flags ${M_DEPENDS})
endfunction()

# Install rules of one module DLL (Windows build): the DLL to bin/, its
# import library to lib/, the public headers below include/.
function(tw_install_module name)
  cmake_parse_arguments(I "" "" "INCLUDE;HEADERS" ${ARGN})
  install(TARGETS ${name} EXPORT twstddlgTargets
          RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
          LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
  foreach(header ${I_HEADERS})
    get_filename_component(header ${header} ABSOLUTE BASE_DIR ${CMAKE_CURRENT_SOURCE_DIR})
    set(relative)
    foreach(dir ${I_INCLUDE})
      cmake_path(IS_PREFIX dir "${header}" NORMALIZE inside)
      if(inside)
        file(RELATIVE_PATH relative ${dir} ${header})
        break()
      endif()
    endforeach()
    if(NOT relative)
      message(FATAL_ERROR "${name}: public header ${header} lies in none of its include folders")
    endif()
    get_filename_component(subdir ${relative} DIRECTORY)
    install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${subdir})
  endforeach()
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
