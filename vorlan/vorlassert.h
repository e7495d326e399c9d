// Fatal assertions on internal invariants.
//
// A broken invariant stops the process through GLib's assertion routine,
// which prints the source, line, function and the failed expression and
// aborts.  The source is given as a path relative to the library's source
// root without extension (for example "vorlan/gtk/vorlgtklock"), so the
// message does not depend on where the tree was built.
#ifndef VORLAN_VORLASSERT_H
#define VORLAN_VORLASSERT_H

#include <glib.h>

#define VORLAN_ASSERT(source, condition)                                          \
    do {                                                                          \
        if (G_UNLIKELY(!(condition)))                                             \
            g_assertion_message_expr(nullptr, source, __LINE__, G_STRFUNC, #condition); \
    } while (0)

#endif // VORLAN_VORLASSERT_H
