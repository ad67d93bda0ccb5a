# Gives all files of a package the time of the commit, or SOURCE_DATE_EPOCH: packages of the same sources are the same.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(COMMAND git -C "${CMAKE_CURRENT_LIST_DIR}" log -1 --format=%ct
    OUTPUT_VARIABLE seconds OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  set(ENV{SOURCE_DATE_EPOCH} "${seconds}")
endif()
if(NOT "$ENV{SOURCE_DATE_EPOCH}" STREQUAL "")
  execute_process(COMMAND find "${CPACK_TEMPORARY_DIRECTORY}" -exec touch --date "@$ENV{SOURCE_DATE_EPOCH}" {} +
    COMMAND_ERROR_IS_FATAL ANY)
endif()
