# Compiler settings shared by every target of the project.
add_library(pelorin_options INTERFACE)
target_compile_options(pelorin_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wold-style-cast -Wnon-virtual-dtor
    $<$<BOOL:${PELORIN_WARNINGS_AS_ERRORS}>:-Werror>)
target_compile_definitions(pelorin_options INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH)
target_include_directories(pelorin_options INTERFACE ${CMAKE_SOURCE_DIR}/src)
if(PELORIN_SANITIZE)
    target_compile_options(pelorin_options INTERFACE
        -fsanitize=${PELORIN_SANITIZE} -fno-sanitize-recover=all)
    target_link_options(pelorin_options INTERFACE -fsanitize=${PELORIN_SANITIZE})
endif()

# pelorin_layer(<name> SOURCES <files> [USES <libraries>])
# One static library per layer, named pelorin_<name>; USES are the layers and libraries it needs.
function(pelorin_layer name)
    cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
    add_library(pelorin_${name} STATIC ${ARG_SOURCES})
    target_link_libraries(pelorin_${name} PUBLIC ${ARG_USES} PRIVATE pelorin_options)
    target_include_directories(pelorin_${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
endfunction()

# pelorin_test(<Name> [USES <libraries>] [TIMEOUT <seconds>] [DECIMAL_COMMA])
# One test program from <Name>.cpp, run offscreen with folders of its own. With
# DECIMAL_COMMA it runs once more, with a decimal comma in the C library and in the default locale.
function(pelorin_test name)
    cmake_parse_arguments(ARG "DECIMAL_COMMA" "TIMEOUT" "USES" ${ARGN})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 60)
    endif()
    add_executable(${name} ${name}.cpp)
    set_target_properties(${name} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    target_link_libraries(${name} PRIVATE ${ARG_USES} pelorin_test_support pelorin_options Qt6::Test)
    pelorin_test_run(${name} ${name} ${ARG_TIMEOUT} C.UTF-8)
    if(ARG_DECIMAL_COMMA)
        pelorin_test_run(${name}.german ${name} ${ARG_TIMEOUT} de_DE.UTF-8)
    endif()
endfunction()

# The toolkit reads the path of a screen as Latin-1: a relative one has no folders of the user's.
function(pelorin_screen variable name)
    file(RELATIVE_PATH screen ${CMAKE_CURRENT_BINARY_DIR} ${CMAKE_SOURCE_DIR}/tests/support/${name})
    set(${variable} "offscreen:configfile=${screen}" PARENT_SCOPE)
endfunction()

# pelorin_test_run(<run> <program> <timeout> <locale> [<argument>...])
function(pelorin_test_run run program timeout locale)
    pelorin_screen(platform screen.json)
    # The toolkit starts programs with vfork, of which the thread sanitizer believes that threads
    # cannot be started after it.
    set(environment
        "QT_QPA_PLATFORM=${platform}"
        "XDG_CONFIG_HOME=${CMAKE_BINARY_DIR}/tests/config/${run}"
        "XDG_DATA_HOME=${CMAKE_BINARY_DIR}/tests/data/${run}"
        "LC_ALL=${locale}"
        "LANGUAGE="
        "TSAN_OPTIONS=suppressions='${CMAKE_SOURCE_DIR}/tests/support/tsan.supp':die_after_fork=0"
        "UBSAN_OPTIONS=print_stacktrace=1")
    add_test(NAME ${run} COMMAND ${program} ${ARGN})
    set_tests_properties(${run} PROPERTIES
        TIMEOUT ${timeout}
        ENVIRONMENT "${environment}"
        ENVIRONMENT_MODIFICATION "QT_SCALE_FACTOR=unset:;QT_FONT_DPI=unset:")
endfunction()
