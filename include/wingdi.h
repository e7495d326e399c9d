/* wingdi.h */
#ifndef VORLAN_WINGDI_H
#define VORLAN_WINGDI_H
#include "windef.h"
#endif
