// The -fshort-wchar probe built as C++.
#include "vorlan_wchar16_probe.c"
