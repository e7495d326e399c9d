// Visibility of the library's internal interfaces.
//
// The library is built with hidden visibility: only the Win32 calls and the
// library's own calls declared in include/ are part of its interface.  The
// internal classes and functions that the in-tree tests drive directly (the
// toolkit lock, the event filter and handler, the process data) are marked
// VORLAN_INTERNAL so that the test programs can link against them.  They are
// declared only in private headers under vorlan/, so applications never see
// them.
#ifndef VORLAN_VORLINTERNAL_H
#define VORLAN_VORLINTERNAL_H

#define VORLAN_INTERNAL __attribute__((visibility("default")))

#endif // VORLAN_VORLINTERNAL_H
