# What every target of ours shares: warnings, sanitizers, exact floating point, and how a library of one folder,
# its tests, its benchmarks and its fuzz targets are declared.

add_library(quorvel_warnings INTERFACE)
target_compile_options(quorvel_warnings INTERFACE
    $<$<CXX_COMPILER_ID:GNU,Clang>:-Wall;-Wextra;-Wpedantic;-Wshadow;-Wconversion;-Wsign-conversion;-Wnon-virtual-dtor;-Wold-style-cast;-Woverloaded-virtual;-Wdouble-promotion;-Wimplicit-fallthrough>
    $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond;-Wlogical-op>
    # g++ 12 reports a false overlap for "x" + std::string at -O3 (GCC bug 105651).
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>
    $<$<AND:$<CXX_COMPILER_ID:GNU,Clang>,$<BOOL:${QUORVEL_WARNINGS_AS_ERRORS}>>:-Werror>)

# Every result must be the same on every machine that has the same C library: no fused multiply-add.
add_library(quorvel_exact INTERFACE)
target_compile_options(quorvel_exact INTERFACE $<$<CXX_COMPILER_ID:GNU,Clang>:-ffp-contract=off>)

add_library(quorvel_sanitizers INTERFACE)
if(QUORVEL_SANITIZERS)
    target_compile_options(quorvel_sanitizers INTERFACE
        -fsanitize=${QUORVEL_SANITIZERS} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    target_link_options(quorvel_sanitizers INTERFACE -fsanitize=${QUORVEL_SANITIZERS})
endif()

# libFuzzer is guided by coverage of the libraries, so they are instrumented, too.
if(QUORVEL_FUZZ)
    target_compile_options(quorvel_sanitizers INTERFACE -fsanitize=fuzzer-no-link)
    target_link_options(quorvel_sanitizers INTERFACE -fsanitize=fuzzer-no-link)
endif()

# quorvel_target(NAME): the shared settings of one of our targets. They stay in this build: users of an
# installed library of ours choose their own warnings.
function(quorvel_target name)
    target_link_libraries(${name} PRIVATE
        $<BUILD_INTERFACE:quorvel_warnings> $<BUILD_INTERFACE:quorvel_exact> $<BUILD_INTERFACE:quorvel_sanitizers>)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
endfunction()

# quorvel_library(FOLDER HEADERS ... SOURCES ... LINK ...): the library quorvel_FOLDER of the current folder.
function(quorvel_library folder)
    cmake_parse_arguments(ARG "" "" "HEADERS;SOURCES;LINK" ${ARGN})
    set(target quorvel_${folder})
    add_library(${target} STATIC ${ARG_SOURCES})
    target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${ARG_HEADERS})
    target_link_libraries(${target} PUBLIC ${ARG_LINK})
    quorvel_target(${target})
endfunction()

# quorvel_install_library(FOLDER): installs the library with its headers as Quorvel::FOLDER of the CMake package; see
# cmake/QuorvelPackage.cmake.
function(quorvel_install_library folder)
    set_target_properties(quorvel_${folder} PROPERTIES EXPORT_NAME ${folder})
    target_compile_features(quorvel_${folder} PUBLIC cxx_std_20)
    install(TARGETS quorvel_${folder} EXPORT QuorvelTargets
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library
        FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quorvel COMPONENT library)
endfunction()

# quorvel_gui_library(FOLDER ... FORMS ...): the same for a folder that uses Qt: forms (*.ui), resources (*.qrc among
# the sources) and Q_OBJECT classes are compiled along.
function(quorvel_gui_library folder)
    cmake_parse_arguments(ARG "" "" "HEADERS;SOURCES;FORMS;LINK" ${ARGN})
    quorvel_library(${folder} HEADERS ${ARG_HEADERS} SOURCES ${ARG_SOURCES} LINK ${ARG_LINK})
    set(target quorvel_${folder})
    # Included as "FOLDER/ui_FORM.h". Not AUTOUIC: with Ninja a changed form reaches its users one build late.
    qt6_wrap_ui(form_headers ${ARG_FORMS})
    target_sources(${target} PRIVATE ${form_headers})
    target_include_directories(${target} PRIVATE ${PROJECT_BINARY_DIR})
    set_target_properties(${target} PROPERTIES AUTOMOC ON AUTORCC ON)
