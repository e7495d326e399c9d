/* Another X client for the tests: maps an override-redirect window at the
 * rectangle given on the command line (x y width height), prints "mapped"
 * once the server has mapped it, and keeps it there until its standard
 * input closes or it is killed. */
#include <X11/Xlib.h>

#include <stdio.h>
#include <stdlib.h>
#include <unistd.h>

static void wait_for_map(Display *display, Window window)
{
    XEvent event;
    do {
        XWindowEvent(display, window, StructureNotifyMask, &event);
    } while (event.type != MapNotify);
}

int main(int argc, char **argv)
{
    XSetWindowAttributes attributes;
    Display *display;
    Window window;
    char byte;

    if (argc != 5) {
        fprintf(stderr, "usage: %s x y width height\n", argv[0]);
        return 2;
    }
    display = XOpenDisplay(NULL);
    if (display == NULL) {
        fprintf(stderr, "cannot open the display\n");
        return 1;
    }
    attributes.override_redirect = True;
    attributes.event_mask = StructureNotifyMask;
    window = XCreateWindow(display, DefaultRootWindow(display), atoi(argv[1]), atoi(argv[2]),
                           (unsigned)atoi(argv[3]), (unsigned)atoi(argv[4]), 0, CopyFromParent, InputOutput,
                           CopyFromParent, CWOverrideRedirect | CWEventMask, &attributes);
    XMapRaised(display, window);
    wait_for_map(display, window);
    XSync(display, False);
    printf("mapped\n");
    fflush(stdout);
    while (read(STDIN_FILENO, &byte, 1) > 0)
        continue;
    XCloseDisplay(display);
    return 0;
}
