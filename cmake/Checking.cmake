# A build that makes no programs: it has the sources read, each again only when it changed, a file that
# it includes or the checks.
set(QUORVEL_CHECKS ${CMAKE_SOURCE_DIR}/.clang-tidy CACHE FILEPATH "The checks that clang-tidy makes")

# Where the compiler is clang, clang-tidy stands in its place and leaves an empty object where there
# was nothing to say.
if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    find_program(QUORVEL_CLANG_TIDY clang-tidy REQUIRED)
    # In a form that clang-tidy passes on; of all others it thinks that they are not for it.
    set(CMAKE_DEPFILE_FLAGS_CXX -Wp,-MD,<DEP_FILE>)
    string(CONCAT read "${QUORVEL_CLANG_TIDY} --quiet --config-file=${QUORVEL_CHECKS} <SOURCE>"
        " -- <DEFINES> <INCLUDES> <FLAGS>")
    set(CMAKE_CXX_COMPILE_OBJECT ${read} "${CMAKE_COMMAND} -E touch <OBJECT>")
endif()

# Reading a source needs nothing that is built.
macro(add_dependencies)
endmacro()

function(quorvel_targets_below folder result)
    get_property(found DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
    get_property(subfolders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
    foreach(subfolder ${subfolders})
        quorvel_targets_below(${subfolder} deeper)
        list(APPEND found ${deeper})
    endforeach()
    set(${result} ${found} PARENT_SCOPE)
endfunction()

# quorvel_check(NAME FOLDER...): a target that has every source of these folders' targets read.
function(quorvel_check name)
    set(objects "")
    foreach(folder ${ARGN})
        quorvel_targets_below(${CMAKE_SOURCE_DIR}/${folder} targets)
        foreach(target ${targets})
            get_target_property(type ${target} TYPE)
            if(type MATCHES "^(EXECUTABLE|(STATIC|OBJECT)_LIBRARY)$")
                list(APPEND objects "$<FILTER:$<TARGET_OBJECTS:${target}>,INCLUDE,cpp[.]o(bj)?$>")
                get_target_property(sources ${target} SOURCES)
                get_target_property(source_folder ${target} SOURCE_DIR)
                foreach(source ${sources})
                    cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${source_folder})
                    set_property(SOURCE ${source} TARGET_DIRECTORY ${target}
                        APPEND PROPERTY OBJECT_DEPENDS ${QUORVEL_CHECKS})
                endforeach()
            endif()
        endforeach()
    endforeach()
    add_custom_target(${name} DEPENDS ${objects})
endfunction()
