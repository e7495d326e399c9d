/*
 * imm.h - the input method manager: input contexts, composition and
 * candidate windows, conversion modes.  The WM_IME_* messages are in
 * winuser.h.
 */
#ifndef VORLAN_IMM_H
#define VORLAN_IMM_H

#include "windef.h"
#include "wingdi.h"
#include "winuser.h"

/* ---- Composition string parts (WM_IME_COMPOSITION lParam) ------------ */
#define GCS_COMPREADSTR 0x0001
#define GCS_COMPREADATTR 0x0002
#define GCS_COMPREADCLAUSE 0x0004
#define GCS_COMPSTR 0x0008
#define GCS_COMPATTR 0x0010
#define GCS_COMPCLAUSE 0x0020
#define GCS_CURSORPOS 0x0080
#define GCS_DELTASTART 0x0100
#define GCS_RESULTREADSTR 0x0200
#define GCS_RESULTREADCLAUSE 0x0400
#define GCS_RESULTSTR 0x0800
#define GCS_RESULTCLAUSE 0x1000

/* Additional WM_IME_COMPOSITION flags. */
#define CS_INSERTCHAR 0x2000
#define CS_NOMOVECARET 0x4000

/* ImmSetCompositionString actions. */
#define SCS_SETSTR (GCS_COMPREADSTR | GCS_COMPSTR)
#define SCS_CHANGEATTR (GCS_COMPREADATTR | GCS_COMPATTR)
#define SCS_CHANGECLAUSE (GCS_COMPREADCLAUSE | GCS_COMPCLAUSE)
#define SCS_SETRECONVERTSTRING 0x00010000
#define SCS_QUERYRECONVERTSTRING 0x00020000

/* Attributes of composition characters. */
#define ATTR_INPUT 0x00
#define ATTR_TARGET_CONVERTED 0x01
#define ATTR_CONVERTED 0x02
#define ATTR_TARGET_NOTCONVERTED 0x03
#define ATTR_INPUT_ERROR 0x04
#define ATTR_FIXEDCONVERTED 0x05

/* ---- Composition and candidate window styles ------------------------- */
#define CFS_DEFAULT 0x0000
#define CFS_RECT 0x0001
#define CFS_POINT 0x0002
#define CFS_FORCE_POSITION 0x0020
#define CFS_CANDIDATEPOS 0x0040
#define CFS_EXCLUDE 0x0080

/* ---- Conversion and sentence modes ----------------------------------- */
#define IME_CMODE_ALPHANUMERIC 0x0000
#define IME_CMODE_NATIVE 0x0001
#define IME_CMODE_CHINESE IME_CMODE_NATIVE
#define IME_CMODE_HANGEUL IME_CMODE_NATIVE
#define IME_CMODE_HANGUL IME_CMODE_NATIVE
#define IME_CMODE_JAPANESE IME_CMODE_NATIVE
#define IME_CMODE_KATAKANA 0x0002
#define IME_CMODE_LANGUAGE 0x0003
#define IME_CMODE_FULLSHAPE 0x0008
#define IME_CMODE_ROMAN 0x0010
#define IME_CMODE_CHARCODE 0x0020
#define IME_CMODE_HANJACONVERT 0x0040
#define IME_CMODE_SOFTKBD 0x0080
#define IME_CMODE_NOCONVERSION 0x0100
#define IME_CMODE_EUDC 0x0200
#define IME_CMODE_SYMBOL 0x0400
#define IME_CMODE_FIXED 0x0800

#define IME_SMODE_NONE 0x0000
#define IME_SMODE_PLAURALCLAUSE 0x0001
#define IME_SMODE_SINGLECONVERT 0x0002
#define IME_SMODE_AUTOMATIC 0x0004
#define IME_SMODE_PHRASEPREDICT 0x0008
#define IME_SMODE_CONVERSATION 0x0010

/* ---- WM_IME_NOTIFY commands ------------------------------------------ */
#define IMN_CLOSESTATUSWINDOW 0x0001
#define IMN_OPENSTATUSWINDOW 0x0002
#define IMN_CHANGECANDIDATE 0x0003
#define IMN_CLOSECANDIDATE 0x0004
#define IMN_OPENCANDIDATE 0x0005
#define IMN_SETCONVERSIONMODE 0x0006
#define IMN_SETSENTENCEMODE 0x0007
#define IMN_SETOPENSTATUS 0x0008
#define IMN_SETCANDIDATEPOS 0x0009
#define IMN_SETCOMPOSITIONFONT 0x000A
#define IMN_SETCOMPOSITIONWINDOW 0x000B
#define IMN_SETSTATUSWINDOWPOS 0x000C
#define IMN_GUIDELINE 0x000D
#define IMN_PRIVATE 0x000E

