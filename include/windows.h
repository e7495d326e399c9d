/*
 * windows.h - the whole Win32 interface offered by vorlan and libbrano.
 * Usable from C99 and C++; resource scripts see only the constants.
 */
#ifndef VORLAN_WINDOWS_H
#define VORLAN_WINDOWS_H

#include "vorlan_abi.h"
#include "winnt.h"
#include "windef.h"
#include "winerror.h"
#include "winbase.h"
#include "winnls.h"
#include "winuser.h"
#include "wingdi.h"
#include "winreg.h"
#include "winspool.h"
#include "commdlg.h"
#include "shellapi.h"
#include "imm.h"
#include "mmsystem.h"
#include "brano.h"

#endif /* VORLAN_WINDOWS_H */
