/*
 * winreg.h - the registry: predefined root keys, value types, access
 * rights and the Reg* calls.
 */
#ifndef VORLAN_WINREG_H
#define VORLAN_WINREG_H

#include "winbase.h"


/* ---- Key access rights ----------------------------------------------- */
#define KEY_QUERY_VALUE 0x0001
#define KEY_SET_VALUE 0x0002
#define KEY_CREATE_SUB_KEY 0x0004
#define KEY_ENUMERATE_SUB_KEYS 0x0008
#define KEY_NOTIFY 0x0010
#define KEY_CREATE_LINK 0x0020
#define KEY_WOW64_64KEY 0x0100
#define KEY_WOW64_32KEY 0x0200
#define KEY_WOW64_RES 0x0300
#define KEY_READ \
    ((STANDARD_RIGHTS_READ | KEY_QUERY_VALUE | KEY_ENUMERATE_SUB_KEYS | KEY_NOTIFY) & (~SYNCHRONIZE))
#define KEY_WRITE ((STANDARD_RIGHTS_WRITE | KEY_SET_VALUE | KEY_CREATE_SUB_KEY) & (~SYNCHRONIZE))
#define KEY_EXECUTE ((KEY_READ) & (~SYNCHRONIZE))
#define KEY_ALL_ACCESS                                                                           \
    ((STANDARD_RIGHTS_ALL | KEY_QUERY_VALUE | KEY_SET_VALUE | KEY_CREATE_SUB_KEY |               \
      KEY_ENUMERATE_SUB_KEYS | KEY_NOTIFY | KEY_CREATE_LINK) & (~SYNCHRONIZE))

/* ---- Value types ----------------------------------------------------- */
#define REG_NONE 0
#define REG_SZ 1
#define REG_EXPAND_SZ 2
#define REG_BINARY 3
#define REG_DWORD 4
#define REG_DWORD_LITTLE_ENDIAN 4
#define REG_DWORD_BIG_ENDIAN 5
#define REG_LINK 6
#define REG_MULTI_SZ 7
#define REG_RESOURCE_LIST 8
#define REG_FULL_RESOURCE_DESCRIPTOR 9
#define REG_RESOURCE_REQUIREMENTS_LIST 10
#define REG_QWORD 11
#define REG_QWORD_LITTLE_ENDIAN 11

/* ---- Key creation options and dispositions --------------------------- */
#define REG_OPTION_RESERVED 0x00000000
#define REG_OPTION_NON_VOLATILE 0x00000000
#define REG_OPTION_VOLATILE 0x00000001
#define REG_OPTION_CREATE_LINK 0x00000002
#define REG_OPTION_BACKUP_RESTORE 0x00000004
#define REG_OPTION_OPEN_LINK 0x00000008
#define REG_LEGAL_OPTION                                                                     \
    (REG_OPTION_RESERVED | REG_OPTION_NON_VOLATILE | REG_OPTION_VOLATILE | REG_OPTION_CREATE_LINK | \
     REG_OPTION_BACKUP_RESTORE | REG_OPTION_OPEN_LINK)
#define REG_CREATED_NEW_KEY 0x00000001
#define REG_OPENED_EXISTING_KEY 0x00000002

#define REG_NOTIFY_CHANGE_NAME 0x00000001
#define REG_NOTIFY_CHANGE_ATTRIBUTES 0x00000002
#define REG_NOTIFY_CHANGE_LAST_SET 0x00000004
#define REG_NOTIFY_CHANGE_SECURITY 0x00000008

#ifndef RC_INVOKED

/* ---- Predefined keys ------------------------------------------------- */
/* The root handles are sign-extended 32-bit values on every ABI. */
#define HKEY_CLASSES_ROOT ((HKEY)(ULONG_PTR)((LONG)0x80000000))
#define HKEY_CURRENT_USER ((HKEY)(ULONG_PTR)((LONG)0x80000001))
#define HKEY_LOCAL_MACHINE ((HKEY)(ULONG_PTR)((LONG)0x80000002))
#define HKEY_USERS ((HKEY)(ULONG_PTR)((LONG)0x80000003))
#define HKEY_PERFORMANCE_DATA ((HKEY)(ULONG_PTR)((LONG)0x80000004))
#define HKEY_CURRENT_CONFIG ((HKEY)(ULONG_PTR)((LONG)0x80000005))
#define HKEY_DYN_DATA ((HKEY)(ULONG_PTR)((LONG)0x80000006))

