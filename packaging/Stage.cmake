# Lays out the files of the packages in one folder, as they sit once installed or unpacked:
#   cmake -DSTAGE=<folder> -DBIN=<built programs> -DSOURCE=<source tree> [-DSTRIP=<strip>]
#         -P Stage.cmake
# The binaries are shipped without their debugging information.
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
file(COPY "${SOURCE}/res/sample-skin/DialdeckSkinskin.ini" DESTINATION "${STAGE}")
file(COPY "${SOURCE}/demo/Contacts.vcf" DESTINATION "${STAGE}/Demo")
