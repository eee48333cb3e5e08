# SPDX-License-Identifier: MIT
# How a target of this project is compiled, and the object libraries from which the shared libraries and the tests are
# made: the tests link the same objects as the product, so they reach what the shared libraries hide.

if(WIN32)
  set(QMRK_PLATFORM win32)
else()
  set(QMRK_PLATFORM linux)
endif()

function(qmrk_compile_options _target)
  set_target_properties(${_target} PROPERTIES
    CXX_STANDARD 20 CXX_STANDARD_REQUIRED ON CXX_EXTENSIONS OFF
    CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON
    POSITION_INDEPENDENT_CODE ON)
  if(NOT MSVC)
    target_compile_options(${_target} PRIVATE -Wall -Wextra -Wpedantic $<$<BOOL:${QMRK_WARNINGS_AS_ERRORS}>:-Werror>)
  endif()
endfunction()

# For what is not part of the libraries and takes long to compile: tests, and programs under a sanitizer.
function(qmrk_do_not_optimise _target)
  if(NOT MSVC)
    # So much code that is not inlined has more sections than an object file of Windows has by default.
    target_compile_options(${_target} PRIVATE -O0 $<$<PLATFORM_ID:Windows>:-Wa,-mbig-obj>)
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_FLAGS MATCHES "-fsanitize")
    # g++ 12 sees uninitialised members in std::regex when it instruments it.
    target_compile_options(${_target} PRIVATE -Wno-maybe-uninitialized)
  endif()
endfunction()

function(qmrk_do_not_optimise_sanitized _target)
  if(CMAKE_CXX_FLAGS MATCHES "-fsanitize")
    qmrk_do_not_optimise(${_target})
  endif()
endfunction()

# For targets of many sources, where QMRK_UNITY_OBJECTS asks for it.
function(qmrk_compile_together _target)
  if(QMRK_UNITY_OBJECTS)
    set_target_properties(${_target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 12)
  endif()
endfunction()

# For the administration tool and what only it is made of. Most of the time goes into its headers, so its sources are
# always compiled together; nearly all of its code runs once, so little of it is optimised; and where a package wants to
# know the types of the libraries, its own are not asked for. Under the thread sanitizer no test runs it.
function(qmrk_compile_as_tool _target)
  set_target_properties(${_target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 12)
  qmrk_do_not_optimise_sanitized(${_target})
  if(NOT MSVC)
    target_compile_options(${_target} PRIVATE $<$<CONFIG:Release>:-O1 -g0>)
  endif()
  if(CMAKE_CXX_FLAGS MATCHES "-fsanitize=thread")
    set_target_properties(${_target} PROPERTIES EXCLUDE_FROM_ALL ON)
  endif()
endfunction()

# An object library whose sources are added by the folders with target_sources().
function(qmrk_add_objects _target)
  add_library(${_target} OBJECT)
  qmrk_compile_options(${_target})
  target_include_directories(${_target} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>)
  qmrk_compile_together(${_target})
endfunction()

# A shared library exports what its version script names; the others hide what they do not export by visibility alone.
function(qmrk_export_only _target _map)
  if(NOT WIN32)
    target_link_options(${_target} PRIVATE -Wl,--version-script=${_map})
    set_target_properties(${_target} PROPERTIES LINK_DEPENDS ${_map})
  endif()
endfunction()

# A shared library that stays loaded after dlclose: its threads go on, and what it has queued is delivered when the
# process ends. Windows has no such option of the linker.
function(qmrk_stay_loaded _target)
  if(NOT WIN32)
    target_link_options(${_target} PRIVATE -Wl,-z,nodelete)
  endif()
endfunction()

# Writes the version of the project into a binary, where ModuleVersion finds it: a note of its own in an ELF file, a
# version resource in a file of Windows.
function(qmrk_stamp_version _target)
  if(WIN32)
    get_target_property(qmrk_file_type ${_target} TYPE)
    string(REPLACE EXECUTABLE VFT_APP qmrk_file_type ${qmrk_file_type})
    string(REPLACE SHARED_LIBRARY VFT_DLL qmrk_file_type ${qmrk_file_type})
    set(qmrk_file_name $<TARGET_FILE_NAME:${_target}>)
    set(stamp ${PROJECT_BINARY_DIR}/version_${_target}.rc)
    configure_file(${PROJECT_SOURCE_DIR}/platform/win32/version.rc.in ${stamp}.in @ONLY)
    file(GENERATE OUTPUT ${stamp} INPUT ${stamp}.in)
  else()
    set(stamp ${PROJECT_BINARY_DIR}/version_note.cpp)
    configure_file(${PROJECT_SOURCE_DIR}/platform/linux/version_note.cpp.in ${stamp} @ONLY)
  endif()
  target_sources(${_target} PRIVATE ${stamp})
endfunction()

# Tells Windows which of its versions a program knows: for one that names none, the later ones call themselves 6.2. A program
# that opens the files of applications takes their LONG_PATHS, too; true or false.
function(qmrk_add_manifest _target _long_paths)
  if(NOT WIN32)
    return()
  endif()
  set(manifest ${PROJECT_BINARY_DIR}/${_target}.manifest)
  configure_file(${PROJECT_SOURCE_DIR}/platform/win32/program.manifest.in ${manifest} @ONLY)
  if(MSVC)
    target_sources(${_target} PRIVATE ${manifest})
    return()
  endif()
  # Resource 1 of type 24 is the manifest of the process.
  set(resource ${PROJECT_BINARY_DIR}/manifest_${_target}.rc)
  file(CONFIGURE OUTPUT ${resource} CONTENT "1 24 \"@manifest@\"\n" @ONLY)
  set_source_files_properties(${resource} TARGET_DIRECTORY ${_target} PROPERTIES OBJECT_DEPENDS ${manifest})
  target_sources(${_target} PRIVATE ${resource})
endfunction()
