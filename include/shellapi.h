/* shellapi.h */
#ifndef VORLAN_SHELLAPI_H
#define VORLAN_SHELLAPI_H
#include "windef.h"
#endif
