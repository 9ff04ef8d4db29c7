# Makes one skin: style sheets from qss/, pictures from icons.map, and at the end tokens.ini, which marks the skin as
# complete.
#   SKIN    name of the skin, that is of its file in tokens/
#   SOURCE  folder of the templates        TARGET  folder to make
#   THEME   folder of the icon theme       RSVG, CONVERT  the drawing programs
cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/Pictures.cmake)

# Reads the colours into variables of their names and into the list token_names.
function(read_tokens path)
    file(STRINGS ${path} lines REGEX "=")
    set(names)
    foreach(line IN LISTS lines)
        if(NOT line MATCHES "^([a-z-]+)=(#[0-9a-f][0-9a-f][0-9a-f][0-9a-f][0-9a-f][0-9a-f])$")
            message(FATAL_ERROR "${path}: not a colour: ${line}")
        endif()
        set(token-${CMAKE_MATCH_1} ${CMAKE_MATCH_2} PARENT_SCOPE)
        list(APPEND names ${CMAKE_MATCH_1})
    endforeach()
    set(token_names ${names} PARENT_SCOPE)
endfunction()

function(make_style_sheets)
    file(GLOB_RECURSE templates RELATIVE ${SOURCE}/qss ${SOURCE}/qss/*.qss.in)
    foreach(template IN LISTS templates)
        file(READ ${SOURCE}/qss/${template} text)
        foreach(name IN LISTS token_names)
            string(REPLACE "@${name}@" "${token-${name}}" text "${text}")
        endforeach()
        if(text MATCHES "@[a-z-]+@")
            message(FATAL_ERROR "${template}: the skin \"${SKIN}\" has no colour ${CMAKE_MATCH_0}")
        endif()
        string(REGEX REPLACE "\\.in$" "" sheet ${template})
        file(WRITE ${TARGET}/${sheet} "${text}")
    endforeach()
endfunction()

# An interrupted or outdated run leaves no file behind that the present one does not make.
file(REMOVE_RECURSE ${TARGET})
read_tokens(${SOURCE}/tokens/${SKIN}.ini)
make_style_sheets()
make_pictures(${SOURCE}/icons.map)
make_strength_gauge(${TARGET}/PlatformConfigUI/UserManagerUI)
file(COPY_FILE ${SOURCE}/tokens/${SKIN}.ini ${TARGET}/tokens.ini)
file(TOUCH ${TARGET}/tokens.ini)
