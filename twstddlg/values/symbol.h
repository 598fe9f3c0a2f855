// Symbols: a name joined to an address text and a numeric target (Ziel),
// and the table that looks them up by name.
#pragma once

#include "twstddlg_api.h"
#include "afxstr.h"
#include "afxtempl.h"
#include "values/array_export.h"

// A named address with a numeric target.
class TWSTDDLG_API CSymbol : public CObject
{
public:
    CSymbol();
    CSymbol(const CSymbol& other);
    CSymbol& operator=(const CSymbol& other);
    ~CSymbol() override;

    const CString& Adr() const { return m_adr; }
    const CString& Name() const { return m_name; }
    const unsigned int& Ziel() const { return m_ziel; }

    void SetAdr(const char* adr);
    void SetName(const char* name);
    void SetZiel(unsigned int ziel);
    // Writes name, address and target, in this order.
    void Set(const char* name, const char* adr, unsigned int ziel);

private:
    CString m_adr;
    CString m_name;
    unsigned int m_ziel;
};

TWSTDDLG_EXTERN_ARRAY(CSymbol);

// A table of symbols found by name ignoring case. Add and Replace keep the
// names unique; AddSorted keeps name order and admits equal names.
// Serialize is CArray's (count and raw element images): rebuild tables from
// their source instead of archiving them.
class TWSTDDLG_API CSymbolArray : public CArray<CSymbol, CSymbol&>
{
public:
    CSymbolArray();
    ~CSymbolArray() override;

    // Index of the first symbol whose name equals name ignoring case (both
    // upper-cased, then compared exactly); -1 if none.
    INT_PTR FindName(const char* name) const;
    // Target of the symbol FindName finds, widened so that every target,
    // 0xFFFFFFFF included, is non-negative; -1 if there is none.
    LONGLONG GetZiel(const char* name) const;
    // Appends the symbol and returns its index; -1 and no change if a symbol
    // of the same name (ignoring case) is there.
    INT_PTR Add(CSymbol symbol);
    // Inserts in the order of CompareStringA(name, other, true), after the
    // last symbol whose name does not sort after it; returns its index.
    INT_PTR AddSorted(CSymbol symbol);
    // Puts the symbol in place of the one with the same name, keeping the
    // position, and returns that index; appends it if there is none.
    INT_PTR Replace(CSymbol symbol);
};
