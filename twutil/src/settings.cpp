// The typed settings store: records in insertion order and a hash index.
#include "settings.h"
#include "settings_access.h"

#include "afxexcept.h"

#include <bit>
#include <cstdlib>
#include <cstring>
#include <vector>

static_assert(sizeof(INT_PTR) == 8, "IntPtr records hold 64-bit values");

namespace {

struct FoldTable
{
    unsigned char lower[256];
    FoldTable()
    {
        for (int i = 0; i < 256; ++i)
            lower[i] = static_cast<unsigned char>(AfxToLower1252(static_cast<char>(i)));
    }
};

const FoldTable& Fold()
{
    static const FoldTable table;
    return table;
}

// Folds the key a byte at a time but mixes it a word at a time, so that the
// multiplications do not form one long chain.
unsigned HashKey(const char* key, int length)
{
    const unsigned char* lower = Fold().lower;
    unsigned long long h = 0x9E3779B97F4A7C15ull ^ unsigned(length);
    int i = 0;
    for (; i + 8 <= length; i += 8) {
        unsigned long long w = 0;
        for (int k = 0; k < 8; ++k)
            w |= (unsigned long long)lower[static_cast<unsigned char>(key[i + k])] << (8 * k);
        h = (h ^ w) * 0xFF51AFD7ED558CCDull;
        h ^= h >> 29;
    }
    unsigned long long w = 0;
    for (int k = 0; i + k < length; ++k)
        w |= (unsigned long long)lower[static_cast<unsigned char>(key[i + k])] << (8 * k);
    h = (h ^ w) * 0xC4CEB9FE1A85EC53ull;
    h ^= h >> 32;
    return unsigned(h);
}

bool SameKey(const char* a, const char* b, int length)
{
    if (std::memcmp(a, b, size_t(length)) == 0)
        return true;
    const unsigned char* lower = Fold().lower;
    for (int i = 0; i < length; ++i)
        if (lower[static_cast<unsigned char>(a[i])] != lower[static_cast<unsigned char>(b[i])])
            return false;
    return true;
}

bool OwnsHeapValue(int type)
{
    return type == SETTINGS_STRING || type == SETTINGS_FILE || type == SETTINGS_BINARY;
}

bool IsText(int type)
{
    return type == SETTINGS_STRING || type == SETTINGS_FILE;
}

bool IsIntegral(int type)
{
    return type == SETTINGS_INT || type == SETTINGS_BOOL || type == SETTINGS_INTPTR;
}

void* CheckedMalloc(size_t size)
{
    void* p = std::malloc(size ? size : 1);
    if (!p)
        AfxThrowMemoryException();
    return p;
}

const nList* Live(const nList* rec)
{
    return rec && !rec->deleted ? rec : nullptr;
}

LONGLONG IntegralValue(const nList* rec)
{
    return rec->type == SETTINGS_INTPTR ? rec->scalar.p : rec->scalar.i;
}

// String, File and Binary records leave their scalar unused; it tells whether
// the value is a block of its own or lives in the store's value blocks (then
// it is freed with the store).
constexpr INT_PTR kValueOwnBlock = 0;
constexpr INT_PTR kValuePooled = 1;

void ReleaseValue(nList& rec)
{
    if (OwnsHeapValue(rec.type) && rec.scalar.p == kValueOwnBlock)
        std::free(rec.value);
}

// Records in chunks that never move, so record pointers stay valid while the
// store grows. Chunk k holds 16 << k records.
class RecordList
{
public:
    RecordList() = default;
    RecordList(const RecordList&) = delete;
    RecordList& operator=(const RecordList&) = delete;
    ~RecordList() { clear(); }

    size_t size() const { return m_size; }
    bool empty() const { return m_size == 0; }

    nList& operator[](size_t index) const
    {
        const size_t n = index + kFirst;
        const int chunk = int(std::bit_width(n)) - kFirstBits - 1;
        return m_chunks[size_t(chunk)][n - (kFirst << chunk)];
    }

