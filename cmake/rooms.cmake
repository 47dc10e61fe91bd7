# Compiles a target's sources in groups: most of the work is in what they share. Names at file level
# must then differ within a folder.
function(velmar_together name)
    set_target_properties(${name} PROPERTIES UNITY_BUILD ${VELMAR_UNITY} UNITY_BUILD_BATCH_SIZE 8)
endfunction()

# A room of the product is a folder and one static library, named after its path with "_" for "/".
# It holds every source of the folder; "_windows" or "_posix" at the end of a file's name says where
# the file is for. A room with a PROGRAM keeps the sources whose names begin with "Main" for that; one
# with no others is no library.
#
# A room sees the headers of just those rooms that it is linked to: each library shares a folder of
# its own that holds links to its headers, so an include against the arrows finds nothing.
function(velmar_room folder)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "PROGRAM" "LINK")
    string(REPLACE "/" "_" name ${folder})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*.cpp)
    file(GLOB headers CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*.h)
    if(WIN32)
        list(FILTER sources EXCLUDE REGEX "_posix\\.cpp$")
    else()
        list(FILTER sources EXCLUDE REGEX "_windows\\.cpp$")
    endif()
    set(main ${sources})
    list(FILTER main INCLUDE REGEX "/Main(_[a-z]+)?\\.cpp$")
    list(FILTER sources EXCLUDE REGEX "/Main(_[a-z]+)?\\.cpp$")

    set(linked ${arg_LINK})
    if(sources)
        add_library(${name} STATIC ${sources})
        set(shared ${CMAKE_BINARY_DIR}/headers/${name})
        file(REMOVE_RECURSE ${shared})
        file(MAKE_DIRECTORY ${shared}/${folder})
        foreach(header IN LISTS headers)
            get_filename_component(file ${header} NAME)
            file(CREATE_LINK ${header} ${shared}/${folder}/${file} SYMBOLIC)
        endforeach()
        target_include_directories(${name} PUBLIC ${shared})
        target_link_libraries(${name} PUBLIC ${arg_LINK})
        velmar_together(${name})
        set(linked ${name})
    endif()
    if(arg_PROGRAM)
        add_executable(${arg_PROGRAM} ${main})
        target_link_libraries(${arg_PROGRAM} PRIVATE ${linked})
        set_target_properties(${arg_PROGRAM} PROPERTIES
            RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/programs)
        target_link_options(${arg_PROGRAM} PRIVATE $<$<BOOL:${WIN32}>:-municode>)
    endif()
endfunction()
