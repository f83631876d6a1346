# Compile options shared by every target of the project, core and UI alike.
add_library(tervola_options INTERFACE)
target_compile_features(tervola_options INTERFACE cxx_std_20)
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  target_compile_options(tervola_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor)
  if(TERVOLA_WERROR)
    target_compile_options(tervola_options INTERFACE -Werror)
  endif()
  if(TERVOLA_SANITIZE)
    target_compile_options(tervola_options INTERFACE -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    target_link_options(tervola_options INTERFACE -fsanitize=address,undefined)
  endif()
endif()

# Options for the Qt-free core libraries. The core include path never contains Qt's,
# so an #include of a Qt header in a core file fails to compile.
add_library(tervola_core_options INTERFACE)
target_link_libraries(tervola_core_options INTERFACE tervola_options)
target_include_directories(tervola_core_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_definitions(tervola_core_options INTERFACE TERVOLA_CORE=1)
