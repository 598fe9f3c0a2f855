// The typed settings store that hosts and the library share at run time,
// with its INI and XML exchange files.
//
// Keys are dotted names ("MARKER.Linie.Farbe", "GLOBAL.Excel.Return"); the
// part before the first dot is the key's category. What callers can rely on:
// - Keys compare without regard to case (code page 1252 folding, as
//   AfxToLower1252); a record keeps the spelling of the first set. A null or
//   empty key is never stored.
// - Records are kept and iterated in the order in which their keys were first
//   set; imported keys that are new are appended in file order.
// - A get of a missing or deleted key returns the default argument. Gets
//   convert between related types: getInt, getInt64 and getBool read Integer,
//   Boolean and IntPtr records (getInt gives the default for an IntPtr value
//   outside the int range), getDouble reads Double, Integer and IntPtr,
//   getString and getFile read String and File records. Any other type gives
//   the default.
// - A set stores the value under the setter's type, clears the deleted flag
//   and returns TRUE; a null or empty key returns FALSE and stores nothing.
//   A set of an existing key with another type turns the record into the new
//   type, except that setInt, setInt64 and setDouble never replace a String,
//   File or Binary record: they throw CInvalidArgException* and leave the
//   record as it was (a number typed over a text is a slip, not a change).
// - Value pointers of Boolean, Integer, Double and IntPtr records stay valid
//   as long as the record exists, whatever is set later; those of String, File
//   and Binary records until the next set of that key. Record pointers stay
//   valid until RemoveAll or the store's destruction.
// - Lookups take constant time on average (hash table).
#pragma once

#include "twutil_api.h"
#include "afxstr.h"

// Type codes of settings records (nList::type).
enum SettingsType
{
    SETTINGS_STRING = 0,
    SETTINGS_BOOL = 1,
    SETTINGS_INT = 4,
    SETTINGS_DOUBLE = 8,
    SETTINGS_BINARY = 16,
    SETTINGS_FILE = 32,
    SETTINGS_INTPTR = 64,
};

// Iteration step of CSettingsBase::getVar.
enum listtyp
{
    LIST_FIRST = 0,
    LIST_NEXT = 1,
};

// Exchange file formats of CSettings.
enum SettingsFormat
{
    SETTINGS_FORMAT_INI = 0,
    SETTINGS_FORMAT_XML = 1,
};

// One record of the store, owned by the store.
struct nList
{
    // The key, NUL-terminated, in the spelling of its first set.
    const char* key;
    // The value: char* text for String and File (NUL-terminated), int* for
    // Boolean (0 or 1) and Integer, double* for Double, INT_PTR* for IntPtr,
    // and for Binary a block of a 32-bit length followed by the bytes.
    void* value;
    // One of SettingsType.
    int type;
    // Non-zero when the record is marked deleted (kept, read as missing).
    int deleted;

    // Storage of the store; not part of the interface.
    unsigned hash;
    int keyLength;
    union
    {
        int i;
        double d;
        INT_PTR p;
    } scalar;
};

// The store itself: typed records addressed by dotted keys.
class TWUTIL_API CSettingsBase
{
public:
    CSettingsBase();
    virtual ~CSettingsBase();
    CSettingsBase(const CSettingsBase&) = delete;
    CSettingsBase& operator=(const CSettingsBase&) = delete;

    int getInt(const char* key, int def = 0) const;
    LONGLONG getInt64(const char* key, LONGLONG def = 0) const;
    bool getBool(const char* key, bool def = false) const;
    double getDouble(const char* key, double def = 0.0) const;
    CString getString(const char* key, const char* def = "") const;
    CString getFile(const char* key, const char* def = "") const;
    // The bytes of a Binary record and their count; NULL (count 0) when the
    // key is missing, deleted or of another type. Valid until the key is set.
    const BYTE* getBinary(const char* key, int* count = NULL) const;

    // Throws CInvalidArgException* when the key holds a String, File or Binary.
    BOOL setInt(const char* key, int value);
    // Stores a pointer-sized integer (type IntPtr); throws as setInt.
    BOOL setInt64(const char* key, LONGLONG value);
    // Throws as setInt.
    BOOL setDouble(const char* key, double value);
    // Stores 1 for any non-zero value.
    BOOL setBool(const char* key, int value);
    // A null text stores the empty text.
    BOOL setString(const char* key, const char* value);
    // A file name; hosts may override to normalise paths. A null name stores "".
    virtual BOOL setFile(const char* key, const char* path);
    // Stores count bytes; a negative count, or bytes NULL with a positive
    // count, returns FALSE and stores nothing.
    BOOL setBinary(const char* key, const BYTE* bytes, int count);

    // Marks a record deleted (non-zero) or live again; FALSE when the key does
    // not exist. The value is kept either way.
    BOOL setDeleted(const char* key, int deleted);

    // Iterates the records in store order: LIST_FIRST gives the first record,
    // LIST_NEXT the one after the previously returned one, NULL at the end.
    // withDeleted false skips deleted records. Records added meanwhile are
    // reached at the end; one iteration at a time per store.
    nList* getVar(listtyp mode, bool withDeleted = true);
    // The record of the key, deleted or not; NULL when there is none.
    nList* hash_lookup(const char* key) const;

    // Number of records, deleted ones included.
    int GetCount() const;
    // Record at a position of the store order; NULL outside 0..GetCount()-1.
    const nList* GetAt(int index) const;
    // Removes every record.
    void RemoveAll();