/* ---- WM_IME_REQUEST commands ----------------------------------------- */
#define IMR_COMPOSITIONWINDOW 0x0001
#define IMR_CANDIDATEWINDOW 0x0002
#define IMR_COMPOSITIONFONT 0x0003
#define IMR_RECONVERTSTRING 0x0004
#define IMR_CONFIRMRECONVERTSTRING 0x0005
#define IMR_QUERYCHARPOSITION 0x0006
#define IMR_DOCUMENTFEED 0x0007

/* ---- WM_IME_CONTROL commands ----------------------------------------- */
#define IMC_GETCANDIDATEPOS 0x0007
#define IMC_SETCANDIDATEPOS 0x0008
#define IMC_GETCOMPOSITIONFONT 0x0009
#define IMC_SETCOMPOSITIONFONT 0x000A
#define IMC_GETCOMPOSITIONWINDOW 0x000B
#define IMC_SETCOMPOSITIONWINDOW 0x000C
#define IMC_GETSTATUSWINDOWPOS 0x000F
#define IMC_SETSTATUSWINDOWPOS 0x0010
#define IMC_CLOSESTATUSWINDOW 0x0021
#define IMC_OPENSTATUSWINDOW 0x0022

/* ---- WM_IME_SETCONTEXT lParam ---------------------------------------- */
#define ISC_SHOWUICANDIDATEWINDOW 0x00000001
#define ISC_SHOWUICOMPOSITIONWINDOW 0x80000000
#define ISC_SHOWUIGUIDELINE 0x40000000
#define ISC_SHOWUIALLCANDIDATEWINDOW 0x0000000F
#define ISC_SHOWUIALL 0xC000000F

/* ---- ImmNotifyIME actions and indexes -------------------------------- */
#define NI_OPENCANDIDATE 0x0010
#define NI_CLOSECANDIDATE 0x0011
#define NI_SELECTCANDIDATESTR 0x0012
#define NI_CHANGECANDIDATELIST 0x0013
#define NI_FINALIZECONVERSIONRESULT 0x0014
#define NI_COMPOSITIONSTR 0x0015
#define NI_SETCANDIDATE_PAGESTART 0x0016
#define NI_SETCANDIDATE_PAGESIZE 0x0017
#define NI_IMEMENUSELECTED 0x0018

#define CPS_COMPLETE 0x0001
#define CPS_CONVERT 0x0002
#define CPS_REVERT 0x0003
#define CPS_CANCEL 0x0004

/* ---- ImmAssociateContextEx flags ------------------------------------- */
#define IACE_CHILDREN 0x0001
#define IACE_DEFAULT 0x0010
#define IACE_IGNORENOCONTEXT 0x0020

/* ---- ImmGetProperty indexes and property bits ------------------------ */
#define IGP_GETIMEVERSION (-4)
#define IGP_PROPERTY 0x00000004
#define IGP_CONVERSION 0x00000008
#define IGP_SENTENCE 0x0000000c
#define IGP_UI 0x00000010
#define IGP_SETCOMPSTR 0x00000014
#define IGP_SELECT 0x00000018

#define IME_PROP_AT_CARET 0x00010000
#define IME_PROP_SPECIAL_UI 0x00020000
#define IME_PROP_CANDLIST_START_FROM_1 0x00040000
#define IME_PROP_UNICODE 0x00080000
#define IME_PROP_COMPLETE_ON_UNSELECT 0x00100000

/* ---- Candidate list styles ------------------------------------------- */
#define IME_CAND_UNKNOWN 0x0000
#define IME_CAND_READ 0x0001
#define IME_CAND_CODE 0x0002
#define IME_CAND_MEANING 0x0003
#define IME_CAND_RADICAL 0x0004
#define IME_CAND_STROKE 0x0005

/* ---- Error results --------------------------------------------------- */
#define IMM_ERROR_NODATA (-1)
#define IMM_ERROR_GENERAL (-2)

#ifndef RC_INVOKED

typedef struct tagCOMPOSITIONFORM {
    DWORD dwStyle;
    POINT ptCurrentPos;
    RECT rcArea;
} COMPOSITIONFORM, *PCOMPOSITIONFORM, *NPCOMPOSITIONFORM, *LPCOMPOSITIONFORM;
VORLAN_CHECK_SIZE(COMPOSITIONFORM, 28, 28);

