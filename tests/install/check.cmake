# Installs the built project into a scratch prefix, then builds and runs a
# small outside program against it twice: through find_package(klo) and
# through pkg-config; last, moves the prefix and runs the installed klo_cl
# there with an empty environment.  Run by CTest with -P.
set(prefix ${WORK_DIR}/prefix)
load_cache(${BINARY_DIR} READ_WITH_PREFIX "" CMAKE_INSTALL_BINDIR)
file(REMOVE_RECURSE ${WORK_DIR})

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "failed (${rc}): ${ARGN}\n${out}\n${err}")
  endif()
  set(last_output "${out}" PARENT_SCOPE)
endfunction()

set(flags "")
if(SANITIZE)
  set(flags "-fsanitize=address,undefined")
endif()
if(COVERAGE)  # the installed static klo_cpp carries gcov's counters
  string(APPEND flags " --coverage")
endif()

run(${CMAKE_COMMAND} --install ${BINARY_DIR} --prefix ${prefix})

# find_package(klo)
run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/tests/install/outside -B ${WORK_DIR}/build
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_CXX_FLAGS=${flags} -DCMAKE_BUILD_TYPE=Debug)
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)
run(${WORK_DIR}/build/outside)
if(NOT last_output MATCHES "outside: ok")
  message(FATAL_ERROR "unexpected output of the CMake-built program:\n${last_output}")
endif()

# pkg-config
set(ENV{PKG_CONFIG_PATH} "${prefix}/${LIBDIR}/pkgconfig")
run(pkg-config --cflags --libs klo)
string(STRIP "${last_output}" pc_flags)
separate_arguments(pc_flags UNIX_COMMAND "${pc_flags}")
separate_arguments(san_flags UNIX_COMMAND "${flags}")
run(c++ -std=c++17 ${san_flags} ${SOURCE_DIR}/tests/install/outside/main.cpp ${pc_flags}
    -o ${WORK_DIR}/outside-pc)
set(ENV{LD_LIBRARY_PATH} "${prefix}/${LIBDIR}")
run(${WORK_DIR}/outside-pc)
if(NOT last_output MATCHES "outside: ok")
  message(FATAL_ERROR "unexpected output of the pkg-config-built program:\n${last_output}")
endif()

# klo_cl finds libklo through its relative run path, and libklo the MIP
# engine's module beside itself, wherever the tree is.
file(RENAME ${prefix} ${WORK_DIR}/moved)
run(env -i ${WORK_DIR}/moved/${CMAKE_INSTALL_BINDIR}/klo_cl OutputFlag=0 ${SOURCE_DIR}/data/p0548.mps.gz)
if(NOT last_output MATCHES "Status +optimal.*Objective +8691[^0-9]")
  message(FATAL_ERROR "unexpected output of the installed klo_cl:\n${last_output}")
endif()
message(STATUS "installed package works through CMake and pkg-config, and klo_cl runs")
