# Settings and helpers shared by all folders.
option(AUTONOTIFY_SANITIZE "Build with address and undefined behaviour sanitizers" OFF)
option(AUTONOTIFY_COVERAGE "Build for line coverage" OFF)
option(AUTONOTIFY_FUZZ "Build the fuzz targets only" OFF)
option(AUTONOTIFY_BENCH "Build the benchmarks" OFF)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
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
target_compile_options(autonotify_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Werror)
# At -O3 g++ 12 reports both falsely inside std::string and std::variant.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(autonotify_options INTERFACE $<$<CONFIG:Release>:-Wno-restrict;-Wno-maybe-uninitialized>)
endif()
target_include_directories(autonotify_options INTERFACE "${PROJECT_SOURCE_DIR}/src")
if(AUTONOTIFY_SANITIZE)
  # Sanitized code confuses this warning of g++ about the members of variants.
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
                      -Wno-maybe-uninitialized)
  add_link_options(-fsanitize=address,undefined)
endif()
if(AUTONOTIFY_COVERAGE)
  add_compile_options(--coverage)
  add_link_options(--coverage)
endif()
if(AUTONOTIFY_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  add_link_options(-fsanitize=address,undefined)
endif()

# autonotify_folder(TARGET folder [DEPENDS ...]): a static library of all sources right in the folder.
# Symbols are hidden: the component exports its entry points and nothing else.
function(autonotify_folder target folder)
  cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp")
  add_library(${target} STATIC ${sources})
  target_link_libraries(${target} PUBLIC autonotify_options ${ARG_DEPENDS})
  set_target_properties(${target} PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
endfunction()
