# Settings and helpers shared by all folders.
option(AUTONOTIFY_WERROR "Take warnings for errors" OFF)
option(AUTONOTIFY_BATCH "Compile sources of a folder together, and the tests with precompiled headers" OFF)
option(AUTONOTIFY_SANITIZE "Build with address and undefined behaviour sanitizers" OFF)
option(AUTONOTIFY_COVERAGE "Build for line coverage" OFF)
option(AUTONOTIFY_FUZZ "Build the fuzz targets only" OFF)
option(AUTONOTIFY_BENCH "Build the benchmarks" OFF)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_UNITY_BUILD "${AUTONOTIFY_BATCH}")
set(CMAKE_UNITY_BUILD_BATCH_SIZE 0)
# Each source names the tags of its own module.
set(CMAKE_UNITY_BUILD_UNIQUE_ID tagOf)
find_program(AUTONOTIFY_CCACHE ccache)
if(AUTONOTIFY_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${AUTONOTIFY_CCACHE}")
endif()

# g++ 12 drops the old value of a small struct in `x = f()` when f throws; the frame of procedures
# relies on that value, and so does any code that catches.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  add_compile_options(-fno-tree-dse)
endif()

add_library(autonotify_options INTERFACE)
target_compile_options(autonotify_options INTERFACE -Wall -Wextra -Wpedantic)
# In one piece a file's local names would hide what another file has at its top.
if(NOT AUTONOTIFY_BATCH)
  target_compile_options(autonotify_options INTERFACE -Wshadow)
endif()
if(AUTONOTIFY_WERROR)
  target_compile_options(autonotify_options INTERFACE -Werror)
endif()
# When it optimizes, g++ 12 reports both falsely inside std::string and std::variant.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(autonotify_options INTERFACE $<$<CONFIG:Release>:-Wno-restrict;-Wno-maybe-uninitialized>)
endif()
target_include_directories(autonotify_options INTERFACE "${PROJECT_SOURCE_DIR}/src")
if(AUTONOTIFY_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
  add_compile_definitions(AUTONOTIFY_SANITIZE)
  # What programs and use cases do takes longer to compile than to run.
  set(AUTONOTIFY_ROOF_OPTIONS -O0)
endif()
if(AUTONOTIFY_COVERAGE)
  add_compile_options(--coverage)
  add_link_options(--coverage)
endif()
if(AUTONOTIFY_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  add_link_options(-fsanitize=address,undefined)
endif()

# The table of folders; its rows become AUTONOTIFY_FOLDERS and, per folder, its lists of what it may
# include and of its libraries.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${CMAKE_CURRENT_LIST_DIR}/folders.txt")
file(STRINGS "${CMAKE_CURRENT_LIST_DIR}/folders.txt" rows REGEX "^[a-z]+/")
foreach(row IN LISTS rows)
  string(REGEX MATCH "^([^ ]+) \\| ([^|]*)\\| ([^|]*)\\|" matched "${row}")
  set(folder "${CMAKE_MATCH_1}")
  list(APPEND AUTONOTIFY_FOLDERS "${folder}")
  separate_arguments(AUTONOTIFY_BELOW_${folder} UNIX_COMMAND "${CMAKE_MATCH_2}")
  string(CONFIGURE "${CMAKE_MATCH_3}" libraries)
  separate_arguments(AUTONOTIFY_LIBRARIES_${folder} UNIX_COMMAND "${libraries}")
endforeach()

# The target of a folder: "host/database/sqlite" is autonotify_database_sqlite.
function(autonotify_target folder result)
  string(REGEX REPLACE "^[a-z]+/(.*)" "autonotify_\\1" name "${folder}")
  string(REPLACE "/" "_" name "${name}")
  set(${result} "${name}" PARENT_SCOPE)
endfunction()

# All sources of a folder but those of folders below it that have rows of their own.
function(autonotify_sources folder result)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${folder}/*.cpp")
  foreach(other IN LISTS AUTONOTIFY_FOLDERS)
    if(other MATCHES "^${folder}/")
      list(FILTER sources EXCLUDE REGEX "^${PROJECT_SOURCE_DIR}/${other}/")
    endif()
  endforeach()
  set(${result} "${sources}" PARENT_SCOPE)
endfunction()

# What the folder's row names: the targets of the folders that it may include, and its libraries.
function(autonotify_dependencies folder result)
  set(names ${AUTONOTIFY_LIBRARIES_${folder}})
  foreach(other IN LISTS AUTONOTIFY_BELOW_${folder})
    autonotify_target("${other}" target)
    list(APPEND names "${target}")
  endforeach()
  set(${result} "${names}" PARENT_SCOPE)
endfunction()

# A static library of the folder. Symbols are hidden: the component exports its entry points and
# nothing else.
function(autonotify_folder folder)
  autonotify_target("${folder}" target)
  autonotify_sources("${folder}" sources)
  autonotify_dependencies("${folder}" dependencies)
  add_library(${target} STATIC ${sources})
  target_link_libraries(${target} PUBLIC autonotify_options ${dependencies})
  if(folder MATCHES "^host/(demo|desk|exchange)")
    target_compile_options(${target} PRIVATE ${AUTONOTIFY_ROOF_OPTIONS})
  endif()
  if(folder MATCHES "^host/")
    target_include_directories(${target} PUBLIC "${PROJECT_SOURCE_DIR}")
  endif()
  set_target_properties(${target} PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
endfunction()

# The libraries of all folders below `top` ("src", "host"), but of those named behind it.
function(autonotify_folders top)
  foreach(folder IN LISTS AUTONOTIFY_FOLDERS)
    if(folder MATCHES "^${top}/" AND NOT folder IN_LIST ARGN)
      autonotify_folder("${folder}")
    endif()
  endforeach()
endfunction()

# Builds files of the folder into a target: "fax_template.rtf" is a std::string_view fax_template of
# the namespace autonotify, which holds its bytes.
function(autonotify_embed target)
  set(script "${PROJECT_SOURCE_DIR}/cmake/embed_file.cmake")
  foreach(name IN LISTS ARGN)
    set(file "${CMAKE_CURRENT_SOURCE_DIR}/${name}")
    cmake_path(GET file STEM stem)
    set(source "${CMAKE_CURRENT_BINARY_DIR}/${stem}.cpp")
    add_custom_command(OUTPUT "${source}" DEPENDS "${file}" "${script}" VERBATIM
      COMMAND "${CMAKE_COMMAND}" "-DFILE=${file}" "-DSOURCE=${source}" "-DNAME=${stem}" -P "${script}")
    target_sources(${target} PRIVATE "${source}")
  endforeach()
endfunction()
