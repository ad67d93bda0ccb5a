# Run by CPack before it packs. All files get the time of the commit, or SOURCE_DATE_EPOCH: packages of the same sources
# are the same. The installer's script gets the list of what it installs.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(COMMAND git -C "${CMAKE_CURRENT_LIST_DIR}" log -1 --format=%ct
    OUTPUT_VARIABLE seconds OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  set(ENV{SOURCE_DATE_EPOCH} "${seconds}")
endif()
if(NOT "$ENV{SOURCE_DATE_EPOCH}" STREQUAL "")
  # The installer keeps times in steps of two seconds. By them the uninstaller tells samples that were not changed.
  math(EXPR seconds "$ENV{SOURCE_DATE_EPOCH} / 2 * 2")
  execute_process(COMMAND find "${CPACK_TEMPORARY_DIRECTORY}" -exec touch --date "@${seconds}" {} +
    COMMAND_ERROR_IS_FATAL ANY)
endif()

if(CPACK_GENERATOR STREQUAL "NSIS")
  set(lines)
  file(GLOB_RECURSE entries LIST_DIRECTORIES true RELATIVE "${CPACK_TEMPORARY_DIRECTORY}/program"
    "${CPACK_TEMPORARY_DIRECTORY}/program/*")
  list(SORT entries ORDER DESCENDING)  # what is in a folder before the folder
  foreach(entry IN LISTS entries)
    string(REPLACE "/" "\\" path "${entry}")
    if(IS_DIRECTORY "${CPACK_TEMPORARY_DIRECTORY}/program/${entry}")
      string(APPEND lines "!insertmacro \${EACH_FOLDER} \"${path}\"\n")
    elseif(entry MATCHES "^samples/")
      string(APPEND lines "!insertmacro \${EACH_SAMPLE} \"${path}\" \"${CPACK_TEMPORARY_DIRECTORY}/program/${entry}\"\n")
    else()
      string(APPEND lines "!insertmacro \${EACH_FILE} \"${path}\"\n")
    endif()
  endforeach()
  file(WRITE "${CPACK_TOPLEVEL_DIRECTORY}/contents.nsh" "${lines}")
endif()
