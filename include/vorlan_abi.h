/*
 * vorlan_abi.h - compiler and ABI glue shared by every public header.
 *
 * Declares the export and linkage macros, the calling-convention names
 * applications expect (they expand to nothing: application and library
 * are built by the same Linux compiler), and a structure-size check that
 * works in C99, C11 and C++.
 */
#ifndef VORLAN_ABI_H
#define VORLAN_ABI_H

#ifndef RC_INVOKED

#ifdef __cplusplus
#define VORLAN_EXTERN_C extern "C"
#define VORLAN_BEGIN_DECLS extern "C" {
#define VORLAN_END_DECLS }
#else
#define VORLAN_EXTERN_C extern
#define VORLAN_BEGIN_DECLS
#define VORLAN_END_DECLS
#endif

#define VORLAN_EXPORT __attribute__((visibility("default")))

/* Declaration prefixes of the two libraries. */
#define WINBASEAPI VORLAN_EXTERN_C VORLAN_EXPORT
#define WINUSERAPI VORLAN_EXTERN_C VORLAN_EXPORT
#define WINGDIAPI VORLAN_EXTERN_C VORLAN_EXPORT
#define WINADVAPI VORLAN_EXTERN_C VORLAN_EXPORT
#define WINSPOOLAPI VORLAN_EXTERN_C VORLAN_EXPORT
#define WINCOMMDLGAPI VORLAN_EXTERN_C VORLAN_EXPORT
#define WINSHELLAPI VORLAN_EXTERN_C VORLAN_EXPORT
#define WINMMAPI VORLAN_EXTERN_C VORLAN_EXPORT
#define WINIMMAPI VORLAN_EXTERN_C VORLAN_EXPORT
#define BRANOAPI VORLAN_EXTERN_C VORLAN_EXPORT

/* Calling conventions: one convention on this platform. */
#define WINAPI
#define APIENTRY
#define CALLBACK
#define PASCAL
#define WINAPIV
#define STDMETHODCALLTYPE
#define __stdcall
#define __cdecl
#define _cdecl
#define cdecl

#define CONST const
#ifndef VOID
#define VOID void
#endif
#ifndef NULL
#ifdef __cplusplus
#define NULL 0
#else
#define NULL ((void *)0)
#endif
#endif
#ifndef FALSE
#define FALSE 0
#endif
#ifndef TRUE
#define TRUE 1
#endif
#define IN
#define OUT
#define OPTIONAL

/* Compile-time check usable at file scope in C99, C11 and C++. */
#define VORLAN_CAT_(a, b) a##b
#define VORLAN_CAT(a, b) VORLAN_CAT_(a, b)
#if defined(__cplusplus) && __cplusplus >= 201103L
#define VORLAN_STATIC_ASSERT(cond, msg) static_assert(cond, msg)
#elif defined(__STDC_VERSION__) && __STDC_VERSION__ >= 201112L
#define VORLAN_STATIC_ASSERT(cond, msg) _Static_assert(cond, msg)
#else
#define VORLAN_STATIC_ASSERT(cond, msg) \
    typedef char VORLAN_CAT(vorlan_static_assert_, __COUNTER__)[(cond) ? 1 : -1] \
        __attribute__((unused))
#endif

/* Size check for both ABIs: ILP32 (the platform's own) and LP64. */
#if defined(__LP64__) || defined(_LP64)
#define VORLAN_LP64 1
#define VORLAN_CHECK_SIZE(type, size32, size64) \
    VORLAN_STATIC_ASSERT(sizeof(type) == (size64), "size of " #type)
#else
#define VORLAN_LP64 0
#define VORLAN_CHECK_SIZE(type, size32, size64) \
    VORLAN_STATIC_ASSERT(sizeof(type) == (size32), "size of " #type)
#endif

#endif /* RC_INVOKED */
#endif /* VORLAN_ABI_H */
