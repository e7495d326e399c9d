/* winreg.h */
#ifndef VORLAN_WINREG_H
#define VORLAN_WINREG_H
#include "windef.h"
#endif
