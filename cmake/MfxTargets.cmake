# Functions that every target of the project is made with.

option(MFX_HARDENED "C++ library assertions, trapping on undefined behaviour, stack protector" OFF)

# Compiler settings of our own code; dependencies do not get them.
function(mfx_compile_settings target)
  target_compile_definitions(${target} PRIVATE UNICODE _UNICODE NOMINMAX STRICT _WIN32_WINNT=0x0A00 WINVER=0x0A00)
  if(MSVC)
    # C4251: exported classes hold standard-library members; all libraries share one runtime.
    target_compile_options(${target} PRIVATE /W4 /WX /utf-8 /permissive- /EHsc /wd4251)
    return()
  endif()
  target_compile_options(${target} PRIVATE
    $<$<COMPILE_LANGUAGE:CXX>:-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror>
    # A CString in a printf-like call compiles silently otherwise, and is wrong.
    $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Werror=conditionally-supported>
    # GCC 12 sees overlapping copies in std::string's operator+ where there are none (GCC bug 105651).
    $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wno-restrict>
    # Wine's debugger reads this version.
    $<$<COMPILE_LANGUAGE:CXX>:-gdwarf-4>)
  if(MFX_HARDENED)
    target_compile_definitions(${target} PRIVATE _GLIBCXX_ASSERTIONS)
    target_compile_options(${target} PRIVATE
      $<$<COMPILE_LANGUAGE:CXX>:-fsanitize=undefined -fsanitize-undefined-trap-on-error -fstack-protector-strong>)
    target_link_options(${target} PRIVATE -fstack-protector-strong)
  endif()
endfunction()

# Version resource of a program or library, filled from the project's version; programs also get the manifest.
function(mfx_version_resource target description)
  get_target_property(type ${target} TYPE)
  get_target_property(name ${target} OUTPUT_NAME)
  if(type STREQUAL "EXECUTABLE")
    set(MFX_FILE_NAME "${name}.exe")
    set(MFX_FILE_TYPE VFT_APP)
    set(MFX_MANIFEST "1 RT_MANIFEST \"${CMAKE_SOURCE_DIR}/cmake/program.manifest\"")
  else()
    set(MFX_FILE_NAME "${name}.dll")
    set(MFX_FILE_TYPE VFT_DLL)
    set(MFX_MANIFEST "")
  endif()
  set(MFX_FILE_DESCRIPTION "${description}")
  configure_file("${CMAKE_SOURCE_DIR}/cmake/version.rc.in" "${CMAKE_CURRENT_BINARY_DIR}/${target}-version.rc" @ONLY)
  target_sources(${target} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/${target}-version.rc")
  set_source_files_properties("${CMAKE_CURRENT_BINARY_DIR}/${target}-version.rc" PROPERTIES
    OBJECT_DEPENDS "${CMAKE_SOURCE_DIR}/cmake/program.manifest")
  if(MSVC AND type STREQUAL "EXECUTABLE")
    target_link_options(${target} PRIVATE /MANIFEST:NO)
  endif()
endfunction()

# Puts the symbols of a program or DLL into a file of its own, bin/.debug/NAME.debug, where addr2line and gdb find it.
# With them inside, Windows' loader and Wine's map up to a hundred megabytes at each start. Without --preserve-dates
# the files would hold the current time, and differ from build to build.
function(mfx_split_symbols target)
  if(NOT MINGW)
    return()
  endif()
  set(symbols "${MFX_BIN_DIR}/.debug/$<TARGET_FILE_NAME:${target}>.debug")
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E make_directory "${MFX_BIN_DIR}/.debug"
    COMMAND ${CMAKE_OBJCOPY} --preserve-dates --only-keep-debug $<TARGET_FILE:${target}> "${symbols}"
    COMMAND ${CMAKE_OBJCOPY} --preserve-dates --strip-all --add-gnu-debuglink=${symbols} $<TARGET_FILE:${target}>
    VERBATIM)
endfunction()

# A DLL of the project: mfx_add_dll(<target> <file name without .dll> "<description>" <sources...>)
function(mfx_add_dll target output_name description)
  add_library(${target} SHARED ${ARGN})
  set_target_properties(${target} PROPERTIES OUTPUT_NAME "${output_name}" PREFIX "")
  target_include_directories(${target} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}")
  mfx_compile_settings(${target})
  mfx_version_resource(${target} "${description}")
  mfx_split_symbols(${target})
  install(TARGETS ${target} RUNTIME DESTINATION bin)
endfunction()

# A static part that ends up in one of the DLLs or programs.
function(mfx_add_static target)
  add_library(${target} STATIC ${ARGN})
  target_include_directories(${target} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}")
  mfx_compile_settings(${target})
endfunction()

# A program: mfx_add_program(<target> <file name without .exe> "<description>" <sources...>)
function(mfx_add_program target output_name description)
  add_executable(${target} ${ARGN})
  set_target_properties(${target} PROPERTIES OUTPUT_NAME "${output_name}")
  mfx_compile_settings(${target})
  mfx_version_resource(${target} "${description}")
  mfx_split_symbols(${target})
  if(MINGW)
    target_link_options(${target} PRIVATE -municode)
  endif()
endfunction()

# The MinGW runtime stands beside the programs: one copy for all of them, so that objects and exceptions can cross
# from one library to another.
if(MINGW)
  set(MFX_RUNTIME libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
  if(MFX_HARDENED)
    list(APPEND MFX_RUNTIME libssp-0.dll)
  endif()
  foreach(runtime IN LISTS MFX_RUNTIME)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${runtime}
      OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT IS_ABSOLUTE "${path}")
      find_file(MFX_${runtime} ${runtime} PATHS /usr/x86_64-w64-mingw32/lib REQUIRED NO_DEFAULT_PATH
        NO_CMAKE_FIND_ROOT_PATH)
      set(path "${MFX_${runtime}}")
    endif()
    file(MAKE_DIRECTORY "${MFX_BIN_DIR}")
    execute_process(COMMAND ${CMAKE_STRIP} --preserve-dates -o "${MFX_BIN_DIR}/${runtime}" "${path}"
      COMMAND_ERROR_IS_FATAL ANY)
    install(PROGRAMS "${MFX_BIN_DIR}/${runtime}" DESTINATION bin)
  endforeach()
endif()
