# Builds the fuzz targets in a tree of their own, with clang (libFuzzer) and
# the sanitizers.  Run by CTest with -P, before the targets run.
execute_process(
  COMMAND ${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${WORK_DIR} -DCMAKE_C_COMPILER=clang
          -DCMAKE_CXX_COMPILER=clang++ -DKLO_FUZZ=ON -DKLO_SANITIZE=ON -DKLO_BUILD_TESTS=OFF
          -DKLO_BUILD_BENCH=OFF -DKLO_BUILD_EXAMPLES=OFF
  RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "configuring the fuzz tree failed:\n${out}\n${err}")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK_DIR} -j2 --target fuzz_read_mps
                        fuzz_read_lp fuzz_read_sdpa fuzz_read_prm fuzz_read_mst fuzz_read_sol fuzz_read_bas
                        fuzz_build_and_solve
                RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "building the fuzz tree failed:\n${out}\n${err}")
endif()
