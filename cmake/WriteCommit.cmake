# WriteCommit.cmake -DHEADER=FILE: writes the commit of the sources into a header, unless it says so already. Sources
# with changes are told by a plus sign, those without git by nothing.
cmake_policy(VERSION 3.25)
set(git git -C "${CMAKE_CURRENT_LIST_DIR}")
execute_process(COMMAND ${git} rev-parse --short=10 HEAD
  OUTPUT_VARIABLE commit OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
execute_process(COMMAND ${git} status --porcelain OUTPUT_VARIABLE changes ERROR_QUIET)
if(changes)
  string(APPEND commit "+")
endif()
file(CONFIGURE OUTPUT "${HEADER}" CONTENT "inline constexpr char kCommit[] = \"@commit@\";\n" @ONLY)