typedef struct tagCANDIDATEFORM {
    DWORD dwIndex;
    DWORD dwStyle;
    POINT ptCurrentPos;
    RECT rcArea;
} CANDIDATEFORM, *PCANDIDATEFORM, *NPCANDIDATEFORM, *LPCANDIDATEFORM;
VORLAN_CHECK_SIZE(CANDIDATEFORM, 32, 32);

/* dwOffset[] gives the byte offsets of the candidate strings from the
 * start of the list. */
typedef struct tagCANDIDATELIST {
    DWORD dwSize;
    DWORD dwStyle;
    DWORD dwCount;
    DWORD dwSelection;
    DWORD dwPageStart;
    DWORD dwPageSize;
    DWORD dwOffset[1];
} CANDIDATELIST, *PCANDIDATELIST, *NPCANDIDATELIST, *LPCANDIDATELIST;
VORLAN_CHECK_SIZE(CANDIDATELIST, 28, 28);

typedef struct tagRECONVERTSTRING {
    DWORD dwSize;
    DWORD dwVersion;
    DWORD dwStrLen;
    DWORD dwStrOffset;
    DWORD dwCompStrLen;
    DWORD dwCompStrOffset;
    DWORD dwTargetStrLen;
    DWORD dwTargetStrOffset;
} RECONVERTSTRING, *PRECONVERTSTRING, *NPRECONVERTSTRING, *LPRECONVERTSTRING;
VORLAN_CHECK_SIZE(RECONVERTSTRING, 32, 32);

typedef struct tagIMECHARPOSITION {
    DWORD dwSize;
    DWORD dwCharPos;
    POINT pt;
    UINT cLineHeight;
    RECT rcDocument;
} IMECHARPOSITION, *PIMECHARPOSITION, *NPIMECHARPOSITION, *LPIMECHARPOSITION;
VORLAN_CHECK_SIZE(IMECHARPOSITION, 36, 36);

/* ---- Input contexts -------------------------------------------------- */
WINIMMAPI HIMC WINAPI ImmCreateContext(void);
WINIMMAPI BOOL WINAPI ImmDestroyContext(HIMC hIMC);
WINIMMAPI HIMC WINAPI ImmGetContext(HWND hWnd);
WINIMMAPI BOOL WINAPI ImmReleaseContext(HWND hWnd, HIMC hIMC);
WINIMMAPI HIMC WINAPI ImmAssociateContext(HWND hWnd, HIMC hIMC);
WINIMMAPI BOOL WINAPI ImmAssociateContextEx(HWND hWnd, HIMC hIMC, DWORD dwFlags);
WINIMMAPI BOOL WINAPI ImmDisableIME(DWORD idThread);
WINIMMAPI HWND WINAPI ImmGetDefaultIMEWnd(HWND hWnd);
WINIMMAPI BOOL WINAPI ImmIsIME(HKL hKL);
WINIMMAPI DWORD WINAPI ImmGetProperty(HKL hKL, DWORD fdwIndex);
WINIMMAPI UINT WINAPI ImmGetDescriptionA(HKL hKL, LPSTR lpszDescription, UINT uBufLen);
WINIMMAPI UINT WINAPI ImmGetDescriptionW(HKL hKL, LPWSTR lpszDescription, UINT uBufLen);
WINIMMAPI UINT WINAPI ImmGetIMEFileNameA(HKL hKL, LPSTR lpszFileName, UINT uBufLen);
WINIMMAPI UINT WINAPI ImmGetIMEFileNameW(HKL hKL, LPWSTR lpszFileName, UINT uBufLen);
WINIMMAPI UINT WINAPI ImmGetVirtualKey(HWND hWnd);
WINIMMAPI BOOL WINAPI ImmSimulateHotKey(HWND hWnd, DWORD dwHotKeyID);

/* ---- Composition ----------------------------------------------------- */
WINIMMAPI LONG WINAPI ImmGetCompositionStringA(HIMC hIMC, DWORD dwIndex, LPVOID lpBuf, DWORD dwBufLen);
WINIMMAPI LONG WINAPI ImmGetCompositionStringW(HIMC hIMC, DWORD dwIndex, LPVOID lpBuf, DWORD dwBufLen);
WINIMMAPI BOOL WINAPI ImmSetCompositionStringA(HIMC hIMC, DWORD dwIndex, LPVOID lpComp, DWORD dwCompLen,
                                               LPVOID lpRead, DWORD dwReadLen);