    nList& push_back(const nList& rec)
    {
        const size_t n = m_size + kFirst;
        const size_t chunk = size_t(std::bit_width(n)) - kFirstBits - 1;
        if (chunk == m_chunks.size()) {
            m_chunks.reserve(chunk + 1);
            m_chunks.push_back(static_cast<nList*>(CheckedMalloc(sizeof(nList) * (kFirst << chunk))));
        }
        nList& stored = m_chunks[chunk][n - (kFirst << chunk)];
        stored = rec;
        ++m_size;
        return stored;
    }

    // Calls f for every record in order.
    template <typename F>
    void forEach(F f) const
    {
        size_t left = m_size;
        for (size_t k = 0; left; ++k) {
            const size_t count = left < (kFirst << k) ? left : kFirst << k;
            for (size_t i = 0; i < count; ++i)
                f(m_chunks[k][i]);
            left -= count;
        }
    }

    void clear()
    {
        for (nList* chunk : m_chunks)
            std::free(chunk);
        m_chunks.clear();
        m_size = 0;
    }

private:
    static constexpr int kFirstBits = 4;
    static constexpr size_t kFirst = size_t(1) << kFirstBits;
    std::vector<nList*> m_chunks;
    size_t m_size = 0;
};

// Bump allocation in large blocks that are freed all at once.
class BlockPool
{
public:
    BlockPool() = default;
    BlockPool(const BlockPool&) = delete;
    BlockPool& operator=(const BlockPool&) = delete;
    ~BlockPool() { clear(); }

    char* allocate(size_t need)
    {
        if (need > m_left) {
            const size_t block = need > kBlock / 2 ? need : kBlock;
            m_blocks.reserve(m_blocks.size() + 1);
            m_free = static_cast<char*>(CheckedMalloc(block));
            m_blocks.push_back(m_free);
            m_left = block;
        }
        char* p = m_free;
        m_free += need;
        m_left -= need;
        return p;
    }

    void clear()
    {
        for (char* block : m_blocks)
            std::free(block);
        m_blocks.clear();
        m_free = nullptr;
        m_left = 0;
    }

private:
    static constexpr size_t kBlock = 65536;
    std::vector<char*> m_blocks;
    char* m_free = nullptr;
    size_t m_left = 0;
};

}  // namespace

struct CSettingsBase::Impl
{
    RecordList records;
    // Open addressing, size a power of two: the key's hash in the upper half
    // and record index + 1 in the lower half, 0 for a free slot. The hash lets
    // a probe pass other keys without reading their records.
    std::vector<unsigned long long> slots;
    // Keys never change, so they live in large blocks freed all at once.
    BlockPool keys;
    // Values of records filled by the exchange readers.
    BlockPool values;

    ~Impl() { clear(); }

    char* keyCopy(const char* key, int length)
    {
        char* copy = keys.allocate(size_t(length) + 1);
        std::memcpy(copy, key, size_t(length));
        copy[length] = '\0';
        return copy;
    }

    void reserve(size_t count)
    {
        size_t size = slots.empty() ? 64 : slots.size();
        while (size < count * 2)
            size *= 2;
        if (size != slots.size()) {
            slots.assign(size, 0);
            for (unsigned i = 0; i < records.size(); ++i)
                place(i);
        }
    }

    void clear()
    {
        records.forEach([](nList& rec) { ReleaseValue(rec); });
        records.clear();
        keys.clear();
        values.clear();
        slots.clear();
    }

    static constexpr size_t kNone = ~size_t(0);

    // The index of the key's record; kNone when there is none.
    size_t findIndex(const char* key, int length, unsigned hash) const
    {
        if (slots.empty())
            return kNone;
        const size_t mask = slots.size() - 1;
        for (size_t i = hash & mask;; i = (i + 1) & mask) {
            const unsigned long long slot = slots[i];
            if (!slot)
                return kNone;
            if (unsigned(slot >> 32) != hash)
                continue;
            const nList& rec = records[unsigned(slot) - 1];
            if (rec.keyLength == length && SameKey(rec.key, key, length))
                return unsigned(slot) - 1;
        }
    }

