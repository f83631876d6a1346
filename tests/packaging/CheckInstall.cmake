# Installs the build folder BUILD into PREFIX (emptied first) and checks the installed files and
# that they name each other consistently: desktop entry, icon, MIME types, metainfo, programs.
#   cmake -DBUILD=... -DPREFIX=... -DVERSION=... -P CheckInstall.cmake
set(id fi.orlithe.TervolaPocket)

file(REMOVE_RECURSE ${PREFIX})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${PREFIX}
                RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "cmake --install failed (${result}):\n${output}")
endif()

set(desktop ${PREFIX}/share/applications/${id}.desktop)
set(mime ${PREFIX}/share/mime/packages/${id}.xml)
set(metainfo ${PREFIX}/share/metainfo/${id}.metainfo.xml)
set(icon ${PREFIX}/share/icons/hicolor/scalable/apps/${id}.svg)
set(manpage ${PREFIX}/share/man/man1/tervola.1.gz)
foreach(file ${PREFIX}/bin/tervola-pocket ${PREFIX}/bin/tervola ${desktop} ${mime} ${metainfo}
        ${icon} ${manpage})
  if(NOT EXISTS ${file})
    message(FATAL_ERROR "not installed: ${file}\n${output}")
  endif()
endforeach()

function(expect text regex what)
  if(NOT text MATCHES "${regex}")
    message(FATAL_ERROR "${what}: no match for \"${regex}\"")
  endif()
endfunction()

# Desktop entry: opens the file it is given, its icon is the installed one, and its types are
# exactly those the MIME package defines.
file(READ ${desktop} entry)
expect("${entry}" "\nExec=tervola-pocket %f\n" "${desktop}")
expect("${entry}" "\nIcon=${id}\n" "${desktop}")
expect("${entry}" "\nGenericName=Skydiving Logbook\n" "${desktop}")
if(NOT entry MATCHES "\nMimeType=([^\n]*)\n")
  message(FATAL_ERROR "${desktop}: no MimeType")
endif()
string(REGEX REPLACE ";$" "" entry_types "${CMAKE_MATCH_1}")
list(SORT entry_types)
file(READ ${mime} mime_xml)
string(REGEX MATCHALL "<mime-type type=\"[^\"]+\"" defined "${mime_xml}")
list(TRANSFORM defined REPLACE "<mime-type type=\"([^\"]+)\"" "\\1")
list(SORT defined)
if(NOT entry_types STREQUAL defined OR NOT defined STREQUAL
   "application/x-tervola-logbook;application/x-tervola-logbook-compressed")
  message(FATAL_ERROR
          "desktop entry types (${entry_types}) differ from the MIME package's (${defined})")
endif()
expect("${mime_xml}" "<glob pattern=\"\\*\\.tvz\"/>" "${mime}")
expect("${mime_xml}" "<glob pattern=\"\\*\\.tvl\"/>" "${mime}")
expect("${mime_xml}" "<root-XML namespaceURI=\"\" localName=\"tvl\"/>" "${mime}")

# Metainfo: the same id, launched by the installed desktop entry, provides the installed programs,
# and its newest release is the project's version.
file(READ ${metainfo} component)
expect("${component}" "<id>${id}</id>" "${metainfo}")
expect("${component}" "<launchable type=\"desktop-id\">${id}.desktop</launchable>" "${metainfo}")
string(REGEX MATCHALL "<binary>[^<]+</binary>" binaries "${component}")
list(TRANSFORM binaries REPLACE "</?binary>" "")
list(SORT binaries)
if(NOT binaries STREQUAL "tervola;tervola-pocket")
  message(FATAL_ERROR "${metainfo}: provided binaries are \"${binaries}\"")
endif()
if(NOT component MATCHES "<releases>[ \n]*<release version=\"([^\"]+)\""
   OR NOT CMAKE_MATCH_1 STREQUAL VERSION)
  message(FATAL_ERROR "${metainfo}: newest release ${CMAKE_MATCH_1}, project version ${VERSION}")
endif()

# The installed tool runs.
execute_process(COMMAND ${PREFIX}/bin/tervola --version
                RESULT_VARIABLE result OUTPUT_VARIABLE version)
if(NOT result EQUAL 0 OR NOT version STREQUAL "tervola ${VERSION}\n")
  message(FATAL_ERROR "installed tervola --version: ${result} \"${version}\"")
endif()
message(STATUS "installed and consistent: ${PREFIX}")