typedef ACCESS_MASK REGSAM;
typedef LONG LSTATUS;

/* ---- Opening, creating and closing keys ------------------------------ */
WINADVAPI LSTATUS WINAPI RegOpenKeyExA(HKEY hKey, LPCSTR lpSubKey, DWORD ulOptions, REGSAM samDesired,
                                       PHKEY phkResult);
WINADVAPI LSTATUS WINAPI RegOpenKeyExW(HKEY hKey, LPCWSTR lpSubKey, DWORD ulOptions, REGSAM samDesired,
                                       PHKEY phkResult);
WINADVAPI LSTATUS WINAPI RegCreateKeyExA(HKEY hKey, LPCSTR lpSubKey, DWORD Reserved, LPSTR lpClass,
                                         DWORD dwOptions, REGSAM samDesired,
                                         const SECURITY_ATTRIBUTES *lpSecurityAttributes, PHKEY phkResult,
                                         LPDWORD lpdwDisposition);
WINADVAPI LSTATUS WINAPI RegCreateKeyExW(HKEY hKey, LPCWSTR lpSubKey, DWORD Reserved, LPWSTR lpClass,
                                         DWORD dwOptions, REGSAM samDesired,
                                         const SECURITY_ATTRIBUTES *lpSecurityAttributes, PHKEY phkResult,
                                         LPDWORD lpdwDisposition);
WINADVAPI LSTATUS WINAPI RegCloseKey(HKEY hKey);
WINADVAPI LSTATUS WINAPI RegFlushKey(HKEY hKey);
WINADVAPI LSTATUS WINAPI RegDeleteKeyA(HKEY hKey, LPCSTR lpSubKey);
WINADVAPI LSTATUS WINAPI RegDeleteKeyW(HKEY hKey, LPCWSTR lpSubKey);

/* ---- Values ---------------------------------------------------------- */
WINADVAPI LSTATUS WINAPI RegQueryValueExA(HKEY hKey, LPCSTR lpValueName, LPDWORD lpReserved, LPDWORD lpType,
                                          LPBYTE lpData, LPDWORD lpcbData);
WINADVAPI LSTATUS WINAPI RegQueryValueExW(HKEY hKey, LPCWSTR lpValueName, LPDWORD lpReserved,
                                          LPDWORD lpType, LPBYTE lpData, LPDWORD lpcbData);
WINADVAPI LSTATUS WINAPI RegSetValueExA(HKEY hKey, LPCSTR lpValueName, DWORD Reserved, DWORD dwType,
                                        const BYTE *lpData, DWORD cbData);
WINADVAPI LSTATUS WINAPI RegSetValueExW(HKEY hKey, LPCWSTR lpValueName, DWORD Reserved, DWORD dwType,
                                        const BYTE *lpData, DWORD cbData);
WINADVAPI LSTATUS WINAPI RegDeleteValueA(HKEY hKey, LPCSTR lpValueName);
WINADVAPI LSTATUS WINAPI RegDeleteValueW(HKEY hKey, LPCWSTR lpValueName);

/* ---- Enumeration and key information --------------------------------- */
WINADVAPI LSTATUS WINAPI RegEnumKeyExA(HKEY hKey, DWORD dwIndex, LPSTR lpName, LPDWORD lpcchName,
                                       LPDWORD lpReserved, LPSTR lpClass, LPDWORD lpcchClass,
                                       PFILETIME lpftLastWriteTime);
WINADVAPI LSTATUS WINAPI RegEnumKeyExW(HKEY hKey, DWORD dwIndex, LPWSTR lpName, LPDWORD lpcchName,
                                       LPDWORD lpReserved, LPWSTR lpClass, LPDWORD lpcchClass,
                                       PFILETIME lpftLastWriteTime);
