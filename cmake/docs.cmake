# Reference documentation of the two public headers, built on request
# (`cmake --build build --target docs`) when Doxygen is installed.  An
# undocumented public entity fails the build: the header comments are what
# users read.
find_package(Doxygen)
if(DOXYGEN_FOUND)
  set(DOXYGEN_PROJECT_NAME klo)
  set(DOXYGEN_PROJECT_BRIEF "Optimisation modelling library: object layer and C interface")
  set(DOXYGEN_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/docs)
  set(DOXYGEN_GENERATE_HTML YES)
  set(DOXYGEN_GENERATE_LATEX NO)
  set(DOXYGEN_EXTRACT_ALL NO)
  set(DOXYGEN_WARN_IF_UNDOCUMENTED YES)
  set(DOXYGEN_WARN_IF_DOC_ERROR YES)
  set(DOXYGEN_WARN_AS_ERROR YES)
  set(DOXYGEN_JAVADOC_AUTOBRIEF YES)
  # An overload set is documented once, by the comment of its first member.
  set(DOXYGEN_DISTRIBUTE_GROUP_DOC YES)
  set(DOXYGEN_FULL_PATH_NAMES NO)
  set(DOXYGEN_QUIET YES)
  doxygen_add_docs(docs ${CMAKE_CURRENT_SOURCE_DIR}/include/klo_c.h
                   ${CMAKE_CURRENT_SOURCE_DIR}/include/klo_cpp.h
                   COMMENT "Reference documentation of include/klo_c.h and include/klo_cpp.h")
endif()
