/* commdlg.h */
#ifndef VORLAN_COMMDLG_H
#define VORLAN_COMMDLG_H
#include "windef.h"
#endif
