// Fatal assertions on internal invariants.
//
// A broken invariant stops the process through GLib's assertion routine,
// which prints the source, line, function and the failed expression and
// aborts.  The source is the file's path relative to the library's source
// root without extension (for example "vorlan/gtk/vorlgtklock"): the build
// defines VORLAN_SOURCE for every source file, so the message names the
// file the check really sits in, whatever directory the tree was built in.
#ifndef VORLAN_VORLASSERT_H
#define VORLAN_VORLASSERT_H

#include <glib.h>

#ifndef VORLAN_SOURCE
#error "VORLAN_SOURCE is defined by the build for each source file"
#endif

// Stops the process unless `condition` holds.
#define VORLAN_ASSERT(condition)                                                         \
    do {                                                                                 \
        if (G_UNLIKELY(!(condition)))                                                    \
            g_assertion_message_expr(nullptr, VORLAN_SOURCE, __LINE__, G_STRFUNC, #condition); \
    } while (0)

// Stops the process, reporting `expression` as the failed check.
#define VORLAN_FAIL(expression) g_assertion_message_expr(nullptr, VORLAN_SOURCE, __LINE__, G_STRFUNC, expression)

#endif // VORLAN_VORLASSERT_H
