# Lays out the files of the packages in one folder, as they sit once installed or unpacked:
#   cmake -DSTAGE=<folder> -DBIN=<built programs> -DSOURCE=<source tree> [-DSTRIP=<strip>]
#         -P Stage.cmake
# The binaries are shipped without their debugging information. Beside the folder, <folder>-skin.nsh
# lists the skin's bitmaps for the installer.
file(REMOVE_RECURSE "${STAGE}")
file(MAKE_DIRECTORY "${STAGE}/DialdeckSkin" "${STAGE}/Demo")
foreach(name Dialdeck.exe DialdeckRes.dll DialdeckResVga.dll OrvalisPimServ.dll)
    file(COPY "${BIN}/${name}" DESTINATION "${STAGE}")
    if(STRIP)
        execute_process(COMMAND "${STRIP}" --strip-debug "${STAGE}/${name}" COMMAND_ERROR_IS_FATAL ANY)
    endif()
endforeach()
# The skin folder, and its description beside it under the name the program reads.
file(GLOB bitmaps "${SOURCE}/res/sample-skin/DialdeckSkin/*.bmp")
file(COPY ${bitmaps} DESTINATION "${STAGE}/DialdeckSkin")
# The installer installs and removes exactly these bitmaps: others in the folder are the user's.
set(install "!macro INSTALL_SKIN_FILES\n")
set(uninstall "!macro UNINSTALL_SKIN_FILES\n")
foreach(bitmap ${bitmaps})
    get_filename_component(name "${bitmap}" NAME)
    string(APPEND install "    File \"${STAGE}/DialdeckSkin/${name}\"\n")
    string(APPEND uninstall "    Delete \"$INSTDIR\\DialdeckSkin\\${name}\"\n")
endforeach()
file(WRITE "${STAGE}-skin.nsh" "${install}!macroend\n${uninstall}!macroend\n")
file(COPY "${SOURCE}/res/sample-skin/DialdeckSkinskin.ini" DESTINATION "${STAGE}")
file(COPY "${SOURCE}/demo/Contacts.vcf" DESTINATION "${STAGE}/Demo")
