/* mmsystem.h */
#ifndef VORLAN_MMSYSTEM_H
#define VORLAN_MMSYSTEM_H
#include "windef.h"
#endif
