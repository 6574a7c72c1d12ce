# One way to declare the libraries, programs and tests of the house.

# Every target of the project gets these; they must be the same everywhere, because the precompiled
# headers are shared.
add_library(hotel_options INTERFACE)
target_compile_options(hotel_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Werror)
target_compile_definitions(hotel_options INTERFACE QT_NO_CAST_TO_ASCII QT_NO_FOREACH
                                                   QT_NO_KEYWORDS)
target_include_directories(hotel_options INTERFACE ${CMAKE_SOURCE_DIR})
if(HOTEL_SANITIZE)
    target_compile_options(hotel_options INTERFACE -fsanitize=address,undefined
                                                   -fno-sanitize-recover=undefined
                                                   -fno-omit-frame-pointer)
    target_link_options(hotel_options INTERFACE -fsanitize=address,undefined)
endif()

# The two precompiled headers: one without widgets for the lower folders and the server, one with.
add_library(hotel_pch_core STATIC ${CMAKE_SOURCE_DIR}/cmake/pch_core.cpp)
target_link_libraries(hotel_pch_core PUBLIC hotel_options Qt6::Core Qt6::Network Qt6::Sql)
target_precompile_headers(hotel_pch_core PRIVATE ${CMAKE_SOURCE_DIR}/cmake/pch_core.h)

add_library(hotel_pch_gui STATIC ${CMAKE_SOURCE_DIR}/cmake/pch_gui.cpp)
target_link_libraries(hotel_pch_gui PUBLIC hotel_options Qt6::Core Qt6::Network Qt6::Sql
                                           Qt6::Widgets Qt6::PrintSupport)
target_precompile_headers(hotel_pch_gui PRIVATE ${CMAKE_SOURCE_DIR}/cmake/pch_gui.h)

# hotel_library(record CORE|GUI SOURCES a.cpp ... LINKS hotel_x Qt6::Y ...)
# Declares library hotel_<folder>. CORE libraries know no widgets.
function(hotel_library folder kind)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    string(TOLOWER ${kind} kind)
    add_library(hotel_${folder} STATIC ${ARG_SOURCES})
    target_link_libraries(hotel_${folder} PUBLIC hotel_pch_${kind} ${ARG_LINKS})
    target_precompile_headers(hotel_${folder} REUSE_FROM hotel_pch_${kind})
endfunction()

# hotel_program(name CORE|GUI SOURCES ... LINKS ...)
function(hotel_program name kind)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    string(TOLOWER ${kind} kind)
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE hotel_pch_${kind} ${ARG_LINKS})
    target_precompile_headers(${name} REUSE_FROM hotel_pch_${kind})
endfunction()

# hotel_test(record CORE|GUI SOURCES ... LINKS ...): one Qt Test executable for a folder; its classes
# register themselves (tests/hotel_test.h). Tests never need a display.
function(hotel_test folder kind)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    string(TOLOWER ${kind} lower)
    hotel_program(test_${folder} ${kind}
        SOURCES ${ARG_SOURCES} ${CMAKE_SOURCE_DIR}/tests/hotel_test.cpp
                ${CMAKE_SOURCE_DIR}/tests/main_${lower}.cpp
        LINKS ${ARG_LINKS} Qt6::Test)
    add_test(NAME ${folder} COMMAND test_${folder})
    set_tests_properties(${folder} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_FORCE_STDERR_LOGGING=1" TIMEOUT 900)
endfunction()