    nList* find(const char* key, int length, unsigned hash) const
    {
        const size_t index = findIndex(key, length, hash);
        return index == kNone ? nullptr : &records[index];
    }

    void place(unsigned index)
    {
        const size_t mask = slots.size() - 1;
        size_t i = records[index].hash & mask;
        while (slots[i])
            i = (i + 1) & mask;
        slots[i] = (unsigned long long)records[index].hash << 32 | (index + 1);
    }

    void grow() { reserve(records.size() + 1); }

    nList* add(const char* key, int length, unsigned hash)
    {
        if ((records.size() + 1) * 2 > slots.size())
            grow();
        char* copy = keyCopy(key, length);
        nList rec{};
        rec.key = copy;
        rec.type = SETTINGS_INT;
        rec.value = nullptr;
        rec.hash = hash;
        rec.keyLength = length;
        nList& stored = records.push_back(rec);
        stored.value = &stored.scalar;
        place(unsigned(records.size() - 1));
        return &stored;
    }
};

CSettingsBase::CSettingsBase() : m_impl(new Impl), m_cursor(0) {}

CSettingsBase::~CSettingsBase()
{
    delete m_impl;
}

nList* CSettingsBase::hash_lookup(const char* key) const
{
    if (!key)
        return nullptr;
    const int length = int(std::strlen(key));
    return m_impl->find(key, length, HashKey(key, length));
}

nList* CSettingsBase::prepare(const char* key, int type, bool numeric)
{
    if (!key || !*key)
        return nullptr;
    const int length = int(std::strlen(key));
    const unsigned hash = HashKey(key, length);
    nList* rec = m_impl->find(key, length, hash);
    if (!rec)
        rec = m_impl->add(key, length, hash);
    else if (numeric && OwnsHeapValue(rec->type))
        AfxThrowInvalidArgException();
    if (OwnsHeapValue(rec->type)) {
        ReleaseValue(*rec);
        rec->value = &rec->scalar;
    }
    rec->type = type;
    rec->deleted = 0;
    return rec;
}

int CSettingsBase::getInt(const char* key, int def) const
{
    const nList* rec = Live(hash_lookup(key));
    if (!rec || !IsIntegral(rec->type))
        return def;
    const LONGLONG v = IntegralValue(rec);
    return v < INT32_MIN || v > INT32_MAX ? def : int(v);
}

LONGLONG CSettingsBase::getInt64(const char* key, LONGLONG def) const
{
    const nList* rec = Live(hash_lookup(key));
    return rec && IsIntegral(rec->type) ? IntegralValue(rec) : def;
}

bool CSettingsBase::getBool(const char* key, bool def) const
{
    const nList* rec = Live(hash_lookup(key));
    return rec && IsIntegral(rec->type) ? IntegralValue(rec) != 0 : def;
}

double CSettingsBase::getDouble(const char* key, double def) const
{
    const nList* rec = Live(hash_lookup(key));
    if (!rec)
        return def;
    if (rec->type == SETTINGS_DOUBLE)
        return rec->scalar.d;
    if (rec->type == SETTINGS_INT || rec->type == SETTINGS_INTPTR)
        return double(IntegralValue(rec));
    return def;
}

CString CSettingsBase::getString(const char* key, const char* def) const
{
    const nList* rec = Live(hash_lookup(key));
    return rec && IsText(rec->type) ? CString(static_cast<const char*>(rec->value)) : CString(def);
}

CString CSettingsBase::getFile(const char* key, const char* def) const
{
    return getString(key, def);
}

