# What every target of ours is compiled with.
add_library(quorvel_options INTERFACE)
target_compile_options(quorvel_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Werror)
if(QUORVEL_SANITIZE)
    target_compile_options(quorvel_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
        # The checks that are woven in make g++ doubt what it knows of std::variant.
        -Wno-maybe-uninitialized)
    target_link_options(quorvel_options INTERFACE -fsanitize=address,undefined)
endif()
if(WIN32)
    target_compile_definitions(quorvel_options INTERFACE
        UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN WINVER=0x0A00 _WIN32_WINNT=0x0A00)
    target_compile_options(quorvel_options INTERFACE -ffunction-sections -fdata-sections)
    target_link_options(quorvel_options INTERFACE -static -Wl,--gc-sections
        -Wl,--no-insert-timestamp)
endif()

# quorvel_library(NAME FOLDER DIRECTORY SOURCES a.cpp... DEPENDS core...)
#
# A library of the sources in one folder. Its headers are included as "FOLDER/Name.h", and only by
# targets that name it among their DEPENDS: the include path of a target holds a link to its own
# folder and to those it depends on, nothing else.
function(quorvel_library name)
    cmake_parse_arguments(ARG "" "FOLDER" "SOURCES;DEPENDS" ${ARGN})
    set(view ${CMAKE_BINARY_DIR}/include/${name})
    cmake_path(GET ARG_FOLDER PARENT_PATH parent)
    file(MAKE_DIRECTORY ${view}/${parent})
    file(CREATE_LINK ${CMAKE_SOURCE_DIR}/${ARG_FOLDER} ${view}/${ARG_FOLDER} SYMBOLIC)
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${view})
    target_link_libraries(${name} PUBLIC ${ARG_DEPENDS} PRIVATE quorvel_options)
endfunction()