WINADVAPI LSTATUS WINAPI RegEnumValueA(HKEY hKey, DWORD dwIndex, LPSTR lpValueName, LPDWORD lpcchValueName,
                                       LPDWORD lpReserved, LPDWORD lpType, LPBYTE lpData, LPDWORD lpcbData);
WINADVAPI LSTATUS WINAPI RegEnumValueW(HKEY hKey, DWORD dwIndex, LPWSTR lpValueName,
                                       LPDWORD lpcchValueName, LPDWORD lpReserved, LPDWORD lpType,
                                       LPBYTE lpData, LPDWORD lpcbData);
WINADVAPI LSTATUS WINAPI RegQueryInfoKeyA(HKEY hKey, LPSTR lpClass, LPDWORD lpcchClass, LPDWORD lpReserved,
                                          LPDWORD lpcSubKeys, LPDWORD lpcbMaxSubKeyLen,
                                          LPDWORD lpcbMaxClassLen, LPDWORD lpcValues,
                                          LPDWORD lpcbMaxValueNameLen, LPDWORD lpcbMaxValueLen,
                                          LPDWORD lpcbSecurityDescriptor, PFILETIME lpftLastWriteTime);
WINADVAPI LSTATUS WINAPI RegQueryInfoKeyW(HKEY hKey, LPWSTR lpClass, LPDWORD lpcchClass,
                                          LPDWORD lpReserved, LPDWORD lpcSubKeys, LPDWORD lpcbMaxSubKeyLen,
                                          LPDWORD lpcbMaxClassLen, LPDWORD lpcValues,
                                          LPDWORD lpcbMaxValueNameLen, LPDWORD lpcbMaxValueLen,
                                          LPDWORD lpcbSecurityDescriptor, PFILETIME lpftLastWriteTime);

/* ---- 16-bit era calls ------------------------------------------------ */
WINADVAPI LSTATUS WINAPI RegOpenKeyA(HKEY hKey, LPCSTR lpSubKey, PHKEY phkResult);
WINADVAPI LSTATUS WINAPI RegCreateKeyA(HKEY hKey, LPCSTR lpSubKey, PHKEY phkResult);
WINADVAPI LSTATUS WINAPI RegQueryValueA(HKEY hKey, LPCSTR lpSubKey, LPSTR lpData, PLONG lpcbData);
WINADVAPI LSTATUS WINAPI RegSetValueA(HKEY hKey, LPCSTR lpSubKey, DWORD dwType, LPCSTR lpData, DWORD cbData);
WINADVAPI LSTATUS WINAPI RegEnumKeyA(HKEY hKey, DWORD dwIndex, LPSTR lpName, DWORD cchName);
#ifdef UNICODE
#define RegOpenKeyEx RegOpenKeyExW
#define RegCreateKeyEx RegCreateKeyExW
#define RegDeleteKey RegDeleteKeyW
#define RegQueryValueEx RegQueryValueExW
#define RegSetValueEx RegSetValueExW
#define RegDeleteValue RegDeleteValueW
#define RegEnumKeyEx RegEnumKeyExW
#define RegEnumValue RegEnumValueW
#define RegQueryInfoKey RegQueryInfoKeyW
#else
#define RegOpenKeyEx RegOpenKeyExA
#define RegCreateKeyEx RegCreateKeyExA
#define RegDeleteKey RegDeleteKeyA
#define RegQueryValueEx RegQueryValueExA
#define RegSetValueEx RegSetValueExA
#define RegDeleteValue RegDeleteValueA
#define RegEnumKeyEx RegEnumKeyExA
#define RegEnumValue RegEnumValueA
#define RegQueryInfoKey RegQueryInfoKeyA
#endif
#ifndef UNICODE
#define RegOpenKey RegOpenKeyA
#define RegCreateKey RegCreateKeyA
#define RegQueryValue RegQueryValueA
#define RegSetValue RegSetValueA
#define RegEnumKey RegEnumKeyA
#endif

#endif /* RC_INVOKED */
#endif /* VORLAN_WINREG_H */
