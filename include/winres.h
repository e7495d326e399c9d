/*
 * winres.h - the constants a resource script needs: window, dialog and
 * control styles, command and key identifiers (from winuser.h), language
 * identifiers for LANGUAGE statements and the VERSIONINFO values.
 *
 * Resource scripts are preprocessed with RC_INVOKED defined, so they see
 * only #defines.
 */
#ifndef VORLAN_WINRES_H
#define VORLAN_WINRES_H

#include "winuser.h"

/* ---- Languages ------------------------------------------------------- */
/* winnt.h keeps its language identifiers from resource scripts; give them
 * here, leaving alone any that are already defined. */
#ifndef LANG_NEUTRAL
#define LANG_NEUTRAL 0x00
#endif
#ifndef LANG_INVARIANT
#define LANG_INVARIANT 0x7f
#endif
#ifndef LANG_ARABIC
#define LANG_ARABIC 0x01
#endif
#ifndef LANG_BULGARIAN
#define LANG_BULGARIAN 0x02
#endif
#ifndef LANG_CATALAN
#define LANG_CATALAN 0x03
#endif
#ifndef LANG_CHINESE
#define LANG_CHINESE 0x04
#endif
#ifndef LANG_CZECH
#define LANG_CZECH 0x05
#endif
#ifndef LANG_DANISH
#define LANG_DANISH 0x06
#endif
#ifndef LANG_GERMAN
#define LANG_GERMAN 0x07
#endif
#ifndef LANG_GREEK
#define LANG_GREEK 0x08
#endif
#ifndef LANG_ENGLISH
#define LANG_ENGLISH 0x09
#endif
#ifndef LANG_SPANISH
#define LANG_SPANISH 0x0a
#endif
#ifndef LANG_FINNISH
#define LANG_FINNISH 0x0b
#endif
#ifndef LANG_FRENCH
#define LANG_FRENCH 0x0c
#endif
#ifndef LANG_HEBREW
#define LANG_HEBREW 0x0d
#endif
#ifndef LANG_HUNGARIAN
#define LANG_HUNGARIAN 0x0e
#endif
#ifndef LANG_ICELANDIC
#define LANG_ICELANDIC 0x0f
#endif
#ifndef LANG_ITALIAN
#define LANG_ITALIAN 0x10
#endif
#ifndef LANG_JAPANESE
#define LANG_JAPANESE 0x11
#endif
#ifndef LANG_KOREAN
#define LANG_KOREAN 0x12
#endif
#ifndef LANG_DUTCH
#define LANG_DUTCH 0x13
#endif
#ifndef LANG_NORWEGIAN
#define LANG_NORWEGIAN 0x14
#endif
#ifndef LANG_POLISH
#define LANG_POLISH 0x15
#endif
#ifndef LANG_PORTUGUESE
#define LANG_PORTUGUESE 0x16
#endif
#ifndef LANG_ROMANIAN
#define LANG_ROMANIAN 0x18
#endif
#ifndef LANG_RUSSIAN
#define LANG_RUSSIAN 0x19
#endif
#ifndef LANG_CROATIAN
#define LANG_CROATIAN 0x1a
#endif
#ifndef LANG_SERBIAN
#define LANG_SERBIAN 0x1a
#endif
#ifndef LANG_SLOVAK
#define LANG_SLOVAK 0x1b
#endif
#ifndef LANG_SWEDISH
#define LANG_SWEDISH 0x1d
#endif
#ifndef LANG_THAI
#define LANG_THAI 0x1e
#endif
#ifndef LANG_TURKISH
#define LANG_TURKISH 0x1f
#endif
#ifndef LANG_INDONESIAN
#define LANG_INDONESIAN 0x21
#endif
#ifndef LANG_UKRAINIAN
#define LANG_UKRAINIAN 0x22
#endif
#ifndef LANG_SLOVENIAN
#define LANG_SLOVENIAN 0x24
#endif
#ifndef LANG_ESTONIAN
#define LANG_ESTONIAN 0x25
#endif
#ifndef LANG_LATVIAN
#define LANG_LATVIAN 0x26
#endif
#ifndef LANG_LITHUANIAN
#define LANG_LITHUANIAN 0x27
#endif
#ifndef LANG_VIETNAMESE
#define LANG_VIETNAMESE 0x2a
#endif