const BYTE* CSettingsBase::getBinary(const char* key, int* count) const
{
    const nList* rec = Live(hash_lookup(key));
    if (count)
        *count = 0;
    if (!rec || rec->type != SETTINGS_BINARY)
        return nullptr;
    DWORD length;
    std::memcpy(&length, rec->value, sizeof length);
    if (count)
        *count = int(length);
    return static_cast<const BYTE*>(rec->value) + sizeof(DWORD);
}

BOOL CSettingsBase::setInt(const char* key, int value)
{
    nList* rec = prepare(key, SETTINGS_INT, true);
    if (!rec)
        return FALSE;
    rec->scalar.p = 0;
    rec->scalar.i = value;
    return TRUE;
}

BOOL CSettingsBase::setInt64(const char* key, LONGLONG value)
{
    nList* rec = prepare(key, SETTINGS_INTPTR, true);
    if (!rec)
        return FALSE;
    rec->scalar.p = INT_PTR(value);
    return TRUE;
}

BOOL CSettingsBase::setDouble(const char* key, double value)
{
    nList* rec = prepare(key, SETTINGS_DOUBLE, true);
    if (!rec)
        return FALSE;
    rec->scalar.d = value;
    return TRUE;
}

BOOL CSettingsBase::setBool(const char* key, int value)
{
    nList* rec = prepare(key, SETTINGS_BOOL, false);
    if (!rec)
        return FALSE;
    rec->scalar.p = 0;
    rec->scalar.i = value ? 1 : 0;
    return TRUE;
}

namespace {

BOOL StoreText(nList* rec, const char* text)
{
    if (!rec)
        return FALSE;
    const size_t length = text ? std::strlen(text) : 0;
    char* copy = static_cast<char*>(CheckedMalloc(length + 1));
    if (length)
        std::memcpy(copy, text, length);
    copy[length] = '\0';
    rec->value = copy;
    rec->scalar.p = kValueOwnBlock;
    return TRUE;
}

}  // namespace

BOOL CSettingsBase::setString(const char* key, const char* value)
{
    // The text is copied first: it may be the record's own current value.
    CString keep(value);
    return StoreText(prepare(key, SETTINGS_STRING, false), keep);
}

BOOL CSettingsBase::setFile(const char* key, const char* path)
{
    CString keep(path);
    return StoreText(prepare(key, SETTINGS_FILE, false), keep);
}

BOOL CSettingsBase::setBinary(const char* key, const BYTE* bytes, int count)
{
    if (count < 0 || (count > 0 && !bytes) || !key || !*key)
        return FALSE;
    BYTE* block = static_cast<BYTE*>(CheckedMalloc(sizeof(DWORD) + size_t(count)));
    const DWORD length = DWORD(count);
    std::memcpy(block, &length, sizeof length);
    if (count)
        std::memcpy(block + sizeof(DWORD), bytes, size_t(count));
    nList* rec;
    try {
        rec = prepare(key, SETTINGS_BINARY, false);
    } catch (...) {
        std::free(block);
        throw;
    }
    rec->value = block;
    rec->scalar.p = kValueOwnBlock;
    return TRUE;
}

BOOL CSettingsBase::setDeleted(const char* key, int deleted)
{
    nList* rec = hash_lookup(key);
    if (!rec)
        return FALSE;
    rec->deleted = deleted ? 1 : 0;
    return TRUE;
}

nList* CSettingsBase::getVar(listtyp mode, bool withDeleted)
{
    if (mode == LIST_FIRST)
        m_cursor = 0;
    else if (mode != LIST_NEXT)
        return nullptr;
    const RecordList& records = m_impl->records;
    while (m_cursor < records.size()) {
        nList& rec = records[m_cursor++];
        if (withDeleted || !rec.deleted)
            return &rec;
    }
    return nullptr;
}

int CSettingsBase::GetCount() const
{
    return int(m_impl->records.size());
}

const nList* CSettingsBase::GetAt(int index) const
{
    if (index < 0 || size_t(index) >= m_impl->records.size())
        return nullptr;
    return &m_impl->records[size_t(index)];
}

