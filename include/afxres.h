/*
 * afxres.h - resource-script header that scripts written with a resource
 * editor include: everything of winres.h, and IDC_STATIC for the labels
 * that are never addressed by identifier.
 */
#ifndef VORLAN_AFXRES_H
#define VORLAN_AFXRES_H

#include "winres.h"

#ifndef IDC_STATIC
#define IDC_STATIC (-1)
#endif

#endif /* VORLAN_AFXRES_H */