endfunction()

# quorvel_test(FOLDER SOURCES ... LINK ...): the executable quorvel_FOLDER_test over the folder's library.
function(quorvel_test folder)
    if(NOT QUORVEL_TESTS)
        return()
    endif()
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    set(target quorvel_${folder}_test)
    add_executable(${target} ${ARG_SOURCES})
    target_link_libraries(${target} PRIVATE ${ARG_LINK} quorvel_test_support GTest::gmock_main)
    quorvel_target(${target})
    gtest_discover_tests(${target} DISCOVERY_MODE POST_BUILD TEST_PREFIX "${folder}." PROPERTIES LABELS core)
endfunction()

# quorvel_benchmark(FOLDER SOURCES ... LINK ...): the executable quorvel_FOLDER_bench; ctest proves that it runs.
function(quorvel_benchmark folder)
    if(NOT QUORVEL_BENCHMARKS)
        return()
    endif()
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    set(target quorvel_${folder}_bench)
    add_executable(${target} ${ARG_SOURCES})
    target_link_libraries(${target} PRIVATE ${ARG_LINK} benchmark::benchmark_main)
    quorvel_target(${target})
    if(QUORVEL_TESTS)
        add_test(NAME bench.${folder} COMMAND ${target} --benchmark_min_time=0.001)
        set_tests_properties(bench.${folder} PROPERTIES LABELS bench)
    endif()
endfunction()

# quorvel_fuzz_target(NAME SOURCE LINK ...): NAME_fuzz_replay runs the corpus and mutated files through the target
# under any compiler; with QUORVEL_FUZZ also NAME_fuzz, for clang's libFuzzer.
function(quorvel_fuzz_target name source)
    if(NOT QUORVEL_TESTS)
        return()
    endif()
    add_executable(${name}_fuzz_replay ${source} ${PROJECT_SOURCE_DIR}/tests/support/fuzz_replay_main.cpp)
    target_link_libraries(${name}_fuzz_replay PRIVATE ${ARGN})
    quorvel_target(${name}_fuzz_replay)
    add_test(NAME fuzz.${name} COMMAND ${name}_fuzz_replay ${PROJECT_SOURCE_DIR}/tests/data/corpus/${name})
    set_tests_properties(fuzz.${name} PROPERTIES LABELS core)
    if(QUORVEL_FUZZ)
        add_executable(${name}_fuzz ${source})
        target_link_libraries(${name}_fuzz PRIVATE ${ARGN})
        quorvel_target(${name}_fuzz)
        target_compile_options(${name}_fuzz PRIVATE -fsanitize=fuzzer)
        target_link_options(${name}_fuzz PRIVATE -fsanitize=fuzzer)
    endif()
endfunction()

# quorvel_gui_test_properties(TEST PLATFORM): a Qt test on that platform plugin, with settings of its own.
function(quorvel_gui_test_properties test platform)
    set_tests_properties(${test} PROPERTIES LABELS gui ENVIRONMENT
        "QT_QPA_PLATFORM=${platform};XDG_CONFIG_HOME=${CMAKE_CURRENT_BINARY_DIR}/${test}-config;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/leaks.supp")
endfunction()

# quorvel_gui_test(NAME SOURCES ... LINK ...): the QTest executable quorvel_NAME_test, run without a screen and with
# settings of its own.
function(quorvel_gui_test name)
    if(NOT QUORVEL_TESTS)
        return()
    endif()
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    set(target quorvel_${name}_test)
    add_executable(${target} ${ARG_SOURCES})
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
    target_link_libraries(${target} PRIVATE ${ARG_LINK} Qt6::Test)
    quorvel_target(${target})
    add_test(NAME gui.${name} COMMAND ${target})
    quorvel_gui_test_properties(gui.${name} offscreen)
endfunction()
