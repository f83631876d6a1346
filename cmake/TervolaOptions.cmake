# ccache, when installed, caches every compile: a second build of the same sources (another
# build folder, a fresh clone, the sanitizer build after a clean) takes its objects from the
# cache. The settings make precompiled headers cacheable and paths inside the checkout relative,
# so that clones in other folders share the cache. TERVOLA_CCACHE=OFF turns it off.
option(TERVOLA_CCACHE "Compile through ccache when it is installed" ON)
find_program(TERVOLA_CCACHE_PROGRAM ccache)
if(TERVOLA_CCACHE AND TERVOLA_CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(launcher env CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1
      CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${TERVOLA_CCACHE_PROGRAM})
  set(CMAKE_C_COMPILER_LAUNCHER ${launcher})
  set(CMAKE_CXX_COMPILER_LAUNCHER ${launcher})
endif()

# LLVM's linker, when installed, links the many test programs (each holds the whole window)
# several times faster than the system's. TERVOLA_LLD=OFF keeps the system's linker.
option(TERVOLA_LLD "Link with ld.lld when it is installed" ON)
find_program(TERVOLA_LLD_PROGRAM ld.lld)
if(TERVOLA_LLD AND TERVOLA_LLD_PROGRAM AND CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  add_link_options(-fuse-ld=lld)
endif()

# Compile options shared by every target of the project, core and UI alike.
add_library(tervola_options INTERFACE)
target_compile_features(tervola_options INTERFACE cxx_std_20)
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  target_compile_options(tervola_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor)
  # GCC 12 reports std::string concatenations with short literals as overlapping memcpy at -O3
  # (a false positive of its -Wrestrict analysis inside libstdc++), so that one check is off there.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 12
     AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(tervola_options INTERFACE -Wno-restrict)
  endif()
  if(TERVOLA_WERROR)
    target_compile_options(tervola_options INTERFACE -Werror)
  endif()
  if(TERVOLA_SANITIZE)
    target_compile_options(tervola_options INTERFACE -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    target_link_options(tervola_options INTERFACE -fsanitize=address,undefined)
    # Tests that bound a duration allow for the instrumented code's slower pace.
    target_compile_definitions(tervola_options INTERFACE TERVOLA_SANITIZED=1)
  endif()
  if(TERVOLA_FUZZ)
    # Coverage for libFuzzer in every library; only the fuzz programs link libFuzzer's main.
    if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
      message(FATAL_ERROR "TERVOLA_FUZZ needs clang: configure with CC=clang CXX=clang++")
    endif()
    target_compile_options(tervola_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined
                           -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    target_link_options(tervola_options INTERFACE -fsanitize=address,undefined)
    # Tests that bound a duration allow for the instrumented code's slower pace.
    target_compile_definitions(tervola_options INTERFACE TERVOLA_SANITIZED=1)
  endif()
endif()

# Options for the Qt-free core libraries. The core include path never contains Qt's,
# so an #include of a Qt header in a core file fails to compile.
add_library(tervola_core_options INTERFACE)
target_link_libraries(tervola_core_options INTERFACE tervola_options)
target_include_directories(tervola_core_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_definitions(tervola_core_options INTERFACE TERVOLA_CORE=1)
