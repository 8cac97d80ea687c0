# What every target of ours is compiled with.
add_library(quorvel_options INTERFACE)
target_compile_options(quorvel_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Werror)
if(QUORVEL_SANITIZE)
    target_compile_options(quorvel_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
        # The checks that are woven in make g++ doubt what it knows of std::variant.
        $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    target_link_options(quorvel_options INTERFACE -fsanitize=address,undefined)
endif()
if(QUORVEL_FUZZ)
    # What tells a fuzzer where its bytes have led.
    target_compile_options(quorvel_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(WIN32)
    target_compile_definitions(quorvel_options INTERFACE
        UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN WINVER=0x0A00 _WIN32_WINNT=0x0A00)
    target_compile_options(quorvel_options INTERFACE
        -ffunction-sections -fdata-sections -fstack-protector-strong)
    target_link_options(quorvel_options INTERFACE -static -fstack-protector-strong -Wl,--gc-sections
        -Wl,--no-insert-timestamp -Wl,--dynamicbase,--high-entropy-va,--nxcompat)

    # LLVM's linker leaves out what nothing refers to; the cross-compiler's own keeps every function of
    # an object that it takes once, since the table for unwinding refers to it. g++ starts only its own,
    # so clang++ does, which has to be told where Debian keeps the cross-compiler's libraries.
    set(libraries /usr/lib/gcc/x86_64-w64-mingw32/12-posix)
    string(CONCAT CMAKE_CXX_LINK_EXECUTABLE
        "clang++ --target=x86_64-w64-mingw32 -fuse-ld=lld -B${libraries} -L${libraries}"
        " <FLAGS> <LINK_FLAGS> <OBJECTS> -o <TARGET> <LINK_LIBRARIES> -lpthread")
endif()

# What nearly every source reads takes longer than what it has to say, so it is compiled once. Whether a
# source names all the headers that it needs is told where clang-tidy reads them.
#
# quorvel_standard_once(NAME): compiled as everything else in the folder where this is called.
function(quorvel_standard_once name)
    file(WRITE ${CMAKE_BINARY_DIR}/${name}.cpp "")
    add_library(${name} OBJECT ${CMAKE_BINARY_DIR}/${name}.cpp)
    target_precompile_headers(${name} PRIVATE
        <algorithm> <filesystem> <functional> <map> <memory> <optional> <random> <set> <span>
        <sstream> <string> <variant> <vector>)
    target_link_libraries(${name} PRIVATE quorvel_options)
endfunction()
quorvel_standard_once(standard_once)
set(QUORVEL_STANDARD_ONCE standard_once)

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
    target_precompile_headers(${name} REUSE_FROM ${QUORVEL_STANDARD_ONCE})
    set_target_properties(${name} PROPERTIES
        QUORVEL_FOLDER "${ARG_FOLDER}" QUORVEL_DEPENDS "${ARG_DEPENDS}")
    set_property(GLOBAL APPEND PROPERTY QUORVEL_LIBRARIES ${name})
endfunction()

# quorvel_check_folders(FILE)
#
# Stops unless the list of folders in FILE is true: every one of them is there, every library of the
# program lies in one, and depends only on libraries in its own folder and in those further down.
function(quorvel_check_folders file)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
    file(STRINGS ${file} lines REGEX "^    [a-z0-9/-]+/ ")
    set(row 0)
    foreach(line IN LISTS lines)
        math(EXPR row "${row} + 1")
        string(REGEX MATCH "^ +([a-z0-9/-]+/ +)+" folders "${line}")
        string(REGEX MATCHALL "[a-z0-9-]+(/[a-z0-9-]+)*" folders "${folders}")
        foreach(folder IN LISTS folders)
            if(NOT IS_DIRECTORY ${CMAKE_SOURCE_DIR}/${folder})
                message(FATAL_ERROR "${file} lists ${folder}/, which is not there")
            endif()
            set(row_${folder} ${row})
        endforeach()
    endforeach()
    get_property(libraries GLOBAL PROPERTY QUORVEL_LIBRARIES)
    foreach(library IN LISTS libraries)
        get_target_property(folder ${library} QUORVEL_FOLDER)
        if(folder MATCHES "^(tests|assets)(/|$)")
            continue()
        endif()
        if(NOT DEFINED row_${folder})
            message(FATAL_ERROR "${file} does not list ${folder}/")
        endif()
        get_target_property(dependencies ${library} QUORVEL_DEPENDS)
        foreach(dependency IN LISTS dependencies)
            get_target_property(below ${dependency} QUORVEL_FOLDER)
            if(NOT below STREQUAL folder AND NOT "${row_${below}}" GREATER "${row_${folder}}")
                message(FATAL_ERROR "${file} does not list ${folder}/ above ${below}/")
            endif()
        endforeach()
    endforeach()
endfunction()
