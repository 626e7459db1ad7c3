# VellImagePanel.dll, the picture-list module: a modal chooser of the .bmp
# pictures in one folder. It links the portable core, never VellColor.dll.

vell_def_file(${CMAKE_SOURCE_DIR}/tools/imagepanel/VellImagePanel.def VELL_IMAGE_PANEL_DEF)

add_library(VellImagePanel SHARED
  tools/imagepanel/ImagePanelModule.cpp
  tools/imagepanel/ImagePanelDialog.cpp
  tools/imagepanel/VellImagePanel.rc
  ${VELL_IMAGE_PANEL_DEF}
)
# The linker's own import library gets another name: the hosts' one below
# is made by dlltool.
set_target_properties(VellImagePanel PROPERTIES PREFIX "" OUTPUT_NAME VellImagePanel
                                                ARCHIVE_OUTPUT_NAME VellImagePanel-ld)
set_source_files_properties(tools/imagepanel/VellImagePanel.rc PROPERTIES COMPILE_FLAGS "-c 65001")
target_include_directories(VellImagePanel PRIVATE include src tools/imagepanel)
target_link_libraries(VellImagePanel PRIVATE vellcore comctl32 gdi32 user32)
target_link_options(VellImagePanel PRIVATE -Wl,--kill-at)

vell_host_import_library(VellImagePanel ${VELL_IMAGE_PANEL_DEF} VellImagePanelImport)

add_executable(win_image_panel_tests tests/windows/ImagePanelTest.cpp)
target_include_directories(win_image_panel_tests PRIVATE tools/imagepanel)
target_link_libraries(win_image_panel_tests PRIVATE vell_wintest_support VellImagePanelImport
                                                    gtest_main comctl32 gdi32)
target_link_options(win_image_panel_tests PRIVATE -static)
add_test(NAME win_image_panel_tests COMMAND win_image_panel_tests)
set_tests_properties(win_image_panel_tests PROPERTIES RUN_SERIAL TRUE TIMEOUT 600)