void CSettingsBase::RemoveAll()
{
    m_impl->clear();
    m_cursor = 0;
}

namespace {

size_t ValueSize(const nList& rec)
{
    switch (rec.type) {
    case SETTINGS_STRING:
    case SETTINGS_FILE:
        return std::strlen(static_cast<const char*>(rec.value)) + 1;
    case SETTINGS_BINARY: {
        DWORD length;
        std::memcpy(&length, rec.value, sizeof length);
        return sizeof(DWORD) + length;
    }
    case SETTINGS_DOUBLE:
        return sizeof(double);
    case SETTINGS_INTPTR:
        return sizeof(INT_PTR);
    default:
        return sizeof(int);
    }
}

}  // namespace

bool CSettingsBase::IsEqual(const CSettingsBase& other) const
{
    const RecordList& a = m_impl->records;
    const RecordList& b = other.m_impl->records;
    if (a.size() != b.size())
        return false;
    for (size_t i = 0; i < a.size(); ++i) {
        const nList& x = a[i];
        const nList& y = b[i];
        if (x.keyLength != y.keyLength || std::memcmp(x.key, y.key, size_t(x.keyLength)) != 0 || x.type != y.type ||
            x.deleted != y.deleted)
            return false;
        const size_t size = ValueSize(x);
        if (size != ValueSize(y) || std::memcmp(x.value, y.value, size) != 0)
            return false;
    }
    return true;
}

void CSettingsBase::Merge(const CSettingsBase& source)
{
    if (&source == this)
        return;
    if (m_impl->records.empty() && source.m_impl->records.empty())
        return;
    // A file read back usually lists the keys in store order, so the record
    // after the last one found is tried before the hash index.
    RecordList& records = m_impl->records;
    size_t next = 0;
    source.m_impl->records.forEach([&](const nList& from) {
        size_t index = Impl::kNone;
        if (next < records.size()) {
            const nList& guess = records[next];
            if (guess.hash == from.hash && guess.keyLength == from.keyLength &&
                SameKey(guess.key, from.key, from.keyLength))
                index = next;
        }
        if (index == Impl::kNone)
            index = m_impl->findIndex(from.key, from.keyLength, from.hash);
        if (index == Impl::kNone) {
            m_impl->add(from.key, from.keyLength, from.hash);
            index = records.size() - 1;
        }
        nList* rec = &records[index];
        next = index + 1;
        if (OwnsHeapValue(from.type)) {
            const size_t size = ValueSize(from);
            if (OwnsHeapValue(rec->type) && ValueSize(*rec) >= size) {
                // The record's own buffer holds the new value: no allocation.
                std::memcpy(rec->value, from.value, size);
            } else {
                void* copy = CheckedMalloc(size);
                std::memcpy(copy, from.value, size);
                ReleaseValue(*rec);
                rec->value = copy;
                rec->scalar.p = kValueOwnBlock;
            }
        } else {
            ReleaseValue(*rec);
            rec->scalar = from.scalar;
            rec->value = &rec->scalar;
        }
        rec->type = from.type;
        rec->deleted = from.deleted;
    });
}

void SettingsReaderAccess::Reserve(CSettingsBase& store, size_t count)
{
    store.m_impl->reserve(count);
}

nList* SettingsReaderAccess::AddNew(CSettingsBase& store, const char* key, int length, int type)
{
    const unsigned hash = HashKey(key, length);
    if (store.m_impl->find(key, length, hash))
        return nullptr;
    nList* rec = store.m_impl->add(key, length, hash);
    rec->type = type;
    return rec;
}

void* SettingsReaderAccess::NewValue(CSettingsBase& store, nList* rec, size_t size)
{
    void* space = store.m_impl->values.allocate(size);
    rec->value = space;
    rec->scalar.p = kValuePooled;
    return space;
}
