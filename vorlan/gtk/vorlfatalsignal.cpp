// The fatal signal handler of the host program: it reports the signal and
// waits, so that a debugger can be attached to the live process.
#include "gtk/vorlglobals.h"

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

void vorl_signal_handler(int sig)
{
    OSWalkStack(0, nullptr, nullptr);
    fprintf(stderr, "(pid %d )vorlan signal %d caught, now paused. You can kill it or attach it to debug \n",
            static_cast<int>(getpid()), sig);
    pause();
    exit(-1);
}
