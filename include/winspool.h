/* winspool.h */
#ifndef VORLAN_WINSPOOL_H
#define VORLAN_WINSPOOL_H
#include "windef.h"
#endif
