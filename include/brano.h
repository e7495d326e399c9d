/*
 * brano.h - host base library extensions that have no Win32 counterpart:
 * running a hook chain on the library's behalf, and the CVector container.
 */
#ifndef VORLAN_BRANO_H
#define VORLAN_BRANO_H

#include "winbase.h"
#include "winuser.h"

#ifndef RC_INVOKED

/* Runs the hook chain of `type` for the calling thread.  For WH_GETMESSAGE
 * and WH_MSGFILTER, lParam points at the MSG.  `wide` tells whether the
 * message is in its wide form.  A non-zero result means a hook asked for
 * the message to be dropped. */
BRANOAPI LRESULT CallWindowsHook(int type, int code, WPARAM wParam, LPARAM lParam, BOOL wide);

#ifdef __cplusplus

/* Option bits of CVector. */
#define CVECTOR_ZERO_NEW 0x0001u   /* items added by Resize or AppendReserve start zeroed */

/* A growable array of fixed-size items, copied in and out.  Indexes count
 * items.  Methods that can fail return FALSE (or a null pointer) and leave
 * the vector unchanged.  While the vector is locked, the methods that could
 * move the items (Init, InitWithMem, Append, AppendReserve, Insert, Resize,
 * Clone) fail, so that the pointer returned by Lock stays valid. */
class VORLAN_EXPORT CVector {
public:
    CVector(UINT itemSize = 1, UINT options = 0);
    ~CVector();
    CVector(const CVector &) = delete;
    CVector &operator=(const CVector &) = delete;

    BOOL Init(UINT itemSize, UINT options = 0);          /* empties and sets the item size */
    BOOL InitWithMem(const void *items, UINT count);     /* replaces the content */
    BOOL Append(const void *item);
    void *AppendReserve(UINT count);                     /* room for count items, pointer to the first */
    BOOL Insert(UINT index, const void *item);           /* index == Size() appends */
    BOOL Remove(UINT index, UINT count = 1);
    BOOL Get(UINT index, void *item) const;
    BOOL Set(UINT index, const void *item);
    void Zero();                                         /* zeroes every item, keeps the count */
    void Clear();                                        /* no items */
    BOOL Clone(const CVector &other);
    BOOL Resize(UINT count);
    UINT Size() const;
    ULONGLONG SizeHuge() const;                          /* content size in bytes */
    void *Lock();                                        /* direct access to the items */
    void Unlock();
    UINT ItemSize() const { return m_itemSize; }

private:
    BOOL Reserve(UINT count);
    BYTE *m_items;
    UINT m_itemSize;
    UINT m_count;
    UINT m_capacity;
    UINT m_options;
    int m_lockCount;
};

#endif /* __cplusplus */
#endif /* RC_INVOKED */
#endif /* VORLAN_BRANO_H */
