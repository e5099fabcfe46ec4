# Runs one fuzz target: first on every input that once crashed it (its
# regression cases), then for SECONDS from its seeds.  Run by CTest with -P.
# PROGRAM, SECONDS, SEEDS (a folder or ""), REGRESSIONS (a folder), WORK_DIR.
file(MAKE_DIRECTORY ${WORK_DIR}/corpus)
# Leaks inside the engines themselves are listed, not findings.
set(ENV{LSAN_OPTIONS} "suppressions=${CMAKE_CURRENT_LIST_DIR}/../../fuzz/lsan.supp")
file(GLOB regressions ${REGRESSIONS}/*)
if(regressions)
  execute_process(COMMAND ${PROGRAM} ${regressions} WORKING_DIRECTORY ${WORK_DIR}
                  RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "a regression case fails again:\n${err}")
  endif()
endif()
set(seeds "")
if(SEEDS)
  set(seeds ${SEEDS})
endif()
execute_process(
  COMMAND ${PROGRAM} -max_total_time=${SECONDS} -timeout=20 -rss_limit_mb=2048
          -artifact_prefix=${WORK_DIR}/ ${WORK_DIR}/corpus ${seeds}
  WORKING_DIRECTORY ${WORK_DIR} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "the fuzz target found a failure (input kept in ${WORK_DIR}):\n${err}")
endif()
string(REGEX MATCH "stat::number_of_executed_units: [0-9]+" runs "${err}")
message(STATUS "${runs}")
