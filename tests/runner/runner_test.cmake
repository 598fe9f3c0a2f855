cmake_minimum_required(VERSION 3.25)

# Runs PROGRAM, which prints a line and hangs, through WINERUN twice: under a
# CTest timeout (CTest kills the runner's whole process tree) and under TERM
# (the runner kills the program itself). Each time the line must be in the
# output and no process of the program may remain.
set(line "tw_hang: waiting for ever")
get_filename_component(name ${PROGRAM} NAME)
# Wine names a program's process after the file (at most 15 characters).
string(SUBSTRING ${name} 0 15 comm)

function(check what rc expected_rc output)
  if(NOT rc STREQUAL expected_rc)
    message(FATAL_ERROR "${what}: exit code ${rc}, expected ${expected_rc}:\n${output}")
  endif()
  string(FIND "${output}" "${line}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "${what}: the program's output is lost:\n${output}")
  endif()
  # Killed processes may linger as zombies until init reaps them: those are gone.
  execute_process(COMMAND ps -eo stat=,comm= OUTPUT_VARIABLE processes)
  string(REPLACE "\n" ";" processes "${processes}")
  foreach(process ${processes})
    if(process MATCHES "^[^Z][^ ]* +${comm}$")
      message(FATAL_ERROR "${what}: a process of ${name} remains: ${process}")
    endif()
  endforeach()
endfunction()

file(REMOVE_RECURSE ${WORK_DIR})
file(WRITE ${WORK_DIR}/CTestTestfile.cmake
  "add_test(hang \"${WINERUN}\" \"${PROGRAM}\")\n"
  "set_tests_properties(hang PROPERTIES TIMEOUT 3)\n")
execute_process(COMMAND ${CMAKE_CTEST_COMMAND} --test-dir ${WORK_DIR} --output-on-failure
                RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE out)
if(NOT out MATCHES "Timeout")
  message(FATAL_ERROR "CTest did not time the program out:\n${out}")
endif()
check("killed on CTest's timeout" "${rc}" 8 "${out}")

execute_process(COMMAND timeout -k 5 -s TERM 3 ${WINERUN} ${PROGRAM}
                RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE out)
check("stopped with TERM" "${rc}" 124 "${out}")
