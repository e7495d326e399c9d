// Construction order of the library's static objects.
//
// The library has no entry call: it starts in the constructors of its static
// objects when the process loads it.  C++ leaves the order between
// translation units open, so every static object whose constructor does
// real work, or that start-up relies on, is placed explicitly with
// VORLAN_INIT_ORDER.  Lower values are constructed first, all of them before
// any static object of the library without a placement.  Objects that are
// constant-initialised (plain values, constexpr constructors) need no place:
// they are ready before any constructor runs.
//
// The stages, in order:
//   PRINTER_CONTEXT  statics of the PostScript device context
//   PRINTER_LIST     the printer list singleton pointer
//   DIAGNOSTICS      diagnostics statics and the spooler's OpenPrinterA statics
//   CLIPBOARD        the one clipboard object
//   PROCESS_DATA     the process data, whose constructor is the whole start-up
//                    of the host library, GLib threads, GDK, GTK and X
//   THREAD_LIST      the thread list and the global message queue; they come
//                    after start-up, so start-up must not create thread data
//   LATE             PPD parser, DEVMODE helpers, drag-and-drop table
#ifndef VORLAN_VORLINITORDER_H
#define VORLAN_VORLINITORDER_H

#define VORLAN_INIT_ORDER_PRINTER_CONTEXT 1100
#define VORLAN_INIT_ORDER_PRINTER_LIST 1200
#define VORLAN_INIT_ORDER_DIAGNOSTICS 1300
#define VORLAN_INIT_ORDER_CLIPBOARD 1400
#define VORLAN_INIT_ORDER_PROCESS_DATA 1401
#define VORLAN_INIT_ORDER_THREAD_LIST 1500
#define VORLAN_INIT_ORDER_LATE 1600

#define VORLAN_INIT_ORDER(stage) __attribute__((init_priority(stage)))

#endif // VORLAN_VORLINITORDER_H
