# Compiles resource_check.rc with the resource compiler the way program
# builds do, then checks that values from the headers arrived in the
# compiled resources, and that the headers give a resource script's
# preprocessor nothing but macro definitions.
#
# Expects: WINDRES, CPP, INCLUDE_DIR, RC_FILE, WORK_DIR.

set(out_file ${WORK_DIR}/resource_check.res)
file(MAKE_DIRECTORY ${WORK_DIR})
execute_process(
  COMMAND ${WINDRES} --preprocessor=cpp --preprocessor-arg=-DRC_INVOKED -c 65001 -I${INCLUDE_DIR}
          -O res -i ${RC_FILE} -o ${out_file}
  RESULT_VARIABLE result
  OUTPUT_VARIABLE output
  ERROR_VARIABLE output)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "resource compiler failed (${result}):\n${output}")
endif()

file(READ ${out_file} res_hex HEX)
# Each pattern is little-endian data that only the right constants produce.
set(expected
  # IDD_CLASSIC style: WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME
  "8000c880"
  # IDD_CHECK style with DS_SETFONT, DS_CENTER, and its WS_EX_CONTROLPARENT
  "c008c880"
  # accelerator VK_F1 -> IDM_HELP (40003): FVIRTKEY, key 0x70, id 0x9c43
  "01007000439c"
  # accelerator VK_DELETE with SHIFT: FVIRTKEY | FSHIFT, key 0x2e
  "05002e00449c")
foreach(pattern IN LISTS expected)
  string(FIND "${res_hex}" "${pattern}" position)
  if(position EQUAL -1)
    message(FATAL_ERROR "compiled resources lack the bytes ${pattern}")
  endif()
endforeach()

# The whole header family, preprocessed as a resource script sees it.
set(headers windows.h winres.h afxres.h winuser.h wingdi.h winreg.h winspool.h commdlg.h shellapi.h
            imm.h mmsystem.h)
set(probe ${WORK_DIR}/rc_headers_probe.h)
set(probe_text "")
foreach(header IN LISTS headers)
  string(APPEND probe_text "#include <${header}>\n")
endforeach()
file(WRITE ${probe} "${probe_text}")
execute_process(
  COMMAND ${CPP} -DRC_INVOKED -P -I${INCLUDE_DIR} ${probe}
  RESULT_VARIABLE result
  OUTPUT_VARIABLE preprocessed
  ERROR_VARIABLE errors)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "preprocessing the headers with RC_INVOKED failed:\n${errors}")
endif()
string(STRIP "${preprocessed}" preprocessed)
if(NOT preprocessed STREQUAL "")
  message(FATAL_ERROR "with RC_INVOKED the headers still produce text:\n${preprocessed}")
endif()
