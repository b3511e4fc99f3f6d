# Test helpers shared by every tests/ folder.
include(GoogleTest)

if(DD_WIN32)
    # GoogleTest for Windows is compiled from the distribution's sources.
    set(gtest_force_shared_crt OFF CACHE BOOL "" FORCE)
    set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
    add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
    set(DD_GTEST_MAIN gtest_main gmock)
else()
    find_package(GTest REQUIRED)
    set(DD_GTEST_MAIN GTest::gtest_main GTest::gmock)
endif()

# dd_add_test(name SOURCES files... LIBS libs... [TIMEOUT seconds])
# A GoogleTest program whose cases each become one CTest test (run through tools/wine-exec in
# the Windows build). Fixtures in tests/fixtures are reachable through DD_FIXTURES.
function(dd_add_test name)
    cmake_parse_arguments(ARG "" "TIMEOUT" "SOURCES;LIBS" ${ARGN})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_LIBS} ${DD_GTEST_MAIN} dd_warnings)
    target_compile_definitions(${name} PRIVATE DD_FIXTURES="${PROJECT_SOURCE_DIR}/tests/fixtures")
    # Under Wine the Win32 layer's tests share the prefix's registry, windows and desktop, so they
    # take turns; the portable core's tests (in-memory seams) run beside them and each other.
    set(lock)
    if(DD_WIN32 AND name MATCHES "(^|_)win_tests$")
        set(lock RESOURCE_LOCK wine_desktop)
    endif()
    gtest_discover_tests(${name}
        DISCOVERY_MODE PRE_TEST
        NO_PRETTY_VALUES
        DISCOVERY_TIMEOUT 120
        PROPERTIES TIMEOUT ${ARG_TIMEOUT} ${lock})
endfunction()
