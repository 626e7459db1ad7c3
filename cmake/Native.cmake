# Native build: the portable core's tests, fuzz targets and benchmarks.
find_package(GTest REQUIRED)

file(GLOB NATIVE_TEST_SOURCES ${CMAKE_SOURCE_DIR}/tests/native/*.cpp)
add_executable(vell_native_tests ${NATIVE_TEST_SOURCES})
target_link_libraries(vell_native_tests PRIVATE vellrender vellcore GTest::gtest GTest::gtest_main)
target_include_directories(vell_native_tests PRIVATE ${CMAKE_SOURCE_DIR}/tests/native)
add_test(NAME native_tests COMMAND vell_native_tests)
set_tests_properties(native_tests PROPERTIES
  ENVIRONMENT "LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/native/lsan.supp")

# Writes the seed corpora and sample files that the fuzzers start from.
add_executable(vell_make_samples ${CMAKE_SOURCE_DIR}/tests/fuzz/MakeSamples.cpp
                                 ${CMAKE_SOURCE_DIR}/tests/native/BmpWriter.cpp)
target_include_directories(vell_make_samples PRIVATE ${CMAKE_SOURCE_DIR}/tests/native)

if(VELL_FUZZ)
  foreach(target dib_reader path_splitter color_set_text render)
    add_executable(fuzz_${target} ${CMAKE_SOURCE_DIR}/tests/fuzz/fuzz_${target}.cpp)
    target_link_libraries(fuzz_${target} PRIVATE vellrender vellcore)
    target_compile_options(fuzz_${target} PRIVATE -fsanitize=fuzzer)
    target_link_options(fuzz_${target} PRIVATE -fsanitize=fuzzer)
  endforeach()
endif()

if(VELL_BENCH)
  find_package(benchmark REQUIRED)
  add_executable(vell_bench ${CMAKE_SOURCE_DIR}/bench/DecodeBench.cpp
                            ${CMAKE_SOURCE_DIR}/tests/native/BmpWriter.cpp)
  target_include_directories(vell_bench PRIVATE ${CMAKE_SOURCE_DIR}/tests/native /usr/include/stb)
  target_link_libraries(vell_bench PRIVATE vellcore benchmark::benchmark)
  add_executable(vell_texture_bench ${CMAKE_SOURCE_DIR}/bench/TextureBench.cpp)
  target_link_libraries(vell_texture_bench PRIVATE vellcore benchmark::benchmark)
  # The renderer against cairo and GEGL, which only the benchmark links.
  find_package(PkgConfig REQUIRED)
  pkg_check_modules(YARDSTICKS REQUIRED IMPORTED_TARGET cairo gegl-0.4)
  add_executable(vell_render_bench ${CMAKE_SOURCE_DIR}/bench/RenderBench.cpp)
  target_link_libraries(vell_render_bench PRIVATE vellrender benchmark::benchmark
                                                  PkgConfig::YARDSTICKS)
endif()

# vellpaint: one effect of the reference renderer painted onto a sample scene
# or a user's .bmp, written as a PNG.
add_executable(vellpaint ${CMAKE_SOURCE_DIR}/tools/vellpaint/VellPaint.cpp
                         ${CMAKE_SOURCE_DIR}/tools/vellpaint/PaintCanvas.cpp
                         ${CMAKE_SOURCE_DIR}/tools/vellpaint/PaintSettings.cpp)
target_link_libraries(vellpaint PRIVATE vellscene vellrender vellcore)
add_test(NAME vellpaint_cli
         COMMAND ${CMAKE_SOURCE_DIR}/tests/tools/vellpaint_test.sh $<TARGET_FILE:vellpaint>)
