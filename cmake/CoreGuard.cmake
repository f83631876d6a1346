# The core libraries stay free of Qt. Two guards:
#  1. the core targets never link Qt, so Qt's include directories are absent and a Qt include
#     does not compile;
#  2. configuration fails outright when a core source names a Qt header or links a Qt target,
#     so the mistake is reported before any compiler runs.
function(tervola_check_core_has_no_qt)
  foreach(target IN LISTS ARGN)
    get_target_property(libs ${target} LINK_LIBRARIES)
    foreach(lib IN LISTS libs)
      if(lib MATCHES "^Qt")
        message(FATAL_ERROR "Core target '${target}' links ${lib}; the core must not use Qt.")
      endif()
    endforeach()
    get_target_property(dir ${target} SOURCE_DIR)
    file(GLOB_RECURSE files ${dir}/*.h ${dir}/*.cpp)
    foreach(f IN LISTS files)
      file(STRINGS ${f} hits REGEX "^[ \t]*#[ \t]*include[ \t]*[<\"](Qt|Q[A-Z]|qt)")
      if(hits)
        message(FATAL_ERROR "Core file ${f} includes a Qt header: ${hits}")
      endif()
    endforeach()
  endforeach()
endfunction()
