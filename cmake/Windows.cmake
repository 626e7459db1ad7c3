# Windows build: VellColor.dll, its import library, the demo host and the
# Windows tests, which CTest runs through Wine.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)

# Nothing but system DLLs and msvcrt.dll at run time.
add_link_options(-static)
add_compile_definitions(UNICODE _UNICODE WINVER=0x0501 _WIN32_WINNT=0x0501)

# The Win32 layer and the dialogs, compiled once for the DLL; test programs
# that need the internals link the same objects.
add_library(vellwin OBJECT
  src/framework/Dialog.cpp
  src/framework/MessageFilter.cpp
  src/framework/ModuleInstance.cpp
  src/framework/ScrollBars.cpp
  src/framework/SystemDialogs.cpp
  src/dialog/CDlgColor.cpp
  src/dialog/SettingsFile.cpp
  src/framework/ShowErrorMessage.cpp
  src/panels/CDlgColorSet.cpp
  src/panels/CDlgColorSlider.cpp
  src/panels/CDlgDensityPattern.cpp
  src/panels/CDlgGradation.cpp
  src/panels/CDlgImageSource.cpp
  src/panels/CDlgMapping.cpp
  src/panels/CDlgStripe.cpp
  src/panels/CDlgTile.cpp
  src/panels/ColorLabelPainter.cpp
  src/panels/PanelControls.cpp
  src/panels/Panels.cpp
)
target_include_directories(vellwin PUBLIC include src resources)
target_compile_definitions(vellwin PUBLIC VELLCOLOR_BUILDING_DLL)

# A module's .def file for this processor: 64-bit Windows has one calling
# convention and no @N decoration.
function(vell_def_file source result)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source})
  if(CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
    get_filename_component(name ${source} NAME)
    file(READ ${source} text)
    string(REGEX REPLACE "@[0-9]+" "" text "${text}")
    file(WRITE ${CMAKE_BINARY_DIR}/${name} "${text}")
    set(${result} ${CMAKE_BINARY_DIR}/${name} PARENT_SCOPE)
  else()
    set(${result} ${source} PARENT_SCOPE)
  endif()
endfunction()
vell_def_file(${CMAKE_SOURCE_DIR}/src/module/VellColor.def VELL_DEF)

add_library(VellColor SHARED
  src/module/VellColorModule.cpp
  resources/VellColor.rc
  ${VELL_DEF}
)
set_target_properties(VellColor PROPERTIES PREFIX "" OUTPUT_NAME VellColor)
target_include_directories(VellColor PRIVATE include src resources)
target_link_libraries(VellColor PRIVATE vellwin vellcore VellImagePanelImport comctl32 comdlg32
                                        gdi32 user32)
target_compile_definitions(VellColor PRIVATE VELLCOLOR_BUILDING_DLL)
# Undecorated __stdcall names in the export table.
target_link_options(VellColor PRIVATE -Wl,--kill-at)
set_target_properties(VellColor PROPERTIES
  RC_FLAGS "-I${CMAKE_SOURCE_DIR}/resources -c 65001"
  ARCHIVE_OUTPUT_NAME VellColor-cxx)

# A module's import library for hosts, lib<module>.dll.a, and an interface
# target `import` that links it. The linker's own library would carry the
# undecorated names too, but a compiler calling a __stdcall function looks
# for PXColor_Open@8; dlltool keeps that symbol and imports it by the plain
# name.
find_program(VELL_DLLTOOL ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32-dlltool REQUIRED)
function(vell_host_import_library module def import)
  set(lib ${CMAKE_ARCHIVE_OUTPUT_DIRECTORY}/lib${module}.dll.a)
  add_custom_command(TARGET ${module} POST_BUILD
    COMMAND ${VELL_DLLTOOL} --kill-at --input-def ${def} --dllname ${module}.dll
            --output-lib ${lib}
    VERBATIM)
  add_library(${import} INTERFACE)
  target_include_directories(${import} INTERFACE ${CMAKE_SOURCE_DIR}/include)
  target_link_libraries(${import} INTERFACE ${lib})
  add_dependencies(${import} ${module})
endfunction()
# The linker's library (libVellColor-cxx.dll.a) adds the exported classes.
vell_host_import_library(VellColor ${VELL_DEF} VellColorImport)

# The demo host: a small drawing program around the remote control. Its
# windows live in a library that the tests and the benchmark drive too.
add_library(velldemohost STATIC tools/demohost/PaintDocument.cpp tools/demohost/HostRequest.cpp
                                tools/demohost/CanvasView.cpp tools/demohost/HostWindow.cpp
                                tools/demohost/DemoScript.cpp)
target_include_directories(velldemohost PUBLIC tools/demohost)
target_link_libraries(velldemohost PUBLIC VellColorImport vellscene vellrender vellcore comctl32
                                          comdlg32)
add_executable(VellDemoHost WIN32 tools/demohost/DemoHost.cpp)
target_link_libraries(VellDemoHost PRIVATE velldemohost)
target_link_options(VellDemoHost PRIVATE -static -municode)

# GoogleTest from the Debian sources, built with the cross compiler.
set(gtest_disable_pthreads ON CACHE BOOL "" FORCE)
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)

