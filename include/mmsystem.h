/*
 * mmsystem.h - the multimedia subset: playing sounds and the
 * millisecond system time.
 */
#ifndef VORLAN_MMSYSTEM_H
#define VORLAN_MMSYSTEM_H

#include "windef.h"

/* ---- PlaySound flags ------------------------------------------------- */
#define SND_SYNC 0x0000
#define SND_ASYNC 0x0001
#define SND_NODEFAULT 0x0002
#define SND_MEMORY 0x0004
#define SND_LOOP 0x0008
#define SND_NOSTOP 0x0010
#define SND_PURGE 0x0040
#define SND_APPLICATION 0x0080
#define SND_NOWAIT 0x00002000
#define SND_ALIAS 0x00010000
#define SND_FILENAME 0x00020000
#define SND_RESOURCE 0x00040004
#define SND_ALIAS_ID 0x00110000

#ifndef RC_INVOKED

typedef UINT MMRESULT;

/* pszSound names a file, a system sound alias or a resource (see the SND_
 * flags); hmod is the module of an SND_RESOURCE sound. */
WINMMAPI BOOL WINAPI PlaySoundA(LPCSTR pszSound, HMODULE hmod, DWORD fdwSound);
/* Milliseconds since the system started. */
WINMMAPI DWORD WINAPI timeGetTime(void);
#ifndef UNICODE
#define PlaySound PlaySoundA
#endif

#endif /* RC_INVOKED */
#endif /* VORLAN_MMSYSTEM_H */
