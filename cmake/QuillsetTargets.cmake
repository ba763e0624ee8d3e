# Helpers that every folder uses. Sources ending in _win32.cpp or _posix.cpp are built on their platform only.

add_library(quillset_warnings INTERFACE)
target_compile_options(quillset_warnings INTERFACE
    $<$<CXX_COMPILER_ID:GNU,Clang>:-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
        -Wold-style-cast -Wnon-virtual-dtor -Wformat=2>
    $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond -Wlogical-op>
    # When it optimises, GCC 12 warns wrongly about joined texts.
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<NOT:$<CONFIG:Debug>>>:-Wno-restrict>
    # One rounding per operation on every processor: results must agree between the platforms.
    $<$<CXX_COMPILER_ID:GNU,Clang>:-ffp-contract=off>
    $<$<CXX_COMPILER_ID:MSVC>:/W4 /utf-8 /fp:precise /bigobj>)
target_compile_definitions(quillset_warnings INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH
    $<$<BOOL:${WIN32}>:NOMINMAX WIN32_LEAN_AND_MEAN UNICODE _UNICODE _WIN32_WINNT=0x0A00>
    $<$<CXX_COMPILER_ID:MSVC>:_CRT_SECURE_NO_WARNINGS>) # it calls the standard library's own functions unsafe
if(QUILLSET_WERROR)
    target_compile_options(quillset_warnings INTERFACE
        $<$<CXX_COMPILER_ID:GNU,Clang>:-Werror> $<$<CXX_COMPILER_ID:MSVC>:/WX>)
endif()

function(quillset_platform_sources out)
    set(kept)
    foreach(source IN LISTS ARGN)
        if(WIN32 AND source MATCHES "_posix\\.cpp$")
            continue()
        endif()
        if(NOT WIN32 AND source MATCHES "_win32\\.cpp$")
            continue()
        endif()
        list(APPEND kept ${source})
    endforeach()
    set(${out} ${kept} PARENT_SCOPE)
endfunction()

# quillset_core(<folder> SOURCES ... [LINK ...] [PRIVATE_LINK ...]): the toolkit-free library quillset_<folder>.
function(quillset_core folder)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK;PRIVATE_LINK" ${ARGN})
    foreach(library IN LISTS ARG_LINK ARG_PRIVATE_LINK)
        if(library MATCHES "Qt|_ui$")
            message(FATAL_ERROR "quillset_${folder} is toolkit-free and must not link ${library}")
        endif()
    endforeach()
    quillset_platform_sources(sources ${ARG_SOURCES})
    add_library(quillset_${folder} STATIC ${sources})
    set_target_properties(quillset_${folder} PROPERTIES AUTOMOC OFF)
    target_include_directories(quillset_${folder} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(quillset_${folder} PUBLIC ${ARG_LINK} PRIVATE quillset_warnings ${ARG_PRIVATE_LINK})
endfunction()

# quillset_ui(<folder> SOURCES ... [LINK ...]): the windows of a folder, quillset_<folder>_ui.
function(quillset_ui folder)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    quillset_platform_sources(sources ${ARG_SOURCES})
    add_library(quillset_${folder}_ui STATIC ${sources})
    target_include_directories(quillset_${folder}_ui PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(quillset_${folder}_ui PUBLIC ${ARG_LINK} Qt6::Widgets PRIVATE quillset_warnings)
endfunction()

# quillset_program(<name> SOURCES ... [LINK ...]): an executable in bin/.
function(quillset_program name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    quillset_platform_sources(sources ${ARG_SOURCES})
    add_executable(${name} ${sources})
    target_link_libraries(${name} PRIVATE quillset_warnings ${ARG_LINK})
endfunction()

# quillset_windows_resources(<program> TITLE <text> MANIFEST <window|console> [ICON <file.ico>]): what Windows reads
# from a program file without running it. Nothing on other systems.
function(quillset_windows_resources program)
    if(NOT WIN32)
        return()
    endif()
    cmake_parse_arguments(ARG "" "TITLE;MANIFEST;ICON" "" ${ARGN})
    set(resource_target ${program})
    set(resource_file ${program}.exe)
    set(resource_title ${ARG_TITLE})
    set(folder ${PROJECT_SOURCE_DIR}/packaging/windows)
    set(resource_manifest ${folder}/${ARG_MANIFEST}.manifest)
    set(resource_icon)
    if(ARG_ICON)
        set(resource_icon "1 ICON \"${ARG_ICON}\"")
    endif()
    set(script ${CMAKE_CURRENT_BINARY_DIR}/${program}.rc)
    configure_file(${folder}/program.rc.in ${script} @ONLY)
    set_property(SOURCE ${script} PROPERTY OBJECT_DEPENDS "${resource_manifest};${ARG_ICON}")
    target_sources(${program} PRIVATE ${script})
    if(MSVC)
        target_link_options(${program} PRIVATE /MANIFEST:NO) # it would embed a second one
    endif()
endfunction()
