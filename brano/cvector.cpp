// CVector: a growable array of fixed-size items.  Byte counts are computed
// with overflow checks; growth is geometric (by half again) so that
// appending is amortised constant time.
#include <windows.h>

#include <climits>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace {

constexpr UINT kMinimumCapacity = 8;

bool BytesFor(UINT count, UINT itemSize, size_t &bytes)
{
    return !__builtin_mul_overflow(static_cast<size_t>(count), static_cast<size_t>(itemSize), &bytes);
}

UINT GrownCapacity(UINT current, UINT needed)
{
    UINT grown = current > UINT_MAX - current / 2 ? UINT_MAX : current + current / 2;
    if (grown < kMinimumCapacity)
        grown = kMinimumCapacity;
    return grown > needed ? grown : needed;
}

bool PointsInto(const void *pointer, const BYTE *begin, size_t bytes)
{
    const BYTE *p = static_cast<const BYTE *>(pointer);
    return begin != nullptr && p >= begin && p < begin + bytes;
}

} // namespace

CVector::CVector(UINT itemSize, UINT options)
    : m_items(nullptr), m_itemSize(itemSize != 0 ? itemSize : 1), m_count(0), m_capacity(0),
      m_options(options), m_lockCount(0)
{
}

CVector::~CVector()
{
    std::free(m_items);
}

// Makes room for `count` items in total; the items do not move when there
// is room already.
BOOL CVector::Reserve(UINT count)
{
    if (count <= m_capacity)
        return TRUE;
    UINT capacity = GrownCapacity(m_capacity, count);
    size_t bytes = 0;
    if (!BytesFor(capacity, m_itemSize, bytes)) {
        capacity = count;
        if (!BytesFor(capacity, m_itemSize, bytes))
            return FALSE;
    }
    BYTE *items = static_cast<BYTE *>(std::realloc(m_items, bytes));
    if (items == nullptr)
        return FALSE;
    m_items = items;
    m_capacity = capacity;
    return TRUE;
}

BOOL CVector::Init(UINT itemSize, UINT options)
{
    if (m_lockCount > 0 || itemSize == 0)
        return FALSE;
    std::free(m_items);
    m_items = nullptr;
    m_itemSize = itemSize;
    m_options = options;
    m_count = 0;
    m_capacity = 0;
    return TRUE;
}

// `items` may point into this vector's own storage.
BOOL CVector::InitWithMem(const void *items, UINT count)
{
    if (m_lockCount > 0 || (items == nullptr && count > 0))
        return FALSE;
    size_t bytes = 0;
    if (!BytesFor(count, m_itemSize, bytes))
        return FALSE;
    BYTE *copy = nullptr;
    if (count > 0) {
        copy = static_cast<BYTE *>(std::malloc(bytes));
        if (copy == nullptr)
            return FALSE;
        std::memcpy(copy, items, bytes);
    }
    std::free(m_items);
    m_items = copy;
    m_count = count;
    m_capacity = count;
    return TRUE;
}

BOOL CVector::Append(const void *item)
{
    return Insert(m_count, item);
}

void *CVector::AppendReserve(UINT count)
{
    if (m_lockCount > 0 || count == 0 || count > UINT_MAX - m_count || !Reserve(m_count + count))
        return nullptr;
    BYTE *first = m_items + static_cast<size_t>(m_count) * m_itemSize;
    if (m_options & CVECTOR_ZERO_NEW)
        std::memset(first, 0, static_cast<size_t>(count) * m_itemSize);
    m_count += count;
    return first;
}

// `item` may point into this vector's own storage, which may move.
BOOL CVector::Insert(UINT index, const void *item)
{
    if (m_lockCount > 0 || item == nullptr || index > m_count || m_count == UINT_MAX)
        return FALSE;
    std::unique_ptr<BYTE[]> saved;
    if (PointsInto(item, m_items, static_cast<size_t>(m_capacity) * m_itemSize)) {
        saved.reset(new BYTE[m_itemSize]);
        std::memcpy(saved.get(), item, m_itemSize);
        item = saved.get();
    }
    if (!Reserve(m_count + 1))
        return FALSE;
    BYTE *slot = m_items + static_cast<size_t>(index) * m_itemSize;
    std::memmove(slot + m_itemSize, slot, static_cast<size_t>(m_count - index) * m_itemSize);
    std::memcpy(slot, item, m_itemSize);
    ++m_count;
    return TRUE;
}

// Allowed while locked: the items before `index` stay where they are.
BOOL CVector::Remove(UINT index, UINT count)
{
    if (index > m_count || count > m_count - index)
        return FALSE;
    BYTE *first = m_items + static_cast<size_t>(index) * m_itemSize;
    const size_t tail = static_cast<size_t>(m_count - index - count) * m_itemSize;
    if (count > 0 && tail > 0)
        std::memmove(first, first + static_cast<size_t>(count) * m_itemSize, tail);
    m_count -= count;
    return TRUE;
}

BOOL CVector::Get(UINT index, void *item) const
{
    if (item == nullptr || index >= m_count)
        return FALSE;
    std::memmove(item, m_items + static_cast<size_t>(index) * m_itemSize, m_itemSize);
    return TRUE;
}

BOOL CVector::Set(UINT index, const void *item)
{
    if (item == nullptr || index >= m_count)
        return FALSE;
    std::memmove(m_items + static_cast<size_t>(index) * m_itemSize, item, m_itemSize);
    return TRUE;
}

void CVector::Zero()
{
    if (m_count > 0)
        std::memset(m_items, 0, static_cast<size_t>(m_count) * m_itemSize);
}

// Keeps the storage, so a held Lock pointer stays valid.
void CVector::Clear()
{
    m_count = 0;
}

BOOL CVector::Clone(const CVector &other)
{
    if (&other == this)
        return TRUE;
    if (m_lockCount > 0)
        return FALSE;
    const size_t bytes = static_cast<size_t>(other.m_count) * other.m_itemSize;
    BYTE *copy = nullptr;
    if (bytes > 0) {
        copy = static_cast<BYTE *>(std::malloc(bytes));
        if (copy == nullptr)
            return FALSE;
        std::memcpy(copy, other.m_items, bytes);
    }
    std::free(m_items);
    m_items = copy;
    m_itemSize = other.m_itemSize;
    m_options = other.m_options;
    m_count = other.m_count;
    m_capacity = other.m_count;
    return TRUE;
}

// New items are zeroed with CVECTOR_ZERO_NEW, otherwise undefined.
BOOL CVector::Resize(UINT count)
{
    if (m_lockCount > 0 || !Reserve(count))
        return FALSE;
    if (count > m_count && (m_options & CVECTOR_ZERO_NEW))
        std::memset(m_items + static_cast<size_t>(m_count) * m_itemSize, 0,
                    static_cast<size_t>(count - m_count) * m_itemSize);
    m_count = count;
    return TRUE;
}

UINT CVector::Size() const
{
    return m_count;
}

ULONGLONG CVector::SizeHuge() const
{
    return static_cast<ULONGLONG>(m_count) * m_itemSize;
}

void *CVector::Lock()
{
    ++m_lockCount;
    return m_items;
}

void CVector::Unlock()
{
    if (m_lockCount > 0)
        --m_lockCount;
}