#ifndef SUBLANG_NEUTRAL
#define SUBLANG_NEUTRAL 0x00
#endif
#ifndef SUBLANG_DEFAULT
#define SUBLANG_DEFAULT 0x01
#endif
#ifndef SUBLANG_SYS_DEFAULT
#define SUBLANG_SYS_DEFAULT 0x02
#endif
#ifndef SUBLANG_ENGLISH_US
#define SUBLANG_ENGLISH_US 0x01
#endif
#ifndef SUBLANG_ENGLISH_UK
#define SUBLANG_ENGLISH_UK 0x02
#endif
#ifndef SUBLANG_ENGLISH_AUS
#define SUBLANG_ENGLISH_AUS 0x03
#endif
#ifndef SUBLANG_ENGLISH_CAN
#define SUBLANG_ENGLISH_CAN 0x04
#endif
#ifndef SUBLANG_CHINESE_TRADITIONAL
#define SUBLANG_CHINESE_TRADITIONAL 0x01
#endif
#ifndef SUBLANG_CHINESE_SIMPLIFIED
#define SUBLANG_CHINESE_SIMPLIFIED 0x02
#endif
#ifndef SUBLANG_CHINESE_HONGKONG
#define SUBLANG_CHINESE_HONGKONG 0x03
#endif
#ifndef SUBLANG_CHINESE_SINGAPORE
#define SUBLANG_CHINESE_SINGAPORE 0x04
#endif
#ifndef SUBLANG_GERMAN
#define SUBLANG_GERMAN 0x01
#endif
#ifndef SUBLANG_FRENCH
#define SUBLANG_FRENCH 0x01
#endif
#ifndef SUBLANG_ITALIAN
#define SUBLANG_ITALIAN 0x01
#endif
#ifndef SUBLANG_SPANISH
#define SUBLANG_SPANISH 0x01
#endif
#ifndef SUBLANG_SPANISH_MODERN
#define SUBLANG_SPANISH_MODERN 0x03
#endif
#ifndef SUBLANG_PORTUGUESE
#define SUBLANG_PORTUGUESE 0x02
#endif
#ifndef SUBLANG_PORTUGUESE_BRAZILIAN
#define SUBLANG_PORTUGUESE_BRAZILIAN 0x01
#endif
#ifndef SUBLANG_DUTCH
#define SUBLANG_DUTCH 0x01
#endif
#ifndef SUBLANG_JAPANESE_JAPAN
#define SUBLANG_JAPANESE_JAPAN 0x01
#endif
#ifndef SUBLANG_KOREAN
#define SUBLANG_KOREAN 0x01
#endif
#ifndef SUBLANG_RUSSIAN_RUSSIA
#define SUBLANG_RUSSIAN_RUSSIA 0x01
#endif

/* ---- Version information (VERSIONINFO) ------------------------------- */
#define VS_VERSION_INFO 1
#define VS_USER_DEFINED 100
#define VS_FFI_SIGNATURE 0xFEEF04BD
#define VS_FFI_STRUCVERSION 0x00010000
#define VS_FFI_FILEFLAGSMASK 0x0000003F

#define VS_FF_DEBUG 0x00000001
#define VS_FF_PRERELEASE 0x00000002
#define VS_FF_PATCHED 0x00000004
#define VS_FF_PRIVATEBUILD 0x00000008
#define VS_FF_INFOINFERRED 0x00000010
#define VS_FF_SPECIALBUILD 0x00000020

#define VOS_UNKNOWN 0x00000000
#define VOS_DOS 0x00010000
#define VOS_OS216 0x00020000
#define VOS_OS232 0x00030000
#define VOS_NT 0x00040000
#define VOS__BASE 0x00000000
#define VOS__WINDOWS16 0x00000001
#define VOS__PM16 0x00000002
#define VOS__PM32 0x00000003
#define VOS__WINDOWS32 0x00000004
#define VOS_DOS_WINDOWS16 0x00010001
#define VOS_DOS_WINDOWS32 0x00010004
#define VOS_NT_WINDOWS32 0x00040004

#define VFT_UNKNOWN 0x00000000
#define VFT_APP 0x00000001
#define VFT_DLL 0x00000002
#define VFT_DRV 0x00000003
#define VFT_FONT 0x00000004
#define VFT_VXD 0x00000005
#define VFT_STATIC_LIB 0x00000007
#define VFT2_UNKNOWN 0x00000000

/* ---- Controls -------------------------------------------------------- */
/* Identifier of controls the program never addresses (static labels). */
#ifndef IDC_STATIC
#define IDC_STATIC (-1)
#endif

#endif /* VORLAN_WINRES_H */
