/* imm.h */
#ifndef VORLAN_IMM_H
#define VORLAN_IMM_H
#include "windef.h"
#endif