add_library(vell_wintest_support STATIC tests/windows/WinTestSupport.cpp tests/native/BmpWriter.cpp)
target_include_directories(vell_wintest_support PUBLIC include src resources tests/windows
                                                      tests/native)
target_link_libraries(vell_wintest_support PUBLIC gtest)

# Programs that load the real DLL as a host does.
function(vell_dll_test name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE vell_wintest_support VellColorImport VellColor vellcore
                                        gtest_main)
  target_link_options(${name} PRIVATE -static)
  add_test(NAME ${name} COMMAND ${name})
endfunction()

vell_dll_test(win_module_tests tests/windows/ModuleTest.cpp tests/windows/DialogTemplateTest.cpp)
vell_dll_test(win_notification_tests tests/windows/NotificationTest.cpp)
vell_dll_test(win_settings_tests tests/windows/SettingsTest.cpp)
vell_dll_test(win_layout_tests tests/windows/LayoutTest.cpp)
vell_dll_test(win_color_set_tests tests/windows/ColorSetPanelTest.cpp)
vell_dll_test(win_geometric_panel_tests tests/windows/GeometricPanelsTest.cpp)
vell_dll_test(win_stripe_panel_tests tests/windows/StripePanelTest.cpp)
vell_dll_test(win_isoline_panel_tests tests/windows/IsolinePanelTest.cpp)
vell_dll_test(win_soak_tests tests/windows/SoakTest.cpp)
vell_dll_test(win_mapping_panel_tests tests/windows/MappingPanelTest.cpp)
vell_dll_test(win_demo_host_tests tests/windows/DemoHostTest.cpp)
target_link_libraries(win_demo_host_tests PRIVATE velldemohost)

# A host that loads and unloads the library at run time, so it imports
# nothing from it.
add_executable(win_unload_tests tests/windows/UnloadTest.cpp)
target_link_libraries(win_unload_tests PRIVATE vell_wintest_support gtest_main)
target_link_options(win_unload_tests PRIVATE -static)
add_dependencies(win_unload_tests VellColor)
add_test(NAME win_unload_tests COMMAND win_unload_tests)

# Programs that link the Win32 layer itself, for what the DLL does not export.
add_executable(win_internal_tests tests/windows/ErrorMessageTest.cpp
                                  tests/windows/BitmapDrawTest.cpp tests/windows/ClipboardTest.cpp
                                  tests/windows/SettingsSectionTest.cpp
                                  tests/windows/PanelControlsTest.cpp resources/VellColor.rc)
set_source_files_properties(resources/VellColor.rc PROPERTIES
  COMPILE_FLAGS "-I${CMAKE_SOURCE_DIR}/resources -c 65001")
target_link_libraries(win_internal_tests PRIVATE vell_wintest_support vellwin vellcore
                                                 VellImagePanelImport gtest_main
                                                 comctl32 comdlg32)
target_link_options(win_internal_tests PRIVATE -static)
add_test(NAME win_internal_tests COMMAND win_internal_tests)

# Windows tests share one display and the settings file beside them.
set_tests_properties(win_module_tests win_notification_tests win_settings_tests
                     win_layout_tests win_internal_tests win_color_set_tests
                     win_geometric_panel_tests win_stripe_panel_tests win_mapping_panel_tests
                     win_isoline_panel_tests win_unload_tests win_soak_tests win_demo_host_tests
                     PROPERTIES RUN_SERIAL TRUE TIMEOUT 600)
include(cmake/ImagePanel.cmake)

# The open-latency benchmark: run by scripts/bench.sh, not by the tests.
add_executable(OpenBench bench/OpenBench.cpp)
target_link_libraries(OpenBench PRIVATE vell_wintest_support VellColorImport vellcore comctl32)
target_link_options(OpenBench PRIVATE -static)

# Paint latency in the demo host: a notification to the repainted window,
# against the renderer alone and one blit of the canvas. Run by
# scripts/bench.sh, not by the tests.
add_executable(HostPaintBench bench/HostPaintBench.cpp)
target_link_libraries(HostPaintBench PRIVATE vell_wintest_support velldemohost)
target_link_options(HostPaintBench PRIVATE -static)
