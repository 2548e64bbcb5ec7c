# Most of the time of a build goes into headers that nearly all files include. So the files of a room are compiled as
# one, which costs a fifth. All names of a room are in one scope then. With BRINDLE_BY_ROOM off each file is compiled
# alone: the fuzzers are built like that, so that no file can come to need the includes of another one.
option(BRINDLE_BY_ROOM "Compile the files of a folder as one" ON)

function(compile_by_room target)
    if(NOT BRINDLE_BY_ROOM)
        return()
    endif()
    get_target_property(sources ${target} SOURCES)
    foreach(source IN LISTS sources)
        cmake_path(ABSOLUTE_PATH source)
        cmake_path(GET source PARENT_PATH room)
        cmake_path(RELATIVE_PATH room BASE_DIRECTORY ${PROJECT_SOURCE_DIR})
        string(MAKE_C_IDENTIFIER ${room} room)
        set_property(SOURCE ${source} PROPERTY UNITY_GROUP ${room})
    endforeach()
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
endfunction()
