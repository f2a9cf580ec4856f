# One interface target has the warnings and options of all our targets.
add_library(quillo_options INTERFACE)
target_include_directories(quillo_options INTERFACE ${CMAKE_SOURCE_DIR}/src)

if(MSVC)
  target_compile_options(quillo_options INTERFACE /W4 /WX /permissive- /utf-8 /Zc:__cplusplus /GS /guard:cf)
  target_link_options(quillo_options INTERFACE /guard:cf)
else()
  target_compile_options(quillo_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
    -fno-math-errno)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 reports an overlap that is impossible in the library's own string concatenation (its bug 105651).
    target_compile_options(quillo_options INTERFACE -Wno-restrict)
  endif()
endif()

# A small program starts faster. The few files that process every byte of a note set their own optimization for speed.
if(NOT MSVC)
  set(CMAKE_CXX_FLAGS_RELEASE "-Os -DNDEBUG")
endif()

if(WIN32)
  # Nothing asks for the type of an object at run time: the program need not contain the names of all classes.
  if(MSVC)
    set(QUILLO_NO_RTTI /GR-)
  else()
    set(QUILLO_NO_RTTI -fno-rtti)
  endif()
  target_compile_options(quillo_options INTERFACE ${QUILLO_NO_RTTI})
  # Newer declarations are needed than those of Windows 7, the oldest system that the program runs on: a function that Windows 7
  # lacks is loaded when it is first needed (late_library.h).
  target_compile_definitions(quillo_options INTERFACE WINVER=0x0A00 _WIN32_WINNT=0x0A00 NTDDI_VERSION=0x0A000000)
  if(MINGW)
    # No -ffunction-sections: each section of a function is padded to 16 bytes, which costs more than unused functions do.
    target_compile_options(quillo_options INTERFACE -fdata-sections -fstack-protector-strong)
    target_link_options(quillo_options INTERFACE -static -Wl,--gc-sections -fstack-protector-strong)
    # Control-flow guard, which GCC lacks.
    include(CheckCXXCompilerFlag)
    check_cxx_compiler_flag(-mguard=cf QUILLO_HAS_GUARD)
    if(QUILLO_HAS_GUARD)
      target_compile_options(quillo_options INTERFACE -mguard=cf)
      target_link_options(quillo_options INTERFACE -mguard=cf)
    endif()
  endif()
endif()

if(QUILLO_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
# The headers that nearly every file of a target reads, parsed once. A file still includes what it uses: the 32-bit tree
# compiles every source of the program without them, and the presets "headers" every test.
function(quillo_precompile target)
  if(QUILLO_PRECOMPILED_HEADERS)
    if(ARGV1 STREQUAL "REUSE_FROM")
      target_precompile_headers(${target} REUSE_FROM ${ARGV2})
    else()
      target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
      # Lets a compiler cache see the content of the precompiled header.
      target_compile_options(${target} PRIVATE -fpch-preprocess)
    elseif(CMAKE_CXX_COMPILER_ID MATCHES "Clang" AND NOT MSVC)
      # The same header gives the same bytes in every tree, so that a compiler cache can share objects built with it.
      target_compile_options(${target} PRIVATE "SHELL:-Xclang -fno-pch-timestamp")
    endif()
  endif()
endfunction()

# GNU's linker for Windows searches all sections of an object for each of its symbols: it needs 15 s for a large program of
# joined tests, LLVM's half a second. The program itself is always linked by GNU's.
find_program(QUILLO_LLD ld.lld DOC "A faster linker for the tests (Debian: lld)")

# For targets that only test: they run briefly and are compiled often. The code under test keeps the program's options.
# Several of their sources are compiled as one, which takes half the time; the presets "headers" compile each alone.
function(quillo_test_code target)
  if(QUILLO_JOINED_TESTS)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 8)
  endif()
  if(NOT MSVC)
    target_compile_options(${target} PRIVATE -O0 $<$<CONFIG:Debug>:-gline-tables-only>)
  endif()
  if(QUILLO_LLD AND MINGW AND CMAKE_CROSSCOMPILING)
    # Debian's cross compiler has the path of its linker built in, and ignores -fuse-ld.
    target_link_options(${target} PRIVATE -fno-use-linker-plugin -wrapper ${PROJECT_SOURCE_DIR}/scripts/link_with_lld.sh)
  endif()
endfunction()
