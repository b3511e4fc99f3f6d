# Fails when a source folder includes a folder above it in the layer order.
#   cmake -DSRC=<source root> -P check-layers.cmake
# Folders depend downwards only; folders on one line of the order may include each other.
# Keep this order in step with the README's "Architecture" section.
set(DD_LAYERS
    "platform"
    "base win"
    "phone keypad contacts skin"
    "board service controls"
    "picker messaging"
    "view"
    "app")

if(NOT SRC)
    message(FATAL_ERROR "usage: cmake -DSRC=<source root> -P check-layers.cmake")
endif()

get_filename_component(SRC "${SRC}" ABSOLUTE)
set(level 0)
foreach(line IN LISTS DD_LAYERS)
    string(REPLACE " " ";" folders "${line}")
    foreach(folder IN LISTS folders)
        set(level_of_${folder} ${level})
    endforeach()
    math(EXPR level "${level} + 1")
endforeach()

file(GLOB_RECURSE sources RELATIVE "${SRC}" "${SRC}/*.h" "${SRC}/*.cpp" "${SRC}/*.inl")
set(problems 0)
foreach(source IN LISTS sources)
    string(REGEX MATCH "^[^/]+" folder "${source}")
    if(NOT DEFINED level_of_${folder})
        message(SEND_ERROR "${source}: folder '${folder}' has no place in the layer order")
        math(EXPR problems "${problems} + 1")
        continue()
    endif()
    file(STRINGS "${SRC}/${source}" includes REGEX "^[ \t]*#[ \t]*include[ \t]*\"[^/\"]+/")
    foreach(include IN LISTS includes)
        string(REGEX REPLACE "^[^\"]*\"([^/\"]+)/.*$" "\\1" target "${include}")
        if(NOT DEFINED level_of_${target})
            continue()  # not one of ours (a path relative to the including file, a tool's header)
        endif()
        if(level_of_${target} GREATER level_of_${folder})
            message(SEND_ERROR "${source}: '${folder}' includes '${target}' above it: ${include}")
            math(EXPR problems "${problems} + 1")
        endif()
    endforeach()
endforeach()

if(problems GREATER 0)
    message(FATAL_ERROR "${problems} include(s) break the layer order")
endif()
list(LENGTH sources count)
message(STATUS "layer order kept by ${count} files")
