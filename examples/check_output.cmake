# Runs PROGRAM FILE RUN on a run that is not there yet and compares what it prints with EXPECTED.
file(REMOVE "${RUN}")
execute_process(COMMAND "${PROGRAM}" "${FILE}" "${RUN}" OUTPUT_VARIABLE printed RESULT_VARIABLE code)
file(REMOVE "${RUN}")
file(READ "${EXPECTED}" expected)
if(NOT code EQUAL 0 OR NOT printed STREQUAL expected)
  message(FATAL_ERROR "exit code ${code}, printed:\n${printed}\nexpected:\n${expected}")
endif()
