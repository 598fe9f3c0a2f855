# Installs the build into a fresh prefix, builds the host project in
# host/ against the installed package with the same toolchain, and runs the
# host from the installed bin/ under Wine.
#   cmake -DBUILD_DIR=... -DSOURCE_DIR=... -DTOOLCHAIN=... -DWORK_DIR=...
#         -DCONFIG=... -P install_test.cmake
foreach(var BUILD_DIR SOURCE_DIR TOOLCHAIN WORK_DIR CONFIG)
  if(NOT DEFINED ${var})
    message(FATAL_ERROR "install_test: ${var} is not set")
  endif()
endforeach()

set(prefix ${WORK_DIR}/prefix)
set(host_build ${WORK_DIR}/host-build)
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})

function(run what)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "install_test: ${what} failed (${rc})\n${out}\n${err}")
  endif()
  set(run_output "${out}" PARENT_SCOPE)
endfunction()

run("cmake --install" ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix} --config ${CONFIG})

# The layout a host relies on, and nothing private.
set(expected
  bin/afx.dll bin/twutil.dll bin/twstddlg.dll bin/twdemo.exe
  bin/libstdc++-6.dll bin/libgcc_s_seh-1.dll bin/libwinpthread-1.dll
  lib/libafx.dll.a lib/libtwutil.dll.a lib/libtwstddlg.dll.a
  lib/libafxmain.a
  include/afx.h include/afxwin.h include/afxplatform.h include/afxres.h include/afxdlgs.h
  include/twutil.h include/string_helpers.h
  include/twstddlg.h include/twstddlg_api.h
  include/values/color.h include/values/array_export.h
  include/frame/library_entry.h include/picture/picture_tag.h
  include/dialogs/message_box.h include/dialogs/message_box_style.h
  lib/cmake/twstddlg/twstddlgConfig.cmake
  lib/cmake/twstddlg/twstddlgConfigVersion.cmake
  lib/cmake/twstddlg/twstddlgTargets.cmake)
foreach(file ${expected})
  if(NOT EXISTS ${prefix}/${file})
    message(FATAL_ERROR "install_test: ${file} is not installed")
  endif()
endforeach()
set(private
  include/file_os.h include/module_state_impl.h include/cad_module.h
  include/frame/placement.h include/frame/registry_switch.h include/frame/library_instance.h
  include/values/named_array.h include/picture/picture_tag_refusal.h
  include/dialogs/message_box_layout.h include/src)
foreach(file ${private})
  if(EXISTS ${prefix}/${file})
    message(FATAL_ERROR "install_test: private ${file} is installed")
  endif()
endforeach()

# twstddlg_DIR: the toolchain file confines package searches to the mingw
# root, so the host names the package folder itself.
run("configuring the host" ${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${host_build}
    -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN} -DCMAKE_BUILD_TYPE=${CONFIG}
    -Dtwstddlg_DIR=${prefix}/lib/cmake/twstddlg)
run("building the host" ${CMAKE_COMMAND} --build ${host_build})

# From the installed bin/, so the installed DLLs are the ones loaded.
file(COPY ${host_build}/host.exe DESTINATION ${prefix}/bin)
run("running the host" ${BUILD_DIR}/winerun ${prefix}/bin/host.exe)
message("${run_output}")
if(NOT run_output MATCHES "HOST PASSED: 0 failure")
  message(FATAL_ERROR "install_test: the host did not pass")
endif()

# A program written as the framework's wizard writes one, with an extension
# DLL and no entry point of its own: WinMain comes from the package.
if(DEFINED MFCHOST_DIR)
  set(mfchost_build ${WORK_DIR}/mfchost-build)
  run("configuring mfchost" ${CMAKE_COMMAND} -S ${MFCHOST_DIR} -B ${mfchost_build}
      -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN} -DCMAKE_BUILD_TYPE=${CONFIG}
      -Dtwstddlg_DIR=${prefix}/lib/cmake/twstddlg)
  run("building mfchost" ${CMAKE_COMMAND} --build ${mfchost_build})
  file(COPY ${mfchost_build}/mfchost.exe ${mfchost_build}/mfchostext.dll DESTINATION ${prefix}/bin)
  run("running mfchost" ${BUILD_DIR}/winerun ${prefix}/bin/mfchost.exe)
  message("${run_output}")
  if(NOT run_output MATCHES "MFCHOST PASSED: 0 failure")
    message(FATAL_ERROR "install_test: mfchost did not pass")
  endif()
endif()
