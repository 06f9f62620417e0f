# TARQ_COMMIT: the commit that is built, "unknown" outside a repository. Its log makes the next build configure again.
execute_process(COMMAND git rev-parse --short=12 HEAD
  WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE TARQ_COMMIT OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
execute_process(COMMAND git rev-parse --path-format=absolute --git-path logs/HEAD
  WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE commit_log OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
if(NOT TARQ_COMMIT)
  set(TARQ_COMMIT unknown)
endif()
if(EXISTS "${commit_log}")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${commit_log}")
endif()