WINIMMAPI BOOL WINAPI ImmSetCompositionStringW(HIMC hIMC, DWORD dwIndex, LPVOID lpComp, DWORD dwCompLen,
                                               LPVOID lpRead, DWORD dwReadLen);
WINIMMAPI BOOL WINAPI ImmGetCompositionWindow(HIMC hIMC, LPCOMPOSITIONFORM lpCompForm);
WINIMMAPI BOOL WINAPI ImmSetCompositionWindow(HIMC hIMC, LPCOMPOSITIONFORM lpCompForm);
WINIMMAPI BOOL WINAPI ImmGetCompositionFontA(HIMC hIMC, LPLOGFONTA lplf);
WINIMMAPI BOOL WINAPI ImmGetCompositionFontW(HIMC hIMC, LPLOGFONTW lplf);
WINIMMAPI BOOL WINAPI ImmSetCompositionFontA(HIMC hIMC, LPLOGFONTA lplf);
WINIMMAPI BOOL WINAPI ImmSetCompositionFontW(HIMC hIMC, LPLOGFONTW lplf);
WINIMMAPI BOOL WINAPI ImmNotifyIME(HIMC hIMC, DWORD dwAction, DWORD dwIndex, DWORD dwValue);

/* ---- Candidates ------------------------------------------------------ */
WINIMMAPI BOOL WINAPI ImmGetCandidateWindow(HIMC hIMC, DWORD dwIndex, LPCANDIDATEFORM lpCandidate);
WINIMMAPI BOOL WINAPI ImmSetCandidateWindow(HIMC hIMC, LPCANDIDATEFORM lpCandidate);
WINIMMAPI DWORD WINAPI ImmGetCandidateListA(HIMC hIMC, DWORD deIndex, LPCANDIDATELIST lpCandList,
                                            DWORD dwBufLen);
WINIMMAPI DWORD WINAPI ImmGetCandidateListW(HIMC hIMC, DWORD deIndex, LPCANDIDATELIST lpCandList,
                                            DWORD dwBufLen);
WINIMMAPI DWORD WINAPI ImmGetCandidateListCountA(HIMC hIMC, LPDWORD lpdwListCount);
WINIMMAPI DWORD WINAPI ImmGetCandidateListCountW(HIMC hIMC, LPDWORD lpdwListCount);

/* ---- Open state, modes and the status window ------------------------- */
WINIMMAPI BOOL WINAPI ImmGetOpenStatus(HIMC hIMC);
WINIMMAPI BOOL WINAPI ImmSetOpenStatus(HIMC hIMC, BOOL fOpen);
WINIMMAPI BOOL WINAPI ImmGetConversionStatus(HIMC hIMC, LPDWORD lpfdwConversion, LPDWORD lpfdwSentence);
WINIMMAPI BOOL WINAPI ImmSetConversionStatus(HIMC hIMC, DWORD fdwConversion, DWORD fdwSentence);
WINIMMAPI BOOL WINAPI ImmGetStatusWindowPos(HIMC hIMC, LPPOINT lpptPos);
WINIMMAPI BOOL WINAPI ImmSetStatusWindowPos(HIMC hIMC, LPPOINT lpptPos);
#ifdef UNICODE
#define ImmGetDescription ImmGetDescriptionW
#define ImmGetIMEFileName ImmGetIMEFileNameW
#define ImmGetCompositionString ImmGetCompositionStringW
#define ImmSetCompositionString ImmSetCompositionStringW
#define ImmGetCompositionFont ImmGetCompositionFontW
#define ImmSetCompositionFont ImmSetCompositionFontW
#define ImmGetCandidateList ImmGetCandidateListW
#define ImmGetCandidateListCount ImmGetCandidateListCountW
#else
#define ImmGetDescription ImmGetDescriptionA
#define ImmGetIMEFileName ImmGetIMEFileNameA
#define ImmGetCompositionString ImmGetCompositionStringA
#define ImmSetCompositionString ImmSetCompositionStringA
#define ImmGetCompositionFont ImmGetCompositionFontA
#define ImmSetCompositionFont ImmSetCompositionFontA
#define ImmGetCandidateList ImmGetCandidateListA
#define ImmGetCandidateListCount ImmGetCandidateListCountA
#endif

#endif /* RC_INVOKED */
#endif /* VORLAN_IMM_H */
