# Functions that every folder uses, so that warnings, sanitizers and the test environment are
# decided in one place.

include(TeskelHardening)

# Applies the project's warnings and, when asked for, the sanitizers to a target.
function(teskel_set_defaults target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wconversion -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Werror
        # GCC 12 warns of std::string's own operator+ when it optimises (its bug 105651).
        $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
    target_compile_definitions(${target} PRIVATE
        QT_NO_CAST_FROM_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_DISABLE_DEPRECATED_BEFORE=0x060400)
    teskel_harden(${target})
    if(TESKEL_SANITIZE)
        target_compile_options(${target} PRIVATE
            -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=address,undefined)
    endif()
    if(TESKEL_BUILD_FUZZERS)
        target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
    endif()
endfunction()

# Lets a target reuse the precompiled headers of Qt Widgets or, if it goes without them, Qt Core.
# Parsing Qt's headers is what most of the time of a build goes into.
function(teskel_use_precompiled_headers target)
    if(NOT TESKEL_PRECOMPILE)
        return()
    endif()
    set(kind core)
    if("${ARGN}" MATCHES "Qt6::Widgets|teskel_(platform|settings|widgets|files|lookup|app)")
        set(kind widgets)
    endif()
    target_precompile_headers(${target} REUSE_FROM teskel_precompiled_${kind})
endfunction()

# teskel_add_library(name SOURCES ... [PUBLIC libs...] [PRIVATE libs...])
# A library of one folder below src/, static unless BUILD_SHARED_LIBS says otherwise; headers are
# included as "folder/header.h".
function(teskel_add_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;PUBLIC;PRIVATE")
    add_library(${name} ${arg_SOURCES})
    target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}/src")
    target_link_libraries(${name} PUBLIC ${arg_PUBLIC} PRIVATE ${arg_PRIVATE})
    teskel_set_defaults(${name})
    teskel_use_precompiled_headers(${name} ${arg_PUBLIC} ${arg_PRIVATE})
endfunction()

# teskel_add_program(name SOURCES ... [LIBS libs...])
function(teskel_add_program name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBS")
    add_executable(${name} ${arg_SOURCES})
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/src")
    target_link_libraries(${name} PRIVATE ${arg_LIBS})
    teskel_set_defaults(${name})
    teskel_use_precompiled_headers(${name} ${arg_LIBS})
endfunction()

# Environment of every test: no display, a home of its own, nothing from the developer's session.
set(TESKEL_TEST_HOME "${CMAKE_BINARY_DIR}/test-home")
set(TESKEL_TEST_ENVIRONMENT
    QT_QPA_PLATFORM=offscreen
    LC_ALL=C.UTF-8
    QTEST_FUNCTION_TIMEOUT=3600000 # milliseconds; how long a test may take is for ctest alone
    "HOME=${TESKEL_TEST_HOME}"
    "XDG_CONFIG_HOME=${TESKEL_TEST_HOME}/config"
    "XDG_DATA_HOME=${TESKEL_TEST_HOME}/data"
    "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0"
    "UBSAN_OPTIONS=print_stacktrace=1")

# Runs a Qt Test program so that ctest sees whether it skipped a part of itself. ctest's own
# SKIP_REGULAR_EXPRESSION would hide a failure behind the skipped part.
set(TESKEL_RUN_TEST bash "${PROJECT_SOURCE_DIR}/tests/suite/run-test")

# teskel_add_test(name SOURCES ... [LIBS libs...] [LABELS ...] [TIMEOUT seconds])
# A Qt Test program run by ctest; tests may include helpers as "tests/...".
function(teskel_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "TIMEOUT" "SOURCES;LIBS;LABELS")
    add_executable(${name} ${arg_SOURCES})
    target_include_directories(${name} PRIVATE
        "${PROJECT_SOURCE_DIR}/src" "${PROJECT_SOURCE_DIR}")
    target_link_libraries(${name} PRIVATE ${arg_LIBS} Qt6::Test)
    teskel_set_defaults(${name})
    teskel_use_precompiled_headers(${name} ${arg_LIBS})
    add_test(NAME ${name} COMMAND ${TESKEL_RUN_TEST} $<TARGET_FILE:${name}>)
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()
    set_tests_properties(${name} PROPERTIES
        TIMEOUT ${arg_TIMEOUT}
        LABELS "${arg_LABELS}"
        SKIP_RETURN_CODE 77
        ENVIRONMENT "${TESKEL_TEST_ENVIRONMENT}"
        ENVIRONMENT_MODIFICATION "QPEDIR=unset:;DBUS_SESSION_BUS_ADDRESS=unset:;DISPLAY=unset:;WAYLAND_DISPLAY=unset:;QT_LOGGING_RULES=unset:;QT_FATAL_WARNINGS=unset:")
endfunction()
