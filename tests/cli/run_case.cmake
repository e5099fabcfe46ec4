# Runs one command-line case: the program with its arguments (ARGS, a
# |-separated list) in WORK_DIR, then checks the exit status (EXPECT_RC), the
# combined output against a regular expression (EXPECT) and that the files
# in FILES (|-separated) exist afterwards.
string(REPLACE "|" ";" args "${ARGS}")
file(MAKE_DIRECTORY ${WORK_DIR})
execute_process(COMMAND ${PROGRAM} ${args} WORKING_DIRECTORY ${WORK_DIR}
                RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
set(all "${out}${err}")
if(NOT rc STREQUAL EXPECT_RC)
  message(FATAL_ERROR "exit status ${rc}, expected ${EXPECT_RC}\n${all}")
endif()
if(NOT all MATCHES "${EXPECT}")
  message(FATAL_ERROR "output does not match '${EXPECT}':\n${all}")
endif()
if(FILES)
  string(REPLACE "|" ";" files "${FILES}")
  foreach(f ${files})
    if(NOT EXISTS ${WORK_DIR}/${f})
      message(FATAL_ERROR "${f} was not written\n${all}")
    endif()
  endforeach()
endif()
