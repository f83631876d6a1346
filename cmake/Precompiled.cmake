# Precompiled headers. Most of a compile of this project is spent reading the same headers again:
# Qt's widget headers in every window source and window test, GoogleTest in every core test, the
# standard library in every core source. Each group below is precompiled once by a small host
# target, and the targets of the group reuse the host's header (REUSE_FROM), so a test program
# of one source file does not pay for a header of its own.
#
# GCC checks a precompiled header against each compile and quietly reads the plain headers when
# they do not match. Clang refuses a header built with other language or code options, so every
# flag a target adds of its own (the core's optimisation in a sanitizer build, say) is given to
# its group's host too; definitions a target adds beyond the host's are accepted by both.
option(TERVOLA_PCH "Precompile the headers every source of a group reads" ON)

set(_tervola_pch_enabled OFF)
if(TERVOLA_PCH AND CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  set(_tervola_pch_enabled ON)
endif()

set(_tervola_pch_std
    <algorithm> <array> <cmath> <cstddef> <cstdint> <cstdio> <cstring> <functional> <memory>
    <optional> <string> <string_view> <utility> <vector>)

# The Qt headers that the window's sources and tests read most.
set(TERVOLA_PCH_WIDGETS
    <QAction> <QApplication> <QCheckBox> <QComboBox> <QDialog> <QDialogButtonBox> <QDir> <QEvent>
    <QFileInfo> <QGridLayout> <QHBoxLayout> <QLabel> <QLineEdit> <QLocale> <QMessageBox> <QPainter>
    <QPointer> <QPushButton> <QScreen> <QSpinBox> <QString> <QStringList> <QTabWidget>
    <QToolButton> <QVBoxLayout> <QWidget>)

# tervola_pch_host(GROUP LIBS lib... HEADERS header...): the host target of one group.
function(tervola_pch_host group)
  if(NOT _tervola_pch_enabled)
    return()
  endif()
  cmake_parse_arguments(ARG "" "" "LIBS;HEADERS" ${ARGN})
  set(source ${PROJECT_BINARY_DIR}/pch/${group}.cpp)
  if(NOT EXISTS ${source})
    file(WRITE ${source} "// Host of the precompiled headers of the group ${group}.\n")
  endif()
  add_library(tervola_pch_${group} OBJECT ${source})
  target_link_libraries(tervola_pch_${group} PRIVATE ${ARG_LIBS} tervola_options)
  target_precompile_headers(tervola_pch_${group} PRIVATE ${_tervola_pch_std} ${ARG_HEADERS})
  # The hosts hold no code of their own, so moc has nothing to do in them.
  set_target_properties(tervola_pch_${group} PROPERTIES AUTOMOC OFF AUTORCC OFF AUTOUIC OFF)
  _tervola_pch_group_options(${group} tervola_pch_${group})
endfunction()

# Qt Test defines each test program's own build and source folder, and its header reads them, so
# no two test programs could share one header. No test looks files up through them (the tests
# find their data by the project's own definitions), so the group leaves them undefined.
function(_tervola_pch_group_options group target)
  if(group STREQUAL "qttest")
    target_compile_options(${target} PRIVATE -UQT_TESTCASE_BUILDDIR -UQT_TESTCASE_SOURCEDIR)
  endif()
endfunction()

# tervola_use_pch(GROUP target...): the targets compile with the group's precompiled headers.
function(tervola_use_pch group)
  if(NOT _tervola_pch_enabled OR NOT TARGET tervola_pch_${group})
    return()
  endif()
  foreach(target IN LISTS ARGN)
    # CMake adds -Winvalid-pch: a header that does not match a target's compile (another -f
    # option, say) is named as a warning, an error in the main build, instead of being read
    # plainly without a word.
    target_precompile_headers(${target} REUSE_FROM tervola_pch_${group})
    _tervola_pch_group_options(${group} ${target})
    # A program's moc output is included by its own source ("X.moc"), so the file AUTOMOC adds to
    # compile it besides is empty; reading the precompiled header for it would cost a second each.
    get_target_property(type ${target} TYPE)
    get_target_property(automoc ${target} AUTOMOC)
    if(type STREQUAL "EXECUTABLE" AND automoc)
      get_target_property(binary_dir ${target} BINARY_DIR)
      set_source_files_properties(${binary_dir}/${target}_autogen/mocs_compilation.cpp TARGET_DIRECTORY ${target}
                                  PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
    endif()
  endforeach()
endfunction()