    // Whether both stores hold the same keys in the same order with equal
    // types, deleted flags and bit-identical values.
    bool IsEqual(const CSettingsBase& other) const;

    // Sets every record of source into this store: type, value and deleted
    // flag, whatever the record held before (no throw on type changes).
    // Records of this store that source lacks are kept.
    void Merge(const CSettingsBase& source);

protected:
    struct Impl;
    Impl* m_impl;

private:
    friend class SettingsReaderAccess;
    nList* prepare(const char* key, int type, bool numeric);
    size_t m_cursor;
};

// The host's settings store with its exchange files.
//
// Exchange files: a path ending in ".xml" (any case) is XML, any other path
// INI. Both are code page 1252 text with CR LF line ends and hold one section
// named by the section argument (a null or empty section means "Settings");
// section names compare without regard to case. Every record is written,
// deleted ones included, and every type comes back exactly (doubles bit for
// bit, texts byte for byte).
//
// INI layout:
//     [Section]
//     MARKER.Linie.Farbe=Integer:255
//     GLOBAL.Editor=String:C:\\Programme\\edit.exe
//     Alt=Boolean,deleted:TRUE
// The value part is the type name (as the settings viewer shows it), an
// optional ",deleted", a colon and the value text. Keys, values and section
// names escape "\" as \\, LF as \n, CR as \r, TAB as \t and other control
// bytes as \xHH; keys also escape "=" and a leading ";", "#" or "[", section
// names "]", and all three a leading or trailing blank (\x20). Bytes 0x80 to
// 0xFF are written as they are. Doubles are written in the shortest form
// that reads back to the same bits (NaN as "NaN:" and 16 hex digits of its
// bits), Booleans as TRUE or FALSE (1 and 0 are read too), Binary as hex
// pairs. Blanks around keys and values, blank lines and lines starting with
// ";" or "#" are ignored on reading.
//
// XML layout (encoding declared as windows-1252):
//     <settings>
//      <section name="Section">
//       <value key="MARKER.Linie.Farbe" type="Integer">255</value>
//       <value key="Alt" type="Boolean" deleted="1">TRUE</value>
//      </section>
//     </settings>
// Texts are escaped with &amp; &lt; &gt; &quot; and numeric references for
// TAB, LF and CR; other control bytes, which XML 1.0 does not allow, are
// written as references to U+E001..U+E01F and read back as those bytes. On
// reading, references to characters outside code page 1252 and documents
// that declare another encoding are refused; no DTD is accepted.
//
// Reading is all or nothing: the whole file is parsed into a separate store
// first and only applied (as Merge) when it is complete and well formed. A
// file is refused when it is not well formed, holds no section of the given
// name, repeats a key within that section (keys compare without regard to
// case), has a value that does not fit its type (an Integer outside the int
// range, odd hex digits, an unknown type), holds a NUL byte, or starts with
// a UTF-8 byte order mark. An INI file must end with a line end: a last line
// without one is taken as a cut-off file. Other sections of the file are
// skipped. Keys of the store that the file lacks are kept.
class TWUTIL_API CSettings : public CSettingsBase
{
public:
    CSettings();
    ~CSettings() override;

    // Writes (direction 0) or reads (direction 1) the whole store as the file
    // at path, in the format its extension names. Returns 1 on success and 0
    // on failure (unknown direction, null or empty path, file not readable or
    // writable, file refused as described above); a failed read leaves the
    // store unchanged, a failed write the file (through CAtomicFile: a
    // temporary file beside it replaces it only when complete).
    int ExchangeSettings(int direction, const char* section, const char* path);

    // The store as the text of an exchange file.
    CString ExportSettingsText(SettingsFormat format, const char* section) const;
    // Reads exchange file text (length bytes) into the store as
    // ExchangeSettings does; 1 on success, 0 when refused (store unchanged).
    int ImportSettingsText(SettingsFormat format, const char* section, const char* data, int length);
};

// The format an exchange file's path names: XML for a path that ends in
// ".xml" without regard to case, INI otherwise (a null path too).
TWUTIL_API SettingsFormat SettingsFormatFromPath(const char* path);

// Parses exchange file text into the empty store target without touching
// anything else; TRUE when the text is complete and well formed. Used by
// ImportSettingsText; after FALSE, target holds whatever was read before the fault.
TWUTIL_API BOOL ParseSettingsText(SettingsFormat format, const char* section, const char* data, size_t length,
                                  CSettingsBase& target);

// Bytes as upper-case hex pairs separated by single blanks ("0A FF 10"); an
// empty text for no bytes or NULL.
TWUTIL_API CString BinaryToStr(const BYTE* bytes, int count);
// A Binary record's value: a 32-bit length followed by the bytes.
TWUTIL_API CString BinaryToStr(const void* block);
// Hex pairs (either case; blanks and tabs allowed between pairs, around the
// text too) to bytes allocated with malloc, which the caller frees. Returns
// their count. Text that is empty, null, has an odd digit count or holds any
// other character gives 0 and bytes NULL.
TWUTIL_API int StrToBinary(const char* text, unsigned char*& bytes);
// Whether a text is one of the truth words "1", "ok", "yes", "ja", "true",
// "wahr", without regard to case and ignoring blanks and tabs around it.
// Returns 1 or 0; a null text is 0.
TWUTIL_API int IsStringValueTrue(const char* text);
